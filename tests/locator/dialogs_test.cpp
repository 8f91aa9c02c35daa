// The dialog locators on small trees made for one question each: which title maps to which number, which
// window of a count or an order is taken, and where a size or a bit flips.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "locator/dialogs.h"
#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/portable/recorded_windows.h"

namespace ostrel {
namespace {

long long Number(HWND window) { return static_cast<long long>(reinterpret_cast<uintptr_t>(window)); }

// One window of a tree file; items makes it a combo box with the first item selected.
struct Win {
  uint32_t hwnd;
  std::string cls;
  std::string title;
  std::vector<int> rect;
  bool visible = true;
  std::vector<Win> children = {};
  int items = 0;
  uint32_t owner = 0;
};

std::string Json(const Win& w) {
  std::string text = "{\"hwnd\": " + std::to_string(w.hwnd) + ", \"class\": \"" + w.cls + "\", \"title\": \"" +
                     w.title + "\", \"rect\": [" + std::to_string(w.rect[0]) + "," + std::to_string(w.rect[1]) +
                     "," + std::to_string(w.rect[2]) + "," + std::to_string(w.rect[3]) + "]" +
                     (w.visible ? "" : ", \"visible\": false");
  if (w.owner != 0) text += ", \"owner\": " + std::to_string(w.owner);
  if (w.items > 0) {
    text += ", \"items\": [";
    for (int i = 0; i < w.items; ++i) text += (i ? ",\"" : "\"") + (i == 0 ? w.title : std::to_string(i)) + "\"";
    text += "], \"selected\": 0";
  }
  if (!w.children.empty()) {
    text += ", \"children\": [";
    for (size_t i = 0; i < w.children.size(); ++i) text += (i ? "," : "") + Json(w.children[i]);
    text += "]";
  }
  return text + "}";
}

// A recorded tree of these top-level windows, installed for the life of the object.
class Tree {
 public:
  explicit Tree(const std::vector<Win>& windows)
      : m_windows(Parse(windows)), m_platform(Platform{.windows = &m_windows, .screen = &m_windows}) {}

 private:
  static RecordedWindowTree Parse(const std::vector<Win>& windows) {
    std::string text = "{\"windows\": [";
    for (size_t i = 0; i < windows.size(); ++i) text += (i ? "," : "") + Json(windows[i]);
    WindowTreeLoad load = ParseWindowTree(text + "]}");
    EXPECT_TRUE(load.tree) << load.error << "\n" << text;
    return load.tree ? std::move(*load.tree) : RecordedWindowTree{};
  }
  RecordedWindows m_windows;
  ScopedPlatform m_platform;
};

// n shown labels, one under the other, from handle base.
std::vector<Win> Labels(int n, uint32_t base, const std::string& title = "") {
  std::vector<Win> labels;
  for (int i = 0; i < n; ++i) labels.push_back({base + i, "Static", title, {10, 10 + 20 * i, 90, 28 + 20 * i}});
  return labels;
}

// ---- The layer style dialog ----

TEST(LayerStyleDialog, EveryCountOfShownWindowsGivesItsPage) {
  struct Page {
    int windows;
    int page;
  };
  constexpr Page kPages[] = {{9, 2},      {13, 16},     {15, 1024},   {18, 32},    {21, 65536}, {24, 65536},
                             {27, 512},   {28, 32768},  {29, 64},     {42, 64},    {43, 64},    {33, 128},
                             {34, 262144}, {35, 4},     {37, 4},      {36, 131072}, {39, 256},  {45, 8}};
  for (int count = 0; count <= 50; ++count) {
    SCOPED_TRACE(count);
    int expected = -1;
    for (const Page& page : kPages) expected = page.windows == count ? page.page : expected;
    // The hidden labels don't count: the page is told by what the dialog shows.
    std::vector<Win> children = Labels(count, 100);
    for (const Win& hidden : Labels(3, 900)) children.push_back({hidden.hwnd, "Static", "", hidden.rect, false});
    const Tree tree({{10, "PSFloatC", "图层样式", {0, 0, 500, 500}, true, children}});
    EXPECT_EQ(Ostrel_GetCurrentLayerStylePanel(), expected);
    EXPECT_EQ(Number(Ostrel_GetLayerStyleWnd()), expected == -1 ? 0 : 10);
  }
}

TEST(LayerStyleDialog, OverprintTellsTheStrokePageWhenShown) {
  struct Case {
    const char* title;
    bool shown;
    int page;
  };
  constexpr Case kCases[] = {{"叠印", true, 64}, {"Overprint", true, 64}, {"叠印", false, -1}, {"叠印:", true, -1}};
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.title);
    std::vector<Win> children = Labels(9, 100);
    children.push_back({200, "Button", c.title, {10, 300, 90, 320}, c.shown});
    const Tree tree({{10, "PSFloatC", "图层样式", {0, 0, 500, 500}, true, children}});
    // 10 shown windows (or 9 with a hidden box, the styles page) and no page of 10.
    EXPECT_EQ(Ostrel_GetCurrentLayerStylePanel(), c.shown ? c.page : 2);
  }
  const Tree none({});
  EXPECT_EQ(Ostrel_GetCurrentLayerStylePanel(), -1);
  EXPECT_EQ(Number(Ostrel_GetLayerStyleWnd()), 0);
}

