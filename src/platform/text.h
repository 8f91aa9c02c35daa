// Text helpers shared by every subsystem: numbers read as the Windows C runtime reads them, printf-style
// formatting of wide text that gives the same result whatever the width of wchar_t, and UTF-8 conversion.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ostrel {

// Reads a whole number the way _wtoi does: leading white space, an optional sign, then decimal digits up to the
// first other character. No digits give 0; a value beyond the range of int gives INT_MAX or INT_MIN.
int WToI(std::wstring_view text) noexcept;

// Reads a decimal number the way _wtof does: leading white space, an optional sign, digits with an optional
// decimal point and exponent (also "inf", "nan" and 0x hex forms), up to the first other character.
// No number gives 0; overflow gives +-HUGE_VAL, underflow 0.
double WToF(std::wstring_view text) noexcept;

// One argument of Format: a whole number, a decimal number or a text.
class FormatArg {
 public:
  enum class Kind { kInt, kDouble, kText };
  FormatArg(int value) noexcept : m_kind(Kind::kInt), m_int(value) {}
  FormatArg(long value) noexcept : m_kind(Kind::kInt), m_int(value) {}
  FormatArg(long long value) noexcept : m_kind(Kind::kInt), m_int(value) {}
  FormatArg(unsigned value) noexcept : m_kind(Kind::kInt), m_int(value) {}
  FormatArg(unsigned long value) noexcept : m_kind(Kind::kInt), m_int(static_cast<long long>(value)) {}
  FormatArg(double value) noexcept : m_kind(Kind::kDouble), m_double(value) {}
  FormatArg(std::wstring_view value) noexcept : m_kind(Kind::kText), m_text(value) {}
  FormatArg(const std::wstring& value) noexcept : m_kind(Kind::kText), m_text(value) {}
  FormatArg(const wchar_t* value) noexcept : m_kind(Kind::kText), m_text(value ? value : L"") {}

  Kind kind() const noexcept { return m_kind; }
  long long AsInt() const noexcept;
  double AsDouble() const noexcept;
  std::wstring_view AsText() const noexcept { return m_text; }

 private:
  Kind m_kind;
  long long m_int = 0;
  double m_double = 0;
  std::wstring_view m_text;
};

// printf-style formatting of wide text: %s takes a text, %d/%i/%u/%x/%X/%o/%c whole numbers, %f/%e/%g decimal
// numbers (with l, ll, h length letters accepted and ignored), %% a percent sign; flags - + blank 0 #, width and
// precision (also *) as printf has them; a width counts UTF-16 units, as swprintf on Windows does. A missing
// argument prints nothing; an argument of another kind is converted rather than misread. The result is the same
// on every platform.
std::wstring FormatArgs(std::wstring_view pattern, const FormatArg* args, size_t count);

template <class... Args>
std::wstring Format(std::wstring_view pattern, const Args&... args) {
  if constexpr (sizeof...(Args) == 0) {
    return FormatArgs(pattern, nullptr, 0);
  } else {
    const FormatArg list[] = {FormatArg(args)...};
    return FormatArgs(pattern, list, sizeof...(Args));
  }
}

// UTF-8 to wide text and back. Wide text is UTF-16 where wchar_t has 16 bits and UTF-32 where it has 32.
// Malformed input becomes U+FFFD; nothing throws but allocation.
std::string ToUtf8(std::wstring_view text);
// Appends one code point as UTF-8; a surrogate or a number beyond U+10FFFF becomes U+FFFD.
void AppendUtf8(std::string& out, char32_t codePoint);
std::wstring FromUtf8(std::string_view text);

// Appends one Unicode code point to wide text: a surrogate pair where wchar_t is 16-bit.
void AppendWide(std::wstring& out, char32_t cp);

}  // namespace ostrel
