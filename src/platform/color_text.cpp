// The colour text conversions.
#include "platform/color_text.h"

#include <optional>

namespace ostrel {
namespace {

constexpr wchar_t kHexDigits[] = L"0123456789abcdef";

std::optional<std::uint32_t> HexDigitValue(wchar_t c) noexcept {
  if (c >= L'0' && c <= L'9') return static_cast<std::uint32_t>(c - L'0');
  if (c >= L'a' && c <= L'f') return static_cast<std::uint32_t>(c - L'a' + 10);
  if (c >= L'A' && c <= L'F') return static_cast<std::uint32_t>(c - L'A' + 10);
  return std::nullopt;
}

}  // namespace

std::wstring ColorToString(std::uint32_t color) {
  std::wstring text;
  text.reserve(6);
  for (int channel = 0; channel < 3; ++channel) {  // red, green, blue: low byte first
    const std::uint32_t value = (color >> (8 * channel)) & 0xFF;
    text += kHexDigits[value >> 4];
    text += kHexDigits[value & 0xF];
  }
  return text;
}

std::uint32_t StringToColor(std::wstring_view text) noexcept {
  if (text.size() != 6) return kNoColor;
  std::uint32_t color = 0;
  for (size_t i = 0; i < 6; ++i) {
    const std::optional<std::uint32_t> digit = HexDigitValue(text[i]);
    if (!digit) return kNoColor;
    const size_t channel = i / 2;             // two digits a channel, red first
    const size_t shift = 8 * channel + (i % 2 == 0 ? 4 : 0);
    color |= *digit << shift;
  }
  return color;
}

}  // namespace ostrel