// The sub-windows are asked for in a fixed order: with the i-th title and every later one open (the later ones
// first in z-order), the i-th is found.
TEST(LayerStyleDialog, SubWindowsAreAskedInTheirOrder) {
  const auto children = locator::LayerStyleChildren();
  ASSERT_EQ(children.size(), 11u);
  const char* kTitles[] = {"等高线编辑器", "渐变编辑器", "拾色器（斜面和浮雕高光颜色）", "拾色器（斜面和浮雕阴影颜色）",
                           "拾色器（描边颜色）", "拾色器（内阴影颜色）", "拾色器（内发光颜色）", "拾色器（光泽颜色）",
                           "拾色器（叠加颜色）", "拾色器（外发光颜色）", "拾色器（投影颜色）"};
  const wchar_t* kNames[] = {L"等高线", L"渐变", L"高光颜色", L"阴影颜色", L"描边颜色", L"内阴影颜色",
                             L"内发光颜色", L"光泽颜色", L"叠加颜色", L"外发光颜色", L"投影颜色"};
  for (size_t first = 0; first < 11; ++first) {
    SCOPED_TRACE(kTitles[first]);
    std::vector<Win> windows;
    for (size_t i = 11; i-- > first;) {
      windows.push_back({static_cast<uint32_t>(100 + i), "PSFloatC", kTitles[i], {0, 0, 300, 300}});
    }
    const Tree tree(windows);
    HWND window = nullptr;
    std::wstring name = L"before";
    EXPECT_EQ(Ostrel_PopLayerStyleChildWnd(window, name), 1);
    EXPECT_EQ(Number(window), static_cast<long long>(100 + first));
    EXPECT_EQ(name, kNames[first]);
  }
}

TEST(LayerStyleDialog, SubWindowHiddenOrMissing) {
  HWND window = reinterpret_cast<HWND>(1);
  std::wstring name = L"before";
  {
    // The first one there is hidden: a shown one later in the order doesn't count.
    const Tree tree({{100, "PSFloatC", "拾色器（投影颜色）", {0, 0, 300, 300}},
                     {101, "PSFloatC", "拾色器（描边颜色）", {0, 0, 300, 300}, false},
                     {102, "PSFloatC", "渐变编辑器 ", {0, 0, 300, 300}}});
    EXPECT_EQ(Ostrel_PopLayerStyleChildWnd(window, name), 0);
    EXPECT_EQ(Number(window), 0);
    EXPECT_EQ(name, L"");
  }
  window = reinterpret_cast<HWND>(1);
  name = L"before";
  {
    const Tree tree({{102, "PSFloatC", "渐变编辑器 ", {0, 0, 300, 300}}, {103, "Static", "渐变编辑器", {0, 0, 9, 9}}});
    EXPECT_EQ(Ostrel_PopLayerStyleChildWnd(window, name), 0);
    EXPECT_EQ(Number(window), 0);
    EXPECT_EQ(name, L"before");  // none there: the name is left alone
  }
}

