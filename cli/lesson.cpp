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

}  // namespace

std::vector<LessonLine> DecodeLesson(std::string_view bytes, LessonEncoding encoding) {
  const EncodingReader reader = ReaderFor(encoding == LessonEncoding::kDetect ? Detect(bytes) : encoding);
  const size_t unit = reader.unit;
  size_t pos = 0;
  if (!reader.byteOrderMark.empty() && bytes.substr(0, reader.byteOrderMark.size()) == reader.byteOrderMark) {
    pos = reader.byteOrderMark.size();
  }
  std::vector<LessonLine> lines;
  while (pos < bytes.size()) {
    size_t end = pos;
    while (end + unit <= bytes.size() && !IsUnit(bytes, end, unit, '\n')) end += unit;
    const bool hasLineFeed = end + unit <= bytes.size();
    if (!hasLineFeed) end = bytes.size();
    size_t contentEnd = end;
    if (hasLineFeed && contentEnd >= pos + unit && IsUnit(bytes, contentEnd - unit, unit, '\r')) contentEnd -= unit;
    lines.push_back(DecodeLine(bytes.substr(pos, contentEnd - pos), pos, reader));
    if (!hasLineFeed) break;
    pos = end + unit;
  }
  return lines;
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
