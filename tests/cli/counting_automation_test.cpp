// Counting automation calls: the decorator counts every call on every object, nested ones included, hands the
// inner runtime its own objects back, keeps nothing alive; `ostrel call --count-calls` counts the export's calls
// only.
#include "counting_automation.h"

#include <gtest/gtest.h>

#include "ostrel/lifecycle.h"
#include "photoshop/action_manager.h"
#include "platform/platform.h"
#include "run_in_process.h"
#include "simulator/photoshop.h"

namespace ostrel::cli {
namespace {

std::string Scenario(const char* name) { return std::string(OSTREL_EXAMPLES_DIR) + "/photoshop/" + name; }

// The simulator's own count of IAutomationObject::Invoke calls (it counts creations too).
int64_t InvokeCalls(const sim::SimulatedPhotoshop& photoshop) {
  return photoshop.Calls() - photoshop.Calls("Create");
}

// Reads that pass objects as arguments (a reference to executeActionGet) and walk objects that come back inside
// results (descriptors, collections, their items): the counter sees exactly the calls the simulator answered.
TEST(CountingAutomationTest, CountsNestedObjectsAndUnwrapsArguments) {
  sim::SimulatedPhotoshop photoshop = sim::SimulatedPhotoshop::FromFile(Scenario("layers_and_group.json"));
  ScopedPlatform simulated(Platform{.automation = &photoshop});
  CountingAutomation counter(photoshop);
  {
    ScopedPlatform counting(Platform{.automation = &counter});
    ASSERT_EQ(Ostrel_Init(), 1);
    EXPECT_EQ(counter.Calls(), InvokeCalls(photoshop));
    photoshop.ResetCalls();
    counter.ResetCalls();
    EXPECT_EQ(am::GetString(am::ReadLayerById(4, L"name"), am::StringId(L"name")), L"Shadow");
    std::vector<std::wstring> names;
    am::ForEachItem(am::Wrap(am::ActiveDocument().Get(dispid::obj::kArtLayers)), VarType::kI2,
                    [&](const COleDispatchDriver& layer, int32_t) {
                      names.push_back(layer.Get(dispid::obj::kName).AsBstr());
                    });
    EXPECT_FALSE(names.empty());
    EXPECT_GT(counter.Calls(), 5);
    EXPECT_EQ(counter.Calls(), InvokeCalls(photoshop));
    photoshop.FailMember("executeActionGet");  // a failed call is a round trip too, and the failure passes
    const int64_t before = counter.Calls();
    EXPECT_THROW(am::ReadLayerById(4, L"name"), AutomationError);
    EXPECT_GT(counter.Calls(), before);
    EXPECT_EQ(counter.Calls(), InvokeCalls(photoshop));
    Ostrel_UnInit();
  }
  EXPECT_EQ(photoshop.LiveObjects(), 0);
}

// The count printed by `ostrel call --count-calls` is the export's own: the same as the simulator counts for the
// export alone after Ostrel_Init, placed as the answer's last member.
TEST(CountingAutomationTest, CallCountsTheExportOnly) {
  int64_t expected = 0;
  {
    sim::SimulatedPhotoshop photoshop = sim::SimulatedPhotoshop::FromFile(Scenario("layers_and_group.json"));
    ScopedPlatform simulated(Platform{.automation = &photoshop});
    ASSERT_EQ(Ostrel_Init(), 1);
    photoshop.ResetCalls();
    ASSERT_EQ(Ostrel_IsServiceIdle(), 1);
    expected = InvokeCalls(photoshop);
    Ostrel_UnInit();
  }
  ASSERT_GT(expected, 0);
  ToolRun run = RunInProcess(
      {"--count-calls", "--photoshop", Scenario("layers_and_group.json"), "call", "Ostrel_IsServiceIdle"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "{\"result\": 1, \"automationCalls\": " + std::to_string(expected) + "}\n");
  run = RunInProcess({"call", "Ostrel_IsServiceIdle", "--count-calls"});  // no Photoshop: nothing to call
  EXPECT_EQ(run.out, "{\"result\": 0, \"automationCalls\": 0}\n");
  run = RunInProcess({"--photoshop", Scenario("layers_and_group.json"), "call", "Ostrel_IsServiceIdle"});
  EXPECT_EQ(run.out, "{\"result\": 1}\n");  // only when asked for
}

}  // namespace
}  // namespace ostrel::cli
