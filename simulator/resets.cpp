// The effects of set and reset on the tools' options, the preset libraries and the colours.
#include "simulator/resets.h"

#include <iterator>

#include "simulator/commands.h"

namespace ostrel::sim {
namespace {

// The preset libraries that reset knows by their application key, with their place in "presetManager".
struct PresetLibrary {
  const wchar_t* key;
  size_t position;
};
constexpr PresetLibrary kPresetLibraries[] = {
    {L"brush", 0}, {L"colors", 1}, {L"gradientClassEvent", 2}, {L"style", 3},
    {L"pattern", 4}, {L"shapeCurveType", 6}, {L"toolPreset", 7},
};

const Reference* TargetReference(const std::optional<Descriptor>& descriptor) {
  if (!descriptor) return nullptr;
  const Value* target = descriptor->Find(CharId("null"));
  if (!target || target->type != ValueType::kReference || target->reference.elements.empty()) return nullptr;
  return &target->reference;
}

// The options of a tool as they stand now: the current ones or those kept for it.
Descriptor* OptionsOf(ApplicationState& app, Session& session, const std::wstring& toolId) {
  const Value* tool = app.descriptor.Find(CharId("Tool"));
  if (tool && tool->type == ValueType::kEnumerated && session.ids.TypeIdToStringId(tool->typeId) == toolId) {
    Value* current = app.descriptor.Find(CharId("CrnT"));
    if (current && current->type == ValueType::kObject) return &current->object;
    return nullptr;
  }
  return &app.toolOptions[toolId];
}

// A reference to the application's key K: putProperty(property, K) ahead of the application.
const RefElement* ApplicationKey(const Reference& reference) {
  if (reference.elements.size() != 2) return nullptr;
  const RefElement& property = reference.elements[0];
  const RefElement& application = reference.elements[1];
  if (property.form != RefElement::Form::kProperty || application.classId != CharId("capp")) return nullptr;
  return &property;
}

void ResetAllToolOptions(Session& session) {
  ApplicationState& app = session.state.app;
  for (const auto& [toolId, defaults] : app.toolDefaults) {
    if (Descriptor* options = OptionsOf(app, session, toolId)) *options = defaults;
  }
}

void ResetPresetLibrary(Session& session, const PresetLibrary& library, bool append) {
  ApplicationState& app = session.state.app;
  const auto defaults = app.presetDefaults.find(library.key);
  if (defaults == app.presetDefaults.end()) return;
  Value* managers = app.descriptor.Find(session.Key(L"presetManager"));
  if (!managers || managers->type != ValueType::kList || managers->list.size() <= library.position) return;
  Value& manager = managers->list[library.position];
  if (manager.type != ValueType::kObject) return;
  Value* names = manager.object.Find(CharId("Nm  "));
  std::vector<Value> kept;
  if (append && names && names->type == ValueType::kList) kept = names->list;
  for (const std::wstring& name : defaults->second) kept.push_back(Value::String(name));
  manager.object.Put(CharId("Nm  "), Value::List(std::move(kept)));
}

void ResetColors(Session& session) {
  Descriptor black, white;
  for (const int32_t channel : {CharId("Rd  "), CharId("Grn "), CharId("Bl  ")}) {
    black.Put(channel, Value::Double(0.0));
    white.Put(channel, Value::Double(255.0));
  }
  session.state.app.descriptor.Put(CharId("FrgC"), Value::Object(CharId("RGBC"), std::move(black)));
  session.state.app.descriptor.Put(CharId("BckC"), Value::Object(CharId("RGBC"), std::move(white)));
}

}  // namespace

void ApplySet(Session& session, const std::optional<Descriptor>& descriptor) {
  const Reference* target = TargetReference(descriptor);
  if (!target || target->elements.size() != 1 || target->elements[0].form != RefElement::Form::kClass) return;
  const std::wstring toolId = session.ids.TypeIdToStringId(target->elements[0].classId);
  if (!IsKnownTool(session, toolId)) return;
  const Value* to = descriptor->Find(CharId("T   "));
  if (!to || to->type != ValueType::kObject) return;
  Descriptor* options = OptionsOf(session.state.app, session, toolId);
  if (!options) return;
  for (const Entry& entry : to->object.entries) {
    if (entry.key == CharId("Tool") || entry.key == CharId("CrnT")) continue;
    options->Put(entry.key, entry.value);
  }
}

void ApplyReset(Session& session, const std::optional<Descriptor>& descriptor) {
  const Reference* target = TargetReference(descriptor);
  if (!target) return;
  const RefElement& first = target->elements[0];
  if (target->elements.size() == 1 && first.form == RefElement::Form::kProperty &&
      first.classId == session.Key(L"color") && first.value == session.Key(L"colors")) {
    ResetColors(session);
    return;
  }
  const RefElement* key = ApplicationKey(*target);
  if (!key) return;
  if (key->value == CharId("AlTl")) {
    ResetAllToolOptions(session);
    return;
  }
  const Value* append = descriptor->Find(session.Key(L"append"));
  const bool appending = append && append->type == ValueType::kBoolean && append->integer != 0;
  for (const PresetLibrary& library : kPresetLibraries) {
    if (key->value == session.Key(library.key)) ResetPresetLibrary(session, library, appending);
  }
}

}  // namespace ostrel::sim
