// `ostrel lint [--json] [--encoding E] [FILE...]`: a lesson checker for lesson authors.
#include <fstream>
#include <iostream>

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>

#include <cstdio>
#endif

#include "commands.h"
#include "json.h"
#include "lesson.h"
#include "lint.h"
#include "ostrel/lifecycle.h"
#include "platform/text.h"
#include "script/checked_parse.h"

namespace ostrel::cli {
namespace {

std::string NotUnderstoodReason(const std::wstring& line) {
  if (line.empty()) return "empty line";
  const std::wstring keyword = line.substr(0, line.find(L','));
  if (!IsScriptKeyword(keyword)) return "unknown keyword \"" + ToUtf8(VisibleText(keyword)) + "\"";
  return "too few items, or a code that the row doesn't know";
}

const char* KindName(LintKind kind) {
  switch (kind) {
    case LintKind::kNotUnderstood:
      return "not understood";
    case LintKind::kUnknownCode:
      return "unknown code";
    case LintKind::kBadEncoding:
      return "invalid bytes";
  }
  return "";
}

const char* KindId(LintKind kind) {
  switch (kind) {
    case LintKind::kNotUnderstood:
      return "not-understood";
    case LintKind::kUnknownCode:
      return "unknown-code";
    case LintKind::kBadEncoding:
      return "bad-encoding";
  }
  return "";
}

std::string DisplayPath(const std::string& path) { return path == "-" ? "<stdin>" : path; }

struct Totals {
  size_t files = 0, unreadable = 0, lines = 0, notUnderstood = 0, unknownCode = 0, badEncoding = 0;
  size_t Reported() const { return notUnderstood + unknownCode + badEncoding; }
};

Totals Count(const std::vector<LintedFile>& files) {
  Totals totals;
  for (const LintedFile& file : files) {
    ++totals.files;
    if (!file.bReadable) ++totals.unreadable;
    totals.lines += file.nLines;
    for (const LintFinding& finding : file.findings) {
      switch (finding.kind) {
        case LintKind::kNotUnderstood: ++totals.notUnderstood; break;
        case LintKind::kUnknownCode: ++totals.unknownCode; break;
        case LintKind::kBadEncoding: ++totals.badEncoding; break;
      }
    }
  }
  return totals;
}

std::string Plural(size_t count, const char* word) {
  return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

}  // namespace

namespace {

void LintLine(const LessonLine& line, size_t number, std::vector<LintFinding>& findings) {
  const std::wstring& text = line.strText;
  if (const std::optional<size_t> bad = line.nBadOffset) {
    findings.push_back({number, LintKind::kBadEncoding, "the first at byte offset " + std::to_string(*bad), text,
                        tagVantoScript{}, *bad});
    return;
  }
  tagVantoScript script;
  const CheckedParse parse = ParseScriptChecked(text, script);
  if (parse.nResult == 0) {
    findings.push_back({number, LintKind::kNotUnderstood, NotUnderstoodReason(text), text, script});
  } else if (parse.nEmptyNames > 0) {
    findings.push_back({number, LintKind::kUnknownCode, "the sentence holds an empty name", text, script});
  }
}

}  // namespace

std::vector<LintFinding> LintLines(const std::vector<LessonLine>& lines) {
  std::vector<LintFinding> findings;
  for (size_t i = 0; i < lines.size(); ++i) LintLine(lines[i], i + 1, findings);
  return findings;
}

// Reads the lesson a line at a time: only the findings are kept.
LintedFile LintFile(const std::string& path, LessonEncoding encoding) {
  LintedFile file;
  file.path = path;
  file.unreadable = WhyLessonUnreadable(path);
  if (!file.unreadable.empty()) return file;
#if defined(_WIN32)
  if (path == "-") _setmode(_fileno(stdin), _O_BINARY);  // every byte as it is
#endif
  std::ifstream opened;
  if (path != "-") opened.open(path, std::ios::binary);
  std::istream& in = path == "-" ? std::cin : opened;
  LessonLineReader reader(in, encoding);
  while (const std::optional<LessonLine> line = reader.Next()) LintLine(*line, ++file.nLines, file.findings);
  if (reader.Failed()) {
    file.unreadable = "read error after line " + std::to_string(file.nLines);
    return file;
  }
  file.bReadable = true;
  return file;
}

int LintExitStatus(const std::vector<LintedFile>& files) {
  const Totals totals = Count(files);
  if (totals.unreadable > 0) return 2;
  return totals.Reported() > 0 ? 1 : 0;
}

std::string LintReportText(const std::vector<LintedFile>& files) {
  std::string text;
  for (const LintedFile& file : files) {
    if (!file.bReadable) text += DisplayPath(file.path) + ": cannot be read (" + file.unreadable + ")\n";
    for (const LintFinding& finding : file.findings) {
      text += DisplayPath(file.path) + ":" + std::to_string(finding.nLine) + ": " + KindName(finding.kind) + " (" +
              finding.reason + "): " + ToUtf8(VisibleText(finding.strLine));
      if (finding.kind == LintKind::kUnknownCode) text += "  ->  " + ToUtf8(VisibleText(finding.script.strDetail));
      text += '\n';
    }
  }
  const Totals totals = Count(files);
  text += Plural(totals.files, "file") + ", " + Plural(totals.lines, "line") + " checked: ";
  if (totals.unreadable + totals.Reported() == 0) return text + "clean\n";
  text += std::to_string(totals.notUnderstood) + " not understood, " + std::to_string(totals.unknownCode) +
          " with an unknown code";
  if (totals.badEncoding > 0) text += ", " + std::to_string(totals.badEncoding) + " with invalid bytes";
  if (totals.unreadable > 0) text += ", " + std::to_string(totals.unreadable) + " unreadable";
  return text + "\n";
}

std::string LintReportJson(const std::vector<LintedFile>& files) {
  Json fileObjects = Json::array(), findingObjects = Json::array();
  for (const LintedFile& file : files) {
    Json fileObject = Json::object();
    fileObject["file"] = file.path;
    fileObject["readable"] = file.bReadable;
    fileObject["lines"] = file.nLines;
    fileObjects.push_back(std::move(fileObject));
    for (const LintFinding& finding : file.findings) {
      Json object = Json::object();
      object["file"] = file.path;
      object["line"] = finding.nLine;
      object["kind"] = KindId(finding.kind);
      object["reason"] = finding.reason;
      object["text"] = ToUtf8(finding.strLine);
      object["title"] = ToUtf8(finding.script.strTitle);
      object["detail"] = ToUtf8(finding.script.strDetail);
      if (finding.kind == LintKind::kBadEncoding) object["offset"] = finding.nBadOffset;
      findingObjects.push_back(std::move(object));
    }
  }
  const Totals totals = Count(files);
  Json summary = Json::object();
  summary["files"] = totals.files;
  summary["unreadable"] = totals.unreadable;
  summary["lines"] = totals.lines;
  summary["notUnderstood"] = totals.notUnderstood;
  summary["unknownCode"] = totals.unknownCode;
  summary["badEncoding"] = totals.badEncoding;
  Json report = Json::object();
  report["files"] = std::move(fileObjects);
  report["findings"] = std::move(findingObjects);
  report["summary"] = std::move(summary);
  report["status"] = LintExitStatus(files);
  return RenderJson(report) + "\n";
}

int RunLintCommand(const LintOptions& options) {
  std::vector<std::string> paths = options.paths;
  if (paths.empty()) paths.push_back("-");
  Ostrel_Init();
  std::vector<LintedFile> files;
  for (const std::string& path : paths) files.push_back(LintFile(path, options.encoding));
  Ostrel_UnInit();
  std::cout << (options.bJson ? LintReportJson(files) : LintReportText(files));
  return LintExitStatus(files);
}

}  // namespace ostrel::cli
