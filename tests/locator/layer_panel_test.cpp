// The layer panel, the canvas and its zoom field, and the brush panel's page, on the example trees of
// examples/windows/ and on variants of them with one window changed (hidden, shown, retitled, of another class),
// so that a count of all windows where the shown ones count, a control number off by one, a list taken in
// enumeration order where the sorted order counts, or a zoom halved after scaling gives another answer.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "locator/patterns.h"
#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "platform/portable/recorded_windows.h"
#include "platform/text.h"
#include "simulator/photoshop.h"
#include "simulator/scenario.h"

namespace ostrel {

// A received message as a failure shows it: its window, number, key and text.
void PrintTo(const ReceivedMessage& message, std::ostream* out) {
  *out << "{hwnd " << message.window << ", message " << message.message << ", key " << message.key << ", \""
       << ToUtf8(message.text) << "\"}";
}

namespace {

long long Number(HWND window) { return static_cast<long long>(reinterpret_cast<uintptr_t>(window)); }

RecordedWindow* FindIn(std::vector<RecordedWindow>& windows, WindowHandle hwnd) {
  for (RecordedWindow& window : windows) {
    if (window.hwnd == hwnd) return &window;
    if (RecordedWindow* found = FindIn(window.children, hwnd)) return found;
  }
  return nullptr;
}

// One window of a tree changed before the tree is installed.
struct Change {
  WindowHandle hwnd = 0;
  std::optional<bool> visible;
  std::optional<std::wstring> title;
  std::optional<std::wstring> className;
};

Change Hide(WindowHandle hwnd) { return Change{hwnd, false, std::nullopt, std::nullopt}; }
Change Show(WindowHandle hwnd) { return Change{hwnd, true, std::nullopt, std::nullopt}; }
Change Retitle(WindowHandle hwnd, const wchar_t* title, bool visible = true) {
  return Change{hwnd, visible, std::wstring(title), std::nullopt};
}
Change Reclass(WindowHandle hwnd, const wchar_t* className) {
  return Change{hwnd, std::nullopt, std::nullopt, std::wstring(className)};
}

RecordedWindowTree LoadExample(const std::string& name, const std::vector<Change>& changes) {
  WindowTreeLoad load = LoadWindowTree(std::string(OSTREL_SOURCE_DIR) + "/examples/windows/" + name + ".json");
  EXPECT_TRUE(load.tree) << load.error;
  RecordedWindowTree tree = load.tree ? std::move(*load.tree) : RecordedWindowTree{};
  for (const Change& change : changes) {
    RecordedWindow* window = FindIn(tree.windows, change.hwnd);
    EXPECT_NE(window, nullptr) << name << " has no window " << change.hwnd;
    if (window == nullptr) continue;
    if (change.visible) window->visible = *change.visible;
    if (change.title) window->title = *change.title;
    if (change.className) window->className = *change.className;
  }
  return tree;
}

// A tree installed as the platform's windows, and, when asked, a simulated Photoshop connected to the library
// whose layers panel is shown or hidden. Both go at the end, the connection first.
class Installed {
 public:
  Installed(const std::string& tree, const std::vector<Change>& changes = {},
            std::optional<bool> layersPanelShown = std::nullopt)
      : m_windows(LoadExample(tree, changes)), m_platform(Platform{.windows = &m_windows, .screen = &m_windows}) {
    if (!layersPanelShown) return;
    const std::string scenario =
        std::string(R"({"panels": {"layers": )") + (*layersPanelShown ? "true" : "false") + "}}";
    m_photoshop = std::make_unique<sim::SimulatedPhotoshop>(sim::ParseScenario(scenario, ".", "panels.json"));
    m_automation = std::make_unique<ScopedPlatform>(Platform{.automation = m_photoshop.get()});
    EXPECT_EQ(Ostrel_Init(), 1);
  }
  ~Installed() {
    if (!m_photoshop) return;
    Ostrel_UnInit();
    m_automation.reset();
    EXPECT_EQ(m_photoshop->LiveObjects(), 0);
  }
  RecordedWindows& windows() { return m_windows; }
  sim::SimulatedPhotoshop& photoshop() { return *m_photoshop; }

