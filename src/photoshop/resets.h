// The bodies of the reset and panel commands. They run connected, under the connection's lock; a failed call
// throws to the export boundary, which gives 0.
#pragma once

#include <string>

namespace ostrel {

int ResetWorkspace(const std::wstring& name);
int ResetAllToolOptions();
int ResetColors();
// Resets the preset library of an application key; append is put on the command only where given.
int ResetPresetLibrary(const std::wstring& key);
int ResetPresetLibrary(const std::wstring& key, int append);

// The defaults of the content-aware move and patch tools, written with the current tool's options.
enum class PatchDefault { kContentAwareMoveMode, kPatchStructure, kPatchColor };
int ResetPatchDefault(PatchDefault which);

int ClosePanel(const wchar_t* menuItem);
int IgnoreFontName(const std::wstring& name) noexcept;

}  // namespace ostrel