// ---- Adjustment layers ----

TEST(AdjustmentPanel, EveryTitleGivesItsAdjustmentAndOnlySixHaveTheComboBox) {
  struct Case {
    const char* title;
    int kind;
    bool comboBox;
  };
  constexpr Case kCases[] = {
      {"亮度/对比度", 3, false}, {"色阶", 4, true},      {"曲线", 5, true},      {"曝光度", 6, false},
      {"自然饱和度", 7, false},  {"色相/饱和度", 8, true}, {"色彩平衡", 9, true},  {"黑白", 10, false},
      {"照片滤镜", 11, false},   {"通道混和器", 12, true}, {"颜色查找", 13, false}, {"反相", 14, false},
      {"色调分离", 15, false},   {"阈值", 16, false},     {"渐变映射", 17, false}, {"可选颜色", 18, true},
      {"色阶 ", -1, false},      {"属性", -1, false},     {"", -1, false},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.title);
    // The label that names the adjustment is listed last but lies first from the top left; another adjustment's
    // title lies lower, and a hidden one higher. The lower of two shown combo boxes is the one taken.
    const Tree tree({{10, "OWL.FrameDrawer", "", {0, 0, 300, 400}, true,
                      {{11, "PSViewC", "", {0, 0, 300, 400}, true,
                        {{12, "ComboBox", "RGB", {60, 80, 200, 102}, true, {}, 4},
                         {13, "Static", "阈值", {10, 200, 90, 218}},
                         {14, "ComboBox", "默认值", {60, 50, 200, 72}, true, {}, 3},
                         {15, "ComboBox", "甲", {60, 300, 200, 322}, false, {}, 2},
                         {16, "Static", "色阶", {10, 5, 90, 23}, false},
                         {17, "Static", c.title, {10, 10, 90, 28}}}}}}});
    EnAdjustLayer kind = static_cast<EnAdjustLayer>(99);
    EXPECT_EQ(Number(Ostrel_GetAdjustLayerWnd(kind)), c.kind == -1 ? 0 : 10);
    EXPECT_EQ(kind, c.kind);
    EXPECT_EQ(Number(Ostrel_GetAdjustLayerWnd()), c.kind == -1 ? 0 : 10);
    int selection = 99;
    EXPECT_EQ(Number(Ostrel_GetAdjustLayerCmbWnd(selection)), c.comboBox ? 12 : 0);
    EXPECT_EQ(selection, c.comboBox ? 0 : -1);
    kind = static_cast<EnAdjustLayer>(99);
    EXPECT_EQ(Number(Ostrel_GetAdjustLayerPopWnd(kind)), 0);  // no fill pop-up
    EXPECT_EQ(kind, -1);
  }
}

// ---- The file dialogs ----

// A file dialog: the file name box holding its Edit, and type boxes at the given tops.
Win FileDialog(const char* title, std::vector<int> typeTops, uint32_t base = 100) {
  std::vector<Win> children = {{base + 1, "Edit", "", {10, 10, 400, 30}, false},
                               {base + 2, "ComboBox", "a.psd", {10, 400, 400, 422}, true,
                                {{base + 3, "Edit", "a.psd", {12, 402, 390, 420}}}, 1}};
  for (size_t i = 0; i < typeTops.size(); ++i) {
    children.push_back({base + 10 + static_cast<uint32_t>(i), "ComboBox", "PSD",
                        {420, typeTops[i], 600, typeTops[i] + 22}, true, {}, 2});
  }
  return {base, "#32770", title, {0, 0, 700, 500}, true, children};
}

