// The layers of the current document: the list from the object model's collections, each layer's keys from its
// Action Manager descriptor, and the by-index reads with the background offset.
//
// An index is Photoshop's itemIndex. Photoshop's putIndex counts from the background, which is place 0 when the
// document has one, so every by-index read asks for the background first and then reads place index - 1. Nothing
// is subtracted on the way back, and the selected layers' references give their place + 1 with no test.
//
// The questions that need one number of each layer (an index, a name, the eye) read that one key of each layer
// instead of walking every key of every layer, and ask each type id once per question. Such a read gives what the
// key walk would leave in the record wherever the key stands only at the top of a layer's descriptor: "itemIndex",
// "visible" and "name" do in every real layer descriptor (examples/photoshop/realdata); keys that nested
// descriptors repeat ("opacity", "mode" in every effect, "name" in a gradient) are read by no faster path. Where a
// question answered from another export went on with that export's default after a failure, the faster path
// does the same and counts the failure as absorbed. tests/photoshop/layer_reference.cpp keeps the questions as
// first written, and layer_fast_paths_test.cpp compares the two export by export.
#include <algorithm>
#include <array>
#include <optional>

#include "frame/connection.h"
#include "frame/dispids.h"
#include "frame/guard.h"
#include "photoshop/action_manager.h"
#include "ostrel/documents.h"
#include "photoshop/layer_list.h"
#include "platform/text.h"
#include "vocabulary/layer_vocabulary.h"