 private:
  RecordedWindows m_windows;
  ScopedPlatform m_platform;
  std::unique_ptr<sim::SimulatedPhotoshop> m_photoshop;
  std::unique_ptr<ScopedPlatform> m_automation;
};

// ---- The layer panel ---------------------------------------------------------------------------------------------

struct PanelCase {
  const char* name;
  const char* tree;
  std::vector<Change> changes;
  std::optional<bool> layersShown;  // nothing: not connected
  long long view, group, scrollBar, blend, opacity, fill;
};

// layers_panel: the fill field is listed first, the opacity field later; the 9 controls sorted are 1436 (kind
// filter), 1433 (blend), 1435, 1434 (opacity), 1437, 1438, 1439 (fill), 1440 (scroll bar), 1441.
const std::vector<PanelCase>& PanelCases() {
  static const std::vector<PanelCase> cases = {
      {"nine controls", "layers_panel", {}, true, 1432, 1430, 1440, 1433, 1434, 1439},
      {"a third Edit last after sorting", "layers_panel", {Reclass(1441, L"Edit")}, true, 1432, 1430, 1440, 1433,
       1434, 1441},
      {"8 controls: a label hidden", "layers_panel", {Hide(1441)}, true, 1432, 1430, 1440, 0, 0, 0},
      {"8 controls: a label of another class", "layers_panel", {Reclass(1441, L"Button")}, true, 1432, 1430, 1440,
       0, 0, 0},
      {"10 controls: the rename field shown", "layers_panel", {Show(1444)}, true, 1432, 1430, 1440, 0, 0, 0},
      {"Photoshop says the panel is hidden", "layers_panel", {}, false, 1432, 1430, 1440, 0, 0, 0},
      {"not connected", "layers_panel", {}, std::nullopt, 1432, 1430, 1440, 0, 0, 0},
      // The layers palette hidden: the properties panel below is the first shown docked view.
      {"the second docked panel", "layers_panel", {Hide(1431)}, true, 1462, 1460, 1465, 0, 0, 0},
      // The rename field shown makes 10; hidden again, the controls have other handles in another layout.
      {"10 shown in another layout", "rulers_off", {}, true, 1432, 1430, 1441, 0, 0, 0},
      {"9 once the rename field is gone", "rulers_off", {Hide(1440)}, true, 1432, 1430, 1441, 1434, 1436, 1439},
      // A floating panel fails the chain test; the dock holds only a hidden palette.
      {"floating layers panel", "layers_floating", {}, true, 0, 0, 0, 0, 0, 0},
      // The colour panel is the first docked view, and it holds no controls.
      {"colour panel above the layers", "marquee", {}, true, 1422, 1420, 0, 0, 0, 0},
  };
  return cases;
}

TEST(LayerPanel, FindsThePanelAndItsThreeControls) {
  for (const PanelCase& c : PanelCases()) {
    SCOPED_TRACE(std::string(c.tree) + ": " + c.name);
    Installed installed(c.tree, c.changes, c.layersShown);
    EXPECT_EQ(Number(Ostrel_GetLayerPanelPSviewCWnd()), c.view);
    EXPECT_EQ(Number(Ostrel_GetLayerPanelWnd()), c.group);
    EXPECT_EQ(Number(Ostrel_GetLayerPanelScrollBarWnd()), c.scrollBar);
    EXPECT_EQ(Number(Ostrel_GetLayerBlendWnd()), c.blend);
    EXPECT_EQ(Number(Ostrel_GetLayerOpacityWnd()), c.opacity);
    EXPECT_EQ(Number(Ostrel_GetLayerFillOpacityWnd()), c.fill);
  }
}

TEST(LayerPanel, FloatingViewFailsTheChainTest) {
  const Installed installed("layers_floating");
  EXPECT_FALSE(locator::IsDockedView(3031));
}

// A failed question to Photoshop is a hidden panel: the controls are null.
TEST(LayerPanel, FailedPanelQuestionGivesNull) {
  Installed installed("layers_panel", {}, true);
  installed.photoshop().FailCall(1, sim::FaultMode::kPersistent);
  EXPECT_EQ(Number(Ostrel_GetLayerBlendWnd()), 0);
  EXPECT_EQ(Number(Ostrel_GetLayerFillOpacityWnd()), 0);
}

// ---- The canvas and its zoom -------------------------------------------------------------------------------------

struct CanvasCase {
  const char* name;
  const char* tree;
  std::vector<Change> changes;
  long long canvas, rulers, field;
  double scale, canvasScale;
};

const std::vector<CanvasCase>& CanvasCases() {
  static const std::vector<CanvasCase> cases = {
      // The first document is a hidden tab at 33.33%: its windows aren't looked at.
      {"rulers on", "layers_panel", {}, 1542, 1541, 1543, 66.67, 0.6667},
      {"rulers off", "rulers_off", {}, 1542, 1541, 1543, 33.33, 0.3333},
      // Without its label the canvas is the document's status label, the next shown label of the view.
      {"canvas label hidden", "layers_panel", {Hide(1542)}, 1544, 1541, 1543, 66.67, 0.6667},
      {"no shown label: the view", "rulers_off", {Hide(1542)}, 1541, 1541, 1543, 33.33, 0.3333},
      {"every document hidden", "layers_panel", {Hide(1540)}, 0, 0, 0, 100.0, 0.0},
      {"no document", "layers_floating", {}, 0, 0, 0, 100.0, 0.0},
      {"zoom field shown but empty", "layers_panel", {Retitle(1543, L"")}, 1542, 1541, 1543, 0.0, 0.0},
      // The zoom as a factor passes over a shown field without text; the zoom in percent doesn't.
      {"first shown zoom field empty", "layers_panel", {Show(1530), Retitle(1533, L"")}, 1532, 1531, 1533, 0.0,
       0.6667},
      {"zoom field hidden", "layers_panel", {Hide(1543)}, 1542, 1541, 0, 100.0, 0.0},
      // 63 characters fit the zoom field's buffer: 63 zeros read as 0; the canvas scale reads 128.
      {"zoom beyond 63 characters", "layers_panel", {Retitle(1543, (std::wstring(63, L'0') + L"50%").c_str())},
       1542, 1541, 1543, 0.0, 0.5},
      {"zoom with blanks and a sign", "layers_panel", {Retitle(1543, L"  +12.5 %")}, 1542, 1541, 1543, 12.5, 0.125},
      {"older layout", "marquee", {}, 1525, 1523, 1524, 66.67, 0.6667},
  };
  return cases;
}

TEST(Canvas, FindsCanvasRulersAndZoom) {
  for (const CanvasCase& c : CanvasCases()) {
    SCOPED_TRACE(std::string(c.tree) + ": " + c.name);
    const Installed installed(c.tree, c.changes);
    EXPECT_EQ(Number(Ostrel_GetCanvasWnd()), c.canvas);
    EXPECT_EQ(Number(Ostrel_GetCanvasRulersWnd()), c.rulers);
    EXPECT_EQ(Number(Ostrel_GetScaleWnd()), c.field);
    EXPECT_DOUBLE_EQ(Ostrel_GetScale(), c.scale);
    EXPECT_DOUBLE_EQ(Ostrel_GetCanvasScale(), c.canvasScale);
  }
}

TEST(Canvas, SetScaleTypesTwoDecimalsAndPressesEnter) {
  struct Case {
    double percent;
    const wchar_t* text;
  };
  static constexpr Case kCases[] = {{33.333, L"33.33"}, {66.666, L"66.67"}, {100, L"100.00"}, {5, L"5.00"}};
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.percent);
    Installed installed("layers_panel");
    EXPECT_EQ(Ostrel_SetScale(c.percent), 1);
    const std::vector<ReceivedMessage> expected = {{1543, kSetTextMessage, 0, c.text},
                                                   {1543, kSetFocusMessage, 0, L""},
                                                   {1543, kKeyDownMessage, kEnterKey, L""},
                                                   {1543, kKeyUpMessage, kEnterKey, L""}};
    EXPECT_EQ(installed.windows().Received(), expected);
    EXPECT_DOUBLE_EQ(Ostrel_GetScale(), WToF(c.text));
  }
}

