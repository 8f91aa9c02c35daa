// The canvas rows and the canvas operation table behind CANVAS.
#include "script/canvas_rows.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "script_test_support.h"
#include "../support/fingerprint.h"
#include "../support/line_cases.h"

namespace ostrel {
namespace {

// The tool name in front of the hyphen (the underscore for the modifier keys), without the blank that one row
// has in front of it.
std::wstring ToolPart(const std::wstring& text) {
  std::wstring tool = text.substr(0, text.find_first_of(L"-_"));
  return tool.substr(tool.find_first_not_of(L' '));
}

// Every row once, in code order, found by its code. Within a block of 50 the codes follow one another and every
// text names the block's tool, so a missing row or a text shifted across a block boundary shows. The texts that
// begin or end with white space are the three recorded so.
TEST(CanvasOperationTableTest, RowsInCodeOrderBlocksAndRecordedTexts) {
  const auto rows = CanvasOperations();
  EXPECT_EQ(rows.size(), 267u);
  std::wstring all;  // every row as "code:text\n", for a fingerprint
  const std::set<int> odd = {901, 1250, 1950};
  for (size_t i = 0; i < rows.size(); ++i) {
    const CanvasOperation& row = rows[i];
    const std::wstring text = row.strText;
    SCOPED_TRACE(row.nCode);
    all += Format(L"%d:%s\n", row.nCode, text);
    EXPECT_EQ(CanvasOperationText(row.nCode), text);
    const bool blank = text.front() == L' ' || text.back() == L' ' || text.find(L'\t') != std::wstring::npos;
    EXPECT_EQ(blank, odd.count(row.nCode) == 1);
    if (i == 0) continue;
    const CanvasOperation& previous = rows[i - 1];
    EXPECT_LT(previous.nCode, row.nCode);
    if (previous.nCode < 0 || previous.nCode / 50 != row.nCode / 50) continue;
    EXPECT_EQ(row.nCode, previous.nCode + 1);
    EXPECT_EQ(ToolPart(text), ToolPart(previous.strText));
  }
  // Catches any changed letter, lost row or text moved to the next code, which the invariants may miss.
  EXPECT_EQ(test_support::Fingerprint(ToUtf8(all)), 0x66d17f9c2ab5adc8ULL);
  for (const int code : {-2, 5, 49, 51, 700, 701, 3252, 3308, 3999, 4007, 5000}) {
    EXPECT_EQ(CanvasOperationText(code), L"") << code;
  }
}

constexpr test_support::LineCase kLineCases[] = {
    {L"CANVAS,-1", 1, L"画布操作", L"画布操作【NONE-手动录制画布】"},
    {L"CANVAS,1250", 1, L"画布操作", L"画布操作【红眼工具-绘制\t】"},
    {L"CANVAS,5", 1, L"画布操作", L"画布操作【】"},  // no row: an empty place, still understood
    {L"CANVAS,0101", 1, L"画布操作", L"画布操作【矩形选框工具-绘制过程中按下Alt，从中心绘制】"},
    {L"CANVAS", 0, L"", L""},
    {L"CANVAS_SUBMIT,7,8", 1, L"画布提交", L"画布提交"},
    {L"canvas,0", 0, L"", L""},
    {L"CANVAS_MENU,9", 1, L"旋转 180 度", L"画布菜单：旋转 180 度"},
    {L"CANVAS_MENU,58", 1, L"置为底层", L"画布菜单：置为底层"},
    {L"CANVAS_MENU,15", 1, L"", L"画布菜单："},  // no entry: empty title, still understood
    {L"CANVAS_MENU", 0, L"", L""},
};

TEST(CanvasRowsTest, DispatchedLinesGiveTheirSteps) { test_support::ExpectSteps(kLineCases); }

// CANVAS leaves a record alone when the code is missing; CANVAS_SUBMIT needs no items at all.
TEST(CanvasRowsTest, DirectFunctions) {
  using test_support::ParseItems;
  EXPECT_EQ(ParseItems({L"CANVAS"}, Ostrel_ParseScriptCanvas), (test_support::Parsed{0, L"old", L"old"}));
  EXPECT_EQ(ParseItems({}, Ostrel_ParseScriptCanvasSubmit), (test_support::Parsed{1, L"画布提交", L"画布提交"}));
}

}  // namespace
}  // namespace ostrel
