// Callable exports: the filter table and the words of dialogs and option menus.
#include "calls.h"
#include "ostrel/filters.h"

namespace ostrel::cli {

const std::vector<CallEntry>& FilterCalls() {
  static const std::vector<CallEntry> calls = {
      OSTREL_CALL(Ostrel_LayerFilterIndexToName, "nFilter"),
      OSTREL_CALL(Ostrel_LayerFilterNameToIndex, "strName"),
      OSTREL_CALL(Ostrel_LayerFilterIndexToTopMenuIndex, "nFilter"),
      OSTREL_CALL(Ostrel_FilterGalleryToName, "nFilter"),
      OSTREL_CALL(Ostrel_FilterGalleryNameToEnum, "strName"),
      OSTREL_CALL(Ostrel_CameraRawToName, "nPanel"),
      OSTREL_CALL(Ostrel_RefineEdgeToName, "nControl"),
      OSTREL_CALL(Ostrel_RefineEdgeSubclassToName, "nSub"),
      OSTREL_CALL(Ostrel_IsRefineEdgeSub, "nControl"),
      OSTREL_CALL(Ostrel_RefineEdgeViewToName, "nView"),
      OSTREL_CALL(Ostrel_RefineEdgeIndicateToName, "nIndicate"),
      OSTREL_CALL(Ostrel_RefineEdgeOutputToName, "nOutput"),
      OSTREL_CALL(Ostrel_CropOverlayToName, "nOption"),
      OSTREL_CALL(Ostrel_FileTypeToName, "nType"),
      OSTREL_CALL(Ostrel_FontAntiAliasToName, "nAntiAlias"),
      OSTREL_CALL(Ostrel_ShapeColorToName, "nPanel"),
      OSTREL_CALL(Ostrel_BrushPresetIndexToName, "nPreset"),
      OSTREL_CALL(Ostrel_CanvasMenuIndexToName, "nMenu"),
      OSTREL_CALL(Ostrel_CropOverlayOptionToMenuIndex, "nOption"),
      OSTREL_CALL(Ostrel_PathOperationToMenuIndex, "nOperation"),
      OSTREL_CALL(Ostrel_AlignDistributeToMenuIndex, "nAlign"),
      OSTREL_CALL(Ostrel_ArrangementTypeToMenuIndex, "nType"),
  };
  return calls;
}

}  // namespace ostrel::cli
