// Host parameters given through the DLL's own export, as a lesson player gives them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "fake_automation.h"
#include "ostrel/lifecycle.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"

namespace ostrel {
namespace {

void SetEnvironment(const char* name, const char* value) {
#if defined(_WIN32)
  _putenv_s(name, value ? value : "");
#else
  if (value) {
    ::setenv(name, value, 1);
  } else {
    ::unsetenv(name);
  }
#endif
}

class SetParameterTest : public ::testing::Test {
 protected:
  void TearDown() override {
    for (const int key : {24, 25, 33, 53, 66}) Ostrel_SetParameter(key, nullptr);
  }
  static std::wstring Read(EnTallyKey key) { return CurrentPlatform().parameters->GetString(key); }
};

TEST_F(SetParameterTest, EveryKeyTheLibraryReadsIsSetForTheProcess) {
  const struct {
    int key;
    EnTallyKey tally;
    const wchar_t* value;
  } cases[] = {
      {24, EnTallyKey::kCameraRawMainTabImages, L"C:\\Refs\\Main\\"},
      {25, EnTallyKey::kCameraRawSubTabImages, L"C:\\Refs\\Sub\\"},
      {33, EnTallyKey::kLogDirectory, L"D:\\课程\\"},
      {53, EnTallyKey::kBarSizesFile, L"C:\\bars.ini"},
      {66, EnTallyKey::kPhotoshopVersionName, L"Adobe Photoshop 2020"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.key);
    EXPECT_EQ(Ostrel_SetParameter(c.key, c.value), 1);
    EXPECT_EQ(Read(c.tally), c.value);
  }
  EXPECT_EQ(Ostrel_SetParameter(66, L"Adobe Photoshop 2021"), 1);  // a later value replaces the earlier
  EXPECT_EQ(Read(EnTallyKey::kPhotoshopVersionName), L"Adobe Photoshop 2021");
  EXPECT_EQ(Ostrel_SetParameter(66, L""), 1);  // an empty value is a value
  EXPECT_EQ(Read(EnTallyKey::kPhotoshopVersionName), L"");
}

TEST_F(SetParameterTest, KeysTheLibraryNeverReadsAreRefused) {
  for (const int key : {0, -1, 23, 26, 34, 65, 67, 1000}) {
    SCOPED_TRACE(key);
    EXPECT_EQ(Ostrel_SetParameter(key, L"x"), 0);
    EXPECT_EQ(Ostrel_SetParameter(key, nullptr), 0);
  }
}

TEST_F(SetParameterTest, ANullValueGivesTheKeyBackToTheEnvironment) {
  SetEnvironment("OSTREL_TALLY_53", "/from/environment.ini");
  EXPECT_EQ(Ostrel_SetParameter(53, L"/from/host.ini"), 1);
  EXPECT_EQ(Read(EnTallyKey::kBarSizesFile), L"/from/host.ini");  // the host's value wins over the environment
  EXPECT_EQ(Ostrel_SetParameter(53, nullptr), 1);
  EXPECT_EQ(Read(EnTallyKey::kBarSizesFile), L"/from/environment.ini");
  SetEnvironment("OSTREL_TALLY_53", nullptr);
  EXPECT_EQ(Read(EnTallyKey::kBarSizesFile), L"");
}

// The version name given through the export decides which Photoshop the connection tries first.
TEST_F(SetParameterTest, TheVersionNameGivenBeforeInitIsTriedFirst) {
  testing::FakeAutomation automation;
  automation.reachable = {L"Photoshop.Application.130"};
  ScopedPlatform platform(Platform{.automation = &automation});
  Ostrel_UnInit();
  ASSERT_EQ(Ostrel_SetParameter(66, L"Adobe Photoshop CC 2019"), 1);
  EXPECT_EQ(Ostrel_Init(), 1);
  ASSERT_FALSE(automation.tries.empty());
  EXPECT_EQ(automation.tries.front(), L"Photoshop.Application.130");
  EXPECT_EQ(automation.tries.size(), 1u);
  Ostrel_UnInit();
}

}  // namespace
}  // namespace ostrel
