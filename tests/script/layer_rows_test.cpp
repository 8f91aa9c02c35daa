// The row LAYER: checks generated over all sixty-two sub-commands, and the sentences with branches.
#include "script/layer_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ostrel/OstrelCore.h"
#include "script_test_support.h"
#include "../support/fingerprint.h"
#include "../support/line_cases.h"

namespace ostrel {
namespace {

using test_support::Parsed;
using test_support::ParseItems;

// A LAYER line for the sub-command with `count` items in all, every item after the sub-command set to `fill`.
test_support::Items LayerItems(int sub, size_t count, const std::wstring& fill) {
  test_support::Items items = {L"LAYER", std::to_wstring(sub)};
  items.resize(std::max<size_t>(count, 2), fill);
  items.resize(count);
  return items;
}

size_t ArgCount(const LayerRow& row) {
  return std::count_if(row.args.begin(), row.args.end(),
                       [](const LayerArg& arg) { return arg.kind != LayerArgKind::None; });
}

// The number of %s places in a pattern; %% is a percent sign, not a place.
size_t Places(std::wstring_view pattern) {
  size_t n = 0;
  for (size_t i = 0; i + 1 < pattern.size(); ++i) {
    if (pattern[i] != L'%') continue;
    if (pattern[i + 1] == L's') ++n;
    ++i;
  }
  return n;
}

class LayerRows : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { Ostrel_Init(); }  // the filter names come from the built table
};

TEST_F(LayerRows, SixtyTwoSubCommandsInThreeRangesWithOnePlacePerArgument) {
  std::vector<int> expected, subs;
  for (int s = 0; s <= 42; ++s) expected.push_back(s);
  for (int s = 100; s <= 106; ++s) expected.push_back(s);
  for (int s = 200; s <= 211; ++s) expected.push_back(s);
  for (const LayerRow& row : ostrel::LayerRows()) {
    SCOPED_TRACE(row.nSub);
    subs.push_back(row.nSub);
    if (row.sentence == LayerSentence::Pattern || row.sentence == LayerSentence::MenuTitle) {
      EXPECT_EQ(Places(row.strPattern), ArgCount(row));
    }
    for (const LayerCase& c : LayerCases()) {
      EXPECT_TRUE(c.nSub != row.nSub || row.sentence == LayerSentence::ByLock || Places(c.strText) == ArgCount(row));
    }
  }
  EXPECT_EQ(subs, expected);
  for (int sub : {-1, 43, 99, 107, 199, 212, 300}) {
    EXPECT_EQ(ParseItems(LayerItems(sub, 5, L"1")), (Parsed{0, L"", L""})) << sub;
  }
}

// A sub-command asks for exactly the items it reads: one item short fails, the last item it asks for changes the
// step, and spare items don't. "2" is a mode, a bit and a lock that every branch knows, so every sub-command
// succeeds with enough items. The fingerprint over the steps of every sub-command with every item set to a
// number of several kinds catches a changed title, sentence, case or lookup.
TEST_F(LayerRows, OneItemShortFailsExactlyEnoughSucceeds) {
  std::wstring steps;
  for (const LayerRow& row : ostrel::LayerRows()) {
    SCOPED_TRACE(row.nSub);
    test_support::Items items = LayerItems(row.nSub, row.nItems, L"2");
    const Parsed enough = ParseItems(items);
    EXPECT_EQ(enough.result, 1);
    EXPECT_FALSE(enough.title.empty() || enough.detail.empty());
    EXPECT_TRUE(row.sentence != LayerSentence::Same || enough.detail == enough.title);
    EXPECT_EQ(ParseItems(LayerItems(row.nSub, row.nItems - 1, L"2")), (Parsed{0, L"", L""}));
    test_support::Items last = items;
    last.back() = row.nItems > 2 ? L"1" : last.back();  // (with two items the last is the sub-command)
    EXPECT_TRUE(row.nItems == 2 || ParseItems(last) != enough) << "the last item asked for isn't read";
    items.insert(items.end(), {L"1", L"1"});
    EXPECT_EQ(ParseItems(items), enough) << "a spare item is read";
    items[0] = L"";
    EXPECT_EQ(ParseItems(items, Ostrel_ParseScriptLayer), enough);
    for (int value : {0, 1, 2, 3, 4, 5, 6, 7, 8, 16, 32, 64, 101, 1024, 262144}) {
      const Parsed p = ParseItems(LayerItems(row.nSub, row.nItems, std::to_wstring(value)));
      steps += Format(L"%d %d %s|%s\n", row.nSub, p.result, p.title, p.detail);
    }
  }
  EXPECT_EQ(test_support::Fingerprint(ToUtf8(steps)), 0xd87aac2e407a3f31ULL);
}

// Sequence numbers are shown as recorded: every sub-command that shows an item shows "007", never "7"; a
// percent sign stands behind the opacities.
TEST_F(LayerRows, RecordedItemsPassThroughUnchanged) {
  size_t withPercent = 0;
  for (const LayerRow& row : ostrel::LayerRows()) {
    SCOPED_TRACE(row.nSub);
    const auto shown = std::find_if(row.args.begin(), row.args.end(),
                                    [](const LayerArg& arg) { return arg.kind == LayerArgKind::Item; });
    if (shown == row.args.end()) continue;
    test_support::Items items = LayerItems(row.nSub, row.nItems, L"007");
    items[2] = L"2";  // the mode, bit or lock of a branch; as a sequence number it is shown as "2"
    const Parsed p = ParseItems(items);
    EXPECT_EQ(p.result, 1);
    EXPECT_NE(p.detail.find(shown->nItem == 2 ? L"2" : L"007"), std::wstring::npos) << ToUtf8(p.detail);
    EXPECT_EQ(p.detail.find(L"%"), row.strPattern.find(L"%%") == std::wstring_view::npos ? std::wstring::npos
                                                                                            : p.detail.size() - 1);
    withPercent += row.strPattern.find(L"%%") != std::wstring_view::npos;
  }
  EXPECT_EQ(withPercent, 2u);
}

// Each case names the mix-up it would catch.
constexpr test_support::LineCase kSentences[] = {
    {L"LAYER,0,1", 1, L"图层面板", L"选择图层面板：通道"},
    {L"LAYER,0,3", 1, L"图层面板", L""},  // unknown tab: title only, still 1
    {L"LAYER,4,13", 1, L"图层混合模式", L"设置图层混合模式：叠加"},  // layer blend numbers, not the tools'
    {L"LAYER,5,a b,007", 1, L"图层顺序", L"将序号a b图层，调整到007"},
    {L"LAYER,6,75", 1, L"图层不透明度", L"设置图层不透明度为：75%"},
    {L"LAYER,9,1,4", 1, L"选择图层", L"Ctrl 不连续方式选择图层：4"},
    {L"LAYER,11,3,9", 1, L"选择图层蒙版", L"图层序号9，蒙版选择：默认"},  // bit 1 before bit 2
    {L"LAYER,11,6,9", 1, L"选择图层蒙版", L"图层序号9，蒙版选择：图层蒙版"},
    {L"LAYER,11,8,9", 0, L"选择图层蒙版", L""},
    {L"LAYER,12,5,1,2", 1, L"拖移图层蒙版", L"将图层序号1，矢量蒙版拖移到2"},  // bit 1 is no drag
    {L"LAYER,12,1,1,2", 0, L"拖移图层蒙版", L""},
    {L"LAYER,13,0,1", 1, L"锁定图层", L"锁定全部"},
    {L"LAYER,13,3,0", 1, L"锁定图层", L"取消锁定透明像素"},
    {L"LAYER,13,4,1", 0, L"锁定图层", L"锁定"},  // unknown lock keeps the first word
    {L"LAYER,15,2,0", 1, L"图层可见性", L"设置图层序号2可见性为：不可见"},
    {L"LAYER,15,2,2", 1, L"图层可见性", L"设置图层序号2可见性为：不可见"},  // only 1 is yes
    {L"LAYER,18,3,7", 1, L"停用图层蒙版", L"右键图层序号7，停用图层蒙版"},  // menu first, layer second
    {L"LAYER,18,26,7", 1, L"", L"右键图层序号7，"},
    {L"LAYER,21,1,2,4", 1, L"载入选区", L"将图层序号1载入选区模式【从选区减去】，图层模式【矢量蒙版】"},
    {L"LAYER,21,1,4,3", 1, L"载入选区", L"将图层序号1载入选区模式【】，图层模式【】"},
    {L"LAYER,32,3,7", 1, L"图层样式右键菜单", L"图层序号3样式右键菜单[创建剪贴蒙版]"},  // layer first here
    {L"LAYER,37,2,3,5", 1, L"图层蒙版拖动复制", L"蒙版[图层蒙版]图层序号3拖动复制目标图层序号[5]"},
    {L"LAYER,38,1,23,0", 1, L"滤镜效果是否可见", L"图层序号1滤镜[高斯模糊]，可见0"},
    {L"LAYER,101,4,1", 1, L"通道可见性", L"设置通道序号4，可见"},
    {L"LAYER,101,4,x", 1, L"通道可见性", L"设置通道序号4，不可见"},
};

// Rows checked by value: the first and last sub-command of each range, the first after each gap, and sentences
// whose words repeat or are easy to mix up.
constexpr test_support::LineCase kRowsByValue[] = {
    {L"LAYER,0,0", 1, L"图层面板", L"选择图层面板：图层"},
    {L"LAYER,0,2", 1, L"图层面板", L"选择图层面板：路径"},
    {L"LAYER,7,30", 1, L"图层填充不透明度", L"设置图层填充不透明度为：30%"},
    {L"LAYER,9,0,5", 1, L"选择图层", L"选择图层序号为:5"},
    {L"LAYER,9,2,5", 1, L"选择图层", L"Shift 连续方式选择图层：5"},
    {L"LAYER,10", 1, L"图层蒙版", L"添加图层蒙版"},
    {L"LAYER,13,2,1", 1, L"锁定图层", L"锁定锁定位置"},  // the lock's word repeats the first
    {L"LAYER,14,3,1", 1, L"折叠展开组", L"设置图层序号3，展开"},
    {L"LAYER,29,1,262144,1", 1, L"设置图层样式是否可见", L"图层序号1样式[投影]，可见1"},
    {L"LAYER,36,1,4,22", 1, L"图层蒙版右键", L"图层序号1蒙版[矢量蒙版]右键菜单[删除图层蒙版]"},
    {L"LAYER,41,2,1", 1, L"剪切蒙版", L"图层序号2是否裁剪1"},
    {L"LAYER,42", 1, L"Alt添加图层蒙版", L"Alt添加图层蒙版"},
    {L"LAYER,100,3", 1, L"选择通道", L"选择通道序号3"},  // after the gap 43-99
    {L"LAYER,106", 1, L"选区存储为通道", L"选区存储为通道"},
    {L"LAYER,200", 1, L"隐藏路径", L"隐藏路径"},  // after the gap 107-199
    {L"LAYER,203,2", 1, L"拖动删除路径", L"拖动删除路径，序号2"},
    {L"LAYER,210,4,3", 1, L"利用快捷键载入选区", L"图层序号4载入选区模式【与选区相交】"},
    {L"LAYER,211,2,100", 1, L"路径右键菜单", L"图层序号2路径右键菜单[建立选区]"},
};

TEST_F(LayerRows, RowsByValue) { test_support::ExpectSteps(kRowsByValue); }

TEST_F(LayerRows, Sentences) { test_support::ExpectSteps(kSentences); }

// The rename: item 2 is the layer's sequence number and item 3 the new name, both shown as recorded; with fewer
// than four items there is no step.
constexpr test_support::LineCase kRenames[] = {
    {L"LAYER,8,3,背景 副本", 1, L"图层重命名", L"将序号为3的图层，重命名为:背景 副本"},
    {L"LAYER,8,007,图层 1", 1, L"图层重命名", L"将序号为007的图层，重命名为:图层 1"},  // not read as a number
    {L"LAYER,8,2,100%s %d", 1, L"图层重命名", L"将序号为2的图层，重命名为:100%s %d"},  // a name is no pattern
    {L"LAYER,8,3,", 1, L"图层重命名", L"将序号为3的图层，重命名为:"},  // an empty name is a fourth item
    {L"LAYER,8,,x", 1, L"图层重命名", L"将序号为的图层，重命名为:x"},
    {L"LAYER,8,3,a,b", 1, L"图层重命名", L"将序号为3的图层，重命名为:a"},  // a comma ends the name
    {L"LAYER,8,3", 0, L"", L""},
    {L"LAYER,8", 0, L"", L""},
    {L"LAYER,08,3,x", 1, L"图层重命名", L"将序号为3的图层，重命名为:x"},  // the sub-command is read as a number
};

TEST_F(LayerRows, RenameGivesTheLayerAndItsNewName) { test_support::ExpectSteps(kRenames); }


}  // namespace
}  // namespace ostrel
