// `ostrel parse [--json] [--encoding E] [FILE]`: every line of a lesson through the dispatcher, as a table or as
// JSON lines.
#include <algorithm>
#include <iostream>

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

struct ParsedLine {
  int result;
  tagVantoScript script;
};

void PrintTable(const std::vector<ParsedLine>& parsed) {
  constexpr size_t kMaxTitleWidth = 24;
  size_t titleWidth = 5;
  for (const ParsedLine& line : parsed) {
    titleWidth = std::max(titleWidth, std::min(kMaxTitleWidth, DisplayWidth(VisibleText(line.script.strTitle))));
  }
  auto pad = [](const std::wstring& text, size_t width) {
    const size_t used = DisplayWidth(text);
    return text + std::wstring(used < width ? width - used : 0, L' ');
  };
  std::cout << ToUtf8(pad(L"line", 6) + pad(L"result", 8) + pad(L"title", titleWidth + 2) + L"detail") << '\n';
  for (size_t i = 0; i < parsed.size(); ++i) {
    const ParsedLine& line = parsed[i];
    std::wstring row = pad(std::to_wstring(i + 1), 6) + pad(std::to_wstring(line.result), 8) +
                       pad(VisibleText(line.script.strTitle), titleWidth + 2) + VisibleText(line.script.strDetail);
    while (!row.empty() && row.back() == L' ') row.pop_back();
    std::cout << ToUtf8(row) << '\n';
  }
}

void PrintJsonLines(const std::vector<ParsedLine>& parsed) {
  for (const ParsedLine& line : parsed) {
    Json object = Json::object();
    object["result"] = line.result;
    object["title"] = ToUtf8(line.script.strTitle);
    object["detail"] = ToUtf8(line.script.strDetail);
    std::cout << RenderJson(object) << '\n';
  }
}

}  // namespace

int RunParseCommand(const ParseOptions& options) {
  const std::optional<std::vector<LessonLine>> lines = ReadLesson(options.path, options.encoding);
  const std::string shownPath = options.path == "-" ? "<stdin>" : options.path;
  if (!lines) {
    std::cerr << "ostrel parse: cannot read " << shownPath << "\n";
    return 2;
  }
  // A line that isn't valid in its encoding would reach the library altered: refuse the file.
  for (size_t i = 0; i < lines->size(); ++i) {
    if (const std::optional<size_t> bad = (*lines)[i].nBadOffset) {
      std::cerr << "ostrel parse: " << shownPath << ":" << i + 1 << ": invalid bytes for the encoding at byte offset "
                << *bad << " (--encoding gbk, utf-8 or utf-16le reads another encoding)\n";
      return 2;
    }
  }
  Ostrel_Init();
  std::vector<ParsedLine> parsed;
  parsed.reserve(lines->size());
  for (const LessonLine& line : *lines) {
    ParsedLine result{};
    result.result = Ostrel_ParseScript(line.strText, result.script);
    parsed.push_back(std::move(result));
  }
  Ostrel_UnInit();
  if (options.bJson) PrintJsonLines(parsed);
  else PrintTable(parsed);
  return 0;
}

}  // namespace ostrel::cli
