// The event file's path rule and its readers, over the platform's ini store and files.
#include "events/event_file.h"

#include <optional>

#include "frame/dispids.h"
#include "frame/guard.h"
#include "photoshop/action_manager.h"
#include "photoshop/documents.h"
#include "ostrel/layer_state.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace ostrel {
namespace {

namespace k = event_keys;

// The marks of an indexed-colour document in its name, and the names its only layer has in the panel.
// What the script writes for "the layer that is current now".
constexpr std::wstring_view kCurrentLayerMark = L"-1";

// One file for one reader's work: the path rule isn't worked out again between its read and its blanking.
class EventFile {
 public:
  EventFile() : m_path(EventFilePath()) {}

  std::wstring String(const wchar_t* section, const wchar_t* key) const {
    return CurrentPlatform().ini->GetString(m_path, section, key).value_or(std::wstring());
  }
  int Int(const wchar_t* section, const wchar_t* key) const { return WToI(String(section, key)); }
  void Blank(const wchar_t* section, const wchar_t* key) const {
    CurrentPlatform().ini->SetString(m_path, section, key, std::wstring());
  }
  void Zero(const wchar_t* section, const wchar_t* key) const {
    CurrentPlatform().ini->SetString(m_path, section, key, L"0");
  }
  // Reads a string key and blanks it when it held something.
  std::wstring Take(const wchar_t* section, const wchar_t* key) const {
    std::wstring value = String(section, key);
    if (!value.empty()) Blank(section, key);
    return value;
  }

 private:
  std::wstring m_path;
};

std::wstring ResolveCurrentLayer(std::wstring name) {
  if (name == kCurrentLayerMark) return ActiveLayerNameForEvents();
  return name;
}

// The mask bits of EnLayerMask by the number the script writes: 0 to 4 give 1, 2, 4, 8, 16.
bool MaskFromNumber(int number, int highest, EnLayerMask& mask) {
  if (number < 0 || number > highest) return false;
  mask = static_cast<EnLayerMask>(1 << number);
  return true;
}

}  // namespace

std::wstring EventFilePath() {
  IFileSystem& files = *CurrentPlatform().files;
  const std::wstring inTemp = files.TempDirectory() + kEventFileName;
  if (files.FileExists(inTemp)) return inTemp;
  return files.LocalAppDataDirectory() + L"\\Temp\\" + kEventFileName;
}

int DeleteEventFile() {
  return CurrentPlatform().files->RemoveFile(EventFilePath()) ? 1 : 0;
}

int TakeColorState(int wanted) {
  const EventFile file;
  if (file.Int(k::kColor, k::kColorState) != wanted) return 0;
  file.Zero(k::kColor, k::kColorState);
  return 1;
}

int TakeSmartObjectEdit() {
  const EventFile file;
  if (file.Int(k::kSmartObject, k::kState) != 1) return 0;
  file.Zero(k::kSmartObject, k::kState);
  return 1;
}

std::wstring TakeJoinLayerMaskName(int state) {
  const EventFile file;
  if (file.Int(k::kJoinLayerMask, k::kState) != state) return {};
  std::wstring name = file.Take(k::kJoinLayerMask, k::kLayerName);
  if (name.empty()) return {};
  return ResolveCurrentLayer(std::move(name));
}

std::wstring TakeDuplicateDeleteName() {
  return EventFile().Take(k::kDuplicateDelete, k::kName);
}

std::wstring TakeDeleteMaskLayerName() {
  return ResolveCurrentLayer(EventFile().Take(k::kDuplicateDelete, k::kName));
}

std::wstring TakeLinkMaskLayerName() {
  return ResolveCurrentLayer(EventFile().Take(k::kMaskLink, k::kName));
}

std::wstring TakeSelectEventLayerName() {
  return EventFile().Take(k::kSelect, k::kName);
}

std::wstring TakeSmartReplacePath() {
  return EventFile().Take(k::kSmartObject, k::kPath);
}

std::wstring ReadCurrentBrushPresetName() {
  return EventFile().String(k::kBrush, k::kPresetName);
}

int TakeAddMask(std::wstring& start, std::wstring& dest, EnLayerMask& mask) {
  start.clear();
  dest.clear();
  const EventFile file;
  const std::wstring maskType = file.String(k::kMask, k::kMaskType);
  if (maskType.empty()) return 0;
  MaskFromNumber(WToI(maskType), 4, mask);
  if (!file.String(k::kMask, k::kMakeMaskAddMode).empty()) {
    dest = ActiveLayerNameForEvents();
  } else {
    start = ResolveCurrentLayer(file.String(k::kMask, k::kMaskLayerNameStart));
    dest = ResolveCurrentLayer(file.String(k::kMask, k::kMaskLayerNameDest));
  }
  file.Blank(k::kMask, k::kMaskType);
  return 1;
}

int TakeLoadSelection(std::wstring& name, EnSelectMode& mode, EnLayerPanel& panel, EnLayerMask& mask) {
  const EventFile file;
  name = file.String(k::kLoadSelection, k::kName);
  if (name.empty()) return 0;
  mode = static_cast<EnSelectMode>(file.Int(k::kLoadSelection, k::kMode));
  if (const int type = file.Int(k::kLoadSelection, k::kType); type >= 0 && type <= 2) {
    panel = static_cast<EnLayerPanel>(type);
  }
  MaskFromNumber(file.Int(k::kLoadSelection, k::kMaskType), 3, mask);
  file.Blank(k::kLoadSelection, k::kName);
  return 1;
}

std::wstring ActiveLayerNameForEvents() { return Ostrel_GetLastSelectLayerName(); }

}  // namespace ostrel