TEST(FileDialogs, TheTypeBoxIsTheLowerOfExactlyTwo) {
  struct Case {
    const char* what;
    std::vector<int> typeTops;
    long long expected;
  };
  const Case kCases[] = {
      {"one box", {}, 0},
      {"two, the type box lower", {440}, 110},
      {"two on one row: the second", {400}, 110},
      {"two, the type box higher", {300}, 102},
      {"three", {440, 470}, 0},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.what);
    {
      const Tree tree({FileDialog("另存为", c.typeTops)});
      EXPECT_EQ(Number(Ostrel_GetSaveAsFileTypeCmbWnd()), c.expected);
      EXPECT_EQ(Number(Ostrel_GetOpenFileTypeCmbWnd()), 0);
      EXPECT_EQ(Number(Ostrel_GetSaveAsFileNameEdtWnd()), 103);  // the hidden Edit isn't listed
    }
    const Tree tree({FileDialog("打开", c.typeTops)});
    EXPECT_EQ(Number(Ostrel_GetOpenFileTypeCmbWnd()), c.expected);
    EXPECT_EQ(Number(Ostrel_GetSaveAsFileTypeCmbWnd()), 0);
  }
}

// The address bar: a toolbar under the breadcrumb whose title holds 地址; the navigation toolbar comes first.
TEST(FileDialogs, TheAddressBarIsTheBreadcrumbToolbar) {
  struct Case {
    const char* title;
    const char* parent;
    long long expected;
  };
  constexpr Case kCases[] = {
      {"地址: 桌面", "Breadcrumb Parent", 203}, {"位置 地址", "Breadcrumb Parent", 203},
      {"Address: 桌面", "Breadcrumb Parent", 0},  {"地址: 桌面", "msctls_progress32", 0},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.title);
    Win dialog = FileDialog("另存为", {440});
    dialog.children.insert(dialog.children.begin(),
                           {{200, "ToolbarWindow32", "地址", {10, 40, 90, 60}},
                            {201, "Breadcrumb Parent", "", {100, 40, 600, 60}, true,
                             {{202, "ToolbarWindow32", "", {100, 40, 300, 60}}}},
                            {204, c.parent, "", {300, 40, 600, 60}, true,
                             {{203, "ToolbarWindow32", c.title, {300, 40, 600, 60}}}}});
    const Tree tree({dialog});
    EXPECT_EQ(Number(Ostrel_GetSaveAsPathWnd()), c.expected);
  }
}

TEST(FileDialogs, TheFileNameBoxIsTheHighestComboBox) {
  const Tree tree({FileDialog("另存为", {440, 300})});  // one type box above the name box
  EXPECT_EQ(Number(Ostrel_GetSaveAsFileNameCmbWnd()), 111);
}

TEST(FileDialogs, PlaceUnderEitherTitle) {
  struct Case {
    std::vector<Win> windows;
    long long expected;
  };
  Win hiddenFirst = FileDialog("置入嵌入对象", {440}, 300);
  hiddenFirst.visible = false;
  const Case kCases[] = {
      {{FileDialog("置入嵌入对象", {440})}, 103},
      {{FileDialog("置入嵌入的对象", {440})}, 103},
      {{FileDialog("置入嵌入的对象", {440}, 300), FileDialog("置入嵌入对象", {440})}, 103},
      {{FileDialog("置入", {440})}, 0},
      // A hidden dialog under the first title ends the search: the second title isn't asked.
      {{hiddenFirst, FileDialog("置入嵌入的对象", {440})}, 0},
  };
  for (size_t i = 0; i < std::size(kCases); ++i) {
    SCOPED_TRACE(i);
    const Tree tree(kCases[i].windows);
    EXPECT_EQ(Number(Ostrel_GetPlaceFileFileNameEdtWnd()), kCases[i].expected);
    EXPECT_EQ(Number(Ostrel_GetReplaceFileFileNameEdtWnd()), 0);
  }
}

// ---- The gradient editor ----

