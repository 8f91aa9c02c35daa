// The row TF: the sentence of every kind, checked over the whole catalogue and on representative lines.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "ostrel/tool_options.h"
#include "script/checked_parse.h"
#include "script_test_support.h"
#include "vocabulary/tool_option_catalogue.h"
#include "../support/fingerprint.h"
#include "../support/line_cases.h"

namespace ostrel {
namespace {

using test_support::Parsed;
using test_support::ParseItems;

const std::set<int> kKindsWithoutSentence = {7, 10, 17, 20, 32, 45};

bool EndsWith(const std::wstring& text, const std::wstring& tail) {
  return text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

// What the sentence of a successful line must show, by the option's kind.
void CheckSentence(const ToolOption& option, const std::wstring& value, const Parsed& parsed) {
  EXPECT_EQ(parsed.title.empty(), option.nId == 519 || option.nId == 520) << "only unnamed options lack a title";
  EXPECT_FALSE(parsed.detail.empty());
  const int kind = option.nKind;
  // Kinds 39 and 40 have a plain colon, every other sentence the full-width one or none.
  const bool plainColonKind = kind == 39 || kind == 40;
  EXPECT_EQ(parsed.detail.find(L':') != std::wstring::npos, plainColonKind);
  EXPECT_FALSE(plainColonKind && parsed.detail.find(L'：') != std::wstring::npos);
  const std::wstring unit = Ostrel_GetToolFeaturesValueUnits(EnToolFeatures{option.nId});
  const std::wstring valueName = Ostrel_ToolFeaturesValueToName(static_cast<unsigned>(option.nId), value);
  EXPECT_TRUE(kind != 1 || EndsWith(parsed.detail, L"为：" + value));
  EXPECT_TRUE(kind != 4 || EndsWith(parsed.detail, L"为：" + value + unit)) << "value, then unit, no blank";
  EXPECT_TRUE(kind != 5 || parsed.title == valueName) << "the field is the title";
  const bool showsValueName = kind == 3 || (kind >= 12 && kind <= 14) || kind == 18;
  EXPECT_TRUE(!showsValueName || EndsWith(parsed.detail, L"为：" + valueName));
}

// Over every option and values that every option named by its value has a name for: which lines succeed, and
// the shape of what they give. The direct function gives the dispatcher's step and ignores item 0. The
// fingerprint over all the steps catches a changed title or sentence of any kind.
TEST(ToolFeaturesRow, EveryKindWithASentenceSucceedsOverTheWholeCatalogue) {
  std::wstring steps;
  for (const ToolOption& option : ToolOptionCatalogue()) {
    for (const std::wstring value : {L"1", L"0", L"", L"2"}) {
      SCOPED_TRACE(testing::Message() << option.nId << " value " << ToUtf8(value));
      const std::wstring id = std::to_wstring(option.nId);
      const Parsed parsed = ParseItems({L"TF", id, value});
      ASSERT_EQ(ParseItems({L"XYZ", id, value}, Ostrel_ParseScriptToolFeatures), parsed);
      steps += Format(L"%s,%s %d %s|%s\n", id, value, parsed.result, parsed.title, parsed.detail);
      const bool strokeColour = option.nKind == 38 && WToI(value) != 0;
      const bool expected = !kKindsWithoutSentence.count(option.nKind) && !strokeColour;
      ASSERT_EQ(parsed.result, expected ? 1 : 0);
      if (expected) {
        CheckSentence(option, value, parsed);
      } else {
        EXPECT_EQ(parsed, (Parsed{0, L"", L""}));
      }
    }
  }
  EXPECT_EQ(test_support::Fingerprint(ToUtf8(steps)), 0xd36df36ae804016eULL);
}

constexpr test_support::LineCase kLineCases[] = {
    {L"TF,51,10", 1, L"羽化", L"设置羽化为：10像素"},
    {L"TF,51,007", 1, L"羽化", L"设置羽化为：007像素"},  // the value as recorded
    {L"TF,51", 1, L"羽化", L"设置羽化为：像素"},  // a missing value leaves its place empty
    {L"TF,51,1,5", 1, L"羽化", L"设置羽化为：1像素"},  // the value is cut at a comma
    {L"TF, 51x,3", 1, L"羽化", L"设置羽化为：3像素"},  // the id read as _wtoi reads it
    {L"TF,0,2", 1, L"自动选择", L"取消勾选自动选择"},  // only 1 ticks a check box
    {L"TF,2176,1", 1, L"建立蒙版", L"点击【建立蒙版】"},  // a button named by its value
    {L"TF,509,9", 1, L"叠加", L"设置裁剪叠加为："},  // crop overlay 9 is unknown
    {L"TF,2253,24", 1, L"字体大小", L"选择字体样式：24像素"},  // the font size sentence says 字体样式
    {L"TF,2254,5", 1, L"字体抗锯齿", L"设置抗锯齿为：WindowsLCD"},  // from the filter list, without a blank
    {L"TF,2451,ff0000", 1, L"形状填充无颜色", L"设置形状填充为：无颜色"},  // hex without digits reads as 0
    {L"TF,2158,5", 0, L"", L""},  // a stroke with a colour has no sentence
    {L"TF,2159,ff0000", 1, L"形状描边纯色", L"设置形状描边纯色为:ff0000"},
    {L"TF,2262,p", 1, L"形状描边图案", L"设置形状描边图案为：p"},  // an id outside its owner's block
    {L"TF,3050,1", 0, L"", L""},
    {L"TF,555,1", 0, L"", L""},  // no option
    {L"TF,-1,1", 0, L"", L""},
    {L"TF", 0, L"", L""},
    {L"tf,51,10", 0, L"", L""},
};

// One line per kind checked by value: the first and last kind, the kinds after the kinds without a sentence,
// and the sentences with a plain colon or an odd word.
constexpr test_support::LineCase kKindLines[] = {
    {L"TF,0,1", 1, L"自动选择", L"勾选自动选择"},  // kind 0, the first
    {L"TF,52,1", 1, L"样式", L"设置样式为：1"},  // 1: the value as recorded
    {L"TF,58,0", 1, L"选择并遮住", L"点击【选择并遮住】"},  // 2
    {L"TF,50,3", 1, L"选区模式", L"设置选区模式为：与选区相交"},  // 3
    {L"TF,401,30", 1, L"大小", L"设置笔刷预设-大小为：30"},  // 5: the field is the title
    {L"TF,1202,柔边圆", 1, L"选择画笔", L"选择画笔为：柔边圆"},  // 6
    {L"TF,1005,1", 1, L"仿制源", L"设置仿制源"},  // 8, after 7 without a sentence
    {L"TF,508,5", 1, L"叠加", L"设置裁剪叠加为：金色螺线"},  // 11, after 10 without a sentence
    {L"TF,2171,5", 1, L"路径选项", L"设置路径选项为：合并形状组件"},  // 12
    {L"TF,2952,3", 1, L"路径排列方式", L"设置路径排列方式为：将形状置为底层"},  // 14
    {L"TF,2225,2", 1, L"选项", L"设置选项 - 曲线拟合：2"},  // 15
    {L"TF,2168,4", 1, L"描边样式", L"设置描边端点样式为：圆面"},  // 18, after 17 without a sentence
    {L"TF,2170,1", 1, L"描边样式更多", L"描边样式更多"},  // 19
    {L"TF,1750,x", 1, L"渐变", L"选择渐变为：x"},  // 21, after 20 without a sentence
    {L"TF,2251,SimSun", 1, L"字体名称", L"选择字体名称：SimSun"},  // 23
    {L"TF,2250,1", 1, L"切换文本方向", L"切换文本方向"},  // 30
    {L"TF,2151,255", 1, L"形状填充纯色", L"设置形状填充纯色为：255"},  // 31 with a colour
    {L"TF,2153,蓝色_01", 1, L"形状填充渐变", L"设置形状填充渐变为：蓝色_01"},  // 33, after 32 without a sentence
    {L"TF,2158,0", 1, L"形状描边无颜色", L"设置形状描边无颜色"},  // 38 without a colour
    {L"TF,2160,g", 1, L"形状描边渐变", L"设置形状描边渐变为:g"},  // 40: a plain colon
    {L"TF,2161,1", 1, L"形状描边渐变参数", L"设置形状描边渐变参数"},  // 41: no place for the value
    {L"TF,2164,1", 1, L"形状描边颜色", L"设置形状描边颜色"},  // 44, the last
};

TEST(ToolFeaturesRow, OneLinePerKindByValue) { test_support::ExpectSteps(kKindLines); }

TEST(ToolFeaturesRow, RepresentativeLines) { test_support::ExpectSteps(kLineCases); }

TEST(ToolFeaturesRow, DirectFunctionNeedsItemZero) {
  EXPECT_EQ(ParseItems({L"51", L"10"}, Ostrel_ParseScriptToolFeatures).result, 0) << "item 0 isn't the id";
  EXPECT_EQ(ParseItems({L"", L"51"}, Ostrel_ParseScriptToolFeatures).detail, L"设置羽化为：像素");
  EXPECT_EQ(ParseItems({L"51"}, Ostrel_ParseScriptToolFeatures), (Parsed{0, L"", L""}));
}

// A lesson checker counts the vocabulary names of a sentence that came back empty, not the value or the unit.
TEST(ToolFeaturesRow, EmptyNamesAreCountedForTheChecker) {
  const std::pair<const wchar_t*, int> kCases[] = {
      {L"TF,51,10", 0},
      {L"TF,1750", 0},   // no value, no unit: no name is missing
      {L"TF,519,3", 1},  // an option without a name
      {L"TF,650,9", 1},  // named by value, 9 has no name
      {L"TF,509,9", 1},  // crop overlay 9 is unknown
      {L"TF,2254,9", 1},  // anti-aliasing 9 is unknown
      {L"TF,2159,", 0},
  };
  for (const auto& [line, emptyNames] : kCases) {
    tagVantoScript script;
    const CheckedParse parsed = ParseScriptChecked(line, script);
    EXPECT_EQ(parsed.nResult, 1) << ToUtf8(line);
    EXPECT_EQ(parsed.nEmptyNames, emptyNames) << ToUtf8(line);
  }
}

}  // namespace
}  // namespace ostrel
