// The two tables that Ostrel_Init builds besides the tool table: top menu commands and filters. Checks run over
// whole tables, so that a row shifted, dropped or doubled in the data shows up.
#include "vocabulary/top_menu_table.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <set>
#include <string>

#include "ostrel/OstrelCore.h"
#include "vocabulary/layer_filter_table.h"

namespace ostrel {
namespace {

class BuiltTables : public ::testing::Test {
 protected:
  void SetUp() override { Ostrel_Init(); }
};

// The menu bar title of each hundred of the numbers; 600 and 700 both belong to the filter menu.
constexpr const wchar_t* kMenuOfHundred[] = {L"文件", L"编辑", L"图像", L"图层", L"文字",
                                             L"选择", L"滤镜", L"滤镜", L"窗口"};

TEST(TablesBeforeInit, LookupsFindNothingInAFreshProcess) {
  // "threadsafe" runs the statement in a freshly started copy of this test binary, where no Ostrel_Init ran.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        tagTopMenuInfo info;
        tagVantoScript script;
        const bool empty = Ostrel_TopMenuIndexToName(EnTopMenuIndex{0}, info) == 0 &&
                           Ostrel_ParseScript(std::wstring(L"TOP_MENU,0"), script) == 0 &&
                           Ostrel_LayerFilterIndexToName(EnLayerFilter{0}).empty() &&
                           Ostrel_LayerFilterNameToIndex(L"查找边缘") == -1 &&
                           Ostrel_TopMenuToHistoryName(EnTopMenuIndex{0}) == L"新建";  // constant, no table
        Ostrel_Init();
        const bool built = Ostrel_TopMenuIndexToName(EnTopMenuIndex{0}, info) == 1 &&
                           Ostrel_ParseScript(std::wstring(L"TOP_MENU,0"), script) == 1 &&
                           Ostrel_LayerFilterNameToIndex(L"查找边缘") == 0;
        std::exit(empty && built ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "");
}

TEST_F(BuiltTables, SecondInitRebuildsWithoutDoubling) {
  Ostrel_Init();
  ASSERT_EQ(TopMenuTable().size(), 133u);
  ASSERT_EQ(LayerFilterTable().size(), 58u);
  for (size_t i = 0; i < TopMenuRows().size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(TopMenuTable()[i].nIndex, TopMenuRows()[i].nIndex);
    EXPECT_EQ(TopMenuTable()[i].strMenu3, TopMenuRows()[i].strMenu3);
  }
}

TEST(TopMenuRows, NumbersAscendAndSitInTheirMenusHundred) {
  int previous = -1;
  std::set<std::wstring> paths;
  for (const TopMenuRow& row : TopMenuRows()) {
    SCOPED_TRACE(row.nIndex);
    EXPECT_GT(row.nIndex, previous);  // the order of the numbers: also no number twice
    previous = row.nIndex;
    const std::wstring path = std::wstring(row.strMenu1) + L">" + std::wstring(row.strMenu2) + L">" +
                              std::wstring(row.strMenu3);
    EXPECT_TRUE(paths.insert(path).second);  // no command twice
    ASSERT_LT(row.nIndex / 100, 9);
    EXPECT_EQ(row.strMenu1, kMenuOfHundred[row.nIndex / 100]);
    EXPECT_FALSE(row.strMenu2.empty());
  }
}

TEST(TopMenuRows, EachFilterBlockOfTwentyIsOneSubmenu) {
  std::map<int, std::wstring_view> groupOfBlock;
  for (const TopMenuRow& row : TopMenuRows()) {
    if (row.nIndex < 620 || row.nIndex >= 800) continue;
    const auto [group, fresh] = groupOfBlock.emplace(row.nIndex / 20, row.strMenu2);
    EXPECT_EQ(group->second, row.strMenu2) << row.nIndex;
    EXPECT_FALSE(row.strMenu3.empty()) << row.nIndex;
  }
  std::set<std::wstring_view> groups;
  for (const auto& [block, group] : groupOfBlock) groups.insert(group);
  EXPECT_EQ(groups.size(), 8u);  // eight blocks, eight different submenus
}

TEST(TopMenuRows, HistoryNameIsTheLastLevelBarTheKnownExceptions) {
  const std::set<int> differing = {3, 209, 210, 211, 212, 213, 214, 400, 601, 760};
  for (const TopMenuRow& row : TopMenuRows()) {
    SCOPED_TRACE(row.nIndex);
    const std::wstring_view last = row.strMenu3.empty() ? row.strMenu2 : row.strMenu3;
    if (differing.count(row.nIndex)) {
      EXPECT_NE(row.strHistory, last);
    } else if (!row.strHistory.empty()) {
      EXPECT_EQ(row.strHistory, last);
    }
  }
}

TEST(TopMenuHistory, OddRowsAndNumbersWithoutARow) {
  EXPECT_EQ(Ostrel_TopMenuToHistoryName(EnTopMenuIndex{3}), L"打开");
  EXPECT_EQ(Ostrel_TopMenuToHistoryName(EnTopMenuIndex{212}), L"旋转画布");
  EXPECT_EQ(Ostrel_TopMenuToHistoryName(EnTopMenuIndex{213}), L"垂直翻转画布");  // crosswise to the title
  EXPECT_EQ(Ostrel_TopMenuToHistoryName(EnTopMenuIndex{214}), L"水平翻转画布");
  EXPECT_EQ(Ostrel_TopMenuToHistoryName(EnTopMenuIndex{760}), L"HSBHSL");
  EXPECT_EQ(Ostrel_TopMenuToHistoryName(EnTopMenuIndex{651}), L"场景模糊");
  EXPECT_EQ(Ostrel_TopMenuToHistoryName(EnTopMenuIndex{652}), L"光圈模糊");
  EXPECT_EQ(Ostrel_TopMenuToHistoryName(EnTopMenuIndex{5}), L"");  // a row without a history name
  EXPECT_EQ(Ostrel_TopMenuToHistoryName(EnTopMenuIndex{2}), L"");
}

TEST_F(BuiltTables, IndexToNameCopiesTheRowOrLeavesTheRecord) {
  tagTopMenuInfo info{EnTopMenuIndex{-7}, L"a", L"b", L"c"};
  EXPECT_EQ(Ostrel_TopMenuIndexToName(EnTopMenuIndex{2}, info), 0);  // between two commands
  EXPECT_EQ(Ostrel_TopMenuIndexToName(EnTopMenuIndex{651}, info), 0);
  EXPECT_EQ(info.nIndex, -7);
  EXPECT_EQ(info.strMenu1 + info.strMenu2 + info.strMenu3, L"abc");

  ASSERT_EQ(Ostrel_TopMenuIndexToName(EnTopMenuIndex{10}, info), 1);
  EXPECT_EQ(info.nIndex, 10);
  EXPECT_EQ(info.strMenu1, L"文件");
  EXPECT_EQ(info.strMenu2, L"导出");
  EXPECT_EQ(info.strMenu3, L"存储为 Web 所用格式（旧版）");
  ASSERT_EQ(Ostrel_TopMenuIndexToName(EnTopMenuIndex{802}, info), 1);
  EXPECT_EQ(info.strMenu2, L"仿制源");
  EXPECT_EQ(info.strMenu3, L"");  // a two-level row clears the third level of the record
}

// A filter's number is its top menu number less 620, so the two tables check each other row by row.
TEST_F(BuiltTables, EveryFilterIsItsTopMenuCommandOrABlurGalleryHistoryName) {
  for (const LayerFilterInfo& filter : LayerFilterTable()) {
    SCOPED_TRACE(filter.nFilter);
    EXPECT_EQ(filter.nTopMenu, -1);
    const tagTopMenuInfo* menu = FindTopMenu(filter.nFilter + 620);
    if (filter.nFilter == 31 || filter.nFilter == 32) {
      EXPECT_EQ(menu, nullptr);
      EXPECT_EQ(TopMenuHistoryName(filter.nFilter + 620), filter.strName);
      continue;
    }
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->strMenu3, filter.strName);
  }
}

TEST_F(BuiltTables, FilterNamesRoundTripAndCompareWhole) {
  std::set<std::wstring> names;
  int previous = -1;
  for (const LayerFilterInfo& filter : LayerFilterTable()) {
    SCOPED_TRACE(filter.nFilter);
    EXPECT_GT(filter.nFilter, previous);
    previous = filter.nFilter;
    EXPECT_TRUE(names.insert(filter.strName).second);
    EXPECT_EQ(Ostrel_LayerFilterNameToIndex(filter.strName), filter.nFilter);
    EXPECT_EQ(Ostrel_LayerFilterIndexToName(EnLayerFilter{filter.nFilter}), filter.strName);
  }
  EXPECT_EQ(Ostrel_LayerFilterNameToIndex(L"自定"), 143);
  EXPECT_EQ(Ostrel_LayerFilterNameToIndex(L"USM 锐化"), 61);
  EXPECT_EQ(Ostrel_LayerFilterNameToIndex(L"模糊 "), -1);
  EXPECT_EQ(Ostrel_LayerFilterNameToIndex(L"usm 锐化"), -1);
  EXPECT_EQ(Ostrel_LayerFilterNameToIndex(L""), -1);
  EXPECT_EQ(Ostrel_LayerFilterIndexToName(EnLayerFilter{31}), L"场景模糊");
  EXPECT_EQ(Ostrel_LayerFilterIndexToName(EnLayerFilter{8}), L"");
  EXPECT_EQ(Ostrel_LayerFilterIndexToTopMenuIndex(EnLayerFilter{0}), -1);
  EXPECT_EQ(Ostrel_LayerFilterIndexToTopMenuIndex(EnLayerFilter{1000}), -1);
}

}  // namespace
}  // namespace ostrel
