// The foreground colour through real COM: the colour set is the colour read, red in the low byte; and with one
// call failing at any position the set or the read gives its default, with nothing left alive on either side of
// IDispatch::Invoke.
#include <gtest/gtest.h>

#include <objbase.h>

#include <cstdint>
#include <string>

#include "../support/example_scenarios.h"
#include "com_bridge.h"
#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/win32/holders.h"
#include "simulator/photoshop.h"

namespace ostrel {
namespace {

// Red 0x0C, green 0x00, blue 0xFF.
constexpr std::uint32_t kSet = 0x00FF000Cu;

class ComColorsTest : public ::testing::Test {
 protected:
  void TearDown() override { Ostrel_UnInit(); }
  win32::ComInit m_com{COINIT_MULTITHREADED};
  ProcessParameters m_parameters;
  ScopedPlatform m_platform{Platform{.parameters = &m_parameters}};  // automation stays real COM
};

TEST_F(ComColorsTest, TheForegroundColourSetIsTheColourRead) {
  m_parameters.Set(EnTallyKey::kPhotoshopVersionName, L"Adobe Photoshop CC 2019");
  const long bridgeBaseline = testing::ComBridge::LiveObjects();
  std::uint32_t original = 0;
  for (int n = 0;; ++n) {  // n = 0: no failure
    SCOPED_TRACE(n);
    sim::SimulatedPhotoshop photoshop(test::ExampleScenario("layers_and_group.json"));
    bool fired = false;
    {
      testing::ComBridge bridge(photoshop, testing::kProgIds130);
      ASSERT_EQ(Ostrel_Init(), 1);
      if (n == 0) {
        ASSERT_EQ(Ostrel_GetForegroundColor(original), 1);
      } else {
        photoshop.FailCall(n);
      }
      const int set = Ostrel_SetForegroundColor(kSet);
      std::uint32_t color = 0x00ABCDEFu;
      const int got = Ostrel_GetForegroundColor(color);
      fired = photoshop.FaultFired();
      if (n == 0 || !fired || (set == 1 && got == 1)) {
        EXPECT_EQ(set, 1);
        EXPECT_EQ(got, 1);
        EXPECT_EQ(color, kSet);
      } else if (set == 0) {  // the one failure was in the set: Photoshop's colour is as it was
        EXPECT_EQ(got, 1);
        EXPECT_EQ(color, original);
      } else {  // the one failure was in the read
        EXPECT_EQ(got, 0);
        EXPECT_EQ(color, 0u);
      }
      Ostrel_UnInit();
    }
    EXPECT_EQ(photoshop.LiveObjects(), 0);
    EXPECT_EQ(testing::ComBridge::LiveObjects(), bridgeBaseline);
    if (n > 0 && !fired) break;
    ASSERT_LT(n, 100);
  }
  EXPECT_NE(original, kSet);  // the set changed something
}

}  // namespace
}  // namespace ostrel
