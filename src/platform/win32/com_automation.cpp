// Automation over real COM.
#include "platform/win32/com_automation.h"

#include <climits>
#include <vector>

namespace ostrel::win32 {
namespace {

[[noreturn]] void ThrowTypeMismatch() {
  ThrowAutomationError(kDispETypeMismatch, L"Type mismatch.");
}

Variant FromSafeArray(SAFEARRAY* array, const DispatchCrossing& crossing) {
  const std::optional<SafeArrayLock<VT_VARIANT>> lock = SafeArrayLock<VT_VARIANT>::Open(array);
  if (!lock) ThrowTypeMismatch();
  std::vector<Variant> items;
  items.reserve(lock->Elements().size());
  for (const VARIANT& element : lock->Elements()) items.push_back(FromComVariant(element, crossing));
  return Variant::Array(std::move(items));
}

SafeArray ToSafeArray(const std::vector<Variant>& items, const DispatchCrossing& crossing) {
  if (items.size() > static_cast<size_t>(LONG_MAX)) ThrowFailedCall(E_INVALIDARG, "SafeArrayCreateVector");
  SafeArray array(SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(items.size())));
  if (!array) ThrowFailedCall(E_OUTOFMEMORY, "SafeArrayCreateVector(VT_VARIANT, 0, items.size())");
  for (LONG i = 0; i < static_cast<LONG>(items.size()); ++i) {
    const ScopedVariant element = ToComVariant(items[static_cast<size_t>(i)], crossing);
    // The array takes a copy of its own; the element's owner clears the original. The VARIANT is only read.
    OSTREL_CHECK_HR(SafeArrayPutElement(array.Get(), &i, const_cast<VARIANT*>(&element.Get())));
  }
  return array;
}

ComPtr<IDispatch> ClientToCom(const DispatchPtr& object) {
  auto* com = dynamic_cast<ComDispatchObject*>(object.get());
  return com ? ComPtr<IDispatch>::CopyOf(com->Get()) : ComPtr<IDispatch>();
}

DispatchPtr ClientFromCom(IDispatch* dispatch) {
  return std::make_shared<ComDispatchObject>(ComPtr<IDispatch>::CopyOf(dispatch));
}

// An object of ours as an IDispatch reference; a null object is COM's null. An object that doesn't live in COM
// can't cross.
ComPtr<IDispatch> DispatchToCom(const DispatchPtr& object, const DispatchCrossing& crossing) {
  if (!object) return {};
  ComPtr<IDispatch> dispatch = crossing.toCom(object);
  if (!dispatch) ThrowTypeMismatch();
  return dispatch;
}

Variant FromUnknown(IUnknown* unknown, const DispatchCrossing& crossing) {
  ComPtr<IDispatch> dispatch;
  if (!unknown || FAILED(unknown->QueryInterface(IID_IDispatch, dispatch.PutVoid()))) return Variant::Dispatch(nullptr);
  return Variant::Dispatch(crossing.fromCom(dispatch.Get()));
}

}  // namespace

const DispatchCrossing& ClientCrossing() {
  static const DispatchCrossing crossing{ClientToCom, ClientFromCom};
  return crossing;
}

ScopedVariant ToComVariant(const Variant& value, const DispatchCrossing& crossing) {
  ScopedVariant out;
  switch (value.type()) {
    case VarType::kEmpty:
      break;
    case VarType::kI2:
      out.SetI2(static_cast<SHORT>(value.AsI4()));
      break;
    case VarType::kI4:
      out.SetI4(value.AsI4());
      break;
    case VarType::kR8:
      out.SetR8(value.AsR8());
      break;
    case VarType::kBool:
      out.SetBool(value.AsBool());
      break;
    case VarType::kBstr:
      out.SetBstr(Bstr::CopyOf(value.AsBstr()));
      break;
    case VarType::kDispatch:
      out.SetDispatch(DispatchToCom(value.AsDispatch(), crossing));
      break;
    case VarType::kArray:
      out.SetVariantArray(ToSafeArray(value.AsArray(), crossing));
      break;
    case VarType::kVariant:
      ThrowTypeMismatch();  // no bare VARIANT kind crosses
  }
  return out;
}

