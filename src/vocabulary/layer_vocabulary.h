// The layer vocabulary as the rest of the library sees it: constant lists, no building needed.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "vocabulary/listed_names.h"

namespace ostrel {

// A layer blend mode: its number (EnLayerBlend), Photoshop's id and the Chinese name.
struct LayerBlendRow {
  int nBlend;
  std::wstring_view strId;
  std::wstring_view strName;
};

// The lists of layer words that are plain number-to-name mappings.
enum class LayerList { Mask, SelectMode, Menu, Style };

// The longest channel or colour list of an adjustment layer.
inline constexpr size_t kMaxAdjustEntries = 9;

// An adjustment layer (EnAdjustLayer), its name and the entries of its channel or colour list, from 0.
struct AdjustLayerRow {
  int nAdjust;
  std::wstring_view strName;
  std::array<std::wstring_view, kMaxAdjustEntries> entries;
  size_t nEntries;
};

std::span<const LayerBlendRow> LayerBlendRows() noexcept;
std::span<const ListedName<LayerList>> LayerNameRows() noexcept;
std::span<const AdjustLayerRow> AdjustLayerRows() noexcept;

// The lookups; each gives the empty string for a number its list doesn't have.
std::wstring LayerBlendName(int blend);
std::wstring LayerMaskName(int mask);
std::wstring SelectModeName(int mode);
std::wstring LayerMenuName(int index);
std::wstring LayerStyleName(int style);
std::wstring AdjustLayerName(int adjust);
std::wstring AdjustLayerEntryName(int adjust, int entry);

// The blend number of Photoshop's blend mode id (whole, case-sensitive), or -1. Ids that only the tools have,
// such as "behind" and "clearEnum", give -1.
int LayerBlendFromId(std::wstring_view id) noexcept;

}  // namespace ostrel