TEST(GradientEditor, NameLosesEveryCommaAndBlank) {
  struct Case {
    const char* text;
    int shown;
    const wchar_t* expected;
  };
  constexpr Case kCases[] = {
      {"橙, 黄, 橙", 26, L"橙黄橙"}, {"黑,白", 26, L"黑,白"}, {"紫 , 橙", 26, L"紫 橙"}, {",  ,", 26, L" ,"},
      {"自定", 26, L"自定"},         {"橙, 黄", 25, L""},     {"橙, 黄", 27, L""},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.text);
    // The name field is the eighth shown window from the top; the view and six labels lie above it.
    // A label on the field's row, left of it, is listed after it: sorted by the top alone the field stays eighth.
    std::vector<Win> children = Labels(6, 200);
    children.push_back({300, "Edit", c.text, {100, 200, 300, 222}});
    children.push_back({301, "Static", "名称(N):", {10, 200, 90, 218}});
    for (const Win& below : Labels(c.shown - 9, 400)) {
      children.push_back({below.hwnd, "Static", "", {10, 300 + below.rect[1], 90, 318 + below.rect[1]}});
    }
    children.push_back({500, "Edit", "", {100, 5, 300, 20}, false});
    const Tree tree({{100, "PSFloatC", "渐变编辑器", {0, 0, 600, 900}, true,
                      {{101, "PSViewC", "", {0, 0, 600, 900}, true, children}}}});
    EXPECT_EQ(Ostrel_GetGradualWndName(), c.expected);
  }
}

// ---- Filter dialogs ----

TEST(FilterGalleryLocator, GroupNamesArePassedOverByTheKindOnly) {
  struct Case {
    const char* title;
    int kind;
    bool gallery;
  };
  constexpr Case kCases[] = {
      {"画笔描边 (100%)", -1, true},  // 50, a group: passed over, and no later name matches
      {"纹理化 (100%)", 206, true},   // 200 "纹理" is passed over before 206
      {"风格化", -1, true},           {"照亮边缘 (50%)", 2, true},  {"滤镜库", 0, true},
      {"海报边缘 (100%)", 256, true}, {"高斯模糊", -1, false},      {" 海报边缘", -1, false},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.title);
    const Tree tree({{100, "PSFilter_WindowClass", c.title, {0, 0, 900, 700}, true,
                      {{101, "ComboBox", "甲", {10, 10, 200, 32}, true, {}, 46},
                       {102, "ComboBox", "乙", {10, 40, 200, 62}, false, {}, 47},
                       {103, "ComboBox", "丙", {10, 70, 200, 92}, true, {}, 47}}}});
    EXPECT_EQ(Ostrel_GetFilterGallery(), c.kind);
    EXPECT_EQ(Number(Ostrel_GetFilterGalleryWnd()), c.gallery ? 100 : 0);
    EXPECT_EQ(Number(Ostrel_GetFilterGalleryCmb()), c.gallery ? 103 : 0);
  }
}

TEST(FilterDialogs, LiquifyShownOrNotAndTheGalleryOnlyShown) {
  {
    const Tree tree({{100, "PSFilter_WindowClass", "液化 (图层 1)", {0, 0, 900, 700}, false}});
    EXPECT_EQ(Number(Ostrel_GetLiquifyWnd()), 100);
  }
  const Tree tree({{100, "PSFilter_WindowClass", "海报边缘 (100%)", {0, 0, 900, 700}, false},
                   {101, "PSFilter_WindowClass", "液化", {0, 0, 900, 700}}});
  EXPECT_EQ(Number(Ostrel_GetFilterGalleryWnd()), 0);
  EXPECT_EQ(Ostrel_GetFilterGallery(), -1);
  EXPECT_EQ(Number(Ostrel_GetLiquifyWnd()), 0);  // only the first filter dialog is looked at
}

// ---- Refine Edge ----

// The main frame with the refine edge panel docked: the given windows in its view at [1000, 100, 1300, 900].
std::vector<Win> RefineEdgeTree(std::vector<Win> controls, std::vector<Win> before = {}) {
  controls.insert(controls.begin(), {20, "Button", "显示边缘 (J)", {1100, 110, 1200, 130}});
  const Win view{12, "PSViewC", "", {1000, 100, 1300, 900}, true, controls};
  before.push_back({10, "Photoshop", "", {0, 0, 1920, 1040}, true,
                    {{11, "OWL.Palette", "属性", {1000, 100, 1300, 900}, true, {view}}}});
  return before;
}

