// The subcommands of the ostrel tool. Each takes its options, already read from the command line
// (command_line.h), prints its answer on standard output and returns the exit status.
#pragma once

#include <string>
#include <vector>

#include "lesson.h"

namespace ostrel::cli {

struct ParseOptions {
  bool bJson = false;
  LessonEncoding encoding = LessonEncoding::kDetect;
  std::string path = "-";
};

struct CallOptions {
  bool bList = false;
  std::string name;
  std::vector<std::string> words;  // the export's arguments, as typed
  bool bCountCalls = false;        // add "automationCalls" to the answer
};

struct LintOptions {
  bool bJson = false;
  LessonEncoding encoding = LessonEncoding::kDetect;
  std::vector<std::string> paths;  // none: standard input
};

struct CaptureOptions {
  std::string path = "-";  // - or none: standard output
};

int RunParseCommand(const ParseOptions& options);
int RunCallCommand(const CallOptions& options);
int RunLintCommand(const LintOptions& options);
int RunCaptureCommand(const CaptureOptions& options);

// The display width of text in a terminal: East Asian wide characters take two columns.
size_t DisplayWidth(const std::wstring& text);

// Text for one table cell: control characters shown as escapes (\t, \r, \xNN) so that columns stay put.
std::wstring VisibleText(const std::wstring& text);

}  // namespace ostrel::cli
