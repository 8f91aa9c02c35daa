// Photoshop's JSON notation of descriptors, read and written: objects with "_obj", enumerations
// {"_enum", "_value"}, unit doubles {"_unit", "_value"}, references {"_ref", ...}, aliases {"_path"}, classes
// {"_class"}; keys and names are string ids, or "$" and a char id where the id has no string form. An integral
// JSON number is an integer (a large integer beyond 32 bits), one with a decimal point or exponent a double.
#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "simulator/type_ids.h"
#include "simulator/values.h"

namespace ostrel::sim {

using Json = nlohmann::ordered_json;

// A JSON value that isn't a descriptor value; pointer is the JSON pointer of the offending value.
class NotationError : public std::runtime_error {
 public:
  NotationError(std::string pointer, const std::string& message)
      : std::runtime_error(message), m_pointer(std::move(pointer)) {}
  const std::string& pointer() const noexcept { return m_pointer; }

 private:
  std::string m_pointer;
};

// The JSON pointer of member key of the value at pointer, and of element index.
std::string PointerTo(const std::string& pointer, const std::string& key);
std::string PointerTo(const std::string& pointer, size_t index);

// Reads a value or a whole descriptor (an object; an "_obj" at its top is allowed and ignored). Names are turned
// into ids with ids, which assigns run-time ids to new string ids. Throws NotationError.
Value ValueFromJson(const Json& json, TypeIds& ids, const std::string& pointer = "");
Descriptor DescriptorFromJson(const Json& json, TypeIds& ids, const std::string& pointer = "");

// Writes a value or a descriptor, naming ids as Photoshop's typeIDToStringID, then typeIDToCharID, name them.
Json ValueToJson(const Value& value, const TypeIds& ids);
Json DescriptorToJson(const Descriptor& descriptor, const TypeIds& ids);

}  // namespace ostrel::sim
