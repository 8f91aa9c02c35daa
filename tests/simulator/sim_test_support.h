// Helpers of the simulator's tests: scenarios from text, calls through the automation surface.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <string>
#include <vector>

#include "frame/dispids.h"
#include "platform/automation.h"
#include "simulator/photoshop.h"

namespace ostrel::sim::test {

inline std::filesystem::path ExamplesDir() { return std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop"; }
inline std::filesystem::path DataDir() { return std::filesystem::path(OSTREL_SOURCE_DIR) / "tests" / "simulator" / "data"; }

inline SimulatedPhotoshop FromText(const std::string& json) {
  return SimulatedPhotoshop(ParseScenario(json, ExamplesDir(), "test.json"));
}

inline Variant Call(const DispatchPtr& object, int32_t dispId, std::initializer_list<Variant> args = {}) {
  const std::vector<Variant> list(args);
  return object->Invoke(dispId, InvokeKind::kMethod, list);
}

inline Variant Get(const DispatchPtr& object, int32_t dispId, std::initializer_list<Variant> args = {}) {
  const std::vector<Variant> list(args);
  return object->Invoke(dispId, InvokeKind::kPropertyGet, list);
}

inline void Put(const DispatchPtr& object, int32_t dispId, const Variant& value) {
  const Variant args[] = {value};
  object->Invoke(dispId, InvokeKind::kPropertyPut, args);
}

inline std::string ToNarrow(const std::wstring& text) { return std::string(text.begin(), text.end()); }

inline Variant I4(int32_t v) { return Variant::I4(v); }
inline Variant Str(const std::wstring& v) { return Variant::Bstr(v); }

// A connected session: the application object and the conversions of names to ids through it.
struct Connected {
  explicit Connected(SimulatedPhotoshop& photoshop)
      : ps(photoshop), app(photoshop.Create(L"Photoshop.Application.130")) {}

  int32_t S(const std::wstring& stringId) const {
    return Call(app, dispid::app::kStringIDToTypeID, {Str(stringId)}).AsI4();
  }
  int32_t C(const std::wstring& charId) const { return Call(app, dispid::app::kCharIDToTypeID, {Str(charId)}).AsI4(); }
  std::wstring Name(int32_t id) const { return Call(app, dispid::app::kTypeIDToStringID, {I4(id)}).AsBstr(); }

  DispatchPtr NewReference() const { return ps.Create(L"Photoshop.ActionReference.130"); }
  DispatchPtr NewDescriptor() const { return ps.Create(L"Photoshop.ActionDescriptor.130"); }

  // executeActionGet of a reference made by fill.
  template <class Fill>
  DispatchPtr Read(Fill fill) const {
    DispatchPtr reference = NewReference();
    fill(reference);
    return Call(app, dispid::app::kExecuteActionGet, {Variant::Dispatch(reference)}).AsDispatch();
  }

  DispatchPtr ReadCurrent(const std::wstring& classChars) const {
    return Read([&](const DispatchPtr& r) {
      Call(r, dispid::ref::kPutEnumerated, {I4(C(classChars)), I4(C(L"Ordn")), I4(C(L"Trgt"))});
    });
  }
  DispatchPtr ReadIndex(const std::wstring& classChars, int32_t index) const {
    return Read([&](const DispatchPtr& r) { Call(r, dispid::ref::kPutIndex, {I4(C(classChars)), I4(index)}); });
  }

  std::wstring String(const DispatchPtr& descriptor, const std::wstring& key) const {
    return Call(descriptor, dispid::desc::kGetString, {I4(S(key))}).AsBstr();
  }
  int32_t Integer(const DispatchPtr& descriptor, const std::wstring& key) const {
    return Call(descriptor, dispid::desc::kGetInteger, {I4(S(key))}).AsI4();
  }

  SimulatedPhotoshop& ps;
  DispatchPtr app;
};

// The code of the AutomationError that body throws, or 0.
template <class Body>
int32_t FailureCode(Body body) {
  try {
    body();
  } catch (const AutomationError& e) {
    return e.code();
  }
  return 0;
}

}  // namespace ostrel::sim::test
