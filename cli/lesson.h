// Reading lesson scripts as people have them: UTF-8 (with or without a byte order mark) or UTF-16LE with its
// byte order mark, told apart by that mark, or GBK when asked for; one script line per text line.
#pragma once

#include <cstddef>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ostrel::cli {

enum class LessonEncoding {
  kDetect,   // UTF-16LE after its byte order mark FF FE, else UTF-8
  kUtf8,
  kUtf16Le,
  kGbk,      // code page 936, decoded by the platform's converter
};

struct LessonLine {
  std::wstring strText;             // without its line end; a byte that isn't valid shows as \xNN
  std::optional<size_t> nBadOffset;  // the offset in the file of the line's first byte that isn't valid
};

// Splits and decodes lesson bytes. A line ends at LF, and a CR right before the LF belongs to the line end, not
// to the field; a lone CR stays in its field (also at the very end); a last line without LF still counts. UTF-8
// and GBK lines are split at every 0x0A byte (no multi-byte character of either holds one); UTF-16LE at every
// U+000A, as if split after decoding. A byte order mark at the start is dropped.
std::vector<LessonLine> DecodeLesson(std::string_view bytes, LessonEncoding encoding);

// Reads a whole lesson from a file ("-" is standard input). Nothing when the file can't be read.
std::optional<std::vector<LessonLine>> ReadLesson(const std::string& path, LessonEncoding encoding);

// Characters from reading a stream to its end.
std::string ReadAll(std::istream& in);

}  // namespace ostrel::cli
