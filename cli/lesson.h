// Reading lesson scripts: UTF-8 text, one script line per text line.
#pragma once

#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace ostrel::cli {

// Splits lesson text into script lines. A line ends at LF, and a CR right before the LF belongs to the line
// end, not to the field; a last line without LF still counts; a UTF-8 byte order mark at the start is dropped.
std::vector<std::wstring> SplitLessonText(const std::string& utf8);

// Reads a whole lesson from a file ("-" is standard input). Nothing when the file can't be read.
std::optional<std::vector<std::wstring>> ReadLesson(const std::string& path);

// Characters from reading a stream to its end.
std::string ReadAll(std::istream& in);

}  // namespace ostrel::cli
