// How fast a lesson player's step goes through the dispatcher, and the pieces it is made of. BM_SplitLine and
// BM_ParseLine run over the same lines, every line of the example lessons (a mix of the keywords that lessons
// use), so that their ratio is the cost of everything after the split.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "ostrel/OstrelCore.h"
#include "platform/text.h"

namespace {

// Every line of examples/lessons/*.lesson, in file name order.
const std::vector<std::wstring>& LessonLines() {
  static const std::vector<std::wstring> lines = [] {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "lessons")) {
      if (entry.path().extension() == ".lesson") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    std::vector<std::wstring> all;
    for (const auto& file : files) {
      std::ifstream in(file, std::ios::binary);
      for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        all.push_back(ostrel::FromUtf8(line));
      }
    }
    return all;
  }();
  return lines;
}

void BM_SplitLine(benchmark::State& state) {
  const std::vector<std::wstring>& lines = LessonLines();
  std::vector<std::wstring> items;
  size_t next = 0;
  for (auto _ : state) {
    Ostrel_ParseItem(lines[next], items);
    benchmark::DoNotOptimize(items.data());
    if (++next == lines.size()) next = 0;
  }
  state.SetLabel(std::to_string(lines.size()) + " lesson lines");
}
BENCHMARK(BM_SplitLine);

void BM_ParseLine(benchmark::State& state) {
  Ostrel_Init();
  const std::vector<std::wstring>& lines = LessonLines();
  tagVantoScript script;
  size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(Ostrel_ParseScript(lines[next], script));
    if (++next == lines.size()) next = 0;
  }
  state.SetLabel(std::to_string(lines.size()) + " lesson lines");
}
BENCHMARK(BM_ParseLine);

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

void BM_FormatSentence(benchmark::State& state) {
  const std::wstring name = L"对象选择工具";
  for (auto _ : state) benchmark::DoNotOptimize(ostrel::Format(L"选择工具：%s", name));
}
BENCHMARK(BM_FormatSentence);

}  // namespace
