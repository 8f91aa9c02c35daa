// The fill and stroke of the shape tools: both hang in the tool's shape style, the fill content beside the stroke
// style and the stroke content inside it, and both switches (fillEnabled, strokeEnabled) sit in the stroke style.
#include "photoshop/shape_fill.h"

#include <cmath>

#include "frame/dispids.h"
#include "photoshop/action_manager.h"
#include "vocabulary/tool_option_names.h"

namespace ostrel {
namespace {

// The descriptors of one side, as far as the reads need them.
struct SideOfShape {
  COleDispatchDriver content;
  bool enabled = false;
};

SideOfShape ReadSide(ShapeSide side) {
  const COleDispatchDriver tool = am::ReadApplicationKey(L"tool");
  const COleDispatchDriver options = am::GetObjectValue(tool, am::StringId(L"currentToolOptions"));
  const COleDispatchDriver shapeStyle = am::GetObjectValue(options, am::StringId(L"shapeStyle"));
  const COleDispatchDriver strokeStyle = am::GetObjectValue(shapeStyle, am::StringId(L"strokeStyle"));
  SideOfShape result;
  if (side == ShapeSide::kFill) {
    result.content = am::GetObjectValue(shapeStyle, am::StringId(L"fillContents"));
    result.enabled = am::GetBoolean(strokeStyle, am::StringId(L"fillEnabled"));
  } else {
    result.content = am::GetObjectValue(strokeStyle, am::StringId(L"strokeStyleContent"));
    result.enabled = am::GetBoolean(strokeStyle, am::StringId(L"strokeEnabled"));
  }
  return result;
}

}  // namespace

std::uint32_t ColorFromChannels(double red, double green, double blue) {
  // Cut toward zero, then the low 8 bits of the whole number (in two's complement for a negative one). A value
  // that is no number or beyond any colour reads as 0 rather than overflowing the conversion.
  const auto channel = [](double value) -> std::uint32_t {
    if (!(std::fabs(value) < 4294967296.0)) return 0;
    return static_cast<std::uint32_t>(static_cast<int64_t>(value)) & 0xFFu;
  };
  return channel(red) | (channel(green) << 8) | (channel(blue) << 16);
}

int ShapeContentMode(ShapeSide side) {
  const SideOfShape read = ReadSide(side);
  if (!read.enabled) return 0;
  if (am::HasKey(read.content, am::StringId(L"color"))) return 1;
  if (am::HasKey(read.content, am::StringId(L"gradient"))) return 2;
  if (am::HasKey(read.content, am::StringId(L"pattern"))) return 3;
  return -1;
}

std::uint32_t ShapeSolidColor(ShapeSide side) {
  const SideOfShape read = ReadSide(side);
  const COleDispatchDriver color = am::GetObjectValue(read.content, am::StringId(L"color"));
  if (!read.enabled) return 0;
  const double red = am::GetDouble(color, am::StringId(L"red"));
  const double green = am::GetDouble(color, am::StringId(L"grain"));
  const double blue = am::GetDouble(color, am::StringId(L"blue"));
  return ColorFromChannels(red, green, blue);
}

std::wstring ShapeGradientName(ShapeSide side) {
  const SideOfShape read = ReadSide(side);
  const COleDispatchDriver gradient = am::GetObjectValue(read.content, am::StringId(L"gradient"));
  if (!read.enabled) return L"";
  return DefaultGradientName(am::GetString(gradient, am::StringId(L"name")));
}

std::wstring ShapePatternName(ShapeSide side) {
  const SideOfShape read = ReadSide(side);
  const COleDispatchDriver pattern = am::GetObjectValue(read.content, am::StringId(L"pattern"));
  if (!read.enabled) return L"";
  return DefaultPatternName(am::GetString(pattern, am::StringId(L"name")));
}

int ShapePatternScale(ShapeSide side) {
  const SideOfShape read = ReadSide(side);
  const COleDispatchDriver pattern = am::GetObjectValue(read.content, am::StringId(L"pattern"));
  if (!read.enabled) return -1;
  return am::GetInteger(pattern, am::StringId(L"scale"));
}

int SetPenToolGeometryModeToShape() {
  const COleDispatchDriver tool = am::ReadApplicationKey(L"tool");
  tool.Call(dispid::desc::kPutEnumerated,
            {Variant::I4(am::StringId(L"geometryToolMode")), Variant::I4(am::StringId(L"geometryToolMode")),
             Variant::I4(am::StringId(L"shape"))});
  const COleDispatchDriver reference = am::NewReference();
  am::PutClass(reference, am::StringId(L"penTool"));
  const COleDispatchDriver command = am::NewDescriptor();
  am::PutReference(command, am::StringId(L"null"), reference);
  am::PutObject(command, am::StringId(L"to"), am::StringId(L"null"), tool);
  am::ExecuteAction(am::StringId(L"set"), command);
  return 1;
}

}  // namespace ostrel