namespace ostrel {
namespace {

namespace obj = dispid::obj;

// The background of an indexed-colour document is named after the mode in the document's title.
constexpr std::wstring_view kBackgroundName = L"背景";
constexpr std::wstring_view kIndexedTitleMark = L"（索引#）";
constexpr std::wstring_view kIndexedBackgroundName = L"索引";

// A layer set is told by its blend mode: a set passes its layers' blending through.
constexpr std::wstring_view kPassThrough = L"passThrough";

// The search for an enclosing group stops at this index.
constexpr int kGroupSearchBound = 999;

// The place in putIndex's counting of the layer with this index.
int PlaceOf(int index) { return Ostrel_IsBackgroundLayer() != 0 ? index - 1 : index; }

COleDispatchDriver ItemAt(const COleDispatchDriver& collection, int32_t position) {
  return am::Wrap(collection.Call(obj::kItem, {Variant::I2(static_cast<int16_t>(position))}));
}

int32_t IdOf(const COleDispatchDriver& layer) { return layer.Get(obj::kId).AsI4(); }

// ---- The list ------------------------------------------------------------------------------------------------

// A layer set and everything in it, at every depth: the set's own record first (a group, at depth 0 here), then
// its art layers, then its sets each followed by their content, one level deeper than the set.
void WalkLayerSet(COleDispatchDriver set, std::vector<tagLayerInfo>& out) {
  out.clear();
  tagLayerInfo record;
  record.nID = IdOf(set);
  record.bGroup = 1;
  out.push_back(record);
  const COleDispatchDriver artLayers = am::Wrap(set.Get(obj::kArtLayers));
  const COleDispatchDriver layerSets = am::Wrap(set.Get(obj::kLayerSets));
  const int32_t artCount = artLayers.Get(obj::kCount).AsI4();
  const int32_t setCount = layerSets.Get(obj::kCount).AsI4();
  for (int32_t position = 1; position <= artCount; ++position) {
    ResetLayerInfo(record);
    record.nID = IdOf(ItemAt(artLayers, position));
    record.nHierarchy += 1;
    out.push_back(record);
  }
  for (int32_t position = 1; position <= setCount; ++position) {
    std::vector<tagLayerInfo> content;
    WalkLayerSet(ItemAt(layerSets, position), content);
    for (tagLayerInfo& inner : content) {
      inner.nHierarchy += 1;
      out.push_back(std::move(inner));
    }
  }
}

// ---- The key walk --------------------------------------------------------------------------------------------

// The fields that take the whole number of their key's text, the last key met winning.
struct NumberKey {
  std::wstring_view key;
  int tagLayerInfo::*field;
};
constexpr NumberKey kNumberKeys[] = {
    {L"opacity", &tagLayerInfo::nOpacity},
    {L"fillOpacity", &tagLayerInfo::nFillOpacity},
    {L"itemIndex", &tagLayerInfo::nIndex},
    {L"visible", &tagLayerInfo::bVisible},
    {L"layerKind", &tagLayerInfo::nLayerKind},
    {L"protectTransparency", &tagLayerInfo::bProtectTransparency},
    {L"protectComposite", &tagLayerInfo::bProtectComposite},
    {L"protectPosition", &tagLayerInfo::bProtectPosition},
    {L"protectAll", &tagLayerInfo::bProtectAll},
    {L"hasUserMask", &tagLayerInfo::bHasUserMask},
    {L"hasVectorMask", &tagLayerInfo::bHasVectorMask},
    {L"userMaskLinked", &tagLayerInfo::bUserMaskLinked},
    {L"userMaskEnabled", &tagLayerInfo::bUserMaskEnabled},
    {L"vectorMaskEnabled", &tagLayerInfo::bVectorMaskEnabled},
    {L"background", &tagLayerInfo::bBackground},
};

// The value of a key as text, by its type; false for a type that has no text (lists, references and the like).
bool KeyText(const COleDispatchDriver& desc, int32_t key, int32_t type, std::wstring& text) {
  switch (static_cast<DescriptorValueType>(type)) {
    case DescriptorValueType::kBoolean: text = Format(L"%d", am::GetBoolean(desc, key) ? 1 : 0); return true;
    case DescriptorValueType::kInteger: text = Format(L"%d", am::GetInteger(desc, key)); return true;
    case DescriptorValueType::kString: text = am::GetString(desc, key); return true;
    case DescriptorValueType::kDouble: text = Format(L"%.1lf", am::GetDouble(desc, key)); return true;
    case DescriptorValueType::kUnitDouble: text = Format(L"%.1lf", am::GetUnitDouble(desc, key)); return true;
    case DescriptorValueType::kEnumerated: text = am::NameOfTypeId(am::GetEnumerationValue(desc, key)); return true;
    default: return false;
  }
}

// Puts one key's text into the record: the first name and the first known blend mode met stay, every other
// field takes the last value met.
void StoreKey(std::wstring_view name, const std::wstring& text, tagLayerInfo& record) {
  if (name == L"name") {
    if (record.strName.empty()) record.strName = text;
    return;
  }
  if (name == L"mode") {
    if (record.nBlend == -1) record.nBlend = LayerBlendFromId(text);
    return;
  }
  for (const NumberKey& number : kNumberKeys) {
    if (name == number.key) {
      record.*number.field = WToI(text);
      return;
    }
  }
}

// Every key of the descriptor into the record, nested descriptors included. A failure inside a nested
// descriptor ends only that descriptor's walk.
void WalkLayerKeys(const COleDispatchDriver& desc, tagLayerInfo& record) {
  for (int32_t position = 0; position < am::Count(desc); ++position) {
    const int32_t key = am::GetKey(desc, position);
    const int32_t type = am::GetType(desc, key);
    const std::wstring name = am::NameOfTypeId(key);
    if (type == static_cast<int32_t>(DescriptorValueType::kObject)) {
      try {
        const COleDispatchDriver nested = am::GetObjectValue(desc, am::TypeIdFromName(name));
        WalkLayerKeys(nested, record);
      } catch (const AutomationError&) {
        // the nested keys that were read stay; the walk goes on with the next key
      }
      continue;
    }
    std::wstring text;
    if (KeyText(desc, key, type, text)) StoreKey(name, text, record);
  }
}

const tagLayerInfo* RecordWithIndex(const std::vector<tagLayerInfo>& layers, int index) {
  const auto found = std::find_if(layers.begin(), layers.end(), [&](const tagLayerInfo& r) { return r.nIndex == index; });
  return found == layers.end() ? nullptr : &*found;
}

// ---- The faster paths ------------------------------------------------------------------------------------------

// A read that the first form of the question made through another export (Ostrel_LayerIDToIndex,
// Ostrel_LayerIDToName): a failure gives that export's default, counted as an inner failure absorbed, and the
// question goes on with it.
template <class T, class Read>
T OrInnerDefault(T innerDefault, Read&& read) {
  try {
    return read();
  } catch (...) {
    ++t_innerFailuresAbsorbed;
    return innerDefault;
  }
}

// One question's reads of single keys of layers by id. Each type id is asked of Photoshop at its first use in the
// question and kept for the question only, and no read makes a descriptor that only holds its answer.
class LayerKeyReads {
 public:
  // putProperty(property, itemIndex), putIdentifier(Lyr , id), getInteger: Ostrel_LayerIDToIndex's read.
  int32_t ItemIndex(int32_t layerId) {
    const int32_t key = Id(m_itemIndex, L"itemIndex");
    return am::GetInteger(ReadKey(layerId, key), key);
  }
  // The layer's own name: what Ostrel_LayerIDToName reads from the whole descriptor.
  std::wstring Name(int32_t layerId) {
    const int32_t key = Id(m_name, L"name");
    return am::GetString(ReadKey(layerId, key), key);
  }
  // The eye as the key walk leaves it in a record: the key's text as a whole number, 1 (a fresh record's) when
  // the descriptor has no such key or one of a type without text.
  int Visible(int32_t layerId) {
    const COleDispatchDriver ref = am::NewReference();
    am::PutIdentifier(ref, Layer(), layerId);
    const COleDispatchDriver desc = am::ExecuteActionGet(ref);
    const int32_t key = Id(m_visible, L"visible");
    if (!am::HasKey(desc, key)) return 1;
    std::wstring text;
    return KeyText(desc, key, am::GetType(desc, key), text) ? WToI(text) : 1;
  }
  // Ostrel_IsLayerGroup of the index, connected: 1 if the layer at the index passes through. A failed read gives
  // 0, that export's failure default, as an absorbed failure. The document's background test is read once per
  // question (again after a failed reading).
  int PassesThrough(int index) {
    return OrInnerDefault(0, [&] {
      if (!m_hasBackground) {
        const COleDispatchDriver document = am::ReadCurrentDocument(L"hasBackgroundLayer", am::IdForm::kChar);
        m_hasBackground = am::GetBoolean(document, am::StringId(L"hasBackgroundLayer"));
      }
      const int32_t mode = Id(m_mode, L"mode");
      const COleDispatchDriver ref = am::NewReference();
      am::PutProperty(ref, Id(m_property, L"property"), mode);
      am::PutIndex(ref, Layer(), *m_hasBackground ? index - 1 : index);
      const COleDispatchDriver layer = am::ExecuteActionGet(ref);
      return am::TypeIdToStringId(am::GetEnumerationValue(layer, mode)) == kPassThrough ? 1 : 0;
    });
  }

