// The controls of the tool options bar and of the pop-ups that open from it, picked by an option id of the
// current tool from their place on the screen; and what the type tools' bar and the free transform bar show.
#pragma once

#include <cstdint>
#include <string>

#include "platform/window_tree.h"

namespace ostrel::locator {

WindowHandle ToolOptionControl(uint32_t id, const std::wstring& value);
WindowHandle BrushPickerControl(int id);
WindowHandle StrokeStyleControl(int id);
WindowHandle ToolOptionPopupControl(int id, const std::wstring& value);

std::wstring FontName();
std::wstring FontStyle();
double FontSize();
int FontAntiAlias();

int IsFreeTransform();
// The free transform fields from left to right: horizontal and vertical position, horizontal and vertical
// scale, rotation, horizontal and vertical skew.
enum class TransformField { kHorizontalPos, kVerticalPos, kHorizontalScale, kVerticalScale, kRotate,
                            kHorizontalSkew, kVerticalSkew };
WindowHandle FreeTransformField(TransformField field);
double FreeTransformValue(TransformField field);

}  // namespace ostrel::locator
