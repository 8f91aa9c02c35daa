// The preset catalogues: for each of five kinds of preset, Photoshop's default presets and their classes.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace ostrel {

enum class PresetCatalogue { Brush, Color, Gradient, Pattern, Shape };

// How a row's text is compared with a name: as the whole name, or as text anywhere in it.
enum class PresetTest { Whole, Substring };

struct PresetRow {
  PresetCatalogue catalogue;
  const wchar_t* strClass;
  PresetTest test;
  const wchar_t* strText;  // the preset's name, or the text that a name of a substring class holds
};

// All rows, catalogue by catalogue, each in search order.
std::span<const PresetRow> PresetRows() noexcept;

// The class of the catalogue's first row that matches the name, case-sensitively; the empty string if none does.
std::wstring PresetClass(PresetCatalogue catalogue, std::wstring_view name);

}  // namespace ostrel
