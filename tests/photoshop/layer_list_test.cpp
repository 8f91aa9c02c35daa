// The layer list against the simulated Photoshop: a document with a background, a group holding a group, three
// layers of one name, and the same document without its background, where every index is one lower.
#include "photoshop/layer_list.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "connected_photoshop.h"
#include "ostrel/OstrelCore.h"

namespace ostrel {
namespace {

// nested_groups.json from the bottom of the stack: index, id, name (3, 5: the hidden ends of 外组 and 内组).
struct StackRow {
  int index;
  int id;
  const wchar_t* name;
};
constexpr StackRow kStack[] = {
    {1, 1, L"背景"},    {2, 33, L"图层 1"}, {4, 46, L"图层 2"}, {6, 45, L"浮雕"},  {7, 44, L"矩形 1"},
    {8, 43, L"图层 1"}, {9, 42, L"内组"},   {10, 41, L"图层 1"}, {11, 40, L"外组"}, {12, 32, L"图像 1"},
    {13, 31, L"阴影"},  {14, 30, L"标题"},
};

std::string NestedGroupsWithoutBackground() {
  std::ifstream file(test::ExamplesDir() / "nested_groups.json");
  nlohmann::ordered_json scenario = nlohmann::ordered_json::parse(file);
  auto& layers = scenario["documents"][0]["layers"];
  layers.erase(layers.end() - 1);
  return scenario.dump();
}

class LayerListTest : public test::ConnectedPhotoshopTest, public ::testing::WithParamInterface<bool> {
 protected:
  // Connects to nested_groups.json, with or without its background; shift is what comes off every index.
  void ConnectNested(bool withBackground) {
    if (withBackground) {
      Connect("nested_groups.json");
    } else {
      ConnectToText(NestedGroupsWithoutBackground());
    }
    shift = withBackground ? 0 : 1;
  }
  int shift = 0;
};

TEST_F(LayerListTest, TheListGivesEachLevelsLayersFirstThenItsGroupsWithTheirContent) {
  Connect("nested_groups.json");
  struct Expected {
    int id, group, depth, tail;
  };
  const Expected expected[] = {
      {30, 0, 0, 0}, {31, 0, 0, 0}, {32, 0, 0, 0}, {33, 0, 0, 0}, {1, 0, 0, 0},   // the top level's art layers
      {40, 1, 0, 1}, {41, 0, 1, 0}, {46, 0, 1, 0},                                // 外组 and its layers
      {42, 1, 1, 1}, {43, 0, 2, 0}, {44, 0, 2, 0}, {45, 0, 2, 0},                 // 内组 inside it
  };
  std::vector<tagLayerInfo> layers(3);  // what the caller had is dropped
  ASSERT_EQ(Ostrel_GetLayerID(layers), 1);
  ASSERT_EQ(layers.size(), std::size(expected));
  for (size_t i = 0; i < layers.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(layers[i].nID, expected[i].id);
    EXPECT_EQ(layers[i].bGroup, expected[i].group);
    EXPECT_EQ(layers[i].nHierarchy, expected[i].depth);
    EXPECT_EQ(layers[i].nTail, expected[i].tail);
    EXPECT_EQ(layers[i].nIndex, -1);  // the list alone reads ids only
    EXPECT_EQ(layers[i].strName, L"");
  }
  EXPECT_EQ(Ostrel_GetLayerCount(), 12);
}

TEST_P(LayerListTest, IndexesIdsAndNamesMatchTheStack) {
  ConnectNested(GetParam());
  std::vector<tagLayerInfo> layers;
  ASSERT_EQ(Ostrel_GetLayerInfo(layers), 1);
  for (const StackRow& row : kStack) {
    if (row.id == 1 && shift == 1) continue;  // no background in this document
    const int index = row.index - shift;
    SCOPED_TRACE(testing::Message() << "index " << index);
    EXPECT_EQ(Ostrel_LayerIndexToID(index), row.id);
    EXPECT_EQ(Ostrel_LayerIDToIndex(row.id), index);
    EXPECT_EQ(Ostrel_LayerIndexToName(index), row.name);
    EXPECT_EQ(Ostrel_LayerIDToName(row.id), row.name);
    const auto record = std::find_if(layers.begin(), layers.end(), [&](const auto& r) { return r.nID == row.id; });
    ASSERT_NE(record, layers.end());
    EXPECT_EQ(record->nIndex, index);  // itemIndex given out as Photoshop reads it
    EXPECT_EQ(record->strName, row.name);
  }
  // The end of a group is a place of the stack but no layer of the list.
  EXPECT_EQ(Ostrel_LayerIndexToName(3 - shift), L"</Layer group>");
  EXPECT_EQ(Ostrel_IsLayerGroup(3 - shift), 0);
  EXPECT_EQ(Ostrel_GetLayerGroupHierarchy(3 - shift), -1);
}

TEST_P(LayerListTest, QuestionsByIndexFollowTheBackground) {
  ConnectNested(GetParam());
  const int s = shift;
  struct Case {
    const char* what;
    std::function<int()> ask;
    int expected;
  };
  const Case cases[] = {
      {"background", [] { return Ostrel_IsBackgroundLayer(); }, s == 0 ? 1 : 0},
      {"top", [] { return Ostrel_GetTopLayerIndex(); }, 14 - s},
      {"first of three 图层 1 in the list: the top level's, lowest", [] { return Ostrel_LayerNameToIndex(L"图层 1"); }, 2 - s},
      {"a group's name", [] { return Ostrel_LayerNameToIndex(L"内组"); }, 9 - s},
      {"case counts", [] { return Ostrel_LayerNameToIndex(L"图层 1 "); }, -1},
      {"group of a layer two deep", [s] { return Ostrel_GetLayerGroup(8 - s); }, 9 - s},
      {"group of the lowest layer in 外组, past 内组 and its end", [s] { return Ostrel_GetLayerGroup(4 - s); }, 11 - s},
      {"group of a group", [s] { return Ostrel_GetLayerGroup(9 - s); }, 11 - s},
      {"group of a top-level layer", [s] { return Ostrel_GetLayerGroup(12 - s); }, -1},
      {"group of a group's end", [s] { return Ostrel_GetLayerGroup(5 - s); }, -1},
      {"depth two", [s] { return Ostrel_GetLayerGroupHierarchy(6 - s); }, 2},
      {"depth of a group in a group", [s] { return Ostrel_GetLayerGroupHierarchy(9 - s); }, 1},
      {"one up skips a group's end", [s] { return Ostrel_LayerIndexOffset(4 - s, 1); }, 6 - s},
      {"one down skips a group's end", [s] { return Ostrel_LayerIndexOffset(6 - s, -1); }, 4 - s},
      {"three up", [s] { return Ostrel_LayerIndexOffset(8 - s, 3); }, 11 - s},
      {"offset 0", [s] { return Ostrel_LayerIndexOffset(8 - s, 0); }, -1},
      {"past the top", [s] { return Ostrel_LayerIndexOffset(14 - s, 1); }, -1},
      {"past the bottom", [s] { return Ostrel_LayerIndexOffset(2 - s, -2); }, -1},
      {"from a group's end", [s] { return Ostrel_LayerIndexOffset(5 - s, 1); }, -1},
      {"passThrough is a group", [s] { return Ostrel_IsLayerGroup(11 - s); }, 1},
      {"a layer is no group", [s] { return Ostrel_IsLayerGroup(10 - s); }, 0},
      {"smart object kind", [s] { return static_cast<int>(Ostrel_GetLayerSheetKind(12 - s)); }, 5},
      {"shape kind", [s] { return static_cast<int>(Ostrel_GetLayerSheetKind(7 - s)); }, 4},
      {"smart", [s] { return Ostrel_IsLayerSmart(12 - s); }, 1},
      {"not smart", [s] { return Ostrel_IsLayerSmart(14 - s); }, 0},
      {"hidden", [s] { return Ostrel_IsLayerVisible(4 - s); }, 0},
      {"shown", [s] { return Ostrel_IsLayerVisible(8 - s); }, 1},
      {"no such index", [s] { return Ostrel_LayerIndexToID(15 - s); }, -1},
      {"selected", [s] { return Ostrel_IsLayerSelect(7 - s); }, 1},
      {"not selected", [s] { return Ostrel_IsLayerSelect(6 - s); }, 0},
      {"how many selected", [] { return Ostrel_GetSelectLayerCount(); }, 2},
      {"active", [] { return Ostrel_GetLastSelectLayerIndex(); }, 7 - s},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(c.ask(), c.expected) << c.what;
  }
}

INSTANTIATE_TEST_SUITE_P(Background, LayerListTest, ::testing::Bool(),
                         [](const auto& info) { return info.param ? "With" : "Without"; });

TEST_F(LayerListTest, SelectionComesFromTargetLayersPlusOneWithoutABackgroundTest) {
  Connect("nested_groups.json");
  std::vector<int> indexes{99};
  ASSERT_EQ(Ostrel_GetSelectLayerIndex(indexes), 1);
  std::sort(indexes.begin(), indexes.end());
  EXPECT_EQ(indexes, (std::vector<int>{7, 8}));
  std::vector<int> ids;
  ASSERT_EQ(Ostrel_GetSelectLayerID(ids), 1);
  std::sort(ids.begin(), ids.end());
  EXPECT_EQ(ids, (std::vector<int>{43, 44}));
  std::vector<tagLayerInfo> layers;
  ASSERT_EQ(Ostrel_GetLayerInfo(layers), 1);
  for (const tagLayerInfo& layer : layers) EXPECT_EQ(layer.bSelect, layer.nID == 43 || layer.nID == 44) << layer.nID;
  EXPECT_EQ(Ostrel_GetLastSelectLayerName(), L"矩形 1");
}

TEST_F(LayerListTest, WithoutTargetLayersTheCountIsMinusOneAndTheRecordsStayFilled) {
  ConnectToText(R"({"documents": [{"descriptor": {"title": "a.psd"}, "selectedLayers": null, "layers": [
      {"descriptor": {"name": "Layer 1", "layerID": 2}},
      {"descriptor": {"name": "Background", "layerID": 1, "background": true}}]}]})");
  EXPECT_EQ(Ostrel_GetSelectLayerCount(), -1);
  std::vector<tagLayerInfo> layers;
  EXPECT_EQ(Ostrel_GetLayerInfo(layers), 0);
  ASSERT_EQ(layers.size(), 2u);
  EXPECT_EQ(layers[0].strName, L"Layer 1");
  EXPECT_EQ(layers[0].nIndex, 2);
  EXPECT_EQ(layers[1].bBackground, 1);
  std::vector<int> ids{5};
  EXPECT_EQ(Ostrel_GetSelectLayerID(ids), 0);
  EXPECT_TRUE(ids.empty());
}

