// The Action Manager's objects: ActionDescriptor, ActionList and ActionReference. Each holds its value by value;
// what a get hands out is a new object with a copy.
#pragma once

#include <memory>
#include <span>

#include "simulator/session.h"
#include "simulator/values.h"

namespace ostrel::sim {

class ActionDescriptorObject : public SimObjectOf<ActionDescriptorObject> {
 public:
  ActionDescriptorObject(std::shared_ptr<Session> session, Descriptor value = {});
  static std::span<const Member<ActionDescriptorObject>> Members();

  Descriptor& value() noexcept { return m_value; }
  // The value of a key, or Photoshop's refusal when the key is missing or of another type than wanted.
  const Value& Get(int32_t key, ValueType wanted);

 private:
  Descriptor m_value;
};

class ActionListObject : public SimObjectOf<ActionListObject> {
 public:
  ActionListObject(std::shared_ptr<Session> session, std::vector<Value> items);
  static std::span<const Member<ActionListObject>> Members();

  const Value& Get(int32_t position, ValueType wanted);
  std::vector<Value>& items() noexcept { return m_items; }

 private:
  std::vector<Value> m_items;
};

class ActionReferenceObject : public SimObjectOf<ActionReferenceObject> {
 public:
  ActionReferenceObject(std::shared_ptr<Session> session, Reference value = {});
  static std::span<const Member<ActionReferenceObject>> Members();

  Reference& value() noexcept { return m_value; }

 private:
  Reference m_value;
};

}  // namespace ostrel::sim
