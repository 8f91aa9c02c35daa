// The screen mode's geometry: every row of the layout table reached by a layout that fits it and no row above it,
// the general rows one pixel on each side of their bounds, the second test's conditions, and the bar sizes read
// from the host's configuration file.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "../support/png_files.h"
#include "locator/screen_mode.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/text.h"

namespace ostrel::locator {
namespace {

// A main frame away from the screen's corner, so that a side taken from the wrong base doesn't fit by chance:
// ML 100, MT 50, MR 1800, MB 1000 on a 1920 by 1080 screen, with the default bar sizes (menu bar 24, options bar
// 33, tool bar 39). Thus ML + tb = 139, MT + mb = 74, MT + ob + mb = 107.
constexpr WindowRect kFrame{100, 50, 1800, 1000};

struct LayoutCase {
  const char* what;
  WindowRect area;
  int row;  // -1: none fits
  int mode;
  WindowRect frame = kFrame;
};

ScreenGeometry Geometry(const LayoutCase& c) {
  ScreenGeometry geometry;
  geometry.area = c.area;
  geometry.frame = c.frame;
  geometry.screenWidth = 1920;
  geometry.screenHeight = 1080;
  return geometry;
}

const LayoutCase kLayoutCases[] = {
    // One layout for each row, in the table's order.
    {"standard, exact 1", {144, 116, 1509, 996}, 0, 0},
    {"standard, exact 2", {144, 114, 1510, 996}, 1, 0},
    {"standard, exact 3", {148, 120, 1505, 992}, 2, 0},
    {"standard, exact 4", {149, 121, 1504, 991}, 3, 0},
    {"standard, exact 5", {148, 118, 1506, 992}, 4, 0},
    {"standard, general", {139, 107, 1700, 900}, 5, 0},
    {"full with menu bar at 59", {0, 59, 1920, 1080}, 6, 1},
    {"full with menu bar at 57", {0, 57, 1920, 1080}, 7, 1},
    {"full with menu bar, general", {1, 108, 1921, 900}, 8, 1},
    {"full screen, exact", {0, 0, 1920, 1080}, 9, 2},
    {"full screen, general", {5, 3, 1925, 1083}, 10, 2},
    {"panels hidden, exact 1", {118, 86, 1782, 992}, 11, 3},
    {"panels hidden, exact 2", {119, 87, 1781, 991}, 12, 3},
    {"panels hidden, exact 3", {118, 82, 1782, 992}, 13, 3},
    {"panels hidden, exact 4", {108, 86, 1792, 992}, 14, 3},
    {"panels hidden, exact 5", {114, 82, 1786, 996}, 15, 3},
    {"panels hidden, exact 6", {104, 82, 1796, 996}, 16, 3},
    {"panels hidden, general", {50, 75, 1500, 900}, 17, 3},
    {"full with panels hidden at 25", {0, 25, 1920, 1080}, 18, 4},
    {"full with panels hidden at 21", {0, 21, 1920, 1080}, 19, 4},
    {"full with panels hidden, general", {-1, 75, 1919, 900}, 20, 4},

    // The general rows one pixel on either side of their bounds.
    {"standard: L = ML + tb - 1 is the panels-hidden row", {138, 107, 1700, 900}, 17, 3},
    {"standard: T = MT + ob + mb - 1", {139, 106, 1700, 900}, -1, -1},
    {"standard: width of the screen", {139, 107, 2059, 900}, -1, -1},
    {"standard: height of the screen", {139, 107, 1700, 1187}, -1, -1},
    {"full with menu bar: L = 2", {2, 108, 1922, 900}, -1, -1},
    {"full with menu bar: L = -1", {-1, 108, 1919, 900}, 8, 1},
    {"full with menu bar: T = MT + ob + mb", {1, 107, 1921, 900}, -1, -1},
    {"full with menu bar: one pixel narrower", {0, 108, 1919, 900}, -1, -1},
    {"full screen: one pixel shorter", {5, 3, 1925, 1082}, -1, -1},
    {"panels hidden: L = 2", {2, 75, 1500, 900}, -1, -1},
    {"panels hidden: L = 3", {3, 75, 1500, 900}, 17, 3},
    {"panels hidden: T = MT + mb", {50, 74, 1500, 900}, -1, -1},
    {"panels hidden: the screen's width", {50, 75, 1970, 900}, -1, -1},
    {"full with panels hidden: T = MT + mb + ob - 1", {1, 106, 1921, 900}, 20, 4},
    {"full with panels hidden: T = MT + mb + ob is neither", {1, 107, 1921, 900}, -1, -1},
    {"full with panels hidden: T = MT + mb", {0, 74, 1920, 900}, -1, -1},
    {"an exact row one pixel off on its right", {144, 116, 1510, 996}, 5, 0},
    {"an exact row one pixel off on its bottom", {118, 86, 1782, 993}, 17, 3},

    // The cases the mode is known for, on a frame at the screen's corner.
    {"frame at the corner: the first row", {44, 66, 1629, 1076}, 0, 0, {0, 0, 1920, 1080}},
    {"frame at the corner: full with menu bar", {0, 59, 1920, 1080}, 6, 1, {0, 0, 1920, 1080}},
    {"frame at the corner: full screen, not with menu bar", {0, 0, 1920, 1080}, 9, 2, {0, 0, 1920, 1080}},
    {"frame at the corner: 80 is more than 57", {1, 80, 1921, 1080}, 8, 1, {0, 0, 1920, 1080}},
    {"frame hidden: the exact rows can't fit, the general ones can", {44, 66, 1629, 1076}, 5, 0, {0, 0, 0, 0}},
    {"frame hidden: panels hidden by the general row", {18, 36, 1902, 1072}, 17, 3, {0, 0, 0, 0}},
};

class LayoutTableTest : public ::testing::TestWithParam<LayoutCase> {};

TEST_P(LayoutTableTest, TheFirstRowThatFitsGivesTheMode) {
  const LayoutCase& c = GetParam();
  EXPECT_EQ(LayoutRowOf(Geometry(c)), c.row);
  EXPECT_EQ(ModeOfLayout(Geometry(c)), c.mode);
}

INSTANTIATE_TEST_SUITE_P(Layouts, LayoutTableTest, ::testing::ValuesIn(kLayoutCases),
                         [](const ::testing::TestParamInfo<LayoutCase>& info) {
                           return "Case" + std::to_string(info.index) + "_Row" +
                                  (info.param.row < 0 ? std::string("None") : std::to_string(info.param.row));
                         });

TEST(LayoutTableTest, EveryRowIsReachedByOneOfTheLayouts) {
  std::vector<bool> reached(21, false);
  for (const LayoutCase& c : kLayoutCases) {
    if (c.row >= 0) reached[static_cast<size_t>(c.row)] = true;
  }
  for (size_t row = 0; row < reached.size(); ++row) EXPECT_TRUE(reached[row]) << "row " << row;
}

TEST(LayoutTableTest, TheBarSizesMoveTheGeneralRows) {
  LayoutCase c{"", {139, 107, 1700, 900}, 5, 0};
  ScreenGeometry geometry = Geometry(c);
  ASSERT_EQ(LayoutRowOf(geometry), 5);
  geometry.bars.toolBar = 40;  // L = 139 is now less than ML + tb: the panels-hidden row
  EXPECT_EQ(LayoutRowOf(geometry), 17);
  geometry.bars = BarSizes{};
  geometry.bars.menuBar = 25;  // T = 107 is now less than MT + ob + mb
  EXPECT_EQ(LayoutRowOf(geometry), -1);
  geometry.bars = BarSizes{};
  geometry.bars.toolOptionsBar = 34;
  EXPECT_EQ(LayoutRowOf(geometry), -1);
  geometry.bars = BarSizes{};
  geometry.bars.menuBar = 22;  // T = 106 leaves the panels-hidden full screen's (72, 105) for "more than 105"
  geometry.area = WindowRect{1, 106, 1921, 900};
  EXPECT_EQ(LayoutRowOf(geometry), 8);
}

// ---- The second test --------------------------------------------------------------------------------------------

struct CornerCase {
  int32_t left, top;
  WindowRect frame;
  int mode;
};

const CornerCase kCornerCases[] = {
    // The origin is the frame's corner (100, 50).
    {140, 109, kFrame, 0},
    {139, 108, kFrame, 3},
    {139, 109, kFrame, -1},
    {140, 108, kFrame, -1},
    {100, 106, kFrame, 1},
    {100, 105, kFrame, 4},
    {100, 50, kFrame, 2},
    {101, 49, kFrame, 2},
    {102, 50, kFrame, -1},
    {101, 48, kFrame, -1},
    {110, 73, kFrame, 3},
    {109, 73, kFrame, -1},
    {110, 72, kFrame, -1},
    {100, 70, kFrame, 4},
    {100, 69, kFrame, -1},
    {105, 80, kFrame, -1},  // L = m + 5: no condition holds
    // A frame whose left is less than 1 puts the origin at (0, 0), whatever its top.
    {0, 59, {0, 30, 1920, 1080}, 1},
    {0, 30, {0, 30, 1920, 1080}, 4},
    {0, 0, {-8, 30, 1920, 1080}, 2},
    {1, 30, {1, 30, 1920, 1080}, 2},
};

TEST(CornerTestTest, TheFirstConditionThatHoldsGivesTheMode) {
  for (const CornerCase& c : kCornerCases) {
    SCOPED_TRACE(::testing::Message() << "L " << c.left << ", T " << c.top << ", frame " << c.frame.left << ","
                                      << c.frame.top);
    EXPECT_EQ(ModeOfCorner(c.left, c.top, c.frame), c.mode);
  }
}

// ---- The bar sizes ---------------------------------------------------------------------------------------------

class BarSizesTest : public ::testing::Test {
 protected:
  void SetUp() override { m_folder = test_support::FreshFolder("bar_sizes"); }
  void TearDown() override { std::filesystem::remove_all(m_folder); }

