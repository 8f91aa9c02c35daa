// Channels and paths of the active document by Photoshop's itemIndex, the names in the preset managers, and the
// installed fonts.
#include "photoshop/channels_paths.h"

#include "frame/dispids.h"
#include "frame/guard.h"
#include "photoshop/action_manager.h"

namespace ostrel {
namespace {

namespace obj = dispid::obj;

// The composite channel: it has no itemIndex of its own and always this name.
constexpr int kCompositeChannel = -1;
constexpr const wchar_t* kCompositeName = L"RGB";

int CollectionCount(int32_t collectionId) {
  const COleDispatchDriver document = am::ActiveDocument();
  const COleDispatchDriver collection = am::Wrap(document.Get(collectionId));
  return collection.Get(obj::kCount).AsI4();
}

// A gradient's name as the lesson scripts write it: without any ", ".
std::wstring WithoutCommaBlanks(std::wstring name) {
  for (size_t at = name.find(L", "); at != std::wstring::npos; at = name.find(L", ", at)) name.erase(at, 2);
  return name;
}

}  // namespace

// ---- Channels --------------------------------------------------------------------------------------------------

int ChannelCount() { return CollectionCount(obj::kChannels); }

int CurrentChannelIndex() {
  const COleDispatchDriver channel = am::ReadCurrentChannel();
  return am::GetInteger(channel, am::StringId(L"itemIndex"));
}

std::wstring ChannelNameUnconnected(int index) noexcept {
  return index == kCompositeChannel ? std::wstring(kCompositeName) : std::wstring();
}

std::wstring ChannelName(int index) {
  if (index == kCompositeChannel) return kCompositeName;
  const COleDispatchDriver channel = am::ReadChannelByIndex(index);
  return am::GetString(channel, am::StringId(L"channelName"));
}

int IsChannelVisible(int index) {
  const COleDispatchDriver channel = am::ReadChannelByIndex(index);
  return am::GetBoolean(channel, am::StringId(L"visible")) ? 1 : 0;
}

int ReadChannelVisibility(std::vector<int>& visible) {
  visible.clear();
  const int count = Guarded(0, [] { return ChannelCount(); });
  for (int index = 1; index <= count; ++index) {
    visible.push_back(Guarded(0, [&] { return IsChannelVisible(index); }));
  }
  return 1;
}

int EmptiedAnd(std::vector<int>& values, int result) noexcept {
  values.clear();
  return result;
}

// ---- Paths -----------------------------------------------------------------------------------------------------

int PathCount() { return CollectionCount(obj::kPathItems); }

int CurrentPathIndex() {
  const COleDispatchDriver path = am::ReadCurrentPath();
  return am::GetInteger(path, am::StringId(L"itemIndex"));
}

std::wstring PathName(int index) {
  const COleDispatchDriver path = am::ReadPathByIndex(index);
  return am::GetString(path, am::StringId(L"pathName"));
}

int TargetPathIndex() {
  const COleDispatchDriver document = am::ReadCurrentDocument(L"targetPathIndex", am::IdForm::kString);
  return am::GetInteger(document, am::StringId(L"targetPathIndex"));
}

// Photoshop finds the path by its name; the read asks for its itemIndex alone.
int PathIndexOfName(const std::wstring& name) {
  COleDispatchDriver path = am::NewDescriptor();
  const COleDispatchDriver reference = am::NewReference();
  am::PutProperty(reference, am::StringId(L"property"), am::StringId(L"itemIndex"));
  am::PutName(reference, am::CharId(L"Path"), name);
  path = am::ExecuteActionGet(reference);
  return am::GetInteger(path, am::StringId(L"itemIndex"));
}

// ---- Preset managers and fonts -----------------------------------------------------------------------------------

int ReadPresetManager(PresetManager manager, std::vector<std::wstring>& names) {
  names.clear();
  const COleDispatchDriver application = am::ReadApplication();
  const COleDispatchDriver managers = am::GetList(application, am::StringId(L"presetManager"));
  const COleDispatchDriver presets = am::ListGetObjectValue(managers, static_cast<int32_t>(manager));
  const COleDispatchDriver list = am::GetList(presets, am::CharId(L"Nm  "));
  for (int32_t position = 0; position < am::Count(list); ++position) {  // the count is asked before each name
    std::wstring name = am::ListGetString(list, position);
    names.push_back(manager == PresetManager::kGradients ? WithoutCommaBlanks(std::move(name)) : std::move(name));
  }
  return 1;
}

int ReadFontList(std::vector<std::wstring>& names) {
  names.clear();
  const COleDispatchDriver fonts = am::Wrap(Application().Get(dispid::app::kFonts));
  for (int32_t position = 1; position <= fonts.Get(obj::kCount).AsI4(); ++position) {  // the count asked afresh
    const COleDispatchDriver font = am::Wrap(fonts.Call(obj::kItem, {Variant::I2(static_cast<int16_t>(position))}));
    names.push_back(font.Get(obj::kName).AsBstr());
  }
  return 1;
}

}  // namespace ostrel
