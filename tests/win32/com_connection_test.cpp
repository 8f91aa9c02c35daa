// The connection and the dispatch layer through real COM: ProgIDs found by CLSIDFromProgID, objects made by
// CoCreateInstance, every call a real IDispatch::Invoke, and failures coming back as DISP_E_EXCEPTION.
#include <gtest/gtest.h>

#include <objbase.h>

#include "../frame/fake_automation.h"
#include "com_bridge.h"
#include "frame/connection.h"
#include "ostrel/lifecycle.h"
#include "platform/platform.h"
#include "platform/win32/holders.h"

namespace ostrel {
namespace {

class ComConnectionTest : public ::testing::Test {
 protected:
  void SetUp() override { Ostrel_UnInit(); }
  void TearDown() override { Ostrel_UnInit(); }

  win32::ComInit m_com{COINIT_MULTITHREADED};
  ProcessParameters m_parameters;
  testing::FakeAutomation m_backend;
  ScopedPlatform m_platform{Platform{.parameters = &m_parameters}};  // automation stays real COM
};

TEST_F(ComConnectionTest, FallsBackToTheVersionThatIsRegistered) {
  m_backend.reachable = {L"Photoshop.Application.130"};
  testing::ComBridge bridge(m_backend, {L"Photoshop.Application.130"});
  m_parameters.Set(EnTallyKey::kPhotoshopVersionName, L"Adobe Photoshop 2020");
  EXPECT_EQ(Ostrel_Init(), 1);
  EXPECT_EQ(ApplicationProgID(), L"Photoshop.Application.130");
  EXPECT_EQ(DescriptorProgID(), L"Photoshop.ActionDescriptor.130");
  EXPECT_EQ(m_backend.tries, std::vector<std::wstring>{L"Photoshop.Application.130"});
}

TEST_F(ComConnectionTest, NothingRegisteredMeansNotConnected) {
  testing::ComBridge bridge(m_backend, {});
  EXPECT_EQ(Ostrel_Init(), 0);
  EXPECT_EQ(ApplicationProgID(), L"Photoshop.Application.110");
  EXPECT_EQ(Ostrel_IsServiceIdle(), 0);
}

TEST_F(ComConnectionTest, CallsCrossRealInvokeAndFailuresBecomeDefaults) {
  const long before = testing::ComBridge::LiveObjects();
  {
    m_backend.reachable = {L"Photoshop.Application.110"};
    testing::ComBridge bridge(m_backend, {L"Photoshop.Application.110"});
    ASSERT_EQ(Ostrel_Init(), 1);
    EXPECT_EQ(Ostrel_IsServiceIdle(), 1);  // a BOOL property through VARIANT
    m_backend.application->visible = false;
    m_backend.application->version = L"22.0 版本";
    EXPECT_EQ(Ostrel_IsServiceIdle(), 1);  // a BSTR through VARIANT
    m_backend.application->failReads = true;
    EXPECT_EQ(Ostrel_IsServiceIdle(), 0);  // DISP_E_EXCEPTION became the default
    try {
      Application().Get(dispid::app::kVersion);
      ADD_FAILURE() << "no exception";
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.description(), L"busy");  // the server's own text travels in EXCEPINFO
    }
    Ostrel_UnInit();
  }
  EXPECT_EQ(testing::ComBridge::LiveObjects(), before);  // every wrapper and factory released
  EXPECT_EQ(m_backend.application.use_count(), 1);
}

}  // namespace
}  // namespace ostrel
