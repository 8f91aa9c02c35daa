// The subcommands of the ostrel tool. Each takes the words after its own name and returns the exit status.
#pragma once

#include <string>
#include <vector>

namespace ostrel::cli {

int RunParseCommand(const std::vector<std::string>& args);
int RunCallCommand(const std::vector<std::string>& args);
int RunLintCommand(const std::vector<std::string>& args);

// The display width of text in a terminal: East Asian wide characters take two columns.
size_t DisplayWidth(const std::wstring& text);

// Text for one table cell: control characters shown as escapes (\t, \r, \xNN) so that columns stay put.
std::wstring VisibleText(const std::wstring& text);

}  // namespace ostrel::cli
