// The object model's objects and collections.
#include "simulator/object_model.h"

#include <cmath>
#include <cstdio>

#include "frame/dispids.h"
#include "platform/text.h"
#include "simulator/commands.h"

namespace ostrel::sim {
namespace {

using Args = std::span<const Variant>;
constexpr InvokeKind kMethod = InvokeKind::kMethod;
constexpr InvokeKind kGet = InvokeKind::kPropertyGet;
constexpr InvokeKind kPut = InvokeKind::kPropertyPut;
namespace om = dispid::obj;

// Photoshop's BlendMode enumeration of the object model, by the string id of the layer's "mode".
struct BlendModeRow {
  const wchar_t* stringId;
  int32_t number;
};
constexpr BlendModeRow kBlendModes[] = {
    {L"passThrough", 1},
    {L"normal", 2},
    {L"dissolve", 3},
    {L"darken", 4},
    {L"multiply", 5},
    {L"colorBurn", 6},
    {L"linearBurn", 7},
    {L"lighten", 8},
    {L"screen", 9},
    {L"colorDodge", 10},
    {L"linearDodge", 11},
    {L"overlay", 12},
    {L"softLight", 13},
    {L"hardLight", 14},
    {L"vividLight", 15},
    {L"linearLight", 16},
    {L"pinLight", 17},
    {L"difference", 18},
    {L"exclusion", 19},
    {L"hue", 20},
    {L"saturation", 21},
    {L"color", 22},
    {L"luminosity", 23},
    {L"hardMix", 26},
    {L"lighterColor", 27},
    {L"darkerColor", 28},
    {L"blendSubtraction", 29},
    {L"blendDivide", 30},
};

DocumentState& DocumentOf(Session& session, int serial) {
  DocumentState* document = DocumentBySerial(session.state, serial);
  if (!document) ThrowNoSuchElement(session);
  return *document;
}

Variant Bounds(std::array<double, 4> rect) {
  return Variant::Array({Variant::R8(rect[0]), Variant::R8(rect[1]), Variant::R8(rect[2]), Variant::R8(rect[3])});
}

// ---- Collections -------------------------------------------------------------------------------------------

class CollectionObject : public SimObjectOf<CollectionObject> {
 public:
  enum class Kind { kDocuments, kArtLayers, kLayerSets, kChannels, kPathItems, kHistoryStates, kFonts, kNotifiers };
  CollectionObject(std::shared_ptr<Session> session, Kind kind, int serial = 0, int32_t parentSet = -1)
      : SimObjectOf(std::move(session), "Collection"), m_kind(kind), m_serial(serial), m_parentSet(parentSet) {}
  static std::span<const Member<CollectionObject>> Members();

  int32_t Count();
  DispatchPtr Item(int32_t position);
  Kind kind() const noexcept { return m_kind; }
  int serial() const noexcept { return m_serial; }

 private:
  // The layers of the collection's level: the document's top level or a set's children.
  std::vector<LayerNode*> Layers(bool sets);

  Kind m_kind;
  int m_serial;
  int32_t m_parentSet;  // layerID of the set whose layers these are, -1 for the document's top level
};

// ---- Objects that stand for one element ----------------------------------------------------------------------

class DocumentObject : public SimObjectOf<DocumentObject> {
 public:
  DocumentObject(std::shared_ptr<Session> session, int serial)
      : SimObjectOf(std::move(session), "Document"), m_serial(serial) {}
  static std::span<const Member<DocumentObject>> Members();
  DocumentState& document() { return DocumentOf(session(), m_serial); }
  int serial() const noexcept { return m_serial; }

 private:
  int m_serial;
};

class LayerObject : public SimObjectOf<LayerObject> {
 public:
  LayerObject(std::shared_ptr<Session> session, int serial, int32_t layerId)
      : SimObjectOf(std::move(session), "Layer"), m_serial(serial), m_layerId(layerId) {}
  static std::span<const Member<LayerObject>> Members();

