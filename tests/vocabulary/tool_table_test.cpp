// The tool table: its rows, its order of search and its six conversions.
#include "vocabulary/tool_table.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "ostrel/OstrelCore.h"
#include "platform/text.h"

namespace {

class ToolTableTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { Ostrel_Init(); }
};

TEST_F(ToolTableTest, SecondInitGivesTheSameRows) {
  const std::vector<ostrel::tagToolInfo> first = ostrel::ToolTable();
  Ostrel_Init();
  const std::vector<ostrel::tagToolInfo>& second = ostrel::ToolTable();
  ASSERT_EQ(second.size(), 73u);
  for (size_t i = 0; i < first.size(); ++i) {
    EXPECT_EQ(first[i].nIndex, second[i].nIndex);
    EXPECT_EQ(first[i].strNameEN, second[i].strNameEN);
  }
}

TEST_F(ToolTableTest, EveryIndexButSixtyNineHasExactlyOneRow) {
  std::multiset<int> indexes;
  for (const auto& row : ostrel::ToolTable()) indexes.insert(row.nIndex);
  for (int index = -1; index <= 72; ++index) {
    SCOPED_TRACE(index);
    EXPECT_EQ(indexes.count(index), index == 69 ? 0u : 1u);
  }
}

TEST_F(ToolTableTest, SearchOrderHasItsOddPlaces) {
  const auto& table = ostrel::ToolTable();
  EXPECT_EQ(table[0].nIndex, -1);
  EXPECT_EQ(table[9].nIndex, 8);
  EXPECT_EQ(table[10].nIndex, 72);  // the object selection tool stands between 8 and 9
  EXPECT_EQ(table[11].nIndex, 9);
  EXPECT_EQ(table[70].nIndex, 68);
  EXPECT_EQ(table[71].nIndex, 70);
  EXPECT_EQ(table[72].nIndex, 71);
}

// Every row answers every conversion, and the only name shared by two rows resolves to the first of them.
TEST_F(ToolTableTest, ConversionsRoundTripOverTheWholeTable) {
  std::map<std::wstring, int> firstByEN;
  for (const auto& row : ostrel::ToolTable()) firstByEN.emplace(row.strNameEN, row.nIndex);
  for (const auto& row : ostrel::ToolTable()) {
    SCOPED_TRACE(row.nIndex);
    const EnToolIndex index{row.nIndex};
    EXPECT_EQ(Ostrel_ToolIndexToNameCN(index), row.strNameCN);
    EXPECT_EQ(Ostrel_ToolIndexToNameEN(index), row.strNameEN);
    EXPECT_EQ(Ostrel_ToolNameCNToIndex(row.strNameCN), row.nIndex);  // Chinese names are all different
    EXPECT_EQ(Ostrel_ToolNameCNToNameEN(row.strNameCN), row.strNameEN);
    EXPECT_EQ(Ostrel_ToolNameENToIndex(row.strNameEN), firstByEN[row.strNameEN]);
    EXPECT_EQ(Ostrel_ToolNameENToNameCN(row.strNameEN), Ostrel_ToolIndexToNameCN(EnToolIndex{firstByEN[row.strNameEN]}));
  }
  EXPECT_EQ(firstByEN.size(), 72u);  // exactly one English name is shared
}

struct NameCase {
  const wchar_t* name;
  int fromCN, fromEN;
  const wchar_t* cnFromEN;
  const wchar_t* enFromCN;
};

TEST_F(ToolTableTest, NamesAreComparedWholeWithCaseAndColumnsNeverMix) {
  const NameCase cases[] = {
      {L"RefineEdgeTool", -1, 70, L"调整边缘快速选择工具", L""},
      {L"调整边缘画笔工具", 71, -1, L"", L"RefineEdgeTool"},
      {L"magicLassoTool", -1, 72, L"对象选择工具", L""},
      {L"magneticLassoTool", -1, 8, L"磁性套索工具", L""},
      {L"NULL", -1, -1, L"NULL", L"NULL"},
      {L"moveTool", -1, 0, L"移动工具", L""},
      {L"MoveTool", -1, -1, L"", L""},
      {L"moveTool ", -1, -1, L"", L""},
      {L"移动工具", 0, -1, L"", L"moveTool"},
      {L"移动工具 ", -1, -1, L"", L""},
      {L"patchSelection", -1, 24, L"修补工具", L""},
      {L"", -1, -1, L"", L""},
  };
  for (const NameCase& c : cases) {
    SCOPED_TRACE(ostrel::ToUtf8(c.name));
    EXPECT_EQ(Ostrel_ToolNameCNToIndex(c.name), c.fromCN);
    EXPECT_EQ(Ostrel_ToolNameENToIndex(c.name), c.fromEN);
    EXPECT_EQ(Ostrel_ToolNameENToNameCN(c.name), c.cnFromEN);
    EXPECT_EQ(Ostrel_ToolNameCNToNameEN(c.name), c.enFromCN);
  }
}

TEST_F(ToolTableTest, IndexesWithoutARowGiveEmptyNames) {
  for (const int index : {69, 73, -2, 1000, -2147483647 - 1}) {
    SCOPED_TRACE(index);
    EXPECT_EQ(Ostrel_ToolIndexToNameCN(EnToolIndex{index}), L"");
    EXPECT_EQ(Ostrel_ToolIndexToNameEN(EnToolIndex{index}), L"");
  }
  EXPECT_EQ(Ostrel_ToolIndexToNameEN(EnToolIndex{-1}), L"NULL");
  EXPECT_EQ(Ostrel_ToolIndexToNameCN(EnToolIndex{71}), L"调整边缘画笔工具");
  EXPECT_EQ(Ostrel_ToolIndexToNameEN(EnToolIndex{71}), L"RefineEdgeTool");
}

}  // namespace
