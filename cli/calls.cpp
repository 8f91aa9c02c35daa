// The list of export families and the running of one call by name.
#include "calls.h"

namespace ostrel::cli {

using CallFamily = const std::vector<CallEntry>& (*)();

// Every family of exports; a new family adds its line here.
constexpr CallFamily kFamilies[] = {
    LifecycleCalls,
    ScriptCalls,
    ToolCalls,
    MenuCalls,
    LayerCalls,
    FilterCalls,
    SwatchCalls,
    PresetCalls,
    ToolOptionCalls,
};

const std::vector<CallEntry>& AllCalls() {
  static const std::vector<CallEntry> all = [] {
    std::vector<CallEntry> list;
    for (CallFamily family : kFamilies) {
      const std::vector<CallEntry>& entries = family();
      list.insert(list.end(), entries.begin(), entries.end());
    }
    return list;
  }();
  return all;
}

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
