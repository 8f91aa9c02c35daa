// executeAction and the object model's commands: each is written to the journal, and the few whose effect later
// reads must see change the state (tool, layer and workspace selection, panels, history, colours, documents).
#pragma once

#include <optional>
#include <string>

#include "simulator/session.h"
#include "simulator/values.h"

namespace ostrel::sim {

// Runs one command; gives the descriptor that Photoshop returns (empty for most commands).
Descriptor ExecuteAction(Session& session, int32_t eventId, const std::optional<Descriptor>& descriptor,
                         int32_t dialogMode);

// Whether Photoshop has the tool: a tool it knows, or one the scenario gives options for.
bool IsKnownTool(const Session& session, const std::wstring& toolId);
// Makes toolId the current tool (the options of the one before are kept for when it comes back); refuses a tool
// that Photoshop doesn't have.
void SelectTool(Session& session, const std::wstring& toolId);
// The current tool's id, or Photoshop's refusal if the application has no "tool".
std::wstring CurrentTool(Session& session);

// Writes an object model command to the journal.
void JournalCall(Session& session, const char* member, std::wstring detail);

}  // namespace ostrel::sim
