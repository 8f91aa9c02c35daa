// The bodies of the channel, path, preset list and font exports. They run connected, under the connection's lock;
// a failed call throws to the export boundary unless said otherwise.
#pragma once

#include <string>
#include <vector>

namespace ostrel {

int ChannelCount();
int CurrentChannelIndex();
std::wstring ChannelName(int index);
// The name of the composite channel, which needs no read: "RGB" for -1, whatever the document's mode.
std::wstring ChannelNameUnconnected(int index) noexcept;
int IsChannelVisible(int index);
// Every channel's visibility; a failed read gives 0 for its channel, and a failed count no channels. Always 1.
int ReadChannelVisibility(std::vector<int>& visible);
// Empties the vector and gives result: the answer of a list export that can't read.
int EmptiedAnd(std::vector<int>& values, int result) noexcept;

int PathCount();
int CurrentPathIndex();
std::wstring PathName(int index);
int TargetPathIndex();
int PathIndexOfName(const std::wstring& name);

// Photoshop's preset managers by their position in the application's "presetManager" list.
enum class PresetManager { kBrushes = 0, kSwatches, kGradients, kStyles, kPatterns, kContours, kShapes, kToolPresets };
int ReadPresetManager(PresetManager manager, std::vector<std::wstring>& names);
int ReadFontList(std::vector<std::wstring>& names);

}  // namespace ostrel
