// Every locator export on the example trees of examples/windows/: one row per export and tree with the window
// (or number) it must give. The trees hold other windows beside the ones looked for, so that a sort on the wrong
// side, a count of all windows where the shown ones count, a title matched in part or an owner taken for a
// parent gives another answer.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "locator/patterns.h"
#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/portable/recorded_windows.h"

namespace ostrel {
namespace {

long long Number(HWND window) { return static_cast<long long>(reinterpret_cast<uintptr_t>(window)); }
HWND Handle(long long number) { return reinterpret_cast<HWND>(static_cast<uintptr_t>(number)); }

// The example tree of a name, installed as the window tree for the life of the object, with the Photoshop
// version name the host gives.
class InstalledTree {
 public:
  explicit InstalledTree(const std::string& name, const wchar_t* version = L"Adobe Photoshop CC 2019")
      : m_windows(Load(name)), m_platform(Platform{.windows = &m_windows, .screen = &m_windows}) {
    DefaultParameters().Set(EnTallyKey::kPhotoshopVersionName, version);
  }
  ~InstalledTree() { DefaultParameters().Erase(EnTallyKey::kPhotoshopVersionName); }

 private:
  static RecordedWindowTree Load(const std::string& name) {
    WindowTreeLoad load = LoadWindowTree(std::string(OSTREL_SOURCE_DIR) + "/examples/windows/" + name + ".json");
    EXPECT_TRUE(load.tree) << load.error;
    return load.tree ? std::move(*load.tree) : RecordedWindowTree{};
  }
  RecordedWindows m_windows;
  ScopedPlatform m_platform;
};

// An empty recorded tree in place of the system's windows (under Wine, other tests' real windows may be up).
class NoWindowsAtAll {
 public:
  NoWindowsAtAll() : m_platform(Platform{.windows = &m_windows, .screen = &m_windows}) {}

