// The colour text conversions: six lower-case hex digits, red first, for a value with red in the low byte.
#include "platform/color_text.h"

#include <gtest/gtest.h>

#include "platform/text.h"

namespace ostrel {
namespace {

struct ColorCase {
  std::uint32_t value;
  const wchar_t* text;
};

constexpr ColorCase kColorCases[] = {
    {0x000000FF, L"ff0000"},  // red is the low byte but the first two digits
    {0x0000FF00, L"00ff00"},
    {0x00FF0000, L"0000ff"},
    {0x00000000, L"000000"},
    {0x00FFFFFF, L"ffffff"},
    {0x007E00E4, L"e4007e"},
    {0x000A0B0C, L"0c0b0a"},  // each byte keeps its leading zero
};

TEST(ColorTextTest, ValueAndTextConvertBothWays) {
  for (const ColorCase& c : kColorCases) {
    SCOPED_TRACE(ToUtf8(c.text));
    EXPECT_EQ(ColorToString(c.value), c.text);
    EXPECT_EQ(StringToColor(c.text), c.value);
  }
}

TEST(ColorTextTest, TextIsLowerCaseAndIgnoresTheHighByte) {
  EXPECT_EQ(ColorToString(0x00ABCDEF), L"efcdab");
  EXPECT_EQ(ColorToString(0xFF0000FF), L"ff0000");
  EXPECT_EQ(StringToColor(L"EFCDAB"), 0x00ABCDEFu);  // upper-case digits are read too
}

TEST(ColorTextTest, AnythingButSixHexDigitsIsNoColor) {
  for (const wchar_t* text : {L"", L"ff000", L"ff00000", L"gg0000", L" ff0000", L"ff0000 ", L"0xff00", L"－ff000"}) {
    SCOPED_TRACE(ToUtf8(text));
    EXPECT_EQ(StringToColor(text), kNoColor);
  }
}

}  // namespace
}  // namespace ostrel
