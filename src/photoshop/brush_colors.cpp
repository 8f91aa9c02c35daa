// The sections of the current brush, the panels of the layer panel group, and the foreground and background
// colours through the object model's SolidColor and RGBColor.
#include "photoshop/brush_colors.h"

#include <iterator>

#include "frame/dispids.h"
#include "ostrel/brush_colors.h"
#include "photoshop/action_manager.h"
#include "platform/color_text.h"

namespace ostrel {
namespace {

// A brush settings page with its switch in the tool's options; dual brush has its switch one object down.
struct BrushSection {
  int page;
  const wchar_t* key;
  const wchar_t* inside;  // the object that holds the key, or null for the options themselves
};

constexpr BrushSection kBrushSections[] = {
    {2, L"useTipDynamics", nullptr},   {4, L"useScatter", nullptr},        {8, L"useTexture", nullptr},
    {16, L"useDualBrush", L"dualBrush"}, {32, L"useColorDynamics", nullptr}, {64, L"usePaintDynamics", nullptr},
    {128, L"useBrushPose", nullptr},   {256, L"noise", nullptr},           {512, L"wetEdges", nullptr},
    {1024, L"repeat", nullptr},        {2048, L"smoothing", nullptr},      {4096, L"protectTexture", nullptr},
};

const BrushSection* SectionOf(int page) noexcept {
  for (const BrushSection& section : kBrushSections) {
    if (section.page == page) return &section;
  }
  return nullptr;
}

// A panel as uiInfo's getViewInfo names it, and the menu command that shows or hides it.
struct LayerGroupPanel {
  const wchar_t* viewId;
  const wchar_t* panel;
  const wchar_t* toggle;
};

constexpr LayerGroupPanel kPanels[] = {
    {L"$layr", L"layers", L"toggleLayersPalette"},
    {L"$chnl", L"channels", L"toggleChannelsPalette"},
    {L"$path", L"paths", L"togglePathsPalette"},
};

// executeAction whose answer is read: uiInfo answers in the descriptor it gives back.
COleDispatchDriver ExecuteActionForAnswer(int32_t eventId, const COleDispatchDriver& descriptor) {
  return am::Wrap(Application().Call(dispid::app::kExecuteAction, {Variant::I4(eventId),
                                                                   Variant::Dispatch(descriptor.m_lpDispatch),
                                                                   Variant::I4(am::kDialogModeNone)}));
}

int32_t ColorProperty(ColorSlot slot) {
  return slot == ColorSlot::kForeground ? dispid::app::kForegroundColor : dispid::app::kBackgroundColor;
}

}  // namespace

// ---- Brush sections ----------------------------------------------------------------------------------------------

int IsBrushPresetPageOn(int page) noexcept {
  struct PageExport {
    int page;
    int (*read)() noexcept;
  };
  static constexpr PageExport kExports[] = {
      {2, Ostrel_IsBrushPresetUseTipDynamice},    {4, Ostrel_IsBrushPresetUseScatter},
      {8, Ostrel_IsBrushPresetUseTexture},        {16, Ostrel_IsBurshPresetUseDualBrush},
      {32, Ostrel_IsBrushPresetUseColorDynamice}, {64, Ostrel_IsBrushPresetUsePaintDynamice},
      {128, Ostrel_IsBrushPresetUseBrushPose},    {256, Ostrel_IsBrushPresetUseNoise},
      {512, Ostrel_IsBrushPresetUseWetEdges},     {1024, Ostrel_IsBrushPresetUseRepeat},
      {2048, Ostrel_IsBrushPresetUseSmoothing},   {4096, Ostrel_IsBrushPresetUseProtrctTexture},
  };
  for (const PageExport& entry : kExports) {
    if (entry.page == page) return entry.read();
  }
  return 0;
}

int IsBrushSectionOn(int page) {
  const BrushSection* section = SectionOf(page);
  if (!section) return 0;
  const COleDispatchDriver tool = am::ReadApplicationKey(L"tool");
  const COleDispatchDriver options = am::GetObjectValue(tool, am::StringId(L"currentToolOptions"));
  if (!section->inside) return am::GetBoolean(options, am::StringId(section->key)) ? 1 : 0;
  const COleDispatchDriver holder = am::GetObjectValue(options, am::StringId(section->inside));
  return am::GetBoolean(holder, am::StringId(section->key)) ? 1 : 0;
}

// ---- Panels ------------------------------------------------------------------------------------------------------

bool IsLayerPanelValue(int panel) noexcept { return panel >= 0 && panel < static_cast<int>(std::size(kPanels)); }

int IsPanelShown(int panel) {
  const LayerGroupPanel& which = kPanels[panel];
  const COleDispatchDriver reference = am::NewReference();
  am::PutEnumerated(reference, am::CharId(L"capp"), am::CharId(L"Ordn"), am::CharId(L"Trgt"));
  const COleDispatchDriver command = am::NewDescriptor();
  am::PutReference(command, am::StringId(L"null"), reference);
  command.Call(dispid::desc::kPutString, {Variant::I4(am::StringId(L"command")), Variant::Bstr(L"getViewInfo")});
  command.Call(dispid::desc::kPutString, {Variant::I4(am::StringId(L"viewID")), Variant::Bstr(which.viewId)});
  command.Call(dispid::desc::kPutString, {Variant::I4(am::StringId(L"panel")), Variant::Bstr(which.panel)});
  const COleDispatchDriver answer = ExecuteActionForAnswer(am::StringId(L"uiInfo"), command);
  const COleDispatchDriver view = am::GetObjectValue(answer, am::StringId(L"view"));
  return am::GetBoolean(view, am::StringId(L"shown")) ? 1 : 0;
}

int ShowPanel(int panel) {
  if (IsPanelShown(panel) == 1) return 1;
  am::MenuCommand(kPanels[panel].toggle);
  return 1;
}

// ---- Colours -----------------------------------------------------------------------------------------------------

int ReadColor(ColorSlot slot, std::uint32_t& color) {
  color = 0;
  const COleDispatchDriver solid = am::Wrap(Application().Get(ColorProperty(slot)));
  const COleDispatchDriver rgb = am::Wrap(solid.Get(dispid::obj::kRgb));
  color = StringToColor(rgb.Get(dispid::obj::kHexValue).AsBstr());
  return 1;
}

int WriteColor(ColorSlot slot, std::uint32_t color) {
  const COleDispatchDriver solid = am::Wrap(Application().Get(ColorProperty(slot)));
  const COleDispatchDriver rgb = am::Wrap(solid.Get(dispid::obj::kRgb));
  rgb.Put(dispid::obj::kHexValue, Variant::Bstr(ColorToString(color)));
  solid.Put(dispid::obj::kRgb, Variant::Dispatch(rgb.m_lpDispatch));
  Application().Put(ColorProperty(slot), Variant::Dispatch(solid.m_lpDispatch));
  return 1;
}

int NoColor(std::uint32_t& color) noexcept {
  color = 0;
  return 0;
}

}  // namespace ostrel
