// The channels and paths of the active document, what Photoshop's preset managers hold now, and the installed
// fonts. Channel and path indexes are Photoshop's itemIndex, from 1; the channel index -1 is the composite.
#pragma once

#include <string>
#include <vector>

#include "ostrel/export.h"

// The number of channels of the active document; 0 when not connected, without a document and on failure.
OSTREL_API int Ostrel_GetChannelCount() noexcept;
// The itemIndex of the active channel; -1 when there is none and on failure.
OSTREL_API int Ostrel_GetLastSelectChannelIndex() noexcept;
// A channel's name; "RGB" for -1 (with no call, also when not connected); "" on failure.
OSTREL_API std::wstring Ostrel_ChannelIndexToName(int nIndex) noexcept;
// 1 if the channel is visible, else 0 (also on failure).
OSTREL_API int Ostrel_IsChannelVisible(int nIndex) noexcept;
// The visibility of every channel from the first into vecVisible (emptied first), 1 or 0 each; a channel whose
// read fails gives 0. Always 1: with no document the vector stays empty.
OSTREL_API int Ostrel_GetChanelVisible(std::vector<int>& vecVisible) noexcept;

// The number of paths of the active document; 0 when not connected, without a document and on failure.
OSTREL_API int Ostrel_GetPathCount() noexcept;
// The itemIndex of the active path; -1 when there is none and on failure.
OSTREL_API int Ostrel_GetLastSelectPathIndex() noexcept;
// A path's name; "" on failure.
OSTREL_API std::wstring Ostrel_PathIndexToName(int nIndex) noexcept;
// The document's targetPathIndex as Photoshop gives it; -1 on failure.
OSTREL_API int Ostrel_GetPathSelectCount() noexcept;
// The itemIndex of the path of that name; -1 when there is none and on failure.
OSTREL_API int Ostrel_PathNameToIndex(std::wstring strName) noexcept;

// The names that Photoshop's preset managers hold now, in Photoshop's order, into the vector (emptied first). 1;
// 0 when not connected and on failure, with the names read before it. The gradient names lose every ", ".
OSTREL_API int Ostrel_GetBrushPresetList(std::vector<std::wstring>& vecNames) noexcept;
OSTREL_API int Ostrel_GetColorList(std::vector<std::wstring>& vecNames) noexcept;
OSTREL_API int Ostrel_GetGradualList(std::vector<std::wstring>& vecNames) noexcept;
OSTREL_API int Ostrel_GetStyleList(std::vector<std::wstring>& vecNames) noexcept;
OSTREL_API int Ostrel_GetPatternList(std::vector<std::wstring>& vecNames) noexcept;
OSTREL_API int Ostrel_GetContourList(std::vector<std::wstring>& vecNames) noexcept;
OSTREL_API int Ostrel_GetShapeList(std::vector<std::wstring>& vecNames) noexcept;
OSTREL_API int Ostrel_GetToolList(std::vector<std::wstring>& vecNames) noexcept;
// The installed fonts' names in Photoshop's order, as the preset lists.
OSTREL_API int Ostrel_GetFontList(std::vector<std::wstring>& vecNames) noexcept;
