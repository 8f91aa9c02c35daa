// Lesson files as people have them: line ends, byte order marks, UTF-16LE and GBK, and bytes that aren't valid
// in the encoding, named by line and offset and never replaced.
#include "lesson.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "json.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "run_in_process.h"

namespace ostrel::cli {
namespace {

// UTF-16LE with its byte order mark for UTF-8 text: the test's own encoder.
std::string Utf16LeWithMark(const std::string& utf8) {
  std::string bytes = "\xFF\xFE";
  auto unit = [&](char32_t u) {
    bytes += static_cast<char>(u & 0xFF);
    bytes += static_cast<char>(u >> 8);
  };
  for (const wchar_t c : FromUtf8(utf8)) {
    const auto cp = static_cast<char32_t>(c);
    if (cp < 0x10000) {
      unit(cp);
    } else {  // only where wchar_t has 32 bits
      unit(0xD800 + ((cp - 0x10000) >> 10));
      unit(0xDC00 + ((cp - 0x10000) & 0x3FF));
    }
  }
  return bytes;
}

std::vector<std::wstring> Texts(const std::vector<LessonLine>& lines) {
  std::vector<std::wstring> texts;
  for (const LessonLine& line : lines) {
    EXPECT_EQ(line.nBadOffset, std::nullopt) << ToUtf8(line.strText);
    texts.push_back(line.strText);
  }
  return texts;
}

// The same line ends in every encoding: UTF-8 with and without its mark, UTF-16LE found by its mark, and GBK
// (for the ASCII cases, whose GBK bytes are the same).
TEST(LessonTest, LineEndsAreNotFieldContent) {
  struct Case {
    const char* utf8;
    std::vector<std::wstring> lines;
  };
  const Case cases[] = {
      {"", {}},
      {"TOOL,1\nTOOL,2", {L"TOOL,1", L"TOOL,2"}},
      {"TOOL,1\n\nX\r\r\n", {L"TOOL,1", L"", L"X\r"}},
      {"a\rb\n", {L"a\rb"}},                       // a lone CR stays in the field
      {"TOOL,1\nTOOL,2\r", {L"TOOL,1", L"TOOL,2\r"}},  // and so does a CR that ends the file
      {"\r", {L"\r"}},
      {"\r\n", {L""}},
      {"\n\n", {L"", L""}},
      {"羽化\r\n😀,背景", {L"羽化", FromUtf8("😀,背景")}},  // 😀 is one character from a surrogate pair
      {"上不\n不上", {L"上不", L"不上"}},  // U+4E0A and U+4E0D hold the bytes 0A and 0D in UTF-16LE
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(::testing::PrintToString(std::string(c.utf8)));
    EXPECT_EQ(Texts(DecodeLesson(c.utf8, LessonEncoding::kDetect)), c.lines);
    EXPECT_EQ(Texts(DecodeLesson(std::string("\xEF\xBB\xBF") + c.utf8, LessonEncoding::kDetect)), c.lines);
    EXPECT_EQ(Texts(DecodeLesson(Utf16LeWithMark(c.utf8), LessonEncoding::kDetect)), c.lines);
    EXPECT_EQ(Texts(DecodeLesson(Utf16LeWithMark(c.utf8), LessonEncoding::kUtf16Le)), c.lines);
    const std::string text = c.utf8;
    if (std::all_of(text.begin(), text.end(), [](char b) { return static_cast<unsigned char>(b) < 0x80; })) {
      EXPECT_EQ(Texts(DecodeLesson(c.utf8, LessonEncoding::kGbk)), c.lines);
    }
  }
}

struct BadBytesCase {
  const char* name;
  LessonEncoding encoding;
  std::string bytes;
  size_t line;  // from 1
  size_t offset;
  std::wstring text;  // the line as shown, the invalid bytes as \xNN
};

class BadBytesTest : public ::testing::TestWithParam<BadBytesCase> {};

// Only the line with the invalid bytes is marked, with the offset of the first in the file.
TEST_P(BadBytesTest, NamedByLineAndOffset) {
  const BadBytesCase& c = GetParam();
  const std::vector<LessonLine> lines = DecodeLesson(c.bytes, c.encoding);
  ASSERT_GE(lines.size(), c.line);
  for (size_t i = 0; i < lines.size(); ++i) {
    SCOPED_TRACE(i + 1);
    if (i + 1 == c.line) {
      EXPECT_EQ(lines[i].nBadOffset, c.offset);
      EXPECT_EQ(lines[i].strText, c.text);
    } else {
      EXPECT_EQ(lines[i].nBadOffset, std::nullopt);
    }
  }
}

using std::string_literals::operator""s;

INSTANTIATE_TEST_SUITE_P(
    Lesson, BadBytesTest,
    ::testing::Values(
        BadBytesCase{"Utf8StrayByte", LessonEncoding::kDetect, "TOOL,1\nTO\xFFOL\nTOOL,2", 2, 9, L"TO\\xffOL"},
        BadBytesCase{"Utf8CutShortByTheLineEnd", LessonEncoding::kUtf8, "\xEF\xBB\xBF" "A\n\xE9\xA3\nB", 2, 5,
                     L"\\xe9\\xa3"},
        BadBytesCase{"Utf8Overlong", LessonEncoding::kDetect, "\xC0\xAF", 1, 0, L"\\xc0\\xaf"},
        BadBytesCase{"Utf8Surrogate", LessonEncoding::kDetect, "ok\xED\xA0\x80", 1, 2, L"ok\\xed\\xa0\\x80"},
        BadBytesCase{"Utf8BeyondUnicode", LessonEncoding::kDetect, "\n\xF4\x90\x80\x80", 2, 1,
                     L"\\xf4\\x90\\x80\\x80"},
        BadBytesCase{"Utf16LoneHighSurrogate", LessonEncoding::kDetect, "\xFF\xFE" "A\0\n\0\x00\xD8" "B\0"s, 2, 6,
                     L"\\x00\\xd8B"},
        BadBytesCase{"Utf16LoneLowSurrogate", LessonEncoding::kDetect, "\xFF\xFE" "\x00\xDC"s, 1, 2, L"\\x00\\xdc"},
        BadBytesCase{"Utf16HighSurrogateBeforeLineFeed", LessonEncoding::kDetect,
                     "\xFF\xFE" "\x3D\xD8\n\0" "x\0"s, 1, 2, L"\\x3d\\xd8"},
        BadBytesCase{"Utf16OddLastByte", LessonEncoding::kDetect, "\xFF\xFE" "A\0B"s, 1, 4, L"A\\x42"},
        BadBytesCase{"Utf16WithoutMarkWhenAsked", LessonEncoding::kUtf16Le, "A\0\n\0\x00\xD8"s, 2, 4,
                     L"\\x00\\xd8"},
        BadBytesCase{"GbkBadTrailByte", LessonEncoding::kGbk, "TOOL,1\n\x81\x20X", 2, 7, L"\\x81 X"},
        BadBytesCase{"GbkCutShort", LessonEncoding::kGbk, "AB\xB1", 1, 2, L"AB\\xb1"}),
    [](const auto& info) { return info.param.name; });

// Writes a file under a name of the running test's own, so that tests run in parallel never share one.
std::string WriteFile(const std::string& name, const std::string& bytes) {
  const std::string path =
      ::testing::TempDir() + ::testing::UnitTest::GetInstance()->current_test_info()->name() + "_" + name;
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

// One lesson with Chinese names, a CR LF line end and a last line that ends in CR without LF.
const char kLessonUtf8[] = "FILE,1,风景.jpg\nLAYER,8,2,背景 拷贝\r\nVERBOSE,1,蓝色_07\nTOOL,72\r";
// The same lesson in code page 936, byte by byte.
const char kLessonGbk[] =
    "FILE,1,\xB7\xE7\xBE\xB0.jpg\nLAYER,8,2,\xB1\xB3\xBE\xB0 \xBF\xBD\xB1\xB4\r\nVERBOSE,1,\xC0\xB6\xC9\xAB_07\n"
    "TOOL,72\r";

std::string ParseJsonOutput(const std::vector<std::string>& args) {
  const ToolRun run = RunInProcess(args);
  EXPECT_EQ(run.status, 0) << run.err;
  return run.out;
}

TEST(LessonFileTest, Utf16TwinParsesAsItsUtf8Twin) {
  const std::string utf8 = ParseJsonOutput({"parse", "--json", WriteFile("twin_utf8.lesson", kLessonUtf8)});
  EXPECT_NE(utf8.find("风景.jpg"), std::string::npos);
  EXPECT_NE(utf8.find("背景 拷贝"), std::string::npos);
  EXPECT_EQ(std::count(utf8.begin(), utf8.end(), '\n'), 4);
  EXPECT_EQ(ParseJsonOutput({"parse", "--json", WriteFile("twin_utf16.lesson", Utf16LeWithMark(kLessonUtf8))}),
            utf8);
  EXPECT_EQ(ParseJsonOutput({"parse", "--json", WriteFile("twin_bom.lesson", "\xEF\xBB\xBF" + std::string(kLessonUtf8))}),
            utf8);
  // Read as GBK, the UTF-8 bytes would be other characters: the encoding is never guessed to be GBK.
  EXPECT_NE(RunInProcess({"parse", "--json", "--encoding", "gbk", WriteFile("twin_utf8.lesson", kLessonUtf8)}).out,
            utf8);
}

TEST(LessonFileTest, GbkTwinParsesAsItsUtf8Twin) {
  size_t bad = 0;
  if (!CurrentPlatform().encoding->FromCodePage936("\xB7\xE7", bad)) {
    GTEST_SKIP() << "this platform's code page 936 converter decodes ASCII only";
  }
  const std::string utf8 = ParseJsonOutput({"parse", "--json", WriteFile("twin_utf8.lesson", kLessonUtf8)});
  EXPECT_EQ(ParseJsonOutput({"parse", "--json", "--encoding", "gbk", WriteFile("twin_gbk.lesson", kLessonGbk)}), utf8);
  EXPECT_EQ(ParseJsonOutput({"parse", "--encoding", "GBK", "--json", "-"}), "");  // empty standard input
}

// A broken byte: lint reports its line and offset and counts it, parse refuses the file naming both.
TEST(LessonFileTest, BrokenByteIsReportedNotReplaced) {
  const std::string path = WriteFile("broken.lesson", "TOOL,2\nLAYER,8,2,\xB1\xB3\xBE\xB0\nTOOL,69\n");
  ToolRun run = RunInProcess({"lint", path});
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.out.find(path + ":2: invalid bytes (the first at byte offset 17): LAYER,8,2,\\xb1\\xb3\\xbe\\xb0\n"),
            std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find(path + ":3: unknown code"), std::string::npos);  // the lines after it are still checked
  EXPECT_NE(run.out.find("3 lines checked: 0 not understood, 1 with an unknown code, 1 with invalid bytes\n"),
            std::string::npos)
      << run.out;
  run = RunInProcess({"lint", "--json", path});
  EXPECT_NE(run.out.find(R"({"file": )" + RenderJson(Json(path)) + R"(, "line": 2, "kind": "bad-encoding", )"
                         R"("reason": "the first at byte offset 17", "text": "LAYER,8,2,\\xb1\\xb3\\xbe\\xb0", )"
                         R"("title": "", "detail": "", "offset": 17})"),
            std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find(R"("unknownCode": 1, "badEncoding": 1}, "status": 1})"), std::string::npos) << run.out;
  run = RunInProcess({"parse", path});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find(path + ":2: invalid bytes for the encoding at byte offset 17"), std::string::npos) << run.err;
}

}  // namespace
}  // namespace ostrel::cli