TEST(RefineEdgeLocator, EachSectionTitleSetsItsBitWithOrWithoutTheColon) {
  struct Case {
    const char* title;
    bool shown;
    uint32_t bits;
  };
  constexpr Case kCases[] = {
      {"半径:", true, 1},   {"半径", true, 1},   {"平滑:", true, 2},  {"平滑", true, 2},   {"输出到:", true, 4},
      {"输出到", true, 4},  {"半径：", true, 0}, {"半径 ", true, 0},  {"智能半径", true, 0}, {"平滑:", false, 0},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.title);
    const Tree tree(RefineEdgeTree({{30, "Static", c.title, {1010, 200, 1090, 218}, c.shown}}));
    EXPECT_EQ(Ostrel_IsRefineEdgeSubFold(), c.bits);
  }
  const Tree tree(RefineEdgeTree({{30, "Static", "半径:", {1010, 200, 1090, 218}},
                                  {31, "Button", "平滑", {1010, 230, 1090, 248}},
                                  {32, "Static", "输出到", {1010, 260, 1090, 278}}}));
  EXPECT_EQ(Ostrel_IsRefineEdgeSubFold(), 7u);
}

TEST(RefineEdgeLocator, ControlsByNumber) {
  // Every name of the list as a button and as a label with a field beside it, so that only the number decides.
  const char* kNames[] = {"视图模式", "显示边缘", "显示原稿", "高品质预览", "不透明度", "透明度", "颜色",
                          "指示", "半径", "智能半径", "平滑", "羽化", "对比度", "移动边缘",
                          "清除", "反相", "净化颜色", "输出到", "重置", "确定"};
  std::vector<Win> controls;
  for (uint32_t i = 0; i < 20; ++i) {
    const int top = 200 + 30 * static_cast<int>(i);
    controls.push_back({100 + i, "Static", std::string(kNames[i]) + ":", {1010, top, 1090, top + 20}});
    controls.push_back({200 + i, "Edit", "0", {1100, top - 1, 1160, top + 21}});
    controls.push_back({300 + i, "Button", std::string(kNames[i]) + " (X)", {1200, top, 1290, top + 20}});
  }
  const Tree tree(RefineEdgeTree(controls));
  for (int control = -1; control <= 20; ++control) {
    SCOPED_TRACE(control);
    long long expected = 0;
    switch (control) {
      case 1: expected = 20; break;  // the panel's own 显示边缘 (J) comes first
      case 2: case 3: case 14: case 15: case 19: expected = 300 + control; break;
      case 4: case 5: case 7: case 8: case 10: case 11: case 12: case 13: case 17: expected = 200 + control; break;
      default: break;  // 0, 6, 9, 16, 18 and the numbers outside the list: null, though the names are there
    }
    EXPECT_EQ(Number(Ostrel_GetRefineEdgeControl(static_cast<EnRefineEdge>(control))), expected);
  }
}

// The panel's view must sit in a docked palette: the same view in a floating frame isn't the panel.
TEST(RefineEdgeLocator, PanelOnlyInAPalette) {
  std::vector<Win> windows = RefineEdgeTree({});
  windows.back().children[0].cls = "OWL.FrameDrawer";
  const Tree tree(windows);
  EXPECT_EQ(Number(Ostrel_GetRefineEdgeWnd()), 0);
  EXPECT_EQ(Ostrel_IsRefineEdgeSubFold(), 0u);
}

