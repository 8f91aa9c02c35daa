// The preset catalogues and their five exported class lookups.
#include "vocabulary/preset_catalogues.h"

#include "ostrel/presets.h"

namespace ostrel {
namespace {

constexpr PresetRow kPresetRows[] = {
#define OSTREL_PRESET(catalogue, klass, test, name) {PresetCatalogue::catalogue, klass, PresetTest::test, name},
#include "vocabulary/preset_catalogues.def"
};

bool Matches(const PresetRow& row, std::wstring_view name) noexcept {
  switch (row.test) {
    case PresetTest::Whole:
      return name == row.strText;
    case PresetTest::Substring:
      return name.find(row.strText) != std::wstring_view::npos;
  }
  return false;
}

}  // namespace

std::span<const PresetRow> PresetRows() noexcept { return kPresetRows; }

std::wstring PresetClass(PresetCatalogue catalogue, std::wstring_view name) {
  for (const PresetRow& row : kPresetRows) {
    if (row.catalogue == catalogue && Matches(row, name)) return row.strClass;
  }
  return std::wstring();
}

}  // namespace ostrel
