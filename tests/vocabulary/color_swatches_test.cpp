// The colour swatch table and its two lookups.
#include "vocabulary/color_swatches.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "ostrel/swatches.h"
#include "platform/color_text.h"
#include "table_test_support.h"

namespace ostrel {
namespace {

// Names are unique and colours written in one form. Every name gives its own colour, and a colour gives the name
// of its first row: the six later rows that repeat a CMYK colour are named by the earlier row.
TEST(ColorSwatchTableTest, RowsAreWellFormedAndRoundTrip) {
  std::set<std::wstring> names;
  std::map<std::wstring, std::wstring> firstName;  // colour -> name of its first row
  for (const ColorSwatch& row : ColorSwatches()) {
    SCOPED_TRACE(ToUtf8(row.strName));
    EXPECT_TRUE(names.insert(row.strName).second) << "names are unique";
    EXPECT_EQ(ColorToString(StringToColor(row.strColor)), row.strColor) << "six lower-case hex digits";
    firstName.emplace(row.strColor, row.strName);
    const std::uint32_t color = Ostrel_PureColorNameToColor(row.strName);
    EXPECT_EQ(color, StringToColor(row.strColor));
    EXPECT_EQ(Ostrel_PureColorToName(color), firstName[row.strColor]);
  }
  EXPECT_EQ(names.size(), 122u);
  EXPECT_EQ(firstName.size(), 116u);
  // Catches a changed letter or colour, or rows that swapped places.
  EXPECT_EQ(test_support::RowsFingerprint(ColorSwatches(), &ColorSwatch::strColor, &ColorSwatch::strName),
            0xafa8fdcc43435e5aULL);
}

TEST(ColorSwatchLookupTest, ExactColorsAndWholeNamesOnly) {
  EXPECT_EQ(Ostrel_PureColorToName(0x000000FF), L"RGB 红");  // red is the low byte
  EXPECT_EQ(Ostrel_PureColorToName(0x000000FE), L"");        // no nearest colour
  EXPECT_EQ(Ostrel_PureColorNameToColor(L"10% 灰色"), 0x00EDEDEDu);
  for (const wchar_t* name : {L"CMYK 洋红", L"rgb 红", L"10 % 灰色", L"RGB 红 ", L""}) {
    EXPECT_EQ(Ostrel_PureColorNameToColor(name), kNoColor) << ToUtf8(name);
  }
}

struct SwatchCase {
  size_t row;  // from 0
  const wchar_t* color;
  const wchar_t* name;
};

// Rows checked by value: the first and last, the greys on both sides of the CMYK rows, the name with a tab, the
// later rows of a repeated colour and a name of its own spelling.
constexpr SwatchCase kSwatches[] = {
    {0, L"ff0000", L"RGB 红"},
    {7, L"ededed", L"10% 灰色"},       // no blank before the percent sign
    {15, L"9f9f9f", L"50% 灰色"},
    {16, L"e50011", L"CMYK 红"},
    {21, L"e4007e", L"CMYK 洋红\t"},  // the name ends in a tab
    {22, L"949494", L"55% 灰色"},      // the grey ramp goes on after the CMYK rows
    {31, L"000000", L"黑色"},
    {64, L"e50011", L"纯红"},          // the colour of row 16 again
    {100, L"486900", L"深黑淡绿"},     // 淡绿 where its neighbours say 青豆绿
    {121, L"693905", L"深黑暖褐"},
};

TEST(ColorSwatchTableTest, RowsByValue) {
  ASSERT_EQ(ColorSwatches().size(), 122u);
  for (const SwatchCase& c : kSwatches) {
    SCOPED_TRACE(c.row);
    EXPECT_EQ(std::wstring(ColorSwatches()[c.row].strColor), c.color);
    EXPECT_EQ(std::wstring(ColorSwatches()[c.row].strName), c.name);
  }
  EXPECT_EQ(Ostrel_PureColorToName(0x007E00E4), L"CMYK 洋红\t");  // e4007e, red in the low byte
  EXPECT_EQ(Ostrel_PureColorNameToColor(L"深黑暖褐"), 0x00053969u);
}

}  // namespace
}  // namespace ostrel
