// The bodies of the brush section, panel and colour exports. They run connected, under the connection's lock; a
// failed call throws to the export boundary, which gives the export's default.
#pragma once

#include <cstdint>

namespace ostrel {

// Whether a section of the current tool's brush is on, by its brush settings page (2 shape dynamics ... 4096
// protect texture). A page without a switch gives 0 without a read.
int IsBrushSectionOn(int page);
// The export of the page's section, called as the lesson player would call it; 0 without touching Photoshop for a
// page that has no switch.
int IsBrushPresetPageOn(int page) noexcept;

// The panels of the layer panel group: 0 layers, 1 channels, 2 paths.
bool IsLayerPanelValue(int panel) noexcept;
int IsPanelShown(int panel);
// Shows the panel through its toggle unless it is shown already. 1.
int ShowPanel(int panel);

// The foreground or background colour, 0x00BBGGRR.
enum class ColorSlot { kForeground, kBackground };
int ReadColor(ColorSlot slot, std::uint32_t& color);
int WriteColor(ColorSlot slot, std::uint32_t color);
// Sets color to 0 and gives 0: the answer of a colour read that can't read.
int NoColor(std::uint32_t& color) noexcept;

}  // namespace ostrel
