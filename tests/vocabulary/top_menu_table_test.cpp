// The two tables that Ostrel_Init builds besides the tool table: top menu commands and filters. Checks run over
// whole tables, so that a row shifted, dropped or doubled in the data shows up.
#include "vocabulary/top_menu_table.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <set>
#include <string>

#include "ostrel/OstrelCore.h"
#include "table_test_support.h"
#include "vocabulary/layer_filter_table.h"

namespace ostrel {
namespace {

using BuiltTables = test_support::BuiltTables;

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
        std::exit(Ostrel_TopMenuIndexToName(EnTopMenuIndex{0}, info) == 0 &&
                          Ostrel_ParseScript(std::wstring(L"TOP_MENU,0"), script) == 0 &&
                          Ostrel_LayerFilterIndexToName(EnLayerFilter{0}).empty() &&
                          Ostrel_LayerFilterNameToIndex(L"查找边缘") == -1 &&
                          Ostrel_TopMenuToHistoryName(EnTopMenuIndex{0}) == L"新建"  // constant, no table
                      ? 0
                      : 1);
      },
      ::testing::ExitedWithCode(0), "");
}

TEST_F(BuiltTables, SecondInitRebuildsWithoutDoubling) {
  Ostrel_Init();
  EXPECT_EQ(TopMenuTable().size(), 133u);
  EXPECT_EQ(LayerFilterTable().size(), 58u);
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
  using test_support::RowsFingerprint;
  EXPECT_EQ(RowsFingerprint(TopMenuRows(), &TopMenuRow::nIndex, &TopMenuRow::strMenu1, &TopMenuRow::strMenu2,
                            &TopMenuRow::strMenu3, &TopMenuRow::strHistory),
            0xe141199fff95f038ULL);
  EXPECT_EQ(RowsFingerprint(TopMenuHistoryOnlyRows(), &TopMenuHistoryRow::nIndex, &TopMenuHistoryRow::strHistory),
            0x6da9ea499d383c8bULL);
}

// The history name is the last level but for the known exceptions (213 and 214 are crosswise to their titles);
// the export finds it in the command rows, then in the rows of history names only.
TEST(TopMenuHistory, LastLevelBarTheExceptionsAndTheRowsOfHistoryNamesOnly) {
  const std::set<int> differing = {3, 209, 210, 211, 212, 213, 214, 400, 601, 760};
  std::map<int, std::wstring_view> history;
  for (const TopMenuRow& row : TopMenuRows()) {
    SCOPED_TRACE(row.nIndex);
    history.emplace(row.nIndex, row.strHistory);
    const std::wstring_view last = row.strMenu3.empty() ? row.strMenu2 : row.strMenu3;
    if (differing.count(row.nIndex)) {
      EXPECT_NE(row.strHistory, last);
    } else if (!row.strHistory.empty()) {
      EXPECT_EQ(row.strHistory, last);
    }
  }
  for (const TopMenuHistoryRow& row : TopMenuHistoryOnlyRows()) {
    EXPECT_TRUE(history.emplace(row.nIndex, row.strHistory).second) << row.nIndex;
  }
  for (int n = -1; n <= 1000; ++n) {
    EXPECT_EQ(Ostrel_TopMenuToHistoryName(EnTopMenuIndex{n}), history.count(n) ? history[n] : L"") << n;
  }
}

TEST_F(BuiltTables, IndexToNameCopiesTheRowOrLeavesTheRecord) {
  tagTopMenuInfo info{EnTopMenuIndex{-7}, L"a", L"b", L"c"};
  EXPECT_EQ(Ostrel_TopMenuIndexToName(EnTopMenuIndex{2}, info), 0);  // between two commands
  EXPECT_EQ(Ostrel_TopMenuIndexToName(EnTopMenuIndex{651}, info), 0);  // a history name only
  EXPECT_EQ(info.nIndex, -7);
  EXPECT_EQ(info.strMenu1 + info.strMenu2 + info.strMenu3, L"abc");
  ASSERT_EQ(Ostrel_TopMenuIndexToName(EnTopMenuIndex{10}, info), 1);
  EXPECT_EQ(info.nIndex, 10);
  EXPECT_EQ(info.strMenu1 + L">" + info.strMenu2 + L">" + info.strMenu3, L"文件>导出>存储为 Web 所用格式（旧版）");
  ASSERT_EQ(Ostrel_TopMenuIndexToName(EnTopMenuIndex{802}, info), 1);
  EXPECT_EQ(info.strMenu2 + L">" + info.strMenu3, L"仿制源>");  // a two-level row clears the third level
}

