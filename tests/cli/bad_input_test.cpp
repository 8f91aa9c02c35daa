// What bad input gets: one case per row of the README's table. Each gives the exit status the table names and a
// message that names the place (file, line, byte offset, JSON pointer or argument); nothing crashes.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "lesson.h"
#include "run_in_process.h"

namespace ostrel::cli {
namespace {

using namespace std::string_literals;

// A folder of its own for the files of one test, removed afterwards.
class BadInputTest : public ::testing::Test {
 protected:
  void SetUp() override {
    m_dir = std::filesystem::temp_directory_path() /
            ("ostrel-bad-input-" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    Remove();
    std::filesystem::create_directories(m_dir);
  }
  void TearDown() override { Remove(); }
  // Gives back the rights that a test took from its files (Windows won't delete a read-only file), then removes
  // the folder; also what an earlier run that stopped half-way left.
  void Remove() {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(m_dir, ignored)) {
      std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_all, ignored);
    }
    std::filesystem::remove_all(m_dir, ignored);
  }
  std::string Write(const std::string& name, const std::string& bytes) {
    std::ofstream(m_dir / name, std::ios::binary) << bytes;
    return (m_dir / name).string();
  }
  std::string Path(const std::string& name) const { return (m_dir / name).string(); }

  std::filesystem::path m_dir;
};

std::string Scenario(const char* name) { return std::string(OSTREL_EXAMPLES_DIR) + "/photoshop/" + name; }

void ExpectRun(const ToolRun& run, int status, const std::string& message) {
  EXPECT_EQ(run.status, status) << run.out << run.err;
  const std::string where = run.err + run.out;  // lint reports an unreadable file on standard output
  EXPECT_NE(where.find(message), std::string::npos) << "expected \"" << message << "\" in:\n" << where;
}

TEST_F(BadInputTest, LessonWithInvalidBytesIsRefusedByParseAndReportedByLint) {
  const std::string file = Write("bad.lesson", "TOOL,72\nLAYER,8,2,\xB1\xB3\xBE\xB0\n");
  ExpectRun(RunInProcess({"parse", file}), 2, file + ":2: invalid bytes for the encoding at byte offset 18");
  ExpectRun(RunInProcess({"lint", file}), 1, file + ":2: invalid bytes (the first at byte offset 18)");
}

TEST_F(BadInputTest, LessonWithNulBytesIsRefusedAtTheFirstNul) {
  // Not "nul.lesson": NUL with any extension is a device on Windows, not a file.
  const std::string file = Write("nul-bytes.lesson", "TOOL,72\nTOOL\0,5\n"s);
  ExpectRun(RunInProcess({"parse", file}), 2, file + ":2: invalid bytes for the encoding at byte offset 12");
  ExpectRun(RunInProcess({"lint", file}), 1, file + ":2: invalid bytes (the first at byte offset 12): TOOL\\x00,5");
  // UTF-16LE saved without its byte order mark reads as UTF-8 with a NUL after every ASCII letter.
  const std::string utf16 = Write("utf16.lesson", "T\0O\0O\0L\0,\0007\0002\0"s);
  ExpectRun(RunInProcess({"parse", utf16}), 2, utf16 + ":1: invalid bytes for the encoding at byte offset 1");
  ExpectRun(RunInProcess({"parse", "--encoding", "utf-16le", utf16}), 0, "对象选择工具");
}

TEST_F(BadInputTest, FiveMegabyteLineIsParsedAsOneLine) {
  const std::string file = Write("long.lesson", "TOOL,72," + std::string(5 << 20, 'x') + "\nTOOL,72\n");
  const ToolRun run = RunInProcess({"parse", "--json", file});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 2);
  EXPECT_EQ(run.out.substr(run.out.find('\n') + 1), "{\"result\": 1, \"title\": \"对象选择工具\", \"detail\": \"选择工具：对象选择工具\"}\n");
}

