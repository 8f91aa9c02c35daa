// The layer vocabulary: checks over every list, so that a shifted, dropped or doubled row shows up.
#include "vocabulary/layer_vocabulary.h"

#include <gtest/gtest.h>

#include <bit>
#include <set>
#include <string>

#include "ostrel/layers.h"

namespace ostrel {
namespace {

std::vector<ListedName<LayerList>> RowsOf(LayerList list) {
  std::vector<ListedName<LayerList>> rows;
  for (const ListedName<LayerList>& row : LayerNameRows()) {
    if (row.list == list) rows.push_back(row);
  }
  return rows;
}

TEST(LayerBlends, NumbersCountFromZeroAndIdsAndNamesRoundTrip) {
  ASSERT_EQ(LayerBlendRows().size(), 28u);
  std::set<std::wstring_view> ids, names;
  for (size_t i = 0; i < LayerBlendRows().size(); ++i) {
    const LayerBlendRow& row = LayerBlendRows()[i];
    SCOPED_TRACE(i);
    EXPECT_EQ(row.nBlend, static_cast<int>(i));
    EXPECT_TRUE(ids.insert(row.strId).second);
    EXPECT_TRUE(names.insert(row.strName).second);
    EXPECT_EQ(LayerBlendFromId(row.strId), row.nBlend);
    EXPECT_EQ(Ostrel_LayerBlendToName(EnLayerBlend{row.nBlend}), row.strName);
  }
}

TEST(LayerBlends, RepresentativeRowsAndUnknownIds) {
  EXPECT_EQ(Ostrel_LayerBlendToName(EnLayerBlend{0}), L"穿透");
  EXPECT_EQ(Ostrel_LayerBlendToName(EnLayerBlend{11}), L"线性减淡（添加）");
  EXPECT_EQ(Ostrel_LayerBlendToName(EnLayerBlend{27}), L"明度");
  EXPECT_EQ(Ostrel_LayerBlendToName(EnLayerBlend{28}), L"");
  EXPECT_EQ(Ostrel_LayerBlendToName(EnLayerBlend{-1}), L"");
  EXPECT_EQ(LayerBlendFromId(L"passThrough"), 0);
  EXPECT_EQ(LayerBlendFromId(L"blendDivide"), 23);
  EXPECT_EQ(LayerBlendFromId(L"behind"), -1);  // tool modes only
  EXPECT_EQ(LayerBlendFromId(L"clearEnum"), -1);
  EXPECT_EQ(LayerBlendFromId(L"Normal"), -1);  // case counts
  EXPECT_EQ(LayerBlendFromId(L"normal "), -1);
  EXPECT_EQ(LayerBlendFromId(L""), -1);
}

struct ListShape {
  LayerList list;
  size_t count;
  bool bits;   // every number a single bit
  bool dense;  // the i-th row is number i, or bit i
  const char* name;
};

constexpr ListShape kListShapes[] = {
    {LayerList::Mask, 5, true, true, "Mask"},
    {LayerList::SelectMode, 4, false, true, "SelectMode"},
    {LayerList::Menu, 29, false, false, "Menu"},
    {LayerList::Style, 15, true, false, "Style"},
};

TEST(LayerNameLists, CountsAscendingNumbersAndBits) {
  size_t total = 0;
  for (const ListShape& shape : kListShapes) {
    SCOPED_TRACE(shape.name);
    const auto rows = RowsOf(shape.list);
    EXPECT_EQ(rows.size(), shape.count);
    total += rows.size();
    int previous = -1;
    for (size_t i = 0; i < rows.size(); ++i) {
      const auto& row = rows[i];
      SCOPED_TRACE(row.nNumber);
      EXPECT_GT(row.nNumber, previous);
      previous = row.nNumber;
      if (shape.dense) {
        EXPECT_EQ(row.nNumber, shape.bits ? 1 << i : static_cast<int>(i));
      }
      EXPECT_FALSE(row.strName.empty());
      if (shape.bits) {
        EXPECT_TRUE(std::has_single_bit(static_cast<unsigned>(row.nNumber)));
      }
    }
  }
  EXPECT_EQ(total, LayerNameRows().size());
}

TEST(LayerNameLists, MenuRunsZeroToTwentyFiveThenFromHundredWithOneDuplicate) {
  const auto menu = RowsOf(LayerList::Menu);
  for (size_t i = 0; i < menu.size(); ++i) {
    EXPECT_EQ(menu[i].nNumber, i < 26 ? static_cast<int>(i) : static_cast<int>(100 + i - 26));
  }
  std::set<std::wstring_view> names;
  for (const auto& row : menu) {
    if (!names.insert(row.strName).second) {
      EXPECT_EQ(row.nNumber, 5) << "only 5 repeats a text (of 3)";
    }
  }
  EXPECT_EQ(Ostrel_LayerMenuIndexToName(EnLayerMenuIndex{5}), Ostrel_LayerMenuIndexToName(EnLayerMenuIndex{3}));
  for (int n = 26; n < 100; ++n) EXPECT_EQ(Ostrel_LayerMenuIndexToName(EnLayerMenuIndex{n}), L"") << n;
  EXPECT_EQ(Ostrel_LayerMenuIndexToName(EnLayerMenuIndex{102}), L"描边路径");
}

TEST(LayerNameLists, CombinationsAndUnusedBitsGiveNothing) {
  EXPECT_EQ(LayerMaskToName(EnLayerMask{0}), L"");
  EXPECT_EQ(LayerMaskToName(EnLayerMask{3}), L"");
  EXPECT_EQ(LayerMaskToName(EnLayerMask{32}), L"");
  EXPECT_EQ(LayerMaskToName(EnLayerMask{16}), L"剪切蒙版");
  EXPECT_EQ(SelectModeName(4), L"");
  EXPECT_EQ(SelectModeName(-1), L"");
  for (int bit = 2048; bit <= 16384; bit *= 2) EXPECT_EQ(Ostrel_LayerStyleIndexToName(EnLayerStyle{bit}), L"");
  EXPECT_EQ(Ostrel_LayerStyleIndexToName(EnLayerStyle{1024}), L"颜色叠加");
  EXPECT_EQ(Ostrel_LayerStyleIndexToName(EnLayerStyle{32768}), L"渐变叠加");
  EXPECT_EQ(Ostrel_LayerStyleIndexToName(EnLayerStyle{262144}), L"投影");
}

TEST(LayerNameLists, SecondExportNamesGiveTheSameMapping) {
  for (int n = -1; n <= 300000; n = n < 64 ? n + 1 : n * 2) {
    SCOPED_TRACE(n);
    EXPECT_EQ(Ostrel_LayerStyleMenuIndexToName(EnLayerStyle{n}), Ostrel_LayerStyleIndexToName(EnLayerStyle{n}));
    EXPECT_EQ(Ostrel_LayerAdjustMenuIndexToName(EnAdjustLayer{n}), Ostrel_AdjustLayerIndexToName(EnAdjustLayer{n}));
  }
}

TEST(AdjustLayers, NumbersCountFromZeroNamesUniqueListsEndWhereTheyEnd) {
  ASSERT_EQ(AdjustLayerRows().size(), 19u);
  std::set<std::wstring_view> names;
  size_t withList = 0;
  for (size_t i = 0; i < AdjustLayerRows().size(); ++i) {
    const AdjustLayerRow& row = AdjustLayerRows()[i];
    SCOPED_TRACE(i);
    EXPECT_EQ(row.nAdjust, static_cast<int>(i));
    EXPECT_TRUE(names.insert(row.strName).second);
    if (row.nEntries > 0) ++withList;
    const EnAdjustLayer adjust{row.nAdjust};
    for (size_t e = 0; e < row.nEntries; ++e) {
      EXPECT_EQ(Ostrel_AdjustLayerCmbValueName(adjust, static_cast<int>(e)), row.entries[e]);
      EXPECT_FALSE(row.entries[e].empty());
    }
    EXPECT_EQ(Ostrel_AdjustLayerCmbValueName(adjust, static_cast<int>(row.nEntries)), L"");
    EXPECT_EQ(Ostrel_AdjustLayerCmbValueName(adjust, -1), L"");
  }
  EXPECT_EQ(withList, 6u);
}

TEST(AdjustLayers, RepresentativeEntries) {
  EXPECT_EQ(Ostrel_AdjustLayerCmbValueName(EnAdjustLayer{4}, 3), L"蓝");
  EXPECT_EQ(Ostrel_AdjustLayerCmbValueName(EnAdjustLayer{12}, 3), L"");
  EXPECT_EQ(Ostrel_AdjustLayerCmbValueName(EnAdjustLayer{3}, 0), L"");
  EXPECT_EQ(Ostrel_AdjustLayerCmbValueName(EnAdjustLayer{19}, 0), L"");
}

}  // namespace
}  // namespace ostrel
