// The preset catalogues and their class lookups.
#include "vocabulary/preset_catalogues.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>

#include "ostrel/presets.h"
#include "platform/text.h"

namespace ostrel {
namespace {

TEST(PresetCatalogueTest, EachNameStandsInOneClassAndClassesAreContiguous) {
  const std::map<PresetCatalogue, size_t> kRows = {{PresetCatalogue::Brush, 98},   {PresetCatalogue::Color, 122},
                                                   {PresetCatalogue::Gradient, 30}, {PresetCatalogue::Pattern, 24},
                                                   {PresetCatalogue::Shape, 86}};
  std::map<PresetCatalogue, size_t> rows;
  std::set<std::pair<PresetCatalogue, std::wstring>> names, finishedClasses;
  const PresetRow* previous = nullptr;
  for (const PresetRow& row : PresetRows()) {
    SCOPED_TRACE(ToUtf8(row.strText));
    ++rows[row.catalogue];
    EXPECT_TRUE(names.insert({row.catalogue, row.strText}).second) << "a name stands in one class only";
    if (previous && (previous->catalogue != row.catalogue || std::wstring(previous->strClass) != row.strClass)) {
      finishedClasses.insert({previous->catalogue, previous->strClass});
      EXPECT_FALSE(finishedClasses.count({row.catalogue, row.strClass})) << "a class comes back later";
    }
    // Every row is found by its own name in its own catalogue, under its own class.
    if (row.test == PresetTest::Whole) {
      EXPECT_EQ(PresetClass(row.catalogue, row.strText), row.strClass);
    }
    previous = &row;
  }
  EXPECT_EQ(rows, kRows);
}

struct ClassCase {
  std::wstring (*lookup)(std::wstring) noexcept;
  const wchar_t* name;
  const wchar_t* klass;
};

// Each case names the mistake it would catch.
const ClassCase kClassCases[] = {
    {Ostrel_GetBrushPresetClass, L"柔边圆", L"通用画笔"},
    {Ostrel_GetBrushPresetClass, L"柔边圆 ", L""},  // no trimming
    {Ostrel_GetBrushPresetClass, L"园钝形中等硬", L"通用画笔"},  // the odd spelling is the name
    {Ostrel_GetBrushPresetClass, L"圆钝形中等硬", L""},
    {Ostrel_GetBrushPresetClass, L"软圆压力不透明度和流量", L"常规画笔"},
    {Ostrel_GetBrushPresetClass, L"ORSA 额外厚实炭笔", L"干介质画笔"},
    {Ostrel_GetBrushPresetClass, L"Orsa 额外厚实炭笔", L""},  // case counts
    {Ostrel_GetBrushPresetClass, L"Orsa 的印象派混合器 1", L"湿介质画笔"},
    {Ostrel_GetBrushPresetClass, L"Orsa 的屏幕色调 38", L"特殊效果画笔"},  // last brush
    {Ostrel_GetBrushPresetClass, L"草", L"通用画笔"},  // each catalogue by itself
    {Ostrel_GetPatternPresetClass, L"草", L"草"},
    {Ostrel_GetColorPresetClass, L"10 % 灰色", L"灰度"},
    {Ostrel_GetColorPresetClass, L"10% 灰色", L""},  // the swatch table's form
    {Ostrel_GetColorPresetClass, L"CMYK 洋红", L"CMYK"},  // no tab here, unlike the swatch
    {Ostrel_GetColorPresetClass, L"CMYK 洋红\t", L""},
    {Ostrel_GetColorPresetClass, L"淡红色", L"浅色"},
    {Ostrel_GetColorPresetClass, L"淡蓝色", L"浅色"},
    {Ostrel_GetColorPresetClass, L"浅红", L""},
    {Ostrel_GetColorPresetClass, L"深黑暖褐", L"淡色"},
    {Ostrel_GetGradientPresetClass, L"黑, 白渐变", L"通用渐变"},
    {Ostrel_GetGradientPresetClass, L"黑,白渐变", L""},
    {Ostrel_GetGradientPresetClass, L"铜色渐变\t", L"通用渐变"},
    {Ostrel_GetGradientPresetClass, L"铜色渐变", L""},  // found only with its tab
    {Ostrel_GetGradientPresetClass, L"灰白色_02", L"中性色"},
    {Ostrel_GetGradientPresetClass, L"灰白色_03", L""},  // a whole-name class, no substring
    {Ostrel_GetShapePresetClass, L"形状 53", L"花卉"},
    {Ostrel_GetShapePresetClass, L"形状 315", L"野生动物"},
    {Ostrel_GetShapePresetClass, L"棕桐树", L"有叶子的树"},
    {Ostrel_GetShapePresetClass, L"“禁止”标志", L"通用形状"},
    {Ostrel_GetShapePresetClass, L"潜水艇", L"小船"},
};

TEST(PresetClassTest, NamesGiveTheirClasses) {
  for (const ClassCase& c : kClassCases) {
    SCOPED_TRACE(ToUtf8(c.name));
    EXPECT_EQ(c.lookup(c.name), c.klass);
  }
}

TEST(PresetClassTest, EmptyNameHasNoClassAnywhere) {
  for (auto lookup : {Ostrel_GetBrushPresetClass, Ostrel_GetColorPresetClass, Ostrel_GetGradientPresetClass,
                      Ostrel_GetPatternPresetClass, Ostrel_GetShapePresetClass}) {
    EXPECT_EQ(lookup(L""), L"");
  }
}

// The ten substring classes take any name with their text anywhere in it; the first class in table order wins,
// whatever the position of the texts in the name.
TEST(PresetClassTest, GradientSubstringClasses) {
  const std::pair<const wchar_t*, const wchar_t*> kCases[] = {
      {L"蓝色_01", L"蓝色"},
      {L"我的蓝色_渐变", L"蓝色"},      // text before and behind
      {L"蓝色", L""},                   // the class name alone lacks the underscore
      {L"蓝色 _01", L""},
      {L"紫色_蓝色_", L"蓝色"},         // 蓝色 comes first in the table, though later in the name
      {L"粉色_", L"粉色"},
      {L"红色_橙色_", L"红色"},
      {L"绿色_灰色_", L"绿色"},
      {L"灰色_07", L"灰色"},
      {L"云彩_", L"云彩"},
      {L"彩虹色_1", L"彩虹色"},
      {L"粉彩_1", L"粉彩"},
      {L"粉彩_灰色_", L"灰色"},         // 灰色 stands before 粉彩
      {L"淡紫色_01", L"紫色"},
      {L"紫色_前景色到背景色渐变", L"紫色"},
      {L"Blue_蓝色_", L"蓝色"},
  };
  for (const auto& [name, klass] : kCases) {
    SCOPED_TRACE(ToUtf8(name));
    EXPECT_EQ(Ostrel_GetGradientPresetClass(name), klass);
  }
}

}  // namespace
}  // namespace ostrel
