// The values that Photoshop's action descriptors, lists and references hold, as plain C++ data. Keys, classes,
// enumerations and units are type ids (type_ids.h). Every container holds its values by value: a descriptor that
// Photoshop hands out is a copy, and changing it changes nothing else.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "frame/dispids.h"

namespace ostrel::sim {

// Value types by the numbers that getType gives.
using ValueType = DescriptorValueType;
// Raw data (bytes that Photoshop keeps opaque, such as a text layer's legacy content) has number 12, between alias
// and large integer; the library reads no such key, so the shared enumeration has no name for it.
inline constexpr ValueType kRawData = static_cast<ValueType>(12);

// One element of a reference, as the put that made it: putClass, putEnumerated, putIdentifier, putIndex, putName,
// putOffset, putProperty.
struct RefElement {
  enum class Form { kClass, kEnumerated, kIdentifier, kIndex, kName, kOffset, kProperty };
  Form form = Form::kClass;
  int32_t classId = 0;
  int32_t enumType = 0;  // kEnumerated
  int32_t value = 0;     // the enumeration value, id, index, offset or property key
  std::wstring name;     // kName

  bool operator==(const RefElement&) const = default;
};

// A reference: its first element is the target, the later ones its containers.
struct Reference {
  std::vector<RefElement> elements;
  bool operator==(const Reference&) const = default;
};

struct Entry;
struct Value;

// A descriptor: keys in the order they were put. Putting a key that is there replaces its value in place.
struct Descriptor {
  std::vector<Entry> entries;

  const Value* Find(int32_t key) const;
  Value* Find(int32_t key);
  void Put(int32_t key, Value value);
  void Remove(int32_t key);  // nothing if the key isn't there
  bool operator==(const Descriptor&) const;
};

struct Value {
  ValueType type = ValueType::kInteger;
  int64_t integer = 0;     // integer, large integer, boolean (0 or 1)
  double number = 0;       // double, unit double
  int32_t typeId = 0;      // the unit, the enumeration type, the object's class, the class value
  int32_t enumValue = 0;   // enumerated
  bool hasClass = true;    // an object written without "_obj" keeps none
  std::wstring text;       // string, alias path
  std::string bytes;       // raw data
  std::vector<Value> list;
  Descriptor object;
  Reference reference;

  static Value Integer(int32_t v);
  static Value LargeInteger(int64_t v);
  static Value Double(double v);
  static Value UnitDouble(int32_t unit, double v);
  static Value String(std::wstring v);
  static Value Boolean(bool v);
  static Value Enumerated(int32_t type, int32_t v);
  static Value Object(int32_t classId, Descriptor v);
  static Value ClasslessObject(Descriptor v);
  static Value List(std::vector<Value> v);
  static Value Ref(Reference v);
  static Value Class(int32_t classId);
  static Value Alias(std::wstring path);
  static Value RawData(std::string bytes);

  bool operator==(const Value&) const;
};

struct Entry {
  int32_t key = 0;
  Value value;
  bool operator==(const Entry&) const = default;
};

}  // namespace ostrel::sim
