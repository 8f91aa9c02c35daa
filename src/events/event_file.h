// The event file: the ini file into which the lesson player's notifier script, running inside Photoshop, writes
// what happened, and from which these readers take it. A string key that a reader "takes" is blanked after the
// read, an int key set to 0, so that one event is reported once.
//
// The script writes the file at any moment, and nothing locks it against the readers: a file that is missing,
// empty, half written, cut in the middle of a line or held open by the script reads as the keys that can be read
// from it, and every other key as empty or 0. No reader throws.
//
// Text encoding: the script writes UTF-16LE with a byte order mark, the form in which the Windows profile
// functions keep Chinese layer names whatever the system's code page; a file without the mark is read in the
// ANSI code page (936 on the Chinese Windows served, and so in the portable store too).
#pragma once

#include <string>

#include "ostrel/events.h"

namespace ostrel {

// The file's sections and keys.
namespace event_keys {
inline constexpr wchar_t kColor[] = L"Color";
inline constexpr wchar_t kColorState[] = L"ColorState";
inline constexpr wchar_t kJoinLayerMask[] = L"JoinLayerMask";
inline constexpr wchar_t kState[] = L"State";
inline constexpr wchar_t kLayerName[] = L"LayerName";
inline constexpr wchar_t kDuplicateDelete[] = L"DuplicateDelete";
inline constexpr wchar_t kName[] = L"Name";
inline constexpr wchar_t kSmartObject[] = L"SmartObject";
inline constexpr wchar_t kPath[] = L"Path";
inline constexpr wchar_t kMask[] = L"Mask";
inline constexpr wchar_t kMaskType[] = L"MaskType";
inline constexpr wchar_t kMakeMaskAddMode[] = L"MakeMaskAddMode";
inline constexpr wchar_t kMaskLayerNameStart[] = L"MaskLayerNameStart";
inline constexpr wchar_t kMaskLayerNameDest[] = L"MaskLayerNameDest";
inline constexpr wchar_t kMaskLink[] = L"MaskLink";
inline constexpr wchar_t kSelect[] = L"select";  // the one section in lower case
inline constexpr wchar_t kBrush[] = L"Brush";
inline constexpr wchar_t kPresetName[] = L"PresetName";
inline constexpr wchar_t kLoadSelection[] = L"LoadSelection";
inline constexpr wchar_t kMode[] = L"Mode";
inline constexpr wchar_t kType[] = L"Type";
}  // namespace event_keys

// The file's name in the user's temporary directory, and under the local application data.
inline constexpr wchar_t kEventFileName[] = L"PsNotifiers.ini";

// The event file's path, worked out anew at each call: PsNotifiers.ini in the temporary directory if it is
// there, else <local application data>\Temp\PsNotifiers.ini, there or not.
std::wstring EventFilePath();
// Deletes the file of EventFilePath(): 1 when it was removed, 0 otherwise (also when there was none).
int DeleteEventFile();

// The colour and smart object flags: 1 and the key set to 0 when the key holds wanted, else 0 and the key left.
int TakeColorState(int wanted);
int TakeSmartObjectEdit();

// The layer that joined (state 1) or quit (state 0) a mask; "-1" stands for the active layer.
std::wstring TakeJoinLayerMaskName(int state);
std::wstring TakeDuplicateDeleteName();
std::wstring TakeDeleteMaskLayerName();
std::wstring TakeLinkMaskLayerName();
std::wstring TakeSelectEventLayerName();
std::wstring TakeSmartReplacePath();
std::wstring ReadCurrentBrushPresetName();
int TakeAddMask(std::wstring& start, std::wstring& dest, EnLayerMask& mask);
int TakeLoadSelection(std::wstring& name, EnSelectMode& mode, EnLayerPanel& panel, EnLayerMask& mask);

// The name that "-1" in the file stands for: the active layer's, as the layer panel reads it; "" when the
// library isn't connected or Photoshop fails.
std::wstring ActiveLayerNameForEvents();

}  // namespace ostrel
