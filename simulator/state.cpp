// Walks over the simulated state: the layer stack and small typed reads of descriptors.
#include "simulator/state.h"

#include "simulator/type_ids.h"

namespace ostrel::sim {
namespace {

// Appends the nodes, given top first, from the bottom up: a set's end entry lies below its children.
void Stack(std::vector<LayerNode>& nodes, std::vector<StackEntry>& out) {
  for (auto it = nodes.rbegin(); it != nodes.rend(); ++it) {
    if (it->isSet) {
      out.push_back(StackEntry{&*it, true});
      Stack(it->children, out);
    }
    out.push_back(StackEntry{&*it, false});
  }
}

LayerNode* FindIn(std::vector<LayerNode>& nodes, int32_t layerId) {
  for (LayerNode& node : nodes) {
    if (IntegerOr(node.descriptor, CharId("LyrI"), -1) == layerId) return &node;
    if (LayerNode* inner = FindIn(node.children, layerId)) return inner;
  }
  return nullptr;
}

}  // namespace

std::vector<StackEntry> LayerStack(DocumentState& document) {
  std::vector<StackEntry> stack;
  Stack(document.layers, stack);
  return stack;
}

bool HasBackground(const DocumentState& document) {
  return !document.layers.empty() && !document.layers.back().isSet &&
         BooleanOr(document.layers.back().descriptor, CharId("Bckg"), false);
}

std::optional<std::pair<StackEntry, int>> FindLayerById(DocumentState& document, int32_t layerId) {
  std::vector<StackEntry> stack = LayerStack(document);
  for (size_t i = 0; i < stack.size(); ++i) {
    if (IntegerOr(stack[i].descriptor(), CharId("LyrI"), -1) == layerId) {
      return std::make_pair(stack[i], static_cast<int>(i) + 1);
    }
  }
  return std::nullopt;
}

LayerNode* FindNode(DocumentState& document, int32_t layerId) { return FindIn(document.layers, layerId); }

Value TargetLayerReference(int itemIndex) {
  Reference reference;
  reference.elements.push_back(RefElement{RefElement::Form::kIndex, CharId("Lyr "), 0, itemIndex - 1, {}});
  return Value::Ref(std::move(reference));
}

DocumentState* ActiveDocument(State& state) {
  if (state.activeDocument < 0 || state.activeDocument >= static_cast<int>(state.documents.size())) return nullptr;
  return &state.documents[static_cast<size_t>(state.activeDocument)];
}

DocumentState* DocumentBySerial(State& state, int serial) {
  for (DocumentState& document : state.documents) {
    if (document.serial == serial) return &document;
  }
  return nullptr;
}

int32_t IntegerOr(const Descriptor& descriptor, int32_t key, int32_t fallback) {
  const Value* value = descriptor.Find(key);
  return value && value->type == ValueType::kInteger ? static_cast<int32_t>(value->integer) : fallback;
}

bool BooleanOr(const Descriptor& descriptor, int32_t key, bool fallback) {
  const Value* value = descriptor.Find(key);
  return value && value->type == ValueType::kBoolean ? value->integer != 0 : fallback;
}

std::wstring StringOr(const Descriptor& descriptor, int32_t key, std::wstring fallback) {
  const Value* value = descriptor.Find(key);
  return value && value->type == ValueType::kString ? value->text : fallback;
}

std::optional<double> NumberOf(const Descriptor& descriptor, int32_t key) {
  const Value* value = descriptor.Find(key);
  if (!value) return std::nullopt;
  switch (value->type) {
    case ValueType::kInteger: return static_cast<double>(value->integer);
    case ValueType::kDouble:
    case ValueType::kUnitDouble: return value->number;
    default: return std::nullopt;
  }
}

}  // namespace ostrel::sim
