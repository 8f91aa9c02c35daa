// Exports run by name with the sample arguments of the README's calls table (each in-parameter's empty value),
// their answers printed as `ostrel call` prints them and their automation calls counted as `--count-calls`
// counts them.
#pragma once

#include <cstdint>
#include <string>

#include "calls.h"
#include "counting_automation.h"

namespace ostrel::roundtrip {

struct ExportRun {
  bool ran = false;    // the sample arguments fit (they always should)
  std::string answer;  // the JSON object of "result" and the out-parameters
  int64_t calls = 0;   // automation calls during the run
};

// The entry of an export that `ostrel call NAME` runs (its first overload); null for an unknown name.
const cli::CallEntry* FindExport(const std::string& name);

// Runs the export once on the library's current connection, counting the calls of counter's objects.
ExportRun RunExport(const cli::CallEntry& entry, cli::CountingAutomation& counter);

}  // namespace ostrel::roundtrip
