// The JSON notation of descriptor values, both ways.
#include "simulator/value_json.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <set>
#include <string_view>

#include "platform/text.h"

namespace ostrel::sim {
namespace {

// Member names with a meaning in the notation. Any other name, also one that starts with "_", is a key.
const std::set<std::string, std::less<>> kNotationWords = {"_obj",    "_enum", "_value",    "_unit",   "_path",
                                                           "_class",  "_ref",  "_id",       "_index",  "_name",
                                                           "_offset", "_kind", "_property", "_rawData"};

[[noreturn]] void Fail(const std::string& pointer, const std::string& message) { throw NotationError(pointer, message); }

std::string Brief(const Json& json) {
  std::string text = json.dump();
  return text.size() > 80 ? text.substr(0, 77) + "..." : text;
}

constexpr char kBase64Digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Base64 with padding (RFC 4648); nothing for any other character or a length that isn't a multiple of four.
std::optional<std::string> FromBase64(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  std::string bytes;
  uint32_t bits = 0;
  int count = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '=') {
      const size_t padding = text.size() - i;
      if (padding > 2 || text.substr(i).find_first_not_of('=') != std::string_view::npos) return std::nullopt;
      break;
    }
    const char* digit = std::char_traits<char>::find(kBase64Digits, 64, c);
    if (!digit) return std::nullopt;
    bits = (bits << 6) | static_cast<uint32_t>(digit - kBase64Digits);
    if (++count == 4) {
      for (int shift = 16; shift >= 0; shift -= 8) bytes += static_cast<char>((bits >> shift) & 0xFF);
      bits = 0;
      count = 0;
    }
  }
  if (count == 2) bytes += static_cast<char>((bits >> 4) & 0xFF);
  if (count == 3) {
    bytes += static_cast<char>((bits >> 10) & 0xFF);
    bytes += static_cast<char>((bits >> 2) & 0xFF);
  }
  return bytes;
}

std::string ToBase64(std::string_view bytes) {
  std::string text;
  for (size_t i = 0; i < bytes.size(); i += 3) {
    uint32_t bits = 0;
    const size_t n = std::min<size_t>(3, bytes.size() - i);
    for (size_t j = 0; j < 3; ++j) {
      bits = (bits << 8) | (j < n ? static_cast<unsigned char>(bytes[i + j]) : 0u);
    }
    for (size_t j = 0; j < 4; ++j) text += j <= n ? kBase64Digits[(bits >> (18 - 6 * j)) & 0x3F] : '=';
  }
  return text;
}

const Json& Member(const Json& object, const char* name, const std::string& pointer) {
  auto it = object.find(name);
  if (it == object.end()) Fail(pointer, std::string("missing \"") + name + "\" in " + Brief(object));
  return *it;
}

int32_t NameAt(const Json& json, TypeIds& ids, const std::string& pointer) {
  if (!json.is_string()) Fail(pointer, "a name must be a string, not " + Brief(json));
  try {
    return ids.NameToId(FromUtf8(json.get_ref<const std::string&>()));
  } catch (const std::invalid_argument& e) {
    Fail(pointer, e.what());
  }
}

int32_t Int32At(const Json& json, const std::string& pointer) {
  if (!json.is_number_integer()) Fail(pointer, "a whole number is needed, not " + Brief(json));
  const auto value = json.get<int64_t>();
  if (!json.is_number_unsigned() && value >= std::numeric_limits<int32_t>::min() &&
      value <= std::numeric_limits<int32_t>::max()) {
    return static_cast<int32_t>(value);
  }
  if (json.is_number_unsigned() && json.get<uint64_t>() <= std::numeric_limits<int32_t>::max()) {
    return static_cast<int32_t>(value);
  }
  Fail(pointer, "a 32-bit whole number is needed, not " + Brief(json));
}

