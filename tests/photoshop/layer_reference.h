// The layer questions as the library first answered them, kept here as the reference that the library's faster
// paths are compared with. Each function is the export's body of that time behind an export's boundary of its own
// (its unconnected answer, its failure default, an absorbed failure counted as the library counts it), and where
// the body asked another export it asks that export's reference function instead. They read through the same
// Action Manager helpers as the library, so a simulated Photoshop counts their calls the same way.
#pragma once

#include <string>
#include <vector>

#include "ostrel/layer_state.h"

namespace ostrel::reference {

int GetLayerID(std::vector<tagLayerInfo>& layers) noexcept;
int GetLayerInfo(std::vector<tagLayerInfo>& layers) noexcept;
int GetSelectLayerIndex(std::vector<int>& indexes) noexcept;
int GetSelectLayerID(std::vector<int>& ids) noexcept;
int LayerIDToIndex(int id) noexcept;
std::wstring LayerIDToName(int id) noexcept;
int LayerNameToIndex(const std::wstring& name) noexcept;
int IsLayerVisible(int index) noexcept;
int IsLayerGroup(int index) noexcept;
int GetLayerGroupHierarchy(int index) noexcept;
int GetLayerGroup(int index) noexcept;
int GetTopLayerIndex() noexcept;
int LayerIndexOffset(int index, int offset) noexcept;

}  // namespace ostrel::reference
