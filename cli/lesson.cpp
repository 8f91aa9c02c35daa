// Reading lesson scripts from files and standard input.
#include "lesson.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

#include "platform/text.h"

namespace ostrel::cli {

std::vector<std::wstring> SplitLessonText(const std::string& utf8) {
  std::string_view text(utf8);
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
  std::vector<std::wstring> lines;
  while (!text.empty()) {
    const size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (end != std::string_view::npos && !line.empty() && line.back() == '\r') line.remove_suffix(1);
    lines.push_back(FromUtf8(line));
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  return lines;
}

std::string ReadAll(std::istream& in) {
  std::ostringstream buffer;
  buffer << in.rdbuf();
  return buffer.str();
}

std::optional<std::vector<std::wstring>> ReadLesson(const std::string& path) {
  if (path == "-") return SplitLessonText(ReadAll(std::cin));
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return std::nullopt;  // opens, but reads as nothing
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::string text = ReadAll(file);
  if (file.bad()) return std::nullopt;
  return SplitLessonText(text);
}

}  // namespace ostrel::cli
