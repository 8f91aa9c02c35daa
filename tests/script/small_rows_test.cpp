// The small rows: work zone, shortcut keys, colours, history, quick mask, screen mode, tips and guide lines.
#include "script/small_rows.h"

#include <gtest/gtest.h>

#include <utility>

#include "script_test_support.h"
#include "../support/fingerprint.h"
#include "../support/line_cases.h"

namespace ostrel {
namespace {

// 0 to 41 are commands, 100 to 107 keys held down, in ascending order (so no code twice). Two later commands
// repeat an earlier one under their own codes.
TEST(ShortcutKeyTableTest, CodesInOrderAndRepeatedCommandsKeepTheirOwnCodes) {
  const auto keys = ShortcutKeys();
  EXPECT_EQ(keys.size(), 50u);
  std::wstring rows;
  for (size_t i = 0; i < keys.size(); ++i) {
    SCOPED_TRACE(keys[i].nCode);
    EXPECT_TRUE(i == 0 || keys[i - 1].nCode < keys[i].nCode);
    EXPECT_TRUE((keys[i].nCode >= 0 && keys[i].nCode <= 41) || (keys[i].nCode >= 100 && keys[i].nCode <= 107));
    EXPECT_EQ(ShortcutKeyName(keys[i].nCode), keys[i].strName);
    rows += Format(L"%d:%s\n", keys[i].nCode, keys[i].strName);
  }
  EXPECT_EQ(test_support::Fingerprint(ToUtf8(rows)), 0xb6bc0cd16568ae11ULL);
  EXPECT_EQ(ShortcutKeyName(26), ShortcutKeyName(18));
  EXPECT_EQ(ShortcutKeyName(27), ShortcutKeyName(19));
  EXPECT_NE(ShortcutKeyName(18), ShortcutKeyName(19));
}

// Names checked by value: the first and last code of each run, and the names that repeat or nearly repeat one.
TEST(ShortcutKeyTableTest, NamesByValue) {
  const std::pair<int, const wchar_t*> kNames[] = {
      {0, L"新建"},         {18, L"背景色填充"},       {26, L"背景色填充"},  {27, L"前景色填充"},
      {28, L"反向"},        {38, L"反相"},             {41, L"向下合并"},    {100, L"一直按住Ctrl"},
      {103, L"一直按住Ctrl+Alt+Shift"}, {107, L"一直按住Space"},
  };
  for (const auto& [code, name] : kNames) EXPECT_EQ(ShortcutKeyName(code), name) << code;
}

// The fixed steps checked by value: the first and last code of each row.
constexpr test_support::LineCase kFixedSteps[] = {
    {L"COLOR,0", 1, L"默认颜色", L"设置为默认前景色和背景色"},
    {L"COLOR,3", 1, L"设置背景色", L"设置背景色"},
    {L"HISTORY,0", 1, L"设置历史记录源", L"设置历史记录源"},
    {L"HISTORY,1", 1, L"取消历史记录源", L"取消历史记录源"},
    {L"QUICK_MASK,0", 1, L"进入快速蒙版", L"进入快速蒙版"},
    {L"QUICK_MASK,2", 1, L"快速蒙版选项", L"设置快速蒙版选项"},
    {L"SCREEN_MODE,0", 1, L"标准屏幕模式", L"标准屏幕模式"},
    {L"SCREEN_MODE,4", 1, L"全屏隐藏视图", L"全屏隐藏视图Tab+F"},
    {L"TIP,1", 1, L"提示语", L"位置-指向画布位置"},
    {L"TIP,7", 1, L"提示语", L"位置-调整图层"},
    {L"REF_LINE,0,1", 1, L"参考线", L"添加水平参考线"},
    {L"REF_LINE,1,0", 1, L"参考线", L"移除垂直参考线"},
    {L"SHORTCUT_KEY,107", 1, L"快捷键", L"快捷键：一直按住Space"},
};

TEST(SmallRowsTest, FixedStepsByValue) { test_support::ExpectSteps(kFixedSteps); }

// Each case names the mistake it would catch.
constexpr test_support::LineCase kLineCases[] = {
    {L"WORK_ZONE", 1, L"工作区介绍", L"工作区介绍"},  // needs nothing behind the keyword
    {L"SHORTCUT_KEY,0", 1, L"快捷键", L"快捷键：新建"},  // joined without a blank
    {L"SHORTCUT_KEY,42", 1, L"快捷键", L"快捷键："},  // unknown code: understood, empty name
    {L"SHORTCUT_KEY", 0, L"", L""},
    {L"COLOR", 0, L"", L""},
    {L"SCREEN_MODE,-1", 1, L"SM_NONE", L"SM_NONE"},
    {L"TIP,0", 1, L"自定义提示", L"位置-上次位置"},  // tip 0 has a title of its own
    {L"REF_LINE,0,0", 1, L"参考线", L"移除水平参考线"},
    {L"REF_LINE,1,1", 1, L"参考线", L"添加垂直参考线"},
    {L"REF_LINE,0,00", 1, L"参考线", L"移除添加水平参考线"},  // the action is text, not a number
    {L"REF_LINE,1,", 1, L"参考线", L"移除添加垂直参考线"},
    {L"REF_LINE,0", 0, L"", L""},
};

TEST(SmallRowsTest, DispatchedLinesGiveTheirSteps) { test_support::ExpectSteps(kLineCases); }

// The fingerprint over the steps of the codes -2 to 9 of the rows of fixed steps catches a changed title or
// sentence, or a step moved to another code or row.
TEST(SmallRowsTest, FixedStepsOfEveryCode) {
  std::wstring steps;
  for (const wchar_t* keyword :
       {L"COLOR", L"HISTORY", L"QUICK_MASK", L"SCREEN_MODE", L"TIP", L"REF_LINE,0", L"REF_LINE,1", L"REF_LINE,2"}) {
    for (int code = -2; code <= 9; ++code) {
      const test_support::Parsed p = test_support::ParseLine(Format(L"%s,%d", keyword, code));
      steps += Format(L"%s,%d %d %s|%s\n", keyword, code, p.result, p.title, p.detail);
    }
  }
  EXPECT_EQ(test_support::Fingerprint(ToUtf8(steps)), 0x596e99207f6eb33fULL);
}

// The direct functions look at items from 1 on, each at its own row, and empty a record a failed line leaves.
TEST(SmallRowsTest, DirectFunctionsIgnoreTheKeyword) {
  using test_support::ParseItems;
  EXPECT_EQ(ParseItems({}, Ostrel_ParseScriptWokrZone).detail, L"工作区介绍");
  EXPECT_EQ(ParseItems({L"XYZ", L"1"}, Ostrel_ParseScriptColor).detail, L"切换前景色和背景色");
  EXPECT_EQ(ParseItems({L"XYZ", L"0"}, Ostrel_ParseScriptHistory).title, L"设置历史记录源");
  EXPECT_EQ(ParseItems({L"XYZ", L"1"}, Ostrel_ParseScriptQuickMask).title, L"退出快速蒙版");
  EXPECT_EQ(ParseItems({L"XYZ"}, Ostrel_ParseScriptShortcutKey), (test_support::Parsed{0, L"", L""}));
}

}  // namespace
}  // namespace ostrel
