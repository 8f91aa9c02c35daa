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

struct OperationCase {
  int code;
  const wchar_t* text;
};

// Texts checked by value: the first and last code, the first after a gap, and the texts kept as recorded, with
// their stray blanks, tab, slashes and slips.
constexpr OperationCase kOperations[] = {
    {-1, L"NONE-手动录制画布"},
    {0, L"移动工具-移动图层内容"},
    {50, L"画板工具"},                                      // no gesture behind the tool
    {300, L"套索工具-"},                                    // nothing behind the hyphen, four times
    {303, L"套索工具-"},
    {402, L"磁性套索工具-// 按下Alt键再绘制，从选区减去"},
    {501, L"魔棒工具- 按下Shift再绘制，添加到选区"},
    {702, L"切片选择工具-选择切片"},                        // the block starts at 702
    {901, L"标尺工具-SHIFT水平、垂直、45度测量 "},           // a blank at the end
    {1250, L"红眼工具-绘制\t"},                             // a tab at the end
    {1950, L" 3D材质拖放工具-拖放"},                        // a blank in front
    {2312, L"钢笔工具-选择路径多选(ctrl shift  点击或框选路径)"},  // two blanks
    {2751, L"路径选择工具-ATL拖动复制路径"},                // ATL, as recorded
    {3304, L"其他-Cltr+Alt 拖动，复制图层"},                // Cltr, as recorded
    {3307, L"其他-Ctrl+Alt+Shift 拖动，复制图层，限制水平，垂直，45度"},
    {4000, L"快捷键_CTRL"},                                 // after the gap 3308-3999
    {4006, L"快捷键_SHIFT"},
};

TEST(CanvasOperationTableTest, TextsByValue) {
  for (const OperationCase& c : kOperations) EXPECT_EQ(CanvasOperationText(c.code), c.text) << c.code;
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
