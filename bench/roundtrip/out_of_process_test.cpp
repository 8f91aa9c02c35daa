// The simulated Photoshop served from a second process, as the real one is: the layer reads (and with
// OSTREL_FULL_SWEEP=1 every export that talks to Photoshop) give the same answer with the same automation calls
// across processes as against the simulated Photoshop in this process, and the server process starts, stops and
// ends itself as it promises. No timing is checked here; `./dev roundtrip` measures.
#include <gtest/gtest.h>
#include <objbase.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

#include "export_runs.h"
#include "local_server.h"
#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/win32/com_automation.h"
#include "platform/win32/holders.h"
#include "simulator/photoshop.h"

namespace ostrel::roundtrip {
namespace {

// Messages of the server are ASCII.
std::string Narrow(const std::wstring& text) {
  return std::string(text.begin(), text.end());
}

std::filesystem::path ExampleScenario(const char* name) {
  return std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop" / name;
}

// The layer reads that the measurement times, run first, while the document is as the scenario opens it.
const char* const kLayerReads[] = {"Ostrel_GetLayerInfo",  "Ostrel_GetLayerID",    "Ostrel_GetToolFeatures",
                                   "Ostrel_GetLayerGroup", "Ostrel_GetLayerStyle", "Ostrel_GetSelectLayerID"};

// The layer reads; with OSTREL_FULL_SWEEP=1 then every Photoshop export (overloads apart) once in the order of the
// export table, by name (some of those command Photoshop, one closes the document, so each side runs them in the
// same order). Each call across processes is a round trip through Wine's RPC, so the whole table takes a while.
std::map<std::string, ExportRun> RunPhotoshopExports(cli::CountingAutomation& counter) {
  std::map<std::string, ExportRun> runs;
  for (const char* name : kLayerReads) runs[std::string("first ") + name] = RunExport(*FindExport(name), counter);
  const char* full = std::getenv("OSTREL_FULL_SWEEP");
  if (!full || std::string(full) != "1") return runs;
  for (const cli::CallEntry& entry : cli::AllCalls()) {
    if (!entry.talksToPhotoshop || runs.count(entry.name)) continue;
    runs[entry.name] = RunExport(*FindExport(entry.name), counter);
  }
  return runs;
}

class OutOfProcessTest : public ::testing::Test {
 protected:
  void SetUp() override { m_parameters.Set(EnTallyKey::kPhotoshopVersionName, L"Adobe Photoshop CC 2019"); }
  void TearDown() override { Ostrel_UnInit(); }

