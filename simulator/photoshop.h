// The simulated Photoshop: an automation runtime that answers the calls of Photoshop's Application,
// ActionDescriptor, ActionReference and ActionList objects and of its object model, by Photoshop's dispatch ids,
// from the state of a scenario. Install it as the platform's automation to run the library without Photoshop:
//
//   ostrel::sim::SimulatedPhotoshop ps(ostrel::sim::LoadScenarioFile("examples/photoshop/layers_and_group.json"));
//   ostrel::ScopedPlatform platform({.automation = &ps});
//
// Beside that it counts calls and live objects, injects failures and keeps a journal of the commands it received.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation.h"
#include "simulator/accounting.h"
#include "simulator/scenario.h"
#include "simulator/session.h"

namespace ostrel::sim {

class SimulatedPhotoshop : public IAutomation {
 public:
  explicit SimulatedPhotoshop(Scenario scenario);
  static SimulatedPhotoshop FromFile(const std::filesystem::path& scenarioFile);

  // IAutomation. Create makes "Photoshop.Application.NNN", "Photoshop.ActionDescriptor.NNN" and
  // "Photoshop.ActionReference.NNN" (or the same without ".NNN", for the newest reachable version) when version
  // NNN is reachable; otherwise it fails to run the server (an installed version) or knows no such class.
  int32_t Initialize() override;
  DispatchPtr Create(const std::wstring& progId) override;
  std::wstring ErrorMessage(int32_t code) override;

  // Fault injection: the n-th automation call from now (Create included) fails, once or from then on; or every
  // call of a member ("getInteger", "executeActionGet", "Create", ...). The code defaults to the one Photoshop's
  // failures carry: kDispEException, and kCoEServerExecFailure for Create.
  void FailCall(int64_t n, FaultMode mode = FaultMode::kTransient, std::optional<int32_t> code = std::nullopt);
  void FailMember(std::string member, std::optional<int32_t> code = std::nullopt);
  void ClearFaults();
  bool FaultFired() const noexcept;

  // Accounting: calls in total and by member name since the start or the last ResetCalls; live objects.
  int64_t Calls() const noexcept;
  int64_t Calls(std::string_view member) const;
  const std::map<std::string, int64_t, std::less<>>& CallsByMember() const noexcept;
  void ResetCalls();
  int LiveObjects() const noexcept;

  // The commands received, in order.
  const std::vector<JournalEntry>& Journal() const noexcept { return m_session->journal; }
  void ClearJournal() { m_session->journal.clear(); }

  // The state as it stands now, and the type ids of this session.
  State& state() noexcept { return m_session->state; }
  TypeIds& ids() noexcept { return m_session->ids; }
  // The version (110 to 150) of the application object created last, 0 before any.
  int CreatedVersion() const noexcept { return m_session->createdVersion; }

 private:
  std::shared_ptr<Session> m_session;
};

}  // namespace ostrel::sim
