// The words of dialogs and option menus: checks over every list, so that a shifted, dropped or doubled row
// shows up, and the exports that read them.
#include "vocabulary/dialog_names.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "ostrel/filters.h"
#include "table_test_support.h"

namespace ostrel {
namespace {

using test_support::ByNumber;

struct ListShape {
  DialogList list;
  size_t count;
  int (*nth)(int i);          // the number of the i-th row; nullptr for blocks of 50, each led by its head
  std::wstring (*name)(int);  // the export that reads the list
};

constexpr int Dense(int i) { return i; }
constexpr int Bits(int i) { return 1 << i; }

constexpr ListShape kListShapes[] = {
    {DialogList::FilterGallery, 54, nullptr, ByNumber<Ostrel_FilterGalleryToName>},
    {DialogList::CameraRawPanel, 15, Dense, ByNumber<Ostrel_CameraRawToName>},
    {DialogList::RefineEdgeSub, 3, Bits, ByNumber<Ostrel_RefineEdgeSubclassToName>},
    {DialogList::RefineEdgeView, 7, Dense, ByNumber<Ostrel_RefineEdgeViewToName>},
    {DialogList::RefineEdgeIndicate, 2, Dense, ByNumber<Ostrel_RefineEdgeIndicateToName>},
    {DialogList::RefineEdgeOutput, 6, Dense, ByNumber<Ostrel_RefineEdgeOutputToName>},
    {DialogList::CropOverlay, 6, Dense, ByNumber<Ostrel_CropOverlayToName>},
    {DialogList::FileType, 4, Dense, ByNumber<Ostrel_FileTypeToName>},
    {DialogList::FontAntiAlias, 7, Dense, ByNumber<Ostrel_FontAntiAliasToName>},
    {DialogList::ShapeColor, 4, Dense, ByNumber<Ostrel_ShapeColorToName>},
    {DialogList::BrushPreset, 14, Bits, ByNumber<Ostrel_BrushPresetIndexToName>},
    {DialogList::CanvasMenu, 24, nullptr, ByNumber<Ostrel_CanvasMenuIndexToName>},
};

// Gaps, combinations of bits and numbers beyond a list have no name; the fingerprints catch a changed letter or
// number, or rows that swapped places, in any of the three tables.
TEST(DialogLists, CountsNumberingExportsAndFingerprints) {
  size_t total = 0;
  for (const ListShape& shape : kListShapes) {
    SCOPED_TRACE(static_cast<int>(shape.list));
    const std::vector<int> numbers = test_support::CheckListedNames(DialogNameRows(), shape.list, shape.count,
                                                                    shape.name);
    for (size_t i = 0; i < numbers.size(); ++i) {
      const int head = numbers[i] / 50 * 50;
      EXPECT_TRUE(shape.nth ? numbers[i] == shape.nth(static_cast<int>(i))
                            : std::count(numbers.begin(), numbers.end(), head) == 1)
          << numbers[i];
    }
    total += numbers.size();
  }
  EXPECT_EQ(total, DialogNameRows().size());
  using test_support::RowsFingerprint;
  using Name = ListedName<DialogList>;
  using Control = RefineEdgeRow;
  using Position = MenuPositionRow;
  EXPECT_EQ(RowsFingerprint(DialogNameRows(), &Name::list, &Name::nNumber, &Name::strName), 0xfcaa81a65934e6bdULL);
  EXPECT_EQ(RowsFingerprint(RefineEdgeRows(), &Control::nControl, &Control::strName, &Control::nSection),
            0x3249a4bdd6529d5eULL);
  EXPECT_EQ(RowsFingerprint(MenuPositionRows(), &Position::menu, &Position::nValue, &Position::nPosition),
            0x609c85be4d4b76bbULL);
}

TEST(FilterGallery, NamesRoundTripAndCompareWhole) {
  std::set<std::wstring_view> names;
  for (const auto& row : DialogNameRows()) {
    if (row.list != DialogList::FilterGallery) continue;
    SCOPED_TRACE(row.nNumber);
    EXPECT_TRUE(names.insert(row.strName).second);
    EXPECT_EQ(Ostrel_FilterGalleryNameToEnum(std::wstring(row.strName)), row.nNumber);
  }
  EXPECT_EQ(Ostrel_FilterGalleryNameToEnum(L"纹理"), 200);  // a group's name is a name too
  EXPECT_EQ(Ostrel_FilterGalleryNameToEnum(L"纹理 "), -1);
  EXPECT_EQ(Ostrel_FilterGalleryNameToEnum(L""), -1);
}

TEST(RefineEdge, ControlsCountFromZeroAndLieInSections) {
  ASSERT_EQ(RefineEdgeRows().size(), 20u);
  for (size_t i = 0; i < RefineEdgeRows().size(); ++i) EXPECT_EQ(RefineEdgeRows()[i].nControl, static_cast<int>(i));
  for (int n = -1; n <= 21; ++n) {
    SCOPED_TRACE(n);
    const bool listed = n >= 0 && n < 20;
    EXPECT_EQ(Ostrel_RefineEdgeToName(EnRefineEdge{n}), listed ? RefineEdgeRows()[n].strName : L"");
    // The sections are runs: 8-9 edge detection (1), 10-15 global adjustments (2), 16-17 output (4).
    EXPECT_EQ(Ostrel_IsRefineEdgeSub(EnRefineEdge{n}), n < 8 || n > 17 ? 0 : n < 10 ? 1 : n < 16 ? 2 : 4);
  }
}

// Each value of a menu has a position of its own; other values have none.
TEST(MenuPositions, ValuesGiveTheirPositionsOthersNone) {
  const std::pair<OptionMenu, int (*)(int)> kMenus[] = {
      {OptionMenu::CropOverlay, ByNumber<Ostrel_CropOverlayOptionToMenuIndex>},
      {OptionMenu::PathOperation, ByNumber<Ostrel_PathOperationToMenuIndex>},
      {OptionMenu::AlignDistribute, ByNumber<Ostrel_AlignDistributeToMenuIndex>},
      {OptionMenu::ArrangementType, ByNumber<Ostrel_ArrangementTypeToMenuIndex>},
  };
  for (const auto& [menu, position] : kMenus) {
    std::map<int, int> positionOf;
    std::set<int> positions;
    for (const MenuPositionRow& row : MenuPositionRows()) {
      if (row.menu != menu) continue;
      EXPECT_TRUE(positionOf.emplace(row.nValue, row.nPosition).second && positions.insert(row.nPosition).second);
    }
    EXPECT_FALSE(positionOf.empty());
    for (int n = -2; n <= 16; ++n) EXPECT_EQ(position(n), positionOf.count(n) ? positionOf[n] : -1) << n;
  }
  EXPECT_EQ(MenuPositionRows().size(), 24u);
  EXPECT_EQ(Ostrel_PathOperationToMenuIndex(EnPathOpertion{5}), 6);  // skips a place
}

}  // namespace
}  // namespace ostrel