  DocumentState& document() { return DocumentOf(session(), m_serial); }
  LayerNode& node() {
    LayerNode* node = FindNode(document(), m_layerId);
    if (!node) ThrowNoSuchElement(session());
    return *node;
  }
  const Descriptor& descriptor() { return node().descriptor; }
  int serial() const noexcept { return m_serial; }
  int32_t layerId() const noexcept { return m_layerId; }

 private:
  int m_serial;
  int32_t m_layerId;
};

// A history state, channel or path item: an element of a document's list, by its position from 1.
class ListedObject : public SimObjectOf<ListedObject> {
 public:
  enum class Kind { kHistoryState, kChannel, kPathItem };
  ListedObject(std::shared_ptr<Session> session, Kind kind, int serial, int32_t position)
      : SimObjectOf(std::move(session), "Element"), m_kind(kind), m_serial(serial), m_position(position) {}
  static std::span<const Member<ListedObject>> Members();

  const Descriptor& descriptor() {
    std::vector<Descriptor>& items = List(DocumentOf(session(), m_serial));
    if (m_position < 1 || m_position > static_cast<int32_t>(items.size())) ThrowNoSuchElement(session());
    return items[static_cast<size_t>(m_position - 1)];
  }
  int32_t NameKey() const {
    return m_kind == Kind::kChannel ? CharId("ChnN") : m_kind == Kind::kPathItem ? CharId("PthN") : CharId("Nm  ");
  }
  std::vector<Descriptor>& List(DocumentState& document) const {
    return m_kind == Kind::kHistoryState ? document.history
           : m_kind == Kind::kChannel    ? document.channels
                                         : document.paths;
  }
  Kind kind() const noexcept { return m_kind; }
  int serial() const noexcept { return m_serial; }
  int32_t position() const noexcept { return m_position; }

 private:
  Kind m_kind;
  int m_serial;
  int32_t m_position;
};

class SelectionObject : public SimObjectOf<SelectionObject> {
 public:
  SelectionObject(std::shared_ptr<Session> session, int serial)
      : SimObjectOf(std::move(session), "Selection"), m_serial(serial) {}
  static std::span<const Member<SelectionObject>> Members();
  DocumentState& document() { return DocumentOf(session(), m_serial); }

 private:
  int m_serial;
};

class FontObject : public SimObjectOf<FontObject> {
 public:
  FontObject(std::shared_ptr<Session> session, std::wstring name)
      : SimObjectOf(std::move(session), "TextFont"), m_name(std::move(name)) {}
  static std::span<const Member<FontObject>> Members();
  const std::wstring& name() const noexcept { return m_name; }

 private:
  std::wstring m_name;
};

class NotifierObject : public SimObjectOf<NotifierObject> {
 public:
  NotifierObject(std::shared_ptr<Session> session, Notifier notifier)
      : SimObjectOf(std::move(session), "Notifier"), m_notifier(std::move(notifier)) {}
  static std::span<const Member<NotifierObject>> Members() { return {}; }

 private:
  Notifier m_notifier;
};

// RGBColor and SolidColor are values: each holds its own copy of the three channels (0 to 255).
class RgbColorObject : public SimObjectOf<RgbColorObject> {
 public:
  RgbColorObject(std::shared_ptr<Session> session, std::array<double, 3> rgb)
      : SimObjectOf(std::move(session), "RGBColor"), m_rgb(rgb) {}
  static std::span<const Member<RgbColorObject>> Members();
  std::array<double, 3>& rgb() noexcept { return m_rgb; }

 private:
  std::array<double, 3> m_rgb;
};

class SolidColorObject : public SimObjectOf<SolidColorObject> {
 public:
  SolidColorObject(std::shared_ptr<Session> session, std::array<double, 3> rgb)
      : SimObjectOf(std::move(session), "SolidColor"), m_rgb(rgb) {}
  static std::span<const Member<SolidColorObject>> Members();
  std::array<double, 3>& rgb() noexcept { return m_rgb; }

