// The row LAYER: checks generated over all sixty-two sub-commands, and the sentences with branches.
#include "script/layer_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "ostrel/OstrelCore.h"

namespace ostrel {
namespace {

struct Parsed {
  int result;
  std::wstring title;
  std::wstring detail;
};

Parsed ParseItems(const std::vector<std::wstring>& items) {
  tagVantoScript script{L"stale", L"stale"};
  const int result = Ostrel_ParseScript(items, script);
  return {result, script.strTitle, script.strDetail};
}

Parsed ParseLine(const std::wstring& line) {
  tagVantoScript script{L"stale", L"stale"};
  const int result = Ostrel_ParseScript(line, script);
  return {result, script.strTitle, script.strDetail};
}

// A LAYER line for the sub-command with `count` items in all, every item after the sub-command set to `fill`.
std::vector<std::wstring> LayerItems(int sub, size_t count, const std::wstring& fill) {
  std::vector<std::wstring> items = {L"LAYER", std::to_wstring(sub)};
  while (items.size() < count) items.push_back(fill);
  items.resize(count);
  return items;
}

size_t ArgCount(const LayerRow& row) {
  size_t n = 0;
  for (const LayerArg& arg : row.args) n += arg.kind != LayerArgKind::None;
  return n;
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
  void SetUp() override { Ostrel_Init(); }  // the filter names come from the built table
};

TEST_F(LayerRows, SixtyTwoSubCommandsCoverTheirThreeRangesInOrder) {
  std::vector<int> expected;
  for (int s = 0; s <= 42; ++s) expected.push_back(s);
  for (int s = 100; s <= 106; ++s) expected.push_back(s);
  for (int s = 200; s <= 211; ++s) expected.push_back(s);
  std::vector<int> subs;
  for (const LayerRow& row : ostrel::LayerRows()) subs.push_back(row.nSub);
  EXPECT_EQ(subs, expected);
}

TEST_F(LayerRows, PatternsHaveOnePlacePerArgument) {
  for (const LayerRow& row : ostrel::LayerRows()) {
    SCOPED_TRACE(row.nSub);
    if (row.sentence == LayerSentence::Pattern || row.sentence == LayerSentence::MenuTitle) {
      EXPECT_EQ(Places(row.strPattern), ArgCount(row));
    }
    for (const LayerCase& c : LayerCases()) {
      if (c.nSub == row.nSub && row.sentence != LayerSentence::ByLock) {
        EXPECT_EQ(Places(c.strText), ArgCount(row));
      }
    }
  }
}

// The highest item a sub-command reads: its arguments, and the mode or flag its sentence is chosen by.
size_t HighestItemRead(const LayerRow& row) {
  size_t highest = 1;
  for (const LayerArg& arg : row.args) {
    if (arg.kind != LayerArgKind::None && arg.nItem > highest) highest = arg.nItem;
  }
  switch (row.sentence) {
    case LayerSentence::Same:
    case LayerSentence::Pattern:
      break;
    case LayerSentence::MenuTitle:
    case LayerSentence::ByMode:
    case LayerSentence::ByBit:
    case LayerSentence::ByLock:
      highest = std::max<size_t>(highest, 2);
      break;
    case LayerSentence::ByFlag:
      highest = std::max<size_t>(highest, 3);
      break;
  }
  return highest;
}

// A sub-command asks for exactly the items it reads: no fewer (it would read past the line), no more.
TEST_F(LayerRows, EachSubCommandNeedsExactlyTheItemsItReads) {
  std::set<std::wstring_view> titles;
  for (const LayerRow& row : ostrel::LayerRows()) {
    SCOPED_TRACE(row.nSub);
    EXPECT_EQ(row.nItems, HighestItemRead(row) + 1);
    EXPECT_TRUE(titles.insert(row.strTitle).second);  // a shifted title would repeat one
  }
}

// "2" is a mode, a bit and a lock that every branch knows, so every sub-command succeeds with enough items.
TEST_F(LayerRows, OneItemShortFailsExactlyEnoughSucceeds) {
  for (const LayerRow& row : ostrel::LayerRows()) {
    SCOPED_TRACE(row.nSub);
    const Parsed enough = ParseItems(LayerItems(row.nSub, row.nItems, L"2"));
    EXPECT_EQ(enough.result, 1);
    EXPECT_FALSE(enough.title.empty());
    EXPECT_FALSE(enough.detail.empty());
    if (row.sentence == LayerSentence::Same) {
      EXPECT_EQ(enough.detail, enough.title);
    }
    if (row.sentence != LayerSentence::MenuTitle) {
      EXPECT_EQ(enough.title, row.strTitle);
    }

    const Parsed spare = ParseItems(LayerItems(row.nSub, row.nItems + 2, L"2"));  // spare items aren't looked at
    EXPECT_EQ(spare.detail, enough.detail);

    const Parsed shortLine = ParseItems(LayerItems(row.nSub, row.nItems - 1, L"2"));
    EXPECT_EQ(shortLine.result, 0);
    EXPECT_EQ(shortLine.title + shortLine.detail, L"");

    tagVantoScript direct;
    std::vector<std::wstring> items = LayerItems(row.nSub, row.nItems, L"2");
    items[0] = L"";
    EXPECT_EQ(Ostrel_ParseScriptLayer(items, direct), 1);
    EXPECT_EQ(direct.strDetail, enough.detail);
  }
}

// Sequence numbers are shown as recorded: every sub-command that shows an item shows "007", never "7".
TEST_F(LayerRows, RecordedItemsPassThroughUnchanged) {
  for (const LayerRow& row : ostrel::LayerRows()) {
    const LayerArg* shown = nullptr;
    for (const LayerArg& arg : row.args) {
      if (shown == nullptr && arg.kind == LayerArgKind::Item) shown = &arg;
    }
    if (shown == nullptr) continue;
    SCOPED_TRACE(row.nSub);
    std::vector<std::wstring> items = LayerItems(row.nSub, row.nItems, L"007");
    items[2] = L"2";  // the mode, bit or lock of a branch; as a sequence number it is shown as "2"
    const Parsed p = ParseItems(items);
    EXPECT_EQ(p.result, 1);
    EXPECT_NE(p.detail.find(shown->nItem == 2 ? L"2" : L"007"), std::wstring::npos) << p.detail;
    EXPECT_EQ(p.detail.find(L"%s"), std::wstring::npos);
  }
  EXPECT_EQ(ParseLine(L"LAYER,5,a b,007").detail, L"将序号a b图层，调整到007");
}

TEST_F(LayerRows, DoublePercentIsOnePercentSign) {
  size_t withPercent = 0;
  for (const LayerRow& row : ostrel::LayerRows()) {
    if (row.strPattern.find(L"%%") == std::wstring_view::npos) continue;
    SCOPED_TRACE(row.nSub);
    ++withPercent;
    const Parsed p = ParseItems(LayerItems(row.nSub, row.nItems, L"75"));
    EXPECT_EQ(p.detail.substr(p.detail.size() - 3), L"75%");
    EXPECT_EQ(p.detail.find(L"%%"), std::wstring::npos);
  }
  EXPECT_EQ(withPercent, 2u);
  EXPECT_EQ(ParseLine(L"LAYER,6,75").detail, L"设置图层不透明度为：75%");
  EXPECT_EQ(ParseLine(L"LAYER,7,5").detail, L"设置图层填充不透明度为：5%");
}

struct SentenceCase {
  const wchar_t* line;
  int result;
  const wchar_t* title;
  const wchar_t* detail;
};

// Each case names the mix-up it would catch.
const SentenceCase kSentences[] = {
    {L"LAYER,0,1", 1, L"图层面板", L"选择图层面板：通道"},
    {L"LAYER,0,3", 1, L"图层面板", L""},  // unknown tab: title only, still 1
    {L"LAYER,x,1", 1, L"图层面板", L"选择图层面板：通道"},
    {L"LAYER,x", 0, L"", L""},
    {L"LAYER,4,13", 1, L"图层混合模式", L"设置图层混合模式：叠加"},  // layer blend numbers, not the tools'
    {L"LAYER,4,abc", 1, L"图层混合模式", L"设置图层混合模式：穿透"},
    {L"LAYER,9,1,4", 1, L"选择图层", L"Ctrl 不连续方式选择图层：4"},
    {L"LAYER,11,3,9", 1, L"选择图层蒙版", L"图层序号9，蒙版选择：默认"},  // bit 1 before bit 2
    {L"LAYER,11,6,9", 1, L"选择图层蒙版", L"图层序号9，蒙版选择：图层蒙版"},
    {L"LAYER,11,8,9", 0, L"选择图层蒙版", L""},
    {L"LAYER,12,5,1,2", 1, L"拖移图层蒙版", L"将图层序号1，矢量蒙版拖移到2"},  // bit 1 is no drag
    {L"LAYER,12,1,1,2", 0, L"拖移图层蒙版", L""},
    {L"LAYER,13,0,1", 1, L"锁定图层", L"锁定全部"},
    {L"LAYER,13,3,0", 1, L"锁定图层", L"取消锁定透明像素"},
    {L"LAYER,13,4,1", 0, L"锁定图层", L"锁定"},  // unknown lock keeps the first word
    {L"LAYER,14,2,1", 1, L"折叠展开组", L"设置图层序号2，展开"},
    {L"LAYER,15,2,0", 1, L"图层可见性", L"设置图层序号2可见性为：不可见"},
    {L"LAYER,18,3,7", 1, L"停用图层蒙版", L"右键图层序号7，停用图层蒙版"},  // menu first, layer second
    {L"LAYER,18,26,7", 1, L"", L"右键图层序号7，"},
    {L"LAYER,20,18", 1, L"调整图层", L"调整图层:可选颜色"},
    {L"LAYER,21,1,2,4", 1, L"载入选区", L"将图层序号1载入选区模式【从选区减去】，图层模式【矢量蒙版】"},
    {L"LAYER,21,1,4,3", 1, L"载入选区", L"将图层序号1载入选区模式【】，图层模式【】"},
    {L"LAYER,29,3,64,1", 1, L"设置图层样式是否可见", L"图层序号3样式[描边]，可见1"},
    {L"LAYER,32,3,7", 1, L"图层样式右键菜单", L"图层序号3样式右键菜单[创建剪贴蒙版]"},  // layer first here
    {L"LAYER,36,3,4,100", 1, L"图层蒙版右键", L"图层序号3蒙版[矢量蒙版]右键菜单[建立选区]"},
    {L"LAYER,37,2,3,5", 1, L"图层蒙版拖动复制", L"蒙版[图层蒙版]图层序号3拖动复制目标图层序号[5]"},
    {L"LAYER,38,1,23,0", 1, L"滤镜效果是否可见", L"图层序号1滤镜[高斯模糊]，可见0"},
    {L"LAYER,101,4,1", 1, L"通道可见性", L"设置通道序号4，可见"},
    {L"LAYER,101,4,x", 1, L"通道可见性", L"设置通道序号4，不可见"},
    {L"LAYER,210,5,3", 1, L"利用快捷键载入选区", L"图层序号5载入选区模式【与选区相交】"},
    {L"LAYER,211,5,101", 1, L"路径右键菜单", L"图层序号5路径右键菜单[填充路径]"},
};

TEST_F(LayerRows, Sentences) {
  for (const SentenceCase& c : kSentences) {
    SCOPED_TRACE(testing::PrintToString(std::wstring(c.line)));
    const Parsed p = ParseLine(c.line);
    EXPECT_EQ(p.result, c.result);
    EXPECT_EQ(p.title, c.title);
    EXPECT_EQ(p.detail, c.detail);
  }
}

TEST_F(LayerRows, SubCommandsBetweenTheRangesFail) {
  for (int sub : {-1, 43, 99, 107, 199, 212, 300}) {
    SCOPED_TRACE(sub);
    const Parsed p = ParseItems(LayerItems(sub, 5, L"1"));
    EXPECT_EQ(p.result, 0);
    EXPECT_EQ(p.title + p.detail, L"");
  }
}

}  // namespace
}  // namespace ostrel
