// Exports against the simulated Photoshop: what one question costs in the library itself, and (counter "calls")
// how many automation calls it makes, each a round trip to a real Photoshop. The documents are
// examples/photoshop/nested_groups.json and a generated one of 200 layers with 20 groups.
#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "generated_documents.h"
#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "simulator/photoshop.h"
#include "simulator/scenario.h"

namespace {

std::filesystem::path ExamplesDir() { return std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop"; }

const ostrel::sim::Scenario& Nested() {
  static const ostrel::sim::Scenario scenario = ostrel::sim::LoadScenarioFile(ExamplesDir() / "nested_groups.json");
  return scenario;
}

const ostrel::sim::Scenario& TwoHundred() {
  static const ostrel::sim::Scenario scenario = ostrel::sim::ParseScenario(
      ostrel::test::GeneratedDocument({.layers = 200, .groups = 20, .background = true, .seed = 7, .randomSelection = false}),
      ExamplesDir(), "generated.json");
  return scenario;
}

// Runs ask against a connected Photoshop of the scenario; "calls" is the automation calls of one question.
void RunExport(benchmark::State& state, const ostrel::sim::Scenario& scenario, const std::function<void()>& ask) {
  ostrel::sim::SimulatedPhotoshop photoshop(scenario);
  const ostrel::ScopedPlatform platform(ostrel::Platform{.automation = &photoshop});
  if (Ostrel_Init() != 1) {
    state.SkipWithError("no connection to the simulated Photoshop");
    return;
  }
  photoshop.ResetCalls();
  ask();
  const auto calls = photoshop.Calls() - photoshop.Calls("Create");
  for (auto _ : state) ask();
  state.counters["calls"] = static_cast<double>(calls);
  Ostrel_UnInit();
}

#define OSTREL_EXPORT_BENCH(name, scenario, ...)                                                   \
  void BM_##name(benchmark::State& state) {                                                       \
    RunExport(state, scenario(), [] { __VA_ARGS__; });                                            \
  }                                                                                               \
  BENCHMARK(BM_##name)->Unit(benchmark::kMicrosecond);

OSTREL_EXPORT_BENCH(IsServiceIdle, Nested, benchmark::DoNotOptimize(Ostrel_IsServiceIdle()))
OSTREL_EXPORT_BENCH(GetToolFeatures51, Nested, std::wstring v; benchmark::DoNotOptimize(Ostrel_GetToolFeatures(EnToolFeatures{51}, v)))
OSTREL_EXPORT_BENCH(GetLayerID_Nested, Nested, std::vector<tagLayerInfo> l; benchmark::DoNotOptimize(Ostrel_GetLayerID(l)))
OSTREL_EXPORT_BENCH(GetLayerInfo_Nested, Nested, std::vector<tagLayerInfo> l; benchmark::DoNotOptimize(Ostrel_GetLayerInfo(l)))
OSTREL_EXPORT_BENCH(GetLayerGroup_Nested, Nested, benchmark::DoNotOptimize(Ostrel_GetLayerGroup(4)))
OSTREL_EXPORT_BENCH(LayerNameToIndex_Nested, Nested, benchmark::DoNotOptimize(Ostrel_LayerNameToIndex(L"内组")))
OSTREL_EXPORT_BENCH(GetLayerStyle_Nested, Nested, std::vector<tagLayerStyleInfo> s; benchmark::DoNotOptimize(Ostrel_GetLayerStyle(6, s)))
OSTREL_EXPORT_BENCH(GetLayerID_200, TwoHundred, std::vector<tagLayerInfo> l; benchmark::DoNotOptimize(Ostrel_GetLayerID(l)))
OSTREL_EXPORT_BENCH(GetLayerGroup_200, TwoHundred, benchmark::DoNotOptimize(Ostrel_GetLayerGroup(9)))
OSTREL_EXPORT_BENCH(LayerIndexOffset_200, TwoHundred, benchmark::DoNotOptimize(Ostrel_LayerIndexOffset(9, 1)))
OSTREL_EXPORT_BENCH(GetTopLayerIndex_200, TwoHundred, benchmark::DoNotOptimize(Ostrel_GetTopLayerIndex()))

}  // namespace
