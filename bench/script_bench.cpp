// How fast a lesson player's step goes through the dispatcher, and the pieces it is made of.
#include <benchmark/benchmark.h>

#include "ostrel/OstrelCore.h"
#include "platform/text.h"

namespace {

void BM_ParseScriptLine(benchmark::State& state) {
  Ostrel_Init();
  const std::wstring line = L"TOOL,72";
  tagVantoScript script;
  for (auto _ : state) {
    benchmark::DoNotOptimize(Ostrel_ParseScript(line, script));
  }
}
BENCHMARK(BM_ParseScriptLine);

void BM_ToolNameENToIndexLastRow(benchmark::State& state) {
  Ostrel_Init();
  const std::wstring name = L"editToolbar";
  for (auto _ : state) benchmark::DoNotOptimize(Ostrel_ToolNameENToIndex(name));
}
BENCHMARK(BM_ToolNameENToIndexLastRow);

void BM_SplitLine(benchmark::State& state) {
  const std::wstring line = L"LAYER,12,007,some layer name,4,5";
  std::vector<std::wstring> items;
  for (auto _ : state) {
    Ostrel_ParseItem(line, items);
    benchmark::DoNotOptimize(items.data());
  }
}
BENCHMARK(BM_SplitLine);

void BM_FormatSentence(benchmark::State& state) {
  const std::wstring name = L"对象选择工具";
  for (auto _ : state) benchmark::DoNotOptimize(ostrel::Format(L"选择工具：%s", name));
}
BENCHMARK(BM_FormatSentence);

}  // namespace