 private:
  RecordedWindows m_windows{RecordedWindowTree{}};
  ScopedPlatform m_platform;
};

struct Row {
  const char* tree;
  const char* call;
  long long (*answer)();
  long long expected;
};

#define H(call) #call, [] { return Number(call); }
#define N(call) #call, [] { return static_cast<long long>(call); }

constexpr Row kRows[] = {
    // The main frame and its bars; a hidden tool bar and a hidden tab group stand before the shown ones.
    {"marquee", H(Ostrel_GetPhotoshopWnd()), 1000},
    {"marquee", H(Ostrel_GetPhotoshopMenuBarWnd()), 1101},
    {"marquee", H(Ostrel_GetToolFeaturesBarWnd()), 1201},
    {"marquee", H(Ostrel_GetToolBarWnd()), 1301},
    {"marquee", H(Ostrel_GetDocumentWnd()), 1520},
    {"marquee", H(Ostrel_GetToolBarPanel()), 0},
    {"marquee", H(Ostrel_GetHistoryWnd()), 3000},
    {"marquee", H(Ostrel_GetCloneSourceWnd()), 0},
    {"marquee", H(Ostrel_GetSourcePanelWnd()), 0},
    {"marquee", N(Ostrel_IsFreeTransf()), 0},
    {"marquee", N(Ostrel_GetFontAntiAlias()), -1},
    {"marquee", N(Ostrel_GetStopColorPos()), 0},
    {"marquee", N(OSTREL_GetShapeColorPanel()), -1},
    // The marquee's bar: labels lie 4 pixels lower than the fields, and the windows are listed out of order.
    {"marquee", H(Ostrel_GetToolFeaturesControlWnd(51, L"")), 1211},
    {"marquee", H(Ostrel_GetToolFeaturesControlWnd(52, L"")), 1213},
    {"marquee", H(Ostrel_GetToolFeaturesControlWnd(53, L"")), 1215},
    {"marquee", H(Ostrel_GetToolFeaturesControlWnd(54, L"")), 1217},
    {"marquee", H(Ostrel_GetToolFeaturesControlWnd(58, L"")), 1218},
    {"marquee", H(Ostrel_GetToolFeaturesControlWnd(1, L"")), 1210},
    {"marquee", H(Ostrel_GetToolFeaturesControlWnd(2176, L"1")), 1217},
    {"marquee", H(Ostrel_GetToolFeaturesControlWnd(2176, L"2")), 0},   // control 10 of 9
    {"marquee", H(Ostrel_GetToolFeaturesControlWnd(408, L"")), 0},     // 9 controls: no rule C answer
    {"marquee", H(Ostrel_GetToolFeaturesControlWnd(9999, L"")), 0},

    // The brush picker below the bar, its fields counted from the top; the brush panel floats.
    {"brush_picker", H(Ostrel_GetBrushPickerWnd()), 2001},
    {"brush_picker", H(Ostrel_GetBrushPickerScrollBarWnd()), 2005},
    {"brush_picker", H(Ostrel_GetToolBarPanel()), 2001},
    {"brush_picker", H(Ostrel_GetToolOptionWnd()), 2001},  // no row pop-up: the one below the bar
    {"brush_picker", H(Ostrel_GetBrushPicketControlWnd(EnToolFeatures{1200})), 2002},
    {"brush_picker", H(Ostrel_GetBrushPicketControlWnd(EnToolFeatures{1201})), 2003},
    {"brush_picker", H(Ostrel_GetBrushPicketControlWnd(EnToolFeatures{403})), 2004},
    {"brush_picker", H(Ostrel_GetBrushPicketControlWnd(EnToolFeatures{404})), 2006},
    {"brush_picker", H(Ostrel_GetBrushPicketControlWnd(EnToolFeatures{405})), 0},
    {"brush_picker", H(Ostrel_GetBrushPicketControlWnd(EnToolFeatures{1204})), 0},
    {"brush_picker", H(Ostrel_GetBrushPanelWnd()), 3000},
    {"brush_picker", H(Ostrel_GetBrushPresetPanelWnd()), 3000},
    {"brush_picker", H(Ostrel_GetHistoryWnd()), 0},
    {"brush_picker", H(Ostrel_GetFontNameListWnd()), 0},
    {"brush_picker", H(Ostrel_GetToolFeaturesControlWnd(1204, L"")), 1211},
    {"brush_picker", H(Ostrel_GetToolFeaturesControlWnd(1205, L"")), 1213},
    {"brush_picker", H(Ostrel_GetToolFeaturesControlWnd(1206, L"")), 1215},

    // The type tools' bar of seven controls, the font list, and the character panel above the paragraph panel.
    {"type_tool", H(Ostrel_GetFontNameListWnd()), 2100},
    {"type_tool", N(Ostrel_GetFontAntiAlias()), 6},
    {"type_tool", N(Ostrel_GetFontSize() * 100), 2400},
    {"type_tool", H(Ostrel_GetToolFeaturesControlWnd(2251, L"")), 1210},
    {"type_tool", H(Ostrel_GetToolFeaturesControlWnd(2252, L"")), 1212},
    {"type_tool", H(Ostrel_GetToolFeaturesControlWnd(2253, L"")), 1213},
    {"type_tool", H(Ostrel_GetToolFeaturesControlWnd(2254, L"")), 1215},
    {"type_tool", H(Ostrel_GetCharacterPanelWnd()), 3100},
    {"type_tool", H(Ostrel_GetParagraphPanelWnd()), 0},  // not the first floating frame
    {"type_tool", H(Ostrel_GetBrushPickerWnd()), 2101},  // the brush picker's scan counts nothing

    // Free transform: 16 shown windows and 3 hidden ones in the bar, one of them an Edit.
    {"free_transform", N(Ostrel_IsFreeTransf()), 1},
    {"free_transform", H(Ostrel_GetFreeTransfHorizontalPosWnd()), 1212},
    {"free_transform", H(Ostrel_GetFreeTransfVerticalPosWnd()), 1215},
    {"free_transform", H(Ostrel_GetFreeTransfHorizontalScaleWnd()), 1217},
    {"free_transform", H(Ostrel_GetFreeTransfVerticalScaleWnd()), 1220},
    {"free_transform", H(Ostrel_GetFreeTransfRotateWnd()), 1221},
    {"free_transform", H(Ostrel_GetFreeTransfHorizontalAngleCuttingWnd()), 1222},
    {"free_transform", H(Ostrel_GetFreeTransfVerticalAngleCuttingWnd()), 1223},
    {"free_transform", N(Ostrel_GetFreeTransfHorizontalPos()), 960},
    {"free_transform", N(Ostrel_GetFreeTransfVerticalPos()), 540},
    {"free_transform", N(Ostrel_GetFreeTransfHorizontalScale()), 100},
    {"free_transform", N(Ostrel_GetFreeTransfVerticalScale()), 100},
    {"free_transform", N(Ostrel_GetFreeTransfRotate()), 15},
    {"free_transform", N(Ostrel_GetFreeTransfHorizontalAngleCutting()), 0},
    {"free_transform", N(Ostrel_GetFreeTransfVerticalAngleCutting()), 0},
    {"free_transform", H(Ostrel_GetToolFeaturesControlWnd(2904, L"")), 1221},
    {"free_transform", H(Ostrel_GetParagraphPanelWnd()), 3200},
    {"free_transform", H(Ostrel_GetCharacterPanelWnd()), 0},
    {"free_transform", H(Ostrel_GetSourcePanelWnd()), 0},
    {"free_transform", N(Ostrel_GetFontSize()), 0},

    // The shape tools' pop-ups, one at a time, told apart by their counts.
    {"shape_gradient", H(Ostrel_GetShapeGradualWnd()), 2201},
    {"shape_gradient", H(Ostrel_GetShapeGraduaScrollBarWnd()), 2211},
    {"shape_gradient", H(Ostrel_GetShapeColorPanelWnd()), 2201},
    {"shape_gradient", N(OSTREL_GetShapeColorPanel()), 2},
    {"shape_gradient", H(Ostrel_GetShapeColorWnd()), 0},
    {"shape_gradient", H(Ostrel_GetShapePatternWnd()), 0},
    {"shape_gradient", H(Ostrel_GetShapePickerWnd()), 0},
    {"shape_gradient", N(Ostrel_IsShapeColorFillPanelWnd(Handle(2201))), 1},
    {"shape_gradient", N(Ostrel_IsShapeColorFillPanelWnd(Handle(1216))), 0},
    {"shape_gradient", N(Ostrel_IsShapeColorFillPanelWnd(Handle(0))), 0},
    {"shape_gradient", H(Ostrel_GetToolFeaturesControlWnd(2450, L"")), 1210},
    {"shape_gradient", H(Ostrel_GetToolFeaturesControlWnd(2481, L"0")), 1214},
    {"shape_gradient", H(Ostrel_GetToolFeaturesControlWnd(2481, L"1")), 1217},
    {"shape_gradient", H(Ostrel_GetToolFeaturesControlWnd(2481, L"2")), 1220},
    {"shape_gradient", H(Ostrel_GetToolFeaturesControlWnd(2481, L"形状")), 1214},  // no number reads as 0
    {"shape_gradient", H(Ostrel_GetToolFeaturesControlWnd(2481, L"3")), 0},
    {"shape_gradient", H(Ostrel_GetToolFeaturesControlWnd(2482, L"")), 1215},
    {"shape_gradient", H(Ostrel_GetToolFeaturesControlWnd(2465, L"")), 1218},
    {"shape_gradient", H(Ostrel_GetToolFeaturesControlWnd(2484, L"")), 1221},
    {"shape_gradient", H(Ostrel_GetToolFeaturesControlWnd(2528, L"")), 0},  // fewer than 17 controls
    {"shape_pattern", H(Ostrel_GetShapePatternWnd()), 2701},
    {"shape_pattern", H(OSTREL_GetShapePatternScaleWnd()), 2705},
    {"shape_pattern", N(Ostrel_GetShapePatternScale()), 75},
    {"shape_pattern", N(OSTREL_GetShapeColorPanel()), 3},
    {"shape_pattern", N(Ostrel_IsShapeColorFillPanelWnd(Handle(2701))), 0},
    {"shape_pattern", H(Ostrel_GetShapeGradualWnd()), 0},
    {"shape_color", H(Ostrel_GetShapeColorWnd()), 2801},
    {"shape_color", H(Ostrel_GetShapeColorPanelWnd()), 2801},
    {"shape_color", N(OSTREL_GetShapeColorPanel()), 1},
    {"shape_color", N(Ostrel_IsShapeColorFillPanelWnd(Handle(2801))), 1},
    {"shape_color", H(Ostrel_GetFontNameListWnd()), 0},
    {"shape_color", N(Ostrel_GetShapePatternScale()), -1},

    // The further options pop-up: 15 controls, six ahead of the table's after CC 2017, found below the bar.
    {"shape_options", H(Ostrel_GetToolOptionWnd()), 2301},
    {"shape_options", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2475}, L"")), 2319},
    {"shape_options", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2476}, L"")), 2320},
    {"shape_options", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2474}, L"0")), 2316},
    {"shape_options", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2474}, L"3")), 2321},
    {"shape_options", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2474}, L"7")), 0},
    {"shape_options", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2724}, L"4")), 2317},
    {"shape_options", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2479}, L"")), 2324},
    {"shape_options", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2626}, L"")), 2319},
    {"shape_options", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2727}, L"")), 2322},
    {"shape_options", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2679}, L"")), 2324},
    {"shape_options", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2628}, L"")), 2322},  // not 2021: s + 6
    {"shape_options", H(Ostrel_GetOptionControlWnd(EnToolFeatures{9999}, L"")), 0},
    {"stroke_style", H(Ostrel_GetStrokeStyleWnd()), 2401},
    {"stroke_style", H(Ostrel_GetStrokeStyleControlWnd(EnToolFeatures{2467})), 2403},
    {"stroke_style", H(Ostrel_GetStrokeStyleControlWnd(EnToolFeatures{2468})), 2404},
    {"stroke_style", H(Ostrel_GetStrokeStyleControlWnd(EnToolFeatures{2719})), 2405},
    {"stroke_style", H(Ostrel_GetStrokeStyleControlWnd(EnToolFeatures{2466})), 0},
    {"stroke_style", H(Ostrel_GetShapePickerWnd()), 0},
    {"shape_picker", H(Ostrel_GetShapePickerWnd()), 2501},
    {"shape_picker", H(Ostrel_GetGradualPickerWnd()), 2501},
    {"shape_picker", H(Ostrel_GetPatternPickerWnd()), 2501},
    {"shape_picker", H(Ostrel_GetShapePickerScrollBarWnd()), 2502},
    {"shape_picker", H(Ostrel_GetGradualPickerScrollBarWnd()), 2502},
    {"shape_picker", H(Ostrel_GetPatternPickerScrollBarWnd()), 2502},
    {"shape_picker", H(Ostrel_GetColorPickerWnd()), 0},
    {"shape_picker", H(Ostrel_GetStrokeStyleWnd()), 0},
    {"color_picker", H(Ostrel_GetColorPickerWnd()), 2601},
    {"color_picker", H(Ostrel_GetShapePickerWnd()), 0},

    // Floating clone source panel: 23 windows, 22 shown (11 labels, 7 fields).
    {"clone_stamp", H(Ostrel_GetCloneSourceWnd()), 3300},
    {"clone_stamp", H(Ostrel_GetSourcePanelWnd()), 3300},
    {"clone_stamp", H(Ostrel_GetHistoryWnd()), 0},
    {"clone_stamp", H(Ostrel_GetToolFeaturesControlWnd(1405, L"")), 1211},
    {"clone_stamp", H(Ostrel_GetToolFeaturesControlWnd(1406, L"")), 1213},
    {"clone_stamp", H(Ostrel_GetToolFeaturesControlWnd(1407, L"")), 1215},

    // The gradient editor: a hidden pop-up whose title holds the editor's title stands before it.
    {"gradient_editor", H(Ostrel_GetGradualEditWnd()), 2900},
    {"gradient_editor", H(Ostrel_GetGradualEditScrollBarWnd()), 2905},
    {"gradient_editor", N(Ostrel_GetStopColorPos()), 50},
    {"gradient_editor", N(Ostrel_GetOpacityStopColorPos()), 30},
    {"gradient_editor", N(Ostrel_GetOpacityStopColorValue()), 80},

    // The layer panel docked first in its column (a hidden channels tab before it), the properties panel below;
    // the controls themselves ask Photoshop, which isn't connected here. Two documents, the first a hidden tab.
    {"layers_panel", H(Ostrel_GetLayerPanelPSviewCWnd()), 1432},
    {"layers_panel", H(Ostrel_GetLayerPanelWnd()), 1430},
    {"layers_panel", H(Ostrel_GetLayerPanelScrollBarWnd()), 1440},
    {"layers_panel", H(Ostrel_GetLayerBlendWnd()), 0},
    {"layers_panel", H(Ostrel_GetCanvasWnd()), 1542},
    {"layers_panel", H(Ostrel_GetCanvasRulersWnd()), 1541},
    {"layers_panel", H(Ostrel_GetScaleWnd()), 1543},
    {"layers_panel", N(Ostrel_GetScale() * 100), 6667},
    {"layers_panel", N(Ostrel_GetCanvasScale() * 10000 + 0.5), 6667},
    {"layers_panel", N(Ostrel_GetCanvasArea(tagSIZE{999, 599}).left), 446},
    {"layers_panel", N(Ostrel_SetRulers()), 0},
    {"layers_panel", N(Ostrel_GetCurrentBrushPresetPanel()), -1},
    {"layers_panel", H(Ostrel_GetDocumentWnd()), 1520},
    {"rulers_off", H(Ostrel_GetCanvasWnd()), 1542},
    {"rulers_off", H(Ostrel_GetCanvasRulersWnd()), 1541},
    {"rulers_off", N(Ostrel_GetScale() * 100), 3333},
    {"rulers_off", H(Ostrel_GetLayerPanelScrollBarWnd()), 1441},
    {"layers_floating", H(Ostrel_GetLayerPanelPSviewCWnd()), 0},
    {"layers_floating", H(Ostrel_GetLayerPanelWnd()), 0},
    {"layers_floating", H(Ostrel_GetCanvasWnd()), 0},
    {"layers_floating", N(Ostrel_GetScale()), 100},
    {"layers_floating", N(Ostrel_SetScale(50)), 0},
    {"layers_floating", N(Ostrel_GetCanvasScale()), 0},
    {"marquee", H(Ostrel_GetLayerPanelPSviewCWnd()), 1422},  // the colour panel is docked first
    {"marquee", H(Ostrel_GetCanvasWnd()), 1525},
    {"brush_picker", N(Ostrel_GetCurrentBrushPresetPanel()), 1},
    {"brush_panel_dual", H(Ostrel_GetBrushPanelWnd()), 3000},
    {"brush_panel_dual", N(Ostrel_GetCurrentBrushPresetPanel()), 16},
    {"brush_panel_scatter", N(Ostrel_GetCurrentBrushPresetPanel()), 4},
};

