// The tool state: the active tool, the option walk, the stroke style of the shape tools, and the custom shape,
// zoom and preset commands.
#include "photoshop/tool_state.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <span>

#include "frame/connection.h"
#include "frame/dispids.h"
#include "platform/text.h"
#include "vocabulary/tool_option_catalogue.h"
#include "vocabulary/tool_option_names.h"
#include "vocabulary/tool_table.h"

namespace ostrel {
namespace {

// ---- The number table: Photoshop's numbers in the numbering of the value lists ---------------------------------

enum class NumberRule { kMap, kThousandths, kTenths, kFeatherLevels, kOver65536, kZeroIsOne };

struct NumberPair {
  int from, to;
};

struct NumberRow {
  std::initializer_list<int> options;
  NumberRule rule;
  std::initializer_list<NumberPair> pairs;  // for kMap; a number not listed passes unchanged
};

const NumberRow kNumberRows[] = {
    {{1}, NumberRule::kMap, {{0, 1}, {1, 0}}},
    {{52, 103, 600, 1605}, NumberRule::kMap, {{1, 0}, {2, 1}, {3, 2}}},
    {{53, 54, 104, 105, 601, 602}, NumberRule::kThousandths, {}},
    {{2225}, NumberRule::kTenths, {}},
    {{355, 2229}, NumberRule::kFeatherLevels, {}},
    {{451, 700, 750}, NumberRule::kMap, {{0, 0}, {1, 1}, {2, 2}, {5, 3}, {15, 4}, {25, 5}, {50, 6}}},
    {{505, 553}, NumberRule::kOver65536, {}},
    {{506, 514, 554, 1101}, NumberRule::kMap, {{1, 0}, {2, 1}}},
    {{558}, NumberRule::kMap, {{1, 0}, {3, 1}}},
    {{508}, NumberRule::kMap, {{2, 0}, {3, 1}, {4, 2}, {5, 3}, {6, 4}, {7, 5}}},
    {{510, 517, 2006, 2056, 2106}, NumberRule::kZeroIsOne, {}},
    {{701, 1010, 1409}, NumberRule::kMap, {{1, 0}, {3, 1}, {0, 2}, {6, 3}, {8, 4}}},
    {{1556}, NumberRule::kMap, {{1, 0}, {2, 1}, {3, 2}, {4, 3}, {5, 4}, {6, 5}, {7, 6}, {8, 7}, {9, 8}, {10, 9}}},
    {{2254, 2304, 2354, 2404}, NumberRule::kMap, {{0, -1}, {16, 1}, {1, 2}, {2, 3}, {8, 4}, {64, 5}, {128, 6}}},
};

// ---- The name table: Photoshop's names of choices as numbers of the value lists --------------------------------

struct NamePair {
  const wchar_t* name;
  int number;
};

struct NameRow {
  std::initializer_list<int> options;
  std::initializer_list<NamePair> names;
};

const NameRow kNameRows[] = {
    {{500}, {{L"pureAspectRatio", 0}, {L"targetSize", 1}, {L"originalProportions", 2}}},
    {{955, 1006, 1204, 1254, 1305, 1405, 1454, 1504, 1554, 1753, 1802, 1854, 1904, 1954, 2482, 2531, 2581, 2631,
      2682, 2731},
     {{L"normal", 0},        {L"dissolve", 1},      {L"behind", 2},        {L"clearEnum", 3},
      {L"darken", 4},        {L"multiply", 5},      {L"colorBurn", 6},     {L"linearBurn", 7},
      {L"darkerColor", 8},   {L"lighten", 9},       {L"screen", 10},       {L"colorDodge", 11},
      {L"linearDodge", 12},  {L"lighterColor", 13}, {L"overlay", 14},      {L"softLight", 15},
      {L"hardLight", 16},    {L"vividLight", 17},   {L"linearLight", 18},  {L"pinLight", 19},
      {L"hardMix", 20},      {L"difference", 21},   {L"exclusion", 22},    {L"blendSubtraction", 23},
      {L"blendDivide", 24},  {L"hue", 25},          {L"saturation", 26},   {L"color", 27},
      {L"luminosity", 28}}},
    {{956}, {{L"CntW", 0}, {L"CrtT", 1}, {L"PrxM", 2}}},
    {{1007}, {{L"SrcS", 0}, {L"SrcP", 1}}},
    {{1052}, {{L"healFromDest2Src", 0}, {L"healFromSrc2Dest", 1}}},
    {{2004, 2054},
     {{L"dodgeS", 0}, {L"burnInS", 0}, {L"dodgeM", 1}, {L"burnInM", 1}, {L"dodgeH", 2}, {L"burnInH", 2}}},
    {{2104}, {{L"desaturate", 0}, {L"saturate", 1}}},
    {{2150, 2200, 2450, 2500, 2550, 2600, 2650, 2700}, {{L"shape", 0}, {L"path", 1}, {L"fill", 2}}},
    {{2167, 2217, 2467, 2515, 2567, 2617, 2667, 2717},
     {{L"strokeStyleAlignInside", 0}, {L"strokeStyleAlignCenter", 1}, {L"strokeStyleAlignOutside", 2}}},
    {{2168, 2218, 2468, 2516, 2568, 2618, 2668, 2718},
     {{L"strokeStyleButtCap", 3}, {L"strokeStyleRoundCap", 4}, {L"strokeStyleSquareCap", 5}}},
    {{2169, 2219, 2469, 2517, 2569, 2619, 2669, 2719},
     {{L"strokeStyleMiterJoin", 6}, {L"strokeStyleRoundJoin", 7}, {L"strokeStyleBevelJoin", 8}}},
    // Seven options: 2221 is a shape option of the walk but not of this row, so it falls to the last row.
    {{2171, 2471, 2519, 2571, 2621, 2671, 2721},
     {{L"add", 1}, {L"subtract", 2}, {L"interfaceIconFrameDimmed", 3}, {L"xor", 4}}},
    {{2255, 2305, 2355, 2405}, {{L"left", 0}, {L"center", 1}, {L"right", 2}}},
};

// The row of every option that no row above holds.
const NameRow kOtherNames = {
    {}, {{L"square", 1}, {L"fixed", 2}, {L"constrainProportions", 3}, {L"nativeProportions", 4}, {L"nativeSize", 5}}};

// The two options of the paint mode lists where "pinLight" has its own number.
constexpr int kPinLightOwnOptions[] = {955, 1006};
constexpr int kPinLightOwnNumber = 29;

// ---- The walk's special options ------------------------------------------------------------------------------

// The two options made from the booleans "StmS" and "StmB".
constexpr int kStrokeBooleanOptions[] = {1010, 1409};
// The pattern options: their nested descriptors are searched only under "pattern".
constexpr int kPatternOptions[] = {1008, 1055, 1455, 1801};
constexpr int kGradientOption = 1751;
// The shape options that read "0" where the descriptor says it makes shape layers.
constexpr int kShapeLayerOptions[] = {2171, 2221, 2471, 2519, 2571, 2621, 2671, 2721};

template <class Range>
bool Holds(const Range& options, int option) {
  return std::find(std::begin(options), std::end(options), option) != std::end(options);
}

// The value when the keys of a run are used up, for the two options of the booleans: S and B both on "1", S
// alone "2", neither "0"; B alone is no value.
int StrokeBooleansValue(bool strokeS, bool strokeB, std::wstring& value) {
  if (!strokeS && strokeB) {
    value.clear();
    return 0;
  }
  value = strokeS ? (strokeB ? L"1" : L"2") : L"0";
  return 1;
}

// Renders the value of the key by its type into value (a type without a rendering leaves it as it was).
void RenderValue(const COleDispatchDriver& options, int32_t key, int32_t type, int option,
                 std::wstring& value) {
  switch (static_cast<DescriptorValueType>(type)) {
    case DescriptorValueType::kBoolean:
      value = ToolOptionNumberText(option, am::GetBoolean(options, key) ? 1 : 0);
      return;
    case DescriptorValueType::kInteger:
      value = ToolOptionNumberText(option, am::GetInteger(options, key));
      return;
    case DescriptorValueType::kString:
      value = ToolOptionNameText(option, am::GetString(options, key));
      return;
    case DescriptorValueType::kEnumerated:
      value = ToolOptionNameText(option, am::NameOfTypeId(am::GetEnumerationValue(options, key)));
      return;
    case DescriptorValueType::kDouble:
      value = Format(L"%.1lf", am::GetDouble(options, key));
      return;
    case DescriptorValueType::kUnitDouble:
      value = Format(L"%.1lf", am::GetUnitDouble(options, key));
      return;
    case DescriptorValueType::kList:
    case DescriptorValueType::kObject:
    case DescriptorValueType::kReference:
    case DescriptorValueType::kClass:
    case DescriptorValueType::kAlias:
    case DescriptorValueType::kLargeInteger:
      return;
  }
}

// One run of the walk; failures of its calls throw.
int WalkRun(const COleDispatchDriver& options, int option, std::wstring& value) {
  const bool strokeBooleans = Holds(kStrokeBooleanOptions, option);
  bool strokeS = false, strokeB = false;
  for (int32_t position = 0; position < am::Count(options); ++position) {
    const int32_t key = am::GetKey(options, position);
    const int32_t type = am::GetType(options, key);
    const std::wstring name = am::NameOfTypeId(key);
    if (strokeBooleans) {
      if (name == L"StmS") strokeS = am::GetBoolean(options, key);
      if (name == L"StmB") strokeB = am::GetBoolean(options, key);
      continue;
    }
    if (type == static_cast<int32_t>(DescriptorValueType::kObject)) {
      const COleDispatchDriver nested = am::GetObjectValue(options, am::TypeIdFromName(name));
      if (Holds(kPatternOptions, option) && name != L"pattern") continue;
      if (WalkToolOptions(nested, option, value) == 1) return 1;
    }
    if (Holds(kShapeLayerOptions, option) && am::HasKey(options, am::StringId(L"makeShapeLayers")) &&
        am::GetBoolean(options, am::StringId(L"makeShapeLayers"))) {
      value = L"0";
      return 1;
    }
    if (name != ToolOptionKey(option)) continue;
    RenderValue(options, key, type, option, value);
    if (Holds(kPatternOptions, option)) value = DefaultPatternName(value);
    if (option == kGradientOption) value = DefaultGradientName(value);
    return 1;
  }
  if (strokeBooleans) return StrokeBooleansValue(strokeS, strokeB, value);
  return 0;
}

COleDispatchDriver CurrentToolOptions() {
  const COleDispatchDriver tool = am::ReadApplicationKey(L"tool");
  return am::GetObjectValue(tool, am::StringId(L"currentToolOptions"));
}

bool Near(double value, double target) { return std::fabs(value - target) < 0.01; }

}  // namespace

// ---- Renderings ------------------------------------------------------------------------------------------------

std::wstring ToolOptionNumberText(int option, int number) {
  for (const NumberRow& row : kNumberRows) {
    if (!Holds(row.options, option)) continue;
    switch (row.rule) {
      case NumberRule::kMap:
        for (const NumberPair& pair : row.pairs) {
          if (pair.from == number) return Format(L"%d", pair.to);
        }
        return Format(L"%d", number);
      case NumberRule::kThousandths: return Format(L"%.3f", number / 1000.0);
      case NumberRule::kTenths: return Format(L"%.1f", number / 10.0);
      case NumberRule::kFeatherLevels: return Format(L"%d", static_cast<int>((40 - number) / 0.35));
      case NumberRule::kOver65536: return Format(L"%d", number / 65536);
      case NumberRule::kZeroIsOne: return Format(L"%d", number == 0 ? 1 : 0);
    }
  }
  return Format(L"%d", number);
}

std::wstring ToolOptionNameText(int option, const std::wstring& name) {
  const NameRow* row = &kOtherNames;
  for (const NameRow& candidate : kNameRows) {
    if (Holds(candidate.options, option)) {
      row = &candidate;
      break;
    }
  }
  for (const NamePair& pair : row->names) {
    if (name != pair.name) continue;
    const bool ownPinLight = name == L"pinLight" && Holds(kPinLightOwnOptions, option);
    return Format(L"%d", ownPinLight ? kPinLightOwnNumber : pair.number);
  }
  return name;
}

// ---- The walk and the reads --------------------------------------------------------------------------------------

int WalkToolOptions(const COleDispatchDriver& options, int option, std::wstring& value) noexcept {
  try {
    return WalkRun(options, option, value);
  } catch (...) {
    return 0;  // this run ends; a run that nested it goes on with its next step
  }
}

EnToolIndex CurrentToolIndex() {
  const std::wstring toolId = Application().Get(dispid::app::kCurrentTool).AsBstr();
  return EnToolIndex{ToolIndexFromNameEN(toolId)};
}

int SetCurrentTool(int index) {
  Application().Put(dispid::app::kCurrentTool, Variant::Bstr(ToolNameEN(index)));
  return 1;
}

int ReadToolOption(int option, std::wstring& value) { return WalkToolOptions(CurrentToolOptions(), option, value); }

int ReadStrokeDashes(std::vector<double>& dashes) {
  dashes.clear();
  const COleDispatchDriver options = CurrentToolOptions();
  const COleDispatchDriver shapeStyle = am::GetObjectValue(options, am::StringId(L"shapeStyle"));
  const COleDispatchDriver strokeStyle = am::GetObjectValue(shapeStyle, am::StringId(L"strokeStyle"));
  if (!am::HasKey(strokeStyle, am::StringId(L"strokeStyleLineDashSet"))) return 0;
  const COleDispatchDriver list = am::GetList(strokeStyle, am::StringId(L"strokeStyleLineDashSet"));
  am::ForEachPosition(list, [&](int32_t position) { dashes.push_back(am::ListGetDouble(list, position)); });
  return 1;
}

int ReadStrokeStylePreset(EnStrokeStylePreset& preset) {
  preset = EnStrokeStylePreset{-1};
  std::wstring align, cap, join;
  std::vector<double> dashes;
  if (ReadToolOption(2167, align) == 0 || ReadToolOption(2168, cap) == 0 || ReadToolOption(2169, join) == 0 ||
      ReadStrokeDashes(dashes) == 0) {
    return 0;
  }
  const int alignNumber = WToI(align), capNumber = WToI(cap), joinNumber = WToI(join);
  int found = -1;
  if (alignNumber == 0 && capNumber == 3 && joinNumber == 6 && dashes.empty()) found = 0;
  if (alignNumber == 0 && capNumber == 3 && joinNumber == 6 && dashes.size() == 2 && Near(dashes[0], 4.0) &&
      Near(dashes[1], 2.0)) {
    found = 1;
  }
  if (alignNumber == 0 && capNumber == 4 && joinNumber == 6 && dashes.size() == 2 && Near(dashes[0], 0.0) &&
      Near(dashes[1], 2.0)) {
    found = 2;
  }
  preset = EnStrokeStylePreset{found};
  return 1;
}

int SetCustomShapeName(const std::wstring& name) {
  const COleDispatchDriver tool = am::ReadApplicationKey(L"tool");
  const COleDispatchDriver command = am::NewDescriptor();
  command.Call(dispid::desc::kPutString, {Variant::I4(am::StringId(L"name")), Variant::Bstr(name)});
  am::PutObject(tool, am::StringId(L"customShape"), am::StringId(L"customShape"), command);
  const COleDispatchDriver reference = am::NewReference();
  am::PutClass(reference, am::StringId(L"customShapeTool"));
  am::PutReference(command, am::StringId(L"null"), reference);
  am::PutObject(command, am::StringId(L"to"), am::StringId(L"null"), tool);
  am::ExecuteAction(am::StringId(L"set"), command);
  return 1;
}

int ZoomScreen(const std::wstring& menuItem) {
  am::MenuCommand(menuItem);
  return 1;
}

int ImportPresetFile(const std::wstring& kind, const std::wstring& path, int append) {
  const COleDispatchDriver reference = am::NewReference();
  am::PutProperty(reference, am::StringId(L"property"), am::StringId(kind));
  am::PutEnumerated(reference, am::StringId(L"application"), am::StringId(L"ordinal"), am::StringId(L"targetEnum"));
  const COleDispatchDriver descriptor = am::NewDescriptor();
  am::PutReference(descriptor, am::StringId(L"null"), reference);
  descriptor.Call(dispid::desc::kPutPath, {Variant::I4(am::StringId(L"to")), Variant::Bstr(path)});
  descriptor.Call(dispid::desc::kPutBoolean, {Variant::I4(am::StringId(L"append")), Variant::Bool(append != 0)});
  am::ExecuteAction(am::StringId(L"set"), descriptor);
  return 1;
}

int NoStrokeStylePreset(EnStrokeStylePreset& preset) noexcept {
  preset = EnStrokeStylePreset{-1};
  return 0;
}

int NoDashes(std::vector<double>& dashes) noexcept {
  dashes.clear();
  return 0;
}

}  // namespace ostrel