// A million lines are checked whole; parse, which makes two passes and prints each line, on a tenth of them. That
// memory stays flat is the reader's test below.
TEST_F(BadInputTest, MillionLinesAreChecked) {
  std::string lines;
  for (int i = 0; i < 1000000; ++i) lines += i % 2 ? "TOOL,72\n" : "TF,51,10\n";
  const std::string file = Write("million.lesson", lines);
  ExpectRun(RunInProcess({"lint", file}), 0, "1 file, 1000000 lines checked: clean");
  const std::string tenth = Write("tenth.lesson", lines.substr(0, lines.size() / 10));
  const ToolRun run = RunInProcess({"parse", "--json", tenth});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 100000);
}

// A stream of lesson lines made as they are read, which tells how far the reader has read.
class GeneratedLesson : public std::streambuf {
 public:
  explicit GeneratedLesson(long lines) : m_lines(lines) {}
  long long Produced() const { return m_produced; }

 protected:
  int_type underflow() override {
    if (m_lines == 0) return traits_type::eof();
    m_block.clear();
    for (int i = 0; i < 512 && m_lines > 0; ++i, --m_lines) m_block += "TOOL,72\n";
    m_produced += static_cast<long long>(m_block.size());
    setg(m_block.data(), m_block.data(), m_block.data() + m_block.size());
    return traits_type::to_int_type(m_block[0]);
  }

 private:
  long m_lines;
  long long m_produced = 0;
  std::string m_block;
};

TEST(LessonLineReader, ReadsAMillionLinesHoldingOnlyABlockAhead) {
  GeneratedLesson lesson(1000000);
  std::istream in(&lesson);
  LessonLineReader reader(in, LessonEncoding::kDetect);
  long long consumed = 0, lines = 0, mostAhead = 0;
  while (const std::optional<LessonLine> line = reader.Next()) {
    ASSERT_EQ(line->strText, L"TOOL,72");
    consumed += 8;
    ++lines;
    mostAhead = std::max(mostAhead, lesson.Produced() - consumed);
  }
  EXPECT_EQ(lines, 1000000);
  EXPECT_LE(mostAhead, 2 * 64 * 1024 + 4096);  // a block read ahead (and one being filled), never the whole lesson
}

TEST_F(BadInputTest, LessonPathMissingOrAFolderOrUnreadable) {
  ExpectRun(RunInProcess({"parse", Path("no_such.lesson")}), 2, Path("no_such.lesson") + ": no such file");
  ExpectRun(RunInProcess({"lint", Path("no_such.lesson")}), 2,
            Path("no_such.lesson") + ": cannot be read (no such file)");
  ExpectRun(RunInProcess({"parse", m_dir.string()}), 2, m_dir.string() + ": is a folder, not a lesson file");
  const ToolRun folder = RunInProcess({"lint", m_dir.string()});
  EXPECT_EQ(folder.status, 2);
  EXPECT_NE(folder.out.find(m_dir.string() + ": cannot be read (is a folder, not a lesson file)"), std::string::npos);

  const std::string locked = Write("locked.lesson", "TOOL,72\n");
  std::filesystem::permissions(locked, std::filesystem::perms::none);
  if (std::ifstream(locked)) GTEST_SKIP() << "running as a user who reads every file (root)";
  ExpectRun(RunInProcess({"parse", locked}), 2, locked + ": cannot be opened (no permission to read it)");
}

struct ScenarioMistake {
  const char* name;
  std::string text;  // the scenario file
  const char* message;
};

