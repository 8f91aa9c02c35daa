// Decoding code page 936 (GBK) with the system's converter: valid text comes back whole, and for invalid text the
// offset of the first byte of the first bad character, wherever the pairs before it put the walk.
#include <gtest/gtest.h>

#include <optional>
#include <string_view>

#include "platform/platform.h"

namespace ostrel {
namespace {

struct DecodeCase {
  const char* name;
  std::string_view bytes;
  bool valid;
  std::wstring_view text;  // when valid
  size_t badOffset;        // when not
};

// "矩形选框工具" in GBK: 矩 BE D8, 形 D0 CE, 选 D1 A1, 框 BF F2, 工 B9 A4, 具 BE DF.
constexpr DecodeCase kCases[] = {
    {"Empty", "", true, L"", 0},
    {"Ascii", "TF,51,10", true, L"TF,51,10", 0},
    {"NulKept", std::string_view("a\0b", 3), true, std::wstring_view(L"a\0b", 3), 0},
    {"Chinese", "\xBE\xD8\xD0\xCE\xD1\xA1\xBF\xF2\xB9\xA4\xBE\xDF", true, L"矩形选框工具", 0},
    {"Euro", "\x80", true, L"\u20AC", 0},
    {"Mixed", "TOOL,\xB9\xA4\xBE\xDF \x80", true, L"TOOL,工具 €", 0},
    {"LeadByteAtTheEnd", "ab\xBE", false, L"", 2},
    {"LeadByteAtTheEndAfterPairs", "\xBE\xD8\xD0\xCE\xD0", false, L"", 4},
    {"InvalidTrail", "x\x81\x7F", false, L"", 1},
    {"LoneFF", "ab\xFF", false, L"", 2},
    // The trail byte of 矩 (D8) is itself a lead byte: a walk that loses the pairs would blame D8 FF at 1.
    {"LoneFFAfterAPair", "\xBE\xD8\xFF", false, L"", 2},
    {"FirstBadOneCounts", "\xBE\xD8\x81\x7F\xFF", false, L"", 2},
};

void PrintTo(const DecodeCase& c, std::ostream* os) { *os << c.name; }

class CodePage936Test : public ::testing::TestWithParam<DecodeCase> {};

TEST_P(CodePage936Test, DecodesOrSaysWhereItCantStart) {
  const DecodeCase& c = GetParam();
  size_t badOffset = 12345;
  const std::optional<std::wstring> text = CurrentPlatform().encoding->FromCodePage936(c.bytes, badOffset);
  if (!c.valid) {
    EXPECT_FALSE(text) << "decoded as \"" << (text ? *text : L"") << "\"";
    EXPECT_EQ(badOffset, c.badOffset);
    return;
  }
  ASSERT_TRUE(text) << "refused at " << badOffset;
  EXPECT_EQ(*text, c.text);
}

INSTANTIATE_TEST_SUITE_P(Bytes, CodePage936Test, ::testing::ValuesIn(kCases),
                         [](const ::testing::TestParamInfo<DecodeCase>& info) { return info.param.name; });

}  // namespace
}  // namespace ostrel
