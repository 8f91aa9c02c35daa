// A decorator of an automation runtime that counts what makes a call across processes dearer than a plain get: the
// objects created by ProgID (each a CoCreateInstance, which the automation calls don't count) and the calls that
// carry an object either way.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation.h"

namespace ostrel::roundtrip {

// Counts, on the automation it decorates, the objects created by ProgID and the calls that carry an object either
// way (an ActionReference handed to executeActionGet, a descriptor or a list coming back): across processes each
// such object is marshalled, and a returned one is released with a round trip of its own.
class ObjectTally final : public IAutomation {
 public:
  explicit ObjectTally(IAutomation& inner) : m_inner(inner) {}
  int32_t Initialize() override { return m_inner.Initialize(); }
  DispatchPtr Create(const std::wstring& progId) override {
    ++m_counts->created;
    return Wrap(m_inner.Create(progId), m_counts);
  }
  std::wstring ErrorMessage(int32_t code) override { return m_inner.ErrorMessage(code); }
  int64_t Created() const noexcept { return m_counts->created; }
  int64_t ObjectCalls() const noexcept { return m_counts->objectCalls; }

 private:
  struct Counts {
    int64_t created = 0;
    int64_t objectCalls = 0;
  };

  class Object final : public IAutomationObject {
   public:
    Object(DispatchPtr inner, std::shared_ptr<Counts> counts)
        : m_inner(std::move(inner)), m_counts(std::move(counts)) {}
    Variant Invoke(int32_t dispId, InvokeKind kind, std::span<const Variant> args) override {
      std::vector<Variant> inner;
      bool carriesObject = false;
      for (const Variant& arg : args) inner.push_back(Unwrapped(arg, carriesObject));
      if (carriesObject) ++m_counts->objectCalls;  // marshalled there even when the call then fails
      const Variant result = m_inner->Invoke(dispId, kind, inner);
      if (!carriesObject && result.type() == VarType::kDispatch && result.AsDispatch()) ++m_counts->objectCalls;
      return result.type() == VarType::kDispatch ? Variant::Dispatch(Wrap(result.AsDispatch(), m_counts)) : result;
    }
    const DispatchPtr& inner() const noexcept { return m_inner; }

   private:
    DispatchPtr m_inner;
    std::shared_ptr<Counts> m_counts;
  };

  static DispatchPtr Wrap(const DispatchPtr& object, const std::shared_ptr<Counts>& counts) {
    return object ? std::make_shared<Object>(object, counts) : object;
  }
  static Variant Unwrapped(const Variant& value, bool& carriesObject) {
    if (value.type() == VarType::kArray) {
      std::vector<Variant> items;
      for (const Variant& item : value.AsArray()) items.push_back(Unwrapped(item, carriesObject));
      return Variant::Array(std::move(items));
    }
    if (value.type() != VarType::kDispatch || !value.AsDispatch()) return value;
    carriesObject = true;
    const auto* object = dynamic_cast<const Object*>(value.AsDispatch().get());
    return object ? Variant::Dispatch(object->inner()) : value;
  }

  IAutomation& m_inner;
  std::shared_ptr<Counts> m_counts = std::make_shared<Counts>();
};

}  // namespace ostrel::roundtrip
