// The colour text conversions: a colour value 0x00BBGGRR (red in the low byte) and its text of six lower-case
// hexadecimal digits, red first ("ff0000" is pure red, 0x000000FF). They stand for the colour text helpers of
// the utility library on Windows and give the same results on every platform.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ostrel {

// The value that stands for "no colour": no 0x00BBGGRR colour has a high byte, so it can't be mistaken for
// one (Windows calls it CLR_INVALID).
inline constexpr std::uint32_t kNoColor = 0xFFFFFFFF;

// Six lower-case hexadecimal digits, red first. The high byte is not part of a colour and is ignored.
std::wstring ColorToString(std::uint32_t color);

// The value of a colour text: exactly six hexadecimal digits, red first, in either case. Any other text, the
// empty string included, gives kNoColor.
std::uint32_t StringToColor(std::wstring_view text) noexcept;

}  // namespace ostrel
