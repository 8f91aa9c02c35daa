// Ostrel_GetScreenMode against the simulated Photoshop and a recorded window tree: the example scenarios of the
// three modes, the log line written before the test, the second test after a failed read of the document area
// (and -1 when it fails there too), a layout no row fits, and the tool bar's width from the host's file.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "../support/png_files.h"
#include "connected_photoshop.h"
#include "ostrel/OstrelCore.h"
#include "platform/portable/portable_backends.h"
#include "platform/portable/recorded_windows.h"
#include "platform/text.h"

namespace ostrel {
namespace {

class FixedClock final : public IClock {
 public:
  LocalTime Now() override { return LocalTime{2021, 3, 7, 9, 5, 0}; }
};

RecordedWindowTree ExampleTree(const char* name) {
  WindowTreeLoad load = LoadWindowTree(std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "windows" / name);
  EXPECT_TRUE(load.tree) << load.error;
  return load.tree ? std::move(*load.tree) : RecordedWindowTree{};
}

std::string Scenario(const std::string& area) {
  return R"({"versions": [130], "application": {"documentArea": )" + area + "}}";
}

class ScreenModeTest : public test::ConnectedPhotoshopTest {
 protected:
  void SetUp() override {
    m_folder = test_support::FreshFolder("screen_mode");
    m_parameters.Set(EnTallyKey::kLogDirectory, FromUtf8(m_folder.string()) + L"/");
  }
  void TearDown() override {
    test::ConnectedPhotoshopTest::TearDown();
    std::filesystem::remove_all(m_folder);
  }

  // The mode on the tree, with the log, the clock and the host's parameters of the test.
  int ModeOn(const char* tree) {
    RecordedWindows windows(ExampleTree(tree));
    const ScopedPlatform platform(
        {.windows = &windows, .screen = &windows, .clock = &m_clock, .parameters = &m_parameters});
    return static_cast<int>(Ostrel_GetScreenMode());
  }

  std::string Log() const {
    std::ifstream in(m_folder / "Log" / "2021-03-07.log", std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
  }

  std::filesystem::path m_folder;
  ProcessParameters m_parameters;
  FixedClock m_clock;
};

TEST_F(ScreenModeTest, TheExampleScenariosGiveTheirModes) {
  struct Example {
    const char* scenario;
    const char* tree;
    int mode;
  };
  for (const Example& example : {Example{"screen_standard.json", "marquee.json", 0},
                                 Example{"screen_full_menu_bar.json", "full_screen.json", 1},
                                 Example{"screen_full.json", "full_screen.json", 2}}) {
    SCOPED_TRACE(example.scenario);
    Connect(example.scenario);
    EXPECT_EQ(ModeOn(example.tree), example.mode);
  }
}

TEST_F(ScreenModeTest, TheGeometryIsLoggedBeforeTheTest) {
  Connect("screen_standard.json");
  EXPECT_EQ(ModeOn("marquee.json"), 0);
  const std::wstring text =
      L"[09:05:00] \n 屏幕模式：_sizeScreen:1920,1080,\n _rcPhotoshop:0,0,1920,1040,\n"
      L" _rcDocumentArea:44,66,1629,1036\n\n";
  std::string expected;
  for (const char c : CurrentPlatform().encoding->ToCodePage936(text)) {
    if (c == '\n') expected += '\r';
    expected += c;
  }
  EXPECT_EQ(Log(), expected);
}

TEST_F(ScreenModeTest, AHiddenMainFrameIsLoggedAsZeros) {
  Connect("screen_standard.json");
  RecordedWindowTree tree = ExampleTree("marquee.json");
  for (RecordedWindow& window : tree.windows) {
    if (window.className == L"Photoshop") window.visible = false;
  }
  RecordedWindows windows(std::move(tree));
  const ScopedPlatform platform(
      {.windows = &windows, .screen = &windows, .clock = &m_clock, .parameters = &m_parameters});
  EXPECT_EQ(static_cast<int>(Ostrel_GetScreenMode()), 0);  // the general row: the exact rows can't fit
  EXPECT_NE(Log().find(" _rcPhotoshop:0,0,0,0,\r\n"), std::string::npos) << Log();
}

TEST_F(ScreenModeTest, AFailedReadGoesToTheSecondTestWhichReadsAgain) {
  // The first read of (44, 66) fails (its third call, a type id of the reference; a failure to create the result's
  // descriptor, which the read replaces anyway, would change nothing): the second test reads it again, and
  // L >= 40, T >= 59 is the standard mode.
  Connect("screen_standard.json");
  m_photoshop->FailCall(3, sim::FaultMode::kTransient);
  EXPECT_EQ(ModeOn("marquee.json"), 0);
  EXPECT_TRUE(m_photoshop->FaultFired());
  EXPECT_EQ(Log(), "") << "no geometry without a document area";
}

TEST_F(ScreenModeTest, AReadThatFailsInTheSecondTestTooGivesMinusOne) {
  Connect("screen_standard.json");
  m_photoshop->FailCall(1, sim::FaultMode::kPersistent);
  EXPECT_EQ(ModeOn("marquee.json"), -1);
  Connect("only_130.json");  // no documentArea at all
  EXPECT_EQ(ModeOn("marquee.json"), -1);
}

TEST_F(ScreenModeTest, ALayoutThatNoRowFitsIsToldByTheSecondTest) {
  // The frame of marquee.json lies at (0, 0): L = 12, T = 30 is the panels-hidden corner, L = m + 5 none.
  ConnectToText(Scenario(R"({"left": 12.0, "top": 30.0, "right": 1932.0, "bottom": 900.0})"));
  EXPECT_EQ(ModeOn("marquee.json"), 3);
  ConnectToText(Scenario(R"({"left": 5.0, "top": 80.0, "right": 1925.0, "bottom": 900.0})"));
  EXPECT_EQ(ModeOn("marquee.json"), -1);
}

TEST_F(ScreenModeTest, TheSidesAreCutTowardZero) {
  ConnectToText(Scenario(R"({"left": 44.9, "top": 66.99, "right": 1629.5, "bottom": 1036.7})"));
  EXPECT_EQ(ModeOn("marquee.json"), 0);  // 44, 66, 1629, 1036: the first row
  ConnectToText(Scenario(R"({"left": -0.9, "top": 59.2, "right": 1920.0, "bottom": 1080.0})"));
  EXPECT_EQ(ModeOn("full_screen.json"), 1);
}

TEST_F(ScreenModeTest, AToolBarWidthOfZeroOrLessIsTheDefault39) {
  // L = 38 is less than ML + 39: not the standard mode's general row but the panels-hidden one.
  ConnectToText(Scenario(R"({"left": 38.0, "top": 57.0, "right": 1000.0, "bottom": 900.0})"));
  const std::filesystem::path ini = m_folder / "bars.ini";
  m_parameters.Set(EnTallyKey::kBarSizesFile, FromUtf8(ini.string()));
  for (const char* width : {"0", "-4", ""}) {
    SCOPED_TRACE(width);
    test_support::WriteFile(ini, std::string("[Photoshop]\r\nToolBarWidth=") + width + "\r\n");
    EXPECT_EQ(ModeOn("marquee.json"), 3);
  }
  test_support::WriteFile(ini, "[Photoshop]\r\nToolBarWidth=38\r\n");
  EXPECT_EQ(ModeOn("marquee.json"), 0);
}

}  // namespace
}  // namespace ostrel