// Only the listed members may stand beside each other in a notation object.
void ExpectOnly(const Json& object, std::initializer_list<std::string_view> allowed, const std::string& pointer) {
  for (const auto& [name, value] : object.items()) {
    bool ok = false;
    for (std::string_view a : allowed) ok = ok || name == a;
    if (!ok) Fail(PointerTo(pointer, name), "unknown value notation: \"" + name + "\" beside " + Brief(object));
  }
}

RefElement ElementFromJson(const Json& json, TypeIds& ids, const std::string& pointer) {
  if (!json.is_object()) Fail(pointer, "a reference element must be an object, not " + Brief(json));
  RefElement element;
  const bool hasProperty = json.contains("_property");
  if (json.contains("_ref")) {
    element.classId = NameAt(json["_ref"], ids, PointerTo(pointer, "_ref"));
  } else if (hasProperty) {
    element.classId = CharId("Prpr");
  } else {
    Fail(pointer, "a reference element needs \"_ref\": " + Brief(json));
  }
  using Form = RefElement::Form;
  if (json.contains("_enum")) {
    ExpectOnly(json, {"_ref", "_enum", "_value"}, pointer);
    element.form = Form::kEnumerated;
    element.enumType = NameAt(json["_enum"], ids, PointerTo(pointer, "_enum"));
    element.value = json.contains("_value") ? NameAt(json["_value"], ids, PointerTo(pointer, "_value"))
                                            : CharId("Trgt");  // the notation's default value: targetEnum
  } else if (json.contains("_id")) {
    ExpectOnly(json, {"_ref", "_id"}, pointer);
    element.form = Form::kIdentifier;
    element.value = Int32At(json["_id"], PointerTo(pointer, "_id"));
  } else if (json.contains("_index")) {
    ExpectOnly(json, {"_ref", "_index"}, pointer);
    element.form = Form::kIndex;
    element.value = Int32At(json["_index"], PointerTo(pointer, "_index"));
  } else if (json.contains("_offset")) {
    ExpectOnly(json, {"_ref", "_offset"}, pointer);
    element.form = Form::kOffset;
    element.value = Int32At(json["_offset"], PointerTo(pointer, "_offset"));
  } else if (json.contains("_name")) {
    ExpectOnly(json, {"_ref", "_name"}, pointer);
    element.form = Form::kName;
    const Json& name = json["_name"];
    if (!name.is_string()) Fail(PointerTo(pointer, "_name"), "a name must be a string, not " + Brief(name));
    element.name = FromUtf8(name.get_ref<const std::string&>());
  } else if (hasProperty) {
    ExpectOnly(json, {"_ref", "_property"}, pointer);
    element.form = Form::kProperty;
    element.value = NameAt(json["_property"], ids, PointerTo(pointer, "_property"));
  } else {
    ExpectOnly(json, {"_ref"}, pointer);
    element.form = Form::kClass;
  }
  return element;
}

Value ReferenceFromJson(const Json& json, TypeIds& ids, const std::string& pointer) {
  Reference reference;
  const Json* ref = json.contains("_ref") ? &json["_ref"] : nullptr;
  if (ref && ref->is_array()) {
    ExpectOnly(json, {"_ref"}, pointer);
    if (ref->empty()) Fail(PointerTo(pointer, "_ref"), "a reference needs at least one element");
    for (size_t i = 0; i < ref->size(); ++i) {
      reference.elements.push_back(ElementFromJson((*ref)[i], ids, PointerTo(PointerTo(pointer, "_ref"), i)));
    }
  } else {
    reference.elements.push_back(ElementFromJson(json, ids, pointer));
  }
  return Value::Ref(std::move(reference));
}

Value ObjectFromJson(const Json& json, TypeIds& ids, const std::string& pointer) {
  Descriptor descriptor = DescriptorFromJson(json, ids, pointer);
  if (!json.contains("_obj")) return Value::ClasslessObject(std::move(descriptor));
  return Value::Object(NameAt(json["_obj"], ids, PointerTo(pointer, "_obj")), std::move(descriptor));
}