struct MenuCase {
  int index;
  const wchar_t* menu1;
  const wchar_t* menu2;
  const wchar_t* menu3;
  const wchar_t* history;
};

// Commands checked by value: the first and last, the first after each gap in the numbering, and the history
// names that differ from the path.
constexpr MenuCase kMenus[] = {
    {0, L"文件", L"新建", L"", L"新建"},
    {3, L"文件", L"打开为", L"", L"打开"},  // after 2, which is no command
    {100, L"编辑", L"填充", L"", L"填充"},
    {213, L"图像", L"图像旋转", L"水平翻转画布", L"垂直翻转画布"},  // crosswise
    {214, L"图像", L"图像旋转", L"垂直翻转画布", L"水平翻转画布"},
    {236, L"图像", L"调整", L"HDR 色调", L""},
    {400, L"文字", L"栅格化文字图层", L"", L"栅格化文字"},
    {601, L"滤镜", L"转换为智能滤镜", L"", L"转换为智能对象"},
    {620, L"滤镜", L"风格化", L"查找边缘", L"查找边缘"},  // after the gap 605-619
    {681, L"滤镜", L"锐化", L"USM 锐化", L"USM 锐化"},
    {760, L"滤镜", L"其它", L"HSB/HSL", L"HSBHSL"},
    {802, L"窗口", L"仿制源", L"", L""},
};

TEST_F(BuiltTables, CommandsByValue) {
  for (const MenuCase& c : kMenus) {
    SCOPED_TRACE(c.index);
    tagTopMenuInfo info;
    ASSERT_EQ(Ostrel_TopMenuIndexToName(EnTopMenuIndex{c.index}, info), 1);
    EXPECT_EQ(info.nIndex, c.index);
    EXPECT_EQ(info.strMenu1, c.menu1);
    EXPECT_EQ(info.strMenu2, c.menu2);
    EXPECT_EQ(info.strMenu3, c.menu3);
    EXPECT_EQ(Ostrel_TopMenuToHistoryName(EnTopMenuIndex{c.index}), c.history);
  }
  EXPECT_EQ(Ostrel_TopMenuToHistoryName(EnTopMenuIndex{651}), L"场景模糊");
  EXPECT_EQ(Ostrel_TopMenuToHistoryName(EnTopMenuIndex{652}), L"光圈模糊");
}

// A filter's number is its top menu number less 620, so the two tables check each other row by row; the blur
// gallery filters have a history name only.
TEST_F(BuiltTables, EveryFilterIsItsTopMenuCommandAndNamesRoundTrip) {
  std::set<std::wstring> names;
  int previous = -1;
  for (const LayerFilterInfo& filter : LayerFilterTable()) {
    SCOPED_TRACE(filter.nFilter);
    EXPECT_GT(filter.nFilter, previous);
    previous = filter.nFilter;
    EXPECT_TRUE(names.insert(filter.strName).second);
    EXPECT_EQ(Ostrel_LayerFilterNameToIndex(filter.strName), filter.nFilter);
    EXPECT_EQ(Ostrel_LayerFilterIndexToName(EnLayerFilter{filter.nFilter}), filter.strName);
    EXPECT_EQ(Ostrel_LayerFilterIndexToTopMenuIndex(EnLayerFilter{filter.nFilter}), -1);  // never linked
    const tagTopMenuInfo* menu = FindTopMenu(filter.nFilter + 620);
    EXPECT_EQ(menu == nullptr, filter.nFilter == 31 || filter.nFilter == 32);
    EXPECT_EQ(menu ? menu->strMenu3 : TopMenuHistoryName(filter.nFilter + 620), filter.strName);
  }
  for (const wchar_t* name : {L"模糊 ", L"usm 锐化", L""}) EXPECT_EQ(Ostrel_LayerFilterNameToIndex(name), -1);
  EXPECT_EQ(Ostrel_LayerFilterIndexToName(EnLayerFilter{8}), L"");
}

}  // namespace
}  // namespace ostrel
