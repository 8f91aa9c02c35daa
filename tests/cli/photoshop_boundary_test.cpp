// Every export that talks to Photoshop, proved at the boundary: with the n-th automation call failing, once or from
// then on, for every n the export makes, it throws nothing, leaves no simulated object alive, and gives either its
// row's failure default or what it gives without the failure (a failed call that didn't matter, such as the
// creation of the descriptor that only holds an answer). The rows come from the export table.
#include <gtest/gtest.h>

#include <string>

#include "calls.h"
#include "ostrel/OstrelCore.h"
#include "photoshop_rows.h"
#include "platform/platform.h"
#include "simulator/photoshop.h"

namespace ostrel::cli {
namespace {

std::filesystem::path Scenario(const char* name) {
  return std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop" / name;
}

// The export's printed result against a fresh Photoshop of the scenario, with the n-th call failing (0: none).
struct FaultedRun {
  std::string result;
  bool fired = false;
  int live = 0;
};

FaultedRun RunOnce(const CallEntry& entry, const char* scenario, int64_t n, sim::FaultMode mode) {
  sim::SimulatedPhotoshop photoshop = sim::SimulatedPhotoshop::FromFile(Scenario(scenario));
  ScopedPlatform platform(Platform{.automation = &photoshop});
  FaultedRun run;
  if (Ostrel_Init() != 1) {
    ADD_FAILURE() << "no connection to " << scenario;
    return run;
  }
  if (n > 0) photoshop.FailCall(n, mode);
  Json answer;
  std::string error;
  EXPECT_TRUE(entry.invoke(entry.sampleArgs, answer, error)) << error;
  run.result = RenderJson(answer["result"]);
  run.fired = photoshop.FaultFired();
  Ostrel_UnInit();
  run.live = photoshop.LiveObjects();
  return run;
}

class PhotoshopBoundaryTest : public ::testing::TestWithParam<const char*> {};

TEST_P(PhotoshopBoundaryTest, AFailureAtEveryCallGivesTheDefaultAndLeavesNothingAlive) {
  const char* scenario = GetParam();
  for (const CallEntry& entry : AllCalls()) {
    const auto failure = FailureDefaults().find(entry.name);
    if (failure == FailureDefaults().end()) continue;
    const std::string clean = RunOnce(entry, scenario, 0, sim::FaultMode::kTransient).result;
    for (const sim::FaultMode mode : {sim::FaultMode::kTransient, sim::FaultMode::kPersistent}) {
      for (int64_t n = 1;; ++n) {
        SCOPED_TRACE(testing::Message() << entry.signature << ", call " << n
                                        << (mode == sim::FaultMode::kTransient ? " once" : " on"));
        const FaultedRun run = RunOnce(entry, scenario, n, mode);
        EXPECT_EQ(run.live, 0);
        if (!run.fired) break;
        if (run.result != failure->second) {
          EXPECT_EQ(run.result, clean);
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Scenarios, PhotoshopBoundaryTest,
                         ::testing::Values("layers_and_group.json", "only_130.json", "menus_zh.json"),
                         [](const auto& info) {
                           std::string name = info.param;
                           return name.substr(0, name.find('.')) == "layers_and_group" ? std::string("LayersAndGroup")
                                  : name.rfind("only", 0) == 0                         ? std::string("NoDocument")
                                                                                        : std::string("ChineseMenus");
                         });

}  // namespace
}  // namespace ostrel::cli