TEST_F(LayerListTest, TheKeyWalkKeepsTheFirstNameAndBlendAndTheLastOfEveryOtherKey) {
  // Keys in this order: a nested object with its own name, mode and opacity ahead of the layer's own.
  ConnectToText(R"({"documents": [{"descriptor": {"title": "a.psd"}, "layers": [
      {"descriptor": {"layerID": 2,
        "inner": {"_obj": "null", "name": "nested", "mode": {"_enum": "blendMode", "_value": "behind"}, "opacity": 20},
        "name": "Layer 1", "mode": {"_enum": "blendMode", "_value": "multiply"},
        "opacity": 127.6, "layerKind": "pixels", "visible": false,
        "after": {"_obj": "null", "mode": {"_enum": "blendMode", "_value": "screen"}, "background": true}}}]}]})");
  std::vector<tagLayerInfo> layers;
  ASSERT_EQ(Ostrel_GetLayerInfo(layers), 1);
  ASSERT_EQ(layers.size(), 1u);
  const tagLayerInfo& layer = layers[0];
  EXPECT_EQ(layer.strName, L"nested");            // the first name met, nested or not
  EXPECT_EQ(layer.nBlend, 4);                     // "behind" is no layer blend: the next mode, multiply
  EXPECT_EQ(layer.nOpacity, 127);                 // the last opacity, a double as "%.1lf" read as a whole number
  EXPECT_EQ(layer.nLayerKind, 0);                 // text that is no number
  EXPECT_EQ(layer.bVisible, 0);
  EXPECT_EQ(layer.bBackground, 1);                // from a nested descriptor after the layer's own keys
  EXPECT_EQ(layer.nIndex, 1);
}

