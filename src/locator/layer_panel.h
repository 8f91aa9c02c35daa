// The docked layer panel and its controls, the canvas of the current document with its rulers and zoom field,
// and the page of the floating brush panel. The layer panel and the documents stand in a deep fixed chain of
// classes under the main frame, so they are found by walking all descendants of the main frame and testing the
// classes upward from each window.
#pragma once

#include <vector>

#include "ostrel/layer_panel.h"
#include "platform/window_tree.h"

namespace ostrel::locator {

// The first window among the main frame's descendants that is the view of a docked panel, and the tab group two
// levels above it.
WindowHandle FirstDockedView();
WindowHandle LayerPanelGroup();
// The first direct child of class ScrollBar of the layer panel's view.
WindowHandle LayerPanelScrollBar();

// The fields, labels, lists and scroll bars that the layer panel shows, sorted by top and then left, into
// controls; false (controls left as they were) when Photoshop says the panel isn't shown or when there aren't
// exactly 9 of them.
bool LayerPanelControls(std::vector<WindowHandle>& controls);
enum class LayerControl { kBlend, kOpacity, kFillOpacity };
WindowHandle LayerPanelControl(LayerControl control);

// The document's view with its rulers (a shown PSViewC in OWL.Document, OWL.TabGroup, OWL.TabPane), the canvas
// (a shown label of a document's view, else that view) and the zoom field (a shown Edit of a document's view).
WindowHandle CanvasRulers();
WindowHandle Canvas();
WindowHandle ScaleField();
// The zoom in percent from the zoom field, 100.0 when it isn't shown; typing a zoom into it.
double Scale();
int SetScale(double percent);
// Switches the rulers on when the canvas starts where its view starts. Talks to Photoshop: called connected.
int SetRulers();
// The zoom as a factor from the first shown zoom field with a text, 0.0 for none; the rectangle of a picture
// of width by height pixels centred in the canvas at that zoom.
double CanvasScale();
tagRECT CanvasArea(const tagSIZE& size);

// The page of the brush panel by its labels; -1 when the panel isn't shown.
int BrushPanelPage();

}  // namespace ostrel::locator
