// Call accounting and fault injection of the simulated Photoshop: every automation call (each Invoke, and each
// Create) is counted in total and by member name, and can be made to fail; every simulated object is counted
// while it lives.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace ostrel::sim {

enum class FaultMode {
  kTransient,   // that one call fails
  kPersistent,  // that call and every later one fail
};

// Runs on every injected failure, just before the failure is thrown: a place for a breakpoint.
void SimulatorFaultHit();

class Accounting {
 public:
  // The n-th call from now (n = 1: the next one) fails with code.
  void FailCall(int64_t n, FaultMode mode, std::optional<int32_t> code = std::nullopt);
  // Every call of member fails with code ("Create" for the creation of objects).
  void FailMember(std::string member, std::optional<int32_t> code = std::nullopt);
  void ClearFaults();
  bool FaultFired() const noexcept { return m_faultFired; }

  int64_t Calls() const noexcept { return m_calls; }
  int64_t Calls(std::string_view member) const;
  const std::map<std::string, int64_t, std::less<>>& CallsByMember() const noexcept { return m_byMember; }
  void ResetCalls();

  int LiveObjects() const noexcept { return m_liveObjects; }
  void ObjectBorn() noexcept { ++m_liveObjects; }
  void ObjectDied() noexcept { --m_liveObjects; }

  // Counts one call of member; throws AutomationError when a fault is due (defaultCode unless one was given).
  void OnCall(std::string_view member, int32_t defaultCode);

 private:
  int64_t m_calls = 0;
  std::map<std::string, int64_t, std::less<>> m_byMember;
  int64_t m_failAt = 0;  // absolute call number of the planned failure, 0 for none
  FaultMode m_failMode = FaultMode::kTransient;
  std::optional<int32_t> m_failCode;
  std::map<std::string, std::optional<int32_t>, std::less<>> m_failingMembers;
  bool m_faultFired = false;
  int m_liveObjects = 0;
};

}  // namespace ostrel::sim
