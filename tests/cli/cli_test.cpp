// The ostrel tool: its JSON, its table of callable exports, lesson reading, and the commands end to end.
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>

#include "calls.h"
#include "commands.h"
#include "json.h"
#include "lesson.h"
#include "ostrel/lifecycle.h"
#include "platform/text.h"

namespace ostrel::cli {
namespace {

TEST(JsonTest, ParsesWhatACommandLineHolds) {
  EXPECT_EQ(ParseJson(" 69 ").value().text, "69");  // the text it was typed as, for a text parameter
  EXPECT_TRUE(ParseJson(" 69 ").value().IsInteger());
  EXPECT_FALSE(ParseJson("2.5").value().IsInteger());
  EXPECT_EQ(ParseJson(R"("Refine\"Edge\u5de5\ud83d\ude00\n")").value().text,
            "Refine\"Edge\xE5\xB7\xA5\xF0\x9F\x98\x80\n");
  const std::optional<Json> array = ParseJson(R"(["TOOL", "5", [], {"a": [1.5e2, true, false, null]}])");
  ASSERT_TRUE(array);
  ASSERT_EQ(array->items.size(), 4u);
  const Json& inner = array->items[3].members.at(0).second;
  ASSERT_EQ(inner.items.size(), 4u);
  EXPECT_EQ(inner.items[0].number, 150);
  EXPECT_TRUE(inner.items[1].boolean);
  EXPECT_FALSE(inner.items[2].boolean);
}

TEST(JsonTest, RejectsWhatIsNotJson) {
  for (const char* bad : {"", "RefineEdgeTool", "'x'", "[1,]", "{\"a\" 1}", "01", "1.", "-", "\"open", "[1] 2",
                          "\"tab\there\"", "\"\\x\"", "tru", "nulls"}) {
    SCOPED_TRACE(bad);
    std::string error;
    EXPECT_FALSE(ParseJson(bad, &error));
    EXPECT_FALSE(error.empty());
  }
  EXPECT_FALSE(ParseJson(std::string(200, '[')));  // nesting is bounded, not a stack overflow
}

TEST(JsonTest, WritesEscapes) {
  EXPECT_EQ(JsonQuote("a\"b\\c\td\r\x01"), R"("a\"b\\c\td\r\u0001")");
  EXPECT_EQ(JsonArray({}), "[]");
}

// Words are JSON where they parse and text elsewhere; one row for each kind of argument and answer: numbers,
// unsigned ids, enumerations, texts, lists, records.
TEST(CallTest, RunsExportsByName) {
  struct Case {
    const char* name;
    std::vector<std::string> words;
    const char* answer;
  };
  const Case cases[] = {
      {"Ostrel_ToolNameENToIndex", {"\"RefineEdgeTool\""}, R"({"result": 70})"},
      {"Ostrel_ToolNameENToIndex", {"RefineEdgeTool"}, R"({"result": 70})"},
      {"Ostrel_ToolIndexToNameEN", {"69"}, R"({"result": ""})"},
      {"Ostrel_ToolIndexToNameCN", {"72"}, R"({"result": "对象选择工具"})"},
      {"Ostrel_ToolFeaturesIDToToolIndex", {"2262"}, R"({"result": 59})"},
      {"Ostrel_ToolFeaturesToStringID", {"51"}, R"({"result": "MrqF"})"},
      {"Ostrel_ToolFeaturesToStringID", {"4294967295"}, R"({"result": ""})"},
      {"Ostrel_ToolFeaturesToStringID", {"-1"}, R"({"result": ""})"},  // taken as 4294967295
      {"Ostrel_ToolFeaturesValueToName", {"50", "\"\""}, R"({"result": "新选区"})"},
      {"Ostrel_ParseItem", {"A,,B,"}, R"({"result": null, "items": ["A", "", "B", ""]})"},
      {"Ostrel_IsItem", {"[\"A\",\"B\"]", "1", "B"}, R"({"result": 1})"},
      {"Ostrel_ParseScript",
       {"TOOL,72"},
       R"({"result": 1, "script": {"strTitle": "对象选择工具", "strDetail": "选择工具：对象选择工具"}})"},
      {"Ostrel_ParseScript",
       {"[\"TOOL\",\"5\"]"},
       R"({"result": 1, "script": {"strTitle": "单列选框工具", "strDetail": "选择工具：单列选框工具"}})"},
  };
  Ostrel_Init();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    std::string answer, error;
    ASSERT_EQ(RunCall(c.name, c.words, answer, error), 0) << error;
    EXPECT_EQ(answer, c.answer);
  }
}

TEST(CallTest, BadCallsSayWhy) {
  std::string answer, error;
  EXPECT_NE(RunCall("Ostrel_NoSuchThing", {}, answer, error), 0);
  EXPECT_NE(error.find("unknown function"), std::string::npos);
  EXPECT_NE(RunCall("Ostrel_IsItem", {"[]", "1"}, answer, error), 0);
  EXPECT_NE(error.find("expects 3 argument"), std::string::npos);
  EXPECT_NE(RunCall("Ostrel_ToolIndexToNameCN", {"1.5"}, answer, error), 0);
  EXPECT_NE(error.find("whole number"), std::string::npos);
  EXPECT_NE(RunCall("Ostrel_ToolIndexToNameCN", {"99999999999"}, answer, error), 0);
  EXPECT_NE(RunCall("Ostrel_ParseScript", {"{}"}, answer, error), 0);  // neither overload takes an object
  EXPECT_NE(error.find("Ostrel_ParseScript(items"), std::string::npos);
  for (const char* bad : {"1.5", "4294967296", "-2147483649", "[]"}) {  // an unsigned id is a whole 32-bit number
    SCOPED_TRACE(bad);
    EXPECT_NE(RunCall("Ostrel_ToolFeaturesToStringID", {bad}, answer, error), 0);
  }
}

TEST(CallTest, EveryEntryHasAnExportNameAndNamesForAllParameters) {
  for (const CallEntry& entry : AllCalls()) {
    SCOPED_TRACE(entry.signature);
    EXPECT_TRUE(entry.name.rfind("Ostrel_", 0) == 0 || entry.name.rfind("OSTREL_", 0) == 0 ||
                entry.name == "LayerMaskToName");
    EXPECT_EQ(entry.signature.find(" arg"), std::string::npos) << "a parameter has no name";
  }
}

TEST(LessonTest, LineEndsAreNotFieldContent) {
  EXPECT_EQ(SplitLessonText(""), std::vector<std::wstring>{});
  EXPECT_EQ(SplitLessonText("TOOL,1\nTOOL,2"), (std::vector<std::wstring>{L"TOOL,1", L"TOOL,2"}));
  EXPECT_EQ(SplitLessonText("\xEF\xBB\xBFTOOL,1\n\nX\r\r\n"), (std::vector<std::wstring>{L"TOOL,1", L"", L"X\r"}));
  EXPECT_EQ(SplitLessonText("a\rb\n"), (std::vector<std::wstring>{L"a\rb"}));  // a lone CR stays in the field
  EXPECT_EQ(SplitLessonText("羽化\n"), (std::vector<std::wstring>{L"羽化"}));
}

TEST(TableTextTest, WidthAndEscapes) {
  EXPECT_EQ(DisplayWidth(L"对象ab"), 6u);
  EXPECT_EQ(VisibleText(L"a\tb\r\x01"), L"a\\tb\\r\\x01");
}

// Runs the real tool with the given standard input and gives its standard output and exit status.
std::string RunTool(const std::string& arguments, int& status, const std::string& input = "") {
  // One input file per test: ctest runs the tests of this file in parallel processes.
  const std::string inputPath = ::testing::TempDir() + "ostrel_cli_input_" +
                                ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".txt";
  {
    std::unique_ptr<FILE, int (*)(FILE*)> file(fopen(inputPath.c_str(), "wb"), fclose);
    fwrite(input.data(), 1, input.size(), file.get());
  }
  const std::string command = std::string(OSTREL_CLI_PATH) + " " + arguments + " <" + inputPath + " 2>/dev/null";
  FILE* pipe = popen(command.c_str(), "r");
  std::string output;
  char buffer[4096];
  size_t n;
  while ((n = fread(buffer, 1, sizeof buffer, pipe)) > 0) output.append(buffer, n);
  status = pclose(pipe);
  return output;
}

TEST(ToolProcessTest, OutputAndExitStatus) {
  const std::string examples = std::string(OSTREL_EXAMPLES_DIR) + "/";
  int status = 0;
  EXPECT_EQ(RunTool("parse --json -", status, "TOOL,72\nTOOL\ntool,5\r\n\n"),
            "{\"result\": 1, \"title\": \"对象选择工具\", \"detail\": \"选择工具：对象选择工具\"}\n"
            "{\"result\": 0, \"title\": \"\", \"detail\": \"\"}\n"
            "{\"result\": 0, \"title\": \"\", \"detail\": \"\"}\n"
            "{\"result\": 0, \"title\": \"\", \"detail\": \"\"}\n");
  EXPECT_EQ(status, 0);
  RunTool("parse " + examples + "lessons/marquee_feather.lesson", status);
  EXPECT_EQ(status, 0);
  RunTool("parse /no/such/lesson", status);
  EXPECT_NE(status, 0);
  RunTool("call Ostrel_Nothing", status);
  EXPECT_NE(status, 0);
  EXPECT_NE(RunTool("call --list", status).find("Ostrel_ParseScriptWokrZone(items: string[], out script"),
            std::string::npos);
  EXPECT_NE(RunTool("--version", status).find("ostrel "), std::string::npos);
  // --photoshop runs against the simulated Photoshop, before or after the command; without it there is none.
  EXPECT_EQ(RunTool("call Ostrel_IsServiceIdle --photoshop " + examples + "photoshop/only_130.json", status),
            "{\"result\": 1}\n");
  EXPECT_EQ(status, 0);
  EXPECT_EQ(RunTool("call Ostrel_IsServiceIdle", status), "{\"result\": 0}\n");
  EXPECT_EQ(RunTool("--photoshop " + examples + "photoshop/nothing_reachable.json call Ostrel_Init", status),
            "{\"result\": 0}\n");
  RunTool("call Ostrel_Init --photoshop /no/such/scenario.json", status);
  EXPECT_NE(status, 0);
}

}  // namespace
}  // namespace ostrel::cli
