#include "generated_documents.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <random>
#include <vector>

namespace ostrel::test {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kArtDescriptors[] = {
    "realdata/ps2015.5_layer_pixel_uidna.uxp.json",
    "realdata/ps2015.5_layer_pixel_effects_uidna.uxp.json",
    "realdata/ps2017_layer_text_uidna.uxp.json",
    "realdata/ps2017_layer_shape_vectormask_uidna.uxp.json",
    "realdata/ps2017_layer_smartobject_embedded_uidna.uxp.json",
};
constexpr const char* kGroupDescriptor = "realdata/ps2017_layer_group_uidna.uxp.json";
constexpr const char* kBackgroundDescriptor = "realdata/ps27.3_layer_background_uxptoolkit.uxp.json";
// Few names, so that names repeat across the stack and across levels.
constexpr const char* kNames[] = {"图层 1", "图层 2", "Layer 1", "阴影", "组 1", "Shape"};

Json Mode(const char* mode) { return Json{{"_enum", "blendMode"}, {"_value", mode}}; }

struct Node {
  Json overrides;
  const char* file = nullptr;
  bool group = false;
  std::vector<int> children;  // node numbers, from the top of the group
  bool endPassesThrough = false;
};

Json ToScenario(const std::vector<Node>& nodes, int number) {
  const Node& node = nodes[static_cast<size_t>(number)];
  Json layer;
  layer["descriptor"] = Json::array({node.file, node.overrides});
  if (node.group) {
    layer["layers"] = Json::array();
    for (int child : node.children) layer["layers"].push_back(ToScenario(nodes, child));
    if (node.endPassesThrough) {
      layer["end"] = Json{{"name", "</Layer group>"}, {"mode", Mode("passThrough")},
                          {"layerSection", Json{{"_enum", "layerSectionType"}, {"_value", "layerSectionEnd"}}},
                          {"layerKind", 13}};
    }
  }
  return layer;
}

}  // namespace

std::string GeneratedDocument(const DocumentShape& shape) {
  std::mt19937 random(shape.seed);
  const auto chance = [&](int percent) { return static_cast<int>(random() % 100) < percent; };
  const auto pick = [&](size_t count) { return static_cast<size_t>(random() % count); };

  // Node 0 is the document's top level; groups take the next numbers and hang in the top level or an earlier
  // group, so that groups nest; then the art layers hang anywhere.
  std::vector<Node> nodes(1);
  nodes[0].group = true;
  int nextId = 100;
  const int art = std::max(0, shape.layers - shape.groups - (shape.background ? 1 : 0));
  for (int g = 0; g < shape.groups; ++g) {
    Node group;
    group.group = true;
    group.file = kGroupDescriptor;
    group.overrides = Json{{"name", kNames[pick(std::size(kNames))]}, {"layerID", nextId++}};
    if (chance(30)) group.overrides["mode"] = Mode("normal");  // a group that doesn't pass through
    if (chance(30)) group.overrides["visible"] = false;
    group.endPassesThrough = chance(30);
    nodes.push_back(group);
    const int parent = static_cast<int>(pick(nodes.size() - 1));
    nodes[static_cast<size_t>(parent)].children.push_back(static_cast<int>(nodes.size() - 1));
  }
  for (int a = 0; a < art; ++a) {
    Node layer;
    layer.file = kArtDescriptors[pick(std::size(kArtDescriptors))];
    layer.overrides = Json{{"name", kNames[pick(std::size(kNames))]}, {"layerID", nextId++}};
    if (chance(30)) layer.overrides["visible"] = false;
    if (chance(20)) layer.overrides["hasUserMask"] = true;
    if (chance(20)) layer.overrides["userMaskEnabled"] = chance(50);
    if (chance(10)) layer.overrides["mode"] = Mode(chance(50) ? "multiply" : "passThrough");
    if (chance(15)) layer.overrides["group"] = true;  // clipped to the layer below
    nodes.push_back(layer);
    const size_t groupsAndTop = static_cast<size_t>(shape.groups) + 1;
    const int parent = chance(25) ? 0 : static_cast<int>(pick(groupsAndTop));
    auto& children = nodes[static_cast<size_t>(parent)].children;
    children.insert(children.begin() + static_cast<long>(pick(children.size() + 1)), static_cast<int>(nodes.size() - 1));
  }

  Json document;
  document["descriptor"] = Json{{"title", "generated.psd"}};
  Json layers = Json::array();
  for (int child : nodes[0].children) layers.push_back(ToScenario(nodes, child));
  if (shape.background) {
    layers.push_back(Json{{"descriptor", Json::array({kBackgroundDescriptor, Json{{"name", "背景"}, {"layerID", 1}}})}});
  }
  document["layers"] = layers;
  // The selection: a few art layers, none (no targetLayers at all), or the simulator's default (the top layer).
  std::vector<int> artIds;
  for (size_t n = 1; n < nodes.size(); ++n) {
    if (!nodes[n].group) artIds.push_back(nodes[n].overrides["layerID"].get<int>());
  }
  const int selection = static_cast<int>(random() % 10);
  if (!shape.randomSelection) {
    // the simulator's default selection
  } else if (selection == 0) {
    document["selectedLayers"] = nullptr;
  } else if (selection < 7 && !artIds.empty()) {
    Json selected = Json::array();
    std::shuffle(artIds.begin(), artIds.end(), random);
    for (size_t i = 0; i < std::min<size_t>(artIds.size(), 1 + pick(3)); ++i) selected.push_back(artIds[i]);
    document["selectedLayers"] = selected;
  }
  return Json{{"language", "zh_CN"}, {"documents", Json::array({document})}}.dump();
}

}  // namespace ostrel::test
