// The command line of the tool: --param, where options may stand, the words of `call`, and the exit status 2
// with a message naming whatever is wrong.
#include "command_line.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "run_in_process.h"

namespace ostrel::cli {
namespace {

std::string Scenario(const char* name) { return std::string(OSTREL_EXAMPLES_DIR) + "/photoshop/" + name; }

struct ParamCase {
  const char* name;
  std::vector<std::string> args;
  std::map<int, std::wstring> params;  // what the library is given
};

class ParamTest : public ::testing::TestWithParam<ParamCase> {};

TEST_P(ParamTest, ReachesTheLibraryAsGiven) {
  CommandLine line;
  std::string message;
  ASSERT_EQ(ReadCommandLine(GetParam().args, line, message), std::nullopt) << message;
  EXPECT_EQ(line.params, GetParam().params);
}

INSTANTIATE_TEST_SUITE_P(
    CommandLine, ParamTest,
    ::testing::Values(
        ParamCase{"EqualsInsideTheValue", {"--param", "33=C:\\a=b\\", "parse"}, {{33, L"C:\\a=b\\"}}},
        ParamCase{"EmptyValue", {"parse", "--param", "66="}, {{66, L""}}},
        ParamCase{"JoinedWithEquals", {"--param=24=图", "lint"}, {{24, L"图"}}},
        ParamCase{"NegativeKey", {"--param", "-5=x", "lint"}, {{-5, L"x"}}},
        ParamCase{"RepeatedKeyLastWins", {"--param", "33=a", "parse", "--param", "33=b"}, {{33, L"b"}}},
        ParamCase{"RepeatedAcrossCall",
                  {"--param", "33=a", "--param", "66=v", "call", "--param", "33=b", "Ostrel_Init", "--param", "33=c"},
                  {{33, L"c"}, {66, L"v"}}}),
    [](const auto& info) { return info.param.name; });

struct BadCase {
  const char* name;
  std::vector<std::string> args;
  const char* named;  // the message names this
};

class BadCommandLineTest : public ::testing::TestWithParam<BadCase> {};

TEST_P(BadCommandLineTest, ExitsTwoNamingIt) {
  CommandLine line;
  std::string message;
  EXPECT_EQ(ReadCommandLine(GetParam().args, line, message), 2);
  EXPECT_NE(message.find(GetParam().named), std::string::npos) << message;
}

INSTANTIATE_TEST_SUITE_P(
    CommandLine, BadCommandLineTest,
    ::testing::Values(BadCase{"ParamWithoutEquals", {"--param", "33", "parse"}, "'33'"},
                      BadCase{"ParamKeyNotANumber", {"parse", "--param", "log=x"}, "'log=x'"},
                      BadCase{"ParamKeyPartlyANumber", {"parse", "--param", "33a=x"}, "'33a=x'"},
                      BadCase{"ParamKeyEmpty", {"parse", "--param", "=x"}, "'=x'"},
                      BadCase{"ParamKeyOutOfRange", {"parse", "--param", "99999999999=x"}, "'99999999999=x'"},
                      BadCase{"ParamAfterCallName", {"call", "Ostrel_Init", "--param", "x"}, "'x'"},
                      BadCase{"UnknownOption", {"--bogus", "parse"}, "--bogus"},
                      BadCase{"UnknownOptionOfACommand", {"parse", "--strict", "a.lesson"}, "--strict"},
                      BadCase{"UnknownOptionBeforeCallName", {"call", "--strict", "Ostrel_Init"}, "--strict"},
                      BadCase{"ScenarioMissing", {"call", "Ostrel_Init", "--photoshop"}, "--photoshop"},
                      BadCase{"ScenarioMissingBeforeCommand", {"parse", "--photoshop"}, "--photoshop"},
                      BadCase{"ScenarioTwice", {"--photoshop", "a", "call", "X", "--photoshop", "b"}, "--photoshop"},
                      BadCase{"UnknownEncoding", {"lint", "--encoding", "latin1"}, "latin1"},
                      BadCase{"TwoLessonsToParse", {"parse", "a.lesson", "b.lesson"}, "b.lesson"},
                      BadCase{"CallWithoutName", {"call", "--count-calls"}, "NAME"},
                      BadCase{"ListWithName", {"call", "--list", "Ostrel_Init"}, "Ostrel_Init"},
                      BadCase{"WindowTreeTwice", {"--windows", "a", "call", "X", "--windows", "b"}, "--windows given more than once"},
                      BadCase{"NoCommand", {}, "Usage"}),
    [](const auto& info) { return info.param.name; });

// Everything after `call NAME` that isn't one of the tool's options is an argument of the export, in order,
// words that start with '-' included; after -- every word is.
TEST(CommandLineTest, CallArgumentsKeepTheirOrder) {
  struct Case {
    std::vector<std::string> args;
    const char* name;
    std::vector<std::string> words;
    bool countCalls;
  };
  const Case cases[] = {
      {{"call", "Ostrel_ToolIndexToNameCN", "-1"}, "Ostrel_ToolIndexToNameCN", {"-1"}, false},
      {{"call", "X", "-x", "--foo=1", "5", "--param", "33=a", "-2.5", "-h", "lint"},
       "X",
       {"-x", "--foo=1", "5", "-2.5", "-h", "lint"},
       false},
      {{"call", "X", "--count-calls", "-", "--", "--param", "1=a"}, "X", {"-", "--param", "1=a"}, true},
      {{"--count-calls", "call", "parse"}, "parse", {}, true},
      {{"call", "--count-calls", "Y", "[1, 2]"}, "Y", {"[1, 2]"}, true},
      {{"call", "/Y", "/count-calls"}, "/Y", {"/count-calls"}, false},  // no /options, on Windows neither
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::PrintToString(c.args));
    CommandLine line;
    std::string message;
    ASSERT_EQ(ReadCommandLine(c.args, line, message), std::nullopt) << message;
    EXPECT_EQ(line.command, CommandLine::Command::kCall);
    EXPECT_EQ(line.call.name, c.name);
    EXPECT_EQ(line.call.words, c.words);
    EXPECT_EQ(line.call.bCountCalls, c.countCalls);
  }
}

TEST(CommandLineTest, OptionsBeforeOrAfterTheCommand) {
  CommandLine line;
  std::string message;
  ASSERT_EQ(ReadCommandLine({"--photoshop", "s.json", "lint", "a", "--json", "b", "--encoding", "GBK"}, line, message),
            std::nullopt)
      << message;
  EXPECT_EQ(line.command, CommandLine::Command::kLint);
  EXPECT_EQ(line.lint.paths, (std::vector<std::string>{"a", "b"}));
  EXPECT_TRUE(line.lint.bJson);
  EXPECT_EQ(line.lint.encoding, LessonEncoding::kGbk);
  EXPECT_EQ(line.photoshop, "s.json");
  line = CommandLine();
  ASSERT_EQ(ReadCommandLine({"parse", "/a.lesson", "--encoding", "utf-16le", "--photoshop", "t.json"}, line, message),
            std::nullopt)
      << message;
  EXPECT_EQ(line.parse.path, "/a.lesson");
  EXPECT_EQ(line.parse.encoding, LessonEncoding::kUtf16Le);
  EXPECT_EQ(line.photoshop, "t.json");
}

TEST(CommandLineTest, HelpAndVersion) {
  CommandLine line;
  std::string message;
  EXPECT_EQ(ReadCommandLine({"--help"}, line, message), 0);
  for (const char* word : {"parse", "call", "lint", "--param", "--photoshop", "--count-calls"}) {
    EXPECT_NE(message.find(word), std::string::npos) << word;
  }
  EXPECT_EQ(ReadCommandLine({"call", "--help"}, line, message), 0);
  EXPECT_NE(message.find("--list"), std::string::npos);
  EXPECT_EQ(ReadCommandLine({"--version"}, line, message), 0);
  EXPECT_EQ(message.rfind("ostrel 0.", 0), 0u) << message;
}

// The tool end to end in this process: a parameter reaches the library (the log goes where key 33 says), the
// call counts only the export's own automation calls, and a window tree that can't be read is refused, naming it.
TEST(CommandLineTest, RunsTheCommand) {
  const std::filesystem::path logBase = std::filesystem::path(::testing::TempDir()) / "ostrel_param_log";
  std::filesystem::remove_all(logBase);
  ToolRun run = RunInProcess({"--param", "33=" + logBase.string() + "/", "--photoshop", Scenario("layers_and_group.json"),
                              "call", "Ostrel_Init"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "{\"result\": 1}\n");
  EXPECT_TRUE(std::filesystem::exists(logBase / "Log")) << "the log went elsewhere";
  run = RunInProcess({"--windows", "tree.json", "call", "Ostrel_Init"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("--windows tree.json: no such file"), std::string::npos) << run.err;
}

}  // namespace
}  // namespace ostrel::cli
