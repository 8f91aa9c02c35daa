// Scenario files: the state of a simulated Photoshop written as JSON, with every descriptor in Photoshop's own JSON
// notation (see simulator/README.md). A mistake gives a ScenarioError that names the file and the place: line and
// column for a JSON syntax error, the JSON pointer of the value for anything else.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

#include "simulator/state.h"
#include "simulator/type_ids.h"

namespace ostrel::sim {

class ScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A loaded scenario: the state and the type ids that its descriptors were read with.
struct Scenario {
  State state;
  TypeIds ids;
};

// Reads a scenario file; descriptor files that it names are found beside it.
Scenario LoadScenarioFile(const std::filesystem::path& file);
// Reads a scenario from text; sourceName names it in errors, baseDir is where named descriptor files are found.
Scenario ParseScenario(std::string_view json, const std::filesystem::path& baseDir,
                       const std::string& sourceName = "scenario");

}  // namespace ostrel::sim
