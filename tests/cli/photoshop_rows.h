// The answers that the export table gives each export that talks to Photoshop, as `ostrel call` prints them: what
// it gives unconnected and what a failure gives. Both may use the export's parameters (a list reader empties its
// vector), so they are computed on parameters of their empty values.
#pragma once

#include <map>
#include <string>

namespace ostrel::cli {

// By export name; an overloaded name has one entry.
const std::map<std::string, std::string>& UnconnectedAnswers();
const std::map<std::string, std::string>& FailureDefaults();

}  // namespace ostrel::cli
