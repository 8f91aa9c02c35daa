// Automation over real COM.
#include "platform/win32/com_automation.h"

#include <vector>

#include "platform/portable/portable_backends.h"

namespace ostrel::win32 {

std::wstring SystemErrorMessage(HRESULT code) {
  wchar_t* buffer = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
      static_cast<DWORD>(code), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
  std::wstring text = length && buffer ? std::wstring(buffer, length) : std::wstring();
  if (buffer) LocalFree(buffer);
  while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L' ')) text.pop_back();
  // Where the system has no text, give the one the library knows, so that logs read the same everywhere.
  return text.empty() ? StandardErrorMessage(code) : text;
}

namespace {

[[noreturn]] void ThrowFailure(HRESULT code, std::wstring description = {}) {
  if (description.empty()) description = SystemErrorMessage(code);
  throw AutomationError(static_cast<int32_t>(code), std::move(description));
}

Variant FromSafeArray(SAFEARRAY* array, const DispatchCrossing& crossing) {
  if (!array || SafeArrayGetDim(array) != 1) throw AutomationError(kDispETypeMismatch, L"Type mismatch.");
  LONG lower = 0, upper = -1;
  SafeArrayGetLBound(array, 1, &lower);
  SafeArrayGetUBound(array, 1, &upper);
  std::vector<Variant> items;
  SafeArrayData data(array);
  const VARIANT* elements = static_cast<const VARIANT*>(data.Data());
  if (!elements && upper >= lower) throw AutomationError(kDispETypeMismatch, L"Type mismatch.");
  for (LONG i = 0; i <= upper - lower; ++i) items.push_back(FromComVariant(elements[i], crossing));
  return Variant::Array(std::move(items));
}

IDispatch* ClientToCom(const DispatchPtr& object) {
  auto* com = dynamic_cast<ComDispatchObject*>(object.get());
  if (!com || !com->Get()) return nullptr;
  com->Get()->AddRef();
  return com->Get();
}

DispatchPtr ClientFromCom(IDispatch* dispatch) {
  return std::make_shared<ComDispatchObject>(ComPtr<IDispatch>::CopyOf(dispatch));
}

SAFEARRAY* ToSafeArray(const std::vector<Variant>& items, const DispatchCrossing& crossing) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(items.size()));
  if (!array) throw AutomationError(static_cast<int32_t>(E_OUTOFMEMORY), L"Out of memory.");
  for (LONG i = 0; i < static_cast<LONG>(items.size()); ++i) {
    ScopedVariant element;
    try {
      ToComVariant(items[static_cast<size_t>(i)], *element.Get(), crossing);
    } catch (...) {
      SafeArrayDestroy(array);
      throw;
    }
    SafeArrayPutElement(array, &i, element.Get());  // copies the element
  }
  return array;
}

}  // namespace

const DispatchCrossing& ClientCrossing() {
  static const DispatchCrossing crossing{ClientToCom, ClientFromCom};
  return crossing;
}

void ToComVariant(const Variant& value, VARIANT& out, const DispatchCrossing& crossing) {
  switch (value.type()) {
    case VarType::kEmpty: out.vt = VT_EMPTY; return;
    case VarType::kI2: out.vt = VT_I2; out.iVal = static_cast<SHORT>(value.AsI4()); return;
    case VarType::kI4: out.vt = VT_I4; out.lVal = value.AsI4(); return;
    case VarType::kR8: out.vt = VT_R8; out.dblVal = value.AsR8(); return;
    case VarType::kBool: out.vt = VT_BOOL; out.boolVal = value.AsBool() ? VARIANT_TRUE : VARIANT_FALSE; return;
    case VarType::kBstr: {
      const std::wstring& text = value.AsBstr();
      out.vt = VT_BSTR;
      out.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
      return;
    }
    case VarType::kDispatch: {
      IDispatch* dispatch = value.AsDispatch() ? crossing.toCom(value.AsDispatch()) : nullptr;
      if (value.AsDispatch() && !dispatch) throw AutomationError(kDispETypeMismatch, L"Type mismatch.");
      out.vt = VT_DISPATCH;
      out.pdispVal = dispatch;
      return;
    }
    case VarType::kArray:
      out.parray = ToSafeArray(value.AsArray(), crossing);
      out.vt = VT_ARRAY | VT_VARIANT;
      return;
    case VarType::kVariant: break;
  }
  throw AutomationError(kDispETypeMismatch, L"Type mismatch.");
}

