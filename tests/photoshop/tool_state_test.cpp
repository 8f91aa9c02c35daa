// The tool state against simulated Photoshops: the renderings of the option walk, the order in which it searches,
// its special options, the stroke style presets and the commands as Photoshop receives them.
#include "photoshop/tool_state.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <tuple>

#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "connected_photoshop.h"
#include "simulator/photoshop.h"
#include "simulator/scenario.h"

namespace ostrel {
namespace {

TEST(ToolOptionNumberTextTest, PhotoshopsNumbersInTheNumberingOfTheValueLists) {
  const struct {
    int option, number;
    const wchar_t* text;
  } cases[] = {
      {1, 0, L"1"},         {1, 1, L"0"},         {1, 2, L"2"},           // a number the row doesn't list passes
      {52, 3, L"2"},        {53, 1500, L"1.500"}, {105, -250, L"-0.250"}, {2225, 125, L"12.5"},
      {355, 40, L"0"},      {355, 5, L"100"},     {2229, 33, L"20"},      {355, 41, L"-2"},
      {451, 15, L"4"},      {750, 50, L"6"},      {750, 3, L"3"},         {505, 131071, L"1"},
      {553, -65536, L"-1"}, {506, 2, L"1"},       {558, 3, L"1"},         {558, 2, L"2"},
      {508, 7, L"5"},       {510, 0, L"1"},       {2106, 7, L"0"},        {701, 0, L"2"},
      {1409, 8, L"4"},      {1556, 10, L"9"},     {2254, 0, L"-1"},       {2404, 128, L"6"},
      {999, 7, L"7"},       {2, 0, L"0"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ToolOptionNumberText(c.option, c.number), c.text) << c.option << " " << c.number;
  }
}

TEST(ToolOptionNameTextTest, PhotoshopsNamesAsNumbersByTheFirstRowOfTheOption) {
  const struct {
    int option;
    const wchar_t* name;
    const wchar_t* text;
  } cases[] = {
      {500, L"targetSize", L"1"},         {1204, L"normal", L"0"},        {1204, L"luminosity", L"28"},
      {1204, L"pinLight", L"19"},         {955, L"pinLight", L"29"},      {1006, L"pinLight", L"29"},
      {956, L"PrxM", L"2"},               {1007, L"SrcP", L"1"},          {1052, L"healFromSrc2Dest", L"1"},
      {2004, L"burnInM", L"1"},           {2054, L"dodgeH", L"2"},        {2104, L"saturate", L"1"},
      {2700, L"fill", L"2"},              {2717, L"strokeStyleAlignOutside", L"2"},
      {2168, L"strokeStyleRoundCap", L"4"}, {2719, L"strokeStyleBevelJoin", L"8"},
      {2171, L"xor", L"4"},               {2221, L"xor", L"xor"},         {2221, L"fixed", L"2"},
      {2405, L"right", L"2"},             {1, L"nativeSize", L"5"},       {1204, L"square", L"square"},
      {1204, L"Normal", L"Normal"},       {1, L"", L""},
  };
  for (const auto& c : cases) EXPECT_EQ(ToolOptionNameText(c.option, c.name), c.text) << c.option << " " << c.name;
}

// A Photoshop whose active tool has the given options descriptor (in Photoshop's JSON notation).
class ToolStateTest : public test::ConnectedPhotoshopTest {
 protected:
  // charIdOfOtherLength: how the simulated Photoshop answers charIDToTypeID of a name that isn't four characters,
  // which no public source settles ("fails" or "minusOne"); the library must answer the same either way.
  void ConnectWithOptions(const std::string& options, const char* charIdOfOtherLength = "fails") {
    ConnectToText(
        std::string(R"({"versions": [150], "unsettled": {"charIDToTypeIDOfOtherLength": ")") + charIdOfOtherLength +
        R"("}, "application": [{"tool": {"_enum": "paintbrushTool", "_value": "targetEnum"}, "currentToolOptions": )" +
        options + "}]}");
  }
};

struct WalkCase {
  const char* name;
  int option;
  const char* options;
  int result;
  const wchar_t* value;  // what the string holds afterwards; it starts as "keep"
};

const WalkCase kWalkCases[] = {
    {"FirstKeyDepthFirstWins", 1204,
     R"({"_obj": "o", "brush": {"_obj": "b", "mode": {"_enum": "blendMode", "_value": "multiply"}},
         "mode": {"_enum": "blendMode", "_value": "screen"}})",
     1, L"5"},
    {"TopLevelKeyBeforeTheObject", 1204,
     R"({"_obj": "o", "mode": {"_enum": "blendMode", "_value": "screen"},
         "brush": {"_obj": "b", "mode": {"_enum": "blendMode", "_value": "multiply"}}})",
     1, L"10"},
    {"PatternOptionsLookOnlyUnderPattern", 1008,
     R"({"_obj": "o", "brush": {"_obj": "b", "name": "Soft Round"}, "pattern": {"_obj": "pattern", "name": "Clouds"}})",
     1, nullptr},
    {"ShapeLayersGiveZeroFirst", 2171,
     R"({"_obj": "o", "makeShapeLayers": true, "shapeOperation": {"_enum": "shapeOperation", "_value": "xor"}})", 1,
     L"0"},
    {"NoShapeLayersGiveTheOperation", 2171,
     R"({"_obj": "o", "makeShapeLayers": false, "shapeOperation": {"_enum": "shapeOperation", "_value": "xor"}})", 1,
     L"4"},
    {"AListUnderTheKeyLeavesTheString", 1204, R"({"_obj": "o", "mode": [1, 2]})", 1, L"keep"},
    {"AMissingKeyLeavesTheString", 1204, R"({"_obj": "o", "opacity": 50})", 0, L"keep"},
    {"IntegersGoThroughTheNumberTable", 355, R"({"_obj": "o", "$MgCl": 5})", 1, L"100"},
    {"BooleansAreNumbers", 1, R"({"_obj": "o", "$ASGr": true})", 1, L"0"},
    {"DoublesWithOneDecimal", 1204, R"({"_obj": "o", "mode": 12.26})", 1, L"12.3"},
    {"UnitDoublesWithOneDecimal", 1204, R"({"_obj": "o", "mode": {"_unit": "pixelsUnit", "_value": 3.04}})", 1,
     L"3.0"},
    {"StrokeBooleansBoth", 1010, R"({"_obj": "o", "$StmS": true, "$StmB": true})", 1, L"1"},
    {"StrokeBooleansSOnly", 1010, R"({"_obj": "o", "$StmS": true, "$StmB": false})", 1, L"2"},
    {"StrokeBooleansNone", 1409, R"({"_obj": "o", "opacity": 50})", 1, L"0"},
    {"StrokeBooleansBOnlyEmptiesTheString", 1409, R"({"_obj": "o", "$StmB": true})", 0, L""},
};