TEST(Canvas, SetScaleWithoutAShownFieldSendsNothing) {
  for (const char* tree : {"layers_floating", "layers_panel"}) {
    SCOPED_TRACE(tree);
    Installed installed(tree, std::string(tree) == "layers_panel" ? std::vector<Change>{Hide(1540)}
                                                                  : std::vector<Change>{});
    EXPECT_EQ(Ostrel_SetScale(50), 0);
    EXPECT_TRUE(installed.windows().Received().empty());
  }
}

// The canvas of layers_panel is [57, 112, 1500, 1010] (1443 by 898, centre 778, 561) at the factor 0.6667.
TEST(Canvas, AreaOfAPictureCentredInTheCanvas) {
  struct Case {
    const char* name;
    const char* tree;
    std::vector<Change> changes;
    long cx, cy;
    std::vector<long> expected;
  };
  const std::vector<Case> cases = {
      {"even size", "layers_panel", {}, 1000, 600, {445, 361, 1111, 761}},
      // 499 * 0.6667 is 332.68: halved before scaling the left is 446; halved after it would be 445.
      {"odd size: halved before scaling", "layers_panel", {}, 999, 599, {446, 362, 1112, 761}},
      {"as wide as the canvas", "layers_panel", {}, 2165, 100, {57, 528, 1500, 594}},
      {"one pixel wider than the canvas", "layers_panel", {}, 2166, 100, {57, 112, 1500, 1010}},
      {"taller than the canvas", "layers_panel", {}, 100, 1400, {57, 112, 1500, 1010}},
      {"rulers off at a third", "rulers_off", {}, 3001, 2001, {301, 221, 1301, 887}},
      {"no zoom: the canvas", "layers_panel", {Retitle(1543, L"")}, 100, 100, {57, 112, 1500, 1010}},
      {"every document hidden: zero", "layers_panel", {Hide(1540)}, 100, 100, {0, 0, 0, 0}},
      {"no document: zero", "layers_floating", {}, 100, 100, {0, 0, 0, 0}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.tree) + ": " + c.name);
    const Installed installed(c.tree, c.changes);
    const tagRECT area = Ostrel_GetCanvasArea(tagSIZE{c.cx, c.cy});
    EXPECT_EQ(std::vector<long>({area.left, area.top, area.right, area.bottom}), c.expected);
  }
}

