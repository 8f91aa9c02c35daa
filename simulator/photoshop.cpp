// The simulated Photoshop's automation runtime: ProgIDs, creation, error texts, and the accounting it exposes.
#include "simulator/photoshop.h"

#include <algorithm>
#include <cwctype>

#include "simulator/action_objects.h"
#include "simulator/application_object.h"

namespace ostrel::sim {
namespace {

// The system's text of the result codes that automation gives, without the line end.
struct ErrorText {
  int32_t code;
  const wchar_t* text;
};
constexpr ErrorText kErrorTexts[] = {
    {kSOk, L"The operation completed successfully."},
    {1, L"Incorrect function."},  // S_FALSE
    {kDispENotFound, L"Member not found."},
    {static_cast<int32_t>(0x80020004), L"Parameter not found."},
    {kDispETypeMismatch, L"Type mismatch."},
    {kDispEException, L"Exception occurred."},
    {kDispEBadParamCount, L"Invalid number of parameters."},
    {kCoEClassString, L"Invalid class string"},
    {static_cast<int32_t>(0x80040154), L"Class not registered"},
    {kCoEServerExecFailure, L"Server execution failed"},
    {kEFail, L"Unspecified error"},
    {static_cast<int32_t>(0x80070057), L"The parameter is incorrect."},
    {static_cast<int32_t>(0x80010108), L"The object invoked has disconnected from its clients."},
    {static_cast<int32_t>(0x8001010A), L"The message filter indicated that the application is busy."},
    {static_cast<int32_t>(0x800706BA), L"The RPC server is unavailable."},
};

enum class ProgIdKind { kApplication, kDescriptor, kReference };

struct ProgIdPrefix {
  const wchar_t* prefix;
  ProgIdKind kind;
};
constexpr ProgIdPrefix kProgIds[] = {
    {L"photoshop.application", ProgIdKind::kApplication},
    {L"photoshop.actiondescriptor", ProgIdKind::kDescriptor},
    {L"photoshop.actionreference", ProgIdKind::kReference},
};

std::wstring Lower(std::wstring text) {
  std::transform(text.begin(), text.end(), text.begin(), [](wchar_t c) { return static_cast<wchar_t>(std::towlower(c)); });
  return text;
}

bool Contains(const std::vector<int>& versions, int version) {
  return std::find(versions.begin(), versions.end(), version) != versions.end();
}

}  // namespace

SimulatedPhotoshop::SimulatedPhotoshop(Scenario scenario) : m_session(std::make_shared<Session>()) {
  m_session->state = std::move(scenario.state);
  m_session->ids = std::move(scenario.ids);
}

SimulatedPhotoshop SimulatedPhotoshop::FromFile(const std::filesystem::path& scenarioFile) {
  return SimulatedPhotoshop(LoadScenarioFile(scenarioFile));
}

int32_t SimulatedPhotoshop::Initialize() {
  const bool again = m_session->initialized;
  m_session->initialized = true;
  return again ? 1 : kSOk;  // S_FALSE: already initialized on this thread
}

DispatchPtr SimulatedPhotoshop::Create(const std::wstring& progId) {
  m_session->accounting.OnCall("Create", kCoEServerExecFailure);
  const std::wstring lower = Lower(progId);
  const State& state = m_session->state;
  for (const ProgIdPrefix& known : kProgIds) {
    const std::wstring prefix = known.prefix;
    if (lower.compare(0, prefix.size(), prefix) != 0) continue;
    const std::wstring rest = lower.substr(prefix.size());
    int version = 0;
    if (rest.empty()) {
      if (state.reachableVersions.empty()) break;
      version = *std::max_element(state.reachableVersions.begin(), state.reachableVersions.end());
    } else if (rest.size() == 4 && rest[0] == L'.' && std::all_of(rest.begin() + 1, rest.end(), iswdigit)) {
      version = std::stoi(rest.substr(1));
    } else {
      break;
    }
    if (!Contains(state.reachableVersions, version)) {
      if (Contains(state.installedVersions, version)) {
        throw AutomationError(kCoEServerExecFailure, L"Server execution failed");
      }
      break;
    }
    switch (known.kind) {
      case ProgIdKind::kApplication:
        m_session->createdVersion = version;
        return std::make_shared<ApplicationObject>(m_session);
      case ProgIdKind::kDescriptor: return std::make_shared<ActionDescriptorObject>(m_session);
      case ProgIdKind::kReference: return std::make_shared<ActionReferenceObject>(m_session);
    }
  }
  throw AutomationError(kCoEClassString, L"Invalid class string");
}

std::wstring SimulatedPhotoshop::ErrorMessage(int32_t code) {
  for (const ErrorText& row : kErrorTexts) {
    if (row.code == code) return row.text;
  }
  return L"";
}

void SimulatedPhotoshop::FailCall(int64_t n, FaultMode mode, std::optional<int32_t> code) {
  m_session->accounting.FailCall(n, mode, code);
}

void SimulatedPhotoshop::FailMember(std::string member, std::optional<int32_t> code) {
  m_session->accounting.FailMember(std::move(member), code);
}

void SimulatedPhotoshop::ClearFaults() { m_session->accounting.ClearFaults(); }
bool SimulatedPhotoshop::FaultFired() const noexcept { return m_session->accounting.FaultFired(); }
int64_t SimulatedPhotoshop::Calls() const noexcept { return m_session->accounting.Calls(); }
int64_t SimulatedPhotoshop::Calls(std::string_view member) const { return m_session->accounting.Calls(member); }
const std::map<std::string, int64_t, std::less<>>& SimulatedPhotoshop::CallsByMember() const noexcept {
  return m_session->accounting.CallsByMember();
}
void SimulatedPhotoshop::ResetCalls() { m_session->accounting.ResetCalls(); }
int SimulatedPhotoshop::LiveObjects() const noexcept { return m_session->accounting.LiveObjects(); }

}  // namespace ostrel::sim
