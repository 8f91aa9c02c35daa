// Commands that put Photoshop back into a known state: each a reset of a target, a write of one default into a
// tool's options, or a menu command.
#include "photoshop/resets.h"

#include "frame/dispids.h"
#include "frame/guard.h"
#include "photoshop/action_manager.h"

namespace ostrel {
namespace {

// A reference to the application's key: putProperty(property, K), putEnumerated(application, ordinal, targetEnum).
COleDispatchDriver ApplicationKeyReference(const std::wstring& key) {
  const COleDispatchDriver reference = am::NewReference();
  am::PutProperty(reference, am::StringId(L"property"), am::StringId(key));
  am::PutEnumerated(reference, am::StringId(L"application"), am::StringId(L"ordinal"), am::StringId(L"targetEnum"));
  return reference;
}

// A command descriptor whose target is the reference.
COleDispatchDriver Targeting(const COleDispatchDriver& reference) {
  const COleDispatchDriver descriptor = am::NewDescriptor();
  am::PutReference(descriptor, am::StringId(L"null"), reference);
  return descriptor;
}

void Reset(const COleDispatchDriver& descriptor) { am::ExecuteAction(am::StringId(L"reset"), descriptor); }

struct PatchDefaultRow {
  PatchDefault which;
  const wchar_t* toolClass;
  const wchar_t* key;
  int value;
};

constexpr PatchDefaultRow kPatchDefaults[] = {
    {PatchDefault::kContentAwareMoveMode, L"recomposeSelection", L"recomposeMode", 1},
    {PatchDefault::kPatchStructure, L"patchSelection", L"patchStructureAdapt", 3},
    {PatchDefault::kPatchColor, L"patchSelection", L"patchColorAdaptation", 5},
};

}  // namespace

int ResetWorkspace(const std::wstring& name) {
  const COleDispatchDriver reference = am::NewReference();
  am::PutName(reference, am::StringId(L"workspace"), name);
  const COleDispatchDriver descriptor = Targeting(reference);
  am::ExecuteAction(am::StringId(L"select"), descriptor);
  Reset(descriptor);
  return 1;
}

// The patch defaults after the reset may be refused (the current tool's options may not suit them): that doesn't
// count against the reset.
int ResetAllToolOptions() {
  Reset(Targeting(ApplicationKeyReference(L"allToolOptions")));
  for (const PatchDefaultRow& row : kPatchDefaults) {
    Guarded(0, [&] { return ResetPatchDefault(row.which); });
  }
  return 1;
}

int ResetColors() {
  const COleDispatchDriver reference = am::NewReference();
  am::PutProperty(reference, am::StringId(L"color"), am::StringId(L"colors"));
  Reset(Targeting(reference));
  return 1;
}

int ResetPresetLibrary(const std::wstring& key) {
  Reset(Targeting(ApplicationKeyReference(key)));
  return 1;
}

int ResetPresetLibrary(const std::wstring& key, int append) {
  const COleDispatchDriver descriptor = Targeting(ApplicationKeyReference(key));
  descriptor.Call(dispid::desc::kPutBoolean, {Variant::I4(am::StringId(L"append")), Variant::Bool(append != 0)});
  Reset(descriptor);
  return 1;
}

int ResetPatchDefault(PatchDefault which) {
  const PatchDefaultRow& row = kPatchDefaults[static_cast<int>(which)];
  const COleDispatchDriver tool = am::ReadApplicationKey(L"tool");
  const COleDispatchDriver options = am::GetObjectValue(tool, am::StringId(L"currentToolOptions"));
  options.Call(dispid::desc::kPutInteger, {Variant::I4(am::StringId(row.key)), Variant::I4(row.value)});
  const COleDispatchDriver reference = am::NewReference();
  am::PutClass(reference, am::StringId(row.toolClass));
  am::SetCommand(reference, am::StringId(L"null"), options);
  return 1;
}

int ClosePanel(const wchar_t* menuItem) {
  am::MenuCommand(menuItem);
  return 1;
}

int IgnoreFontName(const std::wstring&) noexcept { return 1; }

}  // namespace ostrel
