// `ostrel parse [--json] [--encoding E] [FILE]`: every line of a lesson through the dispatcher, as a table or as
// JSON lines.
#include <algorithm>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>

#include <cstdio>
#endif

#include "commands.h"
#include "json.h"
#include "lesson.h"
#include "ostrel/OstrelCore.h"
#include "platform/text.h"

namespace ostrel::cli {

size_t DisplayWidth(const std::wstring& text) {
  size_t width = 0;
  for (const wchar_t c : text) {
    const auto cp = static_cast<unsigned long>(c);
    const bool wide = (cp >= 0x1100 && cp <= 0x115F) || (cp >= 0x2E80 && cp <= 0xA4CF) ||
                      (cp >= 0xAC00 && cp <= 0xD7A3) || (cp >= 0xF900 && cp <= 0xFAFF) ||
                      (cp >= 0xFE30 && cp <= 0xFE4F) || (cp >= 0xFF00 && cp <= 0xFF60) ||
                      (cp >= 0xFFE0 && cp <= 0xFFE6);
    width += wide ? 2 : 1;
  }
  return width;
}

std::wstring VisibleText(const std::wstring& text) {
  std::wstring out;
  for (const wchar_t c : text) {
    if (c == L'\t') out += L"\\t";
    else if (c == L'\r') out += L"\\r";
    else if (c == L'\n') out += L"\\n";
    else if (static_cast<unsigned long>(c) < 0x20) out += Format(L"\\x%02x", static_cast<int>(c));
    else out += c;
  }
  return out;
}

namespace {

constexpr size_t kMaxTitleWidth = 24;

std::wstring Pad(const std::wstring& text, size_t width) {
  const size_t used = DisplayWidth(text);
  return text + std::wstring(used < width ? width - used : 0, L' ');
}

void PrintTableHeader(size_t titleWidth) {
  std::cout << ToUtf8(Pad(L"line", 6) + Pad(L"result", 8) + Pad(L"title", titleWidth + 2) + L"detail") << '\n';
}

void PrintTableRow(size_t number, int result, const tagVantoScript& script, size_t titleWidth) {
  std::wstring row = Pad(std::to_wstring(number), 6) + Pad(std::to_wstring(result), 8) +
                     Pad(VisibleText(script.strTitle), titleWidth + 2) + VisibleText(script.strDetail);
  while (!row.empty() && row.back() == L' ') row.pop_back();
  std::cout << ToUtf8(row) << '\n';
}

void PrintJsonLine(int result, const tagVantoScript& script) {
  Json object = Json::object();
  object["result"] = result;
  object["title"] = ToUtf8(script.strTitle);
  object["detail"] = ToUtf8(script.strDetail);
  std::cout << RenderJson(object) << '\n';
}

// The lesson, opened anew for each pass: a file is read from disk each time; standard input, which can be read
// only once, is held in memory.
class LessonSource {
 public:
  explicit LessonSource(const std::string& path) : m_path(path) {
    if (path != "-") return;
#if defined(_WIN32)
    _setmode(_fileno(stdin), _O_BINARY);  // every byte as it is: no CR LF folding, no end at a 0x1A byte
#endif
    m_input = ReadAll(std::cin);
  }
  std::unique_ptr<std::istream> Open() const {
    if (m_path == "-") return std::make_unique<std::istringstream>(m_input);
    return std::make_unique<std::ifstream>(m_path, std::ios::binary);
  }

 private:
  std::string m_path, m_input;
};

}  // namespace

// Two passes over the lesson, each holding one line at a time: the first refuses a line that isn't valid in its
// encoding before anything is printed (it would reach the library altered) and measures the table's title
// column; the second parses and prints.
int RunParseCommand(const ParseOptions& options) {
  const std::string shownPath = options.path == "-" ? "<stdin>" : options.path;
  if (const std::string why = WhyLessonUnreadable(options.path); !why.empty()) {
    std::cerr << "ostrel parse: " << shownPath << ": " << why << "\n";
    return 2;
  }
  const LessonSource source(options.path);
  Ostrel_Init();
  size_t titleWidth = 5;
  {
    const std::unique_ptr<std::istream> in = source.Open();
    LessonLineReader reader(*in, options.encoding);
    size_t number = 0;
    while (const std::optional<LessonLine> line = reader.Next()) {
      ++number;
      if (line->nBadOffset) {
        std::cerr << "ostrel parse: " << shownPath << ":" << number << ": invalid bytes for the encoding at byte offset "
                  << *line->nBadOffset << " (--encoding gbk, utf-8 or utf-16le reads another encoding)\n";
        Ostrel_UnInit();
        return 2;
      }
      if (options.bJson) continue;
      tagVantoScript script;
      Ostrel_ParseScript(line->strText, script);
      titleWidth = std::max(titleWidth, std::min(kMaxTitleWidth, DisplayWidth(VisibleText(script.strTitle))));
    }
    if (reader.Failed()) {
      std::cerr << "ostrel parse: " << shownPath << ":" << number + 1 << ": read error\n";
      Ostrel_UnInit();
      return 2;
    }
  }
  if (!options.bJson) PrintTableHeader(titleWidth);
  const std::unique_ptr<std::istream> in = source.Open();
  LessonLineReader reader(*in, options.encoding);
  size_t number = 0;
  while (const std::optional<LessonLine> line = reader.Next()) {
    tagVantoScript script;
    const int result = Ostrel_ParseScript(line->strText, script);
    if (options.bJson) PrintJsonLine(result, script);
    else PrintTableRow(++number, result, script, titleWidth);
  }
  Ostrel_UnInit();
  return 0;
}

}  // namespace ostrel::cli
