// The canvas rows and the canvas operation table behind CANVAS.
#include "script/canvas_rows.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "ostrel/script.h"
#include "platform/text.h"
#include "../support/fingerprint.h"
#include "../support/line_cases.h"

namespace ostrel {
namespace {

using test_support::LineCase;

// Over the UTF-8 of every row as "code:text\n", in table order.
std::uint64_t TableFingerprint() {
  std::wstring rows;
  for (const CanvasOperation& row : CanvasOperations()) rows += Format(L"%d:%s\n", row.nCode, row.strText);
  return test_support::Fingerprint(ToUtf8(rows));
}

// The tool name in front of the hyphen (the underscore for the modifier keys), without the blank that one row
// has in front of it.
std::wstring ToolPart(const std::wstring& text) {
  std::wstring tool = text.substr(0, text.find_first_of(L"-_"));
  return tool.substr(tool.find_first_not_of(L' '));
}

TEST(CanvasOperationTableTest, HasEveryRowOnceInCodeOrder) {
  const auto rows = CanvasOperations();
  EXPECT_EQ(rows.size(), 267u);
  for (size_t i = 1; i < rows.size(); ++i) {
    SCOPED_TRACE(rows[i].nCode);
    EXPECT_LT(rows[i - 1].nCode, rows[i].nCode);
  }
  // Catches any changed letter, lost row or text moved to the next code, which the invariants below may miss.
  EXPECT_EQ(TableFingerprint(), 0x66d17f9c2ab5adc8ULL);
}

// Within a block of 50 the codes follow one another and every text names the block's tool, so a missing row
// or a text shifted across a block boundary shows here.
TEST(CanvasOperationTableTest, BlocksAreContiguousAndNameOneTool) {
  const auto rows = CanvasOperations();
  for (size_t i = 1; i < rows.size(); ++i) {
    const CanvasOperation& previous = rows[i - 1];
    const CanvasOperation& row = rows[i];
    if (previous.nCode < 0 || previous.nCode / 50 != row.nCode / 50) continue;
    SCOPED_TRACE(row.nCode);
    EXPECT_EQ(row.nCode, previous.nCode + 1);
    EXPECT_EQ(ToolPart(row.strText), ToolPart(previous.strText));
  }
}

TEST(CanvasOperationTableTest, BlockStartsAndEndsSitWhereRecorded) {
  struct Case {
    int code;
    const wchar_t* text;
  };
  constexpr Case kCases[] = {
      {-1, L"NONE-手动录制画布"},
      {0, L"移动工具-移动图层内容"},
      {4, L"移动工具-ALT_SHIFT拖动复制图层，并限制水平、垂直、45度移动"},
      {50, L"画板工具"},  // the one text without a hyphen
      {702, L"切片选择工具-选择切片"},  // this block starts at 702
      {2314, L"钢笔工具-选择锚点多选(ctrl shift 点击或框选锚点)"},
      {3300, L"其他-拖动场景视图"},
      {3307, L"其他-Ctrl+Alt+Shift 拖动，复制图层，限制水平，垂直，45度"},
      {4000, L"快捷键_CTRL"},
      {4006, L"快捷键_SHIFT"},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.code);
    EXPECT_EQ(CanvasOperationText(c.code), c.text);
  }
}

// Texts that look like mistakes are the recorded ones: a blank, tab or slash lost or added shows here.
TEST(CanvasOperationTableTest, OddTextsStayAsRecorded) {
  EXPECT_EQ(CanvasOperationText(1250), L"红眼工具-绘制\t");
  EXPECT_EQ(CanvasOperationText(901), L"标尺工具-SHIFT水平、垂直、45度测量 ");
  EXPECT_EQ(CanvasOperationText(1950), L" 3D材质拖放工具-拖放");
  EXPECT_EQ(CanvasOperationText(402), L"磁性套索工具-// 按下Alt键再绘制，从选区减去");
  EXPECT_EQ(CanvasOperationText(501), L"魔棒工具- 按下Shift再绘制，添加到选区");
  EXPECT_EQ(CanvasOperationText(2312), L"钢笔工具-选择路径多选(ctrl shift  点击或框选路径)");
  for (int code = 300; code <= 303; ++code) EXPECT_EQ(CanvasOperationText(code), L"套索工具-") << code;

  // No other text begins or ends with white space.
  const std::set<int> odd = {901, 1250, 1950};
  for (const CanvasOperation& row : CanvasOperations()) {
    if (odd.count(row.nCode)) continue;
    const std::wstring text = row.strText;
    SCOPED_TRACE(row.nCode);
    EXPECT_NE(text.front(), L' ');
    EXPECT_NE(text.back(), L' ');
    EXPECT_EQ(text.find(L'\t'), std::wstring::npos);
  }
}

TEST(CanvasOperationTableTest, CodesOutsideTheTableHaveNoText) {
  for (const int code : {-2, 5, 49, 51, 700, 701, 3252, 3308, 3999, 4007, 5000}) {
    EXPECT_EQ(CanvasOperationText(code), L"") << code;
  }
}

constexpr LineCase kLineCases[] = {
    {L"CANVAS,-1", 1, L"画布操作", L"画布操作【NONE-手动录制画布】"},
    {L"CANVAS,1250", 1, L"画布操作", L"画布操作【红眼工具-绘制\t】"},
    {L"CANVAS,5", 1, L"画布操作", L"画布操作【】"},  // no row: an empty place, still understood
    {L"CANVAS,x", 1, L"画布操作", L"画布操作【移动工具-移动图层内容】"},  // x reads as 0
    {L"CANVAS,0101", 1, L"画布操作", L"画布操作【矩形选框工具-绘制过程中按下Alt，从中心绘制】"},
    {L"CANVAS", 0, L"", L""},
    {L"CANVAS_SUBMIT", 1, L"画布提交", L"画布提交"},
    {L"CANVAS_SUBMIT,7,8", 1, L"画布提交", L"画布提交"},
    {L"canvas,0", 0, L"", L""},
    {L"CANVAS_MENU,0", 1, L"自由变换", L"画布菜单：自由变换"},
    {L"CANVAS_MENU,9", 1, L"旋转 180 度", L"画布菜单：旋转 180 度"},
    {L"CANVAS_MENU,58", 1, L"置为底层", L"画布菜单：置为底层"},
    {L"CANVAS_MENU,15", 1, L"", L"画布菜单："},  // no entry: empty title, still understood
    {L"CANVAS_MENU", 0, L"", L""},
};

TEST(CanvasRowsTest, DispatchedLinesGiveTheirSteps) { test_support::ExpectSteps(kLineCases); }

TEST(CanvasRowsTest, CanvasKeepsTheRecordWhenTheCodeIsMissing) {
  tagVantoScript script{L"old title", L"old detail"};
  EXPECT_EQ(Ostrel_ParseScriptCanvas({L"CANVAS"}, script), 0);
  EXPECT_EQ(script.strTitle, L"old title");
  EXPECT_EQ(script.strDetail, L"old detail");
}

TEST(CanvasRowsTest, SubmitNeedsNoItemsAtAll) {
  tagVantoScript script;
  EXPECT_EQ(Ostrel_ParseScriptCanvasSubmit({}, script), 1);
  EXPECT_EQ(script.strTitle, L"画布提交");
  EXPECT_EQ(script.strDetail, L"画布提交");
}

}  // namespace
}  // namespace ostrel
