// The running Photoshop's interface language, from its interface preferences.
#include "preferences/ui_language.h"

#include "photoshop/action_manager.h"

namespace ostrel {

std::wstring RunningUiLanguage() {
  const COleDispatchDriver answer = am::ReadApplicationKey(L"interfacePrefs");
  const COleDispatchDriver prefs = am::GetObjectValue(answer, am::StringId(L"interfacePrefs"));
  return am::GetString(prefs, am::StringId(L"uiLanguageKey"));
}

}  // namespace ostrel