Value NotationFromJson(const Json& json, TypeIds& ids, const std::string& pointer) {
  if (json.contains("_enum")) {
    ExpectOnly(json, {"_enum", "_value"}, pointer);
    return Value::Enumerated(NameAt(json["_enum"], ids, PointerTo(pointer, "_enum")),
                             NameAt(Member(json, "_value", pointer), ids, PointerTo(pointer, "_value")));
  }
  if (json.contains("_unit")) {
    ExpectOnly(json, {"_unit", "_value"}, pointer);
    const Json& number = Member(json, "_value", pointer);
    if (!number.is_number()) Fail(PointerTo(pointer, "_value"), "a unit value must be a number, not " + Brief(number));
    return Value::UnitDouble(NameAt(json["_unit"], ids, PointerTo(pointer, "_unit")), number.get<double>());
  }
  if (json.contains("_path")) {
    ExpectOnly(json, {"_path"}, pointer);
    const Json& path = json["_path"];
    if (!path.is_string()) Fail(PointerTo(pointer, "_path"), "a path must be a string, not " + Brief(path));
    return Value::Alias(FromUtf8(path.get_ref<const std::string&>()));
  }
  if (json.contains("_rawData")) {
    ExpectOnly(json, {"_rawData"}, pointer);
    const Json& data = json["_rawData"];
    std::optional<std::string> bytes = data.is_string() ? FromBase64(data.get_ref<const std::string&>()) : std::nullopt;
    if (!bytes) Fail(PointerTo(pointer, "_rawData"), "raw data must be a base64 string, not " + Brief(data));
    return Value::RawData(std::move(*bytes));
  }
  if (json.contains("_class")) {
    ExpectOnly(json, {"_class"}, pointer);
    return Value::Class(NameAt(json["_class"], ids, PointerTo(pointer, "_class")));
  }
  if (json.contains("_ref") || json.contains("_property")) return ReferenceFromJson(json, ids, pointer);
  return ObjectFromJson(json, ids, pointer);
}

Value NumberFromJson(const Json& json, const std::string& pointer) {
  if (json.is_number_float()) return Value::Double(json.get<double>());
  if (json.is_number_unsigned() && json.get<uint64_t>() > static_cast<uint64_t>(INT64_MAX)) {
    Fail(pointer, "a whole number beyond 64 bits: " + Brief(json));
  }
  const auto value = json.get<int64_t>();
  if (value >= INT32_MIN && value <= INT32_MAX) return Value::Integer(static_cast<int32_t>(value));
  return Value::LargeInteger(value);
}

std::string Utf8Name(const TypeIds& ids, int32_t id) { return ToUtf8(ids.IdToName(id)); }

Json ElementToJson(const RefElement& element, const TypeIds& ids) {
  Json json = Json::object();
  json["_ref"] = Utf8Name(ids, element.classId);
  using Form = RefElement::Form;
  switch (element.form) {
    case Form::kClass: break;
    case Form::kEnumerated:
      json["_enum"] = Utf8Name(ids, element.enumType);
      json["_value"] = Utf8Name(ids, element.value);
      break;
    case Form::kIdentifier: json["_id"] = element.value; break;
    case Form::kIndex: json["_index"] = element.value; break;
    case Form::kOffset: json["_offset"] = element.value; break;
    case Form::kName: json["_name"] = ToUtf8(element.name); break;
    case Form::kProperty: json["_property"] = Utf8Name(ids, element.value); break;
  }
  return json;
}

// Unit values are numbers without a type of their own in the notation: whole ones are written without a point.
Json UnitNumber(double value) {
  if (std::isfinite(value) && value == std::trunc(value) && std::fabs(value) < 9.0e15) {
    return static_cast<int64_t>(value);
  }
  return value;
}

}  // namespace

std::string PointerTo(const std::string& pointer, const std::string& key) {
  std::string escaped;
  for (char c : key) {
    if (c == '~') {
      escaped += "~0";
    } else if (c == '/') {
      escaped += "~1";
    } else {
      escaped += c;
    }
  }
  return pointer + "/" + escaped;
}

