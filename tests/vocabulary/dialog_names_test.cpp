// The words of dialogs and option menus: checks over every list, so that a shifted, dropped or doubled row
// shows up, and the exports that read them.
#include "vocabulary/dialog_names.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "ostrel/filters.h"

namespace ostrel {
namespace {

std::vector<int> NumbersOf(DialogList list) {
  std::vector<int> numbers;
  for (const auto& row : DialogNameRows()) {
    if (row.list == list) numbers.push_back(row.nNumber);
  }
  return numbers;
}

enum class Shape { Dense, Bits, Blocks };

struct ListShape {
  DialogList list;
  size_t count;
  Shape shape;
  const char* name;
};

constexpr ListShape kListShapes[] = {
    {DialogList::FilterGallery, 54, Shape::Blocks, "FilterGallery"},
    {DialogList::CameraRawPanel, 15, Shape::Dense, "CameraRawPanel"},
    {DialogList::RefineEdgeSub, 3, Shape::Bits, "RefineEdgeSub"},
    {DialogList::RefineEdgeView, 7, Shape::Dense, "RefineEdgeView"},
    {DialogList::RefineEdgeIndicate, 2, Shape::Dense, "RefineEdgeIndicate"},
    {DialogList::RefineEdgeOutput, 6, Shape::Dense, "RefineEdgeOutput"},
    {DialogList::CropOverlay, 6, Shape::Dense, "CropOverlay"},
    {DialogList::FileType, 4, Shape::Dense, "FileType"},
    {DialogList::FontAntiAlias, 7, Shape::Dense, "FontAntiAlias"},
    {DialogList::ShapeColor, 4, Shape::Dense, "ShapeColor"},
    {DialogList::BrushPreset, 14, Shape::Bits, "BrushPreset"},
    {DialogList::CanvasMenu, 24, Shape::Blocks, "CanvasMenu"},
};

TEST(DialogLists, CountsAndNumbering) {
  size_t total = 0;
  for (const ListShape& shape : kListShapes) {
    SCOPED_TRACE(shape.name);
    const std::vector<int> numbers = NumbersOf(shape.list);
    EXPECT_EQ(numbers.size(), shape.count);
    total += numbers.size();
    for (size_t i = 0; i < numbers.size(); ++i) {
      SCOPED_TRACE(i);
      if (shape.shape == Shape::Dense) {
        EXPECT_EQ(numbers[i], static_cast<int>(i));
      }
      if (shape.shape == Shape::Bits) {
        EXPECT_EQ(numbers[i], 1 << i);
      }
      if (i > 0) {  // ascending, so no number twice
        EXPECT_GT(numbers[i], numbers[i - 1]);
      }
    }
  }
  EXPECT_EQ(total, DialogNameRows().size());
  for (const auto& row : DialogNameRows()) {
    ASSERT_FALSE(row.strName.empty()) << row.nNumber;
    EXPECT_NE(row.strName.back(), L' ') << row.nNumber;
  }
}

TEST(FilterGallery, BlocksOfFiftyStartWithTheirGroupAndNamesRoundTrip) {
  const std::vector<int> numbers = NumbersOf(DialogList::FilterGallery);
  std::set<int> heads;
  for (int n : numbers) {
    if (n % 50 == 0) heads.insert(n);
  }
  EXPECT_EQ(heads, (std::set<int>{0, 50, 100, 150, 200, 250}));
  std::set<std::wstring> names;
  for (int n : numbers) {
    SCOPED_TRACE(n);
    EXPECT_TRUE(heads.count(n / 50 * 50));
    const std::wstring name = Ostrel_FilterGalleryToName(EnFilterGallery{n});
    EXPECT_TRUE(names.insert(name).second);
    EXPECT_EQ(Ostrel_FilterGalleryNameToEnum(name), n);
  }
  EXPECT_EQ(Ostrel_FilterGalleryNameToEnum(L"纹理"), 200);  // a group's name is a name too
  EXPECT_EQ(Ostrel_FilterGalleryNameToEnum(L"龟裂缝"), 201);
  EXPECT_EQ(Ostrel_FilterGalleryNameToEnum(L"颗粒"), 202);
  EXPECT_EQ(Ostrel_FilterGalleryNameToEnum(L"铬黄渐变"), 154);
  EXPECT_EQ(Ostrel_FilterGalleryNameToEnum(L"纹理 "), -1);
  EXPECT_EQ(Ostrel_FilterGalleryNameToEnum(L""), -1);
  EXPECT_EQ(Ostrel_FilterGalleryToName(EnFilterGallery{3}), L"");
}

TEST(RefineEdge, ControlsCountFromZeroAndLieInSections) {
  ASSERT_EQ(RefineEdgeRows().size(), 20u);
  for (size_t i = 0; i < RefineEdgeRows().size(); ++i) {
    const RefineEdgeRow& row = RefineEdgeRows()[i];
    SCOPED_TRACE(i);
    EXPECT_EQ(row.nControl, static_cast<int>(i));
    // a section is none or one of the section list's own numbers
    if (row.nSection != 0) {
      EXPECT_NE(Ostrel_RefineEdgeSubclassToName(EnRefineEdgeSub{row.nSection}), L"");
    }
    EXPECT_EQ(Ostrel_IsRefineEdgeSub(EnRefineEdge{row.nControl}), row.nSection);
  }
  // The sections are runs: 8-9 edge detection (1), 10-15 global adjustments (2), 16-17 output (4).
  for (int n = -1; n <= 21; ++n) {
    EXPECT_EQ(Ostrel_IsRefineEdgeSub(EnRefineEdge{n}), n < 8 || n > 17 ? 0 : n < 10 ? 1 : n < 16 ? 2 : 4) << n;
  }
  EXPECT_EQ(Ostrel_RefineEdgeSubclassToName(EnRefineEdgeSub{0}), L"");
  EXPECT_EQ(Ostrel_RefineEdgeSubclassToName(EnRefineEdgeSub{3}), L"");
  EXPECT_EQ(Ostrel_RefineEdgeToName(EnRefineEdge{19}), L"确定");
  EXPECT_EQ(Ostrel_RefineEdgeToName(EnRefineEdge{20}), L"");
}

TEST(SmallLists, OddRowsAndGaps) {
  EXPECT_EQ(Ostrel_FontAntiAliasToName(EnFontAntiAlias{5}), L"WindowsLCD");  // no blank
  EXPECT_EQ(Ostrel_CanvasMenuIndexToName(EnCanvasMenu{9}), L"旋转 180 度");
  for (int n = 15; n < 50; ++n) EXPECT_EQ(Ostrel_CanvasMenuIndexToName(EnCanvasMenu{n}), L"") << n;
  EXPECT_EQ(Ostrel_BrushPresetIndexToName(EnBrushPreset{0}), L"");
  EXPECT_EQ(Ostrel_BrushPresetIndexToName(EnBrushPreset{3}), L"");  // a combination of pages is no page
  EXPECT_EQ(Ostrel_FileTypeToName(EnFileType{4}), L"");
}

TEST(MenuPositions, OddPlacesAndGaps) {
  EXPECT_EQ(Ostrel_CropOverlayOptionToMenuIndex(EnCropOverlayOption{5}), 5);
  EXPECT_EQ(Ostrel_CropOverlayOptionToMenuIndex(EnCropOverlayOption{6}), -1);
  EXPECT_EQ(Ostrel_PathOperationToMenuIndex(EnPathOpertion{4}), 4);
  EXPECT_EQ(Ostrel_PathOperationToMenuIndex(EnPathOpertion{5}), 6);  // skips a place
  EXPECT_EQ(Ostrel_PathOperationToMenuIndex(EnPathOpertion{6}), -1);
  EXPECT_EQ(Ostrel_AlignDistributeToMenuIndex(EnAlignDistribute{0}), 4);
  EXPECT_EQ(Ostrel_AlignDistributeToMenuIndex(EnAlignDistribute{3}), 0);
  EXPECT_EQ(Ostrel_AlignDistributeToMenuIndex(EnAlignDistribute{13}), 9);
  for (int n = 6; n <= 11; ++n) EXPECT_EQ(Ostrel_AlignDistributeToMenuIndex(EnAlignDistribute{n}), -1) << n;
  EXPECT_EQ(Ostrel_ArrangementTypeToMenuIndex(EnArrangementType{3}), 3);
  EXPECT_EQ(Ostrel_ArrangementTypeToMenuIndex(EnArrangementType{-1}), -1);
}

TEST(MenuPositions, EachMenuHasUniqueValuesAndPositions) {
  for (OptionMenu menu : {OptionMenu::CropOverlay, OptionMenu::PathOperation, OptionMenu::AlignDistribute,
                          OptionMenu::ArrangementType}) {
    std::set<int> values, positions;
    for (const MenuPositionRow& row : MenuPositionRows()) {
      if (row.menu != menu) continue;
      EXPECT_TRUE(values.insert(row.nValue).second) << row.nValue;
      EXPECT_TRUE(positions.insert(row.nPosition).second) << row.nPosition;
    }
    EXPECT_FALSE(values.empty());
  }
  EXPECT_EQ(MenuPositionRows().size(), 24u);
}

}  // namespace
}  // namespace ostrel
