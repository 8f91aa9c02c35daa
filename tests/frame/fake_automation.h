// A small automation server for the connection tests: which Application ProgIDs can be created, the order in
// which creation was asked, and an application object whose visible and version properties a test sets.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "frame/dispids.h"
#include "platform/automation.h"
#include "platform/portable/portable_backends.h"

namespace ostrel::testing {

class FakeApplication final : public IAutomationObject {
 public:
  bool visible = true;
  std::wstring version = L"21.0.0";
  bool failReads = false;

  Variant Invoke(int32_t dispId, InvokeKind, std::span<const Variant>) override {
    if (failReads) throw AutomationError(kDispEException, L"busy");
    if (dispId == dispid::app::kVisible) return Variant::Bool(visible);
    if (dispId == dispid::app::kVersion) return Variant::Bstr(version);
    throw AutomationError(kDispENotFound, L"Member not found.");
  }
};

class FakeAutomation final : public IAutomation {
 public:
  std::set<std::wstring> reachable;  // ProgIDs that can be created
  std::vector<std::wstring> tries;   // every creation asked for, in order
  int initializeCalls = 0;
  std::shared_ptr<FakeApplication> application = std::make_shared<FakeApplication>();

  int32_t Initialize() override {
    ++initializeCalls;
    return 1;  // S_FALSE: already initialized, which goes on like a success
  }
  DispatchPtr Create(const std::wstring& progId) override {
    tries.push_back(progId);
    if (!reachable.count(progId)) throw AutomationError(kCoEClassString, L"Invalid class string");
    return application;
  }
  std::wstring ErrorMessage(int32_t code) override { return StandardErrorMessage(code); }
};

// A clock that says what the test wants.
class FakeClock final : public IClock {
 public:
  LocalTime now{2021, 3, 7, 9, 5, 0};
  LocalTime Now() override { return now; }
};

}  // namespace ostrel::testing
