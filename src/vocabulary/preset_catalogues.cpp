// The preset catalogues and their five exported class lookups.
#include "vocabulary/preset_catalogues.h"

#include "frame/guard.h"
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

using ostrel::PresetCatalogue;

OSTREL_API std::wstring Ostrel_GetBrushPresetClass(std::wstring strName) noexcept {
  return ostrel::Guarded(std::wstring(), [&] { return ostrel::PresetClass(PresetCatalogue::Brush, strName); });
}

OSTREL_API std::wstring Ostrel_GetColorPresetClass(std::wstring strName) noexcept {
  return ostrel::Guarded(std::wstring(), [&] { return ostrel::PresetClass(PresetCatalogue::Color, strName); });
}

OSTREL_API std::wstring Ostrel_GetGradientPresetClass(std::wstring strName) noexcept {
  return ostrel::Guarded(std::wstring(), [&] { return ostrel::PresetClass(PresetCatalogue::Gradient, strName); });
}

OSTREL_API std::wstring Ostrel_GetPatternPresetClass(std::wstring strName) noexcept {
  return ostrel::Guarded(std::wstring(), [&] { return ostrel::PresetClass(PresetCatalogue::Pattern, strName); });
}

OSTREL_API std::wstring Ostrel_GetShapePresetClass(std::wstring strName) noexcept {
  return ostrel::Guarded(std::wstring(), [&] { return ostrel::PresetClass(PresetCatalogue::Shape, strName); });
}
