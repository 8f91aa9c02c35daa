// The preset catalogues and their class lookups.
#include "vocabulary/preset_catalogues.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>

#include "ostrel/presets.h"
#include "table_test_support.h"

namespace ostrel {
namespace {

using ClassLookup = std::wstring (*)(std::wstring) noexcept;

// The export of each catalogue, in the order of PresetCatalogue.
constexpr ClassLookup kLookups[] = {Ostrel_GetBrushPresetClass, Ostrel_GetColorPresetClass,
                                    Ostrel_GetGradientPresetClass, Ostrel_GetPatternPresetClass,
                                    Ostrel_GetShapePresetClass};

// A name stands in one class only and the rows of a class stand together. Every row is found by its own name (a
// substring row by any name holding its text) under its own class, through the export of its catalogue.
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
    const ClassLookup lookup = kLookups[static_cast<int>(row.catalogue)];
    const bool whole = row.test == PresetTest::Whole;
    EXPECT_EQ(lookup(whole ? row.strText : L"我的" + std::wstring(row.strText) + L"01"), row.strClass);
    previous = &row;
  }
  EXPECT_EQ(rows, kRows);
  EXPECT_EQ(test_support::RowsFingerprint(PresetRows(), &PresetRow::catalogue, &PresetRow::strClass,
                                          &PresetRow::test, &PresetRow::strText),
            0x89591ab1f421163fULL);
}

struct ClassCase {
  ClassLookup lookup;
  const wchar_t* name;
  const wchar_t* klass;
};

// Each case names the mistake it would catch.
const ClassCase kClassCases[] = {
    {Ostrel_GetBrushPresetClass, L"柔边圆 ", L""},  // no trimming
    {Ostrel_GetBrushPresetClass, L"Orsa 额外厚实炭笔", L""},  // case counts: the row is ORSA
    {Ostrel_GetBrushPresetClass, L"草", L"通用画笔"},  // each catalogue by itself
    {Ostrel_GetPatternPresetClass, L"草", L"草"},
    {Ostrel_GetColorPresetClass, L"10% 灰色", L""},  // the swatch table's form
    {Ostrel_GetColorPresetClass, L"CMYK 洋红\t", L""},  // no tab here, unlike the swatch
    {Ostrel_GetGradientPresetClass, L"铜色渐变", L""},  // found only with its tab
    {Ostrel_GetGradientPresetClass, L"灰白色_03", L""},  // a whole-name class, no substring
    {Ostrel_GetGradientPresetClass, L"蓝色", L""},  // the class name alone lacks the underscore
    {Ostrel_GetGradientPresetClass, L"紫色_蓝色_", L"蓝色"},  // the first class in table order wins,
    {Ostrel_GetGradientPresetClass, L"粉彩_灰色_", L"灰色"},  // whatever the position in the name
};

// Names checked by value: the first and last name of each catalogue and of some classes, and the names kept
// with their odd spellings.
const ClassCase kCatalogueRows[] = {
    {Ostrel_GetBrushPresetClass, L"柔边圆", L"通用画笔"},
    {Ostrel_GetBrushPresetClass, L"园钝形中等硬", L"通用画笔"},  // 园 where its neighbours have 圆
    {Ostrel_GetBrushPresetClass, L"粗边圆形钢笔", L"通用画笔"},
    {Ostrel_GetBrushPresetClass, L"软圆压力不透明度和流量", L"常规画笔"},
    {Ostrel_GetBrushPresetClass, L"Orsa 的绘画盒 - 快乐 HB", L"干介质画笔"},
    {Ostrel_GetBrushPresetClass, L"Orsa 的屏幕色调 38", L"特殊效果画笔"},
    {Ostrel_GetColorPresetClass, L"RGB 红", L"RGB"},
    {Ostrel_GetColorPresetClass, L"10 % 灰色", L"灰度"},
    {Ostrel_GetColorPresetClass, L"淡蓝色", L"浅色"},
    {Ostrel_GetColorPresetClass, L"深黑淡绿", L"较暗"},
    {Ostrel_GetColorPresetClass, L"深黑暖褐", L"淡色"},
    {Ostrel_GetGradientPresetClass, L"前景色到背景色渐变", L"通用渐变"},
    {Ostrel_GetGradientPresetClass, L"黑, 白渐变", L"通用渐变"},  // comma and blank
    {Ostrel_GetGradientPresetClass, L"铜色渐变\t", L"通用渐变"},
    {Ostrel_GetGradientPresetClass, L"中灰密度", L"通用渐变"},
    {Ostrel_GetGradientPresetClass, L"我的粉彩_02", L"粉彩"},
    {Ostrel_GetGradientPresetClass, L"沙地_02", L"中性色"},
    {Ostrel_GetPatternPresetClass, L"右对角线 1", L"通用图案"},
    {Ostrel_GetPatternPresetClass, L"树拼贴", L"树"},
    {Ostrel_GetPatternPresetClass, L"水 - 清澈", L"水"},
    {Ostrel_GetShapePresetClass, L"箭头 5", L"通用形状"},
    {Ostrel_GetShapePresetClass, L"“禁止”标志", L"通用形状"},  // curly quotes
    {Ostrel_GetShapePresetClass, L"爪印（猫）", L"通用形状"},
    {Ostrel_GetShapePresetClass, L"棕桐树图标", L"有叶子的树"},  // 桐, not 榈
    {Ostrel_GetShapePresetClass, L"形状 315", L"野生动物"},
    {Ostrel_GetShapePresetClass, L"潜水艇", L"小船"},
    {Ostrel_GetShapePresetClass, L"形状 42", L"花卉"},
};

TEST(PresetClassTest, NamesByValue) {
  for (const ClassCase& c : kCatalogueRows) EXPECT_EQ(c.lookup(c.name), c.klass) << ToUtf8(c.name);
}

TEST(PresetClassTest, OddNamesAndFirstMatch) {
  for (const ClassCase& c : kClassCases) EXPECT_EQ(c.lookup(c.name), c.klass) << ToUtf8(c.name);
  for (ClassLookup lookup : kLookups) EXPECT_EQ(lookup(L""), L"");
}

}  // namespace
}  // namespace ostrel