TEST_F(LayerListTest, RealDescriptorsFillTheRecords) {
  Connect("nested_groups.json");
  std::vector<tagLayerInfo> layers;
  ASSERT_EQ(Ostrel_GetLayerInfo(layers), 1);
  const auto with = [&](int id) { return *std::find_if(layers.begin(), layers.end(), [&](auto& r) { return r.nID == id; }); };
  const tagLayerInfo effects = with(43);
  EXPECT_EQ(effects.nOpacity, 85);  // the last "opacity" met: the real layer's gradient overlay comes after its own
  EXPECT_EQ(effects.nBlend, 1);
  const tagLayerInfo masked = with(41);
  EXPECT_EQ(masked.bHasUserMask, 1);
  EXPECT_EQ(masked.bUserMaskEnabled, 0);
  EXPECT_EQ(masked.bUserMaskLinked, 1);
  const tagLayerInfo shape = with(44);
  EXPECT_EQ(shape.bHasVectorMask, 1);
  EXPECT_EQ(shape.bVectorMaskEnabled, 1);
  EXPECT_EQ(shape.nLayerKind, 4);
  const tagLayerInfo hidden = with(46);
  EXPECT_EQ(hidden.bVisible, 0);
  EXPECT_EQ(hidden.nOpacity, 128);
  EXPECT_EQ(hidden.nBlend, 4);
  const tagLayerInfo background = with(1);
  EXPECT_EQ(background.bBackground, 1);
  EXPECT_EQ(background.bProtectTransparency, 1);
  EXPECT_EQ(with(40).nBlend, 0);  // passThrough
  EXPECT_EQ(with(40).nLayerKind, 7);
}

