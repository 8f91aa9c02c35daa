// The COM bridge of the tests.
#include "com_bridge.h"

#include <objbase.h>
#include <oleauto.h>

#include <atomic>
#include <memory>

#include "platform/win32/com_automation.h"
#include "platform/win32/holders.h"

namespace ostrel::testing {
namespace {

std::atomic<long> g_liveObjects{0};
std::atomic<DWORD> g_lastServingThread{0};

// {4F5354-...}: the interface by which the bridge recognises its own wrappers coming back as arguments.
const IID kBridgeIid = {0x4f53544c, 0x4252, 0x4944, {0x47, 0x45, 0x00, 0x00, 0x00, 0x00, 0x00, 0x01}};

class BridgeDispatch final : public IDispatch {
 public:
  explicit BridgeDispatch(DispatchPtr object) : m_object(std::move(object)) { ++g_liveObjects; }
  ~BridgeDispatch() { --g_liveObjects; }
  BridgeDispatch(const BridgeDispatch&) = delete;
  BridgeDispatch& operator=(const BridgeDispatch&) = delete;

  const DispatchPtr& Object() const { return m_object; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, IID_IDispatch) || IsEqualIID(riid, kBridgeIid)) {
      *out = static_cast<IDispatch*>(this);
      AddRef();
      return S_OK;
    }
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++m_references); }
  ULONG STDMETHODCALLTYPE Release() override {
    const long left = --m_references;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count) *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID dispId, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                                   EXCEPINFO* exception, UINT*) override;

 private:
  std::atomic<long> m_references{1};
  DispatchPtr m_object;
};

win32::ComPtr<IDispatch> BridgeToCom(const DispatchPtr& object) {
  return win32::ComPtr<IDispatch>::Adopt(new BridgeDispatch(object));
}

DispatchPtr BridgeFromCom(IDispatch* dispatch) {
  win32::ComPtr<IDispatch> own;
  if (FAILED(dispatch->QueryInterface(kBridgeIid, own.PutVoid()))) return nullptr;  // only our objects come here
  return static_cast<BridgeDispatch*>(own.Get())->Object();
}

const win32::DispatchCrossing kBridgeCrossing{BridgeToCom, BridgeFromCom};

InvokeKind KindOf(WORD flags) {
  if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) return InvokeKind::kPropertyPut;
  if (flags & DISPATCH_METHOD) return InvokeKind::kMethod;
  return InvokeKind::kPropertyGet;
}

// A backend's failure as a server's own error: its code and text in EXCEPINFO. Nothing may leave a COM method by
// exception, so a text that can't be allocated makes the call fail as out of memory.
HRESULT ReportFailure(const AutomationError& failure, EXCEPINFO* exception) noexcept {
  if (!exception) return DISP_E_EXCEPTION;
  try {
    win32::Bstr description = win32::Bstr::CopyOf(failure.description());
    win32::Bstr source = win32::Bstr::CopyOf(L"Simulated Photoshop");
    *exception = EXCEPINFO{};
    exception->scode = failure.code();
    exception->bstrDescription = description.Release();
    exception->bstrSource = source.Release();
    return DISP_E_EXCEPTION;
  } catch (const AutomationError&) {
    return E_OUTOFMEMORY;
  }
}

HRESULT BridgeDispatch::Invoke(DISPID dispId, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                               EXCEPINFO* exception, UINT*) {
  g_lastServingThread = GetCurrentThreadId();
  try {
    std::vector<Variant> args;
    const UINT count = params ? params->cArgs : 0;
    for (UINT i = 0; i < count; ++i) {  // COM gives the last argument first
      args.push_back(win32::FromComVariant(params->rgvarg[count - 1 - i], kBridgeCrossing));
    }
    const Variant answer = m_object->Invoke(dispId, KindOf(flags), args);
    if (result) *result = win32::ToComVariant(answer, kBridgeCrossing).Release();
    return S_OK;
  } catch (const AutomationError& failure) {
    return ReportFailure(failure, exception);
  } catch (...) {
    return E_FAIL;
  }
}

class BridgeFactory final : public IClassFactory {
 public:
  BridgeFactory(IAutomation& backend, std::wstring progId) : m_backend(backend), m_progId(std::move(progId)) {
    ++g_liveObjects;
  }
  ~BridgeFactory() { --g_liveObjects; }
  BridgeFactory(const BridgeFactory&) = delete;
  BridgeFactory& operator=(const BridgeFactory&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, IID_IClassFactory)) {
      *out = static_cast<IClassFactory*>(this);
      AddRef();
      return S_OK;
    }
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++m_references); }
  ULONG STDMETHODCALLTYPE Release() override {
    const long left = --m_references;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** out) override {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    try {
      DispatchPtr object = m_backend.Create(m_progId);
      win32::ComPtr<IDispatch> bridge = win32::ComPtr<IDispatch>::Adopt(new BridgeDispatch(std::move(object)));
      return bridge->QueryInterface(riid, out);
    } catch (const AutomationError& failure) {
      return failure.code();
    } catch (...) {
      return E_FAIL;
    }
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  std::atomic<long> m_references{1};
  IAutomation& m_backend;
  std::wstring m_progId;
};

std::wstring GuidText(const GUID& guid) {
  wchar_t text[64] = {};
  StringFromGUID2(guid, text, 64);
  return text;
}

}  // namespace

void RemovePhotoshopProgIds() {
  std::vector<std::wstring> names;
  wchar_t name[256];
  for (DWORD index = 0;; ++index) {
    DWORD length = 256;
    if (RegEnumKeyExW(HKEY_CLASSES_ROOT, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
      break;
    if (std::wstring(name, length).rfind(L"Photoshop.", 0) == 0) names.emplace_back(name, length);
  }
  for (const std::wstring& key : names) RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
}

ComBridge::ComBridge(IAutomation& backend, const std::vector<std::wstring>& progIds, DWORD contexts) {
  RemovePhotoshopProgIds();
  for (const std::wstring& progId : progIds) {
    GUID clsid{};
    CoCreateGuid(&clsid);
    const std::wstring key = progId + L"\\CLSID";
    const std::wstring value = GuidText(clsid);
    const LSTATUS written = RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, value.c_str(),
                                            static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    win32::ComPtr<IClassFactory> factory = win32::ComPtr<IClassFactory>::Adopt(new BridgeFactory(backend, progId));
    Registration registration{progId, 0};
    CoRegisterClassObject(clsid, factory.Get(), contexts, REGCLS_MULTIPLEUSE, &registration.cookie);
    if (written != ERROR_SUCCESS) m_allRegistered = false;
    if (!registration.cookie) m_allRegistered = false;
    m_registrations.push_back(registration);
  }
}

bool ComBridge::AllRegistered() const { return m_allRegistered; }

ComBridge::~ComBridge() {
  for (const Registration& registration : m_registrations) {
    if (registration.cookie) CoRevokeClassObject(registration.cookie);
  }
  RemovePhotoshopProgIds();
}

long ComBridge::LiveObjects() { return g_liveObjects.load(); }

DWORD ComBridge::LastServingThread() { return g_lastServingThread.load(); }

}  // namespace ostrel::testing
