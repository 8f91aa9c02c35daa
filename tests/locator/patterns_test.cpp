// The locator's patterns and rules on small trees made for one question each: where a scan probes, what ends it,
// how the exchange sort leaves equal keys, and the rules of the tool options bar's tables.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "locator/handles.h"
#include "locator/patterns.h"
#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/portable/recorded_windows.h"

namespace ostrel {
namespace {

long long Number(HWND window) { return static_cast<long long>(reinterpret_cast<uintptr_t>(window)); }

// Text of one window of a tree file.
std::string Window(uint32_t hwnd, const std::string& cls, std::vector<int> rect, const std::string& more = "",
                   const std::string& children = "") {
  std::string text = "{\"hwnd\": " + std::to_string(hwnd) + ", \"class\": \"" + cls + "\", \"rect\": [" +
                     std::to_string(rect[0]) + "," + std::to_string(rect[1]) + "," + std::to_string(rect[2]) + "," +
                     std::to_string(rect[3]) + "]" + more;
  if (!children.empty()) text += ", \"children\": [" + children + "]";
  return text + "}";
}

// A main frame at frame with an options bar 30..70 holding the given controls, after the other top-level windows.
std::string FrameTree(const std::string& controls, std::vector<int> frame = {0, 0, 1000, 800},
                      const std::string& before = "", const std::string& frameMore = "") {
  const std::string bar = Window(11, "OWL.ControlBarContainer", {frame[0], 30, frame[2], 70}, "",
                                 Window(12, "PSViewC", {frame[0], 30, frame[2], 70}, "", controls));
  return "{\"windows\": [" + before + (before.empty() ? "" : ",") + Window(10, "Photoshop", frame, frameMore, bar) +
         "]}";
}

// n controls of a class side by side in a row, handles from base + first, the leftmost first.
std::string Controls(int n, const std::string& cls = "Button", int first = 0, uint32_t base = 100) {
  std::string text;
  for (int i = 0; i < n; ++i) {
    const int left = 10 + 40 * (first + i);
    text += (text.empty() ? "" : ",") + Window(base + first + i, cls, {left, 38, left + 30, 62});
  }
  return text;
}

// A recorded tree installed for the life of the object; it records where the point test was asked.
class Installed final : public IWindowTree {
 public:
  explicit Installed(const std::string& json, const wchar_t* version = L"Adobe Photoshop CC 2019")
      : m_windows(Parse(json)), m_platform(Platform{.windows = this, .screen = &m_windows}) {
    DefaultParameters().Set(EnTallyKey::kPhotoshopVersionName, version);
  }
  ~Installed() override { DefaultParameters().Erase(EnTallyKey::kPhotoshopVersionName); }
  std::vector<std::pair<int32_t, int32_t>> probes;

  WindowHandle FindTopLevel(const std::wstring& c, const std::wstring* t) override {
    return m_windows.FindTopLevel(c, t);
  }
  WindowHandle FindChild(WindowHandle p, const std::wstring& c) override { return m_windows.FindChild(p, c); }
  WindowHandle FindDescendantByClass(WindowHandle p, const std::wstring& c) override {
    return m_windows.FindDescendantByClass(p, c);
  }
  bool GetDescendants(WindowHandle p, bool v, std::vector<WindowHandle>& out) override {
    return m_windows.GetDescendants(p, v, out);
  }
  WindowHandle ParentOf(WindowHandle w) override { return m_windows.ParentOf(w); }
  bool RectOf(WindowHandle w, WindowRect& r) override { return m_windows.RectOf(w, r); }
  bool IsVisible(WindowHandle w) override { return m_windows.IsVisible(w); }
  WindowHandle WindowAt(int32_t x, int32_t y) override {
    probes.emplace_back(x, y);
    return m_windows.WindowAt(x, y);
  }
  std::wstring ClassOf(WindowHandle w) override { return m_windows.ClassOf(w); }
  std::wstring TextOf(WindowHandle w) override { return m_windows.TextOf(w); }
  bool SetText(WindowHandle w, const std::wstring& t) override { return m_windows.SetText(w, t); }
  bool GiveFocus(WindowHandle w) override { return m_windows.GiveFocus(w); }
  bool PressEnter(WindowHandle w) override { return m_windows.PressEnter(w); }
  int32_t ComboBoxCount(WindowHandle w) override { return m_windows.ComboBoxCount(w); }
  int32_t ComboBoxSelection(WindowHandle w) override { return m_windows.ComboBoxSelection(w); }

