// The words of the dialogs and menus a lesson passes through, and the menu positions of four option menus:
// constant lists, no building needed.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "vocabulary/listed_names.h"

namespace ostrel {

// The lists of dialog words that are plain number-to-name mappings.
enum class DialogList {
  FilterGallery,
  CameraRawPanel,
  RefineEdgeSub,
  RefineEdgeView,
  RefineEdgeIndicate,
  RefineEdgeOutput,
  CropOverlay,
  FileType,
  FontAntiAlias,
  ShapeColor,
  BrushPreset,
  CanvasMenu,
};

// A control of the refine edge dialog (EnRefineEdge), its name and the section it lies in (EnRefineEdgeSub,
// 0 for none).
struct RefineEdgeRow {
  int nControl;
  std::wstring_view strName;
  int nSection;
};

// The option menus of the tool options bar whose entries are placed by value.
enum class OptionMenu { CropOverlay, PathOperation, AlignDistribute, ArrangementType };

// The value of an option (nValue) and the position of its entry in the menu.
struct MenuPositionRow {
  OptionMenu menu;
  int nValue;
  int nPosition;
};

std::span<const ListedName<DialogList>> DialogNameRows() noexcept;
std::span<const RefineEdgeRow> RefineEdgeRows() noexcept;
std::span<const MenuPositionRow> MenuPositionRows() noexcept;

// The name of the number in the list, or the empty string.
std::wstring DialogName(DialogList list, int number);
// The number of the first entry of the list with exactly this name (whole, case-sensitive), or -1.
int DialogNumber(DialogList list, std::wstring_view name) noexcept;

std::wstring RefineEdgeName(int control);
// The section of the control; 0 for a control in none and for a number outside the list.
int RefineEdgeSection(int control) noexcept;

// The position of the value's entry in the menu, or -1.
int MenuPosition(OptionMenu menu, int value) noexcept;

}  // namespace ostrel
