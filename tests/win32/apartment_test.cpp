// The connection from threads in each kind of COM apartment. The simulated Photoshop is served from the test's
// main thread, in the multithreaded apartment, so that a caller in a single-threaded apartment reaches it the way
// it reaches the real Photoshop: from outside its own apartment, through proxies. Each scenario runs on a thread
// of its own and reports what it saw; the checks run on the main thread.
#include <gtest/gtest.h>

#include <objbase.h>

#include <optional>
#include <thread>

#include "com_bridge.h"
#include "frame/guard.h"
#include "ostrel/lifecycle.h"
#include "photoshop/action_manager.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/win32/com_automation.h"
#include "platform/win32/holders.h"
#include "simulator/photoshop.h"

namespace ostrel {
namespace {

// The kind of apartment the calling thread is in, or "none".
enum class Apartment { kNone, kSingleThreaded, kMultithreaded, kOther };

Apartment CurrentApartment() {
  APTTYPE type{};
  APTTYPEQUALIFIER qualifier{};
  if (FAILED(CoGetApartmentType(&type, &qualifier))) return Apartment::kNone;
  if (type == APTTYPE_STA || type == APTTYPE_MAINSTA) return Apartment::kSingleThreaded;
  // A thread that never initialized COM in a process with a multithreaded apartment is in it only implicitly.
  if (type == APTTYPE_MTA && qualifier == APTTYPEQUALIFIER_IMPLICIT_MTA) return Apartment::kNone;
  if (type == APTTYPE_MTA) return Apartment::kMultithreaded;
  return Apartment::kOther;
}

// A kind of caller thread: the apartment it enters before it calls the library (none when empty) and what it must
// see while connected and after Ostrel_UnInit.
struct CallerCase {
  const char* name;
  std::optional<DWORD> concurrency;
  Apartment connected;    // the thread's apartment once Ostrel_Init has returned
  Apartment afterUnInit;  // Ostrel_UnInit lets go of Photoshop and leaves COM as it is
  bool throughProxies;    // calls reach the server from another apartment
};

constexpr CallerCase kCallerCases[] = {
    {"SingleThreadedApartment", COINIT_APARTMENTTHREADED, Apartment::kSingleThreaded, Apartment::kSingleThreaded, true},
    {"NoApartment", std::nullopt, Apartment::kMultithreaded, Apartment::kMultithreaded, false},
    {"MultithreadedApartment", COINIT_MULTITHREADED, Apartment::kMultithreaded, Apartment::kMultithreaded, false},
};

void PrintTo(const CallerCase& c, std::ostream* os) { *os << c.name; }

// What one caller thread saw.
struct CallerReport {
  Apartment before = Apartment::kOther;  // after the thread's own initialization, before the library
  int init = -1;
  Apartment connected = Apartment::kOther;
  int idle = -1;
  std::wstring layerName;  // a read whose reference crosses as an IDispatch argument
  bool throughProxies = false;
  Apartment afterUnInit = Apartment::kOther;
};

// Runs a caller on a thread of its own: it enters the apartment given (none when empty), then connects, reads
// and lets go.
CallerReport RunCaller(std::optional<DWORD> concurrency) {
  CallerReport report;
  std::thread caller([&] {
    std::optional<win32::ComInit> com;
    if (concurrency) com.emplace(*concurrency);
    report.before = CurrentApartment();
    report.init = Ostrel_Init();
    report.connected = CurrentApartment();
    report.idle = Ostrel_IsServiceIdle();
    if (IsConnected()) {
      report.layerName = Guarded(std::wstring(L"failed"),
                                 [] { return am::GetString(am::ReadLayerById(4, L"name"), am::StringId(L"name")); });
    }
    report.throughProxies = testing::ComBridge::LastServingThread() != GetCurrentThreadId();
    Ostrel_UnInit();
    report.afterUnInit = CurrentApartment();
  });
  caller.join();
  return report;
}

class ApartmentTest : public ::testing::TestWithParam<CallerCase> {
 protected:
  void SetUp() override { m_parameters.Set(EnTallyKey::kPhotoshopVersionName, L"Adobe Photoshop CC 2019"); }

  win32::ComInit m_serverApartment{COINIT_MULTITHREADED};
  ProcessParameters m_parameters;
  ScopedPlatform m_platform{Platform{.parameters = &m_parameters}};  // automation stays real COM
  sim::SimulatedPhotoshop m_photoshop = sim::SimulatedPhotoshop::FromFile(
      std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop" / "layers_and_group.json");
  testing::ComBridge m_bridge{m_photoshop, testing::kProgIds130};
};

TEST_P(ApartmentTest, ConnectsInTheCallersApartmentAndLeavesItAsItWas) {
  const CallerCase& c = GetParam();
  const CallerReport report = RunCaller(c.concurrency);
  EXPECT_EQ(report.before, c.concurrency ? c.connected : Apartment::kNone);
  EXPECT_EQ(report.init, 1);
  EXPECT_EQ(report.connected, c.connected);
  EXPECT_EQ(report.idle, 1);
  EXPECT_EQ(report.layerName, L"Shadow");
  EXPECT_EQ(report.throughProxies, c.throughProxies);
  EXPECT_EQ(report.afterUnInit, c.afterUnInit);
  EXPECT_EQ(m_photoshop.LiveObjects(), 0);  // every proxy let go of its object
}

INSTANTIATE_TEST_SUITE_P(Callers, ApartmentTest, ::testing::ValuesIn(kCallerCases),
                         [](const ::testing::TestParamInfo<CallerCase>& info) { return info.param.name; });

// What the connecting step's initialization answers in each kind of thread, and that it moves no thread out of
// the apartment it is in.
struct InitializeCase {
  const char* name;
  std::optional<DWORD> concurrency;
  HRESULT first, second;  // two initializations in a row
  Apartment after;
};

constexpr InitializeCase kInitializeCases[] = {
    {"SingleThreadedApartment", COINIT_APARTMENTTHREADED, RPC_E_CHANGED_MODE, RPC_E_CHANGED_MODE,
     Apartment::kSingleThreaded},
    {"NoApartment", std::nullopt, S_OK, S_FALSE, Apartment::kMultithreaded},
    {"MultithreadedApartment", COINIT_MULTITHREADED, S_FALSE, S_FALSE, Apartment::kMultithreaded},
};

void PrintTo(const InitializeCase& c, std::ostream* os) { *os << c.name; }

class InitializeTest : public ::testing::TestWithParam<InitializeCase> {};

TEST_P(InitializeTest, AnswersAndKeepsTheApartment) {
  const InitializeCase& c = GetParam();
  HRESULT first = E_FAIL, second = E_FAIL;
  Apartment after = Apartment::kOther;
  std::thread([&] {
    std::optional<win32::ComInit> com;
    if (c.concurrency) com.emplace(*c.concurrency);
    win32::ComAutomation automation;
    first = automation.Initialize();
    second = automation.Initialize();
    after = CurrentApartment();
  }).join();
  EXPECT_EQ(first, c.first);
  EXPECT_EQ(second, c.second);
  EXPECT_EQ(after, c.after);
}

INSTANTIATE_TEST_SUITE_P(Threads, InitializeTest, ::testing::ValuesIn(kInitializeCases),
                         [](const ::testing::TestParamInfo<InitializeCase>& info) { return info.param.name; });

}  // namespace
}  // namespace ostrel
