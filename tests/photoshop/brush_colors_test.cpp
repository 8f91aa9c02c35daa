// The brush sections of the current tool, the three panels, the two colours, the interface language, and what the
// reset commands change for later reads.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "connected_photoshop.h"
#include "ostrel/OstrelCore.h"

namespace ostrel {
namespace {

// Every second section on, so that a switch read under the wrong key shows.
constexpr const char* kBrush = R"({"application": {
  "tool": {"_enum": "paintbrushTool", "_value": "targetEnum"},
  "currentToolOptions": {"_obj": "currentToolOptions",
    "useTipDynamics": true, "useScatter": false, "useTexture": true,
    "dualBrush": {"_obj": "dualBrush", "useDualBrush": false},
    "useColorDynamics": true, "usePaintDynamics": false, "useBrushPose": true, "noise": false,
    "wetEdges": true, "repeat": false, "smoothing": true, "protectTexture": false}}})";

struct SectionCase {
  int page;
  int (*read)();
  int on;
};

constexpr SectionCase kSections[] = {
    {2, Ostrel_IsBrushPresetUseTipDynamice, 1},    {4, Ostrel_IsBrushPresetUseScatter, 0},
    {8, Ostrel_IsBrushPresetUseTexture, 1},        {16, Ostrel_IsBurshPresetUseDualBrush, 0},
    {32, Ostrel_IsBrushPresetUseColorDynamice, 1}, {64, Ostrel_IsBrushPresetUsePaintDynamice, 0},
    {128, Ostrel_IsBrushPresetUseBrushPose, 1},    {256, Ostrel_IsBrushPresetUseNoise, 0},
    {512, Ostrel_IsBrushPresetUseWetEdges, 1},     {1024, Ostrel_IsBrushPresetUseRepeat, 0},
    {2048, Ostrel_IsBrushPresetUseSmoothing, 1},   {4096, Ostrel_IsBrushPresetUseProtrctTexture, 0},
};

class BrushColorsTest : public test::ConnectedPhotoshopTest {};

TEST_F(BrushColorsTest, EachSectionReadsItsOwnSwitch) {
  ConnectToText(kBrush);
  for (const SectionCase& c : kSections) {
    SCOPED_TRACE(c.page);
    EXPECT_EQ(c.read(), c.on);
    EXPECT_EQ(Ostrel_IsBrushPresetUse(EnBrushPreset{c.page}), c.on);
  }
}

TEST_F(BrushColorsTest, DualBrushIsReadInsideItsObject) {
  ConnectToText(R"({"application": {"tool": {"_enum": "paintbrushTool", "_value": "targetEnum"},
    "currentToolOptions": {"_obj": "currentToolOptions", "useDualBrush": false, "dualBrush": {"_obj": "dualBrush", "useDualBrush": true}}}})");
  EXPECT_EQ(Ostrel_IsBurshPresetUseDualBrush(), 1);
  EXPECT_EQ(Ostrel_IsBrushPresetUse(EnBrushPreset{16}), 1);
}

TEST_F(BrushColorsTest, PagesWithoutASwitchAndToolsWithoutBrushesGiveZero) {
  Connect();  // the rectangular marquee: no brush settings
  EXPECT_EQ(Ostrel_IsBrushPresetUse(EnBrushPreset{16}), 0);
  EXPECT_EQ(Ostrel_IsBrushPresetUseTipDynamice(), 0);
  m_photoshop->ResetCalls();
  for (int page : {0, 1, 3, 8192, -1}) {
    SCOPED_TRACE(page);
    EXPECT_EQ(Ostrel_IsBrushPresetUse(EnBrushPreset{page}), 0);
  }
  EXPECT_EQ(m_photoshop->Calls(), 0);  // no read for a page without a switch
}

TEST_F(BrushColorsTest, PanelsShownAndShowing) {
  ConnectToText(R"({"panels": {"layers": false, "channels": true}})");
  EXPECT_EQ(Ostrel_IsLayerPanelVisible(), 0);
  EXPECT_EQ(Ostrel_IsChannelPanelVisible(), 1);
  EXPECT_EQ(Ostrel_IsPathPannelVisible(), 0);
  EXPECT_EQ(Ostrel_SetLayerPanelVisible(), 1);
  EXPECT_EQ(Ostrel_IsLayerPanelVisible(), 1);
  EXPECT_EQ(Ostrel_SetLayerPanelVisible(), 1);  // shown already: no toggle, so it stays shown
  EXPECT_EQ(Ostrel_IsLayerPanelVisible(), 1);
  EXPECT_EQ(Ostrel_SetLayerPanelVisible(EnLayerPanel{2}), 1);
  EXPECT_EQ(Ostrel_IsPathPannelVisible(), 1);
  EXPECT_EQ(Ostrel_SetLayerPanelVisible(EnLayerPanel{3}), 0);
  EXPECT_EQ(Ostrel_SetLayerPanelVisible(EnLayerPanel{-1}), 0);
}

// ---- Colours --------------------------------------------------------------------------------------------------

TEST_F(BrushColorsTest, ColoursReadRedInTheLowByte) {
  ConnectToText(R"({"application": {"foregroundColor": {"_obj": "RGBColor", "red": 255.0, "grain": 128.0, "blue": 1.0}}})");
  std::uint32_t color = 7;
  EXPECT_EQ(Ostrel_GetForegroundColor(color), 1);
  EXPECT_EQ(color, 0x000180FFu);
  EXPECT_EQ(Ostrel_GetBackgroundColor(color), 1);
  EXPECT_EQ(color, 0x00FFFFFFu);  // white, the scenario's default
}

