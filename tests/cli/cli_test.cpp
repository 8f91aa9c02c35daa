// The ostrel tool: its JSON layout, its table of callable exports, and the tool run as a process.
#include <gtest/gtest.h>

#include <cstdio>
#include <cwchar>
#include <memory>
#include <string>

#include "calls.h"
#include "commands.h"
#include "json.h"
#include "run_in_process.h"
#include "ostrel/lifecycle.h"
#include "platform/text.h"

namespace ostrel::cli {
namespace {

// Every control character U+0000..U+001F, the quote and the backslash are escaped in a string, in a value and
// in a key alike, and the text reads back as it was.
TEST(JsonTest, EscapesEveryControlCharacterQuoteAndBackslash) {
  std::string text;
  for (int c = 0; c < 0x20; ++c) text += static_cast<char>(c);
  text += "\"\\";
  const std::string escaped =
      R"("\u0000\u0001\u0002\u0003\u0004\u0005\u0006\u0007\b\t\n\u000b\f\r\u000e\u000f)"
      R"(\u0010\u0011\u0012\u0013\u0014\u0015\u0016\u0017\u0018\u0019\u001a\u001b\u001c\u001d\u001e\u001f\"\\")";
  EXPECT_EQ(RenderJson(Json(text)), escaped);
  Json object = Json::object();
  object[text] = Json::array({text});
  EXPECT_EQ(RenderJson(object), "{" + escaped + ": [" + escaped + "]}");
  EXPECT_EQ(ParseJson(RenderJson(object)).value(), object);
}

// One line, ": " after a key and ", " between members and items, members in the order they were added, text
// as UTF-8; bytes that aren't UTF-8 become U+FFFD instead of failing.
TEST(JsonTest, OneLineLayout) {
  Json object = Json::object();
  object["result"] = 1;
  object["title"] = "对象选择工具";
  object["items"] = Json::array({"A", "", "B", ""});
  object["empty"] = Json::object();
  object["none"] = Json::array();
  object["more"] = Json::array({nullptr, true, false, -7, 2.5, Json::object({{"k", "v"}})});
  EXPECT_EQ(RenderJson(object),
            R"({"result": 1, "title": "对象选择工具", "items": ["A", "", "B", ""], "empty": {}, "none": [], )"
            R"("more": [null, true, false, -7, 2.5, {"k": "v"}]})");
  EXPECT_EQ(RenderJson(Json("a\xFF" "b\xE5\xB7")), "\"a\xEF\xBF\xBD" "b\xEF\xBF\xBD\"");
}

TEST(JsonTest, ArgumentWordsAreJsonWhereTheyParse) {
  EXPECT_EQ(ArgumentFromWord(" 69 ").value, Json(69));
  EXPECT_EQ(ArgumentFromWord("1.50").typed, "1.50");  // the text as typed, for a text parameter
  EXPECT_EQ(ArgumentFromWord(R"("Refine\"Edge\u5de5\ud83d\ude00")").value, Json("Refine\"Edge工😀"));
  for (const char* word : {"RefineEdgeTool", "'x'", "[1,]", "01", "1.", "-", "\"open", "[1] 2", "tru", "nulls", ""}) {
    SCOPED_TRACE(word);
    EXPECT_EQ(ArgumentFromWord(word).value, Json(word));  // not JSON: the word itself, as a string
  }
  EXPECT_EQ(WholeNumber(Json::parse("1e2")), 100);
  EXPECT_EQ(WholeNumber(Json::parse("2.5")), std::nullopt);
  EXPECT_EQ(WholeNumber(Json::parse("18446744073709551615")), std::nullopt);
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
      {"Ostrel_ToolIndexToNameCN", {"-1"}, R"({"result": "NULL"})"},
      {"Ostrel_ToolFeaturesIDToToolIndex", {"2262"}, R"({"result": 59})"},
      {"Ostrel_ToolFeaturesToStringID", {"51"}, R"({"result": "MrqF"})"},
      {"Ostrel_ToolFeaturesToStringID", {"4294967295"}, R"({"result": ""})"},
      {"Ostrel_ToolFeaturesToStringID", {"-1"}, R"({"result": ""})"},  // taken as 4294967295
      {"Ostrel_ToolFeaturesValueToName", {"50", "\"\""}, R"({"result": "新选区"})"},
      {"Ostrel_ParseItem", {"A,,B,"}, R"({"result": null, "items": ["A", "", "B", ""]})"},
      {"Ostrel_ParseItem", {"1.50"}, R"({"result": null, "items": ["1.50"]})"},  // a number as typed
      {"Ostrel_IsItem", {"[\"A\",\"B\"]", "1", "B"}, R"({"result": 1})"},
      {"Ostrel_ParseScript",
       {"TOOL,72"},
       R"({"result": 1, "script": {"strTitle": "对象选择工具", "strDetail": "选择工具：对象选择工具"}})"},
      {"Ostrel_ParseScript",
       {"[\"TOOL\",5]"},
       R"({"result": 1, "script": {"strTitle": "单列选框工具", "strDetail": "选择工具：单列选框工具"}})"},
      {"Ostrel_TopMenuIndexToName",
       {"0"},
       R"({"result": 1, "info": {"nIndex": 0, "strMenu1": "文件", "strMenu2": "新建", "strMenu3": ""}})"},
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
  EXPECT_NE(error.find("whole number, got 1.5"), std::string::npos);
  EXPECT_NE(RunCall("Ostrel_ToolIndexToNameCN", {"99999999999"}, answer, error), 0);
  EXPECT_NE(RunCall("Ostrel_ParseScript", {"{}"}, answer, error), 0);  // neither overload takes an object
  EXPECT_NE(error.find("Ostrel_ParseScript(items"), std::string::npos);
  EXPECT_NE(RunCall("Ostrel_IsItem", {"[\"A\", []]", "1", "B"}, answer, error), 0);  // an item of the wrong kind
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