TEST(ExampleTrees, EveryExportGivesItsWindow) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(std::string(row.tree) + ": " + row.call);
    const InstalledTree tree(row.tree);
    EXPECT_EQ(row.answer(), row.expected);
  }
}

// What depends on the Photoshop version name.
TEST(ExampleTrees, VersionsPickTheirControls) {
  struct Case {
    const char* tree;
    const wchar_t* version;
    const char* call;
    long long (*answer)();
    long long expected;
  };
  static const Case kCases[] = {
      {"clone_stamp", L"Adobe Photoshop 2021", H(Ostrel_GetToolFeaturesControlWnd(1409, L"")), 1218},  // 9 controls
      {"clone_stamp", L"Adobe Photoshop 2020", H(Ostrel_GetToolFeaturesControlWnd(1409, L"")), 1216},
      {"clone_stamp", L"Adobe Photoshop CC 2019", H(Ostrel_GetToolFeaturesControlWnd(1409, L"")), 1217},
      {"shape_options", L"Adobe Photoshop CC 2017", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2475}, L"")), 2313},
      {"shape_options", L"Adobe Photoshop CC 2017", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2628}, L"")), 2316},
      {"shape_options", L"Adobe Photoshop 2021", H(Ostrel_GetOptionControlWnd(EnToolFeatures{2626}, L"")), 2319},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.tree) + ": " + c.call);
    const InstalledTree tree(c.tree, c.version);
    EXPECT_EQ(c.answer(), c.expected);
  }
}

