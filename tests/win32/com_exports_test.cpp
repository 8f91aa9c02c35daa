// A representative set of the Photoshop exports through real COM: the same answers as against the simulated
// Photoshop directly, and with a failure at every call position the export's default with nothing left alive on
// either side of IDispatch::Invoke.
#include <gtest/gtest.h>

#include <objbase.h>

#include <functional>

#include "../support/example_scenarios.h"
#include "com_bridge.h"
#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/win32/holders.h"
#include "simulator/photoshop.h"

namespace ostrel {
namespace {

// One export, run to a printable answer: its result, its out-parameter, and the answer a failure gives.
struct ExportCase {
  const char* name;
  std::function<std::wstring()> run;
  std::wstring expected;
  std::wstring onFailure;
};

std::wstring Joined(const std::vector<std::wstring>& texts) {
  std::wstring joined;
  for (const std::wstring& text : texts) joined += text + L"|";
  return joined;
}

const ExportCase kCases[] = {
    {"ToolOption",
     [] {
       std::wstring value;
       const int result = Ostrel_GetToolFeatures(EnToolFeatures{53}, value);
       return std::to_wstring(result) + L":" + value;
     },
     L"1:1.000", L"0:"},
    {"HistoryList",
     [] {
       std::vector<std::wstring> names;
       const int result = Ostrel_GetHistoryList(names);  // before the names are joined
       return std::to_wstring(result) + L":" + Joined(names);
     },
     L"1:Open|Brush Tool|New Layer|", L"0:"},  // on failure: 0 and the names read before it
    {"CanvasSize",
     [] {
       const tagSIZE size = Ostrel_GetCurrentCanvasSize();
       return std::to_wstring(size.cx) + L"x" + std::to_wstring(size.cy);
     },
     L"2100x1500", L"0x0"},
    {"HistoryCountAndName",
     [] {
       const int count = Ostrel_GetHistoryCount();
       const std::wstring name = Ostrel_GetHistoryName(1);
       return std::to_wstring(count) + L":" + name + L":" + std::to_wstring(Ostrel_GetCurrentHistoryIndex());
     },
     L"3:Open:3", L""},
    {"CurrentTool", [] { return std::to_wstring(static_cast<int>(Ostrel_GetCurrentToolIndex())); }, L"2", L"-1"},
};

class ComExportsTest : public ::testing::TestWithParam<ExportCase> {
 protected:
  void TearDown() override { Ostrel_UnInit(); }
  win32::ComInit m_com{COINIT_MULTITHREADED};
  ProcessParameters m_parameters;
  ScopedPlatform m_platform{Platform{.parameters = &m_parameters}};  // automation stays real COM
};

TEST_P(ComExportsTest, AnswersThroughRealComAndFailsCleanlyAtEveryCall) {
  const ExportCase& c = GetParam();
  m_parameters.Set(EnTallyKey::kPhotoshopVersionName, L"Adobe Photoshop CC 2019");
  const long bridgeBaseline = testing::ComBridge::LiveObjects();
  for (int n = 0;; ++n) {  // n = 0: no failure
    SCOPED_TRACE(n);
    sim::SimulatedPhotoshop photoshop(test::ExampleScenario("layers_and_group.json"));
    bool fired = false;
    {
      testing::ComBridge bridge(photoshop, testing::kProgIds130);
      ASSERT_EQ(Ostrel_Init(), 1);
      if (n > 0) photoshop.FailCall(n);
      const std::wstring answer = c.run();
      fired = photoshop.FaultFired();
      if (n == 0 || !fired) {
        EXPECT_EQ(answer, c.expected);
      } else if (answer != c.expected) {
        EXPECT_EQ(answer.substr(0, c.onFailure.size()), c.onFailure);
      }
      Ostrel_UnInit();
    }
    EXPECT_EQ(photoshop.LiveObjects(), 0);
    EXPECT_EQ(testing::ComBridge::LiveObjects(), bridgeBaseline);
    if (n > 0 && !fired) break;
    ASSERT_LT(n, 200);
  }
}

INSTANTIATE_TEST_SUITE_P(Exports, ComExportsTest, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace ostrel
