// The rows FILE, DOC, TOP_MENU, LAYER_STYLE and ADJUST_LAYER, through the dispatcher and their direct functions.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "ostrel/OstrelCore.h"

namespace ostrel {
namespace {

using ItemsParser = int (*)(std::vector<std::wstring>, tagVantoScript&) noexcept;

struct Parsed {
  int result;
  std::wstring title;
  std::wstring detail;
};

Parsed ParseLine(const std::wstring& line) {
  tagVantoScript script{L"stale", L"stale"};
  const int result = Ostrel_ParseScript(line, script);
  return {result, script.strTitle, script.strDetail};
}

std::vector<std::wstring> Split(const std::wstring& line) {
  std::vector<std::wstring> items;
  Ostrel_ParseItem(line, items);
  return items;
}

class FileRows : public ::testing::Test {
 protected:
  void SetUp() override { Ostrel_Init(); }
};

struct Threshold {
  const wchar_t* line;  // exactly the items the sub-command needs
  ItemsParser direct;
};

// Each line has exactly as many items as its row and sub-command need; one item less must fail.
const Threshold kThresholds[] = {
    {L"FILE,0,1,2", Ostrel_ParseScriptFile},
    {L"FILE,1,a", Ostrel_ParseScriptFile},
    {L"FILE,2,a,0", Ostrel_ParseScriptFile},
    {L"FILE,3,a", Ostrel_ParseScriptFile},
    {L"DOC,0", Ostrel_ParseScriptDoc},
    {L"TOP_MENU,0", Ostrel_ParseScriptTopMenu},
    {L"ADJUST_LAYER,0", Ostrel_ParseScriptAdjustLayer},
};

TEST_F(FileRows, OneItemShortFailsExactlyEnoughSucceeds) {
  for (const Threshold& t : kThresholds) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(t.line)));
    std::vector<std::wstring> items = Split(t.line);
    tagVantoScript script;
    EXPECT_EQ(Ostrel_ParseScript(items, script), 1);
    EXPECT_FALSE(script.strTitle.empty());
    tagVantoScript direct;
    items[0] = L"XYZ";  // a direct function never looks at the keyword
    EXPECT_EQ(t.direct(items, direct), 1);
    EXPECT_EQ(direct.strTitle, script.strTitle);
    EXPECT_EQ(direct.strDetail, script.strDetail);

    items.pop_back();
    tagVantoScript shortScript{L"stale", L"stale"};
    EXPECT_EQ(t.direct(items, shortScript), 0);
    EXPECT_EQ(shortScript.strTitle, L"");
    EXPECT_EQ(shortScript.strDetail, L"");
  }
}

TEST_F(FileRows, FileSentences) {
  const Parsed sizes = ParseLine(L"FILE,0,0800,600");
  EXPECT_EQ(sizes.title, L"新建文档");
  EXPECT_EQ(sizes.detail, L"大小：800像素x600像素");  // numbers printed again, not as recorded
  EXPECT_EQ(ParseLine(L"FILE,0,abc,-5").detail, L"大小：0像素x-5像素");
  EXPECT_EQ(ParseLine(L"FILE,1,a,b").detail, L"文件名：a");  // a comma cuts the file name
  EXPECT_EQ(ParseLine(L"FILE,1,007").detail, L"文件名：007");
  EXPECT_EQ(ParseLine(L"FILE,2,pic,3").detail, L"文件名：pic.png");
  EXPECT_EQ(ParseLine(L"FILE,2,pic,9").detail, L"文件名：pic.");  // unknown type: a lone point
  EXPECT_EQ(ParseLine(L"FILE,2,pic,9").result, 1);
  EXPECT_EQ(ParseLine(L"FILE,3,x.psd").title, L"置入文件");
}

TEST_F(FileRows, FileRefusesShortLinesAndUnknownCodes) {
  for (const wchar_t* line : {L"FILE,0", L"FILE,1", L"FILE,2", L"FILE,3", L"FILE,0,1", L"FILE,2,a", L"FILE,4,a,b",
                              L"FILE,-1,a,b", L"FILE"}) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(line)));
    const Parsed p = ParseLine(line);
    EXPECT_EQ(p.result, 0);
    EXPECT_EQ(p.title + p.detail, L"");
  }
}

TEST_F(FileRows, DocClosesTheDocumentOnlyForCodeZero) {
  const Parsed doc = ParseLine(L"DOC,0");
  EXPECT_EQ(doc.result, 1);
  EXPECT_EQ(doc.title, L"关闭文档");
  EXPECT_EQ(doc.detail, L"关闭当前文档");
  EXPECT_EQ(ParseLine(L"DOC,x").result, 1);  // no digits read as 0
  EXPECT_EQ(ParseLine(L"DOC,1").result, 0);
  EXPECT_EQ(ParseLine(L"DOC,1").title, L"");
  EXPECT_EQ(ParseLine(L"DOC").result, 0);
}

TEST_F(FileRows, TopMenuGivesTwoAndThreeLevelSentences) {
  const Parsed two = ParseLine(L"TOP_MENU,207");
  EXPECT_EQ(two.result, 1);
  EXPECT_EQ(two.title, L"图像大小");
  EXPECT_EQ(two.detail, L"顶部菜单： 图像 - 图像大小");
  const Parsed three = ParseLine(L"TOP_MENU,643");
  EXPECT_EQ(three.result, 1);
  EXPECT_EQ(three.title, L"高斯模糊");
  EXPECT_EQ(three.detail, L"顶部菜单： 滤镜 - 模糊 - 高斯模糊");
  for (const wchar_t* line : {L"TOP_MENU,2", L"TOP_MENU,651", L"TOP_MENU,-1", L"TOP_MENU"}) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(line)));
    const Parsed p = ParseLine(line);
    EXPECT_EQ(p.result, 0);
    EXPECT_EQ(p.title + p.detail, L"");
  }
}

TEST(TopMenuRowBeforeInit, FailsUntilTheTableIsBuilt) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // a fresh process, in which Ostrel_Init hasn't run
  EXPECT_EXIT(
      {
        tagVantoScript script;
        const int before = Ostrel_ParseScript(std::wstring(L"TOP_MENU,207"), script);
        Ostrel_Init();
        const int after = Ostrel_ParseScript(std::wstring(L"TOP_MENU,207"), script);
        std::exit(before == 0 && after == 1 && script.strTitle == L"图像大小" ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "");
}

TEST_F(FileRows, LayerStyleIsOneFixedStepAndAdjustLayerNamesTheAdjustment) {
  for (const wchar_t* line : {L"LAYER_STYLE", L"LAYER_STYLE,1,2,3"}) {
    const Parsed p = ParseLine(line);
    EXPECT_EQ(p.result, 1);
    EXPECT_EQ(p.title + p.detail, L"图层样式图层样式");
  }
  tagVantoScript script{L"stale", L"stale"};
  EXPECT_EQ(Ostrel_ParseScriptLayerStyle({}, script), 1);  // looks at no item, not even the keyword
  EXPECT_EQ(script.strDetail, L"图层样式");

  EXPECT_EQ(ParseLine(L"ADJUST_LAYER,9").detail, L"设置调整图层 - 色彩平衡");
  const Parsed unknown = ParseLine(L"ADJUST_LAYER,19");
  EXPECT_EQ(unknown.result, 1);
  EXPECT_EQ(unknown.title, L"");
  EXPECT_EQ(unknown.detail, L"设置调整图层 - ");
}

}  // namespace
}  // namespace ostrel
