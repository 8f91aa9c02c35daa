// The top menu table: menu bar commands by number, their path through the menus and their history names.
#include "vocabulary/top_menu_table.h"

#include "vocabulary/built_table.h"

#include <iterator>
#include <utility>


namespace ostrel {
namespace {

constexpr TopMenuRow kTopMenuRows[] = {
#define OSTREL_TOP_MENU(index, menu1, menu2, menu3, history) {index, menu1, menu2, menu3, history},
#include "vocabulary/top_menus.def"
};

constexpr TopMenuHistoryRow kHistoryOnlyRows[] = {
#define OSTREL_TOP_MENU_HISTORY(index, history) {index, history},
#include "vocabulary/top_menus.def"
};

// Module-wide, built by Ostrel_Init; empty until then, so lookups before it find nothing.
BuiltTable<tagTopMenuInfo>& TheTopMenuTable() noexcept {
  static BuiltTable<tagTopMenuInfo> table;
  return table;
}

}  // namespace

std::span<const TopMenuRow> TopMenuRows() noexcept { return kTopMenuRows; }
std::span<const TopMenuHistoryRow> TopMenuHistoryOnlyRows() noexcept { return kHistoryOnlyRows; }

void BuildTopMenuTable() {
  TheTopMenuTable().Build([] {
    std::vector<tagTopMenuInfo> rows;
    rows.reserve(std::size(kTopMenuRows));
    for (const TopMenuRow& row : kTopMenuRows) {
      rows.push_back({EnTopMenuIndex{row.nIndex}, std::wstring(row.strMenu1), std::wstring(row.strMenu2),
                      std::wstring(row.strMenu3)});
    }
    return rows;
  });
}

std::span<const tagTopMenuInfo> TopMenuTable() noexcept { return TheTopMenuTable().Rows(); }

const tagTopMenuInfo* FindTopMenu(int index) noexcept {
  for (const tagTopMenuInfo& row : TopMenuTable()) {
    if (row.nIndex == index) return &row;
  }
  return nullptr;
}

std::wstring TopMenuHistoryName(int index) {
  for (const TopMenuRow& row : kTopMenuRows) {
    if (row.nIndex == index) return std::wstring(row.strHistory);
  }
  for (const TopMenuHistoryRow& row : kHistoryOnlyRows) {
    if (row.nIndex == index) return std::wstring(row.strHistory);
  }
  return {};
}

int CopyTopMenuInfo(int index, tagTopMenuInfo& info) {
  const tagTopMenuInfo* row = FindTopMenu(index);
  if (row == nullptr) return 0;
  tagTopMenuInfo copy = *row;  // copied first, so a failed copy leaves the caller's record as it was
  info = std::move(copy);
  return 1;
}

}  // namespace ostrel
