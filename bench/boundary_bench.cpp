// What the export boundary costs: an export that needs Photoshop, asked unconnected (the connection's lock and the
// test of the application object), and the same asked from two threads at once, as a player's timer and UI
// thread do.
#include <benchmark/benchmark.h>

#include "ostrel/OstrelCore.h"

namespace {

void BM_IsServiceIdleUnconnected(benchmark::State& state) {
  if (state.thread_index() == 0) Ostrel_UnInit();
  for (auto _ : state) benchmark::DoNotOptimize(Ostrel_IsServiceIdle());
}
BENCHMARK(BM_IsServiceIdleUnconnected)->Threads(1)->Threads(2);

void BM_ToolLookupFromTwoThreads(benchmark::State& state) {
  if (state.thread_index() == 0) Ostrel_Init();
  for (auto _ : state) benchmark::DoNotOptimize(Ostrel_ToolIndexToNameCN(EnToolIndex{72}));
}
BENCHMARK(BM_ToolLookupFromTwoThreads)->Threads(1)->Threads(2);

}  // namespace
