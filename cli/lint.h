// Checking lessons for their authors: every line the library doesn't understand, every understood line whose
// sentence holds an empty name because one of its codes is unknown to the vocabulary, and every line with bytes
// that aren't valid in the file's encoding.
#pragma once

#include <string>
#include <vector>

#include "lesson.h"
#include "ostrel/script.h"

namespace ostrel::cli {

enum class LintKind {
  kNotUnderstood,  // the dispatcher gives 0
  kUnknownCode,    // understood, but a vocabulary lookup of the row came back empty
  kBadEncoding,    // bytes that aren't valid in the encoding: the line isn't given to the library
};

struct LintFinding {
  size_t nLine;        // from 1
  LintKind kind;
  std::string reason;  // a short explanation for the author, in English
  std::wstring strLine;
  tagVantoScript script;  // what the line gave
  size_t nBadOffset = 0;  // kBadEncoding: the offset in the file of the line's first invalid byte
};

struct LintedFile {
  std::string path;
  bool bReadable = false;
  std::string unreadable;  // why it can't be read ("no such file", "is a folder, not a lesson file", ...)
  size_t nLines = 0;
  std::vector<LintFinding> findings;
};

// Checks the lines of one lesson. The vocabulary tables must be built (Ostrel_Init).
std::vector<LintFinding> LintLines(const std::vector<LessonLine>& lines);

// Reads and checks one lesson file ("-" is standard input).
LintedFile LintFile(const std::string& path, LessonEncoding encoding = LessonEncoding::kDetect);

// 2 if a file could not be read, else 1 if any line was reported, else 0.
int LintExitStatus(const std::vector<LintedFile>& files);

// The findings as "file:line: kind (reason): line", then a summary line.
std::string LintReportText(const std::vector<LintedFile>& files);

// The findings and the summary as one JSON object.
std::string LintReportJson(const std::vector<LintedFile>& files);

}  // namespace ostrel::cli
