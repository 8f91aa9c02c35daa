// The words of the tool options: invariants over the name tables joined with the catalogue, the reading of the
// value, and the default gradient and pattern names.
#include "vocabulary/tool_option_names.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "ostrel/tool_options.h"
#include "table_test_support.h"
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

// Each table lists options of the catalogue, each once; the tables of one lookup don't overlap (the second would
// never be read); and the value words belong to the kinds that show them, so that a kind swapped in the
// catalogue or an id moved between name rows shows as a kind with the wrong words.
TEST(ToolOptionNames, TablesListOptionsOnceWithoutOverlapAndForTheirKinds) {
  const auto byValue = IdsOf(NameByValueRows());
  const auto fixedNames = IdsOf(FixedNameRows());
  const auto valueLists = IdsOf(ValueListRows());
  const auto valueTexts = IdsOf(FixedValueTextRows());
  for (const auto* table : {&byValue, &fixedNames, &valueLists, &valueTexts}) {
    for (const auto& [id, rows] : *table) EXPECT_TRUE(FindToolOption(id) && rows == 1) << id;
  }
  for (const auto& [id, rows] : byValue) EXPECT_EQ(fixedNames.count(id), 0u) << id;
  for (const auto& [id, rows] : valueLists) EXPECT_EQ(valueTexts.count(id), 0u) << id;
  EXPECT_EQ(KindsOf(valueLists), (std::set<int>{1, 2, 3, 11, 12, 13, 14, 15, 18, 26}));
  EXPECT_EQ(KindsOf(valueTexts), (std::set<int>{0, 2, 4, 5, 6, 15, 16, 17, 19}));
  EXPECT_EQ(KindsOf(byValue), (std::set<int>{2, 3, 45}));
  for (const ToolOption& option : ToolOptionCatalogue()) {
    const int kind = option.nKind;
    // The sentences of these kinds show V: it must be a name, not the value echoed.
    const bool showsValueName = kind == 3 || (kind >= 12 && kind <= 14) || kind == 18;
    EXPECT_TRUE(!showsValueName || valueLists.count(option.nId)) << option.nId;
    EXPECT_TRUE(kind != 5 || valueTexts.count(option.nId)) << "a brush field names itself: " << option.nId;
  }
}

// Every option but those without has a name for some value. The fingerprint over the names and value names of
// every option for the values -1 to 30 catches a changed word or an id or number moved to another row.
TEST(ToolOptionNames, EveryOptionHasANameButThoseWithout) {
  std::wstring words;
  for (const ToolOption& option : ToolOptionCatalogue()) {
    SCOPED_TRACE(option.nId);
    const unsigned id = static_cast<unsigned>(option.nId);
    bool named = false;
    for (int value = -1; value <= 30; ++value) {
      const std::wstring name = Ostrel_ToolFeaturesToName(id, std::to_wstring(value));
      named = named || !name.empty();
      words += name + L'|' + Ostrel_ToolFeaturesValueToName(id, std::to_wstring(value)) + L'\n';
    }
    EXPECT_NE(named, HasNoName(option));
  }
  EXPECT_EQ(test_support::Fingerprint(ToUtf8(words)), 0xbe3899d7b0f21cc1ULL);
}

struct WordCase {
  const char* what;
  unsigned id;
  const wchar_t* value;
  const wchar_t* name;       // Ostrel_ToolFeaturesToName
  const wchar_t* valueName;  // Ostrel_ToolFeaturesValueToName
};

constexpr WordCase kWordCases[] = {
    {"empty value reads as 0", 50, L"", L"选区模式", L"新选区"},
    {"list without 0 echoes the empty value", 2168, L"", L"描边端点样式", L""},
    {"514 names a value without digits", 514, L"x", L"裁剪选项", L"匹配画布"},
    {"named by value beyond its numbers", 650, L"4", L"", L"4"},
    {"run of numbers, last", 3, L"11", L"分布方式", L"按右分布"},
    {"names by value go to 3, values to 2", 2854, L"3", L"打印大小", L"3"},
    {"3050 has no name for 0", 3050, L"0", L"", L"0"},
    {"no blank for the vertical type tool", 2304, L"5", L"字体消除锯齿", L"WindowsLCD"},
    {"value without words echoed as it came", 2251, L" 宋体,1", L"字体名称", L" 宋体,1"},
    {"no option", 3100, L"1", L"", L"1"},
    {"negative id is a large unsigned one", static_cast<unsigned>(-1), L"1", L"", L"1"},
};

