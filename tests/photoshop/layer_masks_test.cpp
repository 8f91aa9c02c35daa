// Masks, effects and smart filters against the simulated Photoshop (nested_groups.json and real layer effects),
// the main window's title for what is being edited, and failures at every call of the reads that take an index.
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "connected_photoshop.h"
#include "frame/guard.h"
#include "ostrel/OstrelCore.h"
#include "platform/portable/recorded_windows.h"

namespace ostrel {
namespace {

std::vector<std::pair<int, int>> Pairs(const std::vector<tagLayerStyleInfo>& styles) {
  std::vector<std::pair<int, int>> pairs;
  for (const auto& s : styles) pairs.emplace_back(static_cast<int>(s.nStyle), s.bVisible);
  return pairs;
}

std::vector<std::pair<int, int>> Pairs(const std::vector<tagSmartFilterInfo>& filters) {
  std::vector<std::pair<int, int>> pairs;
  for (const auto& f : filters) pairs.emplace_back(static_cast<int>(f.nFilter), f.bVisible);
  return pairs;
}

using LayerMasksTest = test::ConnectedPhotoshopTest;

// Indexes of nested_groups.json: 6 浮雕 (vector mask, bevel), 7 矩形 1 (shape), 8 图层 1 (effects off), 10 图层 1
// (disabled layer mask), 12 图像 1 (smart filters), 13 阴影 (clipped).
TEST_F(LayerMasksTest, MasksAndClippingByIndex) {
  Connect("nested_groups.json");
  struct Case {
    const char* what;
    std::function<int()> ask;
    int expected;
  };
  const Case cases[] = {
      {"a disabled layer mask counts", [] { return Ostrel_IsLayerMask(10); }, 1},
      {"no layer mask", [] { return Ostrel_IsLayerMask(8); }, 0},
      {"-1 with a background is place -2", [] { return Ostrel_IsLayerMask(-1); }, 0},
      {"a pixel layer's vector mask", [] { return Ostrel_IsVectorMask(6); }, 1},
      {"a shape layer's outline is no vector mask", [] { return Ostrel_IsVectorMask(7); }, 0},
      {"no vector mask", [] { return Ostrel_IsVectorMask(8); }, 0},
      {"smart filters' mask", [] { return Ostrel_IsFilterMask(12); }, 1},
      {"hasFilterMask false", [] { return Ostrel_IsFilterMask(8); }, 0},
      {"clipped", [] { return Ostrel_IsClipMask(13); }, 1},
      {"not clipped", [] { return Ostrel_IsClipMask(12); }, 0},
      // The kind is asked of index 0 (place -1: no layer), so the active shape layer's mask path answers.
      {"0 with a background is the active layer", [] { return Ostrel_IsVectorMask(0); }, 1},
  };
  for (const Case& c : cases) EXPECT_EQ(c.ask(), c.expected) << c.what;
}

TEST_F(LayerMasksTest, WithoutABackgroundMinusOneIsTheActiveLayer) {
  ConnectToText(R"({"documents": [{"descriptor": {"title": "a.psd"}, "activeLayer": 3, "layers": [
      {"descriptor": {"name": "Shape", "layerID": 2, "layerKind": 4, "hasVectorMask": true}},
      {"descriptor": {"name": "Masked", "layerID": 3, "layerKind": 1, "hasUserMask": true, "userMaskEnabled": true,
                      "hasVectorMask": true, "hasFilterMask": false}}]}]})");
  EXPECT_EQ(Ostrel_IsLayerMask(-1), 1);
  EXPECT_EQ(Ostrel_IsVectorMask(-1), 1);  // the active layer's vector mask path has a kind
  EXPECT_EQ(Ostrel_IsCurrentSelectVectorMask(), 1);
  EXPECT_EQ(Ostrel_IsFilterMask(-1), 0);
  EXPECT_EQ(Ostrel_IsVectorMask(2), 0);  // kind 4 comes first, whatever the layer holds
}

