// The daily log: its file name, its bytes (code page 936, CR LF), whole lines and no interleaving.
#include "frame/log.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <map>
#include <mutex>
#include <sstream>
#include <thread>
#include <vector>

#include "fake_automation.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"

namespace ostrel {
namespace {

class LogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    m_dir = std::filesystem::path(::testing::TempDir()) /
            ("ostrel_log_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::remove_all(m_dir);
    m_parameters.Set(EnTallyKey::kLogDirectory, FromUtf8(m_dir.string()) + L"/");
  }
  void TearDown() override { std::filesystem::remove_all(m_dir); }

  std::string ReadLog(const char* date = "2021-03-07") {
    std::ifstream in(m_dir / ("Log/" + std::string(date) + ".log"), std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
  }

  std::filesystem::path m_dir;
  ProcessParameters m_parameters;
  testing::FakeClock m_clock;
  ScopedPlatform m_platform{Platform{.clock = &m_clock, .parameters = &m_parameters}};
};

TEST_F(LogTest, LinesAreCodePage936WithCrLfAndATimeStamp) {
  CLogFile log;
  EXPECT_EQ(log.Write(L"%s-%d", L"中文", 7), 1);
  m_clock.now.second = 9;
  EXPECT_EQ(log.WriteString(L"CoInitializeEx==0"), 1);
  EXPECT_EQ(ReadLog(),
            "[09:05:00] \xD6\xD0\xCE\xC4-7\r\n"
            "[09:05:09] CoInitializeEx==0\r\n");
}

TEST_F(LogTest, ATextEndingInALineFeedGivesABlankLine) {
  CLogFile log;
  log.WriteString(L"Init\n");
  log.WriteString(L"");  // an empty text is a line with the time stamp alone
  EXPECT_EQ(ReadLog(), "[09:05:00] Init\r\n\r\n[09:05:00] \r\n");
}

TEST_F(LogTest, CharactersWithoutAFormInTheCodePageBecomeQuestionMarks) {
  CLogFile log;
  // é has a form; a Thai letter has none, and an emoji (two UTF-16 units) gives one '?' per unit.
  log.WriteString(L"a\u00e9\u0e01\U0001F600b");
  EXPECT_EQ(ReadLog(), "[09:05:00] a\xA8\xA6???b\r\n");
}

TEST_F(LogTest, EachDayHasItsOwnFileAndOldLinesStay) {
  CLogFile log;
  log.WriteString(L"first");
  m_clock.now = LocalTime{2021, 3, 8, 0, 0, 1};
  log.WriteString(L"next day");
  m_clock.now = LocalTime{2021, 3, 7, 23, 59, 59};
  log.WriteString(L"again");
  EXPECT_EQ(ReadLog("2021-03-07"), "[09:05:00] first\r\n[23:59:59] again\r\n");
  EXPECT_EQ(ReadLog("2021-03-08"), "[00:00:01] next day\r\n");
}

TEST_F(LogTest, TheBaseDirectoryIsTakenUnchanged) {
  m_parameters.Set(EnTallyKey::kLogDirectory, FromUtf8((m_dir / "base").string()));  // no closing separator
  EXPECT_EQ(CLogFile::TodayFileName(), FromUtf8((m_dir / "base").string()) + L"Log\\2021-03-07.log");
  CLogFile log;
  EXPECT_EQ(log.WriteString(L"x"), 1);
  EXPECT_TRUE(std::filesystem::exists(m_dir / "baseLog" / "2021-03-07.log"));
}

TEST_F(LogTest, AMissingDirectoryIsMadeAndAnImpossibleOneLosesTheLine) {
  m_parameters.Set(EnTallyKey::kLogDirectory, FromUtf8((m_dir / "a" / "b").string()) + L"/");
  CLogFile log;
  EXPECT_EQ(log.WriteString(L"x"), 1);
  EXPECT_TRUE(std::filesystem::exists(m_dir / "a" / "b" / "Log" / "2021-03-07.log"));

  std::filesystem::create_directories(m_dir);
  std::ofstream(m_dir / "file") << "not a directory";
  m_parameters.Set(EnTallyKey::kLogDirectory, FromUtf8((m_dir / "file").string()) + L"/");
  EXPECT_EQ(log.WriteString(L"lost"), 0);
}

TEST_F(LogTest, AVeryLongLineIsWrittenWhole) {
  CLogFile log;
  const std::wstring text(100000, L'字');
  EXPECT_EQ(log.Write(L"%s", text), 1);
  const std::string bytes = ReadLog();
  ASSERT_EQ(bytes.size(), 11 + 200000 + 2u);
  EXPECT_EQ(bytes.substr(11, 2), "\xD7\xD6");
  EXPECT_EQ(bytes.substr(bytes.size() - 4), "\xD7\xD6\r\n");
}

// Files whose every append lands in two halves with a pause between them, as a write to a file on a share or a
// slow disk may: only the log's lock keeps another thread's line from landing between the halves.
class SplittingFileSystem final : public IFileSystem {
 public:
  bool FileExists(const std::wstring&) override { return true; }
  bool RemoveFile(const std::wstring&) override { return true; }
  bool CreatePathTo(const std::wstring&) override { return true; }
  bool AppendToFile(const std::wstring&, std::string_view bytes) override {
    const size_t half = bytes.size() / 2;
    Append(bytes.substr(0, half));
    std::this_thread::yield();
    std::this_thread::sleep_for(std::chrono::microseconds(20));
    Append(bytes.substr(half));
    return true;
  }
  std::wstring TempDirectory() override { return L"/tmp/"; }
  std::wstring LocalAppDataDirectory() override { return L"/tmp"; }

  std::string Contents() {
    std::lock_guard lock(m_mutex);
    return m_bytes;
  }

 private:
  void Append(std::string_view bytes) {
    std::lock_guard lock(m_mutex);
    m_bytes += bytes;
  }
  std::mutex m_mutex;
  std::string m_bytes;
};

TEST_F(LogTest, ThreadsNeverInterleaveWithinALine) {
  SplittingFileSystem files;
  ScopedPlatform platform(Platform{.files = &files});
  CLogFile log;
  constexpr int kThreads = 4, kLines = 150;
  std::vector<std::thread> writers;
  for (int t = 0; t < kThreads; ++t) {
    writers.emplace_back([&log, t] {
      for (int i = 0; i < kLines; ++i) log.Write(L"%s", std::wstring(40, static_cast<wchar_t>(L'A' + t)));
    });
  }
  for (std::thread& writer : writers) writer.join();

  std::map<char, int> linesByWriter;
  const std::string bytes = files.Contents();
  size_t start = 0;
  for (size_t end; (end = bytes.find("\r\n", start)) != std::string::npos; start = end + 2) {
    const std::string line = bytes.substr(start, end - start);
    ASSERT_EQ(line.size(), 11 + 40u) << line;  // "[09:05:00] " and the text
    const char letter = line[11];
    EXPECT_EQ(line, "[09:05:00] " + std::string(40, letter));
    ++linesByWriter[letter];
  }
  EXPECT_EQ(start, bytes.size()) << "the file ends with a whole line";
  EXPECT_EQ(linesByWriter, (std::map<char, int>{{'A', kLines}, {'B', kLines}, {'C', kLines}, {'D', kLines}}));
}

}  // namespace
}  // namespace ostrel
