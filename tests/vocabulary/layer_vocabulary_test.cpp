// The layer vocabulary: checks over every list, so that a shifted, dropped or doubled row shows up.
#include "vocabulary/layer_vocabulary.h"

#include <gtest/gtest.h>

#include <bit>
#include <set>
#include <string>
#include <vector>

#include "ostrel/layers.h"
#include "table_test_support.h"

namespace ostrel {
namespace {

using test_support::ByNumber;

// Catches a changed letter or number, or rows that swapped places, in any of the three tables.
TEST(LayerVocabulary, Fingerprints) {
  using test_support::RowsFingerprint;
  using Blend = LayerBlendRow;
  using Name = ListedName<LayerList>;
  using Adjust = AdjustLayerRow;
  EXPECT_EQ(RowsFingerprint(LayerBlendRows(), &Blend::nBlend, &Blend::strId, &Blend::strName), 0x9ae07522d457efeaULL);
  EXPECT_EQ(RowsFingerprint(LayerNameRows(), &Name::list, &Name::nNumber, &Name::strName), 0x9ae562325005bfdaULL);
  EXPECT_EQ(RowsFingerprint(AdjustLayerRows(), &Adjust::nAdjust, &Adjust::strName, &Adjust::entries),
            0xfbefb0bdc777a7e5ULL);
}

TEST(LayerBlends, NumbersCountFromZeroAndIdsAndNamesRoundTrip) {
  ASSERT_EQ(LayerBlendRows().size(), 28u);
  std::set<std::wstring_view> ids, names;
  for (int n = -1; n <= 28; ++n) {
    SCOPED_TRACE(n);
    const bool listed = n >= 0 && n < 28;
    EXPECT_EQ(Ostrel_LayerBlendToName(EnLayerBlend{n}), listed ? LayerBlendRows()[n].strName : L"");
    if (!listed) continue;
    const LayerBlendRow& row = LayerBlendRows()[n];
    EXPECT_EQ(row.nBlend, n);
    EXPECT_TRUE(ids.insert(row.strId).second && names.insert(row.strName).second);
    EXPECT_EQ(LayerBlendFromId(row.strId), n);
  }
  // Modes of the tools only, and ids of another case or with a blank, are no layer modes.
  for (const wchar_t* id : {L"behind", L"clearEnum", L"Normal", L"normal ", L""}) {
    EXPECT_EQ(LayerBlendFromId(id), -1) << ToUtf8(id);
  }
}

struct ListShape {
  LayerList list;
  size_t count;
  int (*nth)(int i);          // the number of the i-th row; nullptr where any single bit will do
  std::wstring (*name)(int);  // the lookup of the list
};

constexpr ListShape kListShapes[] = {
    {LayerList::Mask, 5, [](int i) { return 1 << i; }, ByNumber<LayerMaskToName>},
    {LayerList::SelectMode, 4, [](int i) { return i; }, SelectModeName},
    {LayerList::Menu, 29, [](int i) { return i < 26 ? i : 74 + i; }, ByNumber<Ostrel_LayerMenuIndexToName>},
    {LayerList::Style, 15, nullptr, ByNumber<Ostrel_LayerStyleIndexToName>},
};

// The context menu runs 0 to 25, then from 100. Gaps, combinations of bits and unused bits have no name.
TEST(LayerNameLists, CountsNumberingAndLookups) {
  size_t total = 0;
  for (const ListShape& shape : kListShapes) {
    SCOPED_TRACE(static_cast<int>(shape.list));
    const std::vector<int> numbers = test_support::CheckListedNames(LayerNameRows(), shape.list, shape.count,
                                                                    shape.name);
    for (size_t i = 0; i < numbers.size(); ++i) {
      EXPECT_TRUE(shape.nth ? numbers[i] == shape.nth(static_cast<int>(i))
                            : std::has_single_bit(static_cast<unsigned>(numbers[i])))
          << numbers[i];
    }
    total += numbers.size();
  }
  EXPECT_EQ(total, LayerNameRows().size());
  // 5 repeats the text of 3, and is the only menu entry that repeats one.
  std::set<std::wstring_view> menuNames;
  for (const auto& row : LayerNameRows()) {
    EXPECT_TRUE(row.list != LayerList::Menu || menuNames.insert(row.strName).second || row.nNumber == 5);
  }
  EXPECT_EQ(Ostrel_LayerMenuIndexToName(EnLayerMenuIndex{5}), Ostrel_LayerMenuIndexToName(EnLayerMenuIndex{3}));
}

TEST(LayerNameLists, SecondExportNamesGiveTheSameMapping) {
  for (int n = -1; n <= 300000; n = n < 64 ? n + 1 : n * 2) {
    SCOPED_TRACE(n);
    EXPECT_EQ(Ostrel_LayerStyleMenuIndexToName(EnLayerStyle{n}), Ostrel_LayerStyleIndexToName(EnLayerStyle{n}));
    EXPECT_EQ(Ostrel_LayerAdjustMenuIndexToName(EnAdjustLayer{n}), Ostrel_AdjustLayerIndexToName(EnAdjustLayer{n}));
  }
}

// Adjustments count from 0 with names of their own; six have a channel or colour list, which ends where it ends.
TEST(AdjustLayers, NumbersNamesAndListsOfEntries) {
  ASSERT_EQ(AdjustLayerRows().size(), 19u);
  std::set<std::wstring_view> names;
  size_t withList = 0;
  for (int n = -1; n <= 19; ++n) {
    SCOPED_TRACE(n);
    const bool listed = n >= 0 && n < 19;
    EXPECT_EQ(Ostrel_AdjustLayerIndexToName(EnAdjustLayer{n}), listed ? AdjustLayerRows()[n].strName : L"");
    const size_t entries = listed ? AdjustLayerRows()[n].nEntries : 0;
    for (int e = -1; e <= static_cast<int>(entries); ++e) {
      const bool entry = e >= 0 && e < static_cast<int>(entries);
      EXPECT_EQ(Ostrel_AdjustLayerCmbValueName(EnAdjustLayer{n}, e), entry ? AdjustLayerRows()[n].entries[e] : L"");
      EXPECT_FALSE(entry && AdjustLayerRows()[n].entries[e].empty());
    }
    if (!listed) continue;
    EXPECT_EQ(AdjustLayerRows()[n].nAdjust, n);
    EXPECT_TRUE(names.insert(AdjustLayerRows()[n].strName).second);
    withList += entries > 0;
  }
  EXPECT_EQ(withList, 6u);
}

struct LayerWordCase {
  std::wstring (*name)(int);
  int number;
  const wchar_t* expected;
};

// Words checked by value: the first and last of each list, the first after a gap, and the repeated or odd names.
const LayerWordCase kLayerWords[] = {
    {ByNumber<Ostrel_LayerBlendToName>, 0, L"穿透"},
    {ByNumber<Ostrel_LayerBlendToName>, 11, L"线性减淡（添加）"},  // full-width brackets
    {ByNumber<Ostrel_LayerBlendToName>, 27, L"明度"},
    {ByNumber<LayerMaskToName>, 1, L"默认"},
    {ByNumber<LayerMaskToName>, 16, L"剪切蒙版"},
    {SelectModeName, 0, L"新选区"},
    {SelectModeName, 3, L"与选区相交"},
    {ByNumber<Ostrel_LayerMenuIndexToName>, 0, L"混合选项"},
    {ByNumber<Ostrel_LayerMenuIndexToName>, 3, L"停用图层蒙版"},
    {ByNumber<Ostrel_LayerMenuIndexToName>, 5, L"停用图层蒙版"},  // the text of 3 again
    {ByNumber<Ostrel_LayerMenuIndexToName>, 25, L"栅格化矢量蒙版"},
    {ByNumber<Ostrel_LayerMenuIndexToName>, 100, L"建立选区"},  // after the gap 26-99
    {ByNumber<Ostrel_LayerMenuIndexToName>, 102, L"描边路径"},
    {ByNumber<Ostrel_LayerStyleIndexToName>, 1, L"效果"},
    {ByNumber<Ostrel_LayerStyleIndexToName>, 1024, L"颜色叠加"},
    {ByNumber<Ostrel_LayerStyleIndexToName>, 32768, L"渐变叠加"},  // after the unused bits 2048-16384
    {ByNumber<Ostrel_LayerStyleIndexToName>, 262144, L"投影"},
    {ByNumber<Ostrel_AdjustLayerIndexToName>, 0, L"纯色"},
    {ByNumber<Ostrel_AdjustLayerIndexToName>, 3, L"亮度对比度"},  // no slash, unlike the menu's
    {ByNumber<Ostrel_AdjustLayerIndexToName>, 18, L"可选颜色"},
};

TEST(LayerVocabulary, WordsByValue) {
  for (const LayerWordCase& c : kLayerWords) EXPECT_EQ(c.name(c.number), c.expected) << c.number;
  EXPECT_EQ(LayerBlendFromId(L"passThrough"), 0);
  EXPECT_EQ(LayerBlendFromId(L"blendSubtraction"), 22);
  EXPECT_EQ(LayerBlendFromId(L"luminosity"), 27);
  EXPECT_EQ(Ostrel_AdjustLayerCmbValueName(EnAdjustLayer{4}, 0), L"RGB");
  EXPECT_EQ(Ostrel_AdjustLayerCmbValueName(EnAdjustLayer{8}, 6), L"洋红");
  EXPECT_EQ(Ostrel_AdjustLayerCmbValueName(EnAdjustLayer{9}, 2), L"高光");
  EXPECT_EQ(Ostrel_AdjustLayerCmbValueName(EnAdjustLayer{18}, 8), L"黑色");
}

}  // namespace
}  // namespace ostrel
