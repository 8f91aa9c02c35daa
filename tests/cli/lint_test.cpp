// `ostrel lint`: which lines of a lesson it reports, its summary, its JSON and its exit status.
#include "lint.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "commands.h"
#include "json.h"
#include "ostrel/lifecycle.h"

namespace ostrel::cli {
namespace {

// Writes text to a file under the test's temporary folder and gives its path.
std::string WriteLesson(const std::string& name, const std::string& text) {
  const std::string path = ::testing::TempDir() + name;
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

// Runs the command with standard output captured.
int RunLint(const std::vector<std::string>& args, std::string& output) {
  std::ostringstream captured;
  std::streambuf* const saved = std::cout.rdbuf(captured.rdbuf());
  const int status = RunLintCommand(args);
  std::cout.rdbuf(saved);
  output = captured.str();
  return status;
}

// A lesson with a misspelled keyword (line 3), an unknown tool (line 5) and a LAYER line one item short
// (line 7) among lines that are all fine, the odd canvas codes among them.
const char kFaultyLesson[] =
    "TOOL,2\n"
    "CANVAS,1250\n"
    "CANVA,100\n"
    "LAYER,6,75\n"
    "TOOL,69\r\n"
    "VERBOSE,20,0,51\n"
    "LAYER,8,2\n"
    "CANVAS_SUBMIT\n";

TEST(LintTest, ReportsExactlyTheFaultyLines) {
  Ostrel_Init();
  const LintedFile file = LintFile(WriteLesson("faulty.lesson", kFaultyLesson));
  ASSERT_TRUE(file.bReadable);
  EXPECT_EQ(file.nLines, 8u);
  ASSERT_EQ(file.findings.size(), 3u);
  EXPECT_EQ(file.findings[0].nLine, 3u);
  EXPECT_EQ(file.findings[0].kind, LintKind::kNotUnderstood);
  EXPECT_NE(file.findings[0].reason.find("unknown keyword \"CANVA\""), std::string::npos);
  EXPECT_EQ(file.findings[1].nLine, 5u);
  EXPECT_EQ(file.findings[1].kind, LintKind::kUnknownCode);
  EXPECT_EQ(file.findings[1].script.strDetail, L"选择工具：");
  EXPECT_EQ(file.findings[2].nLine, 7u);
  EXPECT_EQ(file.findings[2].kind, LintKind::kNotUnderstood);
  EXPECT_EQ(file.findings[2].strLine, L"LAYER,8,2");
}

TEST(LintTest, EmptyAndNearMissLinesAreNotUnderstood) {
  Ostrel_Init();
  const std::vector<LintFinding> findings = LintLines({L"", L"tool,5", L"TOOL ,5", L"CANVAS_SUBMIT\r", L"TOOL,5"});
  ASSERT_EQ(findings.size(), 4u);
  EXPECT_EQ(findings[0].reason, "empty line");
  EXPECT_EQ(findings[3].reason, "unknown keyword \"CANVAS_SUBMIT\\r\"");
  for (const LintFinding& finding : findings) EXPECT_EQ(finding.kind, LintKind::kNotUnderstood);
}

TEST(LintTest, ExampleLessonsAreClean) {
  Ostrel_Init();
  size_t lessons = 0;
  for (const auto& entry : std::filesystem::directory_iterator(std::string(OSTREL_EXAMPLES_DIR) + "/lessons")) {
    if (entry.path().extension() != ".lesson") continue;
    SCOPED_TRACE(entry.path().string());
    const LintedFile file = LintFile(entry.path().string());
    EXPECT_TRUE(file.bReadable);
    EXPECT_GT(file.nLines, 0u);
    for (const LintFinding& finding : file.findings) {
      ADD_FAILURE() << "line " << finding.nLine << ": " << finding.reason;
    }
    ++lessons;
  }
  EXPECT_GE(lessons, 4u);
}

TEST(LintCommandTest, ExitStatusSaysCleanReportedOrUnreadable) {
  const std::string clean = WriteLesson("clean.lesson", "WORK_ZONE\nCANVAS,-1\n");
  const std::string faulty = WriteLesson("faulty.lesson", kFaultyLesson);
  std::string output;
  EXPECT_EQ(RunLint({clean}, output), 0);
  EXPECT_EQ(output, "1 file, 2 lines checked: clean\n");
  EXPECT_EQ(RunLint({clean, faulty}, output), 1);
  EXPECT_NE(output.find(faulty + ":3: not understood"), std::string::npos);
  EXPECT_NE(output.find(faulty + ":5: unknown code"), std::string::npos);
  EXPECT_NE(output.find("2 files, 10 lines checked: 2 not understood, 1 with an unknown code\n"), std::string::npos);
  EXPECT_EQ(RunLint({faulty, ::testing::TempDir() + "no_such.lesson", clean}, output), 2);
  EXPECT_NE(output.find("no_such.lesson: cannot be read"), std::string::npos);
  EXPECT_EQ(RunLint({::testing::TempDir()}, output), 2);  // a folder is no lesson
  EXPECT_EQ(RunLint({"--strict", clean}, output), 2);
}

TEST(LintCommandTest, JsonHoldsEveryFindingAndTheSummary) {
  const std::string faulty = WriteLesson("faulty.lesson", kFaultyLesson);
  std::string output;
  EXPECT_EQ(RunLint({"--json", faulty}, output), 1);
  std::string error;
  const std::optional<Json> json = ParseJson(output, &error);
  ASSERT_TRUE(json) << error;
  ASSERT_EQ(json->members.size(), 4u);
  const Json& findings = json->members[1].second;
  ASSERT_EQ(findings.items.size(), 3u);
  const char* kKinds[] = {"not-understood", "unknown-code", "not-understood"};
  const double kLines[] = {3, 5, 7};
  for (size_t i = 0; i < 3; ++i) {
    const Json& finding = findings.items[i];
    ASSERT_EQ(finding.members[1].first, "line");
    EXPECT_EQ(finding.members[1].second.number, kLines[i]);
    EXPECT_EQ(finding.members[2].second.text, kKinds[i]);
  }
  EXPECT_EQ(findings.items[1].members[4].second.text, "TOOL,69");  // the line as recorded, without its CR
  const Json& summary = json->members[2].second;
  EXPECT_EQ(summary.members[3].first, "notUnderstood");
  EXPECT_EQ(summary.members[3].second.number, 2);
  EXPECT_EQ(summary.members[4].second.number, 1);
  EXPECT_EQ(json->members[3].second.number, 1);  // the exit status
}

}  // namespace
}  // namespace ostrel::cli