TEST_F(BadInputTest, ScenarioWithEachKindOfMistakeNamesThePlace) {
  const ScenarioMistake mistakes[] = {
      {"SyntaxError", "{\n  \"versions\": [150,\n}", ".json:3:1: JSON syntax error"},
      {"UnknownKey", R"({"bogus": 1})", ".json: at /bogus: unknown key \"bogus\""},
      {"WrongType", R"({"documents": 5})", ".json: at /documents: must be"},
      {"MissingDescriptorFile", R"({"documents": [{"descriptor": "nowhere.json"}]})",
       "cannot read the descriptor file"},
      {"DescriptorFileIsAFolder", R"({"documents": [{"descriptor": "."}]})", "cannot read the descriptor file"},
      {"Empty", "", ".json:1:1: JSON syntax error"},
      {"NumberOutOfRange", "{\n  \"versions\": [1e999]\n}", ".json:2:16: JSON number out of range: 1e999"},
  };
  for (const ScenarioMistake& mistake : mistakes) {
    SCOPED_TRACE(mistake.name);
    const std::string file = Write(std::string(mistake.name) + ".json", mistake.text);
    ExpectRun(RunInProcess({"--photoshop", file, "call", "Ostrel_IsServiceIdle"}), 2,
              "ostrel: --photoshop " + file + ": " + file);
    ExpectRun(RunInProcess({"--photoshop", file, "call", "Ostrel_IsServiceIdle"}), 2, mistake.message);
  }
  ExpectRun(RunInProcess({"--photoshop", Path("no_such.json"), "call", "Ostrel_IsServiceIdle"}), 2,
            Path("no_such.json") + ": cannot read the file");
  ExpectRun(RunInProcess({"--photoshop", m_dir.string(), "call", "Ostrel_IsServiceIdle"}), 2,
            m_dir.string() + ": is a folder, not a scenario file");
}

struct TreeMistake {
  const char* name;
  const char* text;     // the tree file
  const char* message;  // after "ostrel: --windows FILE: "
};

// Each kind of mistake in a recorded window tree: the whole message, which names the place in the file.
TEST_F(BadInputTest, WindowTreeWithEachKindOfMistakeNamesThePlace) {
  const TreeMistake mistakes[] = {
      {"NotJson", "{\"windows\": [\n  {\"hwnd\": 1,, }]}", "line 2, column 14: not JSON (syntax error"},
      {"Empty", "", "line 1, column 1: not JSON (syntax error"},
      {"NumberBeyondADouble", "{\"windows\": [\n  {\"hwnd\": 31e999}]}",
       "line 2, column 12: the number 31e999 is too large to read"},
      {"UnknownKeyOfAWindow", R"({"windows": [{"hwnd": 7, "class": "Photoshop", "colour": 1}]})",
       "windows[0] (hwnd 7): unknown key \"colour\""},
      {"UnknownKeyAtTheTop", R"({"windows": [], "screens": {}})", "the top level: unknown key \"screens\""},
      {"WrongType", R"({"windows": [{"hwnd": 7, "class": "Photoshop", "visible": 1}]})",
       "windows[0] (hwnd 7): \"visible\" must be true or false"},
      {"HandleNotANumber", R"({"windows": [{"hwnd": "7", "class": "Photoshop"}]})",
       "windows[0]: \"hwnd\" must be a window handle, a whole number from 1 to 4294967295"},
      {"CoordinateBeyondAScreen", R"({"windows": [{"hwnd": 7, "class": "Photoshop", "rect": [0, 0, 40000, 10]}]})",
       "windows[0] (hwnd 7): \"rect\" right must be a whole number from -32768 to 32767"},
      {"DuplicateHandle",
       R"({"windows": [{"hwnd": 7, "class": "Photoshop",
                       "children": [{"hwnd": 8, "class": "A"}, {"hwnd": 7, "class": "B"}]}]})",
       "windows[0].children[1] (hwnd 7): the handle is already used by another window"},
      {"OwnerNotInTheTree",
       R"({"windows": [{"hwnd": 5, "class": "PSFloatC", "owner": 99}, {"hwnd": 7, "class": "A"}]})",
       "windows[0] (hwnd 5): the owner 99 isn't a top-level window of the tree"},
      {"OwnerBelowItsWindow", R"({"windows": [{"hwnd": 7, "class": "A"}, {"hwnd": 5, "class": "B", "owner": 7}]})",
       "windows[1] (hwnd 5): an owned window must stand above its owner 7, before it in the list"},
      {"ItemsNotOnAComboBox", R"({"windows": [{"hwnd": 7, "class": "Edit", "items": ["a"]}]})",
       "windows[0] (hwnd 7): \"items\" is only for a ComboBox"},
      {"SelectedOutOfRange", R"({"windows": [{"hwnd": 7, "class": "ComboBox", "items": ["a", "b"], "selected": 2}]})",
       "windows[0] (hwnd 7): \"selected\" must be -1 or the number of one of the 2 items"},
  };
  for (const TreeMistake& mistake : mistakes) {
    SCOPED_TRACE(mistake.name);
    const std::string file = Write(std::string(mistake.name) + ".json", mistake.text);
    const ToolRun run = RunInProcess({"--windows", file, "call", "Ostrel_GetPhotoshopWnd"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err.rfind("ostrel: --windows " + file + ": " + mistake.message, 0), 0) << run.err;
  }
}

