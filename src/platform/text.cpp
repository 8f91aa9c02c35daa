// Number reading, formatting and UTF-8 conversion for wide text, independent of locale and of wchar_t's width.
#include "platform/text.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

namespace ostrel {
namespace {

// The white space that the C runtime skips before a number in the "C" locale.
bool IsCSpace(wchar_t c) noexcept {
  return c == L' ' || (c >= L'\t' && c <= L'\r');
}

bool IsDigit(wchar_t c) noexcept { return c >= L'0' && c <= L'9'; }

size_t SkipSpace(std::wstring_view text, size_t pos) noexcept {
  while (pos < text.size() && IsCSpace(text[pos])) ++pos;
  return pos;
}

// True if the ASCII letters of word (lower case) stand at text[pos], in any case.
bool StartsWithNoCase(std::wstring_view text, size_t pos, std::string_view word) noexcept {
  if (text.size() - pos < word.size()) return false;
  for (size_t i = 0; i < word.size(); ++i) {
    wchar_t c = text[pos + i];
    if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
    if (c != static_cast<unsigned char>(word[i])) return false;
  }
  return true;
}

// The longest prefix of text (from pos) that a decimal or hex floating number can use, as ASCII.
std::string FloatCandidate(std::wstring_view text, size_t pos) {
  std::string out;
  for (; pos < text.size() && out.size() < 4096; ++pos) {
    const wchar_t c = text[pos];
    const bool ascii = (c >= L'0' && c <= L'9') || (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') ||
                       c == L'.' || c == L'+' || c == L'-';
    if (!ascii) break;
    out.push_back(static_cast<char>(c));
  }
  return out;
}

// Tells overflow from underflow for a decimal text that from_chars found out of range: the position of the
// first significant digit relative to the decimal point, plus the exponent, says whether it is huge or tiny.
bool DecimalIsHuge(std::string_view digits) {
  long long magnitude = 0;
  bool seenPoint = false, seenSignificant = false;
  size_t i = 0;
  for (; i < digits.size(); ++i) {
    const char c = digits[i];
    if (c == '.') {
      seenPoint = true;
      continue;
    }
    if (c < '0' || c > '9') break;
    if (!seenPoint && (seenSignificant || c != '0')) ++magnitude;
    if (seenPoint && !seenSignificant && c == '0') --magnitude;
    if (c != '0') seenSignificant = true;
  }
  // The exponent's digits, held at a billion: far beyond any double's, and far from overflowing the sum.
  constexpr long long kExponentLimit = 1'000'000'000;
  long long exponent = 0;
  if (i < digits.size() && (digits[i] == 'e' || digits[i] == 'E')) {
    size_t j = i + 1;
    const bool negativeExponent = j < digits.size() && digits[j] == '-';
    if (j < digits.size() && (digits[j] == '+' || digits[j] == '-')) ++j;
    for (; j < digits.size() && digits[j] >= '0' && digits[j] <= '9'; ++j) {
      exponent = std::min(kExponentLimit, exponent * 10 + (digits[j] - '0'));
    }
    if (negativeExponent) exponent = -exponent;
  }
  return magnitude + exponent > 0;
}

}  // namespace

int WToI(std::wstring_view text) noexcept {
  size_t pos = SkipSpace(text, 0);
  bool negative = false;
  if (pos < text.size() && (text[pos] == L'+' || text[pos] == L'-')) negative = text[pos++] == L'-';
  long long value = 0;
  bool overflow = false;
  for (; pos < text.size() && IsDigit(text[pos]); ++pos) {
    if (overflow) continue;
    value = value * 10 + (text[pos] - L'0');
    if (value > static_cast<long long>(INT_MAX) + 1) overflow = true;
  }
  if (negative) {
    if (overflow || value > static_cast<long long>(INT_MAX) + 1) return INT_MIN;
    return static_cast<int>(-value);
  }
  if (overflow || value > INT_MAX) return INT_MAX;
  return static_cast<int>(value);
}

double WToF(std::wstring_view text) noexcept {
  size_t pos = SkipSpace(text, 0);
  bool negative = false;
  if (pos < text.size() && (text[pos] == L'+' || text[pos] == L'-')) negative = text[pos++] == L'-';
  const double sign = negative ? -1.0 : 1.0;
  if (StartsWithNoCase(text, pos, "inf")) return sign * std::numeric_limits<double>::infinity();
  if (StartsWithNoCase(text, pos, "nan")) return std::numeric_limits<double>::quiet_NaN();
  try {
    const std::string candidate = FloatCandidate(text, pos);
    if (candidate.empty() || candidate[0] == '+' || candidate[0] == '-') return 0.0;
    const bool hex = candidate.size() > 1 && candidate[0] == '0' && (candidate[1] == 'x' || candidate[1] == 'X');
    const char* first = candidate.data() + (hex ? 2 : 0);
    const char* last = candidate.data() + candidate.size();
    double value = 0.0;
    auto [end, ec] = std::from_chars(first, last, value, hex ? std::chars_format::hex : std::chars_format::general);
    if (ec == std::errc::invalid_argument) return 0.0;  // "0x" without hex digits reads as the 0 before it
    if (ec == std::errc::result_out_of_range) {
      if (hex) return sign * HUGE_VAL;  // a hex text long enough to leave the range is huge in practice
      return DecimalIsHuge(candidate) ? sign * HUGE_VAL : sign * 0.0;
    }
    (void)end;
    return sign * value;
  } catch (...) {
    return 0.0;
  }
}

long long FormatArg::AsInt() const noexcept {
  switch (m_kind) {
    case Kind::kInt: return m_int;
    case Kind::kDouble: return std::isfinite(m_double) ? static_cast<long long>(m_double) : 0;
    case Kind::kText: return WToI(m_text);
  }
  return 0;
}

double FormatArg::AsDouble() const noexcept {
  switch (m_kind) {
    case Kind::kInt: return static_cast<double>(m_int);
    case Kind::kDouble: return m_double;
    case Kind::kText: return WToF(m_text);
  }
  return 0;
}

namespace {

// One conversion of a pattern: %[flags][width][.precision][length]letter.
struct Conversion {
  bool leftAlign = false, plus = false, blank = false, zeroPad = false, alternate = false;
  int width = 0;
  int precision = -1;
  wchar_t conversion = 0;
};

std::wstring Widen(std::string_view ascii) { return std::wstring(ascii.begin(), ascii.end()); }

// Whole number body with sign and precision (minimum digits), without width padding.
std::wstring FormatInteger(const Conversion& want, long long value) {
  const wchar_t conv = want.conversion;
  const bool isSigned = conv == L'd' || conv == L'i';
  unsigned long long magnitude;
  std::wstring sign;
  if (isSigned) {
    magnitude = value < 0 ? 0ULL - static_cast<unsigned long long>(value) : static_cast<unsigned long long>(value);
    if (value < 0) sign = L"-";
    else if (want.plus) sign = L"+";
    else if (want.blank) sign = L" ";
  } else {
    magnitude = static_cast<unsigned int>(value);  // printf reads %u/%x/%o as unsigned int
  }
  const int base = conv == L'x' || conv == L'X' ? 16 : conv == L'o' ? 8 : 10;
  char buffer[72];
  auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, magnitude, base);
  (void)ec;
  std::string digits(buffer, end);
  if (conv == L'X') {
    for (char& c : digits) c = static_cast<char>(c >= 'a' && c <= 'f' ? c - 'a' + 'A' : c);
  }
  if (want.precision == 0 && magnitude == 0) digits.clear();
  if (want.precision > 0 && static_cast<int>(digits.size()) < want.precision) {
    digits.insert(0, static_cast<size_t>(want.precision) - digits.size(), '0');
  }
  std::wstring prefix = sign;
  if (want.alternate && magnitude != 0 && base == 16) prefix += conv == L'X' ? L"0X" : L"0x";
  if (want.alternate && base == 8 && (digits.empty() || digits[0] != '0')) digits.insert(0, 1, '0');
  return prefix + Widen(digits);
}

std::wstring FormatDouble(const Conversion& want, double value) {
  std::wstring sign;
  if (std::signbit(value) && !std::isnan(value)) sign = L"-";
  else if (want.plus) sign = L"+";
  else if (want.blank) sign = L" ";
  const double magnitude = std::fabs(value);
  const bool upper = want.conversion == L'F' || want.conversion == L'E' || want.conversion == L'G';
  if (std::isinf(magnitude) || std::isnan(magnitude)) {
    std::wstring word = std::isinf(magnitude) ? L"inf" : L"nan";
    if (upper) word = std::isinf(magnitude) ? L"INF" : L"NAN";
    return sign + word;
  }
  const int precision = want.precision < 0 ? 6 : want.precision;
  std::chars_format format = std::chars_format::fixed;
  switch (want.conversion) {
    case L'e': case L'E': format = std::chars_format::scientific; break;
    case L'g': case L'G': format = std::chars_format::general; break;
    default: break;
  }
  std::string buffer(400 + static_cast<size_t>(precision), '\0');
  auto [end, ec] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, format, precision);
  if (ec != std::errc()) return sign;
  buffer.resize(static_cast<size_t>(end - buffer.data()));
  if (upper) {
    for (char& c : buffer) c = static_cast<char>(c == 'e' ? 'E' : c);
  }
  if (want.alternate && buffer.find('.') == std::string::npos && format == std::chars_format::fixed) buffer += '.';
  return sign + Widen(buffer);
}

constexpr bool BeyondBmp(uint32_t codePoint) { return codePoint > 0xFFFF; }

// The length of text in UTF-16 units, which a width counts on Windows: a character beyond the BMP is two of
// them there, so where wchar_t holds it whole it counts twice.
size_t Utf16Length(std::wstring_view text) {
  size_t length = text.size();
  if constexpr (sizeof(wchar_t) > 2) {
    for (const wchar_t c : text) length += BeyondBmp(static_cast<uint32_t>(c)) ? 1 : 0;
  }
  return length;
}

// Pads body to the want's width; zero padding goes between the sign (or 0x) and the digits.
void AppendPadded(std::wstring& out, const Conversion& want, std::wstring body, bool numeric) {
  const size_t width = want.width > 0 ? static_cast<size_t>(want.width) : 0;
  const size_t length = Utf16Length(body);
  if (length >= width) {
    out += body;
    return;
  }
  const size_t fill = width - length;
  if (want.leftAlign) {
    out += body;
    out.append(fill, L' ');
    return;
  }
  const bool zeroPad = numeric && want.zeroPad && !(want.precision >= 0 && want.conversion != L'f' &&
                                                   want.conversion != L'F' && want.conversion != L'e' &&
                                                   want.conversion != L'E' && want.conversion != L'g' &&
                                                   want.conversion != L'G');
  if (!zeroPad || body.find_first_of(L"inIN") != std::wstring::npos) {  // inf and nan never take zeros
    out.append(fill, L' ');
    out += body;
    return;
  }
  size_t digitsAt = 0;
  while (digitsAt < body.size() && (body[digitsAt] == L'-' || body[digitsAt] == L'+' || body[digitsAt] == L' '))
    ++digitsAt;
  if (body.size() - digitsAt >= 2 && body[digitsAt] == L'0' && (body[digitsAt + 1] == L'x' || body[digitsAt + 1] == L'X'))
    digitsAt += 2;
  body.insert(digitsAt, fill, L'0');
  out += body;
}

// Reads the flags, width, precision and length of a conversion, starting after its '%'.
// Returns the position of the conversion letter.
size_t ParseConversion(std::wstring_view pattern, size_t pos, Conversion& want, const FormatArg* args, size_t count,
                 size_t& next) {
  for (; pos < pattern.size(); ++pos) {
    const wchar_t c = pattern[pos];
    if (c == L'-') want.leftAlign = true;
    else if (c == L'+') want.plus = true;
    else if (c == L' ') want.blank = true;
    else if (c == L'0') want.zeroPad = true;
    else if (c == L'#') want.alternate = true;
    else break;
  }
  if (pos < pattern.size() && pattern[pos] == L'*') {
    const long long width = next < count ? args[next++].AsInt() : 0;
    if (width < 0) want.leftAlign = true;
    want.width = static_cast<int>(std::min<long long>(width < 0 ? -width : width, 100000));
    ++pos;
  }
  for (; pos < pattern.size() && IsDigit(pattern[pos]); ++pos) {
    want.width = std::min(want.width * 10 + (pattern[pos] - L'0'), 100000);
  }
  if (pos < pattern.size() && pattern[pos] == L'.') {
    ++pos;
    want.precision = 0;
    if (pos < pattern.size() && pattern[pos] == L'*') {
      const long long precision = next < count ? args[next++].AsInt() : 0;
      want.precision = precision < 0 ? -1 : static_cast<int>(std::min<long long>(precision, 100000));
      ++pos;
    }
    for (; pos < pattern.size() && IsDigit(pattern[pos]); ++pos) {
      want.precision = std::min(want.precision * 10 + (pattern[pos] - L'0'), 100000);
    }
  }
  while (pos < pattern.size() && (pattern[pos] == L'l' || pattern[pos] == L'h' || pattern[pos] == L'L')) ++pos;
  return pos;
}

}  // namespace

