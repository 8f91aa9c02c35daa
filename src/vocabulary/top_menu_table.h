// The top menu table as the rest of the library sees it: built by Ostrel_Init after the tool table, searched
// linearly by number; and the history names of the commands, which are constant and need no building.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ostrel/menus.h"

namespace ostrel {

// One row of the constant data: a command and the name it leaves in the history panel (empty if none).
struct TopMenuRow {
  int nIndex;
  std::wstring_view strMenu1;
  std::wstring_view strMenu2;
  std::wstring_view strMenu3;
  std::wstring_view strHistory;
};

// A history name of a number that has no command row.
struct TopMenuHistoryRow {
  int nIndex;
  std::wstring_view strHistory;
};

// The constant rows, in the order of the numbers.
std::span<const TopMenuRow> TopMenuRows() noexcept;
std::span<const TopMenuHistoryRow> TopMenuHistoryOnlyRows() noexcept;

// Builds the table's 133 rows, once: a second call gives the same table and frees nothing.
void BuildTopMenuTable();

// The rows (none before the first Ostrel_Init).
std::span<const tagTopMenuInfo> TopMenuTable() noexcept;

// The built row with the number, or nullptr.
const tagTopMenuInfo* FindTopMenu(int index) noexcept;

// Copies the built row with the number into info and gives 1; 0, with info untouched, when there is none.
int CopyTopMenuInfo(int index, tagTopMenuInfo& info);

// The history name of the number, from the constant rows; the empty string if it has none.
std::wstring TopMenuHistoryName(int index);

}  // namespace ostrel
