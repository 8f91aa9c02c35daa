// Reading lesson scripts from files and standard input.
#include "lesson.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>

#include <cstdio>
#endif

#include "decoding.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace ostrel::cli {
namespace {

using Decoder = std::function<std::optional<std::wstring>(std::string_view bytes, size_t& badOffset)>;

// How one encoding is read: its byte order mark, the width of the unit a line end is made of, its decoder.
struct EncodingReader {
  std::string_view byteOrderMark;
  size_t unit;
  Decoder decode;
};

EncodingReader ReaderFor(LessonEncoding encoding) {
  switch (encoding) {
    case LessonEncoding::kUtf16Le:
      return {"\xFF\xFE", 2, DecodeUtf16Le};
    case LessonEncoding::kGbk:
      return {"", 1, [](std::string_view bytes, size_t& badOffset) {
                return CurrentPlatform().encoding->FromCodePage936(bytes, badOffset);
              }};
    case LessonEncoding::kUtf8:
    case LessonEncoding::kDetect:
      break;
  }
  return {"\xEF\xBB\xBF", 1, DecodeUtf8};
}

LessonEncoding Detect(std::string_view bytes) {
  return bytes.substr(0, 2) == "\xFF\xFE" ? LessonEncoding::kUtf16Le : LessonEncoding::kUtf8;
}

// True when the unit at offset at is the ASCII character c (in UTF-16LE: c and a zero byte).
bool IsUnit(std::string_view bytes, size_t at, size_t unit, char c) {
  return bytes[at] == c && (unit == 1 || bytes[at + 1] == '\0');
}

void AppendEscapedBytes(std::wstring& out, std::string_view bytes) {
  for (const char byte : bytes) out += Format(L"\\x%02x", static_cast<int>(static_cast<unsigned char>(byte)));
}

// Decodes one line that starts at offset start of the file. A unit that isn't valid is shown as its bytes and
// decoding goes on after it, so that the author sees the whole line; the first one's offset is kept.
LessonLine DecodeLine(std::string_view bytes, size_t start, const EncodingReader& reader) {
  LessonLine line;
  size_t done = 0;
  while (done <= bytes.size()) {
    const std::string_view rest = bytes.substr(done);
    size_t bad = 0;
    if (std::optional<std::wstring> text = reader.decode(rest, bad)) {
      line.strText += *text;
      break;
    }
    if (!line.nBadOffset) line.nBadOffset = start + done + bad;
    size_t ignored = 0;
    if (std::optional<std::wstring> valid = reader.decode(rest.substr(0, bad), ignored)) {
      line.strText += *valid;
    } else {
      AppendEscapedBytes(line.strText, rest.substr(0, bad));
    }
    const size_t badLength = std::min(reader.unit, rest.size() - bad);
    AppendEscapedBytes(line.strText, rest.substr(bad, badLength));
    done += bad + std::max<size_t>(badLength, 1);
  }
  return line;
}

// The offset in bytes of the first NUL character of a line (a zero byte; in UTF-16LE a zero unit), if any. The
// lesson player's text ends at a NUL, so a line that holds one would reach the library cut short.
std::optional<size_t> FirstNul(std::string_view bytes, size_t unit) {
  for (size_t at = 0; at + unit <= bytes.size(); at += unit) {
    if (IsUnit(bytes, at, unit, '\0')) return at;
  }
  return std::nullopt;
}

}  // namespace

LessonLineReader::LessonLineReader(std::istream& in, LessonEncoding encoding) : m_in(in), m_encoding(encoding) {}

bool LessonLineReader::ReadBlock() {
  constexpr size_t kBlock = 64 * 1024;
  if (m_pos > 0 && m_pos * 2 >= m_buffer.size()) {  // drop what was read before the buffer grows
    m_buffer.erase(0, m_pos);
    m_bufferOffset += m_pos;
    m_pos = 0;
  }
  const size_t old = m_buffer.size();
  m_buffer.resize(old + kBlock);
  m_in.read(m_buffer.data() + old, static_cast<std::streamsize>(kBlock));
  const auto got = static_cast<size_t>(m_in.gcount());
  m_buffer.resize(old + got);
  if (m_in.bad()) m_failed = true;
  return got > 0;
}

std::optional<LessonLine> LessonLineReader::Next() {
  if (!m_started) {  // the encoding and its byte order mark are told from the first bytes
    m_started = true;
    while (m_buffer.size() < 3 && ReadBlock()) {
    }
    if (m_encoding == LessonEncoding::kDetect) m_encoding = Detect(m_buffer);
  }
  const EncodingReader reader = ReaderFor(m_encoding);
  if (m_bufferOffset == 0 && m_pos == 0 && !reader.byteOrderMark.empty() &&
      std::string_view(m_buffer).substr(0, reader.byteOrderMark.size()) == reader.byteOrderMark) {
    m_pos = reader.byteOrderMark.size();
  }
  const size_t unit = reader.unit;
  size_t end = m_pos;
  bool hasLineFeed = false;
  while (true) {
    while (end + unit <= m_buffer.size() && !IsUnit(m_buffer, end, unit, '\n')) end += unit;
    hasLineFeed = end + unit <= m_buffer.size();
    if (hasLineFeed || m_ended) break;
    const size_t scanned = end - m_pos;
    if (!ReadBlock()) m_ended = true;
    end = m_pos + scanned;  // the buffer may have moved
  }
  if (m_pos >= m_buffer.size()) return std::nullopt;
  if (!hasLineFeed) end = m_buffer.size();
  size_t contentEnd = end;
  if (hasLineFeed && contentEnd >= m_pos + unit && IsUnit(m_buffer, contentEnd - unit, unit, '\r')) contentEnd -= unit;
  const std::string_view content = std::string_view(m_buffer).substr(m_pos, contentEnd - m_pos);
  const size_t start = m_bufferOffset + m_pos;
  LessonLine line = DecodeLine(content, start, reader);
  if (const std::optional<size_t> nul = FirstNul(content, unit); nul && (!line.nBadOffset || start + *nul < *line.nBadOffset)) {
    line.nBadOffset = start + *nul;
  }
  m_pos = hasLineFeed ? end + unit : m_buffer.size();
  return line;
}

std::vector<LessonLine> DecodeLesson(std::string_view bytes, LessonEncoding encoding) {
  std::istringstream in{std::string(bytes)};
  LessonLineReader reader(in, encoding);
  std::vector<LessonLine> lines;
  while (std::optional<LessonLine> line = reader.Next()) lines.push_back(std::move(*line));
  return lines;
}

std::string WhyLessonUnreadable(const std::string& path) {
  if (path == "-") return "";
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (!std::filesystem::exists(status)) return "no such file";
  if (std::filesystem::is_directory(status)) return "is a folder, not a lesson file";
  if (!std::ifstream(path, std::ios::binary)) return "cannot be opened (no permission to read it)";
  return "";
}

std::string ReadAll(std::istream& in) {
  std::ostringstream buffer;
  buffer << in.rdbuf();
  return buffer.str();
}

std::optional<std::vector<LessonLine>> ReadLesson(const std::string& path, LessonEncoding encoding) {
  if (path == "-") {
#if defined(_WIN32)
    _setmode(_fileno(stdin), _O_BINARY);  // every byte as it is: no CR LF folding, no end at a 0x1A byte
#endif
    return DecodeLesson(ReadAll(std::cin), encoding);
  }
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return std::nullopt;  // opens, but reads as nothing
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  const std::string bytes = ReadAll(in);
  if (in.bad()) return std::nullopt;
  return DecodeLesson(bytes, encoding);
}

}  // namespace ostrel::cli
