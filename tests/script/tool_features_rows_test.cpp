// The row TF: the sentence of every kind, checked over the whole catalogue and on representative lines.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "ostrel/script.h"
#include "script/checked_parse.h"
#include "ostrel/tool_options.h"
#include "platform/text.h"
#include "vocabulary/tool_option_catalogue.h"

namespace ostrel {
namespace {

struct Parsed {
  int result;
  std::wstring title;
  std::wstring detail;
};

Parsed ParseLine(const std::wstring& line) {
  tagVantoScript script{L"old title", L"old detail"};
  const int result = Ostrel_ParseScript(line, script);
  return {result, script.strTitle, script.strDetail};
}

Parsed ParseDirect(std::vector<std::wstring> items) {
  tagVantoScript script{L"old title", L"old detail"};
  const int result = Ostrel_ParseScriptToolFeatures(std::move(items), script);
  return {result, script.strTitle, script.strDetail};
}

const std::set<int> kKindsWithoutSentence = {7, 10, 17, 20, 32, 45};

bool EndsWith(const std::wstring& text, const std::wstring& tail) {
  return text.size() >= tail.size() && text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

// What the sentence of a successful line must show, by the option's kind.
void CheckSentence(const ToolOption& option, const std::wstring& value, const Parsed& parsed) {
  EXPECT_EQ(parsed.title.empty(), option.nId == 519 || option.nId == 520) << "only unnamed options lack a title";
  EXPECT_FALSE(parsed.detail.empty());
  // Kinds 39 and 40 have a plain colon, every other sentence the full-width one or none.
  const bool plainColonKind = option.nKind == 39 || option.nKind == 40;
  EXPECT_EQ(parsed.detail.find(L':') != std::wstring::npos, plainColonKind);
  if (plainColonKind) {
    EXPECT_EQ(parsed.detail.find(L'：'), std::wstring::npos);
  }
  const unsigned id = static_cast<unsigned>(option.nId);
  const std::wstring unit = Ostrel_GetToolFeaturesValueUnits(EnToolFeatures{option.nId});
  const std::wstring valueName = Ostrel_ToolFeaturesValueToName(id, value);
  switch (option.nKind) {
    case 1: EXPECT_TRUE(EndsWith(parsed.detail, L"为：" + value)); break;
    case 4: EXPECT_TRUE(EndsWith(parsed.detail, L"为：" + value + unit)) << "value, then unit, no blank"; break;
    case 5: EXPECT_EQ(parsed.title, valueName) << "the field is the title"; break;
    case 3:
    case 12:
    case 13:
    case 14:
    case 18: EXPECT_TRUE(EndsWith(parsed.detail, L"为：" + valueName)); break;
    default: break;
  }
}

// Over every option and values that every option named by its value has a name for: which lines succeed, and
// the shape of what they give.
TEST(ToolFeaturesRow, EveryKindWithASentenceSucceedsOverTheWholeCatalogue) {
  for (const ToolOption& option : ToolOptionCatalogue()) {
    for (const std::wstring value : {L"1", L"0", L"", L"2"}) {
      SCOPED_TRACE(testing::Message() << option.nId << " value " << ToUtf8(value));
      const Parsed parsed = ParseLine(L"TF," + std::to_wstring(option.nId) + L"," + value);
      const bool strokeColour = option.nKind == 38 && WToI(value) != 0;
      const bool expected = !kKindsWithoutSentence.count(option.nKind) && !strokeColour;
      ASSERT_EQ(parsed.result, expected ? 1 : 0);
      if (expected) {
        CheckSentence(option, value, parsed);
      } else {
        EXPECT_EQ(parsed.title, L"");
        EXPECT_EQ(parsed.detail, L"");
      }
    }
  }
}

TEST(ToolFeaturesRow, DirectFunctionAndDispatcherAgreeAndIgnoreItemZero) {
  for (const ToolOption& option : ToolOptionCatalogue()) {
    SCOPED_TRACE(option.nId);
    const std::wstring id = std::to_wstring(option.nId);
    const Parsed line = ParseLine(L"TF," + id + L",2");
    const Parsed direct = ParseDirect({L"XYZ", id, L"2"});
    EXPECT_EQ(direct.result, line.result);
    EXPECT_EQ(direct.title, line.title);
    EXPECT_EQ(direct.detail, line.detail);
  }
}

struct LineCase {
  const char* what;
  const wchar_t* line;
  int result;
  const wchar_t* title;
  const wchar_t* detail;
};

const LineCase kLineCases[] = {
    {"feather_kind_4", L"TF,51,10", 1, L"羽化", L"设置羽化为：10像素"},
    {"value_as_recorded", L"TF,51,007", 1, L"羽化", L"设置羽化为：007像素"},
    {"missing_value_leaves_its_place_empty", L"TF,51", 1, L"羽化", L"设置羽化为：像素"},
    {"value_cut_at_a_comma", L"TF,51,1,5", 1, L"羽化", L"设置羽化为：1像素"},
    {"check_box_ticked", L"TF,0,1", 1, L"自动选择", L"勾选自动选择"},
    {"check_box_0", L"TF,0,0", 1, L"自动选择", L"取消勾选自动选择"},
    {"check_box_2", L"TF,0,2", 1, L"自动选择", L"取消勾选自动选择"},
    {"check_box_empty", L"TF,0,", 1, L"自动选择", L"取消勾选自动选择"},
    {"drop_down_kind_1", L"TF,1010,2", 1, L"样本", L"设置样本为：2"},
    {"button_kind_2", L"TF,58", 1, L"选择并遮住", L"点击【选择并遮住】"},
    {"button_named_by_value", L"TF,2176,1", 1, L"建立蒙版", L"点击【建立蒙版】"},
    {"icon_row_kind_3", L"TF,50,1", 1, L"选区模式", L"设置选区模式为：添加到选区"},
    {"icon_row_named_by_value", L"TF,650,2", 1, L"排列方式", L"设置排列方式为：后移一层"},
    {"brush_field_kind_5", L"TF,401,30", 1, L"大小", L"设置笔刷预设-大小为：30"},
    {"brush_preset_kind_6", L"TF,1202,柔边圆", 1, L"选择画笔", L"选择画笔为：柔边圆"},
    {"clone_source_kind_8", L"TF,1404,9", 1, L"仿制源", L"设置仿制源"},
    {"pattern_kind_9", L"TF,1801,Noise", 1, L"选择图案", L"选择图案为：Noise"},
    {"crop_overlay_kind_11", L"TF,508,3", 1, L"叠加", L"设置裁剪叠加为：三角形"},
    {"crop_overlay_unknown_number", L"TF,509,9", 1, L"叠加", L"设置裁剪叠加为："},
    {"path_operation_kind_12", L"TF,2171,2", 1, L"路径选项", L"设置路径选项为：减去顶层形状"},
    {"path_alignment_kind_13", L"TF,2951,12", 1, L"路径对齐方式", L"设置路径对齐方式为：按宽度均匀分布"},
    {"path_arrangement_kind_14", L"TF,3002,3", 1, L"路径排列方式", L"设置路径排列方式为：将形状置为底层"},
    {"options_kind_15_blank_dash_blank", L"TF,510,1", 1, L"选项", L"设置选项 - 显示经典模式：1"},
    {"custom_shape_kind_16", L"TF,2728,心形", 1, L"选择形状", L"选择形状为：心形"},
    {"stroke_style_kind_18", L"TF,2169,7", 1, L"描边样式", L"设置描边角点样式为：圆形"},
    {"stroke_more_kind_19", L"TF,2570", 1, L"描边样式更多", L"描边样式更多"},
    {"gradient_kind_21", L"TF,1750,x", 1, L"渐变", L"选择渐变为：x"},
    {"gradient_preset_kind_22", L"TF,1751,铜色渐变", 1, L"渐变预设", L"选择渐变预设为：铜色渐变"},
    {"font_name_kind_23", L"TF,2251,SimSun", 1, L"字体名称", L"选择字体名称：SimSun"},
    {"font_style_kind_24", L"TF,2302,Bold", 1, L"字体样式", L"选择字体样式：Bold"},
    {"font_size_kind_25_says_style", L"TF,2253,24", 1, L"字体大小", L"选择字体样式：24像素"},
    {"font_anti_alias_kind_26_from_the_filter_list", L"TF,2254,5", 1, L"字体抗锯齿", L"设置抗锯齿为：WindowsLCD"},
    {"font_anti_alias_0", L"TF,2404,0", 1, L"字体抗锯齿", L"设置抗锯齿为：无"},
    {"font_colour_kind_27", L"TF,2256", 1, L"字体颜色", L"设置字体颜色"},
    {"type_panels_kind_28", L"TF,2357", 1, L"字符段落", L"设置字符段落面板"},
    {"warp_text_kind_29", L"TF,2408", 1, L"变形文字", L"设置变形文字"},
    {"orientation_kind_30", L"TF,2250,1", 1, L"切换文本方向", L"切换文本方向"},
    {"fill_no_colour", L"TF,2151,0", 1, L"形状填充无颜色", L"设置形状填充为：无颜色"},
    {"fill_hex_without_digits_reads_0", L"TF,2451,ff0000", 1, L"形状填充无颜色", L"设置形状填充为：无颜色"},
    {"fill_solid", L"TF,2501,16711680", 1, L"形状填充纯色", L"设置形状填充纯色为：16711680"},
    {"fill_gradient_kind_33", L"TF,2553,g", 1, L"形状填充渐变", L"设置形状填充渐变为：g"},
    {"fill_gradient_parameters_kind_34", L"TF,2604", 1, L"形状填充渐变参数", L"设置形状填充渐变参数"},
    {"fill_pattern_kind_35", L"TF,2655,p", 1, L"形状填充图案", L"设置形状填充图案为：p"},
    {"fill_pattern_scale_kind_36", L"TF,2706,50", 1, L"形状填充图案缩放", L"设置形状填充图案缩放为：50"},
    {"fill_colour_box_kind_37", L"TF,2157", 1, L"形状填充颜色", L"设置形状填充颜色"},
    {"stroke_no_colour", L"TF,2158,0", 1, L"形状描边无颜色", L"设置形状描边无颜色"},
    {"stroke_kind_38_with_a_colour_fails", L"TF,2158,5", 0, L"", L""},
    {"stroke_solid_plain_colon", L"TF,2159,ff0000", 1, L"形状描边纯色", L"设置形状描边纯色为:ff0000"},
    {"stroke_gradient_plain_colon", L"TF,2210,g", 1, L"形状描边渐变", L"设置形状描边渐变为:g"},
    {"stroke_gradient_parameters_kind_41", L"TF,2461", 1, L"形状描边渐变参数", L"设置形状描边渐变参数"},
    {"stroke_pattern_outside_block", L"TF,2262,p", 1, L"形状描边图案", L"设置形状描边图案为：p"},
    {"stroke_pattern_scale_outside_block", L"TF,2113,25", 1, L"形状描边图案缩放", L"设置形状描边图案缩放为：25"},
    {"stroke_colour_box_kind_44", L"TF,2114", 1, L"形状描边颜色", L"设置形状描边颜色"},
    {"brush_panel_kind_7_has_no_sentence", L"TF,1203", 0, L"", L""},
    {"option_3050_has_no_sentence", L"TF,3050,1", 0, L"", L""},
    {"no_option_555", L"TF,555,1", 0, L"", L""},
    {"negative_id", L"TF,-1,1", 0, L"", L""},
    {"keyword_alone", L"TF", 0, L"", L""},
    {"keyword_of_another_case", L"tf,51,10", 0, L"", L""},
    {"id_read_as_wtoi", L"TF, 51x,3", 1, L"羽化", L"设置羽化为：3像素"},
};

class ToolFeaturesLine : public testing::TestWithParam<LineCase> {};

TEST_P(ToolFeaturesLine, TitleAndSentence) {
  const LineCase& c = GetParam();
  const Parsed parsed = ParseLine(c.line);
  EXPECT_EQ(parsed.result, c.result);
  EXPECT_EQ(parsed.title, c.title);
  EXPECT_EQ(parsed.detail, c.detail);
}

INSTANTIATE_TEST_SUITE_P(Cases, ToolFeaturesLine, testing::ValuesIn(kLineCases),
                         [](const testing::TestParamInfo<LineCase>& info) { return std::string(info.param.what); });

TEST(ToolFeaturesRow, DirectFunctionNeedsItemZero) {
  EXPECT_EQ(ParseDirect({L"51", L"10"}).result, 0) << "item 0 isn't the id: 10 is no option";
  EXPECT_EQ(ParseDirect({L"", L"51"}).detail, L"设置羽化为：像素");
  const Parsed tooShort = ParseDirect({L"51"});
  EXPECT_EQ(tooShort.result, 0);
  EXPECT_EQ(tooShort.title, L"");
  EXPECT_EQ(tooShort.detail, L"");
  EXPECT_EQ(ParseDirect({}).result, 0);
}

// A lesson checker counts the vocabulary names of a sentence that came back empty, not the value or the unit.
TEST(ToolFeaturesRow, EmptyNamesAreCountedForTheChecker) {
  struct Case {
    const wchar_t* line;
    int emptyNames;
  };
  const Case cases[] = {
      {L"TF,51,10", 0},  {L"TF,1750", 0},   // no value, no unit: no name is missing
      {L"TF,519,3", 1},                      // an option without a name
      {L"TF,650,9", 1},                      // named by value, 9 has no name
      {L"TF,509,9", 1},                      // crop overlay 9 is unknown
      {L"TF,2254,9", 1},                     // anti-aliasing 9 is unknown
      {L"TF,2254,4", 0}, {L"TF,2159,", 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(ToUtf8(c.line));
    tagVantoScript script;
    const CheckedParse parsed = ParseScriptChecked(c.line, script);
    EXPECT_EQ(parsed.nResult, 1);
    EXPECT_EQ(parsed.nEmptyNames, c.emptyNames);
  }
}

}  // namespace
}  // namespace ostrel
