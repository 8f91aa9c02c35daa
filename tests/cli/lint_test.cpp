// `ostrel lint`: which lines of a lesson it reports, its summary, its JSON and its exit status; the example
// lessons pass it.
#include "lint.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "json.h"
#include "lesson.h"
#include "ostrel/OstrelCore.h"
#include "platform/text.h"
#include "run_in_process.h"

namespace ostrel::cli {
namespace {

// Writes text to a file under the test's temporary folder and gives its path.
std::string WriteLesson(const std::string& name, const std::string& text) {
  const std::string path = ::testing::TempDir() + name;
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

// Runs `ostrel lint` with the arguments, its standard output caught.
int RunLint(std::vector<std::string> args, std::string& output) {
  args.insert(args.begin(), "lint");
  const ToolRun run = RunInProcess(args);
  output = run.out;
  return run.status;
}

std::vector<LessonLine> Lines(const std::vector<std::wstring>& texts) {
  std::vector<LessonLine> lines;
  for (const std::wstring& text : texts) lines.push_back({text, std::nullopt});
  return lines;
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

// Empty lines and near misses of a keyword are not understood, the reason naming the keyword as it stands.
TEST(LintTest, EmptyAndNearMissLinesAreNotUnderstood) {
  Ostrel_Init();
  const std::vector<LintFinding> findings = LintLines(Lines({L"", L"tool,5", L"TOOL ,5", L"CANVAS_SUBMIT\r", L"TOOL,5"}));
  ASSERT_EQ(findings.size(), 4u);
  EXPECT_EQ(findings[0].reason, "empty line");
  EXPECT_EQ(findings[3].reason, "unknown keyword \"CANVAS_SUBMIT\\r\"");
  for (const LintFinding& finding : findings) EXPECT_EQ(finding.kind, LintKind::kNotUnderstood);
}

// Every example lesson is clean, and every sentence of it whole: no placeholder left, no lookup came back empty.
TEST(LintTest, ExampleLessonsAreCleanAndTheirSentencesWhole) {
  Ostrel_Init();
  size_t lessons = 0;
  for (const auto& entry : std::filesystem::directory_iterator(std::string(OSTREL_EXAMPLES_DIR) + "/lessons")) {
    if (entry.path().extension() != ".lesson") continue;
    SCOPED_TRACE(entry.path().string());
    const LintedFile file = LintFile(entry.path().string());
    EXPECT_TRUE(file.bReadable);
    EXPECT_GT(file.nLines, 0u);
    for (const LintFinding& finding : file.findings)
      ADD_FAILURE() << "line " << finding.nLine << ": " << finding.reason;
    const std::vector<LessonLine> lines =
        ReadLesson(entry.path().string(), LessonEncoding::kDetect).value_or(std::vector<LessonLine>{});
    if (entry.path().filename() == "layers_and_menus.lesson") {
      EXPECT_GE(lines.size(), 62u);  // at least one line for each LAYER sub-command
    }
    for (const LessonLine& line : lines) {
      SCOPED_TRACE(ToUtf8(line.strText));
      tagVantoScript script;
      Ostrel_ParseScript(line.strText, script);
      EXPECT_FALSE(script.strTitle.empty());
      for (const wchar_t* leftover : {L"%s", L"%%", L"【】", L"[]"}) {
        EXPECT_EQ(script.strDetail.find(leftover), std::wstring::npos) << ToUtf8(leftover);
      }
    }
    ++lessons;
  }
  EXPECT_GE(lessons, 4u);
}

// Reports exactly the faulty lines, with their kind, reason and sentence; the exit status says clean, reported or
// unreadable.
TEST(LintCommandTest, ReportsTheFaultyLinesAndExitStatus) {
  const std::string clean = WriteLesson("clean.lesson", "WORK_ZONE\nCANVAS,-1\n");
  const std::string faulty = WriteLesson("faulty.lesson", kFaultyLesson);
  std::string output;
  EXPECT_EQ(RunLint({clean}, output), 0);
  EXPECT_EQ(output, "1 file, 2 lines checked: clean\n");
  EXPECT_EQ(RunLint({clean, faulty}, output), 1);
  EXPECT_NE(output.find(faulty + ":3: not understood (unknown keyword \"CANVA\"): CANVA,100\n"), std::string::npos);
  EXPECT_NE(output.find(faulty + ":5: unknown code (the sentence holds an empty name): TOOL,69  ->  选择工具：\n"),
            std::string::npos);
  EXPECT_NE(output.find(faulty + ":7: not understood ("), std::string::npos);
  EXPECT_NE(output.find("\n2 files, 10 lines checked: 2 not understood, 1 with an unknown code\n"), std::string::npos);
  EXPECT_EQ(RunLint({faulty, ::testing::TempDir() + "no_such.lesson", clean}, output), 2);
  EXPECT_NE(output.find("no_such.lesson: cannot be read"), std::string::npos);
  EXPECT_EQ(RunLint({::testing::TempDir()}, output), 2);  // a folder is no lesson
  EXPECT_EQ(RunLint({"--strict", clean}, output), 2);
  // The JSON form: one object, every finding with its line as recorded (without its CR), the summary, the status.
  EXPECT_EQ(RunLint({"--json", faulty}, output), 1);
  const std::optional<Json> json = ParseJson(output);
  ASSERT_TRUE(json) << output;
  EXPECT_EQ(json->at("findings").size(), 3u);
  EXPECT_NE(output.find(R"("line": 3, "kind": "not-understood")"), std::string::npos);
  EXPECT_NE(output.find(R"("line": 5, "kind": "unknown-code")"), std::string::npos);
  EXPECT_NE(output.find(R"("text": "TOOL,69", "title")"), std::string::npos);
  EXPECT_NE(output.find(R"("notUnderstood": 2, "unknownCode": 1, "badEncoding": 0}, "status": 1})"),
            std::string::npos);
}

// A lesson whose only findings are unknown codes is not clean: status 1, in text and in JSON.
TEST(LintCommandTest, UnknownCodesAloneAreReported) {
  const std::string lesson = WriteLesson("unknown_codes.lesson", "TOOL,2\nTOOL,69\nTOOL,69\n");
  std::string output;
  EXPECT_EQ(RunLint({lesson}, output), 1);
  EXPECT_NE(output.find("3 lines checked: 0 not understood, 2 with an unknown code\n"), std::string::npos) << output;
  EXPECT_EQ(RunLint({"--json", lesson}, output), 1);
  EXPECT_NE(output.find(R"("status": 1})"), std::string::npos) << output;
}

}  // namespace
}  // namespace ostrel::cli