TEST(ExampleTrees, TextsAndRectangles) {
  {
    const InstalledTree tree("type_tool");
    EXPECT_EQ(Ostrel_GetFontName(), L"微软雅黑");  // trailing blanks cut
    EXPECT_EQ(Ostrel_GetFontStyle(), L"Regular");
    std::wstring font = L"kept";
    EXPECT_EQ(Ostrel_GetFontName(font), 1);  // the other overload leaves its string alone
    EXPECT_EQ(font, L"kept");
  }
  {
    const InstalledTree tree("marquee");
    const tagRECT rect = Ostrel_GetPhotoshopRect();
    EXPECT_EQ(std::vector<long>({rect.left, rect.top, rect.right, rect.bottom}), std::vector<long>({0, 0, 1920, 1040}));
    EXPECT_EQ(Ostrel_GetFontName(), L"");
  }
}

// The caller's list holds only the last answer: replaced when there are controls, emptied when there are none.
TEST(ExampleTrees, BarListHoldsOnlyTheLastAnswer) {
  std::vector<HWND> list = {Handle(7), Handle(8)};
  {
    const InstalledTree tree("marquee");
    EXPECT_EQ(Ostrel_GetToolFeaturesBarChildWnd(list), 1);
    std::vector<long long> numbers;
    for (HWND window : list) numbers.push_back(Number(window));
    EXPECT_EQ(numbers, (std::vector<long long>{1210, 1211, 1212, 1213, 1214, 1215, 1216, 1217, 1218}));
  }
  const NoWindowsAtAll none;
  EXPECT_EQ(Ostrel_GetToolFeaturesBarChildWnd(list), 0);
  EXPECT_TRUE(list.empty());
}

