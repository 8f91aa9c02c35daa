// How `ostrel call` turns JSON arguments into the parameters of an export, and results back into JSON.
// Each parameter type has an ArgTraits specialisation: kName for the signature, FromJson for a parameter taken
// from the command line, ToJson for the result and for out-parameters (non-const references).
#pragma once

#include <string>
#include <type_traits>
#include <vector>

#include "json.h"
#include "ostrel/menus.h"
#include "ostrel/script.h"
#include "platform/text.h"

namespace ostrel::cli {

template <class T, class Enable = void>
struct ArgTraits;

template <>
struct ArgTraits<int> {
  static constexpr const char* kName = "int";
  static bool FromJson(const Json& json, int& out, std::string& error) {
    if (!json.IsInteger() || json.number < -2147483648.0 || json.number > 2147483647.0) {
      error = "expects a whole number, got " + (json.text.empty() ? std::string("a non-number") : json.text);
      return false;
    }
    out = static_cast<int>(json.number);
    return true;
  }
  static std::string ToJson(int value) { return std::to_string(value); }
};

// An unsigned 32-bit id: a negative number is taken as its two's complement, as a caller passing -1 gets.
template <>
struct ArgTraits<unsigned int> {
  static constexpr const char* kName = "uint";
  static bool FromJson(const Json& json, unsigned int& out, std::string& error) {
    if (!json.IsInteger() || json.number < -2147483648.0 || json.number > 4294967295.0) {
      error = "expects a whole number from -2147483648 to 4294967295, got " +
              (json.text.empty() ? std::string("a non-number") : json.text);
      return false;
    }
    out = static_cast<unsigned int>(static_cast<long long>(json.number));
    return true;
  }
  static std::string ToJson(unsigned int value) { return std::to_string(value); }
};

// The exported enumerations travel as their numbers.
template <class E>
struct ArgTraits<E, std::enable_if_t<std::is_enum_v<E>>> {
  static constexpr const char* kName = "int";
  static bool FromJson(const Json& json, E& out, std::string& error) {
    int value = 0;
    if (!ArgTraits<int>::FromJson(json, value, error)) return false;
    out = static_cast<E>(value);
    return true;
  }
  static std::string ToJson(E value) { return std::to_string(static_cast<long long>(value)); }
};

template <>
struct ArgTraits<double> {
  static constexpr const char* kName = "double";
  static bool FromJson(const Json& json, double& out, std::string& error) {
    if (json.kind != Json::Kind::kNumber) {
      error = "expects a number";
      return false;
    }
    out = json.number;
    return true;
  }
  static std::string ToJson(double value) { return ToUtf8(Format(L"%.17g", value)); }
};

template <>
struct ArgTraits<bool> {
  static constexpr const char* kName = "bool";
  static bool FromJson(const Json& json, bool& out, std::string& error) {
    if (json.kind == Json::Kind::kBool) {
      out = json.boolean;
      return true;
    }
    if (json.IsInteger()) {
      out = json.number != 0;
      return true;
    }
    error = "expects true or false";
    return false;
  }
  static std::string ToJson(bool value) { return value ? "true" : "false"; }
};

// A text parameter takes a JSON string; a number is taken as the text it was typed as.
template <>
struct ArgTraits<std::wstring> {
  static constexpr const char* kName = "string";
  static bool FromJson(const Json& json, std::wstring& out, std::string& error) {
    if (json.kind != Json::Kind::kString && json.kind != Json::Kind::kNumber) {
      error = "expects a string";
      return false;
    }
    out = FromUtf8(json.text);
    return true;
  }
  static std::string ToJson(const std::wstring& value) { return JsonQuote(ToUtf8(value)); }
};

template <class T>
struct ArgTraits<std::vector<T>> {
  static inline const std::string kNameText = std::string(ArgTraits<T>::kName) + "[]";
  static inline const char* kName = kNameText.c_str();
  static bool FromJson(const Json& json, std::vector<T>& out, std::string& error) {
    if (json.kind != Json::Kind::kArray) {
      error = "expects an array";
      return false;
    }
    out.clear();
    for (const Json& item : json.items) {
      T value{};
      if (!ArgTraits<T>::FromJson(item, value, error)) return false;
      out.push_back(std::move(value));
    }
    return true;
  }
  static std::string ToJson(const std::vector<T>& values) {
    std::vector<std::string> rendered;
    rendered.reserve(values.size());
    for (const T& value : values) rendered.push_back(ArgTraits<T>::ToJson(value));
    return JsonArray(rendered);
  }
};

template <>
struct ArgTraits<tagVantoScript> {
  static constexpr const char* kName = "tagVantoScript";
  static bool FromJson(const Json&, tagVantoScript&, std::string& error) {
    error = "a record is an out-parameter";
    return false;
  }
  static std::string ToJson(const tagVantoScript& script) {
    return JsonObject()
        .Add("strTitle", JsonQuote(ToUtf8(script.strTitle)))
        .Add("strDetail", JsonQuote(ToUtf8(script.strDetail)))
        .Render();
  }
};

// A top menu row is an out-parameter: filled by the call, printed field by field.
template <>
struct ArgTraits<tagTopMenuInfo> {
  static constexpr const char* kName = "tagTopMenuInfo";
  static bool FromJson(const Json&, tagTopMenuInfo&, std::string& error) {
    error = "a record is an out-parameter";
    return false;
  }
  static std::string ToJson(const tagTopMenuInfo& info) {
    return JsonObject()
        .Add("nIndex", std::to_string(static_cast<int>(info.nIndex)))
        .Add("strMenu1", JsonQuote(ToUtf8(info.strMenu1)))
        .Add("strMenu2", JsonQuote(ToUtf8(info.strMenu2)))
        .Add("strMenu3", JsonQuote(ToUtf8(info.strMenu3)))
        .Render();
  }
};

}  // namespace ostrel::cli
