// The words of the filter gallery, Camera Raw, the refine edge dialog and the small option lists, and the
// menu positions of four option menus, with their exported lookups.
#include "vocabulary/dialog_names.h"

#include <algorithm>
#include <tuple>
#include <vector>

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

// The rows ordered by list and number, each number's first row first: a name is found by a binary search, as the
// filter gallery's window test asks for a thousand numbers at each call. Built once, on the first lookup.
const std::vector<const ListedName<DialogList>*>& RowsByNumber() {
  static const std::vector<const ListedName<DialogList>*> rows = [] {
    std::vector<const ListedName<DialogList>*> sorted;
    sorted.reserve(std::size(kDialogNameRows));
    for (const ListedName<DialogList>& row : kDialogNameRows) sorted.push_back(&row);
    std::stable_sort(sorted.begin(), sorted.end(), [](const auto* a, const auto* b) {
      return std::tie(a->list, a->nNumber) < std::tie(b->list, b->nNumber);
    });
    return sorted;
  }();
  return rows;
}

}  // namespace

std::span<const ListedName<DialogList>> DialogNameRows() noexcept { return kDialogNameRows; }
std::span<const RefineEdgeRow> RefineEdgeRows() noexcept { return kRefineEdgeRows; }
std::span<const MenuPositionRow> MenuPositionRows() noexcept { return kMenuPositionRows; }

std::wstring DialogName(DialogList list, int number) {
  const auto& rows = RowsByNumber();
  const auto found = std::lower_bound(rows.begin(), rows.end(), std::tuple(list, number), [](const auto* row, const auto& key) {
    return std::tie(row->list, row->nNumber) < key;
  });
  if (found == rows.end() || (*found)->list != list || (*found)->nNumber != number) return {};
  return std::wstring((*found)->strName);
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