TEST(ToolOptionNames, NameAndValueNameOfOddCases) {
  for (const WordCase& c : kWordCases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(Ostrel_ToolFeaturesToName(c.id, c.value), c.name);
    EXPECT_EQ(Ostrel_ToolFeaturesValueToName(c.id, c.value), c.valueName);
  }
}

// Words checked by value: the first and last row of each table, numbers after a gap in a list, and the odd
// spellings (full-width brackets, "Windows LCD" against "WindowsLCD", an option in two tables).
constexpr WordCase kWordRows[] = {
    {"first fixed name", 0, L"1", L"自动选择", L"1"},
    {"last fixed name", 2906, L"5", L"垂直斜切", L"5"},
    {"first name by value", 3, L"5", L"对齐方式", L"右对齐"},
    {"name by value after the run of 0-5", 3, L"6", L"分布方式", L"按顶分布"},
    {"last value of the first list", 653, L"11", L"分布方式", L"按右分布"},
    {"last name by value", 3050, L"2", L"从选区减去", L"2"},
    {"blend list after the gap 10-27", 955, L"27", L"模式", L"颜色"},
    {"full-width brackets", 1006, L"12", L"模式", L"线性减淡（添加）"},
    {"a button that is also in the mode list", 2530, L"1", L"建立蒙版", L"溶解"},
    {"list counting from 3", 2168, L"3", L"描边端点样式", L"端面"},
    {"list counting from 6, its last", 2169, L"8", L"描边角点样式", L"斜面"},
    {"Windows LCD with a blank", 2254, L"5", L"字体消除锯齿", L"Windows LCD"},
    {"-1 is no anti-aliasing", 2404, L"-1", L"字体消除锯齿", L"无"},
    {"blanks inside a value name", 451, L"1", L"取样大小", L"3 x 3 平均"},
    {"last value of a long list", 1357, L"12", L"混合画笔组合", L"非常潮湿，深混合"},
    {"last value list", 2850, L"1", L"缩放方式", L"缩小"},
    {"first fixed text", 401, L"30", L"笔刷预设", L"大小"},
    {"one fixed text under two names", 2677, L"3", L"选项", L"宽度"},
    {"last fixed text", 2853, L"1", L"细微缩放", L"细微缩放"},
};

TEST(ToolOptionNames, WordsByValue) {
  for (const WordCase& c : kWordRows) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(Ostrel_ToolFeaturesToName(c.id, c.value), c.name);
    EXPECT_EQ(Ostrel_ToolFeaturesValueToName(c.id, c.value), c.valueName);
  }
  const std::pair<const wchar_t*, const wchar_t*> kGradients[] = {
      {L"$$$/DefaultGradient/ForegroundToBackground=Foreground to Background", L"前景色到背景色渐变"},  // first
      {L"$$$/DefaultGradient/Spectrum=Spectrum", L"色谱"},  // the one without 渐变
      {L"$$$/DefaultGradient/YellowVioletOrangeBlue=Yellow, Violet, Orange, Blue", L"黄紫橙蓝渐变"},
  };
  for (const auto& [name, chinese] : kGradients) EXPECT_EQ(Ostrel_TransfGradualName(name), chinese);
  EXPECT_EQ(Ostrel_TransfPatternName(L"Dots 1"), L"网点 1");
  EXPECT_EQ(Ostrel_TransfPatternName(L"Ant Farm"), L"蚁穴");
}

TEST(DefaultGradientAndPatternNames, WholeResourceStringsAndFirstSubstringFound) {
  EXPECT_EQ(Ostrel_TransfGradualName(L"$$$/DefaultGradient/Copper=Copper"), L"铜色渐变");
  EXPECT_EQ(Ostrel_TransfGradualName(L"$$$/DefaultGradient/NeutralDensity=Neutral Density"), L"中灰密度");
  for (const wchar_t* other : {L"Copper", L"$$$/DefaultGradient/Copper=Copper ", L"$$$/DefaultGradient/copper=Copper",
                               L"", L"我的渐变"}) {
    EXPECT_EQ(Ostrel_TransfGradualName(other), other);
  }
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