class ToolOptionWalkTest : public ToolStateTest,
                           public ::testing::WithParamInterface<std::tuple<WalkCase, const char*>> {};

// Nested objects are reached by their names turned back into type ids, which asks charIDToTypeID first: every
// case runs under both of its possible answers to a name of another length.
TEST_P(ToolOptionWalkTest, GivesTheValueOfTheFirstKeyFound) {
  const auto& [c, charIdOfOtherLength] = GetParam();
  ConnectWithOptions(c.options, charIdOfOtherLength);
  std::wstring value = L"keep";
  EXPECT_EQ(Ostrel_GetToolFeatures(EnToolFeatures{c.option}, value), c.result);
  EXPECT_EQ(value, c.value ? std::wstring(c.value) : Ostrel_TransfPatternName(L"Clouds"));
}

INSTANTIATE_TEST_SUITE_P(Cases, ToolOptionWalkTest,
                         ::testing::Combine(::testing::ValuesIn(kWalkCases), ::testing::Values("fails", "minusOne")),
                         [](const auto& info) {
                           return std::string(std::get<0>(info.param).name) +
                                  (std::string(std::get<1>(info.param)) == "fails" ? "CharIdFails" : "CharIdMinusOne");
                         });

// The options of a real marquee tool, as Photoshop gave them: feather, style, aspect ratio and fixed size.
TEST_F(ToolStateTest, RealMarqueeOptionsInTheNumberingOfTheTFRows) {
  Connect("layers_and_group.json");
  EXPECT_EQ(Ostrel_GetCurrentToolIndex(), EnToolIndex{2});
  const std::pair<int, const wchar_t*> cases[] = {{51, L"0.0"}, {52, L"0"}, {53, L"1.000"}, {55, L"64"}};
  for (const auto& [option, text] : cases) {
    std::wstring value;
    EXPECT_EQ(Ostrel_GetToolFeatures(EnToolFeatures{option}, value), 1) << option;
    EXPECT_EQ(value, text) << option;
  }
}