 private:
  std::array<double, 3> m_rgb;
};

// ---- Layer properties ------------------------------------------------------------------------------------------

double Percent(const Descriptor& descriptor, int32_t key) {
  return NumberOf(descriptor, key).value_or(255.0) * 100.0 / 255.0;
}

bool Locked(Session& session, const Descriptor& descriptor, const wchar_t* key) {
  const Value* locking = descriptor.Find(session.Key(L"layerLocking"));
  return locking && locking->type == ValueType::kObject && BooleanOr(locking->object, session.Key(key), false);
}

Variant LayerBounds(Session& session, const Descriptor& descriptor) {
  const Value* bounds = descriptor.Find(session.Key(L"bounds"));
  if (!bounds || bounds->type != ValueType::kObject) return Bounds({0, 0, 0, 0});
  const Descriptor& rect = bounds->object;
  return Bounds({NumberOf(rect, CharId("Left")).value_or(0), NumberOf(rect, CharId("Top ")).value_or(0),
                 NumberOf(rect, CharId("Rght")).value_or(0), NumberOf(rect, CharId("Btom")).value_or(0)});
}

Variant BlendMode(Session& session, const Descriptor& descriptor) {
  const Value* mode = descriptor.Find(CharId("Md  "));
  const std::wstring name = mode && mode->type == ValueType::kEnumerated ? session.ids.TypeIdToStringId(mode->enumValue)
                                                                        : std::wstring(L"normal");
  for (const BlendModeRow& row : kBlendModes) {
    if (name == row.stringId) return Variant::I4(row.number);
  }
  ThrowGeneralError(L"The blend mode \u201c" + name + L"\u201d has no number in the object model.");
}

DispatchPtr Layers(LayerObject& self, CollectionObject::Kind kind) {
  if (!self.node().isSet) throw AutomationError(kDispENotFound, L"Member not found.");
  return std::make_shared<CollectionObject>(self.sessionPtr(), kind, self.serial(), self.layerId());
}

using LO = LayerObject;
const Member<LO> kLayerMembers[] = {
    {om::kName, kGet, "name", 0, 0,
     [](LO& self, Args) { return Variant::Bstr(StringOr(self.descriptor(), CharId("Nm  "), L"")); }},
    {om::kId, kGet, "id", 0, 0, [](LO& self, Args) { return Variant::I4(self.layerId()); }},
    {om::kItemIndex, kGet, "itemIndex", 0, 0,
     [](LO& self, Args) { return Variant::I4(FindLayerById(self.document(), self.layerId())->second); }},
    {om::kBounds, kGet, "bounds", 0, 0, [](LO& self, Args) { return LayerBounds(self.session(), self.descriptor()); }},
    {om::kBlendMode, kGet, "blendMode", 0, 0, [](LO& self, Args) { return BlendMode(self.session(), self.descriptor()); }},
    {om::kOpacity, kGet, "opacity", 0, 0,
     [](LO& self, Args) { return Variant::R8(Percent(self.descriptor(), CharId("Opct"))); }},
    {om::kFillOpacity, kGet, "fillOpacity", 0, 0,
     [](LO& self, Args) { return Variant::R8(Percent(self.descriptor(), self.session().Key(L"fillOpacity"))); }},
    {om::kAllLocked, kGet, "allLocked", 0, 0,
     [](LO& self, Args) { return Variant::Bool(Locked(self.session(), self.descriptor(), L"protectAll")); }},
    {om::kPixelsLocked, kGet, "pixelsLocked", 0, 0,
     [](LO& self, Args) { return Variant::Bool(Locked(self.session(), self.descriptor(), L"protectComposite")); }},
    {om::kPositionLocked, kGet, "positionLocked", 0, 0,
     [](LO& self, Args) { return Variant::Bool(Locked(self.session(), self.descriptor(), L"protectPosition")); }},
    {om::kTransparentPixelsLocked, kGet, "transparentPixelsLocked", 0, 0,
     [](LO& self, Args) { return Variant::Bool(Locked(self.session(), self.descriptor(), L"protectTransparency")); }},
    {om::kArtLayers, kGet, "artLayers", 0, 0,
     [](LO& self, Args) { return Variant::Dispatch(Layers(self, CollectionObject::Kind::kArtLayers)); }},
    {om::kLayerSets, kGet, "layerSets", 0, 0,
     [](LO& self, Args) { return Variant::Dispatch(Layers(self, CollectionObject::Kind::kLayerSets)); }},
};

// ---- Document ------------------------------------------------------------------------------------------------

DispatchPtr NewCollection(DocumentObject& self, CollectionObject::Kind kind) {
  self.document();  // a closed document has no collections
  return std::make_shared<CollectionObject>(self.sessionPtr(), kind, self.serial());
}

DispatchPtr NewHistoryState(DocumentObject& self, int position) {
  if (position < 1) ThrowNoSuchElement(self.session());
  return std::make_shared<ListedObject>(self.sessionPtr(), ListedObject::Kind::kHistoryState, self.serial(), position);
}

// Closing removes the document; the one that takes its place in the list becomes current.
Variant Close(DocumentObject& self, Args args) {
  State& state = self.session().state;
  DocumentState& document = self.document();
  const auto index = static_cast<int>(&document - state.documents.data());
  JournalCall(self.session(), "close", args.empty() ? L"" : std::to_wstring(ArgI4(args, 0)));
  state.documents.erase(state.documents.begin() + index);
  if (state.activeDocument > index) --state.activeDocument;
  if (state.activeDocument >= static_cast<int>(state.documents.size())) {
    state.activeDocument = static_cast<int>(state.documents.size()) - 1;
  }
  return Variant();
}

Variant PutActiveHistoryState(DocumentObject& self, Args args) {
  ListedObject& historyState = ArgObject<ListedObject>(args, 0);
  DocumentState& document = self.document();
  if (historyState.kind() != ListedObject::Kind::kHistoryState || historyState.serial() != self.serial()) {
    ThrowGeneralError(L"The history state belongs to another document.");
  }
  historyState.descriptor();  // still there
  document.activeHistory = historyState.position();
  JournalCall(self.session(), "activeHistoryState", std::to_wstring(historyState.position()));
  return Variant();
}

using DO = DocumentObject;
using CK = CollectionObject::Kind;
const Member<DO> kDocumentMembers[] = {
    {om::kName, kGet, "name", 0, 0,
     [](DO& self, Args) { return Variant::Bstr(StringOr(self.document().descriptor, CharId("Ttl "), L"")); }},
    {om::kFullName, kGet, "fullName", 0, 0,
     [](DO& self, Args) {
       const auto& fullName = self.document().fullName;
       if (!fullName) ThrowGeneralError(L"The document has not yet been saved.");
       return Variant::Bstr(*fullName);
     }},
    {om::kWidth, kGet, "width", 0, 0, [](DO& self, Args) { return Variant::R8(self.document().width); }},
    {om::kHeight, kGet, "height", 0, 0, [](DO& self, Args) { return Variant::R8(self.document().height); }},
    {om::kQuickMaskMode, kGet, "quickMaskMode", 0, 0,
     [](DO& self, Args) { return Variant::Bool(BooleanOr(self.document().descriptor, CharId("QucM"), false)); }},
    {om::kActiveLayer, kGet, "activeLayer", 0, 0,
     [](DO& self, Args) {
       DocumentState& document = self.document();
       if (!FindNode(document, document.activeLayerId)) ThrowNoSuchElement(self.session());
       return Variant::Dispatch(std::make_shared<LayerObject>(self.sessionPtr(), self.serial(), document.activeLayerId));
     }},
    {om::kArtLayers, kGet, "artLayers", 0, 0, [](DO& self, Args) { return Variant::Dispatch(NewCollection(self, CK::kArtLayers)); }},
    {om::kLayerSets, kGet, "layerSets", 0, 0, [](DO& self, Args) { return Variant::Dispatch(NewCollection(self, CK::kLayerSets)); }},
    {om::kChannels, kGet, "channels", 0, 0, [](DO& self, Args) { return Variant::Dispatch(NewCollection(self, CK::kChannels)); }},
    {om::kPathItems, kGet, "pathItems", 0, 0, [](DO& self, Args) { return Variant::Dispatch(NewCollection(self, CK::kPathItems)); }},
    {om::kHistoryStates, kGet, "historyStates", 0, 0,
     [](DO& self, Args) { return Variant::Dispatch(NewCollection(self, CK::kHistoryStates)); }},
    {om::kActiveHistoryState, kGet, "activeHistoryState", 0, 0,
     [](DO& self, Args) { return Variant::Dispatch(NewHistoryState(self, self.document().activeHistory)); }},
    {om::kActiveHistoryState, kPut, "activeHistoryState", 1, 1, PutActiveHistoryState},
    {om::kActiveHistoryBrushSource, kGet, "activeHistoryBrushSource", 0, 0,
     [](DO& self, Args) { return Variant::Dispatch(NewHistoryState(self, self.document().historyBrushSource)); }},
    {om::kSelection, kGet, "selection", 0, 0,
     [](DO& self, Args) {
       self.document();
       return Variant::Dispatch(std::make_shared<SelectionObject>(self.sessionPtr(), self.serial()));
     }},
    {om::kClose, kMethod, "close", 0, 1, Close},
};

// ---- The rest ------------------------------------------------------------------------------------------------

using LI = ListedObject;
const Member<LI> kListedMembers[] = {
    {om::kName, kGet, "name", 0, 0,
     [](LI& self, Args) { return Variant::Bstr(StringOr(self.descriptor(), self.NameKey(), L"")); }},
};

const Member<SelectionObject> kSelectionMembers[] = {
    {om::kBounds, kGet, "bounds", 0, 0,
     [](SelectionObject& self, Args) {
       const auto& selection = self.document().selection;
       if (!selection) ThrowNoSuchElement(self.session());
       return Bounds(*selection);
     }},
};

const Member<FontObject> kFontMembers[] = {
    {om::kName, kGet, "name", 0, 0, [](FontObject& self, Args) { return Variant::Bstr(self.name()); }},
};

std::wstring Hex(const std::array<double, 3>& rgb) {
  std::wstring text;
  for (double channel : rgb) {
    const long value = std::lround(std::fmin(std::fmax(channel, 0.0), 255.0));
    text += Format(L"%02X", value);
  }
  return text;
}

std::array<double, 3> ParseHex(Session& session, const std::wstring& text) {
  if (text.size() != 6) ThrowGeneralError(L"\u201c" + text + L"\u201d is not a hexadecimal colour.");
  std::array<double, 3> rgb{};
  for (size_t i = 0; i < 3; ++i) {
    unsigned value = 0;
    for (size_t k = 0; k < 2; ++k) {
      const wchar_t c = text[i * 2 + k];
      const int digit = c >= L'0' && c <= L'9' ? c - L'0' : c >= L'a' && c <= L'f' ? c - L'a' + 10 : c >= L'A' && c <= L'F' ? c - L'A' + 10 : -1;
      if (digit < 0) ThrowGeneralError(L"\u201c" + text + L"\u201d is not a hexadecimal colour.");
      value = value * 16 + static_cast<unsigned>(digit);
    }
    rgb[i] = value;
  }
  (void)session;
  return rgb;
}

const Member<RgbColorObject> kRgbMembers[] = {
    {om::kHexValue, kGet, "hexValue", 0, 0, [](RgbColorObject& self, Args) { return Variant::Bstr(Hex(self.rgb())); }},
    {om::kHexValue, kPut, "hexValue", 1, 1,
     [](RgbColorObject& self, Args args) {
       self.rgb() = ParseHex(self.session(), ArgBstr(args, 0));
       return Variant();
     }},
};

const Member<SolidColorObject> kSolidMembers[] = {
    {om::kRgb, kGet, "rgb", 0, 0,
     [](SolidColorObject& self, Args) {
       return Variant::Dispatch(std::make_shared<RgbColorObject>(self.sessionPtr(), self.rgb()));
     }},
    {om::kRgb, kPut, "rgb", 1, 1,
     [](SolidColorObject& self, Args args) {
       self.rgb() = ArgObject<RgbColorObject>(args, 0).rgb();
       return Variant();
     }},
};

// ---- Collections' members ------------------------------------------------------------------------------------

Variant AddNotifier(CollectionObject& self, Args args) {
  if (self.kind() != CK::kNotifiers) throw AutomationError(kDispENotFound, L"Member not found.");
  Notifier notifier{ArgBstr(args, 0), ArgBstr(args, 1), args.size() > 2 && !args[2].IsEmpty() ? args[2].AsBstr() : L""};
  if (notifier.event.empty()) ThrowGeneralError(L"A notifier needs an event.");
  self.session().state.app.notifiers.push_back(notifier);
  JournalCall(self.session(), "add", notifier.event + L" " + notifier.file);
  return Variant::Dispatch(std::make_shared<NotifierObject>(self.sessionPtr(), std::move(notifier)));
}

using CO = CollectionObject;
const Member<CO> kCollectionMembers[] = {
    {om::kCount, kGet, "count", 0, 0, [](CO& self, Args) { return Variant::I4(self.Count()); }},
    {om::kItem, kMethod, "item", 1, 1, [](CO& self, Args args) { return Variant::Dispatch(self.Item(ArgPosition(args, 0))); }},
    {om::kItem, kGet, "item", 1, 1, [](CO& self, Args args) { return Variant::Dispatch(self.Item(ArgPosition(args, 0))); }},
    {0x70696478 /* pidx */, kMethod, "index", 1, 1,
     [](CO& self, Args args) {
       LI& state = ArgObject<LI>(args, 0);
       if (self.kind() != CK::kHistoryStates) throw AutomationError(kDispENotFound, L"Member not found.");
       if (state.kind() != LI::Kind::kHistoryState || state.serial() != self.serial()) ThrowNoSuchElement(self.session());
       state.descriptor();
       return Variant::I4(state.position());
     }},
    {om::kAdd, kMethod, "add", 2, 3, AddNotifier},
    {om::kRemoveAll, kMethod, "removeAll", 0, 0,
     [](CO& self, Args) {
       if (self.kind() != CK::kNotifiers) throw AutomationError(kDispENotFound, L"Member not found.");
       self.session().state.app.notifiers.clear();
       JournalCall(self.session(), "removeAll", L"");
       return Variant();
     }},
};

std::vector<LayerNode*> CollectionObject::Layers(bool sets) {
  DocumentState& document = DocumentOf(session(), m_serial);
  std::vector<LayerNode>* level = &document.layers;
  if (m_parentSet >= 0) {
    LayerNode* parent = FindNode(document, m_parentSet);
    if (!parent) ThrowNoSuchElement(session());
    level = &parent->children;
  }
  std::vector<LayerNode*> found;
  for (LayerNode& node : *level) {
    if (node.isSet == sets) found.push_back(&node);
  }
  return found;
}

int32_t CollectionObject::Count() {
  State& state = session().state;
  switch (m_kind) {
    case Kind::kDocuments: return static_cast<int32_t>(state.documents.size());
    case Kind::kArtLayers: return static_cast<int32_t>(Layers(false).size());
    case Kind::kLayerSets: return static_cast<int32_t>(Layers(true).size());
    case Kind::kChannels: return static_cast<int32_t>(DocumentOf(session(), m_serial).channels.size());
    case Kind::kPathItems: return static_cast<int32_t>(DocumentOf(session(), m_serial).paths.size());
    case Kind::kHistoryStates: return static_cast<int32_t>(DocumentOf(session(), m_serial).history.size());
    case Kind::kFonts: return static_cast<int32_t>(state.app.fonts.size());
    case Kind::kNotifiers: return static_cast<int32_t>(state.app.notifiers.size());
  }
  return 0;
}

DispatchPtr CollectionObject::Item(int32_t position) {
  if (position < 1 || position > Count()) ThrowNoSuchElement(session());
  const auto at = static_cast<size_t>(position - 1);
  State& state = session().state;
  switch (m_kind) {
    case Kind::kDocuments: return std::make_shared<DocumentObject>(sessionPtr(), state.documents[at].serial);
    case Kind::kArtLayers:
    case Kind::kLayerSets:
      return std::make_shared<LayerObject>(sessionPtr(), m_serial,
                                           IntegerOr(Layers(m_kind == Kind::kLayerSets)[at]->descriptor, CharId("LyrI"), -1));
    case Kind::kChannels: return std::make_shared<ListedObject>(sessionPtr(), LI::Kind::kChannel, m_serial, position);
    case Kind::kPathItems: return std::make_shared<ListedObject>(sessionPtr(), LI::Kind::kPathItem, m_serial, position);
    case Kind::kHistoryStates:
      return std::make_shared<ListedObject>(sessionPtr(), LI::Kind::kHistoryState, m_serial, position);
    case Kind::kFonts: return std::make_shared<FontObject>(sessionPtr(), state.app.fonts[at]);
    case Kind::kNotifiers: return std::make_shared<NotifierObject>(sessionPtr(), state.app.notifiers[at]);
  }
  return nullptr;
}

std::array<double, 3> ColourOf(Session& session, int32_t key) {
  const Value* colour = session.state.app.descriptor.Find(key);
  if (!colour || colour->type != ValueType::kObject) ThrowNotAvailable(session, session.ids.IdToName(key));
  return {NumberOf(colour->object, CharId("Rd  ")).value_or(0), NumberOf(colour->object, CharId("Grn ")).value_or(0),
          NumberOf(colour->object, CharId("Bl  ")).value_or(0)};
}

}  // namespace

std::span<const Member<CollectionObject>> CollectionObject::Members() { return kCollectionMembers; }
std::span<const Member<DocumentObject>> DocumentObject::Members() { return kDocumentMembers; }
std::span<const Member<LayerObject>> LayerObject::Members() { return kLayerMembers; }
std::span<const Member<ListedObject>> ListedObject::Members() { return kListedMembers; }
std::span<const Member<SelectionObject>> SelectionObject::Members() { return kSelectionMembers; }
std::span<const Member<FontObject>> FontObject::Members() { return kFontMembers; }
std::span<const Member<RgbColorObject>> RgbColorObject::Members() { return kRgbMembers; }
std::span<const Member<SolidColorObject>> SolidColorObject::Members() { return kSolidMembers; }

DispatchPtr NewDocumentObject(const std::shared_ptr<Session>& session, int serial) {
  return std::make_shared<DocumentObject>(session, serial);
}

DispatchPtr NewDocumentsCollection(const std::shared_ptr<Session>& session) {
  return std::make_shared<CollectionObject>(session, CK::kDocuments);
}

DispatchPtr NewFontsCollection(const std::shared_ptr<Session>& session) {
  return std::make_shared<CollectionObject>(session, CK::kFonts);
}

DispatchPtr NewNotifiersCollection(const std::shared_ptr<Session>& session) {
  return std::make_shared<CollectionObject>(session, CK::kNotifiers);
}

DispatchPtr NewSolidColor(const std::shared_ptr<Session>& session, int32_t key) {
  return std::make_shared<SolidColorObject>(session, ColourOf(*session, key));
}

void PutSolidColor(Session& session, int32_t key, const Variant& solidColor) {
  const Variant args[] = {solidColor};
  const std::array<double, 3> rgb = ArgObject<SolidColorObject>(args, 0).rgb();
  Descriptor colour;
  colour.Put(CharId("Rd  "), Value::Double(rgb[0]));
  colour.Put(CharId("Grn "), Value::Double(rgb[1]));
  colour.Put(CharId("Bl  "), Value::Double(rgb[2]));
  session.state.app.descriptor.Put(key, Value::Object(CharId("RGBC"), std::move(colour)));
  JournalCall(session, key == CharId("FrgC") ? "foregroundColor" : "backgroundColor", Hex(rgb));
}

}  // namespace ostrel::sim
