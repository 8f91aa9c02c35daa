// The dispatch holder: owns at most one reference to an automation object and makes calls on it.
#pragma once

#include <initializer_list>
#include <string>

#include "platform/automation.h"

namespace ostrel {

// What a failed creation leaves behind: the result code, whose text the platform gives.
struct COleException {
  int32_t m_sc = kSOk;
  std::wstring GetErrorMessage() const;
};

// A holder of one automation object. Empty when m_lpDispatch is null. Copying shares the object (one more
// reference); destruction and ReleaseDispatch let go of it. A call on an empty holder does nothing.
class COleDispatchDriver {
 public:
  COleDispatchDriver() = default;
  // Takes over a reference that a call returned.
  explicit COleDispatchDriver(DispatchPtr dispatch, bool autoRelease = true)
      : m_lpDispatch(std::move(dispatch)), m_bAutoRelease(autoRelease) {}

  // Creates the object of progId into this (empty) holder. On failure the holder stays empty, error (when
  // given) receives the code, and the result is false.
  bool CreateDispatch(const std::wstring& progId, COleException* error = nullptr);

  // Lets go of the object; harmless on an empty holder.
  void ReleaseDispatch() noexcept;

  bool IsEmpty() const noexcept { return m_lpDispatch == nullptr; }

  // One automation call. On an empty holder nothing happens and *result stays as it stood. A failure reported
  // by the server or the transport throws AutomationError.
  void InvokeHelper(int32_t dispId, InvokeKind kind, Variant* result, std::initializer_list<Variant> args) const;

  // Shorthands over InvokeHelper: a method call and a property get give the result (empty on an empty holder),
  // a property put gives nothing.
  Variant Call(int32_t dispId, std::initializer_list<Variant> args = {}) const;
  Variant Get(int32_t dispId) const;
  void Put(int32_t dispId, Variant value) const;

  DispatchPtr m_lpDispatch;
  bool m_bAutoRelease = true;
};

}  // namespace ostrel
