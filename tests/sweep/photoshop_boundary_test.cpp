// Every export that talks to Photoshop, proved at the boundary: with the n-th automation call failing, once or from
// then on, for every n the export makes (spread over the calls of a long export), it throws nothing, leaves no
// simulated object alive, and gives either its row's failure default or what it gives without the failure (a
// failed call that didn't matter, such as the creation of the descriptor that only holds an answer), unless an
// export it asked turned the failure into that export's default and it went on from there.
//
// Each iteration is a case of its own, named by the scenario, the export, the mode and the failing call
// (LayersAndGroup.Ostrel_GetLayerInfo.transient.17). The cases are registered at start-up from the export table:
// each export runs once cleanly on each scenario to learn how many calls it makes, which gives its iterations,
// from call 1 to the one past its last, where the failure must no longer fire. A test checks that the cases are
// exactly the table's Photoshop rows on every scenario.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "../cli/photoshop_rows.h"
#include "../support/example_scenarios.h"
#include "calls.h"
#include "frame/guard.h"
#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "simulator/photoshop.h"

namespace ostrel::cli {
namespace {

// The export's printed result against a fresh Photoshop of the scenario, with the n-th call failing (0: none).
struct FaultedRun {
  std::string result;
  bool connected = false;
  bool invoked = false;
  std::string error;  // why the call couldn't be made
  bool fired = false;
  bool innerDefault = false;  // an export asked by this one turned the failure into its own default
  int live = 0;
  int64_t calls = 0;  // the export's automation calls
};

FaultedRun RunOnce(const CallEntry& entry, const char* scenario, int64_t n, sim::FaultMode mode) {
  sim::SimulatedPhotoshop photoshop(test::ExampleScenario(scenario));
  ScopedPlatform platform(Platform{.automation = &photoshop});
  FaultedRun run;
  run.connected = Ostrel_Init() == 1;
  if (!run.connected) return run;
  if (n > 0) photoshop.FailCall(n, mode);  // counted from here: the export's own calls
  const int64_t callsBefore = photoshop.Calls();
  const long long absorbedBefore = InnerFailuresAbsorbed();
  Json answer;
  run.invoked = entry.invoke(entry.sampleArgs, answer, run.error);
  run.result = RenderJson(answer["result"]);
  run.fired = photoshop.FaultFired();
  run.innerDefault = InnerFailuresAbsorbed() != absorbedBefore;
  run.calls = photoshop.Calls() - callsBefore;
  Ostrel_UnInit();
  run.live = photoshop.LiveObjects();
  return run;
}

// The calls to fail, one after the other: every call of an export that makes up to kEveryCallUpTo calls; of a
// longer one (the layer list reads every key of every layer) the first and last kEnds calls and kSpread calls
// evenly between them, unless OSTREL_FULL_SWEEP is set in the environment. Then the call past the last, which
// the failure must not reach.
constexpr int64_t kEveryCallUpTo = 200, kEnds = 64, kSpread = 64;

int64_t NextCallToFail(int64_t n, int64_t cleanCalls) {
  static const bool full = std::getenv("OSTREL_FULL_SWEEP") != nullptr;
  if (full || cleanCalls <= kEveryCallUpTo || n < kEnds || n >= cleanCalls - kEnds) return n + 1;
  const int64_t stride = std::max<int64_t>(1, (cleanCalls - 2 * kEnds) / kSpread);
  return std::min(n + stride, cleanCalls - kEnds);
}

std::vector<int64_t> CallsToFail(int64_t cleanCalls) {
  std::vector<int64_t> calls;
  for (int64_t n = 1; n <= cleanCalls + 1; n = NextCallToFail(n, cleanCalls)) calls.push_back(n);
  return calls;
}

struct ScenarioOfSweep {
  const char* file;
  const char* name;
};
constexpr ScenarioOfSweep kSweepScenarios[] = {
    {"layers_and_group.json", "LayersAndGroup"}, {"only_130.json", "NoDocument"}, {"menus_zh.json", "ChineseMenus"}};

// One export row of the table (an overload is a row of its own) on one scenario, as its clean run found it.
struct SweptRow {
  size_t entry;          // its place in AllCalls()
  const char* scenario;  // the scenario file
  std::string name;      // the export's name, with the overload's number after the first
  FaultedRun clean;
};

// One iteration: a row with its n-th call failing in one mode.
class FailureAtCall : public ::testing::Test {
 public:
  FailureAtCall(const SweptRow* row, int64_t n, sim::FaultMode mode) : m_row(row), m_n(n), m_mode(mode) {}

  void TestBody() override {
    const CallEntry& entry = AllCalls()[m_row->entry];
    const FaultedRun& clean = m_row->clean;
    ASSERT_TRUE(clean.connected) << "no connection to " << m_row->scenario;
    ASSERT_TRUE(clean.invoked) << clean.error;
    SCOPED_TRACE(testing::Message() << entry.signature << ", " << ModeName(m_mode) << " failure of call " << m_n
                                    << " of " << clean.calls);
    const FaultedRun run = RunOnce(entry, m_row->scenario, m_n, m_mode);
    ASSERT_TRUE(run.connected);
    EXPECT_TRUE(run.invoked) << run.error;
    EXPECT_EQ(run.live, 0);
    // The run is the clean one up to the failing call: the failure fires exactly when the clean run reached it.
    EXPECT_EQ(run.fired, m_n <= clean.calls);
    // An export that went on with an inner export's default may answer anything that default leads to (a layer
    // read at the place a failed background test left unchanged); it must still not crash or leak.
    const std::string& failure = FailureDefaults().at(entry.name);
    if (run.result != failure && !run.innerDefault) {
      EXPECT_EQ(run.result, clean.result);
    }
  }