  BarSizes Read(const std::string& ini) {
    const std::filesystem::path file = m_folder / "ui.ini";
    test_support::WriteFile(file, ini);
    ProcessParameters parameters;
    parameters.Set(EnTallyKey::kBarSizesFile, FromUtf8(file.string()));
    const ScopedPlatform platform({.parameters = &parameters});
    return ReadBarSizes();
  }

  std::filesystem::path m_folder;
};

TEST_F(BarSizesTest, ValuesAboveZeroAreTakenAndTheOthersKeepTheirDefaults) {
  const BarSizes sizes = Read("[Other]\r\nMenuBarHeight=50\r\n[Photoshop]\r\nMenuBarHeight=30\r\nToolFeaturesBarHeight=-5\r\nToolBarWidth=0\r\n");
  EXPECT_EQ(sizes.menuBar, 30);
  EXPECT_EQ(sizes.toolOptionsBar, 33);
  EXPECT_EQ(sizes.toolBar, 39);
  const BarSizes read = Read("[Photoshop]\r\nToolBarWidth=41px\r\nToolFeaturesBarHeight=35\r\n");
  EXPECT_EQ(read.menuBar, 24);
  EXPECT_EQ(read.toolOptionsBar, 35);
  EXPECT_EQ(read.toolBar, 41);
  const BarSizes none = Read("[Photoshop]\r\nToolBarWidth=wide\r\n");
  EXPECT_EQ(none.toolBar, 39);
}

TEST_F(BarSizesTest, AMissingFileOrNoFileGivesTheDefaults) {
  for (const std::wstring& file : {std::wstring(), FromUtf8((m_folder / "missing.ini").string())}) {
    ProcessParameters parameters;
    parameters.Set(EnTallyKey::kBarSizesFile, file);
    const ScopedPlatform platform({.parameters = &parameters});
    const BarSizes sizes = ReadBarSizes();
    EXPECT_EQ(sizes.menuBar, 24);
    EXPECT_EQ(sizes.toolOptionsBar, 33);
    EXPECT_EQ(sizes.toolBar, 39);
  }
}

}  // namespace
}  // namespace ostrel::locator
