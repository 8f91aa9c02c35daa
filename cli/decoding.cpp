// UTF-8 and UTF-16LE decoding that reports the first invalid byte instead of replacing it.
#include "decoding.h"

#include "platform/text.h"

namespace ostrel::cli {
namespace {

// The length of the UTF-8 sequence that starts at bytes[i] when it is valid, else 0.
size_t ValidUtf8SequenceAt(std::string_view bytes, size_t i) {
  const unsigned char lead = static_cast<unsigned char>(bytes[i]);
  if (lead < 0x80) return 1;
  const size_t length = (lead >> 5) == 0x6 ? 2 : (lead >> 4) == 0xE ? 3 : (lead >> 3) == 0x1E ? 4 : 0;
  if (length == 0 || bytes.size() - i < length) return 0;
  char32_t cp = lead & (0x7F >> length);
  for (size_t k = 1; k < length; ++k) {
    const unsigned char c = static_cast<unsigned char>(bytes[i + k]);
    if ((c & 0xC0) != 0x80) return 0;
    cp = (cp << 6) | (c & 0x3F);
  }
  static constexpr char32_t kMinimum[] = {0, 0, 0x80, 0x800, 0x10000};
  if (cp < kMinimum[length] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
  return length;
}

}  // namespace

std::optional<std::wstring> DecodeUtf8(std::string_view bytes, size_t& badOffset) {
  for (size_t i = 0; i < bytes.size();) {
    const size_t length = ValidUtf8SequenceAt(bytes, i);
    if (length == 0) {
      badOffset = i;
      return std::nullopt;
    }
    i += length;
  }
  return FromUtf8(bytes);  // every sequence is valid, so nothing is replaced
}

std::optional<std::wstring> DecodeUtf16Le(std::string_view bytes, size_t& badOffset) {
  auto unitAt = [&](size_t i) {
    return static_cast<char32_t>(static_cast<unsigned char>(bytes[i]) |
                                 (static_cast<unsigned char>(bytes[i + 1]) << 8));
  };
  auto isHigh = [](char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; };
  auto isLow = [](char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; };
  std::wstring out;
  out.reserve(bytes.size() / 2);
  size_t i = 0;
  for (; i + 1 < bytes.size(); i += 2) {
    const char32_t unit = unitAt(i);
    if (isHigh(unit) && i + 3 < bytes.size() && isLow(unitAt(i + 2))) {
      AppendWide(out, 0x10000 + ((unit - 0xD800) << 10) + (unitAt(i + 2) - 0xDC00));
      i += 2;
    } else if (isHigh(unit) || isLow(unit)) {
      badOffset = i;
      return std::nullopt;
    } else {
      AppendWide(out, unit);
    }
  }
  if (i < bytes.size()) {  // an odd byte at the end
    badOffset = i;
    return std::nullopt;
  }
  return out;
}

}  // namespace ostrel::cli