 private:
  static int32_t Id(std::optional<int32_t>& slot, std::wstring_view stringId) {
    if (!slot) slot = am::StringId(stringId);
    return *slot;
  }
  int32_t Layer() {
    if (!m_layer) m_layer = am::CharId(L"Lyr ");
    return *m_layer;
  }
  COleDispatchDriver ReadKey(int32_t layerId, int32_t key) {
    const COleDispatchDriver ref = am::NewReference();
    am::PutProperty(ref, Id(m_property, L"property"), key);
    am::PutIdentifier(ref, Layer(), layerId);
    return am::ExecuteActionGet(ref);
  }

  std::optional<int32_t> m_layer, m_property, m_itemIndex, m_name, m_visible, m_mode;
  std::optional<bool> m_hasBackground;
};

// The layer list with each record's nIndex as Ostrel_GetLayerInfo fills it, and nothing where Ostrel_GetLayerInfo
// gives 0: a record without an id, no selection, or a selected index that no record has. selected, when given,
// is the selection already read by the caller.
std::optional<std::vector<tagLayerInfo>> IndexedLayers(LayerKeyReads& reads,
                                                       std::optional<std::vector<int>> selected = std::nullopt) {
  std::vector<tagLayerInfo> layers;
  ReadLayerIds(layers);
  for (tagLayerInfo& record : layers) {
    if (record.nID < 1) return std::nullopt;
    record.nIndex = reads.ItemIndex(record.nID);
  }
  if (!selected) {
    selected.emplace();
    if (ReadSelectedLayerIndexes(*selected) == 0) return std::nullopt;
  }
  for (const int index : *selected) {
    if (RecordWithIndex(layers, index) == nullptr) return std::nullopt;
  }
  return layers;
}

// Every record's index as Ostrel_LayerIDToIndex gives it, -1 for a record whose read failed.
std::vector<int> ListedIndexes(LayerKeyReads& reads, const std::vector<tagLayerInfo>& layers) {
  std::vector<int> indexes;
  indexes.reserve(layers.size());
  for (const tagLayerInfo& record : layers) {
    indexes.push_back(OrInnerDefault(-1, [&] { return reads.ItemIndex(record.nID); }));
  }
  return indexes;
}

// ---- The object model's blend numbers --------------------------------------------------------------------------

// blendMode 1 to 30 of the object model, in its order, as layer blend numbers (-1: no layer blend).
constexpr std::array<int, 30> kObjectModelBlends = {
    0,  1,  2,  3,  4,  5,  6,  8,  9,  10,  // 1 to 10
    11, 13, 14, 15, 16, 17, 18, 20, 21, 24,  // 11 to 20
    25, 26, 27, -1, -1, 19, 12, 7,  22, 23,  // 21 to 30
};

// A percentage as a whole number, cut towards zero; a value no int holds is cut to the nearest one.
int WholePercent(double value) {
  if (!(value == value)) return 0;  // NaN
  if (value >= 2147483647.0) return 2147483647;
  if (value <= -2147483648.0) return -2147483647 - 1;
  return static_cast<int>(value);
}

COleDispatchDriver ActiveLayerObject() {
  const COleDispatchDriver document = am::ActiveDocument();
  return am::ActiveLayer(document);
}

}  // namespace

void ResetLayerInfo(tagLayerInfo& info) noexcept {
  std::wstring name = std::move(info.strName);
  info = tagLayerInfo{};
  info.strName = std::move(name);
  info.nTail = 0;
}

// ---- The list --------------------------------------------------------------------------------------------------

int ReadLayerIds(std::vector<tagLayerInfo>& layers) {
  layers.clear();
  const COleDispatchDriver document = am::ActiveDocument();
  const COleDispatchDriver artLayers = am::Wrap(document.Get(obj::kArtLayers));
  const COleDispatchDriver layerSets = am::Wrap(document.Get(obj::kLayerSets));
  tagLayerInfo record;
  for (int32_t position = 1; position <= artLayers.Get(obj::kCount).AsI4(); ++position) {
    ResetLayerInfo(record);
    record.nID = IdOf(ItemAt(artLayers, position));
    layers.push_back(record);
  }
  for (int32_t position = 1; position <= layerSets.Get(obj::kCount).AsI4(); ++position) {
    std::vector<tagLayerInfo> content;
    WalkLayerSet(ItemAt(layerSets, position), content);
    layers.insert(layers.end(), content.begin(), content.end());
  }
  return 1;
}

int ReadLayerInfo(std::vector<tagLayerInfo>& layers) {
  layers.clear();
  if (Ostrel_GetLayerID(layers) == 0) return 0;
  for (tagLayerInfo& record : layers) {
    if (record.nID < 1 || !IsConnected()) return 0;
    WalkLayerKeys(am::ReadLayerById(record.nID), record);
  }
  std::vector<int> selected;
  if (Ostrel_GetSelectLayerIndex(selected) == 0) return 0;
  for (const int index : selected) {
    const auto found = std::find_if(layers.begin(), layers.end(), [&](const tagLayerInfo& r) { return r.nIndex == index; });
    if (found == layers.end()) return 0;
    found->bSelect = 1;
  }
  return 1;
}

int LayerCount() {
  std::vector<tagLayerInfo> layers;
  return Ostrel_GetLayerID(layers) != 0 ? static_cast<int>(layers.size()) : -1;
}

int ReadLayerVisibility(std::vector<tagLayerVisibleInfo>& visibility) {
  visibility.clear();
  std::vector<tagLayerInfo> layers;
  if (Ostrel_GetLayerID(layers) == 0) return 0;
  for (const tagLayerInfo& record : layers) {
    const COleDispatchDriver desc = am::ReadLayerById(record.nID, L"visible");
    const bool visible = am::GetBoolean(desc, am::StringId(L"visible"));
    visibility.push_back(tagLayerVisibleInfo{record.nID, visible ? 1 : 0});
  }
  return 1;
}

// ---- Selection -------------------------------------------------------------------------------------------------

int ReadSelectedLayerIndexes(std::vector<int>& indexes) {
  indexes.clear();
  const COleDispatchDriver document = am::ReadCurrentDocument(L"targetLayers", am::IdForm::kChar);
  const int32_t key = am::StringId(L"targetLayers");
  if (!am::HasKey(document, key)) return 0;
  const COleDispatchDriver list = am::GetList(document, key);
  am::ForEachPosition(list, [&](int32_t position) {
    const COleDispatchDriver reference = am::ListGetReference(list, position);
    indexes.push_back(am::ReferenceGetIndex(reference) + 1);
  });
  return 1;
}

int ReadSelectedLayerIds(std::vector<int>& ids) {
  ids.clear();
  std::vector<int> indexes;
  if (ReadSelectedLayerIndexes(indexes) == 0) return 0;
  LayerKeyReads reads;
  const std::optional<std::vector<tagLayerInfo>> layers = IndexedLayers(reads, indexes);
  if (!layers) return 0;
  for (const int index : indexes) ids.push_back(RecordWithIndex(*layers, index)->nID);  // each has its record
  return 1;
}

int SelectedLayerCount() {
  std::vector<int> indexes;
  return Ostrel_GetSelectLayerIndex(indexes) != 0 ? static_cast<int>(indexes.size()) : -1;
}

int IsLayerSelected(int index) {
  std::vector<int> indexes;
  Ostrel_GetSelectLayerIndex(indexes);
  return std::find(indexes.begin(), indexes.end(), index) != indexes.end() ? 1 : 0;
}

int ActiveLayerIndex() {
  const COleDispatchDriver layer = am::ReadCurrentLayer();
  return am::GetInteger(layer, am::StringId(L"itemIndex"));
}

std::wstring ActiveLayerName() {
  const COleDispatchDriver layer = am::ReadCurrentLayer();
  std::wstring name = am::GetString(layer, am::StringId(L"name"));
  if (name == kBackgroundName && Ostrel_GetCurrentDocumentName().find(kIndexedTitleMark) != std::wstring::npos) {
    return std::wstring(kIndexedBackgroundName);
  }
  return name;
}

// ---- One layer -------------------------------------------------------------------------------------------------

int LayerIndexToId(int index) {
  const int place = PlaceOf(index);
  const COleDispatchDriver layer = am::ReadLayerByIndex(place, L"layerID");
  return am::GetInteger(layer, am::StringId(L"layerID"));
}

int LayerIdToIndex(int id) {
  const COleDispatchDriver layer = am::ReadLayerById(id, L"itemIndex");
  return am::GetInteger(layer, am::StringId(L"itemIndex"));
}

std::wstring LayerIndexToName(int index) {
  const int place = PlaceOf(index);
  const COleDispatchDriver layer = am::ReadLayerByIndex(place);
  return am::GetString(layer, am::StringId(L"name"));
}

std::wstring LayerIdToName(int id) {
  const COleDispatchDriver layer = am::ReadLayerById(id);
  return am::GetString(layer, am::StringId(L"name"));
}

int LayerNameToIndex(const std::wstring& name) {
  std::vector<tagLayerInfo> layers;
  ReadLayerIds(layers);
  LayerKeyReads reads;
  for (const tagLayerInfo& record : layers) {
    // No layer has an empty name (Photoshop gives a layer renamed to nothing its old name back), and a name read
    // that failed comes back empty: an empty name must not find that layer.
    const std::wstring read = OrInnerDefault(std::wstring(), [&] { return reads.Name(record.nID); });
    if (!read.empty() && read == name) return OrInnerDefault(-1, [&] { return reads.ItemIndex(record.nID); });
  }
  return -1;
}

int IsLayerVisible(int index) {
  // The first record with the index, in the list's order: the records after it need no read.
  std::vector<tagLayerInfo> layers;
  ReadLayerIds(layers);
  LayerKeyReads reads;
  for (const tagLayerInfo& record : layers) {
    // The full read stops at a record without an id and leaves it and every later record fresh: index -1, eye 1.
    if (record.nID < 1) return index == -1 ? 1 : 0;
    if (reads.ItemIndex(record.nID) == index) return reads.Visible(record.nID);
  }
  return 0;
}

int IsLayerGroup(int index) {
  const COleDispatchDriver document = am::ReadCurrentDocument(L"hasBackgroundLayer", am::IdForm::kChar);
  const int place = am::GetBoolean(document, am::StringId(L"hasBackgroundLayer")) ? index - 1 : index;
  const COleDispatchDriver layer = am::ReadLayerByIndex(place, L"mode");
  const int32_t mode = am::GetEnumerationValue(layer, am::StringId(L"mode"));
  return am::TypeIdToStringId(mode) == kPassThrough ? 1 : 0;
}

EnSheetKind LayerSheetKind(int index) {
  const int place = PlaceOf(index);
  const COleDispatchDriver layer = am::ReadLayerByIndex(place);
  return static_cast<EnSheetKind>(am::GetInteger(layer, am::StringId(L"layerKind")));
}

int IsLayerSmart(int index) { return Ostrel_GetLayerSheetKind(index) == 5 ? 1 : 0; }

int LayerGroupHierarchy(int index) {
  LayerKeyReads reads;
  const std::optional<std::vector<tagLayerInfo>> layers = IndexedLayers(reads);
  if (!layers) return -1;
  const tagLayerInfo* record = RecordWithIndex(*layers, index);
  return record != nullptr ? record->nHierarchy : -1;
}

int EnclosingLayerGroup(int index) {
  // The list is read once: the depth of every index tried is that of the one read (each reading of it would give
  // the same list), -1 for an index that no record has, as where the list can't be read whole.
  LayerKeyReads reads;
  const std::optional<std::vector<tagLayerInfo>> layers = IndexedLayers(reads);
  const auto depthAt = [&](int at) {
    const tagLayerInfo* record = layers ? RecordWithIndex(*layers, at) : nullptr;
    return record != nullptr ? record->nHierarchy : -1;
  };
  const int depth = depthAt(index);
  // A layer at the top has no group. A layer whose depth can't be read has none either: no depth read on the way
  // up could be below -1, so the search would only end at its bound.
  if (depth <= 0 || index >= kGroupSearchBound) return -1;
  // No place above the top index holds a layer (a group's end lies below the group's own place), so the group
  // test, a read by index, fails there and gives 0: the search ends at the top.
  int top = -1;
  for (const tagLayerInfo& record : *layers) top = std::max(top, record.nIndex);
  const int last = std::min(top, kGroupSearchBound - 1);
  // A group is a place at a lower depth than the layer (or no record's, as a group's end) that passes through;
  // the depth is known without a call, so the group test is asked only where it decides.
  for (int candidate = index; candidate <= last; ++candidate) {
    if (depthAt(candidate) < depth && reads.PassesThrough(candidate) != 0) return candidate;
  }
  return -1;
}

int IsActiveLayerEmpty() {
  const COleDispatchDriver layer = ActiveLayerObject();
  const Variant bounds = layer.Get(obj::kBounds);
  for (const Variant& edge : bounds.AsArray()) {
    if (edge.AsR8() > 0.0001) return 0;
  }
  return 1;
}

// ---- The stack -------------------------------------------------------------------------------------------------

int HasBackgroundLayer() {
  const COleDispatchDriver place0 = am::ReadLayerByIndex(0);
  return am::GetInteger(place0, am::StringId(L"background"));
}

int TopLayerIndex() {
  std::vector<tagLayerInfo> layers;
  ReadLayerIds(layers);
  if (layers.empty()) return -1;
  LayerKeyReads reads;
  const std::vector<int> indexes = ListedIndexes(reads, layers);
  return *std::max_element(indexes.begin(), indexes.end());
}

int LayerIndexOffset(int index, int offset) {
  std::vector<tagLayerInfo> layers;
  ReadLayerIds(layers);
  LayerKeyReads reads;
  std::vector<int> indexes = ListedIndexes(reads, layers);
  std::sort(indexes.begin(), indexes.end());  // only the indexes are given out, so equal ones may go in any order
  const long long count = static_cast<long long>(indexes.size());
  for (long long place = 0; place < count; ++place) {
    if (indexes[static_cast<size_t>(place)] != index) continue;
    const long long target = place + offset;
    if ((offset > 0 && target < count) || (offset < 0 && target >= 0)) return indexes[static_cast<size_t>(target)];
  }
  return -1;
}

// ---- The active layer ------------------------------------------------------------------------------------------

EnLayerBlend LayerBlendFromObjectModel(int blendMode) noexcept {
  if (blendMode < 1 || blendMode > static_cast<int>(kObjectModelBlends.size())) return static_cast<EnLayerBlend>(-1);
  return static_cast<EnLayerBlend>(kObjectModelBlends[static_cast<size_t>(blendMode - 1)]);
}

EnLayerBlend ActiveLayerBlend() {
  return LayerBlendFromObjectModel(ActiveLayerObject().Get(obj::kBlendMode).AsI4());
}

int ActiveLayerOpacity() { return WholePercent(ActiveLayerObject().Get(obj::kOpacity).AsR8()); }

int ActiveLayerFillOpacity() { return WholePercent(ActiveLayerObject().Get(obj::kFillOpacity).AsR8()); }

int IsActiveLayerLocked(LayerLock lock) {
  int32_t property = obj::kAllLocked;
  switch (lock) {
    case LayerLock::kAll: property = obj::kAllLocked; break;
    case LayerLock::kPixels: property = obj::kPixelsLocked; break;
    case LayerLock::kPosition: property = obj::kPositionLocked; break;
    case LayerLock::kTransparentPixels: property = obj::kTransparentPixelsLocked; break;
  }
  return ActiveLayerObject().Get(property).AsBool() ? 1 : 0;
}

}  // namespace ostrel