TEST_F(LayerListTest, TheObjectModelsBlendNumbersAgreeWithTheBlendIds) {
  // The active layer's blend read both ways, for every blend mode a layer can have.
  const char* modes[] = {"passThrough", "normal", "dissolve", "darken", "multiply", "colorBurn", "linearBurn",
                         "darkerColor", "lighten", "screen", "colorDodge", "linearDodge", "lighterColor", "overlay",
                         "softLight", "hardLight", "vividLight", "linearLight", "pinLight", "hardMix", "difference",
                         "exclusion", "blendSubtraction", "blendDivide", "hue", "saturation", "color", "luminosity"};
  for (const char* mode : modes) {
    SCOPED_TRACE(mode);
    ConnectToText(std::string(R"({"documents": [{"descriptor": {"title": "a.psd"}, "layers": [
        {"descriptor": {"name": "L", "layerID": 2, "mode": {"_enum": "blendMode", "_value": ")") + mode + R"("}}}]}]})");
    std::vector<tagLayerInfo> layers;
    ASSERT_EQ(Ostrel_GetLayerInfo(layers), 1);
    EXPECT_NE(layers[0].nBlend, -1);
    EXPECT_EQ(static_cast<int>(Ostrel_GetCurrentLayerBlend()), layers[0].nBlend);
  }
  EXPECT_EQ(static_cast<int>(LayerBlendFromObjectModel(0)), -1);
  EXPECT_EQ(static_cast<int>(LayerBlendFromObjectModel(24)), -1);
  EXPECT_EQ(static_cast<int>(LayerBlendFromObjectModel(31)), -1);
}

TEST_F(LayerListTest, TheActiveLayerThroughTheObjectModel) {
  // Layer 1 (id 2): bounds zero but for 0.00005; the background (id 3): its bottom edge at 40.
  const auto document = [](const std::string& title, int activeLayer) {
    const auto bounds = [](const char* bottom) {
      return std::string(R"("bounds": {"_obj": "rectangle", "left": {"_unit": "pixelsUnit", "_value": 0},
          "top": {"_unit": "pixelsUnit", "_value": 0}, "right": {"_unit": "pixelsUnit", "_value": 0},
          "bottom": {"_unit": "pixelsUnit", "_value": )") + bottom + "}}";
    };
    return R"({"documents": [{"descriptor": {"title": ")" + title + R"("}, "activeLayer": )" +
           std::to_string(activeLayer) + R"(, "layers": [
        {"descriptor": {"name": "Layer 1", "layerID": 2, "opacity": 128, "fillOpacity": 255,
          "layerLocking": {"_obj": "layerLocking", "protectAll": false, "protectComposite": true,
                           "protectPosition": false, "protectTransparency": true}, )" + bounds("0.00005") + R"(}},
        {"descriptor": {"name": "背景", "layerID": 3, "background": true, )" + bounds("40") + "}}]}]}";
  };
  ConnectToText(document("a（索引#）.gif", 3));
  EXPECT_EQ(Ostrel_GetLastSelectLayerName(), L"索引");  // the background of an indexed-colour document
  EXPECT_EQ(Ostrel_IsLayerEmpty(0), 0);                  // only the last edge is above zero

  ConnectToText(document("a.psd", 2));
  EXPECT_EQ(Ostrel_GetCurrentLayerOpacity(), 50);  // 128 of 255 is 50.2 percent, cut
  EXPECT_EQ(Ostrel_GetCurrentLayerFillOpacity(), 100);
  EXPECT_EQ(Ostrel_IsCurrentLayerLockAll(), 0);
  EXPECT_EQ(Ostrel_IsCurrentLayerLockPixels(), 1);
  EXPECT_EQ(Ostrel_IsCurrentLayerLockPosition(), 0);
  EXPECT_EQ(Ostrel_IsCurrentLayerLockTransparentPixels(), 1);
  EXPECT_EQ(Ostrel_IsLayerEmpty(7), 1);  // no edge beyond 0.0001; the argument isn't read
  EXPECT_EQ(Ostrel_GetLastSelectLayerName(), L"Layer 1");
}

TEST_F(LayerListTest, WithoutADocumentEveryQuestionGivesItsNone) {
  Connect("only_130.json");
  std::vector<tagLayerInfo> layers(2);
  EXPECT_EQ(Ostrel_GetLayerID(layers), 0);
  EXPECT_TRUE(layers.empty());
  EXPECT_EQ(Ostrel_GetLayerCount(), -1);
  EXPECT_EQ(Ostrel_IsBackgroundLayer(), 0);
  EXPECT_EQ(Ostrel_GetTopLayerIndex(), -1);
  EXPECT_EQ(Ostrel_IsLayerGroup(1), 0);  // a failed call, not "not connected"
  EXPECT_EQ(Ostrel_GetCurrentLayerBlend(), -1);
  EXPECT_EQ(Ostrel_GetLastSelectLayerName(), L"");
}

}  // namespace
}  // namespace ostrel
