// The small rows: work zone, shortcut keys, colours, history, quick mask, screen mode, tips and guide lines.
#include "script/small_rows.h"

#include <gtest/gtest.h>

#include <set>

#include "ostrel/script.h"
#include "platform/text.h"
#include "../support/line_cases.h"

namespace ostrel {
namespace {

TEST(ShortcutKeyTableTest, CodesAreUniqueAndInOrder) {
  const auto keys = ShortcutKeys();
  EXPECT_EQ(keys.size(), 50u);
  std::set<int> codes;
  for (size_t i = 0; i < keys.size(); ++i) {
    SCOPED_TRACE(keys[i].nCode);
    EXPECT_TRUE(codes.insert(keys[i].nCode).second);
    if (i > 0) {
      EXPECT_LT(keys[i - 1].nCode, keys[i].nCode);
    }
    // 0 to 41 are commands, 100 to 107 keys held down
    EXPECT_TRUE((keys[i].nCode >= 0 && keys[i].nCode <= 41) || (keys[i].nCode >= 100 && keys[i].nCode <= 107));
  }
}

TEST(ShortcutKeyTableTest, RepeatedCommandsKeepTheirOwnCodes) {
  EXPECT_EQ(ShortcutKeyName(26), ShortcutKeyName(18));
  EXPECT_EQ(ShortcutKeyName(27), ShortcutKeyName(19));
  EXPECT_EQ(ShortcutKeyName(18), L"背景色填充");
  EXPECT_EQ(ShortcutKeyName(19), L"前景色填充");
  EXPECT_EQ(ShortcutKeyName(0), L"新建");
  EXPECT_EQ(ShortcutKeyName(41), L"向下合并");
  EXPECT_EQ(ShortcutKeyName(107), L"一直按住Space");
}

using test_support::LineCase;

// Each case names the mistake it would catch.
constexpr LineCase kLineCases[] = {
    {L"WORK_ZONE", 1, L"工作区介绍", L"工作区介绍"},  // needs nothing behind the keyword
    {L"SHORTCUT_KEY,0", 1, L"快捷键", L"快捷键：新建"},  // joined without a blank
    {L"SHORTCUT_KEY,104", 1, L"快捷键", L"快捷键：一直按住Alt"},
    {L"SHORTCUT_KEY,42", 1, L"快捷键", L"快捷键："},  // unknown code: understood, empty name
    {L"SHORTCUT_KEY,99", 1, L"快捷键", L"快捷键："},
    {L"SHORTCUT_KEY", 0, L"", L""},
    {L"COLOR,0", 1, L"默认颜色", L"设置为默认前景色和背景色"},
    {L"COLOR,3", 1, L"设置背景色", L"设置背景色"},
    {L"COLOR,4", 0, L"", L""},
    {L"COLOR", 0, L"", L""},
    {L"HISTORY,1", 1, L"取消历史记录源", L"取消历史记录源"},
    {L"HISTORY,2", 0, L"", L""},
    {L"QUICK_MASK,2", 1, L"快速蒙版选项", L"设置快速蒙版选项"},
    {L"QUICK_MASK,3", 0, L"", L""},
    {L"SCREEN_MODE,-1", 1, L"SM_NONE", L"SM_NONE"},
    {L"SCREEN_MODE,x", 1, L"标准屏幕模式", L"标准屏幕模式"},  // x reads as 0
    {L"SCREEN_MODE,4", 1, L"全屏隐藏视图", L"全屏隐藏视图Tab+F"},
    {L"SCREEN_MODE,5", 0, L"", L""},
    {L"SCREEN_MODE,-2", 0, L"", L""},
    {L"TIP,0", 1, L"自定义提示", L"位置-上次位置"},  // tip 0 has a title of its own
    {L"TIP,7", 1, L"提示语", L"位置-调整图层"},
    {L"TIP,8", 0, L"", L""},
    {L"REF_LINE,0,0", 1, L"参考线", L"移除水平参考线"},
    {L"REF_LINE,0,1", 1, L"参考线", L"添加水平参考线"},
    {L"REF_LINE,1,1", 1, L"参考线", L"添加垂直参考线"},
    {L"REF_LINE,0,00", 1, L"参考线", L"移除添加水平参考线"},  // the action is text, not a number
    {L"REF_LINE,1, 1", 1, L"参考线", L"移除添加垂直参考线"},
    {L"REF_LINE,1,", 1, L"参考线", L"移除添加垂直参考线"},
    {L"REF_LINE,2,1", 0, L"", L""},
    {L"REF_LINE,0", 0, L"", L""},
};

TEST(SmallRowsTest, DispatchedLinesGiveTheirSteps) { test_support::ExpectSteps(kLineCases); }

// The direct functions look at items from 1 on and empty a record that a failed line leaves behind.
TEST(SmallRowsTest, DirectFunctionsIgnoreTheKeyword) {
  tagVantoScript script{L"old", L"old"};
  EXPECT_EQ(Ostrel_ParseScriptWokrZone({}, script), 1);
  EXPECT_EQ(script.strDetail, L"工作区介绍");
  EXPECT_EQ(Ostrel_ParseScriptColor({L"XYZ", L"1"}, script), 1);
  EXPECT_EQ(script.strDetail, L"切换前景色和背景色");
  EXPECT_EQ(Ostrel_ParseScriptHistory({L"XYZ", L"0"}, script), 1);
  EXPECT_EQ(script.strTitle, L"设置历史记录源");
  EXPECT_EQ(Ostrel_ParseScriptQuickMask({L"XYZ", L"1"}, script), 1);
  EXPECT_EQ(script.strTitle, L"退出快速蒙版");
  EXPECT_EQ(Ostrel_ParseScriptShortcutKey({L"XYZ"}, script), 0);
  EXPECT_EQ(script.strTitle, L"");
  EXPECT_EQ(script.strDetail, L"");
}

}  // namespace
}  // namespace ostrel
