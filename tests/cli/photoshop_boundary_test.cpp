// Every export that talks to Photoshop, proved at the boundary: with the n-th automation call failing, once or from
// then on, for every n the export makes (spread over the calls of a long export), it throws nothing, leaves no
// simulated object alive, and gives either its row's failure default or what it gives without the failure (a
// failed call that didn't matter, such as the creation of the descriptor that only holds an answer), unless an
// export it asked turned the failure into that export's default and it went on from there. The rows come from the
// export table: one named case per row and scenario (Sweep/PhotoshopBoundaryTest.AFailure.../
// LayersAndGroup_Ostrel_GetLayerInfo), with the failing call and its mode in the trace, and a test that the cases
// are exactly the table's Photoshop rows.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "../support/example_scenarios.h"
#include "calls.h"
#include "frame/guard.h"
#include "ostrel/OstrelCore.h"
#include "photoshop_rows.h"
#include "platform/platform.h"
#include "simulator/photoshop.h"

namespace ostrel::cli {
namespace {

// The export's printed result against a fresh Photoshop of the scenario, with the n-th call failing (0: none).
struct FaultedRun {
  std::string result;
  bool fired = false;
  bool innerDefault = false;  // an export asked by this one turned the failure into its own default
  int live = 0;
  int64_t calls = 0;
};

FaultedRun RunOnce(const CallEntry& entry, const char* scenario, int64_t n, sim::FaultMode mode) {
  sim::SimulatedPhotoshop photoshop(test::ExampleScenario(scenario));
  ScopedPlatform platform(Platform{.automation = &photoshop});
  FaultedRun run;
  if (Ostrel_Init() != 1) {
    ADD_FAILURE() << "no connection to " << scenario;
    return run;
  }
  if (n > 0) photoshop.FailCall(n, mode);
  const long long absorbedBefore = InnerFailuresAbsorbed();
  Json answer;
  std::string error;
  EXPECT_TRUE(entry.invoke(entry.sampleArgs, answer, error)) << error;
  run.result = RenderJson(answer["result"]);
  run.fired = photoshop.FaultFired();
  run.innerDefault = InnerFailuresAbsorbed() != absorbedBefore;
  run.calls = photoshop.Calls();
  Ostrel_UnInit();
  run.live = photoshop.LiveObjects();
  return run;
}

// The calls to fail, one after the other: every call of an export that makes up to kEveryCallUpTo calls; of a
// longer one (the layer list reads every key of every layer) the first and last kEnds calls and kSpread calls
// evenly between them, unless OSTREL_FULL_SWEEP is set in the environment. Past the clean run's count, every
// call, until a run makes no call that the failure can hit.
constexpr int64_t kEveryCallUpTo = 200, kEnds = 64, kSpread = 64;

int64_t NextCallToFail(int64_t n, int64_t cleanCalls) {
  static const bool full = std::getenv("OSTREL_FULL_SWEEP") != nullptr;
  if (full || cleanCalls <= kEveryCallUpTo || n < kEnds || n >= cleanCalls - kEnds) return n + 1;
  const int64_t stride = std::max<int64_t>(1, (cleanCalls - 2 * kEnds) / kSpread);
  return std::min(n + stride, cleanCalls - kEnds);
}

// One case of the sweep: an export row of the table (an overload is a row of its own) on one scenario.
struct SweepCase {
  size_t entry;          // its place in AllCalls()
  const char* scenario;  // the scenario file
  std::string name;      // the case's name: the scenario's and the export's
};

struct ScenarioOfSweep {
  const char* file;
  const char* name;
};
constexpr ScenarioOfSweep kSweepScenarios[] = {
    {"layers_and_group.json", "LayersAndGroup"}, {"only_130.json", "NoDocument"}, {"menus_zh.json", "ChineseMenus"}};

// Every Photoshop row of the export table on every scenario: the rows are those that have a failure default.
std::vector<SweepCase> SweepCases() {
  std::vector<SweepCase> cases;
  const std::vector<CallEntry>& calls = AllCalls();
  for (const ScenarioOfSweep& scenario : kSweepScenarios) {
    std::map<std::string, int> overloads;
    for (size_t i = 0; i < calls.size(); ++i) {
      if (!calls[i].talksToPhotoshop || !FailureDefaults().contains(calls[i].name)) continue;
      const int overload = ++overloads[calls[i].name];
      std::string name = std::string(scenario.name) + "_" + calls[i].name;
      if (overload > 1) name += "_" + std::to_string(overload);
      cases.push_back({i, scenario.file, std::move(name)});
    }
  }
  return cases;
}

class PhotoshopBoundaryTest : public ::testing::TestWithParam<SweepCase> {};

TEST_P(PhotoshopBoundaryTest, AFailureAtEveryCallGivesTheDefaultAndLeavesNothingAlive) {
  const CallEntry& entry = AllCalls()[GetParam().entry];
  const char* scenario = GetParam().scenario;
  const std::string& failure = FailureDefaults().at(entry.name);
  const FaultedRun cleanRun = RunOnce(entry, scenario, 0, sim::FaultMode::kTransient);
  const std::string& clean = cleanRun.result;
  for (const sim::FaultMode mode : {sim::FaultMode::kTransient, sim::FaultMode::kPersistent}) {
    for (int64_t n = 1;; n = NextCallToFail(n, cleanRun.calls)) {
      SCOPED_TRACE(testing::Message() << entry.signature << ", "
                                      << (mode == sim::FaultMode::kTransient ? "transient" : "persistent")
                                      << " failure of call " << n << " of " << cleanRun.calls);
      const FaultedRun run = RunOnce(entry, scenario, n, mode);
      EXPECT_EQ(run.live, 0);
      if (!run.fired) break;
      // An export that went on with an inner export's default may answer anything that default leads to
      // (a layer read at the place a failed background test left unchanged); it must still not crash or leak.
      if (run.result != failure && !run.innerDefault) {
        EXPECT_EQ(run.result, clean);
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sweep, PhotoshopBoundaryTest, ::testing::ValuesIn(SweepCases()),
                         [](const auto& info) { return info.param.name; });

// The names of the export table's Photoshop rows, read from the table's text: one per row, overloads repeated.
std::multiset<std::string> PhotoshopRowsOfTheTable() {
  std::ifstream table(std::filesystem::path(OSTREL_SOURCE_DIR) / "src" / "frame" / "exports.def");
  std::multiset<std::string> names;
  const std::string row = "OSTREL_PS_EXPORT(";
  for (std::string line; std::getline(table, line);) {
    if (line.rfind(row, 0) != 0) continue;
    // OSTREL_PS_EXPORT(family, result, name, ...): the name is the third field. A result type holds no comma.
    size_t start = row.size();
    for (int field = 0; field < 2; ++field) start = line.find(',', start) + 1;
    const size_t end = line.find(',', start);
    std::string name = line.substr(start, end - start);
    name.erase(0, name.find_first_not_of(' '));
    names.insert(name);
  }
  return names;
}

TEST(PhotoshopBoundarySweep, HasOneCasePerPhotoshopRowOfTheExportTableOnEveryScenario) {
  const std::multiset<std::string> rows = PhotoshopRowsOfTheTable();
  ASSERT_FALSE(rows.empty());
  for (const ScenarioOfSweep& scenario : kSweepScenarios) {
    SCOPED_TRACE(scenario.name);
    std::multiset<std::string> swept;
    for (const SweepCase& sweepCase : SweepCases()) {
      if (sweepCase.scenario == scenario.file) swept.insert(AllCalls()[sweepCase.entry].name);
    }
    EXPECT_EQ(swept, rows);
  }
}

}  // namespace
}  // namespace ostrel::cli
