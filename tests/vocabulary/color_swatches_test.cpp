// The colour swatch table and its two lookups.
#include "vocabulary/color_swatches.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "ostrel/swatches.h"
#include "platform/color_text.h"
#include "platform/text.h"
#include "../support/fingerprint.h"

namespace ostrel {
namespace {

// Over the UTF-8 of every row as "color:name\n", in table order.
std::uint64_t TableFingerprint() {
  std::wstring rows;
  for (const ColorSwatch& row : ColorSwatches()) rows += Format(L"%s:%s\n", row.strColor, row.strName);
  return test_support::Fingerprint(ToUtf8(rows));
}

TEST(ColorSwatchTableTest, RowsAreWellFormed) {
  const auto rows = ColorSwatches();
  EXPECT_EQ(rows.size(), 122u);
  std::set<std::wstring> names, colors;
  for (const ColorSwatch& row : rows) {
    SCOPED_TRACE(ToUtf8(row.strName));
    EXPECT_TRUE(names.insert(row.strName).second) << "names are unique";
    colors.insert(row.strColor);
    EXPECT_EQ(ColorToString(StringToColor(row.strColor)), row.strColor) << "six lower-case hex digits";
  }
  EXPECT_EQ(colors.size(), 116u);
  // Catches a changed letter or colour, or rows that swapped places.
  EXPECT_EQ(TableFingerprint(), 0x8b34233b13cbcefcULL);
}

// Every name gives its own colour, and that colour's name is the name itself, except for the six later rows
// that repeat a CMYK colour: their colour names the earlier CMYK row.
TEST(ColorSwatchTableTest, NameToColorToNameRoundTrips) {
  const std::map<std::wstring, std::wstring> kEarlierRow = {
      {L"纯红", L"CMYK 红"},   {L"纯黄", L"CMYK 黄"},   {L"纯绿", L"CMYK 绿"},
      {L"纯青", L"CMYK 青"},   {L"纯蓝紫", L"CMYK 蓝"}, {L"纯洋红", L"CMYK 洋红\t"},
  };
  int repeated = 0;
  for (const ColorSwatch& row : ColorSwatches()) {
    SCOPED_TRACE(ToUtf8(row.strName));
    const std::uint32_t color = Ostrel_PureColorNameToColor(row.strName);
    EXPECT_EQ(color, StringToColor(row.strColor));
    const auto earlier = kEarlierRow.find(row.strName);
    if (earlier == kEarlierRow.end()) {
      EXPECT_EQ(Ostrel_PureColorToName(color), row.strName);
    } else {
      EXPECT_EQ(Ostrel_PureColorToName(color), earlier->second);
      ++repeated;
    }
  }
  EXPECT_EQ(repeated, 6);
}

TEST(ColorSwatchLookupTest, ColorsName) {
  EXPECT_EQ(Ostrel_PureColorToName(0x000000FF), L"RGB 红");
  EXPECT_EQ(Ostrel_PureColorToName(0x00000000), L"黑色");
  EXPECT_EQ(Ostrel_PureColorToName(0x00FFFFFF), L"白色");
  EXPECT_EQ(Ostrel_PureColorToName(0x001100E5), L"CMYK 红");   // e50011, not 纯红
  EXPECT_EQ(Ostrel_PureColorToName(0x007E00E4), L"CMYK 洋红\t");  // with the tab
  EXPECT_EQ(Ostrel_PureColorToName(0x00871F1C), L"CMYK 蓝");   // 1c1f87, not 纯蓝紫
  EXPECT_EQ(Ostrel_PureColorToName(0x000000FE), L"");  // fe0000: no nearest colour
}

TEST(ColorSwatchLookupTest, UnknownNamesGiveNoColor) {
  EXPECT_EQ(Ostrel_PureColorNameToColor(L"CMYK 洋红\t"), 0x007E00E4u);
  EXPECT_EQ(Ostrel_PureColorNameToColor(L"纯红"), 0x001100E5u);
  for (const wchar_t* name : {L"CMYK 洋红", L"rgb 红", L"10 % 灰色", L"RGB 红 ", L""}) {
    SCOPED_TRACE(ToUtf8(name));
    EXPECT_EQ(Ostrel_PureColorNameToColor(name), kNoColor);
  }
  EXPECT_EQ(Ostrel_PureColorNameToColor(L"10% 灰色"), 0x00EDEDEDu);  // the swatch form has no blank
}

}  // namespace
}  // namespace ostrel
