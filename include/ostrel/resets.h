// Commands that put Photoshop back into a known state: the workspace, the tools' options, the colours and the
// preset libraries to their defaults, and some panels closed. Each gives 1 when the command went through, 0 when
// not connected or Photoshop refused it.
#pragma once

#include <string>

#include "ostrel/export.h"

// Selects the workspace of that name and resets it.
OSTREL_API int Ostrel_ResetWorkSpace(std::wstring strName) noexcept;
// Resets the options of every tool, then writes the defaults of the content-aware move and patch options (whose
// refusal doesn't count).
OSTREL_API int Ostrel_ResetTool() noexcept;
// Resets the foreground and background colours.
OSTREL_API int Ostrel_ResetColor() noexcept;
// Resets the preset library of a key ("brush", "colors", ...), appending the defaults or replacing the list.
OSTREL_API int Ostrel_ResetPreset(std::wstring strKey, int bAppend) noexcept;
// Reset one preset library each: brushes, swatches, gradients, styles, patterns, custom shapes (under two names),
// tool presets.
OSTREL_API int Ostrel_ResetBrush() noexcept;
OSTREL_API int Ostrel_ResetColors() noexcept;
OSTREL_API int Ostrel_ResetGradientClassEvent() noexcept;
OSTREL_API int Ostrel_ResetStyle() noexcept;
OSTREL_API int Ostrel_ResetPattern() noexcept;
OSTREL_API int Ostrel_ResetCustomShape() noexcept;
OSTREL_API int Ostrel_ResetShapeCurveType() noexcept;
OSTREL_API int Ostrel_ResetToolPreset() noexcept;
// Write the current tool's options, with one value put back to its default, onto the content-aware move tool
// (mode) and the patch tool (structure, colour).
OSTREL_API int Ostrel_ResetContentAwareMoveMixMode() noexcept;
OSTREL_API int Ostrel_ResetPatchStructure() noexcept;
OSTREL_API int Ostrel_ResetPatchColor() noexcept;
// Close a panel through its menu command.
OSTREL_API int Ostrel_ClosePropertiesPannel() noexcept;
OSTREL_API int Ostrel_CloseCloneSourcePanel() noexcept;
OSTREL_API int Ostrel_CloseCharacterPanel() noexcept;
OSTREL_API int Ostrel_CloseParagraphPanel() noexcept;
// Takes a font name and does nothing: 1, connected or not. (The font is chosen in the tool options bar.)
OSTREL_API int Ostrel_SetFontName(std::wstring strFontName) noexcept;