// The view of a docked panel: shown, and held by Palette, TabGroup, TabPane, Dock and the main frame in turn.
TEST(ExampleTrees, DockedViews) {
  const InstalledTree tree("marquee");
  EXPECT_TRUE(locator::IsDockedView(1432));   // layers
  EXPECT_TRUE(locator::IsDockedView(1422));   // colour
  EXPECT_FALSE(locator::IsDockedView(1424));  // swatches, a hidden tab
  EXPECT_FALSE(locator::IsDockedView(1523));  // a document's view
  EXPECT_FALSE(locator::IsDockedView(3001));  // the floating history panel
  EXPECT_FALSE(locator::IsDockedView(1431));  // the palette itself
}

// Photoshop not running: every locator gives its "not found" answer.
TEST(ExampleTrees, NothingFoundWithoutPhotoshop) {
  const NoWindowsAtAll none;
  EXPECT_EQ(Number(Ostrel_GetPhotoshopWnd()), 0);
  const tagRECT rect = Ostrel_GetPhotoshopRect();
  EXPECT_EQ(rect.left | rect.top | rect.right | rect.bottom, 0);
  EXPECT_EQ(Number(Ostrel_GetToolOptionWnd()), 0);
  EXPECT_EQ(Number(Ostrel_GetBrushPickerWnd()), 0);
  EXPECT_EQ(Ostrel_GetShapePatternScale(), -1);
  EXPECT_EQ(Ostrel_GetFontAntiAlias(), -1);
}