// Text by pointer, as a C interface takes and gives it: the text lives for the call, null is a null pointer.
std::wstring g_seenText;
int TakesText(int key, const wchar_t* value) {
  g_seenText = value ? value : L"<null>";
  return value ? key + static_cast<int>(std::wcslen(value)) : -1;
}
const wchar_t* GivesText(int which) { return which ? L"羽化" : nullptr; }

TEST(CallTest, TextByPointer) {
  const CallEntry takes = MakeCall("TakesText", &TakesText, {"key", "value"});
  const CallEntry gives = MakeCall("GivesText", &GivesText, {"which"});
  EXPECT_EQ(takes.signature, "TakesText(key: int, value: string?) -> int");
  struct Case {
    const char* word;
    const char* answer;
    const wchar_t* seen;
  };
  const Case cases[] = {
      {"羽化", R"({"result": 102})", L"羽化"},
      {"\"null\"", R"({"result": 104})", L"null"},
      {"null", R"({"result": -1})", L"<null>"},
      {"1.50", R"({"result": 104})", L"1.50"},
      {"007", R"({"result": 103})", L"007"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.word);
    Json answer;
    std::string error;
    ASSERT_TRUE(takes.invoke({ArgumentFromWord("100"), ArgumentFromWord(c.word)}, answer, error)) << error;
    EXPECT_EQ(RenderJson(answer), c.answer);
    EXPECT_EQ(g_seenText, c.seen);
  }
  Json answer;
  std::string error;
  EXPECT_FALSE(takes.invoke({ArgumentFromWord("1"), ArgumentFromWord("[]")}, answer, error));
  EXPECT_NE(error.find("argument 2 (value) expects a string"), std::string::npos);
  ASSERT_TRUE(takes.invoke(takes.sampleArgs, answer, error)) << error;
  EXPECT_EQ(g_seenText, L"");  // the sample is the empty text, not a null pointer
  ASSERT_TRUE(gives.invoke({ArgumentFromWord("1")}, answer, error));
  EXPECT_EQ(RenderJson(answer), R"({"result": "羽化"})");
  ASSERT_TRUE(gives.invoke({ArgumentFromWord("0")}, answer, error));
  EXPECT_EQ(RenderJson(answer), R"({"result": null})");
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

// capture-windows reads live windows: elsewhere than on Windows it says so; on Windows without Photoshop there is
// nothing to capture. Neither writes a tree.
TEST(CaptureWindowsTest, SaysWhyItCapturesNothing) {
  const ToolRun run = RunInProcess({"capture-windows"});
  EXPECT_TRUE(run.out.empty());
#if defined(_WIN32)
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.err.find("Photoshop isn't running"), std::string::npos) << run.err;
#else
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("needs Windows"), std::string::npos) << run.err;
#endif
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
  // Without a Photoshop that starts, Ostrel_Init answers 0 through the whole tool.
  EXPECT_EQ(RunTool("--photoshop " + examples + "photoshop/nothing_reachable.json call Ostrel_Init", status),
            "{\"result\": 0}\n");
  RunTool("call Ostrel_Init --photoshop /no/such/scenario.json", status);
  EXPECT_NE(status, 0);
}

}  // namespace
}  // namespace ostrel::cli