TEST_F(BrushColorsTest, AColourSetIsTheColourRead) {
  Connect();
  const std::uint32_t colors[] = {0x00FF000Cu, 0x00000001u, 0x00123456u, 0x00000000u, 0x00FFFFFFu};
  for (const std::uint32_t set : colors) {
    SCOPED_TRACE(set);
    std::uint32_t foreground = 0, background = 0;
    ASSERT_EQ(Ostrel_SetForegroundColor(set), 1);
    ASSERT_EQ(Ostrel_SetBackgroundColor(set ^ 0x00FFFFFFu), 1);
    EXPECT_EQ(Ostrel_GetForegroundColor(foreground), 1);
    EXPECT_EQ(foreground, set);
    EXPECT_EQ(Ostrel_GetBackgroundColor(background), 1);
    EXPECT_EQ(background, set ^ 0x00FFFFFFu);
  }
}

TEST_F(BrushColorsTest, AFailedColourReadGivesZeroAndColourZero) {
  Connect();
  m_photoshop->FailMember("hexValue");
  std::uint32_t color = 0x00123456u;
  EXPECT_EQ(Ostrel_GetForegroundColor(color), 0);
  EXPECT_EQ(color, 0u);
  EXPECT_EQ(Ostrel_SetBackgroundColor(0x00123456u), 0);
}

TEST(BrushColorsUnconnectedTest, ColourReadsClearTheColour) {
  std::uint32_t color = 0x00123456u;
  EXPECT_EQ(Ostrel_GetForegroundColor(color), 0);
  EXPECT_EQ(color, 0u);
  color = 5;
  EXPECT_EQ(Ostrel_GetBackgroundColor(color), 0);
  EXPECT_EQ(color, 0u);
}

// ---- Interface language ------------------------------------------------------------------------------------------

TEST_F(BrushColorsTest, TheInterfaceLanguageOfTheRunningPhotoshop) {
  ConnectToText(R"({"application": ["realdata/ps15.2_app_interfacePrefs.uxp.json"]})");
  EXPECT_EQ(Ostrel_GetUiLanguage(), L"en_US");
  ConnectToText(R"({"application": {"interfacePrefs": {"_obj": "interfacePrefs", "uiLanguageKey": "zh_CN"}}})");
  EXPECT_EQ(Ostrel_GetUiLanguage(), L"zh_CN");
  ConnectToText(R"({"application": {"interfacePrefs": {"_obj": "interfacePrefs"}}})");
  EXPECT_EQ(Ostrel_GetUiLanguage(), L"");
}

// ---- What the resets change --------------------------------------------------------------------------------------

constexpr const char* kResettable = R"({
  "application": {
    "tool": {"_enum": "penTool", "_value": "targetEnum"},
    "currentToolOptions": {"_obj": "currentToolOptions", "geometryToolMode": {"_enum": "geometryToolMode", "_value": "shape"}},
    "presetManager": [{"_obj": "brush", "name": ["Mine"]}, {"_obj": "colors", "name": ["Teal"]}],
    "foregroundColor": {"_obj": "RGBColor", "red": 10.0, "grain": 20.0, "blue": 30.0}
  },
  "defaults": {
    "toolOptions": {"penTool": {"_obj": "currentToolOptions", "geometryToolMode": {"_enum": "geometryToolMode", "_value": "path"}}},
    "presets": {"brush": ["Soft Round", "Hard Round"]}
  }
})";

TEST_F(BrushColorsTest, ResetToolPutsTheOptionsBackToTheirDefaults) {
  ConnectToText(kResettable);
  std::wstring mode;
  ASSERT_EQ(Ostrel_GetToolFeatures(EnToolFeatures{2150}, mode), 1);
  EXPECT_EQ(mode, L"0");
  EXPECT_EQ(Ostrel_ResetTool(), 1);
  ASSERT_EQ(Ostrel_GetToolFeatures(EnToolFeatures{2150}, mode), 1);
  EXPECT_EQ(mode, L"1");
}

TEST_F(BrushColorsTest, ResetPresetReplacesOrAppends) {
  ConnectToText(kResettable);
  std::vector<std::wstring> names;
  EXPECT_EQ(Ostrel_ResetPreset(L"brush", 1), 1);
  ASSERT_EQ(Ostrel_GetBrushPresetList(names), 1);
  EXPECT_EQ(names, (std::vector<std::wstring>{L"Mine", L"Soft Round", L"Hard Round"}));
  EXPECT_EQ(Ostrel_ResetBrush(), 1);
  ASSERT_EQ(Ostrel_GetBrushPresetList(names), 1);
  EXPECT_EQ(names, (std::vector<std::wstring>{L"Soft Round", L"Hard Round"}));
  EXPECT_EQ(Ostrel_ResetColors(), 1);  // the swatches have no defaults in the scenario: unchanged
  ASSERT_EQ(Ostrel_GetColorList(names), 1);
  EXPECT_EQ(names, (std::vector<std::wstring>{L"Teal"}));
}

TEST_F(BrushColorsTest, ResetColorGivesBlackOnWhite) {
  ConnectToText(kResettable);
  std::uint32_t foreground = 0, background = 0;
  ASSERT_EQ(Ostrel_SetBackgroundColor(0x00123456u), 1);
  EXPECT_EQ(Ostrel_ResetColor(), 1);
  EXPECT_EQ(Ostrel_GetForegroundColor(foreground), 1);
  EXPECT_EQ(foreground, 0u);
  EXPECT_EQ(Ostrel_GetBackgroundColor(background), 1);
  EXPECT_EQ(background, 0x00FFFFFFu);
}

}  // namespace
}  // namespace ostrel
