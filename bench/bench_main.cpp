// ostrel_bench [--markdown] [Google Benchmark options]: runs the benchmarks; with --markdown it prints their
// figures as a Markdown table (what `./dev bench` keeps in the README), followed by the cost of a parse past the
// split of its line, BM_ParseLine over BM_SplitLine, measured in the same run.
#include <benchmark/benchmark.h>

#include <cstring>
#include <iomanip>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

class MarkdownReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override {
    std::cout << "| benchmark | time | CPU | iterations | automation calls | note |\n|---|---:|---:|---:|---:|---|\n";
    return true;
  }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.error_occurred) {
        std::cout << "| `" << run.benchmark_name() << "` | | | | | failed: " << run.error_message << " |\n";
        continue;
      }
      const auto calls = run.counters.find("calls");
      std::cout << "| `" << run.benchmark_name() << "` | " << Time(run.GetAdjustedRealTime(), run.time_unit) << " | "
                << Time(run.GetAdjustedCPUTime(), run.time_unit) << " | " << run.iterations << " | "
                << (calls != run.counters.end() ? std::to_string(static_cast<long long>(calls->second.value)) : "")
                << " | " << run.report_label << " |\n";
      m_cpuNs[run.benchmark_name()] = run.GetAdjustedCPUTime() * Nanoseconds(run.time_unit);
    }
  }
  void Finalize() override {
    const auto split = m_cpuNs.find("BM_SplitLine"), parse = m_cpuNs.find("BM_ParseLine");
    if (split != m_cpuNs.end() && parse != m_cpuNs.end() && split->second > 0) {
      std::cout << "\nBM_ParseLine / BM_SplitLine (CPU): " << std::fixed << std::setprecision(2)
                << parse->second / split->second << '\n';
    }
  }

 private:
  static double Nanoseconds(benchmark::TimeUnit unit) {
    switch (unit) {
      case benchmark::kNanosecond: return 1;
      case benchmark::kMicrosecond: return 1e3;
      case benchmark::kMillisecond: return 1e6;
      case benchmark::kSecond: return 1e9;
    }
    return 1;
  }
  static std::string Time(double value, benchmark::TimeUnit unit) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(value < 10 ? 2 : value < 100 ? 1 : 0) << value << ' '
         << benchmark::GetTimeUnitString(unit);
    return text.str();
  }
  std::map<std::string, double> m_cpuNs;
};

}  // namespace

int main(int argc, char** argv) {
  bool markdown = false;
  std::vector<char*> args;
  for (int i = 0; i < argc; ++i) {
    if (std::strcmp(argv[i], "--markdown") == 0) {
      markdown = true;
    } else {
      args.push_back(argv[i]);
    }
  }
  int count = static_cast<int>(args.size());
  benchmark::Initialize(&count, args.data());
  if (benchmark::ReportUnrecognizedArguments(count, args.data())) return 1;
  if (markdown) {
    MarkdownReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
  } else {
    benchmark::RunSpecifiedBenchmarks();
  }
  benchmark::Shutdown();
  return 0;
}
