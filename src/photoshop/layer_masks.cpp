// Masks, layer effects and smart filters of one layer, and what the active layer is being edited as.
#include <algorithm>
#include <string_view>

#include "photoshop/action_manager.h"
#include "photoshop/layer_list.h"
#include "photoshop/main_window.h"

namespace ostrel {
namespace {

// What the main window's title holds while a layer mask, or the filter mask of smart filters, is being edited.
constexpr std::wstring_view kLayerMaskTitle = L"图层蒙版";
constexpr std::wstring_view kFilterMaskTitle = L"滤镜蒙版";

constexpr int kShapeLayerKind = 4;

// The effects of "layerEffects" in the order in which they are listed.
struct EffectKey {
  int style;
  const wchar_t* key;
};
constexpr EffectKey kEffectKeys[] = {
    {8, L"bevelEmboss"},
    {64, L"frameFX"},
    {128, L"innerShadow"},
    {256, L"innerGlow"},
    {512, L"chromeFX"},
    {1024, L"solidFill"},
    {32768, L"gradientFill"},
    {65536, L"patternFill"},
    {131072, L"outerGlow"},
    {262144, L"dropShadow"},
};
constexpr int kAllEffects = 1;
constexpr int kBevel = 8;
constexpr int kBevelContour = 16;
constexpr int kBevelTexture = 32;

// The layer that an index names for the mask questions, after the background offset: -1 is the active layer.
int MaskPlace(int index) { return Ostrel_IsBackgroundLayer() != 0 ? index - 1 : index; }

COleDispatchDriver ReadMaskTarget(int place) {
  return place == -1 ? am::ReadCurrentLayer() : am::ReadLayerByIndex(place);
}

// The active layer's vector mask as a path: putEnumerated(Path, Ordn, vectorMask).
COleDispatchDriver ReadVectorMaskPath() {
  COleDispatchDriver desc = am::NewDescriptor();
  const COleDispatchDriver ref = am::NewReference();
  am::PutEnumerated(ref, am::CharId(L"Path"), am::CharId(L"Ordn"), am::StringId(L"vectorMask"));
  desc = am::ExecuteActionGet(ref);
  return desc;
}

// A boolean key that may be missing: false when it is.
bool BooleanIfPresent(const COleDispatchDriver& desc, const wchar_t* key) {
  const int32_t id = am::StringId(key);
  return am::HasKey(desc, id) && am::GetBoolean(desc, id);
}

std::wstring WithoutEllipses(std::wstring name) {
  for (size_t at = name.find(L"..."); at != std::wstring::npos; at = name.find(L"...", at)) name.erase(at, 3);
  return name;
}

}  // namespace

// ---- Masks -------------------------------------------------------------------------------------------------------

int HasLayerMask(int index) {
  const COleDispatchDriver layer = ReadMaskTarget(MaskPlace(index));
  return am::HasKey(layer, am::StringId(L"userMaskEnabled")) ? 1 : 0;
}

int HasFilterMask(int index) {
  const COleDispatchDriver layer = ReadMaskTarget(MaskPlace(index));
  return BooleanIfPresent(layer, L"hasFilterMask") ? 1 : 0;
}

int IsClipped(int index) {
  const COleDispatchDriver layer = ReadMaskTarget(MaskPlace(index));
  return BooleanIfPresent(layer, L"group") ? 1 : 0;
}

int HasVectorMask(int index) {
  // A shape layer's outline is its vector mask: a shape layer doesn't count as having one.
  if (Ostrel_GetLayerSheetKind(index) == kShapeLayerKind) return 0;
  const int place = MaskPlace(index);
  if (place == -1) return am::HasKey(ReadVectorMaskPath(), am::CharId(L"Knd ")) ? 1 : 0;
  return BooleanIfPresent(am::ReadLayerByIndex(place), L"hasVectorMask") ? 1 : 0;
}

int IsEditingLayerMask() {
  const COleDispatchDriver layer = am::ReadCurrentLayer();
  if (!am::HasKey(layer, am::StringId(L"userMaskEnabled"))) return 0;
  return MainWindowTitleHolds(kLayerMaskTitle) ? 1 : 0;
}

int IsEditingFilterMask() {
  const COleDispatchDriver layer = am::ReadCurrentLayer();
  if (!am::HasKey(layer, am::StringId(L"hasFilterMask"))) return 0;
  return MainWindowTitleHolds(kFilterMaskTitle) ? 1 : 0;
}

int IsEditingVectorMask() {
  const COleDispatchDriver path = ReadVectorMaskPath();
  const int32_t kind = am::CharId(L"Knd ");
  if (!am::HasKey(path, kind)) return 0;
  return am::GetEnumerationValue(path, kind) == am::StringId(L"vectorMask") ? 1 : 0;
}

// ---- Layer effects -----------------------------------------------------------------------------------------------

int ReadLayerStyles(int index, std::vector<tagLayerStyleInfo>& styles) {
  styles.clear();
  const int place = MaskPlace(index);
  const COleDispatchDriver layer = am::ReadLayerByIndex(place);
  const int32_t effectsKey = am::StringId(L"layerEffects");
  if (!am::HasKey(layer, effectsKey)) return 0;
  const auto add = [&](bool visible, int style) {
    styles.push_back(tagLayerStyleInfo{visible ? 1 : 0, static_cast<EnLayerStyle>(style)});
  };
  add(am::GetBoolean(layer, am::StringId(L"layerFXVisible")), kAllEffects);
  const COleDispatchDriver effects = am::GetObjectValue(layer, effectsKey);
  for (const EffectKey& row : kEffectKeys) {
    const int32_t key = am::StringId(row.key);
    if (!am::HasKey(effects, key)) continue;
    const COleDispatchDriver effect = am::GetObjectValue(effects, key);
    add(am::GetBoolean(effect, am::StringId(L"enabled")), row.style);
    if (row.style != kBevel) continue;
    if (am::GetBoolean(effect, am::StringId(L"useShape"))) add(true, kBevelContour);
    if (am::GetBoolean(effect, am::StringId(L"useTexture"))) add(true, kBevelTexture);
  }
  return 1;
}

namespace {

const tagLayerStyleInfo* FindStyle(const std::vector<tagLayerStyleInfo>& styles, EnLayerStyle style) {
  const auto found = std::find_if(styles.begin(), styles.end(), [&](const auto& s) { return s.nStyle == style; });
  return found == styles.end() ? nullptr : &*found;
}

const tagSmartFilterInfo* FindFilter(const std::vector<tagSmartFilterInfo>& filters, EnLayerFilter filter) {
  const auto found = std::find_if(filters.begin(), filters.end(), [&](const auto& f) { return f.nFilter == filter; });
  return found == filters.end() ? nullptr : &*found;
}

}  // namespace

int HasLayerStyle(int index, EnLayerStyle style) {
  std::vector<tagLayerStyleInfo> styles;
  if (Ostrel_GetLayerStyle(index, styles) == 0) return 0;
  return FindStyle(styles, style) != nullptr ? 1 : 0;
}

int LayerStyleVisible(int index, EnLayerStyle style) {
  std::vector<tagLayerStyleInfo> styles;
  if (Ostrel_GetLayerStyle(index, styles) == 0) return 0;
  const tagLayerStyleInfo* found = FindStyle(styles, style);
  return found != nullptr ? found->bVisible : 0;
}

// ---- Smart filters -----------------------------------------------------------------------------------------------

int ReadSmartFilters(int index, std::vector<tagSmartFilterInfo>& filters) {
  filters.clear();
  const int place = MaskPlace(index);
  const COleDispatchDriver layer = am::ReadLayerByIndex(place);
  if (!am::GetBoolean(layer, am::StringId(L"hasFilterMask"))) return 1;
  const COleDispatchDriver more = am::GetObjectValue(layer, am::StringId(L"smartObjectMore"));
  const COleDispatchDriver filterFx = am::GetObjectValue(more, am::StringId(L"filterFX"));
  const COleDispatchDriver list = am::GetList(filterFx, am::StringId(L"filterFXList"));
  am::ForEachPosition(list, [&](int32_t position) {
    const COleDispatchDriver filter = am::ListGetObjectValue(list, position);
    const std::wstring name = WithoutEllipses(am::GetString(filter, am::StringId(L"name")));
    const EnLayerFilter number = Ostrel_LayerFilterNameToIndex(name);
    const bool enabled = am::GetBoolean(filter, am::StringId(L"enabled"));
    filters.push_back(tagSmartFilterInfo{number, enabled ? 1 : 0});
  });
  return 1;
}

int HasSmartFilter(int index, EnLayerFilter filter) {
  std::vector<tagSmartFilterInfo> filters;
  if (Ostrel_GetLayerFilter(index, filters) == 0) return 0;
  return FindFilter(filters, filter) != nullptr ? 1 : 0;
}

int SmartFilterVisible(int index, EnLayerFilter filter) {
  std::vector<tagSmartFilterInfo> filters;
  if (Ostrel_GetLayerFilter(index, filters) == 0) return 0;
  const tagSmartFilterInfo* found = FindFilter(filters, filter);
  return found != nullptr ? found->bVisible : 0;
}

}  // namespace ostrel