// The dialog and filter windows on their example trees. Each tree holds what a wrong reading would take: a hidden
// window of the same kind before the shown one, a title that only begins with the one looked for, a window listed
// first that isn't first on the screen.
constexpr Row kDialogRows[] = {
    {"layer_style", N(Ostrel_GetCurrentLayerStylePanel()), 128},  // 33 shown, 3 hidden (one titled 叠印)
    {"layer_style", H(Ostrel_GetLayerStyleWnd()), 5000},
    {"layer_style_gradient", N(Ostrel_GetCurrentLayerStylePanel()), 32768},
    {"layer_style_color", N(Ostrel_GetCurrentLayerStylePanel()), 64},  // 40 shown: told by 叠印
    {"layer_style_color", H(Ostrel_GetLayerStyleWnd()), 5000},
    {"marquee", N(Ostrel_GetCurrentLayerStylePanel()), -1},
    {"marquee", H(Ostrel_GetLayerStyleWnd()), 0},
    {"adjustment_panel", H(Ostrel_GetAdjustLayerWnd()), 3100},
    {"adjustment_panel", H(Ostrel_GetAdjustLayerPopWnd()), 0},
    {"fill_popups", H(Ostrel_GetAdjustLayerPopWnd()), 5200},  // the solid colour picker is hidden
    {"fill_popups", H(Ostrel_GetAdjustLayerWnd()), 0},
    {"layer_style", H(Ostrel_GetAdjustLayerWnd()), 0},
    {"layer_style", H(Ostrel_GetAdjustLayerPopWnd()), 0},
    {"new_document", H(Ostrel_GetNewDocumentTypeCmbWnd()), 5506},
    {"save_as", H(Ostrel_GetSaveAsPathWnd()), 6009},
    {"save_as", H(Ostrel_GetSaveAsFileNameEdtWnd()), 6021},
    {"save_as", H(Ostrel_GetSaveAsFileNameCmbWnd()), 6020},
    {"save_as", H(Ostrel_GetSaveAsFileTypeCmbWnd()), 6031},
    {"save_as", H(Ostrel_GetOpenFileNameEdtWnd()), 0},
    {"save_as", H(Ostrel_GetOpenFileTypeCmbWnd()), 0},
    {"open_dialog", H(Ostrel_GetOpenFileNameEdtWnd()), 6121},
    {"open_dialog", H(Ostrel_GetOpenFileTypeCmbWnd()), 6131},  // on one row with the name box: the second
    {"open_dialog", H(Ostrel_GetSaveAsPathWnd()), 0},
    {"place_dialog", H(Ostrel_GetPlaceFileFileNameEdtWnd()), 6221},
    {"place_dialog", H(Ostrel_GetReplaceFileFileNameEdtWnd()), 0},  // hidden
    {"replace_dialog", H(Ostrel_GetReplaceFileFileNameEdtWnd()), 6421},
    {"replace_dialog", H(Ostrel_GetPlaceFileFileNameEdtWnd()), 0},
    {"layer_style", N(Ostrel_GetGradualWndName() == L"橙黄橙"), 1},
    {"layer_style_gradient", N(Ostrel_GetGradualWndName() == L"黑白"), 1},
    {"gradient_editor", N(Ostrel_GetGradualWndName().empty()), 1},  // 28 shown windows
    {"filter_gallery", H(Ostrel_GetFilterGalleryWnd()), 7000},
    {"filter_gallery", N(Ostrel_GetFilterGallery()), 256},
    {"filter_gallery", H(Ostrel_GetFilterGalleryCmb()), 7004},
    {"filter_gallery", H(Ostrel_GetLiquifyWnd()), 0},
    {"liquify", H(Ostrel_GetLiquifyWnd()), 7100},
    {"liquify", H(Ostrel_GetFilterGalleryWnd()), 0},
    {"liquify", N(Ostrel_GetFilterGallery()), -1},
    {"camera_raw_filter", H(Ostrel_GetFilterGalleryWnd()), 0},
    {"camera_raw_filter", H(Ostrel_GetFilterGalleryCmb()), 0},
    {"camera_raw_filter", H(Ostrel_GetLiquifyWnd()), 0},
    {"refine_edge", H(Ostrel_GetRefineEdgeWnd()), 1602},
    {"refine_edge", N(Ostrel_IsRefineEdgeSubFold()), 5},  // 平滑 folded
    {"refine_edge", H(Ostrel_GetRefineEdgeViewWnd()), 8001},
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{1})), 1612},
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{2})), 1613},
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{3})), 1614},
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{4})), 0},  // no label 不透明度
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{5})), 1616},
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{6})), 0},
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{7})), 1620},
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{8})), 1623},  // beside the second 半径:
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{9})), 0},
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{10})), 0},  // its label hidden
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{16})), 0},
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{17})), 1634},  // the middle, not the top
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{18})), 0},
    {"refine_edge", H(Ostrel_GetRefineEdgeControl(EnRefineEdge{19})), 1636},
    {"marquee", H(Ostrel_GetRefineEdgeWnd()), 0},
    {"marquee", N(Ostrel_IsRefineEdgeSubFold()), 0},
    {"cloud_documents", H(Ostrel_GetCloudDocuments()), 9000},
    {"layer_style", H(Ostrel_GetCloudDocuments()), 0},
};

