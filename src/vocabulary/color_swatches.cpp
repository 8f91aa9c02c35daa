// The colour swatch table and its two exported lookups.
#include "vocabulary/color_swatches.h"

#include "ostrel/swatches.h"
#include "platform/color_text.h"

namespace ostrel {
namespace {

constexpr ColorSwatch kColorSwatches[] = {
#define OSTREL_COLOR_SWATCH(color, name) {color, name},
#include "vocabulary/color_swatches.def"
};

}  // namespace

std::span<const ColorSwatch> ColorSwatches() noexcept { return kColorSwatches; }

// The colour goes through its text, so only an exact colour matches: there is no nearest swatch.
std::wstring SwatchNameOfColor(std::uint32_t color) {
  const std::wstring text = ColorToString(color);
  for (const ColorSwatch& swatch : kColorSwatches) {
    if (text == swatch.strColor) return swatch.strName;
  }
  return std::wstring();
}

std::uint32_t SwatchColorOfName(std::wstring_view name) noexcept {
  std::wstring_view color;
  for (const ColorSwatch& swatch : kColorSwatches) {
    if (name == swatch.strName) {
      color = swatch.strColor;
      break;
    }
  }
  return StringToColor(color);
}

}  // namespace ostrel
