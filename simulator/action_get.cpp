// Resolution of the reference forms of executeActionGet.
#include "simulator/action_get.h"

#include "platform/text.h"

namespace ostrel::sim {
namespace {

using Form = RefElement::Form;

bool IsTargetEnum(const RefElement& e) { return e.form == Form::kEnumerated && e.value == CharId("Trgt"); }

std::wstring ClassName(const Session& session, int32_t classId) { return session.ids.IdToName(classId); }

[[noreturn]] void NotThere(const Session& session, const RefElement& e) {
  std::wstring what = ClassName(session, e.classId);
  switch (e.form) {
    case Form::kIndex: what += Format(L" %d", e.value); break;
    case Form::kIdentifier: what += Format(L" id %d", e.value); break;
    case Form::kName: what += L" \u201c" + e.name + L"\u201d"; break;
    case Form::kEnumerated:
      what = (IsTargetEnum(e) ? L"current " : session.ids.IdToName(e.value) + L" ") + what;
      break;
    case Form::kClass:
    case Form::kOffset:
    case Form::kProperty: break;
  }
  ThrowNotAvailable(session, what);
}

// The item at a position from 1 of a list of descriptors.
Descriptor* At(std::vector<Descriptor>& items, int32_t position) {
  if (position < 1 || position > static_cast<int32_t>(items.size())) return nullptr;
  return &items[static_cast<size_t>(position - 1)];
}

Descriptor* ByName(std::vector<Descriptor>& items, int32_t nameKey, const std::wstring& name, int32_t* position) {
  for (size_t i = 0; i < items.size(); ++i) {
    if (StringOr(items[i], nameKey, L"") == name) {
      *position = static_cast<int32_t>(i) + 1;
      return &items[i];
    }
  }
  return nullptr;
}

// A channel or path with its itemIndex in step with its place.
Descriptor Numbered(const Descriptor& item, int32_t position) {
  Descriptor copy = item;
  copy.Put(CharId("ItmI"), Value::Integer(position));
  return copy;
}

Descriptor ChannelRead(Session& session, DocumentState& document, const RefElement& e) {
  int32_t position = 0;
  if (IsTargetEnum(e)) {
    position = document.activeChannel.value_or(0);
  } else if (e.form == Form::kIndex) {
    position = e.value;
  } else if (e.form == Form::kName) {
    ByName(document.channels, CharId("ChnN"), e.name, &position);
  }
  const Descriptor* channel = At(document.channels, position);
  if (!channel) NotThere(session, e);
  return Numbered(*channel, position);
}

// The vector mask of the current layer, as a path of kind "vectorMask".
Descriptor VectorMaskPath(Session& session, DocumentState& document, const RefElement& e) {
  LayerNode* layer = FindNode(document, document.activeLayerId);
  if (!layer || !BooleanOr(layer->descriptor, session.Key(L"hasVectorMask"), false)) NotThere(session, e);
  Descriptor path;
  path.Put(CharId("PthN"), Value::String(StringOr(layer->descriptor, CharId("Nm  "), L"") + L" Vector Mask"));
  path.Put(CharId("Knd "), Value::Enumerated(CharId("PthK"), session.Key(L"vectorMask")));
  return path;
}

Descriptor PathRead(Session& session, DocumentState& document, const RefElement& e) {
  int32_t position = 0;
  if (IsTargetEnum(e)) {
    position = IntegerOr(document.descriptor, CharId("TrgP"), -1) + 1;
  } else if (e.form == Form::kEnumerated && e.value == session.Key(L"vectorMask")) {
    return VectorMaskPath(session, document, e);
  } else if (e.form == Form::kIndex) {
    position = e.value;
  } else if (e.form == Form::kName) {
    ByName(document.paths, CharId("PthN"), e.name, &position);
  }
  const Descriptor* path = At(document.paths, position);
  if (!path) NotThere(session, e);
  return Numbered(*path, position);
}

Descriptor HistoryRead(Session& session, DocumentState& document, const RefElement& e) {
  const int32_t position = IsTargetEnum(e) ? document.activeHistory : e.form == Form::kIndex ? e.value : 0;
  const Descriptor* state = At(document.history, position);
  if (!state) NotThere(session, e);
  return Numbered(*state, position);
}

// The stack entry of a layer element: the background offset applies to the index form.
std::pair<StackEntry, int> ResolveLayerEntry(Session& session, DocumentState& document, const RefElement& e) {
  std::vector<StackEntry> stack = LayerStack(document);
  if (IsTargetEnum(e)) {
    if (auto found = FindLayerById(document, document.activeLayerId)) return *found;
  } else if (e.form == Form::kIndex) {
    const int32_t itemIndex = HasBackground(document) ? e.value + 1 : e.value;
    if (itemIndex >= 1 && itemIndex <= static_cast<int32_t>(stack.size())) {
      return {stack[static_cast<size_t>(itemIndex - 1)], itemIndex};
    }
  } else if (e.form == Form::kIdentifier) {
    if (auto found = FindLayerById(document, e.value)) return *found;
  } else if (e.form == Form::kName) {
    for (size_t i = stack.size(); i-- > 0;) {  // from the top, as the layer panel lists them
      if (StringOr(stack[i].descriptor(), CharId("Nm  "), L"") == e.name) return {stack[i], static_cast<int>(i) + 1};
    }
  }
  NotThere(session, e);
}

// Narrows a descriptor to one key, as a read with putProperty gives it.
Descriptor OnlyKey(Session& session, const Descriptor& whole, int32_t key) {
  const Value* value = whole.Find(key);
  if (!value) ThrowNotAvailable(session, L"property " + session.ids.IdToName(key));
  Descriptor result;
  result.Put(key, *value);
  return result;
}

// An application read of "tool" answers with the tool and its options together, in that order: scripts read
// "currentToolOptions" from exactly that answer. The options are there whenever a tool is.
Descriptor ToolRead(Session& session, const Descriptor& application) {
  Descriptor result = OnlyKey(session, application, CharId("Tool"));
  if (const Value* options = application.Find(CharId("CrnT"))) result.Put(CharId("CrnT"), *options);
  return result;
}

}  // namespace

DocumentState& ResolveDocument(Session& session, const Reference& reference, size_t from) {
  State& state = session.state;
  for (size_t i = from; i < reference.elements.size(); ++i) {
    const RefElement& e = reference.elements[i];
    if (e.classId != CharId("Dcmn")) continue;
    DocumentState* found = nullptr;
    if (IsTargetEnum(e)) {
      found = ActiveDocument(state);
    } else if (e.form == Form::kIndex && e.value >= 1 && e.value <= static_cast<int32_t>(state.documents.size())) {
      found = &state.documents[static_cast<size_t>(e.value - 1)];
    } else {
      for (DocumentState& document : state.documents) {
        const bool byId = e.form == Form::kIdentifier && IntegerOr(document.descriptor, CharId("DocI"), -1) == e.value;
        const bool byName = e.form == Form::kName && StringOr(document.descriptor, CharId("Ttl "), L"") == e.name;
        if (byId || byName) found = &document;
      }
    }
    if (!found) NotThere(session, e);
    return *found;
  }
  if (DocumentState* active = ActiveDocument(state)) return *active;
  ThrowNotAvailable(session, L"current document");
}

LayerNode& ResolveLayerNode(Session& session, DocumentState& document, const RefElement& element) {
  auto [entry, itemIndex] = ResolveLayerEntry(session, document, element);
  if (entry.isEnd) NotThere(session, element);
  return *entry.node;
}

Descriptor DocumentDescriptor(Session& session, DocumentState& document) {
  Descriptor result = document.descriptor;
  const std::vector<StackEntry> stack = LayerStack(document);
  const bool background = HasBackground(document);
  int position = 1;
  for (const DocumentState& other : session.state.documents) {
    if (&other == &document) break;
    ++position;
  }
  result.Put(CharId("ItmI"), Value::Integer(position));
  result.Put(session.Key(L"hasBackgroundLayer"), Value::Boolean(background));
  result.Put(CharId("NmbL"), Value::Integer(static_cast<int32_t>(stack.size()) - (background ? 1 : 0)));
  result.Put(CharId("NmbP"), Value::Integer(static_cast<int32_t>(document.paths.size())));
  return result;
}

Descriptor LayerDescriptor(Session&, DocumentState&, const StackEntry& entry, int itemIndex) {
  Descriptor result = entry.descriptor();
  result.Put(CharId("ItmI"), Value::Integer(itemIndex));
  return result;
}

Descriptor ExecuteActionGet(Session& session, const Reference& reference) {
  const auto& elements = reference.elements;
  size_t at = 0;
  std::optional<int32_t> key;
  if (!elements.empty() && elements.front().form == Form::kProperty) {
    key = elements.front().value;
    at = 1;
  }
  if (at >= elements.size()) ThrowGeneralError(L"The reference names no object.");
  const RefElement& target = elements[at];
  Descriptor whole;
  if (target.classId == CharId("capp")) {
    if (target.form != Form::kClass && !IsTargetEnum(target)) NotThere(session, target);
    whole = session.state.app.descriptor;
  } else if (target.classId == CharId("Dcmn")) {
    whole = DocumentDescriptor(session, ResolveDocument(session, reference, at));
  } else if (target.classId == CharId("Lyr ")) {
    DocumentState& document = ResolveDocument(session, reference, at + 1);
    auto [entry, itemIndex] = ResolveLayerEntry(session, document, target);
    whole = LayerDescriptor(session, document, entry, itemIndex);
  } else if (target.classId == CharId("Chnl")) {
    whole = ChannelRead(session, ResolveDocument(session, reference, at + 1), target);
  } else if (target.classId == CharId("Path")) {
    whole = PathRead(session, ResolveDocument(session, reference, at + 1), target);
  } else if (target.classId == CharId("HstS")) {
    whole = HistoryRead(session, ResolveDocument(session, reference, at + 1), target);
  } else {
    NotThere(session, target);
  }
  if (!key) return whole;
  if (*key == CharId("Tool") && target.classId == CharId("capp")) return ToolRead(session, whole);
  return OnlyKey(session, whole, *key);
}

}  // namespace ostrel::sim
