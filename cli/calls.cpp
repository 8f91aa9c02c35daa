// The running of one export by name, on arguments from the command line.
#include "calls.h"

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

int RunCall(const std::string& name, const std::vector<std::string>& words, Json& answer, std::string& error) {
  std::vector<CallArg> args;
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

int RunCall(const std::string& name, const std::vector<std::string>& words, std::string& answer,
            std::string& error) {
  Json object;
  const int status = RunCall(name, words, object, error);
  if (status == 0) answer = RenderJson(object);
  return status;
}

}  // namespace ostrel::cli
