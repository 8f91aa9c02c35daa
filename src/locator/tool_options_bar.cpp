// The controls of the tool options bar, picked by their number in a list sorted by their place on the screen.
// The tables hold for the rows of controls of the versions served; nothing tells the locator that Photoshop
// changed a row.
#include "locator/tool_options_bar.h"

#include <algorithm>
#include <array>
#include <cwctype>
#include <initializer_list>
#include <span>
#include <vector>

#include "locator/main_frame.h"
#include "locator/patterns.h"
#include "locator/pickers.h"
#include "platform/text.h"

namespace ostrel::locator {
namespace {

// How an option id names its control: a plain control number, or a rule.
enum class Rule {
  kNumber,
  kA,  // by value: 0, 1, 2 give controls 4, 7, 10
  kB,  // by value: 0, 1, 2 give controls 0, 1, 2
  kC,  // by the length of the list: 2, 3, 4 give controls 0, 1, 2
  kD,  // by the length of the list: 7, 8 give controls 5, 6
  kE,  // by version, with at least 8 controls
  kF,  // control 16, or 17 when 16 is a label
  kT0, kT1, kT2, kT3, kT4, kT5, kT6,  // the free transform fields
  kG,   // the further options pop-up, by value: 0, 1, 2, 3 give s + 0, 1, 2, 5
  kH,   // by value: 0, 4, 5, 3 give s + 0, 1, 2, 3
  kV3,  // version 2021: control 18 with at least 19 controls, else s + 3
  kV6,  // version 2021: control 19 with at least 20 controls, else s + 6
};

struct Entry {
  uint32_t id;
  Rule rule;
  size_t control = 0;
};

constexpr Entry Control(size_t number) { return Entry{0, Rule::kNumber, number}; }

// Entries of the tool options bar, by the tool whose options they are.
struct BarEntry {
  uint32_t id;
  Entry what;
  constexpr BarEntry(uint32_t i, Entry e) : id(i), what(e) {}
  constexpr BarEntry(uint32_t i, Rule r) : id(i), what{0, r, 0} {}
};

constexpr BarEntry kBarEntries[] = {
    // moveTool: 1 自动选择方式
    {1, Control(0)},
    // marqueeRectTool: 51 羽化, 52 样式, 53 宽度, 54 高度, 55 宽度, 56 高度, 58 选择并遮住
    {51, Control(1)}, {52, Control(3)}, {53, Control(5)}, {54, Control(7)}, {55, Control(5)}, {56, Control(7)},
    {58, Control(8)},
    // marqueeEllipTool: 101 羽化, 103 样式, 104 宽度, 105 高度, 106 宽度, 107 高度, 109 选择并遮住
    {101, Control(1)}, {103, Control(3)}, {104, Control(5)}, {105, Control(7)}, {106, Control(5)},
    {107, Control(7)}, {109, Control(8)},
    // marqueeSingleRowTool: 151 羽化, 152 选择并遮住
    {151, Control(1)}, {152, Control(8)},
    // marqueeSingleColumnTool: 201 羽化, 202 选择并遮住
    {201, Control(1)}, {202, Control(8)},
    // lassoTool: 251 羽化, 253 选择并遮住
    {251, Control(1)}, {253, Control(2)},
    // polySelTool: 301 羽化, 303 选择并遮住
    {301, Control(1)}, {303, Control(2)},
    // magneticLassoTool: 351 羽化, 353 宽度, 354 对比度, 355 频率, 356 选择并遮住
    {351, Control(1)}, {353, Control(3)}, {354, Control(5)}, {355, Control(7)}, {356, Control(8)},
    // quickSelectTool: 408 选择并遮住
    {408, Rule::kC},
    // magicWandTool: 451 取样大小, 452 容差, 456 选择并遮住
    {451, Control(1)}, {452, Control(3)}, {456, Control(4)},
    // cropTool: 500 裁剪预设, 501 宽度, 502 高度, 504 清除, 505 分辨率, 506 分辨率模式
    {500, Control(0)}, {501, Control(1)}, {502, Control(2)}, {504, Control(5)}, {505, Control(3)},
    {506, Control(4)},
    // crop ratio fields: 519 aspectWidth, 520 aspectHeight
    {519, Control(1)}, {520, Control(2)},
    // perspectiveCropTool: 550 W, 551 H, 553 分辨率, 554 分辨率模式, 556 前面的图像, 557 清除
    {550, Control(1)}, {551, Control(3)}, {553, Control(5)}, {554, Control(6)}, {556, Control(7)},
    {557, Control(8)},
    // sliceTool: 600 样式, 601 宽度, 602 高度, 603 宽度, 604 高度, 605 基于参考线的切片
    {600, Control(1)}, {601, Control(3)}, {602, Control(5)}, {603, Control(3)}, {604, Control(5)},
    {605, Control(6)},
    // sliceSelectTool: 651 提升, 652 划分, 654 显示/隐藏自动切片
    {651, Control(0)}, {652, Control(1)}, {654, Control(2)},
    // eyedropperTool: 700 取样大小, 701 样本
    {700, Control(1)}, {701, Control(3)},
    // colorSamplerTool: 750 取样大小, 751 清除全部
    {750, Control(1)}, {751, Control(2)},
    // rulerTool: 801 拉直图层, 802 清除
    {801, Control(14)}, {802, Control(15)},
    // textAnnotTool: 850 作者, 852 清除全部
    {850, Control(0)}, {852, Control(2)},
    // countTool: 900 计数组, 904 清除, 906 标记大小, 907 标签大小
    {900, Control(2)}, {904, Control(3)}, {906, Control(4)}, {907, Control(5)},
    // spotHealingBrushTool: 955 模式, 958 扩散
    {955, Control(1)}, {958, Control(3)},
    // magicStampTool: 1006 模式, 1010 样本, 1011 扩散
    {1006, Control(1)}, {1010, Control(3)}, {1011, Rule::kD},
    // patchSelection: 1051 修补, 1054 使用图案, 1056 扩散, 1057 结构, 1058 颜色
    {1051, Control(1)}, {1054, Control(2)}, {1056, Control(4)}, {1057, Control(3)}, {1058, Control(5)},
    // recomposeSelection: 1101 模式, 1102 结构, 1103 颜色
    {1101, Control(1)}, {1102, Control(3)}, {1103, Control(5)},
    // redEyeTool: 1150 瞳孔大小, 1151 变暗量
    {1150, Control(1)}, {1151, Control(3)},
    // paintbrushTool: 1204 模式, 1205 不透明度, 1206 流量
    {1204, Control(1)}, {1205, Control(3)}, {1206, Control(5)},
    // pencilTool: 1254 模式, 1255 不透明度
    {1254, Control(1)}, {1255, Control(3)},
    // colorReplacementBrushTool: 1305 模式, 1307 限制, 1308 容差
    {1305, Control(1)}, {1307, Control(3)}, {1308, Control(5)},
    // wetBrushTool: 1357 混合画笔组合, 1358 潮湿, 1359 载入, 1360 混合, 1361 流量
    {1357, Control(0)}, {1358, Control(2)}, {1359, Control(4)}, {1360, Control(6)}, {1361, Control(8)},
    // cloneStampTool: 1405 模式, 1406 不透明度, 1407 流量, 1409 样本
    {1405, Control(1)}, {1406, Control(3)}, {1407, Control(5)}, {1409, Rule::kE},
    // patternStampTool: 1454 模式, 1456 不透明度, 1457 流量
    {1454, Control(1)}, {1456, Control(3)}, {1457, Control(5)},
    // historyBrushTool: 1504 模式, 1505 不透明度, 1506 流量
    {1504, Control(1)}, {1505, Control(3)}, {1506, Control(5)},
    // artBrushTool: 1554 模式, 1555 不透明度, 1556 样式, 1557 区域, 1558 容差
    {1554, Control(1)}, {1555, Control(3)}, {1556, Control(5)}, {1557, Control(7)}, {1558, Control(9)},
    // eraserTool: 1604 流量, 1605 模式, 1606 不透明度
    {1604, Control(5)}, {1605, Control(1)}, {1606, Control(3)},
    // backgroundEraserTool: 1656 限制, 1657 容差
    {1656, Control(1)}, {1657, Control(3)},
    // magicEraserTool: 1700 容差, 1704 不透明度
    {1700, Control(1)}, {1704, Control(3)},
    // gradientTool: 1753 模式, 1754 不透明度
    {1753, Control(1)}, {1754, Control(3)},
    // bucketTool: 1800 填充模式, 1802 模式, 1803 不透明度, 1804 容差
    {1800, Control(0)}, {1802, Control(2)}, {1803, Control(4)}, {1804, Control(6)},
    // blurTool: 1854 模式, 1855 强度
    {1854, Control(1)}, {1855, Control(3)},
    // sharpenTool: 1904 模式, 1905 强度
    {1904, Control(1)}, {1905, Control(3)},
    // smudgeTool: 1954 模式, 1955 强度
    {1954, Control(1)}, {1955, Control(3)},
    // dodgeTool: 2004 范围, 2005 曝光
    {2004, Control(1)}, {2005, Control(3)},
    // burnInTool: 2054 范围, 2055 曝光
    {2054, Control(1)}, {2055, Control(3)},
    // saturationTool: 2104 模式, 2105 流量
    {2104, Control(1)}, {2105, Control(3)},
    // penTool: 2150 几何模式, 2165 描边宽度, 2176 建立选区
    {2150, Control(0)}, {2165, Control(8)}, {2176, Rule::kA},
    // freeformPenTool: 2200 几何模式, 2215 描边宽度, 2224 建立选区, 2231 对齐边缘
    {2200, Control(0)}, {2215, Control(8)}, {2224, Rule::kA}, {2231, Rule::kA},
    // typeCreateOrEditTool: 2251 字体名称, 2252 字体样式, 2253 字体大小, 2254 字体消除锯齿
    {2251, Control(0)}, {2252, Control(2)}, {2253, Control(3)}, {2254, Control(5)},
    // typeVerticalCreateOrEditTool: 2301 字体名称, 2302 字体样式, 2303 字体大小, 2304 字体消除锯齿
    {2301, Control(0)}, {2302, Control(2)}, {2303, Control(3)}, {2304, Control(5)},
    // typeVerticalCreateMaskTool: 2351 字体名称, 2352 字体样式, 2353 字体大小, 2354 字体消除锯齿
    {2351, Control(0)}, {2352, Control(2)}, {2353, Control(3)}, {2354, Control(5)},
    // typeCreateMaskTool: 2401 字体名称, 2402 字体样式, 2403 字体大小, 2404 字体消除锯齿
    {2401, Control(0)}, {2402, Control(2)}, {2403, Control(3)}, {2404, Control(5)},
    // rectangleTool: 2450 几何模式, 2465 描边宽度, 2481 建立选区, 2482 模式, 2484 不透明度
    {2450, Control(0)}, {2465, Control(8)}, {2481, Rule::kA}, {2482, Control(5)}, {2484, Control(11)},
    // roundedRectangleTool: 2500 几何模式, 2513 描边宽度, 2528 半径, 2530 建立选区, 2532 不透明度
    {2500, Control(0)}, {2513, Control(8)}, {2528, Rule::kF}, {2530, Rule::kA}, {2532, Control(11)},
    // ellipseTool: 2550 几何模式, 2565 描边宽度, 2581 模式, 2582 不透明度, 2584 建立选区
    {2550, Control(0)}, {2565, Control(8)}, {2581, Control(5)}, {2582, Control(11)}, {2584, Rule::kA},
    // polygonTool: 2600 几何模式, 2615 描边宽度, 2629 边, 2631 模式, 2632 不透明度, 2634 建立选区
    {2600, Control(0)}, {2615, Control(8)}, {2629, Rule::kF}, {2631, Control(5)}, {2632, Control(11)},
    {2634, Rule::kA},
    // lineTool: 2650 几何模式, 2665 描边宽度, 2674 粗细, 2681 建立选区, 2682 模式, 2683 不透明度
    {2650, Control(0)}, {2665, Control(8)}, {2674, Rule::kF}, {2681, Rule::kA}, {2682, Control(5)},
    {2683, Control(11)},
    // customShapeTool: 2700 几何模式, 2715 描边宽度, 2730 建立选区, 2731 模式, 2732 不透明度
    {2700, Control(0)}, {2715, Control(8)}, {2730, Rule::kA}, {2731, Control(5)}, {2732, Control(11)},
    // handTool: 2751 将当前窗口缩放为100%
    {2751, Rule::kB},
    // view rotation: 2800 旋转角度, 2801 复位视图
    {2800, Control(1)}, {2801, Control(2)},
    // zoomTool: 2854 100%
    {2854, Rule::kB},
    // free transform: 2900 参考点水平位置, 2901 参考点垂直位置, 2902 水平缩放, 2903 垂直缩放, 2904 旋转, 2905 水平斜切, 2906 垂直斜切
    {2900, Rule::kT0}, {2901, Rule::kT1}, {2902, Rule::kT2}, {2903, Rule::kT3}, {2904, Rule::kT4},
    {2905, Rule::kT5}, {2906, Rule::kT6},
};

// The brush picker's fields from the top: diameter 0, hardness 1, spacing 2, angle 4, roundness 6.
constexpr uint32_t kDiameterIds[] = {401,  950,  1000, 1200, 1250, 1300, 1350, 1400, 1450, 1500,
                                     1550, 1600, 1650, 1850, 1900, 1950, 2000, 2050, 2100};
constexpr uint32_t kHardnessIds[] = {402,  951,  1001, 1201, 1251, 1301, 1351, 1401, 1451, 1501,
                                     1551, 1601, 1651, 1851, 1901, 1951, 2001, 2051, 2101};
constexpr uint32_t kSpacingIds[] = {403, 952, 1002, 1302, 1652};
constexpr uint32_t kAngleIds[] = {404, 953, 1003, 1303, 1653};
constexpr uint32_t kRoundnessIds[] = {405, 954, 1004, 1304, 1654};

// The stroke style pop-up's combo boxes from the left: alignment 0, caps 1, corners 2.
constexpr uint32_t kLineAlignmentIds[] = {2167, 2217, 2467, 2515, 2567, 2617, 2667, 2717};
constexpr uint32_t kLineCapIds[] = {2168, 2218, 2468, 2516, 2568, 2618, 2668, 2718};
constexpr uint32_t kLineJoinIds[] = {2169, 2219, 2469, 2517, 2569, 2619, 2669, 2719};

// The further options pop-up: control numbers behind the shift of the version.
constexpr BarEntry kPopupEntries[] = {
    // freeformPenTool: 2225 FrPT, 2227 MgWd, 2228 MgEd, 2229 MgCl
    {2225, Control(1)}, {2227, Control(3)}, {2228, Control(5)}, {2229, Control(7)},
    // rectangleTool: 2474 constant, 2475 width, 2476 height, 2477 proportionalWidth, 2478 proportionalHeight,
    //   2479 center
    {2474, Rule::kG}, {2475, Control(3)}, {2476, Control(4)}, {2477, Control(6)}, {2478, Control(7)},
    {2479, Control(8)},
    // roundedRectangleTool: the same fields
    {2522, Rule::kG}, {2523, Control(3)}, {2524, Control(4)}, {2525, Control(6)}, {2526, Control(7)},
    {2527, Control(8)},
    // ellipseTool: the same fields
    {2574, Rule::kG}, {2575, Control(3)}, {2576, Control(4)}, {2577, Control(6)}, {2578, Control(7)},
    {2579, Control(8)},
    // polygonTool: 2624 radius, 2625 smoothCorners, 2626 doIndent, 2627 indent, 2628 smoothIndents
    {2624, Control(1)}, {2625, Control(2)}, {2626, Rule::kV3}, {2627, Control(5)}, {2628, Rule::kV6},
    // lineTool: 2675 LnAS, 2676 LnAE, 2677 LnAW, 2678 LnAL, 2679 LnAC
    {2675, Control(1)}, {2676, Control(2)}, {2677, Control(4)}, {2678, Control(6)}, {2679, Control(8)},
    // customShapeTool: 2724 constant, 2725 width, 2726 height, 2727 center
    {2724, Rule::kH}, {2725, Control(4)}, {2726, Control(5)}, {2727, Control(6)},
};

constexpr wchar_t kVersion2017[] = L"Adobe Photoshop CC 2017";
constexpr wchar_t kVersion2020[] = L"Adobe Photoshop 2020";
constexpr wchar_t kVersion2021[] = L"Adobe Photoshop 2021";

const Entry* FindEntry(std::span<const BarEntry> entries, uint32_t id) {
  for (const BarEntry& entry : entries) {
    if (entry.id == id) return &entry.what;
  }
  return nullptr;
}

bool Contains(std::span<const uint32_t> ids, uint32_t id) { return std::find(ids.begin(), ids.end(), id) != ids.end(); }

// The control of a number picked from a list of values: the value's position in `values`, then its number.
WindowHandle ByValue(const std::vector<WindowHandle>& list, int value, std::initializer_list<int> values,
                     std::initializer_list<size_t> controls, size_t shift = 0) {
  const auto found = std::find(values.begin(), values.end(), value);
  if (found == values.end()) return 0;
  return At(list, shift + controls.begin()[found - values.begin()]);
}

WindowHandle ByRule(const std::vector<WindowHandle>& list, Rule rule, const std::wstring& value) {
  switch (rule) {
    case Rule::kA: return ByValue(list, WToI(value), {0, 1, 2}, {4, 7, 10});
    case Rule::kB: return ByValue(list, WToI(value), {0, 1, 2}, {0, 1, 2});
    case Rule::kC: return ByValue(list, static_cast<int>(std::min<size_t>(list.size(), 100)), {2, 3, 4}, {0, 1, 2});
    case Rule::kD: return ByValue(list, static_cast<int>(std::min<size_t>(list.size(), 100)), {7, 8}, {5, 6});
    case Rule::kE: {
      if (list.size() < 8) return 0;
      const std::wstring version = VersionName();
      if (version == kVersion2020) return At(list, 6);
      if (version == kVersion2021 && list.size() >= 9) return At(list, 8);
      return At(list, 7);
    }
    case Rule::kF:
      if (list.size() < 17) return 0;
      return Windows().ClassOf(list[16]) == kStaticClass ? At(list, 17) : list[16];
    case Rule::kT0: case Rule::kT1: case Rule::kT2: case Rule::kT3: case Rule::kT4: case Rule::kT5:
    case Rule::kT6:
      return FreeTransformField(static_cast<TransformField>(static_cast<int>(rule) - static_cast<int>(Rule::kT0)));
    case Rule::kNumber: case Rule::kG: case Rule::kH: case Rule::kV3: case Rule::kV6: return 0;
  }
  return 0;
}

WindowHandle PopupByRule(const std::vector<WindowHandle>& list, const Entry& entry, const std::wstring& value,
                         size_t shift) {
  const bool is2021 = VersionName() == kVersion2021;
  switch (entry.rule) {
    case Rule::kNumber: return At(list, shift + entry.control);
    case Rule::kG: return ByValue(list, WToI(value), {0, 1, 2, 3}, {0, 1, 2, 5}, shift);
    case Rule::kH: return ByValue(list, WToI(value), {0, 4, 5, 3}, {0, 1, 2, 3}, shift);
    case Rule::kV3: return is2021 && list.size() >= 19 ? list[18] : At(list, shift + 3);
    case Rule::kV6: return is2021 && list.size() >= 20 ? list[19] : At(list, shift + 6);
    case Rule::kA: case Rule::kB: case Rule::kC: case Rule::kD: case Rule::kE: case Rule::kF: case Rule::kT0:
    case Rule::kT1: case Rule::kT2: case Rule::kT3: case Rule::kT4: case Rule::kT5: case Rule::kT6: return 0;
  }
  return 0;
}

// The controls of the type tools' bar: exactly 7, else none.
std::vector<WindowHandle> FontBar() {
  constexpr size_t kFontBarControls = 7;
  std::vector<WindowHandle> controls;
  if (ToolOptionsBarControls(controls) == 0 || controls.size() != kFontBarControls) return {};
  return controls;
}

}  // namespace

WindowHandle ToolOptionControl(uint32_t id, const std::wstring& value) {
  std::vector<WindowHandle> list;
  if (ToolOptionsBarControls(list) == 0) return 0;
  const Entry* entry = FindEntry(kBarEntries, id);
  if (entry == nullptr) return 0;
  if (entry->rule == Rule::kNumber) return At(list, entry->control);
  return ByRule(list, entry->rule, value);
}

WindowHandle BrushPickerControl(int id) {
  const auto key = static_cast<uint32_t>(id);
  size_t control = 0;
  if (Contains(kDiameterIds, key)) control = 0;
  else if (Contains(kHardnessIds, key)) control = 1;
  else if (Contains(kSpacingIds, key)) control = 2;
  else if (Contains(kAngleIds, key)) control = 4;
  else if (Contains(kRoundnessIds, key)) control = 6;
  else return 0;
  std::vector<WindowHandle> list = Descendants(BrushPicker(), false);
  SortWindowsByTop(list);
  return At(list, control);
}

WindowHandle StrokeStyleControl(int id) {
  const WindowHandle popup = StrokeStylePopup();
  if (popup == 0) return 0;
  std::vector<WindowHandle> comboBoxes;
  for (const WindowHandle window : Descendants(popup, false)) {
    if (Windows().ClassOf(window) == kComboBoxClass) comboBoxes.push_back(window);
  }
  SortWindowsByLeft(comboBoxes);
  if (comboBoxes.size() < 3) return 0;
  const auto key = static_cast<uint32_t>(id);
  if (Contains(kLineAlignmentIds, key)) return comboBoxes[0];
  if (Contains(kLineCapIds, key)) return comboBoxes[1];
  if (Contains(kLineJoinIds, key)) return comboBoxes[2];
  return 0;
}

WindowHandle ToolOptionPopupControl(int id, const std::wstring& value) {
  const WindowHandle popup = ToolOptionPopup();
  if (popup == 0) return 0;
  std::vector<WindowHandle> list = Descendants(popup, false);
  SortWindowsByTopLeft(list);
  const Entry* entry = FindEntry(kPopupEntries, static_cast<uint32_t>(id));
  if (entry == nullptr) return 0;
  // Every version after CC 2017 has six more controls ahead of these.
  const size_t shift = VersionName() == kVersion2017 ? 0 : 6;
  return PopupByRule(list, *entry, value, shift);
}

std::wstring FontName() {
  std::wstring name = ReadWindowText(At(FontBar(), 0));
  while (!name.empty() && std::iswspace(static_cast<wint_t>(name.back()))) name.pop_back();
  return name;
}

std::wstring FontStyle() { return ReadWindowText(At(FontBar(), 2)); }

double FontSize() { return ReadWindowDouble(At(FontBar(), 3)); }

int FontAntiAlias() {
  const WindowHandle control = At(FontBar(), 5);
  if (control == 0) return -1;
  // The selections 6 and 7 stand for the methods 5 and 6.
  const int selection = Windows().ComboBoxSelection(control);
  if (selection == 6) return 5;
  if (selection == 7) return 6;
  return selection;
}

int IsFreeTransform() {
  const std::vector<WindowHandle> list = Descendants(ToolOptionsBar(), true);
  const size_t windows = list.size(), edits = CountClass(list, kEditClass);
  const bool layout = windows == 10 || windows == 11 || windows == 12 || windows == 16 || windows == 18;
  const bool fields = edits == 3 || edits == 5 || edits == 7;
  return layout && fields && HasTitle(list, L"X:") && HasTitle(list, L"Y:") ? 1 : 0;
}

WindowHandle FreeTransformField(TransformField field) {
  constexpr size_t kFields = 7;
  std::vector<WindowHandle> list = Descendants(ToolOptionsBar(), true);
  SortWindowsByLeft(list);
  std::vector<WindowHandle> edits;
  for (const WindowHandle window : list) {
    if (Windows().ClassOf(window) == kEditClass) edits.push_back(window);
  }
  if (edits.size() != kFields) return 0;
  return edits[static_cast<size_t>(field)];
}

double FreeTransformValue(TransformField field) { return ReadWindowDouble(FreeTransformField(field)); }

}  // namespace ostrel::locator
