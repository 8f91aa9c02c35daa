// One run of the simulated Photoshop: its state, its type ids, the call accounting and the journal of commands;
// and the base of every simulated automation object, which counts its calls and lives as long as a DispatchPtr
// refers to it.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/automation.h"
#include "simulator/accounting.h"
#include "simulator/state.h"
#include "simulator/type_ids.h"

namespace ostrel::sim {

// One command that reached the simulated Photoshop: an executeAction, or an object model call that changes
// something (load, close, a put).
struct JournalEntry {
  std::string member;        // "executeAction", "load", "close", "currentTool", "activeHistoryState", ...
  int32_t eventId = 0;       // executeAction: the event's type id
  std::wstring event;        // executeAction: the event's name as string id, or "$" and its char id
  std::string descriptor;    // executeAction: the descriptor in Photoshop's JSON notation ("" without one)
  int32_t dialogMode = 0;    // executeAction: the dialog mode
  std::wstring detail;       // other calls: the argument, as text
  bool failed = false;       // Photoshop refused the command
};

struct Session {
  State state;
  TypeIds ids;
  Accounting accounting;
  std::vector<JournalEntry> journal;
  int createdVersion = 0;       // the version of the last application object created
  bool initialized = false;

  int32_t Key(const wchar_t* stringId) { return ids.StringIdToTypeId(stringId); }
};

// DISP_E_BADINDEX: the code that Photoshop's "No such element" carries in its dispatch exception.
inline constexpr int32_t kDispEBadIndex = static_cast<int32_t>(0x8002000B);

// Photoshop's refusals, as its automation reports them: kDispEException with Photoshop's own text, and for a
// missing element of the object model (no current document, no selection, a position past the end) its
// "No such element" with kDispEBadIndex.
[[noreturn]] void ThrowNotAvailable(const Session& session, const std::wstring& what);
[[noreturn]] void ThrowNoSuchElement(const Session& session);
[[noreturn]] void ThrowGeneralError(const std::wstring& detail);

class SimObject : public IAutomationObject {
 public:
  SimObject(std::shared_ptr<Session> session, const char* kind);
  ~SimObject() override;
  SimObject(const SimObject&) = delete;
  SimObject& operator=(const SimObject&) = delete;

  Variant Invoke(int32_t dispId, InvokeKind kind, std::span<const Variant> args) final;
  const char* kind() const noexcept { return m_kind; }
  Session& session() const noexcept { return *m_session; }
  const std::shared_ptr<Session>& sessionPtr() const noexcept { return m_session; }

 protected:
  // The member of this object with that id and kind, and its call; null name if there is none.
  struct Found {
    const char* name = nullptr;
    int minArgs = 0;
    int maxArgs = 0;
  };
  virtual Found Lookup(int32_t dispId, InvokeKind kind) const = 0;
  virtual Variant Call(int32_t dispId, InvokeKind kind, std::span<const Variant> args) = 0;

 private:
  std::shared_ptr<Session> m_session;
  const char* m_kind;
};

// A member of a simulated object of type T: id, kind, name, argument count and what it does.
template <class T>
struct Member {
  int32_t dispId;
  InvokeKind kind;
  const char* name;
  int minArgs;
  int maxArgs;
  Variant (*call)(T& self, std::span<const Variant> args);
};

// The member lookup of an object type over its table T::Members().
template <class T>
class SimObjectOf : public SimObject {
 public:
  using SimObject::SimObject;

 protected:
  Found Lookup(int32_t dispId, InvokeKind kind) const override {
    for (const Member<T>& m : T::Members()) {
      if (m.dispId == dispId && m.kind == kind) return Found{m.name, m.minArgs, m.maxArgs};
    }
    return Found{};
  }
  Variant Call(int32_t dispId, InvokeKind kind, std::span<const Variant> args) override {
    for (const Member<T>& m : T::Members()) {
      if (m.dispId == dispId && m.kind == kind) return m.call(static_cast<T&>(*this), args);
    }
    return Variant();
  }
};

// Arguments, with the coercions of automation; a value of another kind throws a type mismatch.
int32_t ArgI4(std::span<const Variant> args, size_t i);
std::wstring ArgBstr(std::span<const Variant> args, size_t i);
bool ArgBool(std::span<const Variant> args, size_t i);
// An item position: a VARIANT holding VT_I2 or VT_I4.
int32_t ArgPosition(std::span<const Variant> args, size_t i);

// The simulated object behind a dispatch argument, or a type mismatch.
template <class T>
T& ArgObject(std::span<const Variant> args, size_t i) {
  T* object = dynamic_cast<T*>(args[i].AsDispatch().get());
  if (!object) throw AutomationError(kDispETypeMismatch, L"Type mismatch.");
  return *object;
}

}  // namespace ostrel::sim
