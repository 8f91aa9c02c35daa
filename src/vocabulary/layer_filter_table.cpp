// The filter table: the filters a smart filter can be, by number and Chinese name, with its exported lookups.
#include "vocabulary/layer_filter_table.h"

#include <iterator>

#include "frame/guard.h"
#include "ostrel/filters.h"

namespace ostrel {
namespace {

constexpr LayerFilterRow kLayerFilterRows[] = {
#define OSTREL_LAYER_FILTER(number, name) {number, name},
#include "vocabulary/layer_filters.def"
};

// No row is linked to its top menu command; the field is kept for the callers that read it.
constexpr int kNoTopMenu = -1;

// Module-wide, written only by Ostrel_Init; empty until then, so lookups before it find nothing.
std::vector<LayerFilterInfo>& MutableLayerFilterTable() noexcept {
  static std::vector<LayerFilterInfo> table;
  return table;
}

const LayerFilterInfo* FindFilter(int filter) noexcept {
  for (const LayerFilterInfo& row : LayerFilterTable()) {
    if (row.nFilter == filter) return &row;
  }
  return nullptr;
}

}  // namespace

std::span<const LayerFilterRow> LayerFilterRows() noexcept { return kLayerFilterRows; }

void BuildLayerFilterTable() {
  std::vector<LayerFilterInfo>& table = MutableLayerFilterTable();
  table.clear();
  table.reserve(std::size(kLayerFilterRows));
  for (const LayerFilterRow& row : kLayerFilterRows) {
    table.push_back({std::wstring(row.strName), row.nFilter, kNoTopMenu});
  }
}

const std::vector<LayerFilterInfo>& LayerFilterTable() noexcept { return MutableLayerFilterTable(); }

std::wstring LayerFilterName(int filter) {
  const LayerFilterInfo* row = FindFilter(filter);
  return row ? row->strName : std::wstring();
}

int LayerFilterFromName(std::wstring_view name) noexcept {
  for (const LayerFilterInfo& row : LayerFilterTable()) {
    if (row.strName == name) return row.nFilter;
  }
  return -1;
}

int LayerFilterTopMenu(int filter) noexcept {
  const LayerFilterInfo* row = FindFilter(filter);
  return row ? row->nTopMenu : -1;
}

}  // namespace ostrel

using ostrel::Guarded;

OSTREL_API std::wstring Ostrel_LayerFilterIndexToName(EnLayerFilter nFilter) noexcept {
  return Guarded(std::wstring(), [&] { return ostrel::LayerFilterName(nFilter); });
}

OSTREL_API EnLayerFilter Ostrel_LayerFilterNameToIndex(std::wstring strName) noexcept {
  return Guarded(EnLayerFilter{-1}, [&] { return EnLayerFilter{ostrel::LayerFilterFromName(strName)}; });
}

OSTREL_API EnTopMenuIndex Ostrel_LayerFilterIndexToTopMenuIndex(EnLayerFilter nFilter) noexcept {
  return Guarded(EnTopMenuIndex{-1}, [&] { return EnTopMenuIndex{ostrel::LayerFilterTopMenu(nFilter)}; });
}