TEST_F(LayerMasksTest, WhatIsBeingEditedComesFromTheMainWindowsTitle) {
  struct Case {
    const char* layer;      // the active layer's keys
    const wchar_t* title;   // the main window's title; null: no window
    int layerMask, filterMask;
  };
  const Case cases[] = {
      {R"("hasUserMask": true, "userMaskEnabled": false)", L"海报.psd @ 50% (图层 1, 图层蒙版/8)", 1, 0},
      {R"("hasUserMask": true, "userMaskEnabled": true)", L"海报.psd @ 50% (图层 1, RGB/8)", 0, 0},
      {R"("hasUserMask": true, "userMaskEnabled": true)", nullptr, 0, 0},
      {R"("hasUserMask": false)", L"海报.psd @ 50% (图层 1, 图层蒙版/8)", 0, 0},
      {R"("hasFilterMask": false)", L"海报.psd @ 50% (图像 1, 滤镜蒙版/8)", 0, 1},  // present is enough
      {R"("hasFilterMask": true)", L"海报.psd @ 50% (图像 1, RGB/8)", 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.layer);
    ConnectToText(std::string(R"({"documents": [{"descriptor": {"title": "海报.psd"}, "layers": [
        {"descriptor": {"name": "图层 1", "layerID": 2, )") + c.layer + "}}]}]}");
    RecordedWindowTree tree;  // Photoshop's main window alone
    RecordedWindow& frame = tree.windows.emplace_back();
    frame.hwnd = 0x1A2B;
    frame.className = L"Photoshop";
    frame.title = c.title ? c.title : L"";
    RecordedWindows window(tree);
    std::unique_ptr<ScopedPlatform> windows;
    if (c.title) windows = std::make_unique<ScopedPlatform>(Platform{.windows = &window});
    EXPECT_EQ(Ostrel_IsCurrentSelectLayerMask(), c.layerMask);
    EXPECT_EQ(Ostrel_IsCurrentSelectFilterMask(), c.filterMask);
  }
}

TEST_F(LayerMasksTest, EffectsListTheCommonEyeThenEachEffectInTheTablesOrder) {
  Connect("nested_groups.json");
  std::vector<tagLayerStyleInfo> styles(1);
  // The real layer: dropShadow and frameFX single, the others only as ...Multi lists, effects switched off.
  ASSERT_EQ(Ostrel_GetLayerStyle(8, styles), 1);
  EXPECT_EQ(Pairs(styles), (std::vector<std::pair<int, int>>{{1, 0}, {64, 1}, {262144, 1}}));
  ASSERT_EQ(Ostrel_GetLayerStyle(6, styles), 1);
  EXPECT_EQ(Pairs(styles), (std::vector<std::pair<int, int>>{{1, 1}, {8, 1}, {16, 1}, {256, 0}}));
  EXPECT_EQ(Ostrel_GetLayerStyle(10, styles), 0);  // no effects: 0, not an empty 1
  EXPECT_TRUE(styles.empty());

  struct Case {
    int index, style, has, visible;
  };
  const Case cases[] = {
      {8, 1, 1, 0},       {8, 64, 1, 1},  {8, 128, 0, 0}, {6, 16, 1, 1},  {6, 32, 0, 0},
      {6, 256, 1, 0},     {6, 8, 1, 1},   {10, 1, 0, 0},  {99, 1, 0, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.index << " " << c.style);
    EXPECT_EQ(Ostrel_IsLayerStyle(c.index, static_cast<EnLayerStyle>(c.style)), c.has);
    EXPECT_EQ(Ostrel_GetLayerStyleVisible(c.index, static_cast<EnLayerStyle>(c.style)), c.visible);
  }
}

TEST_F(LayerMasksTest, EveryKindOfRealEffectIsReadWhereItsKeyIsSingle) {
  std::ifstream file(test::ExamplesDir() / "realdata" / "ps2017_layereffects_allkinds_uidna.uxp.json");
  std::stringstream effects;
  effects << file.rdbuf();
  ConnectToText(R"({"documents": [{"descriptor": {"title": "a.psd"}, "layers": [
      {"descriptor": {"name": "L", "layerID": 2, "layerFXVisible": true, "layerEffects": )" + effects.str() + "}}]}]}");
  std::vector<tagLayerStyleInfo> styles;
  ASSERT_EQ(Ostrel_GetLayerStyle(1, styles), 1);
  // bevelEmboss on (its contour and texture off), innerGlow, chromeFX, patternFill, outerGlow present but off;
  // the ...Multi lists hold the rest.
  EXPECT_EQ(Pairs(styles), (std::vector<std::pair<int, int>>{
                               {1, 1}, {8, 1}, {256, 0}, {512, 0}, {65536, 0}, {131072, 0}}));
}

