// The list of export families and the running of one call by name.
#include "calls.h"

namespace ostrel::cli {

Json ArgumentFromWord(const std::string& word) {
  if (std::optional<Json> parsed = ParseJson(word)) return *parsed;
  Json text;
  text.kind = Json::Kind::kString;
  text.text = word;
  return text;
}

int RunCall(const std::string& name, const std::vector<std::string>& words, std::string& answer,
            std::string& error) {
  std::vector<Json> args;
  args.reserve(words.size());
  for (const std::string& word : words) args.push_back(ArgumentFromWord(word));

  std::string reasons;
  bool known = false;
  for (const CallEntry& entry : AllCalls()) {
    if (entry.name != name) continue;
    known = true;
    std::string why;
    if (entry.invoke(args, answer, why)) return 0;
    reasons += "\n  " + entry.signature + ": " + why;
  }
  error = known ? "wrong arguments for " + name + ":" + reasons
                : "unknown function: " + name + " (ostrel call --list shows every callable export)";
  return 1;
}

}  // namespace ostrel::cli
