// The connection: the version named, the fallback over every version, the log lines, and the idle test.
#include "frame/connection.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "fake_automation.h"
#include "ostrel/lifecycle.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace ostrel {
namespace {

class ConnectionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    m_dir = std::filesystem::path(::testing::TempDir()) /
            ("ostrel_conn_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::remove_all(m_dir);
    m_parameters.Set(EnTallyKey::kLogDirectory, FromUtf8(m_dir.string()) + L"/");
    Ostrel_UnInit();
  }
  void TearDown() override {
    Ostrel_UnInit();
    std::filesystem::remove_all(m_dir);
  }

  std::string Log() {
    std::ifstream in(m_dir / "Log" / "2021-03-07.log", std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
  }

  static std::vector<std::wstring> AppProgIDs(std::initializer_list<const wchar_t*> codes) {
    std::vector<std::wstring> ids;
    for (const wchar_t* code : codes) ids.push_back(std::wstring(L"Photoshop.Application.") + code);
    return ids;
  }

  std::filesystem::path m_dir;
  ProcessParameters m_parameters;
  testing::FakeClock m_clock;
  testing::FakeAutomation m_automation;
  ScopedPlatform m_platform{Platform{.automation = &m_automation, .clock = &m_clock, .parameters = &m_parameters}};
};

TEST_F(ConnectionTest, VersionNamesGiveTheirCodesAndAnythingElse110) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"Adobe Photoshop CC 2017", L"110"}, {L"Adobe Photoshop CC 2018", L"120"},
      {L"Adobe Photoshop CC 2019", L"130"}, {L"Adobe Photoshop 2020", L"140"},
      {L"Adobe Photoshop 2021", L"150"},    {L"adobe photoshop 2021", L"110"},
      {L"Adobe Photoshop 2021 ", L"110"},   {L"", L"110"},
      {L"Adobe Photoshop 2022", L"110"},
  };
  for (const auto& [name, code] : cases) {
    SCOPED_TRACE(ToUtf8(name));
    EXPECT_EQ(VersionCodeOf(name), code);
  }
}

TEST_F(ConnectionTest, AnotherVersionThanTheNamedOneIsTakenAndNamed) {
  m_parameters.Set(EnTallyKey::kPhotoshopVersionName, L"Adobe Photoshop 2020");
  m_automation.reachable = {L"Photoshop.Application.130"};
  EXPECT_EQ(Ostrel_Init(), 1);
  EXPECT_EQ(m_automation.tries, AppProgIDs({L"140", L"110", L"120", L"130"}));
  EXPECT_EQ(ApplicationProgID(), L"Photoshop.Application.130");
  EXPECT_EQ(DescriptorProgID(), L"Photoshop.ActionDescriptor.130");
  EXPECT_EQ(ReferenceProgID(), L"Photoshop.ActionReference.130");
  const std::string log = Log();
  EXPECT_NE(log.find("] Init-\xB3\xF5\xCA\xBC\xBB\xAF\xD6\xAE\xC7\xB0 :m_lpDispatch:0-m_bAutoRelease:1\r\n\r\n"),
            std::string::npos)
      << log;
  EXPECT_NE(log.find("] CoInitializeEx==1\r\n"), std::string::npos);
  EXPECT_NE(log.find("-m_lpDispatch:1-130\r\n\r\n"), std::string::npos);
  EXPECT_NE(log.find("] CreateDispatch=Invalid class string\r\n"), std::string::npos);  // the last failure stays
}

TEST_F(ConnectionTest, NothingReachableMeansTwelveTriesAndTheNamedCode) {
  m_parameters.Set(EnTallyKey::kPhotoshopVersionName, L"Adobe Photoshop CC 2017");
  EXPECT_EQ(Ostrel_Init(), 0);
  const auto pass = AppProgIDs({L"110", L"110", L"120", L"130", L"140", L"150"});
  std::vector<std::wstring> expected = pass;
  expected.insert(expected.end(), pass.begin(), pass.end());
  EXPECT_EQ(m_automation.tries, expected);
  EXPECT_EQ(ApplicationProgID(), L"Photoshop.Application.110");
  EXPECT_FALSE(IsConnected());
  EXPECT_NE(Log().find("-m_lpDispatch:1-110\r\n"), std::string::npos);
}

TEST_F(ConnectionTest, TheNamedVersionFirstAndSuccessLogsTheEmptyFailure) {
  m_parameters.Set(EnTallyKey::kPhotoshopVersionName, L"Adobe Photoshop 2021");
  m_automation.reachable = {L"Photoshop.Application.150", L"Photoshop.Application.110"};
  EXPECT_EQ(Ostrel_Init(), 1);
  EXPECT_EQ(m_automation.tries, AppProgIDs({L"150"}));
  EXPECT_NE(Log().find("] CreateDispatch=The operation completed successfully.\r\n"), std::string::npos);
}

TEST_F(ConnectionTest, ASecondInitWhileConnectedOnlyLogsAndAnswersOne) {
  m_automation.reachable = {L"Photoshop.Application.110"};
  EXPECT_EQ(Ostrel_Init(), 1);
  const size_t tries = m_automation.tries.size();
  EXPECT_EQ(Ostrel_Init(), 1);
  EXPECT_EQ(m_automation.tries.size(), tries);
  EXPECT_EQ(m_automation.initializeCalls, 1);

  Ostrel_UnInit();  // Init, UnInit, Init: the whole connecting step again
  EXPECT_FALSE(IsConnected());
  EXPECT_EQ(Ostrel_Init(), 1);
  EXPECT_EQ(m_automation.initializeCalls, 2);
  EXPECT_EQ(m_automation.application.use_count(), 2);  // the fake's own reference and the connection's
  Ostrel_UnInit();
  EXPECT_EQ(m_automation.application.use_count(), 1);  // nothing is left behind
}

TEST_F(ConnectionTest, IdleTestAsksVisibilityThenVersion) {
  EXPECT_EQ(Ostrel_IsServiceIdle(), 0);  // not connected: no call, no log line
  EXPECT_FALSE(std::filesystem::exists(m_dir / "Log"));

  m_automation.reachable = {L"Photoshop.Application.110"};
  ASSERT_EQ(Ostrel_Init(), 1);
  testing::FakeApplication& app = *m_automation.application;
  EXPECT_EQ(Ostrel_IsServiceIdle(), 1);
  app.visible = false;
  EXPECT_EQ(Ostrel_IsServiceIdle(), 1);  // the version answers
  const size_t logBefore = Log().size();
  app.failReads = true;
  EXPECT_EQ(Ostrel_IsServiceIdle(), 0);  // a failed read gives 0 without a log line
  EXPECT_EQ(Log().size(), logBefore);
  app.failReads = false;
  app.version.clear();
  EXPECT_EQ(Ostrel_IsServiceIdle(), 0);
  EXPECT_NE(Log().find("] IsServiceIdle-\xB7\xFE\xCE\xF1\xD5\xBC\xD3\xC3\xC5\xD0\xB6\xCF\xCA\xA7\xB0\xDC _bState:0-_strVersion:\r\n"),
            std::string::npos);
}

}  // namespace
}  // namespace ostrel
