// Number reading, formatting and UTF-8 conversion: the helpers every row and every reader stands on.
#include "platform/text.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace ostrel {
namespace {

struct WToICase {
  const wchar_t* text;
  int expected;
};

// Each case names the mistake it would catch.
constexpr WToICase kWToICases[] = {
    {L"", 0},                        // empty field reads as 0
    {L"x", 0},                       // no digits
    {L"42", 42},
    {L"007", 7},                     // leading zeros
    {L"  \t\r\n\v\f12", 12},         // every C white space is skipped
    {L"+5", 5},
    {L"-5", -5},
    {L"--5", 0},                     // only one sign
    {L"- 5", 0},                     // no space after the sign
    {L"12abc", 12},                  // stops at the first other character
    {L"3.9", 3},                     // no rounding
    {L"1,2", 1},
    {L"5 ", 5},
    {L"\u3000" L"5", 0},             // full-width blank is not C white space
    {L"\uff15", 0},                  // nor is a full-width digit a digit
    {L"2147483647", INT_MAX},
    {L"2147483648", INT_MAX},        // overflow clamps
    {L"99999999999999999999999", INT_MAX},
    {L"-2147483648", INT_MIN},
    {L"-2147483649", INT_MIN},
    {L"-99999999999999999999999", INT_MIN},
};

TEST(WToITest, ReadsAsTheWindowsRuntimeDoes) {
  for (const WToICase& c : kWToICases) {
    SCOPED_TRACE(ToUtf8(c.text));
    EXPECT_EQ(WToI(c.text), c.expected);
  }
}

struct WToFCase {
  const wchar_t* text;
  double expected;
};

constexpr WToFCase kWToFCases[] = {
    {L"", 0.0},
    {L"abc", 0.0},
    {L"1.5", 1.5},
    {L"  -2.25xyz", -2.25},
    {L".5", 0.5},
    {L"5.", 5.0},
    {L"1e3", 1000.0},
    {L"1.5e", 1.5},                  // an exponent letter without digits is not part of the number
    {L"1e+2", 100.0},
    {L"2E-1", 0.2},
    {L"+7", 7.0},
    {L"0x10", 16.0},                 // hex form, as the runtime since VS2015 reads it
    {L"0x", 0.0},
    {L"12,5", 12.0},                 // a comma is no decimal point whatever the locale
    {L"1e999", HUGE_VAL},
    {L"-1e999", -HUGE_VAL},
    {L"1e-999", 0.0},
    // Exponents beyond a long long: held, not wrapped or dropped (fuzz_text_numbers found both).
    {L"1e-99999999999999999999", 0.0},
    {L"1e99999999999999999999", HUGE_VAL},
    {L"1e0009223372036854775807", HUGE_VAL},
    {L"0.0001e-9223372036854775808", 0.0},
};

TEST(WToFTest, ReadsAsTheWindowsRuntimeDoes) {
  for (const WToFCase& c : kWToFCases) {
    SCOPED_TRACE(ToUtf8(c.text));
    EXPECT_DOUBLE_EQ(WToF(c.text), c.expected);
  }
  EXPECT_TRUE(std::isinf(WToF(L"inf")));
  EXPECT_TRUE(std::isinf(WToF(L"-Infinity")) && WToF(L"-Infinity") < 0);
  EXPECT_TRUE(std::isnan(WToF(L"nan")));
}

TEST(FormatTest, TextAndWholeNumbers) {
  EXPECT_EQ(Format(L"选择工具：%s", std::wstring(L"移动工具")), L"选择工具：移动工具");
  EXPECT_EQ(Format(L"%s-%s", L"a", std::wstring_view(L"b")), L"a-b");
  EXPECT_EQ(Format(L"设置图层不透明度为：%d%%", 50), L"设置图层不透明度为：50%");
  EXPECT_EQ(Format(L"%%d %%s"), L"%d %s");
  EXPECT_EQ(Format(L"[%02d:%02d:%02d]", 9, 5, 0), L"[09:05:00]");
  EXPECT_EQ(Format(L"%04d-%02d-%02d", 2026, 11, 3), L"2026-11-03");
  EXPECT_EQ(Format(L"%d", INT_MIN), L"-2147483648");
  EXPECT_EQ(Format(L"%5d|%-5d|%+d|% d", 42, 42, 42, 42), L"   42|42   |+42| 42");
  EXPECT_EQ(Format(L"%05d", -42), L"-0042");
  EXPECT_EQ(Format(L"%x %X %#x %o", 255, 255, 255, 8), L"ff FF 0xff 10");
  EXPECT_EQ(Format(L"%02x%02x%02x", 1, 0xab, 0), L"01ab00");
  EXPECT_EQ(Format(L"%.3d", 7), L"007");
  EXPECT_EQ(Format(L"%5s|%-5s|%.2s", L"ab", L"ab", L"abcdef"), L"   ab|ab   |ab");
  EXPECT_EQ(Format(L"%c", static_cast<int>(L'中')), L"中");
}

TEST(FormatTest, DecimalNumbers) {
  EXPECT_EQ(Format(L"%.1lf", 2.25), L"2.2");   // round half to even on the binary value, as printf
  EXPECT_EQ(Format(L"%.1lf", 2.35), L"2.4");
  EXPECT_EQ(Format(L"%.1lf", -0.04), L"-0.0");
  EXPECT_EQ(Format(L"%f", 1.5), L"1.500000");
  EXPECT_EQ(Format(L"%.0f", 2.5), L"2");
  EXPECT_EQ(Format(L"%8.2f|%-8.2f|%08.2f", 3.14159, 3.14159, -3.14159), L"    3.14|3.14    |-0003.14");
  EXPECT_EQ(Format(L"%e", 12345.678), L"1.234568e+04");
  EXPECT_EQ(Format(L"%g %g", 0.0001, 1e20), L"0.0001 1e+20");
  EXPECT_EQ(Format(L"%.2f%%", 99.5), L"99.50%");
}

struct WidthCase {
  const wchar_t* pattern;
  FormatArg arg;
  std::wstring expected;
};

std::wstring Spaces(size_t count) { return std::wstring(count, L' '); }

// Widths and precisions of two or more digits, as the Windows runtime's swprintf gives them. A width counts
// UTF-16 units, as a wchar_t string has them on Windows: a Chinese character is one, a character beyond the
// BMP two, on every platform.
TEST(FormatTest, WidthsAndPrecisionsOfSeveralDigits) {
  const WidthCase cases[] = {
      {L"[%10d]", 42, L"[        42]"},
      {L"[%-10d]", 42, L"[42        ]"},
      {L"[%012d]", 2026, L"[000000002026]"},
      {L"[%010d]", -42, L"[-000000042]"},       // zeros go after the sign
      {L"[%-012d]", 7, L"[7           ]"},      // left alignment wins over zeros
      {L"[%+12d]", 5, L"[          +5]"},
      {L"[%12.5d]", 42, L"[       00042]"},     // precision pads with zeros, width with blanks
      {L"[%012.5d]", 42, L"[       00042]"},    // a precision turns the zero flag off for whole numbers
      {L"[%.12d]", 42, L"[000000000042]"},
      {L"[%10x]", 255, L"[        ff]"},
      {L"[%-10X]", 255, L"[FF        ]"},
      {L"[%010x]", 255, L"[00000000ff]"},
      {L"[%#10x]", 255, L"[      0xff]"},
      {L"[%#010x]", 255, L"[0x000000ff]"},     // zeros go after the 0x
      {L"[%12x]", -1, L"[    ffffffff]"},
      {L"[%10.3f]", 3.14159, L"[     3.142]"},
      {L"[%-10.3f]", -3.14159, L"[-3.142    ]"},
      {L"[%010.3f]", -3.14159, L"[-00003.142]"},
      {L"[%15.10f]", 2.5, L"[   2.5000000000]"},
      {L"[%.12f]", 1.0 / 3, L"[0.333333333333]"},
      {L"[%14e]", 12345.678, L"[  1.234568e+04]"},
      {L"[%12s]", L"abc", L"[         abc]"},
      {L"[%-12s]", L"abc", L"[abc         ]"},
      {L"[%20s]", L"选择工具", L"[" + Spaces(16) + L"选择工具]"},
      {L"[%-20s]", L"矩形选框工具", L"[矩形选框工具" + Spaces(14) + L"]"},
      {L"[%12.2s]", L"选择工具", L"[" + Spaces(10) + L"选择]"},
      {L"[%10s]", L"图\U0001F600", L"[" + Spaces(7) + L"图\U0001F600]"},
      {L"[%10c]", static_cast<int>(L'中'), L"[" + Spaces(9) + L"中]"},
      {L"[%100d]", 1, L"[" + Spaces(99) + L"1]"},
  };
  for (const WidthCase& c : cases) {
    SCOPED_TRACE(ToUtf8(c.pattern));
    EXPECT_EQ(FormatArgs(c.pattern, &c.arg, 1), c.expected);
  }
  EXPECT_EQ(Format(L"[%*d|%-*d]", 12, 42, 11, 7), L"[" + Spaces(10) + L"42|7" + Spaces(10) + L"]");
  EXPECT_EQ(Format(L"[%*s]", -12, L"ab"), L"[ab" + Spaces(10) + L"]");  // a negative width aligns left
  EXPECT_EQ(Format(L"[%13.*f]", 10, 2.5), L"[ 2.5000000000]");
}

TEST(FormatTest, MismatchedAndMissingArgumentsNeverMisread) {
  EXPECT_EQ(Format(L"%d", L"12"), L"12");  // a text given for %d is read as a number, not as a pointer
  EXPECT_EQ(Format(L"%s", 12), L"12");     // a number given for %s is printed
  EXPECT_EQ(Format(L"%s and %d"), L" and 0");
  EXPECT_EQ(Format(L"%.1f", 3), L"3.0");
  EXPECT_EQ(Format(L"100%"), L"100");      // a lone percent at the end prints nothing
  EXPECT_EQ(Format(L"%y %d", 5), L"%y 5");  // unknown conversions stand as they are and take no argument
}

TEST(Utf8Test, RoundTripsChineseAndAstralText) {
  const std::wstring text = L"对象选择工具 abc \t \U0001F600";
  EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
  EXPECT_EQ(ToUtf8(L"羽化"), "\xE7\xBE\xBD\xE5\x8C\x96");
  EXPECT_EQ(ToUtf8(L"\U0001F600"), "\xF0\x9F\x98\x80");
}

TEST(Utf8Test, MalformedInputBecomesReplacementCharacters) {
  EXPECT_EQ(FromUtf8("a\xFF" "b"), L"a\uFFFD" L"b");
  EXPECT_EQ(FromUtf8("\xE7\xBE"), L"\uFFFD\uFFFD");    // truncated sequence
  EXPECT_EQ(FromUtf8("\xC0\xAF"), L"\uFFFD\uFFFD");    // overlong encoding of '/'
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), L"\uFFFD\uFFFD\uFFFD");  // an encoded surrogate
}

}  // namespace
}  // namespace ostrel
