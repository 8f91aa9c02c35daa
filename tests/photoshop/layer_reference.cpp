// The reference layer questions: one full key walk per layer for every question that needs an index, and the
// search for an enclosing group that reads the whole list again for each group it tries.
#include "layer_reference.h"

#include <algorithm>
#include <mutex>

#include "frame/connection.h"
#include "frame/dispids.h"
#include "frame/guard.h"
#include "photoshop/action_manager.h"
#include "photoshop/layer_list.h"
#include "platform/text.h"
#include "vocabulary/layer_vocabulary.h"

namespace ostrel::reference {
namespace {

namespace obj = dispid::obj;

constexpr std::wstring_view kPassThrough = L"passThrough";
constexpr int kGroupSearchBound = 999;

// An export's boundary: the connection's lock, the unconnected answer without a call, the failure default.
template <class R, class Body>
R Boundary(R onFailure, R unconnected, Body&& body) noexcept {
  return Guarded<R>(
      [&]() -> R {
        std::lock_guard lock(ConnectionMutex());
        if (!IsConnected()) return unconnected;
        return body();
      },
      [&] { return onFailure; });
}

template <class T, class Body>
int ListBoundary(std::vector<T>& values, Body&& body) noexcept {
  return Guarded<int>(
      [&]() -> int {
        std::lock_guard lock(ConnectionMutex());
        if (!IsConnected()) return EmptiedAnd(values, 0);
        return body();
      },
      [] { return 0; });
}

COleDispatchDriver ItemAt(const COleDispatchDriver& collection, int32_t position) {
  return am::Wrap(collection.Call(obj::kItem, {Variant::I2(static_cast<int16_t>(position))}));
}

int32_t IdOf(const COleDispatchDriver& layer) { return layer.Get(obj::kId).AsI4(); }

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

}  // namespace

int GetLayerID(std::vector<tagLayerInfo>& layers) noexcept {
  return ListBoundary(layers, [&] {
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
  });
}

int GetLayerInfo(std::vector<tagLayerInfo>& layers) noexcept {
  return ListBoundary(layers, [&] {
    layers.clear();
    if (GetLayerID(layers) == 0) return 0;
    for (tagLayerInfo& record : layers) {
      if (record.nID < 1 || !IsConnected()) return 0;
      WalkLayerKeys(am::ReadLayerById(record.nID), record);
    }
    std::vector<int> selected;
    if (GetSelectLayerIndex(selected) == 0) return 0;
    for (const int index : selected) {
      const auto found = std::find_if(layers.begin(), layers.end(), [&](const tagLayerInfo& r) { return r.nIndex == index; });
      if (found == layers.end()) return 0;
      found->bSelect = 1;
    }
    return 1;
  });
}

int GetSelectLayerIndex(std::vector<int>& indexes) noexcept {
  return ListBoundary(indexes, [&] {
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
  });
}

int GetSelectLayerID(std::vector<int>& ids) noexcept {
  return ListBoundary(ids, [&] {
    ids.clear();
    std::vector<int> indexes;
    if (GetSelectLayerIndex(indexes) == 0) return 0;
    std::vector<tagLayerInfo> layers;
    if (GetLayerInfo(layers) == 0) return 0;
    for (const int index : indexes) {
      const tagLayerInfo* record = RecordWithIndex(layers, index);
      if (record == nullptr) return 0;
      ids.push_back(record->nID);
    }
    return 1;
  });
}

int LayerIDToIndex(int id) noexcept {
  return Boundary(-1, -1, [&] {
    const COleDispatchDriver layer = am::ReadLayerById(id, L"itemIndex");
    return am::GetInteger(layer, am::StringId(L"itemIndex"));
  });
}

std::wstring LayerIDToName(int id) noexcept {
  return Boundary(std::wstring(), std::wstring(), [&] {
    const COleDispatchDriver layer = am::ReadLayerById(id);
    return am::GetString(layer, am::StringId(L"name"));
  });
}

int LayerNameToIndex(const std::wstring& name) noexcept {
  return Boundary(-1, -1, [&] {
    std::vector<tagLayerInfo> layers;
    GetLayerID(layers);
    for (const tagLayerInfo& record : layers) {
      const std::wstring read = LayerIDToName(record.nID);
      if (!read.empty() && read == name) return LayerIDToIndex(record.nID);
    }
    return -1;
  });
}

int IsLayerVisible(int index) noexcept {
  return Boundary(0, 0, [&] {
    std::vector<tagLayerInfo> layers;
    GetLayerInfo(layers);
    const tagLayerInfo* record = RecordWithIndex(layers, index);
    return record != nullptr ? record->bVisible : 0;
  });
}

int IsLayerGroup(int index) noexcept {
  return Boundary(0, -1, [&] {
    const COleDispatchDriver document = am::ReadCurrentDocument(L"hasBackgroundLayer", am::IdForm::kChar);
    const int place = am::GetBoolean(document, am::StringId(L"hasBackgroundLayer")) ? index - 1 : index;
    const COleDispatchDriver layer = am::ReadLayerByIndex(place, L"mode");
    const int32_t mode = am::GetEnumerationValue(layer, am::StringId(L"mode"));
    return am::TypeIdToStringId(mode) == kPassThrough ? 1 : 0;
  });
}

int GetLayerGroupHierarchy(int index) noexcept {
  return Boundary(-1, -1, [&] {
    std::vector<tagLayerInfo> layers;
    if (GetLayerInfo(layers) == 0) return -1;
    const tagLayerInfo* record = RecordWithIndex(layers, index);
    return record != nullptr ? record->nHierarchy : -1;
  });
}

int GetLayerGroup(int index) noexcept {
  return Boundary(-1, -1, [&] {
    const int depth = GetLayerGroupHierarchy(index);
    if (depth <= 0 || index >= kGroupSearchBound) return -1;
    for (int candidate = index;;) {
      if (IsLayerGroup(candidate) != 0 && GetLayerGroupHierarchy(candidate) < depth) return candidate;
      if (++candidate >= kGroupSearchBound) return -1;
    }
  });
}

int GetTopLayerIndex() noexcept {
  return Boundary(-1, -1, [&] {
    std::vector<tagLayerInfo> layers;
    if (GetLayerID(layers) == 0 || layers.empty()) return -1;
    int top = -1;
    for (const tagLayerInfo& record : layers) top = std::max(top, LayerIDToIndex(record.nID));
    return top;
  });
}

int LayerIndexOffset(int index, int offset) noexcept {
  return Boundary(-1, -1, [&] {
    std::vector<tagLayerInfo> layers;
    GetLayerID(layers);
    for (tagLayerInfo& record : layers) record.nIndex = LayerIDToIndex(record.nID);
    for (size_t i = 0; i < layers.size(); ++i) {
      for (size_t j = i + 1; j < layers.size(); ++j) {
        if (layers[i].nIndex > layers[j].nIndex) std::swap(layers[i], layers[j]);
      }
    }
    const long long count = static_cast<long long>(layers.size());
    for (long long place = 0; place < count; ++place) {
      if (layers[static_cast<size_t>(place)].nIndex != index) continue;
      const long long target = place + offset;
      if ((offset > 0 && target < count) || (offset < 0 && target >= 0)) {
        return layers[static_cast<size_t>(target)].nIndex;
      }
    }
    return -1;
  });
}

}  // namespace ostrel::reference
