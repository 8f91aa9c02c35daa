// The tool table: its rows, its order of search and its six conversions.
#include "vocabulary/tool_table.h"

#include <gtest/gtest.h>

#include <map>

#include "ostrel/OstrelCore.h"
#include "table_test_support.h"

namespace ostrel {
namespace {

using ToolTableTest = test_support::BuiltTables;

TEST_F(ToolTableTest, RowsInSearchOrderAndASecondInitGivesTheSame) {
  // Catches a changed letter or rows that swapped places; the object selection tool (72) stands between 8 and 9.
  const auto fingerprint = [] {
    return test_support::RowsFingerprint(ToolTable(), &tagToolInfo::nIndex, &tagToolInfo::strNameEN,
                                         &tagToolInfo::strNameCN);
  };
  EXPECT_EQ(fingerprint(), 0x9f0c39dcef47e1a5ULL);
  Ostrel_Init();
  EXPECT_EQ(ToolTable().size(), 73u);
  EXPECT_EQ(fingerprint(), 0x9f0c39dcef47e1a5ULL);
}

// Every row answers every conversion (so no index or Chinese name stands twice), and the only English name shared
// by two rows resolves to the first of them. 69 is the one number without a row.
TEST_F(ToolTableTest, ConversionsRoundTripOverTheWholeTable) {
  std::map<std::wstring, int> firstByEN;
  for (const auto& row : ToolTable()) firstByEN.emplace(row.strNameEN, row.nIndex);
  for (const auto& row : ToolTable()) {
    SCOPED_TRACE(row.nIndex);
    const EnToolIndex index{row.nIndex};
    EXPECT_EQ(Ostrel_ToolIndexToNameCN(index), row.strNameCN);
    EXPECT_EQ(Ostrel_ToolIndexToNameEN(index), row.strNameEN);
    EXPECT_EQ(Ostrel_ToolNameCNToIndex(row.strNameCN), row.nIndex);  // Chinese names are all different
    EXPECT_EQ(Ostrel_ToolNameCNToNameEN(row.strNameCN), row.strNameEN);
    EXPECT_EQ(Ostrel_ToolNameENToIndex(row.strNameEN), firstByEN[row.strNameEN]);
    EXPECT_EQ(Ostrel_ToolNameENToNameCN(row.strNameEN), ToolNameCN(firstByEN[row.strNameEN]));
  }
  EXPECT_EQ(firstByEN.size(), 72u);  // exactly one English name is shared
  for (const int index : {69, 73, -2, 1000, -2147483647 - 1}) {
    EXPECT_EQ(Ostrel_ToolIndexToNameCN(EnToolIndex{index}), L"") << index;
    EXPECT_EQ(Ostrel_ToolIndexToNameEN(EnToolIndex{index}), L"") << index;
  }
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
      {L"NULL", -1, -1, L"NULL", L"NULL"},
      {L"MoveTool", -1, -1, L"", L""},
      {L"moveTool ", -1, -1, L"", L""},
      {L"移动工具", 0, -1, L"", L"moveTool"},
      {L"移动工具 ", -1, -1, L"", L""},
      {L"", -1, -1, L"", L""},
  };
  for (const NameCase& c : cases) {
    SCOPED_TRACE(ToUtf8(c.name));
    EXPECT_EQ(Ostrel_ToolNameCNToIndex(c.name), c.fromCN);
    EXPECT_EQ(Ostrel_ToolNameENToIndex(c.name), c.fromEN);
    EXPECT_EQ(Ostrel_ToolNameENToNameCN(c.name), c.cnFromEN);
    EXPECT_EQ(Ostrel_ToolNameCNToNameEN(c.name), c.enFromCN);
  }
}

}  // namespace
}  // namespace ostrel