TEST_F(BadInputTest, WindowTreePathMissingOrAFolderOrUnreadable) {
  const auto expectRefused = [](const std::string& path, const std::string& message) {
    const ToolRun run = RunInProcess({"--windows", path, "call", "Ostrel_GetPhotoshopWnd"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "ostrel: --windows " + path + ": " + message + "\n");
  };
  expectRefused(Path("no_such.json"), "no such file");
  expectRefused(m_dir.string(), "is a folder, not a window tree file");
#if !defined(_WIN32)
  expectRefused("/dev/null", "is not a regular file");
#endif
  const std::string locked = Write("locked.json", R"({"windows": []})");
  std::filesystem::permissions(locked, std::filesystem::perms::none);
  if (std::ifstream(locked)) GTEST_SKIP() << "running as a user who reads every file (root)";
  expectRefused(locked, "cannot be opened (no permission to read it)");
}

TEST_F(BadInputTest, CallArgumentsThatFitNoSignatureNameTheArgument) {
  ExpectRun(RunInProcess({"call", "Ostrel_ToolIndexToNameCN", "x"}), 2,
            "wrong arguments for Ostrel_ToolIndexToNameCN:");
  ExpectRun(RunInProcess({"call", "Ostrel_ToolIndexToNameCN", "x"}), 2, "argument 1 (nIndex)");
  ExpectRun(RunInProcess({"call", "Ostrel_ToolIndexToNameCN", "1", "2"}), 2, "expects 1 argument(s), got 2");
  ExpectRun(RunInProcess({"call", "Ostrel_ParseScript", "{}"}), 2, "wrong arguments for Ostrel_ParseScript:");
  ExpectRun(RunInProcess({"call", "Ostrel_NoSuchExport"}), 2, "unknown function: Ostrel_NoSuchExport");
}

TEST_F(BadInputTest, HostParametersEmptyOrPointingNowhereStillConnect) {
  const std::string file = Write("a_file", "");
  const std::string nowhere = file + "/Log/";  // under a file: no folder can be made there
  ExpectRun(RunInProcess({"--param", "33=", "--photoshop", Scenario("only_130.json"), "call", "Ostrel_IsServiceIdle"}),
            0, "{\"result\": 1}");
  ExpectRun(RunInProcess({"--param", "33=" + nowhere, "--photoshop", Scenario("only_130.json"), "call",
                          "Ostrel_IsServiceIdle"}),
            0, "{\"result\": 1}");
  ExpectRun(RunInProcess({"--param", "66=", "--photoshop", Scenario("only_130.json"), "call", "Ostrel_Init"}), 0,
            "{\"result\": 1}");
  ExpectRun(RunInProcess({"--param", "66=Adobe Photoshop 1999", "--photoshop", Scenario("only_130.json"), "call",
                          "Ostrel_Init"}),
            0, "{\"result\": 1}");
  ExpectRun(RunInProcess({"--param", "53=" + nowhere, "call", "Ostrel_Init"}), 0, "{\"result\": 0}");
  ExpectRun(RunInProcess({"--param", "x=1", "call", "Ostrel_Init"}), 2, "--param");
}

}  // namespace
}  // namespace ostrel::cli
