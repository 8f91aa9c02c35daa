// Call counting and injected failures.
#include "simulator/accounting.h"

#include "platform/automation.h"
#include "platform/text.h"

namespace ostrel::sim {

namespace {
volatile int g_faultHits = 0;
}

void SimulatorFaultHit() { g_faultHits = g_faultHits + 1; }

void Accounting::FailCall(int64_t n, FaultMode mode, std::optional<int32_t> code) {
  m_failAt = n > 0 ? m_calls + n : 0;
  m_failMode = mode;
  m_failCode = code;
  m_faultFired = false;
}

void Accounting::FailMember(std::string member, std::optional<int32_t> code) {
  m_failingMembers[std::move(member)] = code;
  m_faultFired = false;
}

void Accounting::ClearFaults() {
  m_failAt = 0;
  m_failingMembers.clear();
  m_faultFired = false;
}

int64_t Accounting::Calls(std::string_view member) const {
  auto it = m_byMember.find(member);
  return it == m_byMember.end() ? 0 : it->second;
}

void Accounting::ResetCalls() {
  m_failAt = m_failAt > 0 ? m_failAt - m_calls : 0;  // a planned failure keeps its distance
  m_calls = 0;
  m_byMember.clear();
}

void Accounting::OnCall(std::string_view member, int32_t defaultCode) {
  ++m_calls;
  ++m_byMember[std::string(member)];
  std::optional<int32_t> code;
  bool due = false;
  if (m_failAt > 0 && (m_calls == m_failAt || (m_failMode == FaultMode::kPersistent && m_calls > m_failAt))) {
    due = true;
    code = m_failCode;
  }
  if (auto it = m_failingMembers.find(member); it != m_failingMembers.end()) {
    due = true;
    code = it->second;
  }
  if (!due) return;
  m_faultFired = true;
  SimulatorFaultHit();
  throw AutomationError(code.value_or(defaultCode),
                        Format(L"Simulated failure of call %d (%s)", static_cast<long long>(m_calls),
                               FromUtf8(member)));
}

}  // namespace ostrel::sim
