// Descriptor values: construction and key lookup.
#include "simulator/values.h"

#include <algorithm>

namespace ostrel::sim {

const Value* Descriptor::Find(int32_t key) const {
  auto it = std::find_if(entries.begin(), entries.end(), [key](const Entry& e) { return e.key == key; });
  return it == entries.end() ? nullptr : &it->value;
}

Value* Descriptor::Find(int32_t key) {
  auto it = std::find_if(entries.begin(), entries.end(), [key](const Entry& e) { return e.key == key; });
  return it == entries.end() ? nullptr : &it->value;
}

void Descriptor::Put(int32_t key, Value value) {
  if (Value* existing = Find(key)) {
    *existing = std::move(value);
  } else {
    entries.push_back(Entry{key, std::move(value)});
  }
}

void Descriptor::Remove(int32_t key) {
  std::erase_if(entries, [key](const Entry& e) { return e.key == key; });
}

bool Descriptor::operator==(const Descriptor& other) const { return entries == other.entries; }

bool Value::operator==(const Value& o) const {
  return type == o.type && integer == o.integer && number == o.number && typeId == o.typeId &&
         enumValue == o.enumValue && hasClass == o.hasClass && text == o.text && bytes == o.bytes && list == o.list &&
         object == o.object && reference == o.reference;
}

Value Value::Integer(int32_t v) {
  Value value;
  value.type = ValueType::kInteger;
  value.integer = v;
  return value;
}

Value Value::LargeInteger(int64_t v) {
  Value value;
  value.type = ValueType::kLargeInteger;
  value.integer = v;
  return value;
}

Value Value::Double(double v) {
  Value value;
  value.type = ValueType::kDouble;
  value.number = v;
  return value;
}

Value Value::UnitDouble(int32_t unit, double v) {
  Value value;
  value.type = ValueType::kUnitDouble;
  value.typeId = unit;
  value.number = v;
  return value;
}

Value Value::String(std::wstring v) {
  Value value;
  value.type = ValueType::kString;
  value.text = std::move(v);
  return value;
}

Value Value::Boolean(bool v) {
  Value value;
  value.type = ValueType::kBoolean;
  value.integer = v ? 1 : 0;
  return value;
}

Value Value::Enumerated(int32_t type, int32_t v) {
  Value value;
  value.type = ValueType::kEnumerated;
  value.typeId = type;
  value.enumValue = v;
  return value;
}

Value Value::Object(int32_t classId, Descriptor v) {
  Value value;
  value.type = ValueType::kObject;
  value.typeId = classId;
  value.object = std::move(v);
  return value;
}

Value Value::ClasslessObject(Descriptor v) {
  Value value = Object(0, std::move(v));
  value.hasClass = false;
  return value;
}

Value Value::List(std::vector<Value> v) {
  Value value;
  value.type = ValueType::kList;
  value.list = std::move(v);
  return value;
}

Value Value::Ref(Reference v) {
  Value value;
  value.type = ValueType::kReference;
  value.reference = std::move(v);
  return value;
}

Value Value::Class(int32_t classId) {
  Value value;
  value.type = ValueType::kClass;
  value.typeId = classId;
  return value;
}

Value Value::Alias(std::wstring path) {
  Value value;
  value.type = ValueType::kAlias;
  value.text = std::move(path);
  return value;
}

Value Value::RawData(std::string bytes) {
  Value value;
  value.type = kRawData;
  value.bytes = std::move(bytes);
  return value;
}

}  // namespace ostrel::sim
