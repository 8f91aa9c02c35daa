// Running exports by name.
#include "export_runs.h"

#include <vector>

namespace ostrel::roundtrip {

const cli::CallEntry* FindExport(const std::string& name) {
  const std::vector<const cli::CallEntry*> overloads = cli::OverloadsOf(name);
  return overloads.empty() ? nullptr : overloads.front();
}

ExportRun RunExport(const cli::CallEntry& entry, cli::CountingAutomation& counter) {
  ExportRun run;
  counter.ResetCalls();
  cli::Json answer;
  std::string error;
  run.ran = entry.invoke(entry.sampleArgs, answer, error);
  run.calls = counter.Calls();
  run.answer = run.ran ? cli::RenderJson(answer) : error;
  return run;
}

}  // namespace ostrel::roundtrip