 private:
  static RecordedWindowTree Parse(const std::string& json) {
    WindowTreeLoad load = ParseWindowTree(json);
    EXPECT_TRUE(load.tree) << load.error << "\n" << json;
    return load.tree ? std::move(*load.tree) : RecordedWindowTree{};
  }
  RecordedWindows m_windows;
  ScopedPlatform m_platform;
};

using Probes = std::vector<std::pair<int32_t, int32_t>>;

TEST(Patterns, BrushPickerProbesFromTheLeftTestingTheLimitFirst) {
  {
    Installed tree(FrameTree(Controls(3)));
    EXPECT_EQ(Number(Ostrel_GetBrushPickerWnd()), 0);
    EXPECT_EQ(tree.probes, (Probes{{65, 170}, {130, 170}, {195, 170}, {260, 170}, {325, 170}, {390, 170},
                                   {455, 170}, {520, 170}}));
  }
  {
    Installed tree(R"({"windows": []})");  // no main frame: zero rectangles
    EXPECT_EQ(Number(Ostrel_GetBrushPickerWnd()), 0);
    EXPECT_EQ(tree.probes, (Probes{{65, 100}}));
  }
}

TEST(Patterns, ToolOptionRowsEndInTheFallback) {
  for (const int top : {0, -8}) {
    SCOPED_TRACE(top);
    Installed tree(FrameTree("", {0, top, 60, 800}));
    EXPECT_EQ(Number(Ostrel_GetToolOptionWnd()), 0);
    Probes rows;
    for (const auto& probe : tree.probes) {
      if (rows.empty() || rows.back().second != probe.second) rows.push_back(probe);
    }
    // The first row starts one step in, every later row at the left itself; the fallback scans the bar's bottom.
    EXPECT_EQ(rows, (Probes{{30, top + 50}, {0, top + 70}, {0, top + 90}, {0, top + 110}, {0, top + 130},
                            {0, top + 150}, {30, 70}}));
  }
}

TEST(Patterns, ScanRowLimits) {
  Installed tree(FrameTree(Controls(1)));
  const locator::ProbeTest never = [](WindowHandle) { return std::optional<WindowHandle>(); };
  EXPECT_EQ(locator::ScanRow(100, 5, 30, 100, never), 0u);
  EXPECT_TRUE(tree.probes.empty());
  locator::ScanRow(100, 5, 30, 160, never);
  EXPECT_EQ(tree.probes, (Probes{{130, 5}, {160, 5}}));  // a probe exactly on the limit is made
}

// A pop-up container with a view at 100..400 below the bar, owned by owner, with extra windows in the view.
std::string Popup(uint32_t hwnd, uint32_t owner, const std::string& viewChildren, int left = 100) {
  return Window(hwnd, "PSFloatC", {left, 70, left + 300, 400}, ", \"owner\": " + std::to_string(owner),
                Window(hwnd + 1, "PSViewC", {left, 70, left + 300, 400}, "", viewChildren));
}

TEST(Patterns, PopupsOfTheMainFrameOnly) {
  // A floating frame owns the first pop-up under the row: it isn't the main frame's, and the scan goes on.
  const std::string other = Window(20, "OWL.FrameDrawer", {900, 500, 990, 600});
  Installed tree(FrameTree(Controls(2), {0, 0, 1000, 800},
                           Popup(30, 20, "", 100) + "," + Popup(40, 10, "", 500) + "," + other));
  EXPECT_EQ(Number(Ostrel_GetToolBarPanel()), 41);
  EXPECT_EQ(Number(Ostrel_GetBrushPickerWnd()), 41);
}

TEST(Patterns, AScanThatFindsTheWrongKindStops) {
  // Tool options: the hit's container lists 9 windows of which 5 are Edit: null, without the fallback below.
  const std::string edits = Controls(5, "Edit", 0, 300) + "," + Controls(3, "Button", 5, 300);
  Installed tree(FrameTree(Controls(2), {0, 0, 1000, 800}, Popup(30, 10, edits, 0)));
  EXPECT_EQ(Number(Ostrel_GetToolBarPanel()), 31);
  EXPECT_EQ(Number(Ostrel_GetToolOptionWnd()), 0);
  // Stroke style: 10 windows but 2 combo boxes ends the scan, though a right one lies further on.
  const std::string two = Controls(2, "ComboBox", 0, 400) + "," + Controls(7, "Button", 2, 400);
  const std::string three = Controls(3, "ComboBox", 0, 500) + "," + Controls(6, "Button", 3, 500);
  Installed stroke(FrameTree(Controls(2), {0, 0, 1000, 800},
                             Popup(30, 10, two, 0) + "," + Popup(50, 10, three, 400)));
  EXPECT_EQ(Number(Ostrel_GetStrokeStyleWnd()), 0);
  Installed right(FrameTree(Controls(2), {0, 0, 1000, 800}, Popup(50, 10, three, 400)));
  EXPECT_EQ(Number(Ostrel_GetStrokeStyleWnd()), 51);
}

TEST(Patterns, ExchangeSortLeavesEqualKeysAsItSwapsThem) {
  const std::string children =
      Window(201, "Edit", {20, 50, 30, 60}) + "," + Window(202, "Edit", {20, 40, 30, 50}) + "," +
      Window(203, "Edit", {10, 45, 15, 55});
  Installed tree(FrameTree(children));
  std::vector<WindowHandle> list = {201, 202, 203};
  locator::SortWindowsByLeft(list);
  EXPECT_EQ(list, (std::vector<WindowHandle>{203, 202, 201}));  // a stable sort would give 203, 201, 202
  list = {201, 202, 203};
  locator::SortWindowsByTop(list);
  EXPECT_EQ(list, (std::vector<WindowHandle>{202, 203, 201}));
  list = {201, 202, 203, 12};
  locator::SortWindowsByTopLeft(list);
  EXPECT_EQ(list, (std::vector<WindowHandle>{12, 202, 203, 201}));
}

struct BarRule {
  const char* what;
  int controls;
  const char* lastClass;  // the class of control 16, where it matters
  unsigned id;
  const wchar_t* value;
  const wchar_t* version;
  long long expected;  // handle, 100 + control number
};

constexpr BarRule kBarRules[] = {
    {"51 with one control", 1, "Button", 51, L"", L"Adobe Photoshop CC 2019", 0},
    {"51 with two controls", 2, "Button", 51, L"", L"Adobe Photoshop CC 2019", 101},
    {"1011 with 6", 6, "Button", 1011, L"", L"Adobe Photoshop CC 2019", 0},
    {"1011 with 7", 7, "Button", 1011, L"", L"Adobe Photoshop CC 2019", 105},
    {"1011 with 8", 8, "Button", 1011, L"", L"Adobe Photoshop CC 2019", 106},
    {"1011 with 9", 9, "Button", 1011, L"", L"Adobe Photoshop CC 2019", 0},
    {"408 with 3", 3, "Button", 408, L"", L"Adobe Photoshop CC 2019", 101},
    {"1409 2019", 8, "Button", 1409, L"", L"Adobe Photoshop CC 2019", 107},
    {"1409 2020", 8, "Button", 1409, L"", L"Adobe Photoshop 2020", 106},
    {"1409 2021 with 8", 8, "Button", 1409, L"", L"Adobe Photoshop 2021", 107},
    {"1409 with 7", 7, "Button", 1409, L"", L"Adobe Photoshop CC 2019", 0},
    {"2176 value 1", 11, "Button", 2176, L"1", L"Adobe Photoshop CC 2019", 107},
    {"2176 value abc", 11, "Button", 2176, L"abc", L"Adobe Photoshop CC 2019", 104},
    {"2176 value 5", 11, "Button", 2176, L"5", L"Adobe Photoshop CC 2019", 0},
    {"2751 value 2", 3, "Button", 2751, L"2", L"Adobe Photoshop CC 2019", 102},
    {"2528 Edit at 16", 17, "Edit", 2528, L"", L"Adobe Photoshop CC 2019", 116},
    {"2528 Static at 16", 17, "Static", 2528, L"", L"Adobe Photoshop CC 2019", 0},
    {"2629 Static at 16 of 18", 18, "Static", 2629, L"", L"Adobe Photoshop CC 2019", 117},
    {"2674 with 16", 16, "Edit", 2674, L"", L"Adobe Photoshop CC 2019", 0},
};

TEST(Patterns, ToolOptionsBarRules) {
  for (const BarRule& rule : kBarRules) {
    SCOPED_TRACE(rule.what);
    std::string controls = Controls(std::min(rule.controls, 16));
    if (rule.controls > 16) controls += "," + Controls(1, rule.lastClass, 16);
    if (rule.controls > 17) controls += "," + Controls(rule.controls - 17, "Button", 17);
    Installed tree(FrameTree(controls), rule.version);
    EXPECT_EQ(Number(Ostrel_GetToolFeaturesControlWnd(rule.id, rule.value)), rule.expected);
  }
}

TEST(Patterns, FontAntiAliasSkipsTheSeparator) {
  for (const auto& [selected, expected] : {std::pair{5, 5}, std::pair{6, 5}, std::pair{7, 6}, std::pair{0, 0}}) {
    SCOPED_TRACE(selected);
    const std::string combo = Window(105, "ComboBox", {210, 38, 240, 62},
                                     ", \"items\": [\"0\",\"1\",\"2\",\"3\",\"4\",\"\",\"6\",\"7\"], \"selected\": " +
                                         std::to_string(selected));
    Installed tree(FrameTree(Controls(5) + "," + combo + "," + Controls(1, "Button", 6)));
    EXPECT_EQ(Ostrel_GetFontAntiAlias(), expected);
  }
  Installed eight(FrameTree(Controls(8)));
  EXPECT_EQ(Ostrel_GetFontAntiAlias(), -1);
  EXPECT_EQ(Ostrel_GetFontName(), L"");
}

TEST(Patterns, FreeTransformWantsSevenShownFields) {
  const std::string labels = Window(150, "Static", {500, 42, 510, 58}, ", \"title\": \"X:\"") + "," +
                             Window(151, "Static", {520, 42, 530, 58}, ", \"title\": \"Y:\"");
  Installed six(FrameTree(Controls(6, "Edit") + "," + Controls(4, "Button", 6) + "," + labels));
  EXPECT_EQ(Ostrel_IsFreeTransf(), 0);  // 12 windows but 6 fields
  EXPECT_EQ(Number(Ostrel_GetFreeTransfHorizontalPosWnd()), 0);
  EXPECT_EQ(Ostrel_GetFreeTransfRotate(), 0.0);
  // Labels whose titles only hold "X:" don't count.
  const std::string near = Window(150, "Static", {500, 42, 510, 58}, ", \"title\": \"X: \"") + "," +
                           Window(151, "Static", {520, 42, 530, 58}, ", \"title\": \"Y:\"");
  Installed almost(FrameTree(Controls(7, "Edit") + "," + Controls(1, "Button", 7) + "," + near));
  EXPECT_EQ(Ostrel_IsFreeTransf(), 0);
}

// A handle's 32 bits are sign-extended to the width of HWND, as Windows widens them, and come back whole.
TEST(Patterns, HighHandlesAreSignExtended) {
  Installed tree(R"({"windows": [{"hwnd": 4000000000, "class": "Photoshop", "rect": [0, 0, 10, 10]}]})");
  const HWND frame = Ostrel_GetPhotoshopWnd();
  EXPECT_EQ(reinterpret_cast<intptr_t>(frame), static_cast<intptr_t>(static_cast<int32_t>(4000000000u)));
  EXPECT_EQ(locator::FromHwnd(frame), 4000000000u);
}

TEST(Patterns, MainFrameHiddenOrMissing) {
  Installed hidden(FrameTree(Controls(2), {5, 6, 700, 800}, "", ", \"visible\": false"));
  EXPECT_EQ(Number(Ostrel_GetPhotoshopWnd()), 10);
  const tagRECT rect = Ostrel_GetPhotoshopRect();
  EXPECT_EQ(rect.left | rect.top | rect.right | rect.bottom, 0);
}

}  // namespace
}  // namespace ostrel