std::wstring FormatArgs(std::wstring_view pattern, const FormatArg* args, size_t count) {
  std::wstring out;
  out.reserve(pattern.size() + 16);
  size_t next = 0;
  for (size_t pos = 0; pos < pattern.size(); ++pos) {
    if (pattern[pos] != L'%') {
      out += pattern[pos];
      continue;
    }
    Conversion want;
    pos = ParseConversion(pattern, pos + 1, want, args, count, next);
    if (pos >= pattern.size()) break;  // a lone '%' at the end prints nothing, as the C runtime does
    want.conversion = pattern[pos];
    if (want.conversion == L'%') {
      out += L'%';
      continue;
    }
    const FormatArg* arg = next < count ? &args[next++] : nullptr;
    // The conversions of nearly every sentence, a plain %s of a text and a plain %d, go straight into the
    // output: no flag, width or precision can change them.
    const bool plain = want.width == 0 && want.precision < 0 && !want.plus && !want.blank && !want.alternate;
    if (plain && arg && want.conversion == L's' && arg->kind() == FormatArg::Kind::kText) {
      out += arg->AsText();
      continue;
    }
    if (plain && want.conversion == L'd') {
      char digits[24];
      const auto [end, ec] = std::to_chars(digits, digits + sizeof digits, arg ? arg->AsInt() : 0);
      (void)ec;
      out.append(digits, end);
      continue;
    }
    switch (want.conversion) {
      case L'd': case L'i': case L'u': case L'x': case L'X': case L'o':
        AppendPadded(out, want, FormatInteger(want, arg ? arg->AsInt() : 0), true);
        break;
      case L'f': case L'F': case L'e': case L'E': case L'g': case L'G':
        AppendPadded(out, want, FormatDouble(want, arg ? arg->AsDouble() : 0.0), true);
        break;
      case L'c':
        AppendPadded(out, want, std::wstring(1, static_cast<wchar_t>(arg ? arg->AsInt() : 0)), false);
        break;
      case L's': {
        std::wstring text;
        if (arg && arg->kind() == FormatArg::Kind::kText) text = arg->AsText();
        else if (arg) text = FormatInteger(Conversion{.conversion = L'd'}, arg->AsInt());
        if (want.precision >= 0 && text.size() > static_cast<size_t>(want.precision))
          text.resize(static_cast<size_t>(want.precision));
        AppendPadded(out, want, std::move(text), false);
        break;
      }
      default:  // an unknown conversion is printed as it stands
        out += L'%';
        out += want.conversion;
        if (arg) --next;
        break;
    }
  }
  return out;
}

