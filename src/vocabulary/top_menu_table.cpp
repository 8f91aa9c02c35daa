// The top menu table: menu bar commands by number, their path through the menus and their history names.
#include "vocabulary/top_menu_table.h"

#include <iterator>
#include <utility>

#include "frame/guard.h"

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

// Module-wide, written only by Ostrel_Init; empty until then, so lookups before it find nothing.
std::vector<tagTopMenuInfo>& MutableTopMenuTable() noexcept {
  static std::vector<tagTopMenuInfo> table;
  return table;
}

}  // namespace

std::span<const TopMenuRow> TopMenuRows() noexcept { return kTopMenuRows; }
std::span<const TopMenuHistoryRow> TopMenuHistoryOnlyRows() noexcept { return kHistoryOnlyRows; }

void BuildTopMenuTable() {
  std::vector<tagTopMenuInfo>& table = MutableTopMenuTable();
  table.clear();
  table.reserve(std::size(kTopMenuRows));
  for (const TopMenuRow& row : kTopMenuRows) {
    table.push_back({EnTopMenuIndex{row.nIndex}, std::wstring(row.strMenu1), std::wstring(row.strMenu2),
                     std::wstring(row.strMenu3)});
  }
}

const std::vector<tagTopMenuInfo>& TopMenuTable() noexcept { return MutableTopMenuTable(); }

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

}  // namespace ostrel

OSTREL_API int Ostrel_TopMenuIndexToName(EnTopMenuIndex nIndex, tagTopMenuInfo& info) noexcept {
  return ostrel::Guarded(0, [&] {
    const tagTopMenuInfo* row = ostrel::FindTopMenu(nIndex);
    if (row == nullptr) return 0;
    tagTopMenuInfo copy = *row;  // copied first, so a failed copy leaves the caller's record as it was
    info = std::move(copy);
    return 1;
  });
}

OSTREL_API std::wstring Ostrel_TopMenuToHistoryName(EnTopMenuIndex nIndex) noexcept {
  return ostrel::Guarded(std::wstring(), [&] { return ostrel::TopMenuHistoryName(nIndex); });
}
