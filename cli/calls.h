// The table of callable exports behind `ostrel call`: one entry per exported function (two for an overload),
// each knowing its signature and how to run the function on JSON arguments.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "call_args.h"
#include "json.h"

namespace ostrel::cli {

struct CallEntry {
  std::string name;
  std::string signature;
  // Runs the export on the arguments; on success renders the answer object, else says what was wrong.
  std::function<bool(const std::vector<Json>& args, std::string& answer, std::string& error)> invoke;
  // Arguments that fit the signature: each in-parameter's empty value (0, "", []), for callers that want to
  // run every export once.
  std::vector<Json> sampleArgs;
};

// A non-const reference parameter is an out-parameter: not read from the command line, printed afterwards.
template <class P>
inline constexpr bool kIsOutParam = std::is_lvalue_reference_v<P> && !std::is_const_v<std::remove_reference_t<P>>;

template <class P>
using ParamValue = std::remove_cvref_t<P>;

template <class R, class... P>
std::string DescribeCall(const std::string& name, const std::vector<std::string>& paramNames) {
  std::string text = name + "(";
  const char* types[] = {ArgTraits<ParamValue<P>>::kName..., ""};
  const bool outs[] = {kIsOutParam<P>..., false};
  for (size_t i = 0; i < sizeof...(P); ++i) {
    if (i) text += ", ";
    text += outs[i] ? "out " : "";
    text += (i < paramNames.size() ? paramNames[i] : "arg" + std::to_string(i)) + ": " + types[i];
  }
  text += ") -> ";
  if constexpr (std::is_void_v<R>) {
    text += "void";
  } else {
    text += ArgTraits<std::remove_cvref_t<R>>::kName;
  }
  return text;
}

// Binds an export: the in-parameters come from args in order, out-parameters start empty and are printed under
// their names after the result.
template <class R, class... P>
CallEntry MakeCall(std::string name, R (*function)(P...), std::vector<std::string> paramNames) {
  CallEntry entry;
  entry.name = name;
  entry.signature = DescribeCall<R, P...>(name, paramNames);
  (
      [&] {
        if constexpr (!kIsOutParam<P>) {
          entry.sampleArgs.push_back(*ParseJson(ArgTraits<ParamValue<P>>::ToJson(ParamValue<P>{})));
        }
      }(),
      ...);
  entry.invoke = [function, paramNames](const std::vector<Json>& args, std::string& answer, std::string& error) {
    constexpr size_t kInCount = (size_t{0} + ... + (kIsOutParam<P> ? 0 : 1));
    if (args.size() != kInCount) {
      error = "expects " + std::to_string(kInCount) + " argument(s), got " + std::to_string(args.size());
      return false;
    }
    std::tuple<ParamValue<P>...> values{};
    size_t next = 0;
    bool ok = true;
    [&]<size_t... I>(std::index_sequence<I...>) {
      [[maybe_unused]] auto take = [&](auto& value, bool isOut, size_t index) {
        if (!ok || isOut) return;
        std::string why;
        if (!ArgTraits<std::remove_cvref_t<decltype(value)>>::FromJson(args[next++], value, why)) {
          ok = false;
          error = "argument " + std::to_string(index + 1) + " (" +
                  (index < paramNames.size() ? paramNames[index] : std::string("?")) + ") " + why;
        }
      };
      (take(std::get<I>(values), kIsOutParam<P>, I), ...);
    }(std::index_sequence_for<P...>{});
    if (!ok) return false;

    JsonObject object;
    auto call = [&](auto&... v) { return function(v...); };
    if constexpr (std::is_void_v<R>) {
      std::apply(call, values);
      object.Add("result", "null");
    } else {
      object.Add("result", ArgTraits<std::remove_cvref_t<R>>::ToJson(std::apply(call, values)));
    }
    [&]<size_t... I>(std::index_sequence<I...>) {
      [[maybe_unused]] auto show = [&](const auto& value, bool isOut, size_t index) {
        if (!isOut) return;
        object.Add(index < paramNames.size() ? paramNames[index] : "arg" + std::to_string(index),
                   ArgTraits<std::remove_cvref_t<decltype(value)>>::ToJson(value));
      };
      (show(std::get<I>(values), kIsOutParam<P>, I), ...);
    }(std::index_sequence_for<P...>{});
    answer = object.Render();
    return true;
  };
  return entry;
}

// OSTREL_CALL(Ostrel_Name, "param", ...) binds an export by its own name; parameter names as the interface
// documents them. OSTREL_CALL_AS picks one overload by its function type.
#define OSTREL_CALL(function, ...) ::ostrel::cli::MakeCall(#function, &function, {__VA_ARGS__})
#define OSTREL_CALL_AS(function, type, ...) \
  ::ostrel::cli::MakeCall(#function, static_cast<type>(&function), {__VA_ARGS__})

// The parameter names of a parameter list as the export table writes it: "(std::wstring line, int& n)" gives
// {"line", "n"}.
std::vector<std::string> ParameterNames(std::string_view parameters);

// Every callable export, in the order of the export table (cli/export_calls.cpp).
const std::vector<CallEntry>& AllCalls();

// Runs the export called name with the given arguments (command line words: JSON where they parse as JSON,
// plain strings otherwise). Overloads are tried in order. Returns 0 and sets answer, or non-zero and sets error.
int RunCall(const std::string& name, const std::vector<std::string>& words, std::string& answer, std::string& error);

// Turns one command line word into a JSON value: the word itself if it parses as JSON, else a string.
Json ArgumentFromWord(const std::string& word);

}  // namespace ostrel::cli
