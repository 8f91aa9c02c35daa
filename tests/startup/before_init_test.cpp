// The library as loaded, before any Ostrel_Init. These tests have an executable of their own, since nothing
// else may call Ostrel_Init in their process first; the first test must stay first.
#include <gtest/gtest.h>

#include "ostrel/OstrelCore.h"
#include "vocabulary/tool_table.h"

namespace {

TEST(LifecycleTest, BeforeInitTheToolLookupsFindNothing) {
  ASSERT_TRUE(ostrel::ToolTable().empty()) << "another test called Ostrel_Init in this process first";
  EXPECT_EQ(Ostrel_ToolNameENToIndex(L"moveTool"), -1);
  EXPECT_EQ(Ostrel_ToolIndexToNameCN(EnToolIndex{0}), L"");
  tagVantoScript script;
  EXPECT_EQ(Ostrel_ParseScript(std::wstring(L"TOOL,0"), script), 1);  // the row runs; the name is empty
  EXPECT_EQ(script.strDetail, L"选择工具：");
}

TEST(LifecycleTest, InitWithoutPhotoshopStillServesScriptsAndVocabulary) {
  EXPECT_EQ(Ostrel_Init(), 0);
  tagVantoScript script;
  EXPECT_EQ(Ostrel_ParseScript(std::wstring(L"TOOL,0"), script), 1);
  EXPECT_EQ(script.strTitle, L"移动工具");
  Ostrel_UnInit();  // not connected: does nothing, and the tables stay
  Ostrel_UnInit();
  EXPECT_EQ(Ostrel_ToolIndexToNameEN(EnToolIndex{0}), L"moveTool");
  EXPECT_EQ(Ostrel_Init(), 0);
  EXPECT_EQ(ostrel::ToolTable().size(), 73u);
}

}  // namespace
