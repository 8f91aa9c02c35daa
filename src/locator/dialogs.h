// The dialog and filter windows: found by a whole title (or a frame class), then the control taken from their
// descendants by class, order or place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "locator/handles.h"
#include "ostrel/layers.h"
#include "platform/window_tree.h"

namespace ostrel::locator {

// ---- The layer style dialog ----

// The page by the number of windows the dialog shows (EnLayerStyle), -1 when unknown or the dialog is missing.
int LayerStylePageOfCount(size_t shownWindows);
int CurrentLayerStylePage();
WindowHandle LayerStyleDialog();
// The sub-window titles in the order they are asked for, and the name each gives.
struct LayerStyleChildTitle {
  std::wstring_view title;
  std::wstring_view name;
};
std::span<const LayerStyleChildTitle> LayerStyleChildren();
// 1 when the first sub-window there is shown (window and name set); 0 when none is there (window null, name left
// alone) or when it is hidden (window null, name emptied).
int LayerStyleChild(WindowHandle& window, std::wstring& name);
int LayerStyleChildInto(HWND& window, std::wstring& name);

// ---- Adjustment layers ----

// The adjustment (3 to 18) a panel's first label names, -1 for any other title.
int AdjustmentOfTitle(std::wstring_view title);
// Each sets kind to -1 first and leaves it there when nothing is found.
WindowHandle AdjustmentPanel(int& kind);
WindowHandle AdjustmentPopup(int& kind);
WindowHandle AdjustmentComboBox(int& selection);
// The same for the exported overloads: the kind as the enumeration, or dropped.
HWND AdjustmentPanelInto(EnAdjustLayer& kind);
HWND AdjustmentPanelWithoutKind();
HWND AdjustmentPopupInto(EnAdjustLayer& kind);
HWND AdjustmentPopupWithoutKind();
HWND AdjustmentComboBoxInto(int& selection);
// The default of those exports on a failure: -1 in the out value, and null.
HWND NoAdjustment(EnAdjustLayer& kind);
HWND NoSelection(int& selection);

// ---- The New dialog and the file dialogs ----

WindowHandle NewDocumentTypeComboBox();
enum class FileDialog { kSaveAs, kOpen, kPlace, kReplace };
// The shown dialog (Place under either of its titles), null when it is missing or hidden.
WindowHandle FileDialogWindow(FileDialog dialog);
WindowHandle FileNameField(FileDialog dialog);
WindowHandle SaveAsFileNameComboBox();
WindowHandle FileTypeComboBox(FileDialog dialog);
WindowHandle SaveAsAddressBar();

// ---- The gradient editor ----

std::wstring GradientName();

// ---- Filter dialogs ----

WindowHandle FilterDialog();
WindowHandle FilterGalleryDialog();
int FilterGalleryKind();
WindowHandle FilterGalleryComboBox();
WindowHandle LiquifyDialog();

// ---- Refine Edge ----

WindowHandle RefineEdgePanel();
uint32_t RefineEdgeSections();
WindowHandle RefineEdgePreview();
// Whether a window of this size is the preview by its size alone.
bool IsPreviewSize(int32_t width, int32_t height);
WindowHandle RefineEdgeControl(int control);

// ---- Cloud documents ----

WindowHandle CloudDocuments();

}  // namespace ostrel::locator
