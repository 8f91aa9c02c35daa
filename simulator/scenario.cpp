// Reading scenario files into the simulated state.
#include "simulator/scenario.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <set>
#include <sstream>

#include "platform/text.h"
#include "simulator/value_json.h"

namespace ostrel::sim {
namespace {

using Keys = std::initializer_list<const char*>;

constexpr int kKnownVersions[] = {110, 120, 130, 140, 150};

class Loader {
 public:
  Loader(TypeIds& ids, std::filesystem::path baseDir, std::string source)
      : m_ids(ids), m_baseDir(std::move(baseDir)), m_source(std::move(source)) {}

  State Load(const Json& root);

 private:
  [[noreturn]] void Fail(const std::string& pointer, const std::string& message) const {
    throw ScenarioError(m_source + ": at " + (pointer.empty() ? "/" : pointer) + ": " + message);
  }

  void ExpectKeys(const Json& object, Keys allowed, const std::string& pointer) const;
  void LoadDefaults(const Json& root, ApplicationState& app);
  const Json* Find(const Json& object, const char* key, Json::value_t type, const char* typeName,
                   const std::string& pointer) const;
  std::wstring Text(const Json& json, const std::string& pointer) const;
  int Integer(const Json& json, const std::string& pointer) const;

  Descriptor DescriptorSlot(const Json& slot, const std::string& pointer);
  Descriptor DescriptorFile(const std::string& reference, const std::string& pointer);
  void LoadApplication(const Json& root, State& state);
  void LoadUnsettled(const Json& root, State& state);
  std::function<double(double, double)> RulerUnits(const ApplicationState& app) const;
  DocumentState LoadDocument(const Json& json, const std::string& pointer, int serial,
                             const std::function<double(double, double)>& rulerUnits);
  LayerNode LoadLayer(const Json& json, const std::string& pointer);
  void NumberLayers(DocumentState& document, const std::string& pointer);
  void LoadSelectionOfLayers(const Json& json, DocumentState& document, const std::string& pointer);

