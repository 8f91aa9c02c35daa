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

struct ToolRowCase {
  size_t row;  // place in the search order
  int index;
  const wchar_t* nameCN;
  const wchar_t* nameEN;
};

// Rows checked by value: the first and last, the rows around the gap at 69 and the one out of numeric order, and
// Photoshop's ids that look like slips.
constexpr ToolRowCase kToolRows[] = {
    {0, -1, L"NULL", L"NULL"},                              // the row of no tool comes first
    {1, 0, L"移动工具", L"moveTool"},
    {10, 72, L"对象选择工具", L"magicLassoTool"},           // 72 between 8 and 9, with the magic lasso's id
    {11, 9, L"快速选择工具", L"quickSelectTool"},
    {19, 17, L"3D材质吸管工具", L"3DMaterialSelectTool"},
    {25, 23, L"修复画笔工具", L"magicStampTool"},           // ids that don't end in Tool
    {26, 24, L"修补工具", L"patchSelection"},
    {27, 25, L"内容感知移动工具", L"recomposeSelection"},
    {70, 68, L"编辑工具栏", L"editToolbar"},
    {71, 70, L"调整边缘快速选择工具", L"RefineEdgeTool"},   // after the gap at 69; the shared English name
    {72, 71, L"调整边缘画笔工具", L"RefineEdgeTool"},       // the last row
};

TEST_F(ToolTableTest, RowsByValue) {
  ASSERT_EQ(ToolTable().size(), 73u);
  for (const ToolRowCase& c : kToolRows) {
    SCOPED_TRACE(c.row);
    const tagToolInfo& row = ToolTable()[c.row];
    EXPECT_EQ(row.nIndex, c.index);
    EXPECT_EQ(row.strNameCN, c.nameCN);
    EXPECT_EQ(row.strNameEN, c.nameEN);
  }
}

}  // namespace
}  // namespace ostrel
