// The words of dialogs and option menus: checks over every list, so that a shifted, dropped or doubled row
// shows up, and the exports that read them.
#include "vocabulary/dialog_names.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <tuple>
#include <utility>
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

// The lookup by number searches an index of the rows; it gives what a walk of the rows from the first gives, for
// every list and every number a lesson or a window test can ask.
TEST(DialogNames, TheIndexedLookupGivesTheFirstRowOfTheNumber) {
  std::set<DialogList> lists;
  for (const auto& row : DialogNameRows()) lists.insert(row.list);
  for (const DialogList list : lists) {
    for (int number = -2; number <= 1100; ++number) {
      EXPECT_EQ(DialogName(list, number), NameInList<DialogList>(DialogNameRows(), list, number))
          << static_cast<int>(list) << " " << number;
    }
  }
  EXPECT_EQ(Ostrel_FilterGalleryToName(EnFilterGallery{200}), L"纹理");
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

struct DialogWordCase {
  std::wstring (*name)(int);
  int number;
  const wchar_t* expected;
};

// Words checked by value: the first and last of each list, the first after a gap, and the odd spellings.
const DialogWordCase kDialogWords[] = {
    {ByNumber<Ostrel_FilterGalleryToName>, 0, L"滤镜库"},
    {ByNumber<Ostrel_FilterGalleryToName>, 50, L"画笔描边"},  // after the gap 3-49
    {ByNumber<Ostrel_FilterGalleryToName>, 154, L"铬黄渐变"},
    {ByNumber<Ostrel_FilterGalleryToName>, 265, L"涂抹棒"},
    {ByNumber<Ostrel_CameraRawToName>, 0, L"基本"},
    {ByNumber<Ostrel_CameraRawToName>, 5, L"HSL"},
    {ByNumber<Ostrel_CameraRawToName>, 14, L"预设"},
    {ByNumber<Ostrel_RefineEdgeToName>, 0, L"视图模式"},
    {ByNumber<Ostrel_RefineEdgeToName>, 19, L"确定"},
    {ByNumber<Ostrel_RefineEdgeSubclassToName>, 1, L"边缘检测"},
    {ByNumber<Ostrel_RefineEdgeSubclassToName>, 4, L"输出设置"},
    {ByNumber<Ostrel_RefineEdgeViewToName>, 0, L"洋葱皮"},
    {ByNumber<Ostrel_RefineEdgeViewToName>, 6, L"图层"},
    {ByNumber<Ostrel_RefineEdgeIndicateToName>, 1, L"选定区域"},
    {ByNumber<Ostrel_RefineEdgeOutputToName>, 5, L"新建带有图层蒙版的文档"},
    {ByNumber<Ostrel_CropOverlayToName>, 5, L"金色螺线"},
    {ByNumber<Ostrel_FileTypeToName>, 0, L"psd"},
    {ByNumber<Ostrel_FileTypeToName>, 3, L"png"},
    {ByNumber<Ostrel_FontAntiAliasToName>, 5, L"WindowsLCD"},  // no blank, unlike the tool option list
    {ByNumber<Ostrel_ShapeColorToName>, 3, L"图案"},
    {ByNumber<Ostrel_BrushPresetIndexToName>, 1, L"画笔笔尖形状"},
    {ByNumber<Ostrel_BrushPresetIndexToName>, 8192, L"画笔预设"},
    {ByNumber<Ostrel_CanvasMenuIndexToName>, 0, L"自由变换"},
    {ByNumber<Ostrel_CanvasMenuIndexToName>, 9, L"旋转 180 度"},
    {ByNumber<Ostrel_CanvasMenuIndexToName>, 14, L"变换选区"},
    {ByNumber<Ostrel_CanvasMenuIndexToName>, 50, L"删除切片"},  // after the gap 15-49
    {ByNumber<Ostrel_CanvasMenuIndexToName>, 58, L"置为底层"},
};

TEST(DialogLists, WordsByValue) {
  for (const DialogWordCase& c : kDialogWords) EXPECT_EQ(c.name(c.number), c.expected) << c.number;
  const std::tuple<int (*)(int), int, int> kPositions[] = {
      {ByNumber<Ostrel_CropOverlayOptionToMenuIndex>, 5, 5},
      {ByNumber<Ostrel_PathOperationToMenuIndex>, 4, 4},
      {ByNumber<Ostrel_AlignDistributeToMenuIndex>, 0, 4},
      {ByNumber<Ostrel_AlignDistributeToMenuIndex>, 3, 0},
      {ByNumber<Ostrel_AlignDistributeToMenuIndex>, 5, 2},
      {ByNumber<Ostrel_AlignDistributeToMenuIndex>, 12, 8},
      {ByNumber<Ostrel_AlignDistributeToMenuIndex>, 13, 9},
      {ByNumber<Ostrel_ArrangementTypeToMenuIndex>, 3, 3},
  };
  for (const auto& [position, value, expected] : kPositions) EXPECT_EQ(position(value), expected) << value;
}

using FilterTable = test_support::BuiltTables;

// Filters checked by value in the table that Ostrel_Init builds.
TEST_F(FilterTable, FiltersByValue) {
  const std::pair<int, const wchar_t*> kFilters[] = {
      {0, L"查找边缘"}, {7, L"凸出"},   {20, L"表面模糊"},  {31, L"场景模糊"},
      {61, L"USM 锐化"}, {140, L"HSB/HSL"}, {145, L"最小值"},
  };
  for (const auto& [number, name] : kFilters) {
    EXPECT_EQ(Ostrel_LayerFilterIndexToName(EnLayerFilter{number}), name) << number;
    EXPECT_EQ(Ostrel_LayerFilterNameToIndex(name), number);
  }
}

}  // namespace
}  // namespace ostrel
