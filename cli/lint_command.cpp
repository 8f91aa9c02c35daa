// `ostrel lint [--json] [FILE...]`: a lesson checker for lesson authors.
#include <iostream>

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
  }
  return "";
}

const char* KindId(LintKind kind) {
  switch (kind) {
    case LintKind::kNotUnderstood:
      return "not-understood";
    case LintKind::kUnknownCode:
      return "unknown-code";
  }
  return "";
}

std::string DisplayPath(const std::string& path) { return path == "-" ? "<stdin>" : path; }

struct Totals {
  size_t files = 0, unreadable = 0, lines = 0, notUnderstood = 0, unknownCode = 0;
};

Totals Count(const std::vector<LintedFile>& files) {
  Totals totals;
  for (const LintedFile& file : files) {
    ++totals.files;
    if (!file.bReadable) ++totals.unreadable;
    totals.lines += file.nLines;
    for (const LintFinding& finding : file.findings) {
      ++(finding.kind == LintKind::kNotUnderstood ? totals.notUnderstood : totals.unknownCode);
    }
  }
  return totals;
}

std::string Plural(size_t count, const char* word) {
  return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

}  // namespace

std::vector<LintFinding> LintLines(const std::vector<std::wstring>& lines) {
  std::vector<LintFinding> findings;
  for (size_t i = 0; i < lines.size(); ++i) {
    tagVantoScript script;
    const CheckedParse parse = ParseScriptChecked(lines[i], script);
    if (parse.nResult == 0) {
      findings.push_back({i + 1, LintKind::kNotUnderstood, NotUnderstoodReason(lines[i]), lines[i], script});
    } else if (parse.nEmptyNames > 0) {
      findings.push_back({i + 1, LintKind::kUnknownCode, "the sentence holds an empty name", lines[i], script});
    }
  }
  return findings;
}

LintedFile LintFile(const std::string& path) {
  LintedFile file;
  file.path = path;
  const std::optional<std::vector<std::wstring>> lines = ReadLesson(path);
  if (!lines) return file;
  file.bReadable = true;
  file.nLines = lines->size();
  file.findings = LintLines(*lines);
  return file;
}

int LintExitStatus(const std::vector<LintedFile>& files) {
  const Totals totals = Count(files);
  if (totals.unreadable > 0) return 2;
  return totals.notUnderstood + totals.unknownCode > 0 ? 1 : 0;
}

std::string LintReportText(const std::vector<LintedFile>& files) {
  std::string text;
  for (const LintedFile& file : files) {
    if (!file.bReadable) text += DisplayPath(file.path) + ": cannot be read\n";
    for (const LintFinding& finding : file.findings) {
      text += DisplayPath(file.path) + ":" + std::to_string(finding.nLine) + ": " + KindName(finding.kind) + " (" +
              finding.reason + "): " + ToUtf8(VisibleText(finding.strLine));
      if (finding.kind == LintKind::kUnknownCode) text += "  ->  " + ToUtf8(VisibleText(finding.script.strDetail));
      text += '\n';
    }
  }
  const Totals totals = Count(files);
  text += Plural(totals.files, "file") + ", " + Plural(totals.lines, "line") + " checked: ";
  if (totals.unreadable + totals.notUnderstood + totals.unknownCode == 0) return text + "clean\n";
  text += std::to_string(totals.notUnderstood) + " not understood, " + std::to_string(totals.unknownCode) +
          " with an unknown code";
  if (totals.unreadable > 0) text += ", " + std::to_string(totals.unreadable) + " unreadable";
  return text + "\n";
}

std::string LintReportJson(const std::vector<LintedFile>& files) {
  std::vector<std::string> fileObjects, findingObjects;
  for (const LintedFile& file : files) {
    fileObjects.push_back(JsonObject()
                              .Add("file", JsonQuote(file.path))
                              .Add("readable", file.bReadable ? "true" : "false")
                              .Add("lines", std::to_string(file.nLines))
                              .Render());
    for (const LintFinding& finding : file.findings) {
      findingObjects.push_back(JsonObject()
                                   .Add("file", JsonQuote(file.path))
                                   .Add("line", std::to_string(finding.nLine))
                                   .Add("kind", JsonQuote(KindId(finding.kind)))
                                   .Add("reason", JsonQuote(finding.reason))
                                   .Add("text", JsonQuote(ToUtf8(finding.strLine)))
                                   .Add("title", JsonQuote(ToUtf8(finding.script.strTitle)))
                                   .Add("detail", JsonQuote(ToUtf8(finding.script.strDetail)))
                                   .Render());
    }
  }
  const Totals totals = Count(files);
  const std::string summary = JsonObject()
                                  .Add("files", std::to_string(totals.files))
                                  .Add("unreadable", std::to_string(totals.unreadable))
                                  .Add("lines", std::to_string(totals.lines))
                                  .Add("notUnderstood", std::to_string(totals.notUnderstood))
                                  .Add("unknownCode", std::to_string(totals.unknownCode))
                                  .Render();
  return JsonObject()
             .Add("files", JsonArray(fileObjects))
             .Add("findings", JsonArray(findingObjects))
             .Add("summary", summary)
             .Add("status", std::to_string(LintExitStatus(files)))
             .Render() +
         "\n";
}

int RunLintCommand(const std::vector<std::string>& args) {
  bool json = false;
  std::vector<std::string> paths;
  for (const std::string& arg : args) {
    if (arg == "--json") {
      json = true;
    } else if (arg.size() > 1 && arg[0] == '-' && arg != "-") {
      std::cerr << "ostrel lint: unknown option " << arg << "\n";
      return 2;
    } else {
      paths.push_back(arg);
    }
  }
  if (paths.empty()) paths.push_back("-");
  Ostrel_Init();
  std::vector<LintedFile> files;
  for (const std::string& path : paths) files.push_back(LintFile(path));
  Ostrel_UnInit();
  std::cout << (json ? LintReportJson(files) : LintReportText(files));
  return LintExitStatus(files);
}

}  // namespace ostrel::cli