  TypeIds& m_ids;
  std::filesystem::path m_baseDir;
  std::string m_source;
};

std::string TypeName(const Json& json) { return json.type_name(); }

// Line and column (from 1) of a byte position (from 1) of text.
std::pair<size_t, size_t> LineColumn(std::string_view text, size_t byte) {
  size_t line = 1, column = 1;
  for (size_t i = 0; i + 1 < byte && i < text.size(); ++i) {
    if (text[i] == '\n') {
      ++line;
      column = 1;
    } else {
      ++column;
    }
  }
  return {line, column};
}

Json ParseJson(std::string_view text, const std::string& source) {
  try {
    return Json::parse(text.begin(), text.end());
  } catch (const Json::parse_error& e) {
    const auto [line, column] = LineColumn(text, e.byte);
    std::string detail = e.what();
    if (auto colon = detail.find(": ", detail.find("column")); colon != std::string::npos) detail = detail.substr(colon + 2);
    throw ScenarioError(source + ":" + std::to_string(line) + ":" + std::to_string(column) + ": JSON syntax error: " +
                        detail);
  } catch (const Json::out_of_range& e) {
    // A number beyond a double (1e999): the reader names the number but not its place, so the first place where
    // that text stands is given.
    const std::string detail = e.what();
    const size_t quote = detail.find('\'');
    const std::string number = quote == std::string::npos ? "" : detail.substr(quote + 1, detail.rfind('\'') - quote - 1);
    const size_t at = number.empty() ? std::string_view::npos : text.find(number);
    std::string place = source;
    if (at != std::string_view::npos) {
      const auto [line, column] = LineColumn(text, at + 1);
      place += ":" + std::to_string(line) + ":" + std::to_string(column);
    }
    throw ScenarioError(place + ": JSON number out of range: " + number);
  }
}

// The text of a regular file; nothing for anything else (a folder, a device such as /dev/zero that would never
// end, a path that isn't there).
std::string ReadText(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return {};
  std::ifstream in(file, std::ios::binary);
  if (!in) return {};
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

void Loader::ExpectKeys(const Json& object, Keys allowed, const std::string& pointer) const {
  for (const auto& item : object.items()) {
    const std::string& name = item.key();  // a plain reference: clang 14 can't capture a structured binding
    if (std::none_of(allowed.begin(), allowed.end(), [&](const char* a) { return name == a; })) {
      Fail(PointerTo(pointer, name), "unknown key \"" + name + "\"");
    }
  }
}

const Json* Loader::Find(const Json& object, const char* key, Json::value_t type, const char* typeName,
                         const std::string& pointer) const {
  auto it = object.find(key);
  if (it == object.end()) return nullptr;
  const bool numberOk = type == Json::value_t::number_float && it->is_number();
  const bool integerOk = type == Json::value_t::number_integer && it->is_number_integer();
  if (it->type() != type && !numberOk && !integerOk) {
    Fail(PointerTo(pointer, key), std::string("must be ") + typeName + ", not " + TypeName(*it));
  }
  return &*it;
}

std::wstring Loader::Text(const Json& json, const std::string& pointer) const {
  if (!json.is_string()) Fail(pointer, "must be a string, not " + TypeName(json));
  return FromUtf8(json.get_ref<const std::string&>());
}

int Loader::Integer(const Json& json, const std::string& pointer) const {
  if (!json.is_number_integer()) Fail(pointer, "must be a whole number, not " + TypeName(json));
  return json.get<int>();
}

Descriptor Loader::DescriptorFile(const std::string& reference, const std::string& pointer) {
  const size_t hash = reference.find('#');
  const std::string fileName = reference.substr(0, hash);
  const std::filesystem::path file = m_baseDir / std::filesystem::path(std::u8string(fileName.begin(), fileName.end()));
  const std::string text = ReadText(file);
  if (text.empty()) Fail(pointer, "cannot read the descriptor file \"" + file.string() + "\"");
  const Json whole = ParseJson(text, file.string());
  const Json* part = &whole;
  if (hash != std::string::npos) {
    try {
      part = &whole.at(Json::json_pointer(reference.substr(hash + 1)));
    } catch (const Json::exception&) {
      Fail(pointer, "\"" + fileName + "\" has nothing at " + reference.substr(hash + 1));
    }
  }
  try {
    return DescriptorFromJson(*part, m_ids);
  } catch (const NotationError& e) {
    Fail(pointer, "in \"" + fileName + "\" at " + (e.pointer().empty() ? "/" : e.pointer()) + ": " + e.what());
  }
}

// A descriptor is given inline, as the name of a file (with "#" and a JSON pointer into it), or as a list of
// those, whose keys are merged in order.
Descriptor Loader::DescriptorSlot(const Json& slot, const std::string& pointer) {
  if (slot.is_string()) return DescriptorFile(slot.get<std::string>(), pointer);
  if (slot.is_array()) {
    Descriptor merged;
    for (size_t i = 0; i < slot.size(); ++i) {
      for (Entry& entry : DescriptorSlot(slot[i], PointerTo(pointer, i)).entries) {
        merged.Put(entry.key, std::move(entry.value));
      }
    }
    return merged;
  }
  if (!slot.is_object()) Fail(pointer, "a descriptor must be an object, a file name or a list of them, not " + TypeName(slot));
  try {
    return DescriptorFromJson(slot, m_ids, pointer);
  } catch (const NotationError& e) {
    Fail(e.pointer(), e.what());
  }
}

// The layer's own keys that the simulator reads must have their types.
void CheckLayerKeys(const Descriptor& descriptor, const std::function<void(const std::string&)>& fail) {
  const Value* id = descriptor.Find(CharId("LyrI"));
  if (id && id->type != ValueType::kInteger) fail("\"layerID\" must be an integer");
  const Value* name = descriptor.Find(CharId("Nm  "));
  if (name && name->type != ValueType::kString) fail("\"name\" must be a string");
  const Value* background = descriptor.Find(CharId("Bckg"));
  if (background && background->type != ValueType::kBoolean) fail("\"background\" must be a boolean");
  const Value* index = descriptor.Find(CharId("ItmI"));
  if (index && index->type != ValueType::kInteger) fail("\"itemIndex\" must be an integer");
}

LayerNode Loader::LoadLayer(const Json& json, const std::string& pointer) {
  if (!json.is_object()) Fail(pointer, "a layer must be an object with \"descriptor\", not " + TypeName(json));
  ExpectKeys(json, {"descriptor", "layers", "end"}, pointer);
  if (!json.contains("descriptor")) Fail(pointer, "a layer needs \"descriptor\"");
  LayerNode node;
  node.descriptor = DescriptorSlot(json["descriptor"], PointerTo(pointer, "descriptor"));
  CheckLayerKeys(node.descriptor, [&](const std::string& m) { Fail(PointerTo(pointer, "descriptor"), m); });
  if (const Json* children = Find(json, "layers", Json::value_t::array, "a list", pointer)) {
    node.isSet = true;
    for (size_t i = 0; i < children->size(); ++i) {
      node.children.push_back(LoadLayer((*children)[i], PointerTo(PointerTo(pointer, "layers"), i)));
    }
    if (json.contains("end")) {
      node.end = DescriptorSlot(json["end"], PointerTo(pointer, "end"));
      CheckLayerKeys(node.end, [&](const std::string& m) { Fail(PointerTo(pointer, "end"), m); });
    } else {
      node.end.Put(CharId("Nm  "), Value::String(L"</Layer group>"));
      node.end.Put(m_ids.StringIdToTypeId(L"layerSection"),
                   Value::Enumerated(m_ids.StringIdToTypeId(L"layerSectionType"), m_ids.StringIdToTypeId(L"layerSectionEnd")));
      node.end.Put(m_ids.StringIdToTypeId(L"layerKind"), Value::Integer(13));
    }
  } else if (json.contains("end")) {
    Fail(PointerTo(pointer, "end"), "only a layer set (with \"layers\") has an end");
  }
  return node;
}

// Gives every entry of the stack a layerID (keeping those given, which must differ) and checks the place of the
// background. itemIndex isn't checked: reads give the place in the stack, whatever a pasted descriptor says.
void Loader::NumberLayers(DocumentState& document, const std::string& pointer) {
  std::vector<StackEntry> stack = LayerStack(document);
  std::set<int32_t> ids;
  int32_t highest = 0;
  for (const StackEntry& entry : stack) {
    const int32_t id = IntegerOr(entry.descriptor(), CharId("LyrI"), -1);
    if (id < 0) continue;
    if (!ids.insert(id).second) Fail(PointerTo(pointer, "layers"), "two layers have the layerID " + std::to_string(id));
    highest = std::max(highest, id);
  }
  for (size_t i = 0; i < stack.size(); ++i) {
    Descriptor& descriptor = stack[i].descriptor();
    if (!descriptor.Find(CharId("LyrI"))) descriptor.Put(CharId("LyrI"), Value::Integer(++highest));
    const bool background = BooleanOr(descriptor, CharId("Bckg"), false);
    if (background && (stack[i].isEnd || &document.layers.back() != stack[i].node)) {
      Fail(PointerTo(pointer, "layers"), "only the lowest layer of the top level can be the background");
    }
  }
}

void Loader::LoadSelectionOfLayers(const Json& json, DocumentState& document, const std::string& pointer) {
  if (const Json* active = Find(json, "activeLayer", Json::value_t::number_integer, "a layerID", pointer)) {
    document.activeLayerId = Integer(*active, PointerTo(pointer, "activeLayer"));
    if (!FindNode(document, document.activeLayerId)) {
      Fail(PointerTo(pointer, "activeLayer"), "no layer has the layerID " + std::to_string(document.activeLayerId));
    }
  } else if (!document.layers.empty()) {
    document.activeLayerId = IntegerOr(document.layers.front().descriptor, CharId("LyrI"), -1);
  }
  // targetLayers: the layers listed; null for none targeted (after Deselect Layers, where reading the key fails);
  // otherwise the descriptor's own, or else the current layer, which Photoshop always holds targeted.
  const int32_t targetLayers = m_ids.StringIdToTypeId(L"targetLayers");
  if (auto it = json.find("selectedLayers"); it != json.end() && it->is_null()) {
    document.descriptor.Remove(targetLayers);
    return;
  }
  const Json* selected = Find(json, "selectedLayers", Json::value_t::array, "a list of layerIDs or null", pointer);
  if (!selected) {
    const auto active = FindLayerById(document, document.activeLayerId);
    if (active && !document.descriptor.Find(targetLayers)) {
      document.descriptor.Put(targetLayers, Value::List({TargetLayerReference(active->second)}));
    }
    return;
  }
  std::vector<Value> references;
  for (size_t i = 0; i < selected->size(); ++i) {
    const std::string at = PointerTo(PointerTo(pointer, "selectedLayers"), i);
    const int32_t id = Integer((*selected)[i], at);
    const auto found = FindLayerById(document, id);
    if (!found || found->first.isEnd) Fail(at, "no layer has the layerID " + std::to_string(id));
    references.push_back(TargetLayerReference(found->second));
  }
  document.descriptor.Put(targetLayers, Value::List(std::move(references)));
}

// The size in pixels of the descriptor's width or height (points at 72 per inch, or pixels).
double Pixels(const Descriptor& descriptor, int32_t key) {
  const Value* value = descriptor.Find(key);
  if (!value) return 0;
  if (value->type == ValueType::kUnitDouble && value->typeId == CharId("#Rlt")) {
    return value->number * NumberOf(descriptor, CharId("Rslt")).value_or(72.0) / 72.0;
  }
  return NumberOf(descriptor, key).value_or(0);
}

// A length in pixels at a resolution (pixels per inch) in the application's ruler units: "rulerUnits" of its
// "unitsPrefs", or its own "rulerUnits"; pixels without either. A size in percent is the whole document's, 100.
std::function<double(double, double)> Loader::RulerUnits(const ApplicationState& app) const {
  const Value* units = nullptr;
  if (const Value* prefs = app.descriptor.Find(m_ids.StringIdToTypeId(L"unitsPrefs"));
      prefs && prefs->type == ValueType::kObject) {
    units = prefs->object.Find(CharId("RlrU"));
  }
  if (!units) units = app.descriptor.Find(CharId("RlrU"));
  if (!units) return [](double pixels, double) { return pixels; };
  const std::wstring name = units->type == ValueType::kEnumerated ? m_ids.TypeIdToStringId(units->enumValue) : L"";
  struct Unit {
    const wchar_t* name;
    double perInch;  // 0: pixels
  };
  constexpr Unit kUnits[] = {{L"rulerPixels", 0},         {L"rulerInches", 1},  {L"rulerCm", 2.54},
                             {L"rulerMillimeters", 25.4}, {L"rulerPoints", 72}, {L"rulerPicas", 6}};
  if (name == L"rulerPercent") return [](double, double) { return 100.0; };
  for (const Unit& unit : kUnits) {
    if (name != unit.name) continue;
    if (unit.perInch == 0) return [](double pixels, double) { return pixels; };
    return [perInch = unit.perInch](double pixels, double resolution) { return pixels / resolution * perInch; };
  }
  Fail("/application",
       "\"rulerUnits\" must be one of rulerPixels, rulerInches, rulerCm, rulerMillimeters, rulerPoints, "
       "rulerPicas, rulerPercent");
}

DocumentState Loader::LoadDocument(const Json& json, const std::string& pointer, int serial,
                                   const std::function<double(double, double)>& rulerUnits) {
  if (!json.is_object()) Fail(pointer, "a document must be an object, not " + TypeName(json));
  ExpectKeys(json, {"descriptor", "fullName", "width", "height", "layers", "activeLayer", "selectedLayers", "channels",
                    "activeChannel", "paths", "history", "activeHistoryState", "historyBrushSource", "selection"},
             pointer);
  DocumentState document;
  document.serial = serial;
  if (json.contains("descriptor")) document.descriptor = DescriptorSlot(json["descriptor"], PointerTo(pointer, "descriptor"));
  if (const Value* title = document.descriptor.Find(CharId("Ttl ")); title && title->type != ValueType::kString) {
    Fail(PointerTo(pointer, "descriptor"), "\"title\" must be a string");
  }
  if (json.contains("fullName")) document.fullName = Text(json["fullName"], PointerTo(pointer, "fullName"));
  const Json* width = Find(json, "width", Json::value_t::number_float, "a number", pointer);
  const Json* height = Find(json, "height", Json::value_t::number_float, "a number", pointer);
  // The object model gives the size in the ruler units: given so, or converted from the descriptor's.
  const double resolution = NumberOf(document.descriptor, CharId("Rslt")).value_or(72.0);
  const auto inRulerUnits = [&](int32_t key) { return rulerUnits(Pixels(document.descriptor, key), resolution); };
  document.width = width ? width->get<double>() : inRulerUnits(CharId("Wdth"));
  document.height = height ? height->get<double>() : inRulerUnits(CharId("Hght"));
  if (const Json* layers = Find(json, "layers", Json::value_t::array, "a list", pointer)) {
    for (size_t i = 0; i < layers->size(); ++i) {
      document.layers.push_back(LoadLayer((*layers)[i], PointerTo(PointerTo(pointer, "layers"), i)));
    }
  }
  NumberLayers(document, pointer);
  LoadSelectionOfLayers(json, document, pointer);
  const std::pair<const char*, std::vector<Descriptor>*> lists[] = {
      {"channels", &document.channels}, {"paths", &document.paths}, {"history", &document.history}};
  for (const auto& [key, target] : lists) {
    if (const Json* items = Find(json, key, Json::value_t::array, "a list", pointer)) {
      for (size_t i = 0; i < items->size(); ++i) {
        target->push_back(DescriptorSlot((*items)[i], PointerTo(PointerTo(pointer, key), i)));
      }
    }
  }
  const auto position = [&](const char* key, size_t count, int fallback) {
    const Json* value = Find(json, key, Json::value_t::number_integer, "a whole number", pointer);
    if (!value) return fallback;
    const int n = Integer(*value, PointerTo(pointer, key));
    if (n < 0 || n > static_cast<int>(count)) {
      Fail(PointerTo(pointer, key), "there is no " + std::to_string(n) + " among " + std::to_string(count));
    }
    return n;
  };
  const int channel = position("activeChannel", document.channels.size(), 0);
  if (channel > 0) document.activeChannel = channel;
  document.activeHistory = position("activeHistoryState", document.history.size(), static_cast<int>(document.history.size()));
  document.historyBrushSource = position("historyBrushSource", document.history.size(), document.history.empty() ? 0 : 1);
  if (json.contains("selection") && !json["selection"].is_null()) {
    const Json& rect = json["selection"];
    if (!rect.is_array() || rect.size() != 4 || !std::all_of(rect.begin(), rect.end(), [](const Json& v) { return v.is_number(); })) {
      Fail(PointerTo(pointer, "selection"), "must be four numbers (left, top, right, bottom) or null");
    }
    document.selection = std::array<double, 4>{rect[0].get<double>(), rect[1].get<double>(), rect[2].get<double>(),
                                               rect[3].get<double>()};
  }
  return document;
}

std::vector<int> Versions(const Json& list, const std::string& pointer,
                          const std::function<void(const std::string&, const std::string&)>& fail) {
  std::vector<int> versions;
  for (size_t i = 0; i < list.size(); ++i) {
    const std::string at = PointerTo(pointer, i);
    if (!list[i].is_number_integer()) fail(at, "a version must be a whole number");
    const int version = list[i].get<int>();
    if (std::find(std::begin(kKnownVersions), std::end(kKnownVersions), version) == std::end(kKnownVersions)) {
      fail(at, "no Photoshop version " + std::to_string(version) + " (110, 120, 130, 140 or 150)");
    }
    versions.push_back(version);
  }
  return versions;
}

Value Colour(double red, double green, double blue) {
  Descriptor colour;
  colour.Put(CharId("Rd  "), Value::Double(red));
  colour.Put(CharId("Grn "), Value::Double(green));
  colour.Put(CharId("Bl  "), Value::Double(blue));
  return Value::Object(CharId("RGBC"), std::move(colour));
}

void Loader::LoadApplication(const Json& root, State& state) {
  ApplicationState& app = state.app;
  if (root.contains("application")) app.descriptor = DescriptorSlot(root["application"], "/application");
  if (const Json* options = Find(root, "toolOptions", Json::value_t::object, "an object", "")) {
    for (const auto& [tool, slot] : options->items()) {
      app.toolOptions[FromUtf8(tool)] = DescriptorSlot(slot, PointerTo("/toolOptions", tool));
    }
  }
  const Value* tool = app.descriptor.Find(CharId("Tool"));
  if (tool && tool->type != ValueType::kEnumerated) Fail("/application", "\"tool\" must be an enumerated value");
  if (tool && !app.descriptor.Find(CharId("CrnT"))) {
    auto it = app.toolOptions.find(m_ids.TypeIdToStringId(tool->typeId));
    app.descriptor.Put(CharId("CrnT"),
                       Value::Object(CharId("CrnT"), it == app.toolOptions.end() ? Descriptor{} : it->second));
  }
  if (!app.descriptor.Find(CharId("FrgC"))) app.descriptor.Put(CharId("FrgC"), Colour(0, 0, 0));
  if (!app.descriptor.Find(CharId("BckC"))) app.descriptor.Put(CharId("BckC"), Colour(255, 255, 255));
  if (root.contains("version")) app.version = Text(root["version"], "/version");
  if (root.contains("path")) app.path = Text(root["path"], "/path");
  if (const Json* visible = Find(root, "visible", Json::value_t::boolean, "true or false", "")) app.visible = visible->get<bool>();
  if (const Json* fonts = Find(root, "fonts", Json::value_t::array, "a list of names", "")) {
    for (size_t i = 0; i < fonts->size(); ++i) app.fonts.push_back(Text((*fonts)[i], PointerTo("/fonts", i)));
  }
  if (const Json* enabled = Find(root, "notifiersEnabled", Json::value_t::boolean, "true or false", "")) {
    app.notifiersEnabled = enabled->get<bool>();
  }
  if (const Json* notifiers = Find(root, "notifiers", Json::value_t::array, "a list", "")) {
    for (size_t i = 0; i < notifiers->size(); ++i) {
      const Json& n = (*notifiers)[i];
      const std::string at = PointerTo("/notifiers", i);
      if (!n.is_object()) Fail(at, "a notifier must be an object");
      ExpectKeys(n, {"event", "file", "class"}, at);
      app.notifiers.push_back(Notifier{n.contains("event") ? Text(n["event"], PointerTo(at, "event")) : L"",
                                       n.contains("file") ? Text(n["file"], PointerTo(at, "file")) : L"",
                                       n.contains("class") ? Text(n["class"], PointerTo(at, "class")) : L""});
    }
  }
  if (const Json* panels = Find(root, "panels", Json::value_t::object, "an object", "")) {
    for (const auto& [name, shown] : panels->items()) {
      if (!shown.is_boolean()) Fail(PointerTo("/panels", name), "must be true or false");
      app.panels[FromUtf8(name)] = shown.get<bool>();
    }
  }
  if (const Json* refused = Find(root, "refusedEvents", Json::value_t::array, "a list of event names", "")) {
    for (size_t i = 0; i < refused->size(); ++i) {
      app.refusedEvents.push_back(Text((*refused)[i], PointerTo("/refusedEvents", i)));
    }
  }
  LoadDefaults(root, app);
}

// What reset gives back: "toolOptions" by tool id, "presets" (lists of names) by the preset library's key.
void Loader::LoadDefaults(const Json& root, ApplicationState& app) {
  const Json* defaults = Find(root, "defaults", Json::value_t::object, "an object", "");
  if (!defaults) return;
  ExpectKeys(*defaults, {"toolOptions", "presets"}, "/defaults");
  if (const Json* options = Find(*defaults, "toolOptions", Json::value_t::object, "an object", "/defaults")) {
    for (const auto& [tool, slot] : options->items()) {
      app.toolDefaults[FromUtf8(tool)] = DescriptorSlot(slot, PointerTo("/defaults/toolOptions", tool));
    }
  }
  if (const Json* presets = Find(*defaults, "presets", Json::value_t::object, "an object", "/defaults")) {
    for (const auto& [key, names] : presets->items()) {
      const std::string at = PointerTo("/defaults/presets", key);
      if (!names.is_array()) Fail(at, "must be a list of names");
      std::vector<std::wstring>& list = app.presetDefaults[FromUtf8(key)];
      for (size_t i = 0; i < names.size(); ++i) list.push_back(Text(names[i], PointerTo(at, i)));
    }
  }
}

// Each unsettled behaviour is named by one of its two words; the first is the default.
void Loader::LoadUnsettled(const Json& root, State& state) {
  const Json* unsettled = Find(root, "unsettled", Json::value_t::object, "an object", "");
  if (!unsettled) return;
  struct Choice {
    const char* key;
    const char* first;
    const char* second;
    bool* secondChosen;
  };
  const Choice choices[] = {
      {"charIDToTypeIDOfOtherLength", "fails", "minusOne", &state.unsettled.charIdOfOtherLengthGivesMinusOne},
      {"getIntegerOfBoolean", "zeroOrOne", "fails", &state.unsettled.integerOfBooleanFails},
  };
  for (const auto& item : unsettled->items()) {
    const std::string& key = item.key();  // a plain reference: clang 14 can't capture a structured binding
    const Json& value = item.value();
    const std::string at = PointerTo("/unsettled", key);
    const auto choice =
        std::find_if(std::begin(choices), std::end(choices), [&](const Choice& c) { return key == c.key; });
    if (choice == std::end(choices)) Fail(at, "unknown key \"" + key + "\"");
    const std::string word = value.is_string() ? value.get<std::string>() : "";
    if (word != choice->first && word != choice->second) {
      Fail(at, std::string("must be \"") + choice->first + "\" or \"" + choice->second + "\"");
    }
    *choice->secondChosen = word == choice->second;
  }
}

State Loader::Load(const Json& root) {
  if (!root.is_object()) Fail("", "a scenario must be a JSON object, not " + TypeName(root));
  ExpectKeys(root,
             {"versions", "installedVersions", "language", "application", "toolOptions", "version", "path", "visible",
              "fonts", "notifiersEnabled", "notifiers", "panels", "refusedEvents", "documents", "activeDocument",
              "unsettled", "defaults", "comment"},
             "");
  State state;
  const auto fail = [this](const std::string& at, const std::string& message) { Fail(at, message); };
  if (const Json* versions = Find(root, "versions", Json::value_t::array, "a list", "")) {
    state.reachableVersions = Versions(*versions, "/versions", fail);
  }
  if (const Json* installed = Find(root, "installedVersions", Json::value_t::array, "a list", "")) {
    state.installedVersions = Versions(*installed, "/installedVersions", fail);
  }
  if (root.contains("language")) {
    state.language = Text(root["language"], "/language");
    if (state.language != L"en_US" && state.language != L"zh_CN") Fail("/language", "must be \"en_US\" or \"zh_CN\"");
  }
  LoadApplication(root, state);
  LoadUnsettled(root, state);
  if (const Json* documents = Find(root, "documents", Json::value_t::array, "a list", "")) {
    const auto rulerUnits = RulerUnits(state.app);
    for (size_t i = 0; i < documents->size(); ++i) {
      state.documents.push_back(
          LoadDocument((*documents)[i], PointerTo("/documents", i), state.nextSerial++, rulerUnits));
    }
  }
  state.activeDocument = state.documents.empty() ? -1 : 0;
  if (const Json* active = Find(root, "activeDocument", Json::value_t::number_integer, "a whole number", "")) {
    const int n = Integer(*active, "/activeDocument");
    if (n < 0 || n > static_cast<int>(state.documents.size())) {
      Fail("/activeDocument", "there is no document " + std::to_string(n));
    }
    state.activeDocument = n - 1;
  }
  return state;
}

}  // namespace

Scenario ParseScenario(std::string_view json, const std::filesystem::path& baseDir, const std::string& sourceName) {
  Scenario scenario;
  Loader loader(scenario.ids, baseDir, sourceName);
  scenario.state = loader.Load(ParseJson(json, sourceName));
  return scenario;
}

Scenario LoadScenarioFile(const std::filesystem::path& file) {
  std::error_code error;
  if (std::filesystem::is_directory(file, error)) throw ScenarioError(file.string() + ": is a folder, not a scenario file");
  std::ifstream in(file, std::ios::binary);
  if (!in || !std::filesystem::is_regular_file(file, error)) throw ScenarioError(file.string() + ": cannot read the file");
  return ParseScenario(ReadText(file), file.parent_path(), file.string());
}

}  // namespace ostrel::sim
