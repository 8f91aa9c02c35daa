// Helpers of the simulator's tests: scenarios from text, calls through the automation surface. A test file says
// `using namespace ostrel::sim::test;` to have the helpers and the short names of the dispatch id families.
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

namespace da = dispid::app;
namespace dd = dispid::desc;
namespace dl = dispid::list;
namespace dr = dispid::ref;
namespace om = dispid::obj;

inline std::filesystem::path ExamplesDir() {
  return std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "photoshop";
}

inline SimulatedPhotoshop FromText(const std::string& json) {
  return SimulatedPhotoshop(ParseScenario(json, ExamplesDir(), "test.json"));
}
inline SimulatedPhotoshop Example(const char* file = "layers_and_group.json") {
  return SimulatedPhotoshop::FromFile(ExamplesDir() / file);
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

inline Variant I4(int32_t v) {
  return Variant::I4(v);
}
inline Variant Str(const std::wstring& v) {
  return Variant::Bstr(v);
}

// The code of the AutomationError that body throws, or 0; description, when given, receives its text.
template <class Body>
int32_t FailureCode(Body body, std::wstring* description = nullptr) {
  try {
    body();
  } catch (const AutomationError& e) {
    if (description) *description = e.description();
    return e.code();
  }
  return 0;
}

// A connected session: the application object and the conversions of names to ids through it.
struct Connected {
  explicit Connected(SimulatedPhotoshop& photoshop)
      : ps(photoshop), app(photoshop.Create(L"Photoshop.Application.130")) {}

  int32_t S(const std::wstring& stringId) const { return Call(app, da::kStringIDToTypeID, {Str(stringId)}).AsI4(); }
  int32_t C(const std::wstring& charId) const { return Call(app, da::kCharIDToTypeID, {Str(charId)}).AsI4(); }
  std::wstring Name(int32_t id) const { return Call(app, da::kTypeIDToStringID, {I4(id)}).AsBstr(); }

  DispatchPtr NewReference() const { return ps.Create(L"Photoshop.ActionReference.130"); }
  DispatchPtr NewDescriptor() const { return ps.Create(L"Photoshop.ActionDescriptor.130"); }

  // Reference elements: the target of a class (by char id), and a property of it.
  void PutTarget(const DispatchPtr& r, const std::wstring& classChars) const {
    Call(r, dr::kPutEnumerated, {I4(C(classChars)), I4(C(L"Ordn")), I4(C(L"Trgt"))});
  }
  void PutProperty(const DispatchPtr& r, const std::wstring& key) const {
    Call(r, dr::kPutProperty, {I4(C(L"Prpr")), I4(S(key))});
  }

  // executeActionGet of a reference made by fill.
  template <class Fill>
  DispatchPtr Read(Fill fill) const {
    DispatchPtr reference = NewReference();
    fill(reference);
    return Call(app, da::kExecuteActionGet, {Variant::Dispatch(reference)}).AsDispatch();
  }
  DispatchPtr ReadCurrent(const std::wstring& classChars) const {
    return Read([&](const DispatchPtr& r) { PutTarget(r, classChars); });
  }
  // executeActionGet of one element of a class (by char id): putIndex, putIdentifier or putName as form.
  DispatchPtr ReadBy(int32_t form, const std::wstring& classChars, const Variant& value) const {
    return Read([&](const DispatchPtr& r) { Call(r, form, {I4(C(classChars)), value}); });
  }
  DispatchPtr ReadIndex(const std::wstring& classChars, int32_t index) const {
    return ReadBy(dr::kPutIndex, classChars, I4(index));
  }
  // One key of the current object of a class ("capp", "Dcmn", ...).
  DispatchPtr ReadProperty(const std::wstring& classChars, const std::wstring& key) const {
    return Read([&](const DispatchPtr& r) {
      PutProperty(r, key);
      PutTarget(r, classChars);
    });
  }

  std::wstring String(const DispatchPtr& descriptor, const std::wstring& key) const {
    return Call(descriptor, dd::kGetString, {I4(S(key))}).AsBstr();
  }
  int32_t Integer(const DispatchPtr& descriptor, const std::wstring& key) const {
    return Call(descriptor, dd::kGetInteger, {I4(S(key))}).AsI4();
  }
  DispatchPtr Object(const DispatchPtr& descriptor, const std::wstring& key) const {
    return Call(descriptor, dd::kGetObjectValue, {I4(S(key))}).AsDispatch();
  }

  SimulatedPhotoshop& ps;
  DispatchPtr app;
};

// A test connected to the example document with layers and a group.
class ExampleTest : public ::testing::Test {
 protected:
  SimulatedPhotoshop ps = Example();
  Connected c{ps};
};

}  // namespace ostrel::sim::test