TEST(RefineEdgeLocator, TheFieldLiesStrictlyBesideTheLastLabel) {
  struct Case {
    const char* what;
    bool lastShown;
    int fieldTop, fieldBottom;
    long long expected;
  };
  // The last label 羽化 spans 400..420: a field's middle (top + bottom) / 2 must lie strictly between.
  constexpr Case kCases[] = {
      {"middle 410", true, 400, 420, 50},  {"middle 419", true, 418, 421, 50}, {"middle 420", true, 419, 421, 0},
      {"middle 400", true, 390, 410, 0},   {"middle 401", true, 391, 412, 50}, {"last label hidden", false, 400, 420, 0},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.what);
    const Tree tree(RefineEdgeTree({{40, "Static", "羽化:", {1010, 200, 1090, 220}},
                                    {41, "Edit", "1", {1100, 200, 1160, 220}},
                                    {42, "Static", "羽化", {1010, 400, 1090, 420}, c.lastShown},
                                    {50, "Edit", "2", {1100, c.fieldTop, 1160, c.fieldBottom}}}));
    EXPECT_EQ(Number(Ostrel_GetRefineEdgeControl(static_cast<EnRefineEdge>(11))), c.expected);
  }
}

// The preview is told by its size as the walk down the panel's left edge meets it. The candidate stands inside
// the panel at its left edge (so the rule of a window reaching further left doesn't apply), 300 pixels down.
TEST(RefineEdgeLocator, PreviewSizesAtTheirEdges) {
  struct Case {
    int width, height;
    bool preview;
  };
  constexpr Case kCases[] = {
      {214, 329, false}, {214, 330, true},  {214, 350, true},  {214, 351, false}, {213, 340, false},
      {218, 331, true},  {240, 335, true},  {241, 339, true},  {218, 330, false}, {241, 340, false},
      {242, 335, false}, {217, 331, false}, {240, 333, false},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::to_string(c.width) + " x " + std::to_string(c.height));
    EXPECT_EQ(locator::IsPreviewSize(c.width, c.height), c.preview);
    const Tree tree(RefineEdgeTree({{60, "Static", "", {1000, 400, 1000 + c.width, 400 + c.height}}}));
    EXPECT_EQ(Number(Ostrel_GetRefineEdgeViewWnd()), c.preview ? 60 : 0);
  }
}

TEST(RefineEdgeLocator, PreviewReachingFurtherLeftThanThePanel) {
  struct Case {
    const char* what;
    std::vector<int> rect;
    long long expected;
  };
  const Case kCases[] = {
      {"further left and smaller", {800, 500, 1005, 600}, 70},
      {"further left, as tall as the panel", {800, 100, 1005, 900}, 0},
      {"below the panel's bottom", {800, 901, 1005, 950}, 0},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.what);
    const Tree tree(RefineEdgeTree({}, {{70, "PSFloatC", "", c.rect, true, {}, 0, 10}}));
    EXPECT_EQ(Number(Ostrel_GetRefineEdgeViewWnd()), c.expected);
  }
}

// ---- Cloud documents ----

TEST(CloudDocuments, ExactlyAViewOrAViewAndAField) {
  struct Case {
    const char* what;
    std::vector<Win> children;
    bool found;
  };
  const Case kCases[] = {
      {"a view", {{11, "PSViewC", "", {0, 0, 9, 9}}}, true},
      {"a view and a field", {{11, "PSViewC", "", {0, 0, 9, 9}}, {12, "Edit", "", {0, 0, 9, 9}}}, true},
      {"a field and a view", {{12, "Edit", "", {0, 0, 9, 9}}, {11, "PSViewC", "", {0, 0, 9, 9}}}, false},
      {"a view, a field and a hidden label",
       {{11, "PSViewC", "", {0, 0, 9, 9}}, {12, "Edit", "", {0, 0, 9, 9}}, {13, "Static", "", {0, 0, 9, 9}, false}},
       true},
      {"a view and a button", {{11, "PSViewC", "", {0, 0, 9, 9}}, {12, "Button", "", {0, 0, 9, 9}}}, false},
      {"nothing", {}, false},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.what);
    const Tree tree({{10, "PSFloatC", "云文档", {0, 0, 900, 700}, true, c.children}});
    EXPECT_EQ(Number(Ostrel_GetCloudDocuments()), c.found ? 10 : 0);
  }
}

}  // namespace
}  // namespace ostrel
