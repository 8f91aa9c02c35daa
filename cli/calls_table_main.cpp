// ostrel_calls_table SCENARIO.json...: the number of automation calls that every export talking to Photoshop
// makes, run once with its sample arguments (each in-parameter's empty value) against the simulated Photoshop of
// each scenario, as a Markdown table. `./dev calls-table` writes it into the README.
#include <filesystem>
#include <iostream>
#include <set>
#include <string>
#include <vector>

#include "calls.h"
#include "counting_automation.h"
#include "frame/export_bodies.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "simulator/photoshop.h"

namespace {

using ostrel::cli::CallEntry;

const std::set<std::string>& PhotoshopExports() {
  static const std::set<std::string> names = {
#define OSTREL_EXPORT(family, R, name, parameters, body, onFailure)
#define OSTREL_PS_EXPORT(family, R, name, parameters, body, onFailure, unconnected) #name,
#include "frame/exports.def"
#undef OSTREL_EXPORT
#undef OSTREL_PS_EXPORT
  };
  return names;
}

// The calls of one run of the export after Ostrel_Init, or "-" where the scenario has no Photoshop to connect to.
std::string CountCalls(const CallEntry& entry, const std::filesystem::path& scenario) {
  ostrel::sim::SimulatedPhotoshop photoshop = ostrel::sim::SimulatedPhotoshop::FromFile(scenario);
  ostrel::cli::CountingAutomation counter(photoshop);
  const ostrel::ScopedPlatform platform(ostrel::Platform{.automation = &counter});
  if (Ostrel_Init() != 1) return "-";
  counter.ResetCalls();
  ostrel::cli::Json answer;
  std::string error;
  const bool ran = entry.invoke(entry.sampleArgs, answer, error);
  const int64_t calls = counter.Calls();
  Ostrel_UnInit();
  return ran ? std::to_string(calls) : "?";
}

std::string SampleArguments(const CallEntry& entry) {
  std::string text;
  for (const ostrel::cli::CallArg& arg : entry.sampleArgs) {
    text += (text.empty() ? "" : " ") + ostrel::cli::RenderJson(arg.value);
  }
  return text.empty() ? "" : "`" + text + "`";
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::filesystem::path> scenarios(argv + 1, argv + argc);
  if (scenarios.empty()) {
    std::cerr << "usage: ostrel_calls_table SCENARIO.json...\n";
    return 2;
  }
  ostrel::DefaultParameters().Set(ostrel::EnTallyKey::kLogDirectory,
                                  ostrel::CurrentPlatform().files->TempDirectory() + L"ostrel/");
  std::string header = "| export | arguments |", rule = "|---|---|";
  for (const auto& scenario : scenarios) {
    header += " `" + scenario.filename().string() + "` |";
    rule += "---:|";
  }
  std::cout << header << '\n' << rule << '\n';
  try {
    for (const CallEntry& entry : ostrel::cli::AllCalls()) {
      if (!PhotoshopExports().count(entry.name)) continue;
      std::string row = "| `" + entry.name + "` | " + SampleArguments(entry) + " |";
      for (const auto& scenario : scenarios) row += " " + CountCalls(entry, scenario) + " |";
      std::cout << row << '\n';
    }
  } catch (const std::exception& error) {
    std::cerr << "ostrel_calls_table: " << error.what() << '\n';
    return 2;
  }
  return 0;
}
