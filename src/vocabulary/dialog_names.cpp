// The words of the filter gallery, Camera Raw, the refine edge dialog and the small option lists, and the
// menu positions of four option menus, with their exported lookups.
#include "vocabulary/dialog_names.h"

#include "frame/guard.h"
#include "ostrel/filters.h"

namespace ostrel {
namespace {

constexpr ListedName<DialogList> kDialogNameRows[] = {
#define OSTREL_DIALOG_NAME(list, number, name) {DialogList::list, number, name},
#include "vocabulary/dialog_names.def"
};

constexpr RefineEdgeRow kRefineEdgeRows[] = {
#define OSTREL_REFINE_EDGE(number, name, section) {number, name, section},
#include "vocabulary/dialog_names.def"
};

constexpr MenuPositionRow kMenuPositionRows[] = {
#define OSTREL_MENU_POSITION(list, number, position) {OptionMenu::list, number, position},
#include "vocabulary/menu_positions.def"
};

const RefineEdgeRow* FindRefineEdge(int control) noexcept {
  for (const RefineEdgeRow& row : kRefineEdgeRows) {
    if (row.nControl == control) return &row;
  }
  return nullptr;
}

}  // namespace

std::span<const ListedName<DialogList>> DialogNameRows() noexcept { return kDialogNameRows; }
std::span<const RefineEdgeRow> RefineEdgeRows() noexcept { return kRefineEdgeRows; }
std::span<const MenuPositionRow> MenuPositionRows() noexcept { return kMenuPositionRows; }

std::wstring DialogName(DialogList list, int number) {
  return NameInList<DialogList>(kDialogNameRows, list, number);
}

int DialogNumber(DialogList list, std::wstring_view name) noexcept {
  return NumberInList<DialogList>(kDialogNameRows, list, name);
}

std::wstring RefineEdgeName(int control) {
  const RefineEdgeRow* row = FindRefineEdge(control);
  return row ? std::wstring(row->strName) : std::wstring();
}

int RefineEdgeSection(int control) noexcept {
  const RefineEdgeRow* row = FindRefineEdge(control);
  return row ? row->nSection : 0;
}

int MenuPosition(OptionMenu menu, int value) noexcept {
  for (const MenuPositionRow& row : kMenuPositionRows) {
    if (row.menu == menu && row.nValue == value) return row.nPosition;
  }
  return -1;
}

}  // namespace ostrel

using ostrel::DialogList;
using ostrel::DialogName;
using ostrel::Guarded;
using ostrel::OptionMenu;

OSTREL_API std::wstring Ostrel_FilterGalleryToName(EnFilterGallery nFilter) noexcept {
  return Guarded(std::wstring(), [&] { return DialogName(DialogList::FilterGallery, nFilter); });
}

OSTREL_API EnFilterGallery Ostrel_FilterGalleryNameToEnum(std::wstring strName) noexcept {
  return Guarded(EnFilterGallery{-1},
                 [&] { return EnFilterGallery{ostrel::DialogNumber(DialogList::FilterGallery, strName)}; });
}

OSTREL_API std::wstring Ostrel_CameraRawToName(EnCameraRawPanel nPanel) noexcept {
  return Guarded(std::wstring(), [&] { return DialogName(DialogList::CameraRawPanel, nPanel); });
}

OSTREL_API std::wstring Ostrel_RefineEdgeToName(EnRefineEdge nControl) noexcept {
  return Guarded(std::wstring(), [&] { return ostrel::RefineEdgeName(nControl); });
}

OSTREL_API std::wstring Ostrel_RefineEdgeSubclassToName(EnRefineEdgeSub nSub) noexcept {
  return Guarded(std::wstring(), [&] { return DialogName(DialogList::RefineEdgeSub, nSub); });
}

OSTREL_API EnRefineEdgeSub Ostrel_IsRefineEdgeSub(EnRefineEdge nControl) noexcept {
  return Guarded(EnRefineEdgeSub{0}, [&] { return EnRefineEdgeSub{ostrel::RefineEdgeSection(nControl)}; });
}

OSTREL_API std::wstring Ostrel_RefineEdgeViewToName(EnRefineEdgeView nView) noexcept {
  return Guarded(std::wstring(), [&] { return DialogName(DialogList::RefineEdgeView, nView); });
}

OSTREL_API std::wstring Ostrel_RefineEdgeIndicateToName(EnRefineEdgeIndicate nIndicate) noexcept {
  return Guarded(std::wstring(), [&] { return DialogName(DialogList::RefineEdgeIndicate, nIndicate); });
}

OSTREL_API std::wstring Ostrel_RefineEdgeOutputToName(EnRefineEdgeOutput nOutput) noexcept {
  return Guarded(std::wstring(), [&] { return DialogName(DialogList::RefineEdgeOutput, nOutput); });
}

OSTREL_API std::wstring Ostrel_CropOverlayToName(EnCropOverlayOption nOption) noexcept {
  return Guarded(std::wstring(), [&] { return DialogName(DialogList::CropOverlay, nOption); });
}

OSTREL_API std::wstring Ostrel_FileTypeToName(EnFileType nType) noexcept {
  return Guarded(std::wstring(), [&] { return DialogName(DialogList::FileType, nType); });
}

OSTREL_API std::wstring Ostrel_FontAntiAliasToName(EnFontAntiAlias nAntiAlias) noexcept {
  return Guarded(std::wstring(), [&] { return DialogName(DialogList::FontAntiAlias, nAntiAlias); });
}

OSTREL_API std::wstring Ostrel_ShapeColorToName(EnShapeColorPanel nPanel) noexcept {
  return Guarded(std::wstring(), [&] { return DialogName(DialogList::ShapeColor, nPanel); });
}

OSTREL_API std::wstring Ostrel_BrushPresetIndexToName(EnBrushPreset nPreset) noexcept {
  return Guarded(std::wstring(), [&] { return DialogName(DialogList::BrushPreset, nPreset); });
}

OSTREL_API std::wstring Ostrel_CanvasMenuIndexToName(EnCanvasMenu nMenu) noexcept {
  return Guarded(std::wstring(), [&] { return DialogName(DialogList::CanvasMenu, nMenu); });
}

OSTREL_API int Ostrel_CropOverlayOptionToMenuIndex(EnCropOverlayOption nOption) noexcept {
  return Guarded(-1, [&] { return ostrel::MenuPosition(OptionMenu::CropOverlay, nOption); });
}

OSTREL_API int Ostrel_PathOperationToMenuIndex(EnPathOpertion nOperation) noexcept {
  return Guarded(-1, [&] { return ostrel::MenuPosition(OptionMenu::PathOperation, nOperation); });
}

OSTREL_API int Ostrel_AlignDistributeToMenuIndex(EnAlignDistribute nAlign) noexcept {
  return Guarded(-1, [&] { return ostrel::MenuPosition(OptionMenu::AlignDistribute, nAlign); });
}

OSTREL_API int Ostrel_ArrangementTypeToMenuIndex(EnArrangementType nType) noexcept {
  return Guarded(-1, [&] { return ostrel::MenuPosition(OptionMenu::ArrangementType, nType); });
}