std::string PointerTo(const std::string& pointer, size_t index) { return pointer + "/" + std::to_string(index); }

Value ValueFromJson(const Json& json, TypeIds& ids, const std::string& pointer) {
  switch (json.type()) {
    case Json::value_t::boolean: return Value::Boolean(json.get<bool>());
    case Json::value_t::string: return Value::String(FromUtf8(json.get_ref<const std::string&>()));
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned:
    case Json::value_t::number_float: return NumberFromJson(json, pointer);
    case Json::value_t::array: {
      std::vector<Value> items;
      for (size_t i = 0; i < json.size(); ++i) items.push_back(ValueFromJson(json[i], ids, PointerTo(pointer, i)));
      return Value::List(std::move(items));
    }
    case Json::value_t::object: return NotationFromJson(json, ids, pointer);
    case Json::value_t::null:
    case Json::value_t::binary:
    case Json::value_t::discarded: break;
  }
  Fail(pointer, "not a descriptor value: " + Brief(json));
}

Descriptor DescriptorFromJson(const Json& json, TypeIds& ids, const std::string& pointer) {
  if (!json.is_object()) Fail(pointer, "a descriptor must be a JSON object, not " + Brief(json));
  Descriptor descriptor;
  for (const auto& [name, value] : json.items()) {
    if (name == "_obj") continue;
    const std::string at = PointerTo(pointer, name);
    if (kNotationWords.count(name)) Fail(at, "unknown value notation: \"" + name + "\" in an object");
    // "_target" is how the notation spells the key of a command's target, the one Photoshop calls "null".
    const int32_t key = name == "_target" ? CharId("null") : NameAt(Json(name), ids, at);
    descriptor.Put(key, ValueFromJson(value, ids, at));
  }
  return descriptor;
}

Json ValueToJson(const Value& value, const TypeIds& ids) {
  if (value.type == kRawData) return Json{{"_rawData", ToBase64(value.bytes)}};
  switch (value.type) {
    case ValueType::kInteger:
    case ValueType::kLargeInteger: return value.integer;
    case ValueType::kDouble: return value.number;
    case ValueType::kUnitDouble: return Json{{"_unit", Utf8Name(ids, value.typeId)}, {"_value", UnitNumber(value.number)}};
    case ValueType::kString: return ToUtf8(value.text);
    case ValueType::kBoolean: return value.integer != 0;
    case ValueType::kList: {
      Json items = Json::array();
      for (const Value& item : value.list) items.push_back(ValueToJson(item, ids));
      return items;
    }
    case ValueType::kObject: {
      Json object = Json::object();
      if (value.hasClass) object["_obj"] = Utf8Name(ids, value.typeId);
      const Json members = DescriptorToJson(value.object, ids);
      for (const auto& [name, item] : members.items()) object[name] = item;
      return object;
    }
    case ValueType::kEnumerated:
      return Json{{"_enum", Utf8Name(ids, value.typeId)}, {"_value", Utf8Name(ids, value.enumValue)}};
    case ValueType::kReference: {
      if (value.reference.elements.size() == 1) return ElementToJson(value.reference.elements.front(), ids);
      Json elements = Json::array();
      for (const RefElement& element : value.reference.elements) elements.push_back(ElementToJson(element, ids));
      return Json{{"_ref", elements}};
    }
    case ValueType::kClass: return Json{{"_class", Utf8Name(ids, value.typeId)}};
    case ValueType::kAlias: return Json{{"_path", ToUtf8(value.text)}};
  }
  return nullptr;
}

Json DescriptorToJson(const Descriptor& descriptor, const TypeIds& ids) {
  Json object = Json::object();
  for (const Entry& entry : descriptor.entries) object[Utf8Name(ids, entry.key)] = ValueToJson(entry.value, ids);
  return object;
}

}  // namespace ostrel::sim
