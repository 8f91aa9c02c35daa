// The example scenarios of examples/photoshop/, each read once per test program: a test that connects many times
// starts every simulated Photoshop from a copy instead of reading and parsing the files again.
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "simulator/scenario.h"

namespace ostrel::test {

inline std::filesystem::path ExamplesDir() {
  return std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop";
}

inline const sim::Scenario& ExampleScenario(const std::string& file) {
  static std::map<std::string, sim::Scenario> loaded;
  auto found = loaded.find(file);
  if (found == loaded.end()) found = loaded.emplace(file, sim::LoadScenarioFile(ExamplesDir() / file)).first;
  return found->second;
}

}  // namespace ostrel::test
