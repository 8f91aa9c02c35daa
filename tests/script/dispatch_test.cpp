// The split of a line, the test of one item, and the dispatcher with its model row TOOL.
#include <gtest/gtest.h>

#include <random>

#include "ostrel/OstrelCore.h"
#include "script_test_support.h"
#include "../support/line_cases.h"

namespace ostrel {
namespace {

using test_support::Items;

class ScriptTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { Ostrel_Init(); }
};

TEST_F(ScriptTest, SplitKeepsEveryFieldAsRecorded) {
  const std::pair<const wchar_t*, Items> cases[] = {
      {L"", {}},  // an empty line has no items, not one empty item
      {L"A,,B,", {L"A", L"", L"B", L""}},
      {L" TOOL , 5\r", {L" TOOL ", L" 5\r"}},  // nothing is trimmed
  };
  for (const auto& [line, expected] : cases) {
    Items items = {L"stale"};
    Ostrel_ParseItem(line, items);
    EXPECT_EQ(items, expected) << ToUtf8(line);
  }
}

TEST_F(ScriptTest, IsItemComparesOneWholeFieldWithCase) {
  const Items items = {L"A", L"B"};
  EXPECT_EQ(Ostrel_IsItem(items, 1, L"B"), 1);
  EXPECT_EQ(Ostrel_IsItem(items, 1, L"b"), 0);
  EXPECT_EQ(Ostrel_IsItem(items, 1, L"B "), 0);
  EXPECT_EQ(Ostrel_IsItem(items, 1, L""), 0);
  EXPECT_EQ(Ostrel_IsItem(items, 2, L""), 0);
  EXPECT_EQ(Ostrel_IsItem(items, -1, L"A"), 0);
  EXPECT_EQ(Ostrel_IsItem({L""}, 0, L""), 1);
}

constexpr test_support::LineCase kToolLines[] = {
    {L"TOOL,72", 1, L"对象选择工具", L"选择工具：对象选择工具"},
    {L"TOOL,5,", 1, L"单列选框工具", L"选择工具：单列选框工具"},  // the trailing empty item isn't looked at
    {L"TOOL,-1", 1, L"NULL", L"选择工具：NULL"},                    // the row of no tool is an ordinary row
    {L"TOOL, 0x", 1, L"移动工具", L"选择工具：移动工具"},           // _wtoi reads " 0x" as 0
    {L"TOOL,69", 1, L"", L"选择工具："},                            // unknown index: empty name, still 1
    {L"TOOL", 0, L"", L""},
    {L"", 0, L"", L""},
    {L"tool,5", 0, L"", L""},
    {L"TOOL ,5", 0, L"", L""},
    {L" TOOL,5", 0, L"", L""},
    {L"TOOLS,5", 0, L"", L""},
};

TEST_F(ScriptTest, DispatcherFindsOnlyTheExactKeyword) { test_support::ExpectSteps(kToolLines); }

TEST_F(ScriptTest, DirectRowIgnoresTheKeywordButNeedsItsPlace) {
  EXPECT_EQ(test_support::ParseItems({L"XYZ", L"72"}, Ostrel_ParseScriptTool).title, L"对象选择工具");
  EXPECT_EQ(test_support::ParseItems({L"72"}, Ostrel_ParseScriptTool), (test_support::Parsed{0, L"", L""}))
      << "item 0 must be there: the count includes it";
  EXPECT_EQ(test_support::ParseItems({}), (test_support::Parsed{0, L"", L""}));
}

// Builds random lines from pieces that matter to the split and the dispatch: keywords, numbers, blanks, line
// ends, Chinese text and commas.
std::wstring RandomLine(std::mt19937& random) {
  static const wchar_t* const kPieces[] = {
      L"TOOL", L"TF", L"LAYER", L"FILE", L"DOC", L"TOP_MENU", L"VERBOSE", L"tool", L"0", L"5", L"72", L"-1",
      L"007", L" ", L"\t", L"\r", L"x", L"图层", L"羽化", L"", L"2147483648", L"CANVAS", L"TIP",
  };
  std::uniform_int_distribution<size_t> piece(0, std::size(kPieces) - 1);
  std::uniform_int_distribution<int> fields(0, 6);
  std::wstring line;
  const int count = fields(random);
  for (int i = 0; i < count; ++i) {
    if (i) line += L',';
    line += kPieces[piece(random)];
    if (random() % 4 == 0) line += kPieces[piece(random)];
  }
  return line;
}

// The split loses nothing (joining the items gives the line back), and a line and its items give the same step.
TEST_F(ScriptTest, LineAndItsItemsAlwaysGiveTheSameStep) {
  std::mt19937 random(20261123);
  for (int i = 0; i < 5000; ++i) {
    const std::wstring line = RandomLine(random);
    SCOPED_TRACE(ToUtf8(line));
    Items items;
    Ostrel_ParseItem(line, items);
    std::wstring joined;
    for (size_t k = 0; k < items.size(); ++k) joined += (k ? L"," : L"") + items[k];
    ASSERT_EQ(joined, line);
    ASSERT_EQ(test_support::ParseLine(line), test_support::ParseItems(items));
  }
}

}  // namespace
}  // namespace ostrel
