// The bodies of the layer list exports and of the masks, effects and smart filters of one layer. Each runs
// connected, under the connection's lock (the export boundary sees to both); a failed call throws to the boundary,
// which gives the export's default. Where one question is answered from another ("the list of layers", "the
// background test"), the body asks the other export itself, so that a failure inside it gives that export's
// default and the question goes on as it would with that answer; the faster paths of the questions that need one
// number of each layer read those keys themselves and count such a failure as the boundary counts it.
#pragma once

#include <string>
#include <vector>

#include "ostrel/layer_state.h"

namespace ostrel {

// The record's values after a reset: those of a fresh record, but nTail 0 and strName as it was.
void ResetLayerInfo(tagLayerInfo& info) noexcept;

// ---- The list ----
int ReadLayerIds(std::vector<tagLayerInfo>& layers);
int ReadLayerInfo(std::vector<tagLayerInfo>& layers);
int LayerCount();
int ReadLayerVisibility(std::vector<tagLayerVisibleInfo>& layers);

// ---- Selection ----
int ReadSelectedLayerIndexes(std::vector<int>& indexes);
int ReadSelectedLayerIds(std::vector<int>& ids);
int SelectedLayerCount();
int IsLayerSelected(int index);
int ActiveLayerIndex();
std::wstring ActiveLayerName();

// ---- One layer ----
int LayerIndexToId(int index);
int LayerIdToIndex(int id);
std::wstring LayerIndexToName(int index);
std::wstring LayerIdToName(int id);
int LayerNameToIndex(const std::wstring& name);
int IsLayerVisible(int index);
int IsLayerGroup(int index);
EnSheetKind LayerSheetKind(int index);
int IsLayerSmart(int index);
int LayerGroupHierarchy(int index);
int EnclosingLayerGroup(int index);
int IsActiveLayerEmpty();

// ---- The stack ----
int HasBackgroundLayer();
int TopLayerIndex();
int LayerIndexOffset(int index, int offset);

// ---- The active layer, through the object model ----
EnLayerBlend ActiveLayerBlend();
int ActiveLayerOpacity();
int ActiveLayerFillOpacity();
enum class LayerLock { kAll, kPixels, kPosition, kTransparentPixels };
int IsActiveLayerLocked(LayerLock lock);

// The layer blend number of the object model's blendMode number (1 to 30), or -1.
EnLayerBlend LayerBlendFromObjectModel(int blendMode) noexcept;

// ---- Masks, effects and smart filters ----
int HasLayerMask(int index);
int HasVectorMask(int index);
int HasFilterMask(int index);
int IsClipped(int index);
int IsEditingLayerMask();
int IsEditingVectorMask();
int IsEditingFilterMask();
int ReadLayerStyles(int index, std::vector<tagLayerStyleInfo>& styles);
int HasLayerStyle(int index, EnLayerStyle style);
int LayerStyleVisible(int index, EnLayerStyle style);
int ReadSmartFilters(int index, std::vector<tagSmartFilterInfo>& filters);
int HasSmartFilter(int index, EnLayerFilter filter);
int SmartFilterVisible(int index, EnLayerFilter filter);

// What a list reader gives when it must not run: its vector emptied, and the result.
template <class T>
int EmptiedAnd(std::vector<T>& values, int result) noexcept {
  values.clear();
  return result;
}

}  // namespace ostrel
