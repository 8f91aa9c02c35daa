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

// Reads a lesson line by line from a stream, holding one line and one block of the file at a time, so that the
// memory a lesson takes doesn't grow with its number of lines. The lines are those of DecodeLesson.
class LessonLineReader {
 public:
  LessonLineReader(std::istream& in, LessonEncoding encoding);
  // The next line, or nothing at the end of the lesson (or at a read error: see Failed).
  std::optional<LessonLine> Next();
  bool Failed() const noexcept { return m_failed; }

 private:
  bool ReadBlock();  // appends the next block of the stream; false at its end

  std::istream& m_in;
  LessonEncoding m_encoding;
  bool m_started = false, m_ended = false, m_failed = false;
  std::string m_buffer;  // unread bytes from m_pos on; m_buffer[0] is at offset m_bufferOffset of the file
  size_t m_pos = 0, m_bufferOffset = 0;
};

// Why a lesson file can't be opened, for a message ("no such file", "is a folder, not a lesson file", ...); empty
// when it can be. "-" (standard input) always can.
std::string WhyLessonUnreadable(const std::string& path);

// Characters from reading a stream to its end.
std::string ReadAll(std::istream& in);

}  // namespace ostrel::cli