// ---- The rulers --------------------------------------------------------------------------------------------------

std::vector<std::string> ExecutedActions(const sim::SimulatedPhotoshop& photoshop) {
  std::vector<std::string> actions;
  for (const auto& entry : photoshop.Journal()) {
    if (entry.member == "executeAction") actions.push_back(ToUtf8(entry.event) + " " + entry.descriptor);
  }
  return actions;
}

TEST(Rulers, SwitchedOnOnlyWhenTheCanvasStartsWithItsView) {
  const std::string toggle =
      R"(select {"null":{"_ref":"menuItemClass","_enum":"menuItemType","_value":"toggleRulers"}})";
  struct Case {
    const char* name;
    const char* tree;
    std::vector<Change> changes;
    int expected;
  };
  const std::vector<Case> cases = {
      {"rulers off", "rulers_off", {}, 1},
      {"rulers on", "layers_panel", {}, 0},
      {"canvas is the view itself", "rulers_off", {Hide(1542)}, 0},
      {"no document", "layers_floating", {}, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.tree) + ": " + c.name);
    Installed installed(c.tree, c.changes, true);
    EXPECT_EQ(Ostrel_SetRulers(), c.expected);
    EXPECT_EQ(ExecutedActions(installed.photoshop()),
              c.expected == 1 ? std::vector<std::string>{toggle} : std::vector<std::string>{});
  }
}

TEST(Rulers, NotConnectedOrRefusedGivesZero) {
  {
    const Installed installed("rulers_off");
    EXPECT_EQ(Ostrel_SetRulers(), 0);
  }
  Installed installed("rulers_off", {}, true);
  installed.photoshop().FailMember("executeAction");
  EXPECT_EQ(Ostrel_SetRulers(), 0);
}

// ---- The brush panel's page --------------------------------------------------------------------------------------

TEST(BrushPanelPage, ToldByTheLabelsItShows) {
  struct Case {
    const char* name;
    const char* tree;
    std::vector<Change> changes;
    int expected;
  };
  // brush_panel_dual shows 3105 "模式:   ", 3109 "大小", 3113 "间距", 3117 "散布", 3121 "数量"; 3101 is a
  // hidden "圆度抖动" before them. brush_panel_scatter shows 3117 "数量抖动" after three other labels.
  const std::vector<Case> cases = {
      {"dual brush", "brush_panel_dual", {}, 16},
      {"scatter", "brush_panel_scatter", {}, 4},
      {"mode without spacing", "brush_panel_dual", {Hide(3113)}, 1},
      {"spacing without mode", "brush_panel_dual", {Hide(3105)}, 1},
      {"mode without its three blanks", "brush_panel_dual", {Retitle(3105, L"模式:")}, 1},
      {"mode with two blanks", "brush_panel_dual", {Retitle(3105, L"模式:  ")}, 1},
      {"a page label ends the walk", "brush_panel_dual", {Show(3101)}, 2},
      {"the first page label wins", "brush_panel_scatter", {Retitle(3113, L"压力")}, 128},
      {"depth jitter", "brush_panel_scatter", {Retitle(3117, L"深度抖动")}, 8},
      {"hue jitter", "brush_panel_scatter", {Retitle(3117, L"色相抖动")}, 32},
      {"wetness jitter", "brush_panel_scatter", {Show(3101)}, 64},
      {"a label of another class", "brush_panel_scatter", {Reclass(3117, L"Button")}, 1},
      {"only unknown labels", "brush_picker", {}, 1},
      {"panel hidden", "brush_panel_dual", {Hide(3000)}, -1},
      {"no brush panel", "marquee", {}, -1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.tree) + ": " + c.name);
    const Installed installed(c.tree, c.changes);
    EXPECT_EQ(static_cast<int>(Ostrel_GetCurrentBrushPresetPanel()), c.expected);
  }
}

}  // namespace
}  // namespace ostrel
