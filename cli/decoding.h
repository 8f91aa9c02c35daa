// Strict decoding of the encodings that lesson files come in: no byte is ever replaced, and the first byte that
// isn't valid is named by its offset.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace ostrel::cli {

// Decodes UTF-8. Nothing when a sequence isn't valid (a stray continuation byte, a sequence cut short, an
// overlong form, a surrogate, a code point beyond U+10FFFF), with badOffset at its first byte.
std::optional<std::wstring> DecodeUtf8(std::string_view bytes, size_t& badOffset);

// Decodes UTF-16 little endian (without a byte order mark). Nothing when a surrogate has no partner or a byte is
// left over at the end, with badOffset at the first byte of that unit.
std::optional<std::wstring> DecodeUtf16Le(std::string_view bytes, size_t& badOffset);

}  // namespace ostrel::cli