TEST_F(ToolStateTest, StrokeStylePresetsByAlignCapJoinAndDashes) {
  const struct {
    const char* cap;
    const char* dashes;
    int result, preset;
  } cases[] = {
      {"strokeStyleButtCap", "[]", 1, 0},
      {"strokeStyleButtCap", "[4.005, 1.995]", 1, 1},
      {"strokeStyleButtCap", "[4.011, 2.0]", 1, -1},  // 0.01 off or more is no match
      {"strokeStyleRoundCap", "[0.0, 2.0]", 1, 2},
      {"strokeStyleRoundCap", "[0.0, 2.0, 1.0]", 1, -1},
      {"strokeStyleSquareCap", "[]", 1, -1},
      {"strokeStyleButtCap", nullptr, 0, -1},  // no dash set: the dash list gives 0
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.cap) + " " + (c.dashes ? c.dashes : "none"));
    std::string stroke = std::string(R"({"_obj": "strokeStyle",
        "strokeStyleLineAlignment": {"_enum": "strokeStyleLineAlignment", "_value": "strokeStyleAlignInside"},
        "strokeStyleLineCapType": {"_enum": "strokeStyleLineCapType", "_value": ")") + c.cap + R"("},
        "strokeStyleLineJoinType": {"_enum": "strokeStyleLineJoinType", "_value": "strokeStyleMiterJoin"})";
    if (c.dashes) stroke += std::string(R"(, "strokeStyleLineDashSet": )") + c.dashes;
    ConnectWithOptions(R"({"_obj": "o", "shapeStyle": {"_obj": "shapeStyle", "strokeStyle": )" + stroke + "}}}");
    EnStrokeStylePreset preset{7};
    EXPECT_EQ(Ostrel_GetStrokeStylePreset(preset), c.result);
    EXPECT_EQ(preset, EnStrokeStylePreset{c.preset});
  }
}

TEST_F(ToolStateTest, SetCurrentToolThatPhotoshopRefusesGivesZero) {
  ConnectWithOptions(R"({"_obj": "o"})");
  EXPECT_EQ(Ostrel_SetCurrentTool(EnToolIndex{69}), 0);  // no tool id: Photoshop refuses the empty one
  EXPECT_EQ(Ostrel_SetCurrentTool(EnToolIndex{5}), 1);
  EXPECT_EQ(Ostrel_GetCurrentToolIndex(), EnToolIndex{5});
}

TEST_F(ToolStateTest, TheEmptyOperationsAnswerOneEvenUnconnected) {
  Ostrel_UnInit();
  std::wstring font = L"SimSun";
  EXPECT_EQ(Ostrel_GetFontName(font), 1);
  EXPECT_EQ(font, L"SimSun");
  std::vector<double> dashes{1.0};
  EXPECT_EQ(Ostrel_GetStrokeStylePresetValue(dashes), 0);
  EXPECT_TRUE(dashes.empty());
}

}  // namespace
}  // namespace ostrel
