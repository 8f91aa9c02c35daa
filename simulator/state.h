// What the simulated Photoshop knows: the application, its open documents with their layers, channels, paths and
// history, fonts, notifiers and panels. Descriptors hold everything that Photoshop's Action Manager would give;
// the few fields beside them are what only the object model or the simulator itself needs.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "simulator/values.h"

namespace ostrel::sim {

// One entry of the layer panel. A layer set holds its children, top first, and the hidden entry that closes the
// set in the stack ("</Layer group>"), which has an index and an id of its own like every layer.
struct LayerNode {
  Descriptor descriptor;
  bool isSet = false;
  std::vector<LayerNode> children;
  Descriptor end;
};

struct DocumentState {
  int serial = 0;                          // identity for the object model's objects, unique in a session
  Descriptor descriptor;                   // the document's keys ("title", "width", "quickMask", ...)
  std::optional<std::wstring> fullName;    // none: never saved, and the object model's fullName fails
  double width = 0;                        // the object model's width and height
  double height = 0;
  std::vector<LayerNode> layers;           // the top level, top first
  int32_t activeLayerId = -1;              // layerID of the current layer, -1 for none
  std::vector<Descriptor> channels;        // by itemIndex, from 1
  std::optional<int> activeChannel;        // itemIndex of the current channel
  std::vector<Descriptor> paths;           // by itemIndex, from 1
  std::vector<Descriptor> history;         // by position, from 1
  int activeHistory = 0;                   // position of the current history state, 0 for none
  int historyBrushSource = 0;              // position of the history brush source, 0 for none
  std::optional<std::array<double, 4>> selection;  // left, top, right, bottom; none: no selection
};

struct Notifier {
  std::wstring event;
  std::wstring file;
  std::wstring eventClass;
};

struct ApplicationState {
  Descriptor descriptor;                   // every application key, "tool" and "currentToolOptions" among them
  std::map<std::wstring, Descriptor> toolOptions;  // options of tools that aren't current, by tool id
  std::wstring version;                    // the object model's version; empty: by the version created
  std::wstring path;                       // installation folder
  bool visible = true;
  std::vector<std::wstring> fonts;
  bool notifiersEnabled = false;
  std::vector<Notifier> notifiers;
  std::map<std::wstring, bool> panels;     // shown or not, by the panel name of uiInfo ("layers", ...)
  std::vector<std::wstring> refusedEvents; // events that executeAction refuses, by string id or char id
  std::map<std::wstring, Descriptor> toolDefaults;  // what a reset of all tool options gives back, by tool id
  std::map<std::wstring, std::vector<std::wstring>> presetDefaults;  // a preset library's defaults, by its key
};

// Behaviours that no public source settles, chosen by the scenario so that the library can be checked against
// each. Each is false by default, the simulator's original choice.
struct UnsettledBehaviour {
  bool charIdOfOtherLengthGivesMinusOne = false;  // charIDToTypeID of a text that isn't four characters fails
  bool integerOfBooleanFails = false;             // getInteger of a boolean gives 0 or 1
};

struct State {
  ApplicationState app;
  UnsettledBehaviour unsettled;
  std::vector<DocumentState> documents;
  int activeDocument = -1;                 // position in documents, -1 for none
  std::vector<int> reachableVersions = {110, 120, 130, 140, 150};
  std::vector<int> installedVersions;      // registered but not starting: creation fails to run the server
  std::wstring language = L"en_US";        // of Photoshop's error texts: "en_US" or "zh_CN"
  int nextSerial = 1;
};

// One place of a document's layer stack, from the bottom: the layer or the end entry of a set.
struct StackEntry {
  LayerNode* node = nullptr;
  bool isEnd = false;
  Descriptor& descriptor() const { return isEnd ? node->end : node->descriptor; }
};

// The stack from the bottom up; the itemIndex of entry i is i + 1.
std::vector<StackEntry> LayerStack(DocumentState& document);
bool HasBackground(const DocumentState& document);
// The entry with that layerID, with its itemIndex; nothing if none.
std::optional<std::pair<StackEntry, int>> FindLayerById(DocumentState& document, int32_t layerId);
// The layer node (set or layer, not an end entry) with that layerID, or null.
LayerNode* FindNode(DocumentState& document, int32_t layerId);

// The element that a document's targetLayers list holds for the layer at itemIndex: an index reference whose
// getIndex() + 1 is the itemIndex, with or without a background.
Value TargetLayerReference(int itemIndex);

DocumentState* ActiveDocument(State& state);
DocumentState* DocumentBySerial(State& state, int serial);

// Integer, boolean, string or number of a key of a descriptor, with a fallback when absent or of another type.
int32_t IntegerOr(const Descriptor& descriptor, int32_t key, int32_t fallback);
bool BooleanOr(const Descriptor& descriptor, int32_t key, bool fallback);
std::wstring StringOr(const Descriptor& descriptor, int32_t key, std::wstring fallback);
std::optional<double> NumberOf(const Descriptor& descriptor, int32_t key);  // integer, double or unit double

}  // namespace ostrel::sim
