// Counting the automation calls that the library makes: a decorator of an automation runtime that wraps every
// object it creates, and every object that comes back inside a call's result, so that each call on any of them
// (a cross-process round trip against the real Photoshop) is counted, whatever runtime it decorates.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/automation.h"

namespace ostrel::cli {

class CountingAutomation final : public IAutomation {
 public:
  // inner must outlive this object and every object it hands out.
  explicit CountingAutomation(IAutomation& inner);

  int32_t Initialize() override;
  DispatchPtr Create(const std::wstring& progId) override;
  std::wstring ErrorMessage(int32_t code) override;

  // IAutomationObject::Invoke calls on the objects handed out since the start or the last ResetCalls; a call
  // that fails counts too.
  int64_t Calls() const noexcept { return *m_calls; }
  void ResetCalls() noexcept { *m_calls = 0; }

 private:
  IAutomation& m_inner;
  std::shared_ptr<int64_t> m_calls;  // shared with the objects, which may outlive a count being read
};

}  // namespace ostrel::cli
