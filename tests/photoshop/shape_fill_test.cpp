// The fill and stroke of the active shape tool: each side answers from its own content and its own switch, and a
// side that holds another kind of content gives the reader's default.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "connected_photoshop.h"
#include "ostrel/OstrelCore.h"
#include "photoshop/shape_fill.h"

namespace ostrel {
namespace {

constexpr const char* kColor = R"({"_obj": "solidColorLayer", "color": {"_obj": "RGBColor", "red": 12.9, "grain": 0.2, "blue": 255.0}})";
constexpr const char* kGradient =
    R"({"_obj": "gradientLayer", "gradient": {"_obj": "gradientClassEvent", "name": "$$$/DefaultGradient/ForegroundToBackground=Foreground to Background"}})";
constexpr const char* kPattern =
    R"json({"_obj": "patternLayer", "pattern": {"_obj": "pattern", "name": "Right Diagonal Line 1 (64 by 64 pixels, RGB mode)", "scale": 50}})json";
constexpr const char* kOwnPattern = R"({"_obj": "patternLayer", "pattern": {"_obj": "pattern", "name": "Bricks", "scale": 75}})";
constexpr const char* kEmpty = R"({"_obj": "solidColorLayer"})";

// What the five readers of one side give.
struct SideAnswers {
  int mode;
  std::uint32_t color;
  const wchar_t* gradient;
  const wchar_t* pattern;
  int scale;
};

constexpr SideAnswers kOff = {0, 0, L"", L"", -1};
constexpr SideAnswers kDefaults = {-1, 0, L"", L"", -1};

struct ShapeCase {
  const char* name;
  const char* tool;
  bool fillEnabled, strokeEnabled;
  const char* fill;
  const char* stroke;
  SideAnswers fillAnswers, strokeAnswers;
};

constexpr ShapeCase kCases[] = {
    // Red 12.9 cut to 12, green 0.2 to 0, blue 255: 0x00FF000C.
    {"SolidFillNoStroke", "rectangleTool", true, false, kColor, kGradient, {1, 0x00FF000Cu, L"", L"", -1}, kOff},
    // A gradient stroke beside a colour fill that is switched off: the stroke answers from the stroke alone.
    {"GradientStrokeFillOff", "rectangleTool", false, true, kColor, kGradient, kOff,
     {2, 0, L"前景色到背景色渐变", L"", -1}},
    {"GradientFillColorStroke", "ellipseTool", true, true, kGradient, kColor, {2, 0, L"前景色到背景色渐变", L"", -1},
     {1, 0x00FF000Cu, L"", L"", -1}},
    {"PatternsOnBothSides", "rectangleTool", true, true, kPattern, kOwnPattern, {3, 0, L"", L"右对角线 1", 50},
     {3, 0, L"", L"Bricks", 75}},
    {"ContentWithoutAKnownKind", "rectangleTool", true, true, kEmpty, kEmpty, kDefaults, kDefaults},
    {"BothOff", "rectangleTool", false, false, kPattern, kColor, kOff, kOff},
};

std::string Scenario(const ShapeCase& c) {
  return std::string(R"({"application": {"tool": {"_enum": ")") + c.tool +
         R"(", "_value": "targetEnum"}, "currentToolOptions": {"_obj": "currentToolOptions", "shapeStyle": {"_obj": "shapeStyle", "fillContents": )" +
         c.fill + R"(, "strokeStyle": {"_obj": "strokeStyle", "strokeEnabled": )" + (c.strokeEnabled ? "true" : "false") +
         R"(, "fillEnabled": )" + (c.fillEnabled ? "true" : "false") + R"(, "strokeStyleContent": )" + c.stroke + "}}}}}";
}

class ShapeFillTest : public test::ConnectedPhotoshopTest, public ::testing::WithParamInterface<ShapeCase> {};

TEST_P(ShapeFillTest, EachSideAnswersFromItsOwnContentAndSwitch) {
  const ShapeCase& c = GetParam();
  ConnectToText(Scenario(c));
  EXPECT_EQ(Ostrel_GetShapeFillMode(), c.fillAnswers.mode);
  EXPECT_EQ(Ostrel_GetShapeFillPureColor(), c.fillAnswers.color);
  EXPECT_EQ(Ostrel_GetShapeFillGradientName(), c.fillAnswers.gradient);
  EXPECT_EQ(Ostrel_GetShapeFillPatternName(), c.fillAnswers.pattern);
  EXPECT_EQ(Ostrel_GetShapeFillPatternScale(), c.fillAnswers.scale);
  EXPECT_EQ(Ostrel_GetShapeStrokeMode(), c.strokeAnswers.mode);
  EXPECT_EQ(Ostrel_GetShapeStrokePureColor(), c.strokeAnswers.color);
  EXPECT_EQ(Ostrel_GetShapeStrokeGradientName(), c.strokeAnswers.gradient);
  EXPECT_EQ(Ostrel_GetShapeStrokePatternName(), c.strokeAnswers.pattern);
  EXPECT_EQ(Ostrel_GetShapeStrokePatternScale(), c.strokeAnswers.scale);
}

INSTANTIATE_TEST_SUITE_P(Shapes, ShapeFillTest, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

class ShapeToolTest : public test::ConnectedPhotoshopTest {};

TEST_F(ShapeToolTest, AToolWithoutShapeOptionsGivesEveryDefault) {
  Connect();  // the rectangular marquee
  EXPECT_EQ(Ostrel_GetShapeFillMode(), -1);
  EXPECT_EQ(Ostrel_GetShapeStrokeMode(), -1);
  EXPECT_EQ(Ostrel_GetShapeFillPureColor(), 0u);
  EXPECT_EQ(Ostrel_GetShapeStrokeGradientName(), L"");
  EXPECT_EQ(Ostrel_GetShapeFillPatternScale(), -1);
}

// The pen tool's geometry mode reads "1" for paths and "0" for shapes after the set command.
TEST_F(ShapeToolTest, ThePenToolIsInShapeModeAfterwards) {
  ConnectToText(R"({"application": {"tool": {"_enum": "penTool", "_value": "targetEnum"},
    "currentToolOptions": {"_obj": "currentToolOptions", "geometryToolMode": {"_enum": "geometryToolMode", "_value": "path"}}}})");
  std::wstring mode;
  ASSERT_EQ(Ostrel_GetToolFeatures(EnToolFeatures{2150}, mode), 1);
  EXPECT_EQ(mode, L"1");
  EXPECT_EQ(Ostrel_SetPenToolGeometryModeToShape(), 1);
  ASSERT_EQ(Ostrel_GetToolFeatures(EnToolFeatures{2150}, mode), 1);
  EXPECT_EQ(mode, L"0");
}

// The example scenario: a solid fill of red 223.000001907349 (cut to 223), green 12.5, and a dashed gradient stroke.
TEST_F(ShapeToolTest, TheExampleShapeTool) {
  Connect("shape_tool.json");
  EXPECT_EQ(Ostrel_GetShapeFillMode(), 1);
  EXPECT_EQ(Ostrel_GetShapeFillPureColor(), 0x00000CDFu);
  EXPECT_EQ(Ostrel_GetShapeStrokeMode(), 2);
  EXPECT_EQ(Ostrel_GetShapeStrokeGradientName(), L"前景色到背景色渐变");
  EnStrokeStylePreset preset{7};
  EXPECT_EQ(Ostrel_GetStrokeStylePreset(preset), 1);
  EXPECT_EQ(preset, EnStrokeStylePreset{1});
}

TEST(ColorFromChannelsTest, CutTowardZeroAndMaskedRedLow) {
  EXPECT_EQ(ColorFromChannels(12.9, 0.2, 255.0), 0x00FF000Cu);
  EXPECT_EQ(ColorFromChannels(1.0, 2.0, 3.0), 0x00030201u);
  EXPECT_EQ(ColorFromChannels(256.7, -0.5, 511.0), 0x00FF0000u);  // 256 and 511 keep their low 8 bits
  EXPECT_EQ(ColorFromChannels(-1.0, 0.0, 0.0), 0x000000FFu);       // two's complement, as the integer cut gives
}

}  // namespace
}  // namespace ostrel
