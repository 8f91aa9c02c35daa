// Owners of the Win32 and COM resources: the parts that are not templates.
#include "platform/win32/holders.h"

#include <climits>

#include "platform/automation.h"

namespace ostrel::win32 {

Bstr Bstr::CopyOf(std::wstring_view text) {
  // A BSTR counts its length in a UINT of bytes; anything longer can't be one.
  if (text.size() > UINT_MAX / sizeof(wchar_t)) ThrowAutomationError(E_OUTOFMEMORY, SystemErrorMessage(E_OUTOFMEMORY));
  Bstr owner = Adopt(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())));
  // Null is COM's empty string, so only a non-empty text can tell a failed allocation.
  if (!owner.Get() && !text.empty()) ThrowFailedCall(E_OUTOFMEMORY, "SysAllocStringLen(text.data(), text.size())");
  return owner;
}

void ScopedVariant::SetI2(SHORT value) noexcept {
  Reset();
  m_variant.vt = VT_I2;
  m_variant.iVal = value;
}

void ScopedVariant::SetI4(LONG value) noexcept {
  Reset();
  m_variant.vt = VT_I4;
  m_variant.lVal = value;
}

void ScopedVariant::SetR8(double value) noexcept {
  Reset();
  m_variant.vt = VT_R8;
  m_variant.dblVal = value;
}

void ScopedVariant::SetBool(bool value) noexcept {
  Reset();
  m_variant.vt = VT_BOOL;
  m_variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

void ScopedVariant::SetBstr(Bstr text) noexcept {
  Reset();
  m_variant.vt = VT_BSTR;
  m_variant.bstrVal = text.Release();
}

void ScopedVariant::SetDispatch(ComPtr<IDispatch> dispatch) noexcept {
  Reset();
  m_variant.vt = VT_DISPATCH;
  m_variant.pdispVal = dispatch.Detach();
}

void ScopedVariant::SetVariantArray(SafeArray array) {
  VARTYPE type = VT_EMPTY;
  OSTREL_CHECK_HR(SafeArrayGetVartype(array.Get(), &type));
  if (type != VT_VARIANT || SafeArrayGetDim(array.Get()) != 1) {
    ThrowAutomationError(kDispETypeMismatch, SystemErrorMessage(kDispETypeMismatch));
  }
  Reset();
  m_variant.vt = VT_ARRAY | VT_VARIANT;
  m_variant.parray = array.Release();
}

void ExceptionInfo::FillIn() noexcept {
  if (!m_info.pfnDeferredFillIn) return;
  m_info.pfnDeferredFillIn(&m_info);
  m_info.pfnDeferredFillIn = nullptr;
}

HRESULT ExceptionInfo::Code(HRESULT fallback) noexcept {
  FillIn();
  return m_info.scode ? m_info.scode : fallback;
}

std::wstring ExceptionInfo::Description() {
  FillIn();
  return m_info.bstrDescription ? std::wstring(m_info.bstrDescription, SysStringLen(m_info.bstrDescription))
                                : std::wstring();
}

void ExceptionInfo::Reset() noexcept {
  // Each string goes to an owner of its own and is freed with it.
  Bstr::Adopt(m_info.bstrSource);
  Bstr::Adopt(m_info.bstrDescription);
  Bstr::Adopt(m_info.bstrHelpFile);
  m_info = EXCEPINFO{};
}

}  // namespace ostrel::win32