Variant FromComVariant(const VARIANT& value, const DispatchCrossing& crossing) {
  switch (value.vt) {
    case VT_EMPTY:
    case VT_NULL: return Variant();
    case VT_I1: return Variant::I2(value.cVal);
    case VT_I2: return Variant::I2(value.iVal);
    case VT_UI1: return Variant::I2(value.bVal);
    case VT_I4:
    case VT_INT: return Variant::I4(value.lVal);
    case VT_UI2: return Variant::I4(value.uiVal);
    case VT_UI4:
    case VT_UINT: return Variant::I4(static_cast<int32_t>(value.ulVal));
    case VT_R4: return Variant::R8(value.fltVal);
    case VT_R8: return Variant::R8(value.dblVal);
    case VT_BOOL: return Variant::Bool(value.boolVal != VARIANT_FALSE);
    case VT_BSTR: return Variant::Bstr(value.bstrVal ? std::wstring(value.bstrVal, SysStringLen(value.bstrVal))
                                                     : std::wstring());
    case VT_DISPATCH:
      return Variant::Dispatch(value.pdispVal ? crossing.fromCom(value.pdispVal) : nullptr);
    case VT_UNKNOWN: {
      ComPtr<IDispatch> dispatch;
      if (!value.punkVal || FAILED(value.punkVal->QueryInterface(IID_IDispatch,
                                                                 reinterpret_cast<void**>(dispatch.Put())))) {
        return Variant::Dispatch(nullptr);
      }
      return Variant::Dispatch(crossing.fromCom(dispatch.Get()));
    }
    case VT_VARIANT | VT_BYREF: return value.pvarVal ? FromComVariant(*value.pvarVal, crossing) : Variant();
    case VT_ARRAY | VT_VARIANT: return FromSafeArray(value.parray, crossing);
    default: break;
  }
  throw AutomationError(kDispETypeMismatch, L"Type mismatch.");
}

Variant ComDispatchObject::Invoke(int32_t dispId, InvokeKind kind, std::span<const Variant> args) {
  // COM takes the arguments last first.
  std::vector<ScopedVariant> comArgs(args.size());
  for (size_t i = 0; i < args.size(); ++i) ToComVariant(args[args.size() - 1 - i], *comArgs[i].Get());
  std::vector<VARIANT> raw(args.size());
  for (size_t i = 0; i < args.size(); ++i) raw[i] = *comArgs[i].Get();  // borrowed: comArgs still owns them

  DISPID putId = DISPID_PROPERTYPUT;
  DISPPARAMS params{};
  params.cArgs = static_cast<UINT>(raw.size());
  params.rgvarg = raw.empty() ? nullptr : raw.data();
  if (kind == InvokeKind::kPropertyPut) {
    params.cNamedArgs = 1;
    params.rgdispidNamedArgs = &putId;
  }
  ScopedVariant result;
  EXCEPINFO exception{};
  UINT argError = 0;
  const HRESULT hr = m_dispatch->Invoke(dispId, IID_NULL, LOCALE_USER_DEFAULT, static_cast<WORD>(kind), &params,
                                        kind == InvokeKind::kPropertyPut ? nullptr : result.Get(), &exception,
                                        &argError);
  if (hr == DISP_E_EXCEPTION) {
    if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
    std::wstring description = exception.bstrDescription ? exception.bstrDescription : L"";
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
    ThrowFailure(exception.scode ? exception.scode : hr, std::move(description));
  }
  if (FAILED(hr)) ThrowFailure(hr);
  return FromComVariant(*result.Get());
}

int32_t ComAutomation::Initialize() { return static_cast<int32_t>(CoInitializeEx(nullptr, COINIT_MULTITHREADED)); }

DispatchPtr ComAutomation::Create(const std::wstring& progId) {
  CLSID clsid{};
  HRESULT hr = CLSIDFromProgID(progId.c_str(), &clsid);
  if (FAILED(hr)) ThrowFailure(hr);
  ComPtr<IDispatch> dispatch;
  hr = CoCreateInstance(clsid, nullptr, CLSCTX_ALL, IID_IDispatch, reinterpret_cast<void**>(dispatch.Put()));
  if (FAILED(hr)) ThrowFailure(hr);
  return std::make_shared<ComDispatchObject>(std::move(dispatch));
}

std::wstring ComAutomation::ErrorMessage(int32_t code) { return SystemErrorMessage(static_cast<HRESULT>(code)); }

}  // namespace ostrel::win32