  win32::ComInit m_com{COINIT_MULTITHREADED};
  ProcessParameters m_parameters;
};

struct ApartmentCase {
  const char* name;
  ServerApartment apartment;
};

constexpr ApartmentCase kApartments[] = {
    {"SingleThreadedServer", ServerApartment::kSingleThreaded},
    {"MultithreadedServer", ServerApartment::kMultithreaded},
};

class OutOfProcessAnswersTest : public OutOfProcessTest, public ::testing::WithParamInterface<ApartmentCase> {};

TEST_P(OutOfProcessAnswersTest, PhotoshopExportsAnswerAsInThisProcess) {
  const std::filesystem::path scenario = ExampleScenario("layers_and_group.json");
  std::map<std::string, ExportRun> here;
  {
    sim::SimulatedPhotoshop photoshop = sim::SimulatedPhotoshop::FromFile(scenario);
    cli::CountingAutomation counter(photoshop);
    const ScopedPlatform platform(Platform{.automation = &counter, .parameters = &m_parameters});
    ASSERT_EQ(Ostrel_Init(), 1);
    here = RunPhotoshopExports(counter);
    Ostrel_UnInit();
  }
  std::map<std::string, ExportRun> there;
  {
    std::wstring error;
    std::optional<LocalServer> server =
        LocalServer::Start(ServerBesideThisProgram(), scenario, GetParam().apartment, 60, error);
    ASSERT_TRUE(server) << Narrow(error);
    win32::ComAutomation com;
    cli::CountingAutomation counter(com);
    const ScopedPlatform platform(Platform{.automation = &counter, .parameters = &m_parameters});
    ASSERT_EQ(Ostrel_Init(), 1);
    there = RunPhotoshopExports(counter);
    Ostrel_UnInit();
    // The server finds every object it served released by the client.
    const DWORD exit = server->Stop();
    EXPECT_EQ(exit, kServerClean) << Narrow(DescribeServerExit(exit));
  }
  ASSERT_EQ(there.size(), here.size());
  for (const auto& [name, run] : here) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(run.ran) << run.answer;
    EXPECT_EQ(there[name].answer, run.answer);
    EXPECT_EQ(there[name].calls, run.calls);
  }
  // The layer list really came across: not two identical failures.
  EXPECT_NE(there["first Ostrel_GetLayerInfo"].answer.find("\"Shadow\""), std::string::npos);
  EXPECT_GT(there["first Ostrel_GetLayerInfo"].calls, 100);
}

INSTANTIATE_TEST_SUITE_P(Apartments, OutOfProcessAnswersTest, ::testing::ValuesIn(kApartments),
                         [](const auto& info) { return std::string(info.param.name); });

// How the server process ends when nobody stops it, and when it can't serve.
struct LifetimeCase {
  const char* name;
  const char* scenario;
  bool holdAnObject;  // the client creates an application object and keeps it while stopping the server
  bool stop;          // the client stops the server (else it waits for the server's deadline)
  DWORD deadlineSeconds;
  bool starts;  // Start answers with a running server
  DWORD exit;
};

constexpr LifetimeCase kLifetimes[] = {
    {"StoppedByItsClient", "only_130.json", false, true, 60, true, kServerClean},
    {"StoppedWhileAnObjectIsHeld", "only_130.json", true, true, 60, true, kServerObjectsAlive},
    {"EndsAtItsDeadline", "only_130.json", false, false, 1, true, kServerDeadline},
    {"MissingScenario", "no_such_scenario.json", false, true, 60, false, kServerNoScenario},
};

class ServerLifetimeTest : public OutOfProcessTest, public ::testing::WithParamInterface<LifetimeCase> {};

TEST_P(ServerLifetimeTest, EndsAsItSays) {
  const LifetimeCase& c = GetParam();
  std::wstring error;
  std::optional<LocalServer> server = LocalServer::Start(ServerBesideThisProgram(), ExampleScenario(c.scenario),
                                                         ServerApartment::kSingleThreaded, c.deadlineSeconds, error);
  ASSERT_EQ(server.has_value(), c.starts) << Narrow(error);
  if (!server) {
    EXPECT_NE(error.find(DescribeServerExit(c.exit)), std::wstring::npos) << Narrow(error);
    return;
  }
  win32::ComAutomation com;
  DispatchPtr held;
  if (c.holdAnObject) held = com.Create(L"Photoshop.Application.130");
  const DWORD exit = c.stop ? server->Stop() : server->WaitForExit(30000);
  EXPECT_EQ(exit, c.exit) << Narrow(DescribeServerExit(exit));
}

// A server whose client's process ends stops serving: another server process stands in for the client here.
TEST_F(OutOfProcessTest, EndsWhenItsClientsProcessEnds) {
  std::wstring error;
  std::optional<LocalServer> client = LocalServer::Start(ServerBesideThisProgram(), ExampleScenario("only_130.json"),
                                                         ServerApartment::kMultithreaded, 60, error);
  ASSERT_TRUE(client) << Narrow(error);
  std::optional<LocalServer> server =
      LocalServer::Start(ServerBesideThisProgram(), ExampleScenario("only_130.json"), ServerApartment::kSingleThreaded,
                         60, error, 20000, client->ProcessId());
  ASSERT_TRUE(server) << Narrow(error);
  EXPECT_EQ(client->Stop(), kServerClean);
  const DWORD exit = server->WaitForExit(30000);
  EXPECT_EQ(exit, kServerClientGone) << Narrow(DescribeServerExit(exit));
}

INSTANTIATE_TEST_SUITE_P(Lifetimes, ServerLifetimeTest, ::testing::ValuesIn(kLifetimes),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace ostrel::roundtrip
