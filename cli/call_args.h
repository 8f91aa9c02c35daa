// How `ostrel call` turns command line arguments into the parameters of an export, and results back into JSON.
// Each parameter type has an ArgTraits specialisation: kName for the signature, FromArg for a parameter taken
// from the command line, ToJson for the result and for out-parameters (non-const references). A type whose
// parameter can't be held as its own value (a pointer to text) names a Storage type that holds it for the call
// and a Pass function that gives the parameter from it, and a Sample for callers that run every export once.
#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "json.h"
#include "ostrel/documents.h"
#include "ostrel/layer_state.h"
#include "ostrel/menus.h"
#include "ostrel/script.h"
#include "ostrel/tool_state.h"
#include "ostrel/window_locator.h"
#include "platform/text.h"

namespace ostrel::cli {

// One argument of `ostrel call`: the word parsed as JSON (a JSON string of the word when it isn't JSON), and the
// word as typed, so that a text parameter given 1.50 gets "1.50" and not the number's JSON form.
struct CallArg {
  Json value;
  std::string typed;
};

// The argument for one command line word.
CallArg ArgumentFromWord(const std::string& word);

// The argument for a JSON value that wasn't typed as a word of its own (an item of an array, a sample): its text
// is the string itself, or the value as JSON writes it.
CallArg ArgumentFromJson(Json value);

// A JSON number with no fraction, within the range where a double holds every whole number (1e2 counts, 2.5
// doesn't); nothing for anything else.
std::optional<long long> WholeNumber(const Json& value);

template <class T, class Enable = void>
struct ArgTraits;

template <>
struct ArgTraits<int> {
  static constexpr const char* kName = "int";
  static bool FromArg(const CallArg& arg, int& out, std::string& error) {
    const std::optional<long long> number = WholeNumber(arg.value);
    if (!number || *number < -2147483648LL || *number > 2147483647LL) {
      error = "expects a whole number, got " + arg.typed;
      return false;
    }
    out = static_cast<int>(*number);
    return true;
  }
  static Json ToJson(int value) { return value; }
};

// A long of the interface is Windows' 32-bit long: the same range as int on every system.
template <>
struct ArgTraits<long> {
  static constexpr const char* kName = "long";
  static bool FromArg(const CallArg& arg, long& out, std::string& error) {
    int value = 0;
    if (!ArgTraits<int>::FromArg(arg, value, error)) return false;
    out = value;
    return true;
  }
  static Json ToJson(long value) { return static_cast<long long>(value); }
};

// An unsigned 32-bit id: a negative number is taken as its two's complement, as a caller passing -1 gets.
template <>
struct ArgTraits<unsigned int> {
  static constexpr const char* kName = "uint";
  static bool FromArg(const CallArg& arg, unsigned int& out, std::string& error) {
    const std::optional<long long> number = WholeNumber(arg.value);
    if (!number || *number < -2147483648LL || *number > 4294967295LL) {
      error = "expects a whole number from -2147483648 to 4294967295, got " + arg.typed;
      return false;
    }
    out = static_cast<unsigned int>(*number);
    return true;
  }
  static Json ToJson(unsigned int value) { return value; }
};

// The exported enumerations travel as their numbers.
template <class E>
struct ArgTraits<E, std::enable_if_t<std::is_enum_v<E>>> {
  static constexpr const char* kName = "int";
  static bool FromArg(const CallArg& arg, E& out, std::string& error) {
    int value = 0;
    if (!ArgTraits<int>::FromArg(arg, value, error)) return false;
    out = static_cast<E>(value);
    return true;
  }
  static Json ToJson(E value) { return static_cast<long long>(value); }
};

template <>
struct ArgTraits<double> {
  static constexpr const char* kName = "double";
  static bool FromArg(const CallArg& arg, double& out, std::string& error) {
    if (!arg.value.is_number()) {
      error = "expects a number, got " + arg.typed;
      return false;
    }
    out = arg.value.get<double>();
    return true;
  }
  // The shortest text that reads back as the same double; JSON has no infinity or NaN, so those print as null.
  static Json ToJson(double value) { return std::isfinite(value) ? Json(value) : Json(nullptr); }
};

template <>
struct ArgTraits<bool> {
  static constexpr const char* kName = "bool";
  static bool FromArg(const CallArg& arg, bool& out, std::string& error) {
    if (arg.value.is_boolean()) {
      out = arg.value.get<bool>();
      return true;
    }
    if (const std::optional<long long> number = WholeNumber(arg.value)) {
      out = *number != 0;
      return true;
    }
    error = "expects true or false, got " + arg.typed;
    return false;
  }
  static Json ToJson(bool value) { return value; }
};

// A text parameter takes a JSON string; a number is taken as the text it was typed as.
template <>
struct ArgTraits<std::wstring> {
  static constexpr const char* kName = "string";
  static bool FromArg(const CallArg& arg, std::wstring& out, std::string& error) {
    if (arg.value.is_string()) {
      out = FromUtf8(arg.value.get_ref<const std::string&>());
      return true;
    }
    if (arg.value.is_number()) {
      out = FromUtf8(arg.typed);
      return true;
    }
    error = "expects a string, got " + arg.typed;
    return false;
  }
  static Json ToJson(const std::wstring& value) { return ToUtf8(value); }
};

// Text by pointer, as a C interface takes it: a JSON string (or a number, as typed) that lives for the call, or
// null for a null pointer. A result prints as a string, a null pointer as null.
template <>
struct ArgTraits<const wchar_t*> {
  static constexpr const char* kName = "string?";
  using Storage = std::optional<std::wstring>;
  static bool FromArg(const CallArg& arg, Storage& out, std::string& error) {
    if (arg.value.is_null()) {
      out.reset();
      return true;
    }
    std::wstring text;
    if (!ArgTraits<std::wstring>::FromArg(arg, text, error)) return false;
    out = std::move(text);
    return true;
  }
  static const wchar_t* Pass(Storage& stored) { return stored ? stored->c_str() : nullptr; }
  static Json Sample() { return ""; }
  static Json ToJson(const wchar_t* value) { return value ? Json(ToUtf8(value)) : Json(nullptr); }
};

template <class T>
struct ArgTraits<std::vector<T>> {
  static inline const std::string kNameText = std::string(ArgTraits<T>::kName) + "[]";
  static inline const char* kName = kNameText.c_str();
  static bool FromArg(const CallArg& arg, std::vector<T>& out, std::string& error) {
    if (!arg.value.is_array()) {
      error = "expects an array, got " + arg.typed;
      return false;
    }
    out.clear();
    for (const Json& item : arg.value) {
      T value{};
      if (!ArgTraits<T>::FromArg(ArgumentFromJson(item), value, error)) return false;
      out.push_back(std::move(value));
    }
    return true;
  }
  static Json ToJson(const std::vector<T>& values) {
    Json array = Json::array();
    for (const T& value : values) array.push_back(ArgTraits<T>::ToJson(value));
    return array;
  }
};

template <>
struct ArgTraits<tagVantoScript> {
  static constexpr const char* kName = "tagVantoScript";
  static bool FromArg(const CallArg&, tagVantoScript&, std::string& error) {
    error = "a record is an out-parameter";
    return false;
  }
  static Json ToJson(const tagVantoScript& script) {
    Json object = Json::object();
    object["strTitle"] = ToUtf8(script.strTitle);
    object["strDetail"] = ToUtf8(script.strDetail);
    return object;
  }
};

// A top menu row is an out-parameter: filled by the call, printed field by field.
template <>
struct ArgTraits<tagTopMenuInfo> {
  static constexpr const char* kName = "tagTopMenuInfo";
  static bool FromArg(const CallArg&, tagTopMenuInfo&, std::string& error) {
    error = "a record is an out-parameter";
    return false;
  }
  static Json ToJson(const tagTopMenuInfo& info) {
    Json object = Json::object();
    object["nIndex"] = static_cast<int>(info.nIndex);
    object["strMenu1"] = ToUtf8(info.strMenu1);
    object["strMenu2"] = ToUtf8(info.strMenu2);
    object["strMenu3"] = ToUtf8(info.strMenu3);
    return object;
  }
};

// The live menu tree's records are out-parameters, printed field by field.
template <>
struct ArgTraits<tagTopMenuSubItemName> {
  static constexpr const char* kName = "tagTopMenuSubItemName";
  static bool FromArg(const CallArg&, tagTopMenuSubItemName&, std::string& error) {
    error = "a record is an out-parameter";
    return false;
  }
  static Json ToJson(const tagTopMenuSubItemName& entry) {
    Json object = Json::object();
    object["strName"] = ToUtf8(entry.strName);
    object["vecSubItem"] = ArgTraits<std::vector<std::wstring>>::ToJson(entry.vecSubItem);
    return object;
  }
};

template <>
struct ArgTraits<tagTopMenuItemName> {
  static constexpr const char* kName = "tagTopMenuItemName";
  static bool FromArg(const CallArg&, tagTopMenuItemName&, std::string& error) {
    error = "a record is an out-parameter";
    return false;
  }
  static Json ToJson(const tagTopMenuItemName& menu) {
    Json object = Json::object();
    object["strName"] = ToUtf8(menu.strName);
    object["vecSubItem"] = ArgTraits<std::vector<tagTopMenuSubItemName>>::ToJson(menu.vecSubItem);
    return object;
  }
};

// The layer records are out-parameters, printed field by field in their order.
template <class Record>
struct OutRecordTraits {
  static bool FromArg(const CallArg&, Record&, std::string& error) {
    error = "a record is an out-parameter";
    return false;
  }
};

template <>
struct ArgTraits<tagLayerInfo> : OutRecordTraits<tagLayerInfo> {
  static constexpr const char* kName = "tagLayerInfo";
  static Json ToJson(const tagLayerInfo& r) {
    Json object = Json::object();
    object["nID"] = r.nID;
    object["nIndex"] = r.nIndex;
    object["bVisible"] = r.bVisible;
    object["bSelect"] = r.bSelect;
    object["strName"] = ToUtf8(r.strName);
    object["nOpacity"] = r.nOpacity;
    object["nFillOpacity"] = r.nFillOpacity;
    object["bProtectAll"] = r.bProtectAll;
    object["bGroup"] = r.bGroup;
    object["nHierarchy"] = r.nHierarchy;
    object["bBackground"] = r.bBackground;
    object["nReserved1"] = r.nReserved1;
    object["bHasUserMask"] = r.bHasUserMask;
    object["nReserved2"] = r.nReserved2;
    object["bHasVectorMask"] = r.bHasVectorMask;
    object["bUserMaskLinked"] = r.bUserMaskLinked;
    object["nReserved3"] = r.nReserved3;
    object["bUserMaskEnabled"] = r.bUserMaskEnabled;
    object["bVectorMaskEnabled"] = r.bVectorMaskEnabled;
    object["nBlend"] = r.nBlend;
    object["nLayerKind"] = r.nLayerKind;
    object["bProtectComposite"] = r.bProtectComposite;
    object["bProtectPosition"] = r.bProtectPosition;
    object["bProtectTransparency"] = r.bProtectTransparency;
    object["nTail"] = r.nTail;
    return object;
  }
};

template <>
struct ArgTraits<tagLayerVisibleInfo> : OutRecordTraits<tagLayerVisibleInfo> {
  static constexpr const char* kName = "tagLayerVisibleInfo";
  static Json ToJson(const tagLayerVisibleInfo& r) {
    Json object = Json::object();
    object["nID"] = r.nID;
    object["bVisible"] = r.bVisible;
    return object;
  }
};

template <>
struct ArgTraits<tagLayerStyleInfo> : OutRecordTraits<tagLayerStyleInfo> {
  static constexpr const char* kName = "tagLayerStyleInfo";
  static Json ToJson(const tagLayerStyleInfo& r) {
    Json object = Json::object();
    object["bVisible"] = r.bVisible;
    object["nStyle"] = static_cast<int>(r.nStyle);
    return object;
  }
};

template <>
struct ArgTraits<tagSmartFilterInfo> : OutRecordTraits<tagSmartFilterInfo> {
  static constexpr const char* kName = "tagSmartFilterInfo";
  static Json ToJson(const tagSmartFilterInfo& r) {
    Json object = Json::object();
    object["nFilter"] = static_cast<int>(r.nFilter);
    object["bVisible"] = r.bVisible;
    return object;
  }
};

// A width and height pair, printed and given as {"cx", "cy"} (both whole numbers in the range of a 32-bit long).
template <>
struct ArgTraits<tagSIZE> {
  static constexpr const char* kName = "tagSIZE";
  static bool FromArg(const CallArg& arg, tagSIZE& out, std::string& error) {
    const auto side = [&](const char* key, long& value) {
      if (!arg.value.is_object() || !arg.value.contains(key)) return false;
      const std::optional<long long> number = WholeNumber(arg.value.at(key));
      if (!number || *number < -2147483648LL || *number > 2147483647LL) return false;
      value = static_cast<long>(*number);
      return true;
    };
    tagSIZE size{};
    if (!arg.value.is_object() || arg.value.size() != 2 || !side("cx", size.cx) || !side("cy", size.cy)) {
      error = "expects {\"cx\": WIDTH, \"cy\": HEIGHT} with whole numbers, got " + arg.typed;
      return false;
    }
    out = size;
    return true;
  }
  static Json ToJson(const tagSIZE& size) {
    Json object = Json::object();
    object["cx"] = static_cast<long long>(size.cx);
    object["cy"] = static_cast<long long>(size.cy);
    return object;
  }
};

// A window handle travels as its number, 0 for the null handle (handles have 32 significant bits, sign-extended
// in a 64-bit process).
template <>
struct ArgTraits<HWND> {
  static constexpr const char* kName = "HWND";
  static bool FromArg(const CallArg& arg, HWND& out, std::string& error) {
    const std::optional<long long> number = WholeNumber(arg.value);
    if (!number || *number < 0 || *number > 4294967295LL) {
      error = "expects a window handle, a whole number from 0 to 4294967295, got " + arg.typed;
      return false;
    }
    out = reinterpret_cast<HWND>(static_cast<intptr_t>(static_cast<int32_t>(static_cast<uint32_t>(*number))));
    return true;
  }
  static Json ToJson(HWND value) {
    return static_cast<unsigned long long>(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(value)));
  }
};

template <>
struct ArgTraits<tagRECT> {
  static constexpr const char* kName = "tagRECT";
  static bool FromArg(const CallArg&, tagRECT&, std::string& error) {
    error = "a record is a result";
    return false;
  }
  static Json ToJson(const tagRECT& rect) {
    Json object = Json::object();
    object["left"] = static_cast<long long>(rect.left);
    object["top"] = static_cast<long long>(rect.top);
    object["right"] = static_cast<long long>(rect.right);
    object["bottom"] = static_cast<long long>(rect.bottom);
    return object;
  }
};

}  // namespace ostrel::cli
