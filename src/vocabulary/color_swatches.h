// The colour swatch table: Photoshop's default swatches by colour text and name, searched from the first row.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace ostrel {

struct ColorSwatch {
  const wchar_t* strColor;  // six lower-case hexadecimal digits, red first
  const wchar_t* strName;
};

// The rows in search order.
std::span<const ColorSwatch> ColorSwatches() noexcept;

// The name of the first row with the colour's text, or the empty string.
std::wstring SwatchNameOfColor(std::uint32_t color);

// The colour of the first row with exactly that name; the colour text of no row (empty) when none has it,
// turned into a value like any other colour text.
std::uint32_t SwatchColorOfName(std::wstring_view name) noexcept;

}  // namespace ostrel
