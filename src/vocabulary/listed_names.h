// Constant lists of numbered names that share one table: each row says which list it belongs to. Lookups
// walk the rows from the first and stop at the first match within the list.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace ostrel {

template <class List>
struct ListedName {
  List list;
  int nNumber;
  std::wstring_view strName;
};

// The name of the first row of the list with the number, or the empty string.
template <class List>
std::wstring NameInList(std::span<const ListedName<List>> rows, List list, int number) {
  for (const ListedName<List>& row : rows) {
    if (row.list == list && row.nNumber == number) return std::wstring(row.strName);
  }
  return {};
}

// The number of the first row of the list with exactly this name (whole, case-sensitive), or -1.
template <class List>
int NumberInList(std::span<const ListedName<List>> rows, List list, std::wstring_view name) noexcept {
  for (const ListedName<List>& row : rows) {
    if (row.list == list && row.strName == name) return row.nNumber;
  }
  return -1;
}

}  // namespace ostrel