Variant FromComVariant(const VARIANT& value, const DispatchCrossing& crossing) {
  switch (value.vt) {
    case VT_EMPTY:
    case VT_NULL:
      return Variant();
    case VT_I1:
      return Variant::I2(value.cVal);
    case VT_I2:
      return Variant::I2(value.iVal);
    case VT_UI1:
      return Variant::I2(value.bVal);
    case VT_I4:
    case VT_INT:
      return Variant::I4(value.lVal);
    case VT_UI2:
      return Variant::I4(value.uiVal);
    case VT_UI4:
    case VT_UINT:
      return Variant::I4(static_cast<int32_t>(value.ulVal));
    case VT_R4:
      return Variant::R8(value.fltVal);
    case VT_R8:
      return Variant::R8(value.dblVal);
    case VT_BOOL:
      return Variant::Bool(value.boolVal != VARIANT_FALSE);
    case VT_BSTR:
      return Variant::Bstr(value.bstrVal ? std::wstring(value.bstrVal, SysStringLen(value.bstrVal)) : std::wstring());
    case VT_DISPATCH:
      return Variant::Dispatch(value.pdispVal ? crossing.fromCom(value.pdispVal) : nullptr);
    case VT_UNKNOWN:
      return FromUnknown(value.punkVal, crossing);
    case VT_VARIANT | VT_BYREF:
      return value.pvarVal ? FromComVariant(*value.pvarVal, crossing) : Variant();
    case VT_ARRAY | VT_VARIANT:
      return FromSafeArray(value.parray, crossing);
    default:
      break;
  }
  ThrowTypeMismatch();
}

Variant ComDispatchObject::Invoke(int32_t dispId, InvokeKind kind, std::span<const Variant> args) {
  // COM takes the arguments last first. The owners keep the arguments; DISPPARAMS borrows flat copies of them.
  std::vector<ScopedVariant> comArgs;
  comArgs.reserve(args.size());
  for (auto arg = args.rbegin(); arg != args.rend(); ++arg) comArgs.push_back(ToComVariant(*arg));
  std::vector<VARIANT> borrowed;
  borrowed.reserve(comArgs.size());
  for (const ScopedVariant& arg : comArgs) borrowed.push_back(arg.Get());

  DISPID putId = DISPID_PROPERTYPUT;
  DISPPARAMS params{};
  params.cArgs = static_cast<UINT>(borrowed.size());
  params.rgvarg = borrowed.empty() ? nullptr : borrowed.data();
  if (kind == InvokeKind::kPropertyPut) {
    params.cNamedArgs = 1;
    params.rgdispidNamedArgs = &putId;
  }
  ScopedVariant result;
  ExceptionInfo exception;
  UINT argError = 0;
  const HRESULT hr =
      m_dispatch->Invoke(dispId, IID_NULL, LOCALE_USER_DEFAULT, static_cast<WORD>(kind), &params,
                         kind == InvokeKind::kPropertyPut ? nullptr : result.Receive(), exception.Receive(), &argError);
  // The server's own failure comes with its code and text in EXCEPINFO; any other is the transport's.
  if (hr == DISP_E_EXCEPTION) ThrowAutomationError(exception.Code(hr), exception.Description());
  CheckHresult(hr, "IDispatch::Invoke");
  return FromComVariant(result.Get());
}

// The connecting step's initialization. The library never changes the apartment of a thread: a thread without
// one joins the multithreaded apartment, and a thread the host has already put into a single-threaded apartment
// (an MFC UI thread, for one) stays there, CoInitializeEx answering RPC_E_CHANGED_MODE; the connection is then
// made and used in the caller's apartment. A successful initialization is never undone by the library, so COM
// stays initialized on the thread after Ostrel_UnInit. The result goes to the log unchanged.
int32_t ComAutomation::Initialize() {
  return static_cast<int32_t>(CoInitializeEx(nullptr, COINIT_MULTITHREADED));
}

DispatchPtr ComAutomation::Create(const std::wstring& progId) {
  CLSID clsid{};
  OSTREL_CHECK_HR(CLSIDFromProgID(progId.c_str(), &clsid));
  ComPtr<IDispatch> dispatch;
  OSTREL_CHECK_HR(CoCreateInstance(clsid, nullptr, CLSCTX_ALL, IID_IDispatch, dispatch.PutVoid()));
  return std::make_shared<ComDispatchObject>(std::move(dispatch));
}

std::wstring ComAutomation::ErrorMessage(int32_t code) {
  return SystemErrorMessage(static_cast<HRESULT>(code));
}

}  // namespace ostrel::win32
