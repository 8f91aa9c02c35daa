// Photoshop's default colour swatches: a colour value by its swatch name and back.
#pragma once

#include <cstdint>
#include <string>

#include "ostrel/export.h"

// A colour value is 0x00BBGGRR, red in the low byte.

// The name of the first swatch of exactly that colour, or the empty string. Of two swatches with one colour the
// earlier is always named.
OSTREL_API std::wstring Ostrel_PureColorToName(std::uint32_t nColor) noexcept;

// The colour of the swatch with exactly that name (whole, case-sensitive). A name that no swatch has gives
// 0xFFFFFFFF, which is no colour value.
OSTREL_API std::uint32_t Ostrel_PureColorNameToColor(std::wstring strName) noexcept;
