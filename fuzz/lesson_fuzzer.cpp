// Lesson files as the CLI reads them: the first byte picks the encoding (detected, UTF-8, UTF-16LE, GBK), the rest
// is the file. Decoding must keep every bad offset inside the file, and the lesson checker runs on what it gives.
#include <cstdint>

#include "fuzz_support.h"
#include "lesson.h"
#include "lint.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using ostrel::cli::LessonEncoding;
  if (size == 0) return 0;
  ostrel::fuzz::InitLibraryOnce();
  constexpr LessonEncoding kEncodings[] = {LessonEncoding::kDetect, LessonEncoding::kUtf8, LessonEncoding::kUtf16Le,
                                           LessonEncoding::kGbk};
  const LessonEncoding encoding = kEncodings[data[0] % 4];
  const std::string_view file = ostrel::fuzz::Bytes(data + 1, size - 1);
  const std::vector<ostrel::cli::LessonLine> lines = ostrel::cli::DecodeLesson(file, encoding);
  if (lines.size() > file.size() + 1) ostrel::fuzz::Broken("more lines than bytes");
  size_t lastBad = 0;
  for (const ostrel::cli::LessonLine& line : lines) {
    if (!line.nBadOffset) continue;
    if (*line.nBadOffset >= file.size()) ostrel::fuzz::Broken("a bad offset past the end of the file");
    if (*line.nBadOffset < lastBad) ostrel::fuzz::Broken("bad offsets out of order");
    lastBad = *line.nBadOffset;
  }
  const std::vector<ostrel::cli::LintFinding> findings = ostrel::cli::LintLines(lines);
  if (findings.size() > lines.size()) ostrel::fuzz::Broken("more findings than lines");
  return 0;
}