TEST_F(LayerMasksTest, SmartFiltersWithTheirEyesAndNamesWithoutDots) {
  Connect("nested_groups.json");
  std::vector<tagSmartFilterInfo> filters;
  ASSERT_EQ(Ostrel_GetLayerFilter(12, filters), 1);
  EXPECT_EQ(Pairs(filters), (std::vector<std::pair<int, int>>{{23, 1}, {61, 0}, {-1, 1}}));
  EXPECT_EQ(Ostrel_IsLayerFilter(12, static_cast<EnLayerFilter>(61)), 1);
  EXPECT_EQ(Ostrel_IsLayerFilterVisible(12, static_cast<EnLayerFilter>(61)), 0);
  EXPECT_EQ(Ostrel_IsLayerFilterVisible(12, static_cast<EnLayerFilter>(23)), 1);
  EXPECT_EQ(Ostrel_IsLayerFilter(12, static_cast<EnLayerFilter>(60)), 0);
  filters.resize(2);
  EXPECT_EQ(Ostrel_GetLayerFilter(8, filters), 1);  // hasFilterMask false: none, and 1
  EXPECT_TRUE(filters.empty());

  // A layer without the key at all fails, unlike one where it is false.
  ConnectToText(R"({"documents": [{"descriptor": {"title": "a.psd"}, "layers": [
      {"descriptor": {"name": "L", "layerID": 2}}]}]})");
  EXPECT_EQ(Ostrel_GetLayerFilter(1, filters), 0);
}

// Failures at every call (spread over a long read) of reads given real arguments: the default or the answer
// without the failure, unless an export asked along the way went on with its own default; nothing left alive.
TEST_F(LayerMasksTest, AFailureAnywhereGivesTheDefaultOrTheCleanAnswer) {
  struct Case {
    const char* what;
    std::function<std::string()> ask;
    std::string failureDefault;
  };
  const auto text = [](int value) { return std::to_string(value); };
  const auto styles = [text] {
    std::vector<tagLayerStyleInfo> s;
    return text(Ostrel_GetLayerStyle(6, s)) + ":" + text(static_cast<int>(s.size()));
  };
  const Case cases[] = {
      {"style list", styles, "0"},
      {"filter list", [text] { std::vector<tagSmartFilterInfo> f; return text(Ostrel_GetLayerFilter(12, f)); }, "0"},
      {"vector mask", [text] { return text(Ostrel_IsVectorMask(6)); }, "0"},
      {"clip", [text] { return text(Ostrel_IsClipMask(13)); }, "0"},
      {"offset", [text] { return text(Ostrel_LayerIndexOffset(4, 1)); }, "-1"},
      {"name to index", [text] { return text(Ostrel_LayerNameToIndex(L"内组")); }, "-1"},
  };
  for (const Case& c : cases) {
    Connect("nested_groups.json");
    const int64_t before = m_photoshop->Calls();
    const std::string clean = c.ask();
    const int64_t calls = m_photoshop->Calls() - before;
    const int64_t stride = std::max<int64_t>(1, calls / 12);
    for (const sim::FaultMode mode : {sim::FaultMode::kTransient, sim::FaultMode::kPersistent}) {
      for (int64_t n = 1; n <= calls; n += stride) {
        SCOPED_TRACE(testing::Message() << c.what << ", call " << n);
        Connect("nested_groups.json");
        m_photoshop->FailCall(n, mode);
        const long long absorbed = InnerFailuresAbsorbed();
        const std::string answer = c.ask();
        if (InnerFailuresAbsorbed() == absorbed && answer.substr(0, c.failureDefault.size()) != c.failureDefault) {
          EXPECT_EQ(answer, clean);
        }
        Ostrel_UnInit();
        EXPECT_EQ(m_photoshop->LiveObjects(), 0);
      }
    }
  }
}

}  // namespace
}  // namespace ostrel
