// The rows FILE, DOC, TOP_MENU, LAYER_STYLE and ADJUST_LAYER, through the dispatcher and their direct functions.
#include <gtest/gtest.h>

#include "ostrel/OstrelCore.h"
#include "script_test_support.h"
#include "../support/line_cases.h"

namespace ostrel {
namespace {

using test_support::Parsed;
using test_support::ParseItems;

class FileRows : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { Ostrel_Init(); }  // TOP_MENU reads the built table
};

struct Threshold {
  const wchar_t* line;  // exactly the items the sub-command needs
  test_support::RowFunction direct;
};

// Each line has exactly as many items as its row and sub-command need; one item less must fail. The direct
// function gives the dispatcher's step and never looks at the keyword.
TEST_F(FileRows, OneItemShortFailsExactlyEnoughSucceeds) {
  const Threshold kThresholds[] = {
      {L"FILE,0,1,2", Ostrel_ParseScriptFile},
      {L"FILE,1,a", Ostrel_ParseScriptFile},
      {L"FILE,2,a,0", Ostrel_ParseScriptFile},
      {L"FILE,3,a", Ostrel_ParseScriptFile},
      {L"DOC,0", Ostrel_ParseScriptDoc},
      {L"TOP_MENU,0", Ostrel_ParseScriptTopMenu},
      {L"ADJUST_LAYER,0", Ostrel_ParseScriptAdjustLayer},
  };
  for (const Threshold& t : kThresholds) {
    SCOPED_TRACE(ToUtf8(t.line));
    test_support::Items items;
    Ostrel_ParseItem(t.line, items);
    const Parsed step = ParseItems(items);
    EXPECT_EQ(step.result, 1);
    EXPECT_FALSE(step.title.empty());
    items[0] = L"XYZ";
    EXPECT_EQ(ParseItems(items, t.direct), step);
    items.pop_back();
    EXPECT_EQ(ParseItems(items, t.direct), (Parsed{0, L"", L""}));
  }
  EXPECT_EQ(ParseItems({}, Ostrel_ParseScriptLayerStyle).result, 1);  // looks at no item, not even the keyword
}

constexpr test_support::LineCase kLineCases[] = {
    {L"FILE,0,0800,600", 1, L"新建文档", L"大小：800像素x600像素"},  // numbers printed again, not as recorded
    {L"FILE,0,abc,-5", 1, L"新建文档", L"大小：0像素x-5像素"},
    {L"FILE,1,a,b", 1, L"打开文件", L"文件名：a"},  // a comma cuts the file name
    {L"FILE,1,007", 1, L"打开文件", L"文件名：007"},
    {L"FILE,2,pic,3", 1, L"文件另存为", L"文件名：pic.png"},
    {L"FILE,2,pic,9", 1, L"文件另存为", L"文件名：pic."},  // unknown type: a lone point
    {L"FILE,3,x.psd", 1, L"置入文件", L"文件名：x.psd"},
    {L"FILE,4,a,b", 0, L"", L""},
    {L"FILE,-1,a,b", 0, L"", L""},
    {L"DOC,x", 1, L"关闭文档", L"关闭当前文档"},  // no digits read as 0
    {L"DOC,1", 0, L"", L""},
    {L"TOP_MENU,207", 1, L"图像大小", L"顶部菜单： 图像 - 图像大小"},
    {L"TOP_MENU,643", 1, L"高斯模糊", L"顶部菜单： 滤镜 - 模糊 - 高斯模糊"},
    {L"TOP_MENU,2", 0, L"", L""},    // between two commands
    {L"TOP_MENU,651", 0, L"", L""},  // a history name only
    {L"LAYER_STYLE,1,2,3", 1, L"图层样式", L"图层样式"},
    {L"ADJUST_LAYER,9", 1, L"色彩平衡", L"设置调整图层 - 色彩平衡"},
    {L"ADJUST_LAYER,19", 1, L"", L"设置调整图层 - "},
};

TEST_F(FileRows, DispatchedLinesGiveTheirSteps) { test_support::ExpectSteps(kLineCases); }

}  // namespace
}  // namespace ostrel