TEST(ExampleTrees, DialogExportsGiveTheirWindows) {
  for (const Row& row : kDialogRows) {
    SCOPED_TRACE(std::string(row.tree) + ": " + row.call);
    const InstalledTree tree(row.tree);
    EXPECT_EQ(row.answer(), row.expected);
  }
}

// The out-parameters of the dialog exports on their trees.
TEST(ExampleTrees, DialogOutParameters) {
  {
    const InstalledTree tree("layer_style");  // the contour editor comes before the gradient editor
    HWND window = nullptr;
    std::wstring name;
    EXPECT_EQ(Ostrel_PopLayerStyleChildWnd(window, name), 1);
    EXPECT_EQ(Number(window), 5800);
    EXPECT_EQ(name, L"等高线");
  }
  {
    const InstalledTree tree("layer_style_gradient");
    HWND window = nullptr;
    std::wstring name;
    EXPECT_EQ(Ostrel_PopLayerStyleChildWnd(window, name), 1);
    EXPECT_EQ(Number(window), 5700);
    EXPECT_EQ(name, L"渐变");
  }
  {
    const InstalledTree tree("layer_style_color");  // the hidden stroke colour picker comes first
    HWND window = Handle(1);
    std::wstring name = L"before";
    EXPECT_EQ(Ostrel_PopLayerStyleChildWnd(window, name), 0);
    EXPECT_EQ(Number(window), 0);
    EXPECT_EQ(name, L"");
  }
  {
    const InstalledTree tree("adjustment_panel");
    EnAdjustLayer kind{};
    EXPECT_EQ(Number(Ostrel_GetAdjustLayerWnd(kind)), 3100);
    EXPECT_EQ(kind, 5);
    int selection = 99;
    EXPECT_EQ(Number(Ostrel_GetAdjustLayerCmbWnd(selection)), 3102);
    EXPECT_EQ(selection, 2);
  }
  {
    const InstalledTree tree("fill_popups");
    EnAdjustLayer kind{};
    EXPECT_EQ(Number(Ostrel_GetAdjustLayerPopWnd(kind)), 5200);
    EXPECT_EQ(kind, 1);
  }
  {
    const InstalledTree tree("new_document");
    EnAdjustLayer kind{};
    EXPECT_EQ(Number(Ostrel_GetAdjustLayerWnd(kind)), 0);
    EXPECT_EQ(kind, -1);
    EXPECT_EQ(Number(Ostrel_GetAdjustLayerPopWnd(kind)), 0);
    EXPECT_EQ(kind, -1);
    int selection = 99;
    EXPECT_EQ(Number(Ostrel_GetAdjustLayerCmbWnd(selection)), 0);
    EXPECT_EQ(selection, -1);
  }
}

}  // namespace
}  // namespace ostrel
