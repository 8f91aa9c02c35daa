// The table of callable exports behind `ostrel call`: one entry per exported function (two for an overload),
// each knowing its signature and how to run the function on command line arguments.
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
  std::vector<std::string> paramNames;  // every parameter's name, out-parameters included
  size_t inCount = 0;                   // the number of arguments it takes
  // Runs the export on the arguments; on success sets answer to the object of "result" and the out-parameters,
  // else says what was wrong.
  std::function<bool(const std::vector<CallArg>& args, Json& answer, std::string& error)> invoke;
  // Arguments that fit the signature: each in-parameter's empty value (0, "", []), for callers that want to
  // run every export once.
  std::vector<CallArg> sampleArgs;
  bool talksToPhotoshop = false;  // an OSTREL_PS_EXPORT row: unconnected it answers without a call
};

// A non-const reference parameter is an out-parameter: not read from the command line, printed afterwards.
template <class P>
inline constexpr bool kIsOutParam = std::is_lvalue_reference_v<P> && !std::is_const_v<std::remove_reference_t<P>>;

template <class P>
using ParamValue = std::remove_cvref_t<P>;

// What holds a parameter during the call: the parameter's own type, or the Storage its ArgTraits names.
template <class T>
concept HasArgStorage = requires { typename ArgTraits<T>::Storage; };

template <class T>
struct ArgStorageOf {
  using Type = T;
};
template <HasArgStorage T>
struct ArgStorageOf<T> {
  using Type = typename ArgTraits<T>::Storage;
};

template <class P>
using ParamStorage = typename ArgStorageOf<ParamValue<P>>::Type;

// The parameter as the function takes it, from what holds it.
template <class P>
decltype(auto) PassParam(ParamStorage<P>& stored) {
  if constexpr (HasArgStorage<ParamValue<P>>) {
    return ArgTraits<ParamValue<P>>::Pass(stored);
  } else {
    return (stored);
  }
}

// The sample argument of an in-parameter: its type's empty value.
template <class P>
Json SampleParam() {
  if constexpr (HasArgStorage<ParamValue<P>>) {
    return ArgTraits<ParamValue<P>>::Sample();
  } else {
    return ArgTraits<ParamValue<P>>::ToJson(ParamValue<P>{});
  }
}

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

// Reads the in-parameters of values from args in order (out-parameters keep their empty value). False, with
// error naming the parameter, when an argument doesn't fit.
template <class... P>
bool TakeArguments(std::tuple<ParamStorage<P>...>& values, const std::vector<CallArg>& args,
                   const std::vector<std::string>& paramNames, std::string& error) {
  size_t next = 0;
  bool ok = true;
  [&]<size_t... I>(std::index_sequence<I...>) {
    [[maybe_unused]] auto take = [&]<class Param>(ParamStorage<Param>& value, size_t index) {
      if (!ok || kIsOutParam<Param>) return;
      std::string why;
      if (!ArgTraits<ParamValue<Param>>::FromArg(args[next++], value, why)) {
        ok = false;
        error = "argument " + std::to_string(index + 1) + " (" +
                (index < paramNames.size() ? paramNames[index] : std::string("?")) + ") " + why;
      }
    };
    (take.template operator()<P>(std::get<I>(values), I), ...);
  }(std::index_sequence_for<P...>{});
  return ok;
}

// Binds an export: the in-parameters come from args in order, out-parameters start empty and are printed under
// their names after the result.
template <class R, class... P>
CallEntry MakeCall(std::string name, R (*function)(P...), std::vector<std::string> paramNames) {
  CallEntry entry;
  entry.name = name;
  entry.signature = DescribeCall<R, P...>(name, paramNames);
  entry.paramNames = paramNames;
  entry.inCount = (size_t{0} + ... + (kIsOutParam<P> ? 0 : 1));
  (
      [&] {
        if constexpr (!kIsOutParam<P>) entry.sampleArgs.push_back(ArgumentFromJson(SampleParam<P>()));
      }(),
      ...);
  entry.invoke = [function, paramNames](const std::vector<CallArg>& args, Json& answer, std::string& error) {
    constexpr size_t kInCount = (size_t{0} + ... + (kIsOutParam<P> ? 0 : 1));
    if (args.size() != kInCount) {
      error = "expects " + std::to_string(kInCount) + " argument(s), got " + std::to_string(args.size());
      return false;
    }
    std::tuple<ParamStorage<P>...> values{};
    if (!TakeArguments<P...>(values, args, paramNames, error)) return false;

    answer = Json::object();
    auto call = [&](auto&... stored) { return function(PassParam<P>(stored)...); };
    if constexpr (std::is_void_v<R>) {
      std::apply(call, values);
      answer["result"] = nullptr;
    } else {
      answer["result"] = ArgTraits<std::remove_cvref_t<R>>::ToJson(std::apply(call, values));
    }
    [&]<size_t... I>(std::index_sequence<I...>) {
      [[maybe_unused]] auto show = [&]<class Param>(const ParamStorage<Param>& value, size_t index) {
        if constexpr (kIsOutParam<Param>) {
          answer[index < paramNames.size() ? paramNames[index] : "arg" + std::to_string(index)] =
              ArgTraits<ParamValue<Param>>::ToJson(value);
        }
      };
      (show.template operator()<P>(std::get<I>(values), I), ...);
    }(std::index_sequence_for<P...>{});
    return true;
  };
  return entry;
}

// The parameter names of a parameter list as the export table writes it: "(std::wstring line, int& n)" gives
// {"line", "n"}.
std::vector<std::string> ParameterNames(std::string_view parameters);

// Every callable export, in the order of the export table (cli/export_calls.cpp).
const std::vector<CallEntry>& AllCalls();

// The overloads of name in the order they are tried: fewer parameters (out-parameters counted) first, else in
// the order of the export table. name may also be written with its parameter names, "Ostrel_GetFontName(font)"
// or "Ostrel_GetFontName()", which picks the one overload whose parameters have those names.
std::vector<const CallEntry*> OverloadsOf(const std::string& name);

// How --list shows an entry: its signature, and for an overload that the arguments alone can't pick (one of the
// same name with as many arguments is tried first), the name to call it by.
std::string ListLine(const CallEntry& entry);

// Runs the export called name with the given arguments (command line words: JSON where they parse as JSON,
// plain strings otherwise). Overloads are tried in the order of OverloadsOf. Returns 0 and sets answer, or
// non-zero and sets error.
int RunCall(const std::string& name, const std::vector<std::string>& words, Json& answer, std::string& error);

// The same with the answer rendered on one line.
int RunCall(const std::string& name, const std::vector<std::string>& words, std::string& answer, std::string& error);

}  // namespace ostrel::cli
