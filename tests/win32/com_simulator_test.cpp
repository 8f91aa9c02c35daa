// The simulated Photoshop served through real COM: the Action Manager shapes cross IDispatch::Invoke with real
// VARIANTs, references travel back into executeActionGet as IDispatch arguments, and a failure at any call
// gives the default and leaves no COM object and no simulated object alive.
#include <gtest/gtest.h>

#include <objbase.h>

#include "../support/example_scenarios.h"
#include "com_bridge.h"
#include "frame/guard.h"
#include "ostrel/lifecycle.h"
#include "photoshop/action_manager.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/win32/holders.h"
#include "simulator/photoshop.h"

namespace ostrel {
namespace {

class ComSimulatorTest : public ::testing::Test {
 protected:
  void TearDown() override { Ostrel_UnInit(); }
  win32::ComInit m_com{COINIT_MULTITHREADED};
  ProcessParameters m_parameters;
  ScopedPlatform m_platform{Platform{.parameters = &m_parameters}};  // automation stays real COM
};

int ReadShadowName(std::wstring& name) {
  if (!IsConnected()) return 0;
  return Guarded(0, [&] {
    using namespace am;
    name = GetString(ReadLayerById(4, L"name"), StringId(L"name"));
    return 1;
  });
}

TEST_F(ComSimulatorTest, ReadsAndCommandsCrossRealInvoke) {
  sim::SimulatedPhotoshop photoshop(test::ExampleScenario("layers_and_group.json"));
  testing::ComBridge bridge(photoshop, testing::kProgIds130);
  m_parameters.Set(EnTallyKey::kPhotoshopVersionName, L"Adobe Photoshop CC 2019");
  ASSERT_EQ(Ostrel_Init(), 1);
  std::wstring name;
  EXPECT_EQ(ReadShadowName(name), 1);
  EXPECT_EQ(name, L"Shadow");
  EXPECT_EQ(am::GetInteger(am::ReadLayerByIndex(0), am::StringId(L"background")), 1);
  am::MenuCommand(L"toggleRulers");
  ASSERT_FALSE(photoshop.Journal().empty());
  EXPECT_EQ(photoshop.Journal().back().dialogMode, 3);
  Ostrel_UnInit();
  EXPECT_EQ(photoshop.LiveObjects(), 0);
}

TEST_F(ComSimulatorTest, AFailureAtAnyCallLeavesNothingAliveOnEitherSide) {
  const long bridgeBaseline = testing::ComBridge::LiveObjects();
  for (int n = 1;; ++n) {
    SCOPED_TRACE(n);
    sim::SimulatedPhotoshop photoshop(test::ExampleScenario("layers_and_group.json"));
    bool fired = false;
    {
      testing::ComBridge bridge(photoshop, testing::kProgIds130);
      m_parameters.Set(EnTallyKey::kPhotoshopVersionName, L"Adobe Photoshop CC 2019");
      ASSERT_EQ(Ostrel_Init(), 1);
      photoshop.FailCall(n);
      std::wstring name;
      const int result = ReadShadowName(name);
      EXPECT_TRUE(result == 0 || name == L"Shadow");
      Ostrel_UnInit();
      fired = photoshop.FaultFired();
    }
    EXPECT_EQ(photoshop.LiveObjects(), 0);
    EXPECT_EQ(testing::ComBridge::LiveObjects(), bridgeBaseline);
    if (!fired) break;
    ASSERT_LT(n, 100);
  }
}

}  // namespace
}  // namespace ostrel