  static const char* ModeName(sim::FaultMode mode) {
    return mode == sim::FaultMode::kTransient ? "transient" : "persistent";
  }

 private:
  const SweptRow* m_row;
  int64_t m_n;
  sim::FaultMode m_mode;
};

// Every Photoshop row of the export table on every scenario: the rows are those that have a failure default.
// Kept for the life of the program, as the registered cases point into it.
const std::vector<SweptRow>& SweptRows() {
  static const std::vector<SweptRow> rows = [] {
    std::vector<SweptRow> found;
    const std::vector<CallEntry>& calls = AllCalls();
    for (const ScenarioOfSweep& scenario : kSweepScenarios) {
      std::map<std::string, int> overloads;
      for (size_t i = 0; i < calls.size(); ++i) {
        if (!calls[i].talksToPhotoshop || !FailureDefaults().contains(calls[i].name)) continue;
        const int overload = ++overloads[calls[i].name];
        std::string name = calls[i].name;
        if (overload > 1) name += "_" + std::to_string(overload);
        found.push_back({i, scenario.file, std::move(name), RunOnce(calls[i], scenario.file, 0,
                                                                    sim::FaultMode::kTransient)});
      }
    }
    return found;
  }();
  return rows;
}

// What was registered, by scenario name: the rows (export names) and each row's iterations by mode.
std::map<std::string, std::multiset<std::string>>& RegisteredRows() {
  static std::map<std::string, std::multiset<std::string>> rows;
  return rows;
}

void RegisterSweep() {
  for (const SweptRow& row : SweptRows()) {
    const std::string scenario = [&] {
      for (const ScenarioOfSweep& s : kSweepScenarios) {
        if (std::string_view(s.file) == row.scenario) return s.name;
      }
      return "";
    }();
    RegisteredRows()[scenario].insert(AllCalls()[row.entry].name);
    // A clean run that failed still gets one case, which reports why.
    const std::vector<int64_t> calls = row.clean.connected && row.clean.invoked ? CallsToFail(row.clean.calls)
                                                                                 : std::vector<int64_t>{1};
    for (const sim::FaultMode mode : {sim::FaultMode::kTransient, sim::FaultMode::kPersistent}) {
      for (const int64_t n : calls) {
        const std::string name = row.name + "." + FailureAtCall::ModeName(mode) + "." + std::to_string(n);
        ::testing::RegisterTest(scenario.c_str(), name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
                                [&row, n, mode]() -> ::testing::Test* { return new FailureAtCall(&row, n, mode); });
      }
    }
  }
}

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

TEST(PhotoshopBoundarySweep, HasCasesForEveryPhotoshopRowOfTheExportTableOnEveryScenario) {
  const std::multiset<std::string> rows = PhotoshopRowsOfTheTable();
  ASSERT_FALSE(rows.empty());
  for (const ScenarioOfSweep& scenario : kSweepScenarios) {
    SCOPED_TRACE(scenario.name);
    EXPECT_EQ(RegisteredRows()[scenario.name], rows);
  }
}

// Each row's iterations: from call 1 on, in both modes, ending with the call past the clean run's last.
TEST(PhotoshopBoundarySweep, EachRowFailsFromTheFirstCallToOnePastItsLast) {
  std::map<std::string, std::set<std::string>> names;  // by suite: the case names
  const ::testing::UnitTest& unit = *::testing::UnitTest::GetInstance();
  for (int i = 0; i < unit.total_test_suite_count(); ++i) {
    const ::testing::TestSuite& suite = *unit.GetTestSuite(i);
    for (int j = 0; j < suite.total_test_count(); ++j) names[suite.name()].insert(suite.GetTestInfo(j)->name());
  }
  for (const SweptRow& row : SweptRows()) {
    SCOPED_TRACE(row.name + " on " + row.scenario);
    ASSERT_TRUE(row.clean.connected && row.clean.invoked);
    const std::string suite = std::find_if(std::begin(kSweepScenarios), std::end(kSweepScenarios), [&](const auto& s) {
                                return std::string_view(s.file) == row.scenario;
                              })->name;
    for (const char* mode : {"transient", "persistent"}) {
      for (const int64_t n : {int64_t{1}, row.clean.calls, row.clean.calls + 1}) {
        if (n < 1) continue;
        EXPECT_TRUE(names[suite].contains(row.name + "." + mode + "." + std::to_string(n))) << mode << " " << n;
      }
      EXPECT_FALSE(names[suite].contains(row.name + "." + mode + "." + std::to_string(row.clean.calls + 2)));
    }
  }
}

}  // namespace
}  // namespace ostrel::cli

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  ostrel::cli::RegisterSweep();
  return RUN_ALL_TESTS();
}
