// The running of one export by name, on arguments from the command line.
#include "calls.h"

#include <algorithm>
#include <cmath>

namespace ostrel::cli {

CallArg ArgumentFromWord(const std::string& word) {
  std::optional<Json> parsed = ParseJson(word);
  return CallArg{parsed ? std::move(*parsed) : Json(word), word};
}

CallArg ArgumentFromJson(Json value) {
  std::string typed = value.is_string() ? value.get<std::string>() : RenderJson(value);
  return CallArg{std::move(value), std::move(typed)};
}

std::optional<long long> WholeNumber(const Json& value) {
  constexpr long long kExactLimit = 9007199254740992LL;  // 2^53
  if (value.is_number_unsigned()) {
    const auto number = value.get<unsigned long long>();
    if (number > static_cast<unsigned long long>(kExactLimit)) return std::nullopt;
    return static_cast<long long>(number);
  }
  if (value.is_number_integer()) {
    const auto number = value.get<long long>();
    if (number < -kExactLimit || number > kExactLimit) return std::nullopt;
    return number;
  }
  if (value.is_number_float()) {
    const double number = value.get<double>();
    if (!std::isfinite(number) || std::floor(number) != number || std::fabs(number) > 9007199254740992.0)
      return std::nullopt;
    return static_cast<long long>(number);
  }
  return std::nullopt;
}

namespace {

// "a, b" of a parameter list.
std::string JoinNames(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ",") + name;
  return text;
}

}  // namespace

std::vector<const CallEntry*> OverloadsOf(const std::string& name) {
  std::vector<const CallEntry*> overloads;
  const size_t open = name.find('(');
  if (open != std::string::npos) {
    if (name.back() != ')') return overloads;
    std::string wanted = name.substr(open + 1, name.size() - open - 2);
    wanted.erase(std::remove(wanted.begin(), wanted.end(), ' '), wanted.end());
    for (const CallEntry& entry : AllCalls()) {
      if (entry.name == name.substr(0, open) && JoinNames(entry.paramNames) == wanted) overloads.push_back(&entry);
    }
    return overloads;
  }
  for (const CallEntry& entry : AllCalls()) {
    if (entry.name == name) overloads.push_back(&entry);
  }
  std::stable_sort(overloads.begin(), overloads.end(), [](const CallEntry* a, const CallEntry* b) {
    return a->paramNames.size() < b->paramNames.size();
  });
  return overloads;
}

std::string ListLine(const CallEntry& entry) {
  for (const CallEntry* other : OverloadsOf(entry.name)) {
    if (other == &entry) break;
    if (other->inCount == entry.inCount) {
      return entry.signature + "    (call it as '" + entry.name + "(" + JoinNames(entry.paramNames) + ")')";
    }
  }
  return entry.signature;
}

int RunCall(const std::string& name, const std::vector<std::string>& words, Json& answer, std::string& error) {
  std::vector<CallArg> args;
  args.reserve(words.size());
  for (const std::string& word : words) args.push_back(ArgumentFromWord(word));

  std::string reasons;
  bool known = false;
  for (const CallEntry* overload : OverloadsOf(name)) {
    const CallEntry& entry = *overload;
    known = true;
    std::string why;
    if (entry.invoke(args, answer, why)) return 0;
    reasons += "\n  " + entry.signature + ": " + why;
  }
  error = known ? "wrong arguments for " + name + ":" + reasons
                : "unknown function: " + name + " (ostrel call --list shows every callable export)";
  return 1;
}

int RunCall(const std::string& name, const std::vector<std::string>& words, std::string& answer,
            std::string& error) {
  Json object;
  const int status = RunCall(name, words, object, error);
  if (status == 0) answer = RenderJson(object);
  return status;
}

}  // namespace ostrel::cli
