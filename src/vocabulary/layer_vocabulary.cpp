// The layer vocabulary: blend modes, masks, selection modes, context menu entries, layer style pages and
// adjustment layers, with their exported lookups.
#include "vocabulary/layer_vocabulary.h"

#include "ostrel/layers.h"

namespace ostrel {
namespace {

template <class... Entries>
constexpr AdjustLayerRow MakeAdjustLayer(int number, std::wstring_view name, Entries... entries) {
  static_assert(sizeof...(Entries) <= kMaxAdjustEntries, "raise kMaxAdjustEntries");
  return {number, name, {std::wstring_view(entries)...}, sizeof...(Entries)};
}

constexpr LayerBlendRow kBlendRows[] = {
#define OSTREL_LAYER_BLEND(number, id, name) {number, id, name},
#include "vocabulary/layer_vocabulary.def"
};

constexpr ListedName<LayerList> kNameRows[] = {
#define OSTREL_LAYER_NAME(list, number, name) {LayerList::list, number, name},
#include "vocabulary/layer_vocabulary.def"
};

constexpr AdjustLayerRow kAdjustRows[] = {
#define OSTREL_ADJUST_LAYER(number, name, ...) MakeAdjustLayer(number, name __VA_OPT__(, ) __VA_ARGS__),
#include "vocabulary/layer_vocabulary.def"
};

const AdjustLayerRow* FindAdjustLayer(int adjust) noexcept {
  for (const AdjustLayerRow& row : kAdjustRows) {
    if (row.nAdjust == adjust) return &row;
  }
  return nullptr;
}

}  // namespace

std::span<const LayerBlendRow> LayerBlendRows() noexcept { return kBlendRows; }
std::span<const ListedName<LayerList>> LayerNameRows() noexcept { return kNameRows; }
std::span<const AdjustLayerRow> AdjustLayerRows() noexcept { return kAdjustRows; }

std::wstring LayerBlendName(int blend) {
  for (const LayerBlendRow& row : kBlendRows) {
    if (row.nBlend == blend) return std::wstring(row.strName);
  }
  return {};
}

int LayerBlendFromId(std::wstring_view id) noexcept {
  for (const LayerBlendRow& row : kBlendRows) {
    if (row.strId == id) return row.nBlend;
  }
  return -1;
}

std::wstring LayerMaskName(int mask) { return NameInList<LayerList>(kNameRows, LayerList::Mask, mask); }
std::wstring SelectModeName(int mode) { return NameInList<LayerList>(kNameRows, LayerList::SelectMode, mode); }
std::wstring LayerMenuName(int index) { return NameInList<LayerList>(kNameRows, LayerList::Menu, index); }
std::wstring LayerStyleName(int style) { return NameInList<LayerList>(kNameRows, LayerList::Style, style); }

std::wstring AdjustLayerName(int adjust) {
  const AdjustLayerRow* row = FindAdjustLayer(adjust);
  return row ? std::wstring(row->strName) : std::wstring();
}

std::wstring AdjustLayerEntryName(int adjust, int entry) {
  const AdjustLayerRow* row = FindAdjustLayer(adjust);
  if (row == nullptr || entry < 0 || static_cast<size_t>(entry) >= row->nEntries) return {};
  return std::wstring(row->entries[static_cast<size_t>(entry)]);
}

}  // namespace ostrel
