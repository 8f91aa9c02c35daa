// The connection to Photoshop.
#include "frame/connection.h"

#include <cstdint>

#include "frame/dispids.h"
#include "frame/log.h"
#include "platform/platform.h"

namespace ostrel {
namespace {

struct VersionRow {
  const wchar_t* name;  // as the host's parameter 66 gives it
  const wchar_t* code;  // behind the ProgIDs
};

// The versions served, in the order of the name test and of the tries.
constexpr VersionRow kVersions[] = {
    {L"Adobe Photoshop CC 2017", L"110"},
    {L"Adobe Photoshop CC 2018", L"120"},
    {L"Adobe Photoshop CC 2019", L"130"},
    {L"Adobe Photoshop 2020", L"140"},
    {L"Adobe Photoshop 2021", L"150"},
};
constexpr const wchar_t* kDefaultVersionCode = L"110";
constexpr int kPasses = 2;

struct ProgIDs {
  std::wstring application, descriptor, reference;
};

ProgIDs& TheProgIDs() noexcept {
  static ProgIDs progIds;
  return progIds;
}

void SetProgIDs(const std::wstring& code) {
  ProgIDs& ids = TheProgIDs();
  ids.application = L"Photoshop.Application." + code;
  ids.descriptor = L"Photoshop.ActionDescriptor." + code;
  ids.reference = L"Photoshop.ActionReference." + code;
}

// A pointer as the log shows it: its low 32 bits in hex.
unsigned PointerBits(const DispatchPtr& dispatch) {
  return static_cast<unsigned>(reinterpret_cast<uintptr_t>(dispatch.get()) & 0xFFFFFFFFu);
}

// One pass: the version in force, then every version in order, each only while not connected. Gives the code
// of the version that connected, or nothing.
bool TryOnePass(std::wstring& code, COleException& error) {
  COleDispatchDriver& app = Application();
  app.CreateDispatch(TheProgIDs().application, &error);
  if (!app.IsEmpty()) return true;
  for (const VersionRow& version : kVersions) {
    app.CreateDispatch(std::wstring(L"Photoshop.Application.") + version.code, &error);
    if (!app.IsEmpty()) {
      code = version.code;
      return true;
    }
  }
  return false;
}

}  // namespace

std::recursive_mutex& ConnectionMutex() noexcept {
  static std::recursive_mutex mutex;
  return mutex;
}

COleDispatchDriver& Application() noexcept {
  static COleDispatchDriver application;
  return application;
}

const std::wstring& ApplicationProgID() noexcept { return TheProgIDs().application; }
const std::wstring& DescriptorProgID() noexcept { return TheProgIDs().descriptor; }
const std::wstring& ReferenceProgID() noexcept { return TheProgIDs().reference; }

std::wstring VersionCodeOf(const std::wstring& versionName) {
  for (const VersionRow& version : kVersions) {
    if (versionName == version.name) return version.code;
  }
  return kDefaultVersionCode;
}

int ConnectPhotoshop() {
  std::lock_guard lock(ConnectionMutex());
  CLogFile& log = TheLog();
  COleDispatchDriver& app = Application();
  log.Write(L"%s-初始化之前 :m_lpDispatch:%x-m_bAutoRelease:%d\n", L"Init", PointerBits(app.m_lpDispatch),
            app.m_bAutoRelease ? 1 : 0);
  if (!app.IsEmpty()) return 1;

  Platform& platform = CurrentPlatform();
  log.Write(L"CoInitializeEx==%d", platform.automation->Initialize());

  std::wstring code = VersionCodeOf(platform.parameters->GetString(EnTallyKey::kPhotoshopVersionName));
  SetProgIDs(code);
  COleException error;  // shared by every try; each failure overwrites it
  for (int pass = 0; pass < kPasses && app.IsEmpty(); ++pass) {
    if (TryOnePass(code, error)) break;
  }
  SetProgIDs(code);

  log.Write(L"%s-初始化之后 :m_lpDispatch:%x-m_lpDispatch:%d-%s\n", L"Init", PointerBits(app.m_lpDispatch),
            app.m_bAutoRelease ? 1 : 0, code);
  std::wstring message = error.GetErrorMessage();
  if (message.size() > 1023) message.resize(1023);  // the message buffer holds 1024 characters
  log.Write(L"CreateDispatch=%s", message);
  return app.IsEmpty() ? 0 : 1;
}

void ReleasePhotoshop() {
  std::lock_guard lock(ConnectionMutex());
  COleDispatchDriver& app = Application();
  if (!app.IsEmpty()) app.ReleaseDispatch();
}

int ServiceIdle() {
  const COleDispatchDriver& app = Application();
  if (app.Get(dispid::app::kVisible).AsBool()) return 1;
  const std::wstring version = app.Get(dispid::app::kVersion).AsBstr();
  if (!version.empty()) return 1;
  TheLog().Write(L"%s-服务占用判断失败 _bState:%d-_strVersion:%s\n", L"IsServiceIdle", 0, version);
  return 0;
}

}  // namespace ostrel
