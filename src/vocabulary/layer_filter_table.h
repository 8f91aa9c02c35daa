// The filter table as the rest of the library sees it: built by Ostrel_Init as the last of its three tables,
// searched linearly from the first row.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel {

// One row of the filter table.
struct LayerFilterInfo {
  std::wstring strName;  // the filter's Chinese name
  int nFilter;           // EnLayerFilter
  int nTopMenu;          // EnTopMenuIndex; never linked, -1 in every row
};

// One row of the constant data.
struct LayerFilterRow {
  int nFilter;
  std::wstring_view strName;
};

std::span<const LayerFilterRow> LayerFilterRows() noexcept;

// Builds the table's 58 rows, once: a second call gives the same table and frees nothing.
void BuildLayerFilterTable();

// The rows (none before the first Ostrel_Init).
std::span<const LayerFilterInfo> LayerFilterTable() noexcept;

// The name of the filter, or the empty string.
std::wstring LayerFilterName(int filter);
// The number of the first filter with exactly this name (whole, case-sensitive), or -1.
int LayerFilterFromName(std::wstring_view name) noexcept;
// The top menu field of the filter's row, or -1 when there is no row.
int LayerFilterTopMenu(int filter) noexcept;

}  // namespace ostrel
