// The words of the tool options: invariants over the name tables joined with the catalogue, the reading of the
// value, and the default gradient and pattern names.
#include "vocabulary/tool_option_names.h"

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "ostrel/tool_options.h"
#include "vocabulary/tool_option_catalogue.h"

namespace ostrel {
namespace {

// Options without a name of their own: the aspect fields, the warp buttons of the four type tools, and the
// shape fill and stroke run (kinds 31 to 44), whose sentences carry their own words.
bool HasNoName(const ToolOption& option) {
  static const std::set<int> kUnnamed = {519, 520, 2258, 2308, 2358, 2408};
  return kUnnamed.count(option.nId) || (option.nKind >= 31 && option.nKind <= 44);
}

// Every id each table lists, with the number of rows that list it.
template <class Rows>
std::map<long long, int> IdsOf(const Rows& rows) {
  std::map<long long, int> ids;
  for (const auto& row : rows) {
    for (const IdSpan& span : row.ids) {
      for (long long id = span.nFirst; id <= span.nLast; ++id) ++ids[id];
    }
  }
  return ids;
}

std::set<int> KindsOf(const std::map<long long, int>& ids) {
  std::set<int> kinds;
  for (const auto& [id, rows] : ids) kinds.insert(ToolOptionKind(id));
  return kinds;
}

TEST(ToolOptionNames, EachTableListsOptionsOfTheCatalogueOnceAndTablesOfOneLookupDontOverlap) {
  const auto byValue = IdsOf(NameByValueRows());
  const auto fixedNames = IdsOf(FixedNameRows());
  const auto valueLists = IdsOf(ValueListRows());
  const auto valueTexts = IdsOf(FixedValueTextRows());
  for (const auto* table : {&byValue, &fixedNames, &valueLists, &valueTexts}) {
    for (const auto& [id, rows] : *table) {
      SCOPED_TRACE(id);
      EXPECT_NE(FindToolOption(id), nullptr);
      EXPECT_EQ(rows, 1);
    }
  }
  for (const auto& [id, rows] : byValue) EXPECT_EQ(fixedNames.count(id), 0u) << id;
  for (const auto& [id, rows] : valueLists) EXPECT_EQ(valueTexts.count(id), 0u) << id;
}

// A kind swapped in the catalogue or an id moved between name rows shows as a kind with the wrong words.
TEST(ToolOptionNames, ValueWordsBelongToTheKindsThatShowThem) {
  EXPECT_EQ(KindsOf(IdsOf(ValueListRows())), (std::set<int>{1, 2, 3, 11, 12, 13, 14, 15, 18, 26}));
  EXPECT_EQ(KindsOf(IdsOf(FixedValueTextRows())), (std::set<int>{0, 2, 4, 5, 6, 15, 16, 17, 19}));
  EXPECT_EQ(KindsOf(IdsOf(NameByValueRows())), (std::set<int>{2, 3, 45}));
  const auto valueLists = IdsOf(ValueListRows());
  const auto valueTexts = IdsOf(FixedValueTextRows());
  for (const ToolOption& option : ToolOptionCatalogue()) {
    SCOPED_TRACE(option.nId);
    // The sentences of these kinds show V: it must be a name, not the value echoed.
    if (option.nKind == 3 || (option.nKind >= 12 && option.nKind <= 14) || option.nKind == 18) {
      EXPECT_EQ(valueLists.count(option.nId), 1u);
    }
    if (option.nKind == 5) {
      EXPECT_EQ(valueTexts.count(option.nId), 1u) << "a brush field names itself";
    }
  }
}

TEST(ToolOptionNames, EveryOptionHasANameButThoseWithout) {
  for (const ToolOption& option : ToolOptionCatalogue()) {
    SCOPED_TRACE(option.nId);
    const unsigned id = static_cast<unsigned>(option.nId);
    const bool named = !Ostrel_ToolFeaturesToName(id, L"0").empty() || !Ostrel_ToolFeaturesToName(id, L"1").empty();
    EXPECT_NE(named, HasNoName(option));
  }
}

TEST(ToolOptionNames, FixedWordsDontLookAtTheValue) {
  const auto fixedNames = IdsOf(FixedNameRows());
  const auto valueTexts = IdsOf(FixedValueTextRows());
  for (const wchar_t* value : {L"", L"0", L"1", L"-1", L"abc", L"99"}) {
    for (const auto& [id, rows] : fixedNames) {
      EXPECT_EQ(ToolOptionName(id, value), ToolOptionName(id, L"0")) << id;
    }
    for (const auto& [id, rows] : valueTexts) {
      EXPECT_EQ(ToolOptionValueName(id, value), ToolOptionValueName(id, L"0")) << id;
      EXPECT_FALSE(ToolOptionValueName(id, value).empty()) << id;
    }
  }
}

// Every entry of every value list is found by its number, also as _wtoi reads it with blanks and a tail.
TEST(ToolOptionNames, ValueListsNameTheirNumbersAndEchoOthers) {
  for (const ValueListRow& row : ValueListRows()) {
    for (const IdSpan& span : row.ids) {
      const unsigned id = static_cast<unsigned>(span.nFirst);
      SCOPED_TRACE(id);
      std::set<int> numbers;
      for (const NumberedName& entry : row.names) {
        numbers.insert(entry.nFirst);
        EXPECT_EQ(Ostrel_ToolFeaturesValueToName(id, std::to_wstring(entry.nFirst)), entry.szName);
        EXPECT_EQ(Ostrel_ToolFeaturesValueToName(id, L" " + std::to_wstring(entry.nFirst) + L"px"), entry.szName);
      }
      EXPECT_EQ(numbers.size(), row.names.size()) << "a number twice in one list";
      const std::wstring outside = L"77";
      EXPECT_EQ(Ostrel_ToolFeaturesValueToName(id, outside), row.szOtherwise ? row.szOtherwise : outside);
    }
  }
}

TEST(ToolOptionNames, OptionsWithoutValueWordsEchoTheValue) {
  const auto valueLists = IdsOf(ValueListRows());
  const auto valueTexts = IdsOf(FixedValueTextRows());
  for (const ToolOption& option : ToolOptionCatalogue()) {
    if (valueLists.count(option.nId) || valueTexts.count(option.nId)) continue;
    SCOPED_TRACE(option.nId);
    for (const wchar_t* value : {L"", L"0", L"宋体", L" 12,5"}) {
      EXPECT_EQ(Ostrel_ToolFeaturesValueToName(static_cast<unsigned>(option.nId), value), value);
    }
  }
}

struct WordCase {
  const char* what;
  unsigned id;
  const wchar_t* value;
  const wchar_t* name;       // Ostrel_ToolFeaturesToName
  const wchar_t* valueName;  // Ostrel_ToolFeaturesValueToName
};

const WordCase kWordCases[] = {
    {"empty value reads as 0", 50, L"", L"选区模式", L"新选区"},
    {"number outside the list is echoed", 50, L"7", L"选区模式", L"7"},
    {"list without 0 echoes the empty value", 2168, L"", L"描边端点样式", L""},
    {"list without 0 echoes 0", 2168, L"0", L"描边端点样式", L"0"},
    {"list numbers aren't positions", 2168, L"4", L"描边端点样式", L"圆面"},
    {"-1 is no anti-aliasing", 2254, L"-1", L"字体消除锯齿", L"无"},
    {"anti-alias list has no 0", 2254, L"0", L"字体消除锯齿", L"0"},
    {"blank in Windows LCD", 2354, L"5", L"字体消除锯齿", L"Windows LCD"},
    {"no blank for the vertical type tool", 2304, L"5", L"字体消除锯齿", L"WindowsLCD"},
    {"514 names every other number", 514, L"2", L"裁剪选项", L"裁剪屏蔽颜色模式"},
    {"514 names a value without digits", 514, L"x", L"裁剪选项", L"匹配画布"},
    {"named by value beyond its numbers", 650, L"4", L"", L"4"},
    {"named by value", 650, L"3", L"排列方式", L"置为底层"},
    {"run of numbers, first", 3, L"0", L"对齐方式", L"顶对齐"},
    {"run of numbers, last", 3, L"11", L"分布方式", L"按右分布"},
    {"names by value go to 3, values to 2", 2854, L"3", L"打印大小", L"3"},
    {"names by value for 2751", 2751, L"0", L"将当前窗口缩放为100%", L"100%"},
    {"3050 has no name for 0", 3050, L"0", L"", L"0"},
    {"3050 named by value", 3050, L"2", L"从选区减去", L"2"},
    {"brush picker field", 401, L"30", L"笔刷预设", L"大小"},
    {"brush picker field of the dodge tool", 2000, L"", L"笔刷预设", L"大小"},
    {"button in the blend mode list", 2530, L"1", L"建立蒙版", L"溶解"},
    {"shape fill has no name", 2151, L"1", L"", L"1"},
    {"no option", 3100, L"1", L"", L"1"},
    {"negative id is a large unsigned one", static_cast<unsigned>(-1), L"1", L"", L"1"},
    {"full-width parenthesis kept", 1204, L"12", L"模式", L"线性减淡（添加）"},
    {"full-width comma kept", 1357, L"5", L"混合画笔组合", L"湿润，浅混合"},
};

class ToolOptionWords : public testing::TestWithParam<WordCase> {};

TEST_P(ToolOptionWords, NameAndValueName) {
  const WordCase& c = GetParam();
  EXPECT_EQ(Ostrel_ToolFeaturesToName(c.id, c.value), c.name);
  EXPECT_EQ(Ostrel_ToolFeaturesValueToName(c.id, c.value), c.valueName);
}

INSTANTIATE_TEST_SUITE_P(Cases, ToolOptionWords, testing::ValuesIn(kWordCases),
                         [](const testing::TestParamInfo<WordCase>& info) {
                           std::string name;
                           for (const char* p = info.param.what; *p; ++p) name += std::isalnum(*p) ? *p : '_';
                           return name;
                         });

TEST(DefaultGradientNames, OnlyTheWholeResourceStringIsTranslated) {
  EXPECT_EQ(Ostrel_TransfGradualName(L"$$$/DefaultGradient/Copper=Copper"), L"铜色渐变");
  EXPECT_EQ(Ostrel_TransfGradualName(L"$$$/DefaultGradient/NeutralDensity=Neutral Density"), L"中灰密度");
  for (const wchar_t* other : {L"Copper", L"$$$/DefaultGradient/Copper=Copper ", L"$$$/DefaultGradient/copper=Copper",
                               L"", L"我的渐变"}) {
    EXPECT_EQ(Ostrel_TransfGradualName(other), other);
  }
}

TEST(DefaultPatternNames, FirstSubstringFoundWins) {
  EXPECT_EQ(Ostrel_TransfPatternName(L"Watercolor 2"), L"水彩") << "Watercolor before Water";
  EXPECT_EQ(Ostrel_TransfPatternName(L"Water 3"), L"水滴");
  EXPECT_EQ(Ostrel_TransfPatternName(L"$$$/Pattern/Noise=Noise"), L"杂色") << "anywhere in the name";
  EXPECT_EQ(Ostrel_TransfPatternName(L"Yellow Mums Noise"), L"杂色") << "step order, not position in the name";
  EXPECT_EQ(Ostrel_TransfPatternName(L"Right Diagonal Line 1"), L"右对角线 1");
  EXPECT_EQ(Ostrel_TransfPatternName(L"Yellow Mums"), L"黄菊");
  for (const wchar_t* other : {L"watercolor", L"Grid 2", L"", L"Ant  Farm"}) {
    EXPECT_EQ(Ostrel_TransfPatternName(other), other);
  }
}

}  // namespace
}  // namespace ostrel
