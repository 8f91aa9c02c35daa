// The counting decorator: objects wrapped on the way out, unwrapped on the way in.
#include "counting_automation.h"

#include <utility>
#include <vector>

namespace ostrel::cli {
namespace {

class CountingObject final : public IAutomationObject {
 public:
  CountingObject(DispatchPtr inner, std::shared_ptr<int64_t> calls)
      : m_inner(std::move(inner)), m_calls(std::move(calls)) {}

  Variant Invoke(int32_t dispId, InvokeKind kind, std::span<const Variant> args) override;

  const DispatchPtr& inner() const noexcept { return m_inner; }

 private:
  DispatchPtr m_inner;
  std::shared_ptr<int64_t> m_calls;
};

DispatchPtr Wrap(const DispatchPtr& object, const std::shared_ptr<int64_t>& calls) {
  if (!object) return object;
  return std::make_shared<CountingObject>(object, calls);
}

// A value on its way to the inner runtime: our wrappers replaced by the objects they wrap, which the runtime
// recognises as its own (an ActionReference handed to executeActionGet), also inside arrays.
Variant Unwrapped(const Variant& value) {
  if (value.type() == VarType::kDispatch) {
    const auto* counting = dynamic_cast<const CountingObject*>(value.AsDispatch().get());
    return counting ? Variant::Dispatch(counting->inner()) : value;
  }
  if (value.type() == VarType::kArray) {
    std::vector<Variant> items;
    items.reserve(value.AsArray().size());
    for (const Variant& item : value.AsArray()) items.push_back(Unwrapped(item));
    return Variant::Array(std::move(items));
  }
  return value;
}

// A value on its way back to the library: every object in it wrapped, so that calls on it count too.
Variant Wrapped(const Variant& value, const std::shared_ptr<int64_t>& calls) {
  if (value.type() == VarType::kDispatch) return Variant::Dispatch(Wrap(value.AsDispatch(), calls));
  if (value.type() == VarType::kArray) {
    std::vector<Variant> items;
    items.reserve(value.AsArray().size());
    for (const Variant& item : value.AsArray()) items.push_back(Wrapped(item, calls));
    return Variant::Array(std::move(items));
  }
  return value;
}

Variant CountingObject::Invoke(int32_t dispId, InvokeKind kind, std::span<const Variant> args) {
  ++*m_calls;
  std::vector<Variant> inner;
  inner.reserve(args.size());
  for (const Variant& arg : args) inner.push_back(Unwrapped(arg));
  return Wrapped(m_inner->Invoke(dispId, kind, inner), m_calls);
}

}  // namespace

CountingAutomation::CountingAutomation(IAutomation& inner)
    : m_inner(inner), m_calls(std::make_shared<int64_t>(0)) {}

int32_t CountingAutomation::Initialize() { return m_inner.Initialize(); }

DispatchPtr CountingAutomation::Create(const std::wstring& progId) { return Wrap(m_inner.Create(progId), m_calls); }

std::wstring CountingAutomation::ErrorMessage(int32_t code) { return m_inner.ErrorMessage(code); }

}  // namespace ostrel::cli
