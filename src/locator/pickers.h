// The pop-up pickers that open from the tool options bar, the floating panels and the gradient editor.
#pragma once

#include "platform/window_tree.h"

namespace ostrel::locator {

WindowHandle BrushPicker();
WindowHandle BrushPickerScrollBar();
// The list pop-up of shapes, gradients or patterns, and its scroll bar.
WindowHandle ListPicker();
WindowHandle ListPickerScrollBar();
WindowHandle ColorPicker();
WindowHandle ToolOptionPopup();
WindowHandle StrokeStylePopup();
WindowHandle FontNameList();
WindowHandle ShapeColorPopup();
WindowHandle ShapeGradientPopup();
WindowHandle ShapeGradientScrollBar();
WindowHandle ShapePatternPopup();
WindowHandle ShapePatternScaleField();
int ShapePatternScale();
WindowHandle ShapeColorPanel();
// 1 solid colour, 2 gradient, 3 pattern, -1 none.
int ShapeColorPanelKind();
int IsShapeColorFillPanel(WindowHandle popup);

WindowHandle SourcePanel();
WindowHandle BrushPanel();
WindowHandle BrushPresetPanel();
WindowHandle CharacterPanel();
WindowHandle ParagraphPanel();
WindowHandle CloneSourcePanel();
WindowHandle HistoryPanel();

WindowHandle GradientEditor();
WindowHandle GradientEditorScrollBar();
int StopColorPosition();
int OpacityStopPosition();
int OpacityStopValue();

}  // namespace ostrel::locator
