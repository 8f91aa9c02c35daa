// The commands of the simulated Photoshop.
#include "simulator/commands.h"

#include <algorithm>

#include "platform/text.h"
#include "simulator/action_get.h"
#include "simulator/resets.h"
#include "simulator/value_json.h"

namespace ostrel::sim {
namespace {

constexpr const char* kKnownTools[] = {
#define OSTREL_SIM_TOOL(id) id,
#include "simulator/known_tools.def"
#undef OSTREL_SIM_TOOL
};

// Menu commands that show or hide a panel, with the panel's name as uiInfo's getViewInfo takes it.
struct PanelToggle {
  const wchar_t* menuItem;
  const wchar_t* panel;
};
constexpr PanelToggle kPanelToggles[] = {
    {L"toggleLayersPalette", L"layers"},
    {L"toggleChannelsPalette", L"channels"},
    {L"togglePathsPalette", L"paths"},
};

const RefElement* TargetOf(const std::optional<Descriptor>& descriptor) {
  if (!descriptor) return nullptr;
  const Value* target = descriptor->Find(CharId("null"));
  if (!target || target->type != ValueType::kReference || target->reference.elements.empty()) return nullptr;
  return &target->reference.elements.front();
}

bool IsRefused(const Session& session, int32_t eventId) {
  const std::wstring name = session.ids.TypeIdToStringId(eventId);
  const std::wstring chars = TypeIds::TypeIdToCharId(eventId);
  for (const std::wstring& refused : session.state.app.refusedEvents) {
    if ((!name.empty() && refused == name) || (!chars.empty() && (refused == chars || refused == L"$" + chars))) {
      return true;
    }
  }
  return false;
}

void SelectWorkspace(Session& session, const std::wstring& name) {
  const Value* list = session.state.app.descriptor.Find(session.Key(L"workspaceList"));
  if (list && list->type == ValueType::kList) {
    for (const Value& item : list->list) {
      if (item.type != ValueType::kObject) continue;
      if (StringOr(item.object, session.Key(L"displayName"), L"") == name || StringOr(item.object, CharId("Nm  "), L"") == name) {
        return;
      }
    }
  }
  ThrowNotAvailable(session, L"workspace \u201c" + name + L"\u201d");
}

void SelectLayer(Session& session, const Descriptor& descriptor) {
  const Value* target = descriptor.Find(CharId("null"));
  DocumentState& document = ResolveDocument(session, target->reference, 1);
  LayerNode& layer = ResolveLayerNode(session, document, target->reference.elements.front());
  document.activeLayerId = IntegerOr(layer.descriptor, CharId("LyrI"), -1);
  const auto found = FindLayerById(document, document.activeLayerId);
  document.descriptor.Put(session.Key(L"targetLayers"), Value::List({TargetLayerReference(found->second)}));
}

void TogglePanel(Session& session, int32_t menuItem) {
  const std::wstring name = session.ids.TypeIdToStringId(menuItem);
  for (const PanelToggle& toggle : kPanelToggles) {
    if (name == toggle.menuItem) {
      bool& shown = session.state.app.panels[toggle.panel];
      shown = !shown;
    }
  }
}

void Select(Session& session, const std::optional<Descriptor>& descriptor) {
  const RefElement* target = TargetOf(descriptor);
  if (!target) return;
  if (target->form == RefElement::Form::kClass && IsKnownTool(session, session.ids.TypeIdToStringId(target->classId))) {
    SelectTool(session, session.ids.TypeIdToStringId(target->classId));
  } else if (target->classId == CharId("Mn  ") && target->form == RefElement::Form::kEnumerated) {
    TogglePanel(session, target->value);
  } else if (target->classId == session.Key(L"workspace") && target->form == RefElement::Form::kName) {
    SelectWorkspace(session, target->name);
  } else if (target->classId == CharId("Lyr ")) {
    SelectLayer(session, *descriptor);
  }
}

// Deleting the current history state drops it and every later one; the one before becomes current.
void Delete(Session& session, const std::optional<Descriptor>& descriptor) {
  const RefElement* target = TargetOf(descriptor);
  if (!target || target->form != RefElement::Form::kProperty || target->value != CharId("CrnH")) return;
  DocumentState* document = ActiveDocument(session.state);
  if (!document || document->activeHistory < 1) ThrowNotAvailable(session, L"current history state");
  document->history.resize(static_cast<size_t>(document->activeHistory - 1));
  document->activeHistory = static_cast<int>(document->history.size());
  if (document->historyBrushSource > document->activeHistory) document->historyBrushSource = 0;
}

Descriptor UiInfo(Session& session, const std::optional<Descriptor>& descriptor) {
  Descriptor result;
  if (!descriptor || StringOr(*descriptor, CharId("Cmnd"), L"") != L"getViewInfo") return result;
  const std::wstring panel = StringOr(*descriptor, session.Key(L"panel"), L"");
  auto it = session.state.app.panels.find(panel);
  Descriptor view;
  view.Put(session.Key(L"shown"), Value::Boolean(it != session.state.app.panels.end() && it->second));
  result.Put(session.Key(L"view"), Value::Object(session.Key(L"view"), std::move(view)));
  return result;
}

}  // namespace

bool IsKnownTool(const Session& session, const std::wstring& toolId) {
  if (toolId.empty()) return false;
  if (session.state.app.toolOptions.count(toolId)) return true;
  return std::any_of(std::begin(kKnownTools), std::end(kKnownTools),
                     [&](const char* known) { return FromUtf8(known) == toolId; });
}

void SelectTool(Session& session, const std::wstring& toolId) {
  if (!IsKnownTool(session, toolId)) ThrowGeneralError(L"The tool \u201c" + toolId + L"\u201d is not available.");
  ApplicationState& app = session.state.app;
  const Value* tool = app.descriptor.Find(CharId("Tool"));
  const Value* current = app.descriptor.Find(CharId("CrnT"));
  if (tool && tool->type == ValueType::kEnumerated && current && current->type == ValueType::kObject) {
    app.toolOptions[session.ids.TypeIdToStringId(tool->typeId)] = current->object;
  }
  auto next = app.toolOptions.find(toolId);
  Descriptor options = next == app.toolOptions.end() ? Descriptor{} : next->second;
  app.descriptor.Put(CharId("Tool"), Value::Enumerated(session.ids.StringIdToTypeId(toolId), CharId("Trgt")));
  app.descriptor.Put(CharId("CrnT"), Value::Object(CharId("CrnT"), std::move(options)));
}

std::wstring CurrentTool(Session& session) {
  const Value* tool = session.state.app.descriptor.Find(CharId("Tool"));
  if (!tool || tool->type != ValueType::kEnumerated) ThrowNotAvailable(session, L"tool");
  return session.ids.TypeIdToStringId(tool->typeId);
}

void JournalCall(Session& session, const char* member, std::wstring detail) {
  JournalEntry entry;
  entry.member = member;
  entry.detail = std::move(detail);
  session.journal.push_back(std::move(entry));
}

Descriptor ExecuteAction(Session& session, int32_t eventId, const std::optional<Descriptor>& descriptor,
                         int32_t dialogMode) {
  JournalEntry entry;
  entry.member = "executeAction";
  entry.eventId = eventId;
  entry.event = session.ids.IdToName(eventId);
  entry.descriptor = descriptor ? DescriptorToJson(*descriptor, session.ids).dump() : std::string();
  entry.dialogMode = dialogMode;
  entry.failed = true;  // until the command has gone through
  session.journal.push_back(entry);
  if (IsRefused(session, eventId)) {
    ThrowGeneralError(L"The command \u201c" + entry.event + L"\u201d is not currently available.");
  }
  Descriptor result;
  if (eventId == CharId("slct")) {
    Select(session, descriptor);
  } else if (eventId == CharId("Dlt ")) {
    Delete(session, descriptor);
  } else if (eventId == session.Key(L"uiInfo")) {
    result = UiInfo(session, descriptor);
  } else if (eventId == CharId("setd")) {
    ApplySet(session, descriptor);
  } else if (eventId == CharId("Rset")) {
    ApplyReset(session, descriptor);
  }
  session.journal.back().failed = false;
  return result;
}

}  // namespace ostrel::sim
