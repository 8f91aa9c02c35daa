// The bodies of the tool state exports, and the option walk behind Ostrel_GetToolFeatures. They run connected,
// under the connection's lock; a failed call throws to the export boundary unless said otherwise.
#pragma once

#include <string>
#include <vector>

#include "ostrel/tool_state.h"
#include "photoshop/action_manager.h"

namespace ostrel {

EnToolIndex CurrentToolIndex();
int SetCurrentTool(int index);

// Reads the active tool's options and walks them for the option's value. 1 if found, else 0.
int ReadToolOption(int option, std::wstring& value);

// Searches options, and its nested descriptors depth first, for the option's key, and renders its value into
// value. 1 as soon as the value is there, else 0. A failed call ends this run (not the run that nested it) with 0.
int WalkToolOptions(const COleDispatchDriver& options, int option, std::wstring& value) noexcept;

// The renderings of the walk: a number Photoshop holds, and a name of Photoshop's, in the numbering of the TF
// rows.
std::wstring ToolOptionNumberText(int option, int number);
std::wstring ToolOptionNameText(int option, const std::wstring& name);

int ReadStrokeDashes(std::vector<double>& dashes);
int ReadStrokeStylePreset(EnStrokeStylePreset& preset);
int SetCustomShapeName(const std::wstring& name);
int ZoomScreen(const std::wstring& menuItem);
int ImportPresetFile(const std::wstring& kind, const std::wstring& path, int append);

// Ostrel_GetFontName with a string: nothing to do, the answer is 1.
inline int KeepFontName(std::wstring& /*font*/) noexcept { return 1; }

// The unconnected and failed answer of the stroke style preset: none, and 0.
int NoStrokeStylePreset(EnStrokeStylePreset& preset) noexcept;
// The unconnected answer of a list reader: its vector emptied, and 0.
int NoDashes(std::vector<double>& dashes) noexcept;

}  // namespace ostrel