namespace {

constexpr char32_t kReplacement = 0xFFFD;

}  // namespace

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) cp = kReplacement;
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

void AppendWide(std::wstring& out, char32_t cp) {
  if constexpr (sizeof(wchar_t) == 2) {
    if (cp >= 0x10000) {
      cp -= 0x10000;
      out += static_cast<wchar_t>(0xD800 + (cp >> 10));
      out += static_cast<wchar_t>(0xDC00 + (cp & 0x3FF));
      return;
    }
  }
  out += static_cast<wchar_t>(cp);
}

std::string ToUtf8(std::wstring_view text) {
  std::string out;
  out.reserve(text.size() * 3);
  for (size_t i = 0; i < text.size(); ++i) {
    char32_t cp = static_cast<char32_t>(text[i]);
    if constexpr (sizeof(wchar_t) == 2) {
      cp &= 0xFFFF;
      if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < text.size()) {
        const char32_t low = static_cast<char32_t>(text[i + 1]) & 0xFFFF;
        if (low >= 0xDC00 && low <= 0xDFFF) {
          cp = 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00);
          ++i;
        }
      }
    }
    AppendUtf8(out, cp);
  }
  return out;
}

std::wstring FromUtf8(std::string_view text) {
  std::wstring out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    const unsigned char lead = static_cast<unsigned char>(text[i]);
    int length = lead < 0x80 ? 1 : (lead >> 5) == 0x6 ? 2 : (lead >> 4) == 0xE ? 3 : (lead >> 3) == 0x1E ? 4 : 0;
    if (length == 0 || i + length > text.size()) {
      AppendWide(out, kReplacement);
      ++i;
      continue;
    }
    char32_t cp = length == 1 ? lead : lead & (0x7F >> length);
    bool valid = true;
    for (int k = 1; k < length; ++k) {
      const unsigned char c = static_cast<unsigned char>(text[i + k]);
      if ((c & 0xC0) != 0x80) {
        valid = false;
        break;
      }
      cp = (cp << 6) | (c & 0x3F);
    }
    static constexpr char32_t kMinimum[] = {0, 0, 0x80, 0x800, 0x10000};
    if (!valid || cp < kMinimum[length] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
      AppendWide(out, kReplacement);
      ++i;
      continue;
    }
    AppendWide(out, cp);
    i += static_cast<size_t>(length);
  }
  return out;
}

}  // namespace ostrel
