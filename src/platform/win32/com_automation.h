// Automation over real COM: objects created by ProgID and called through IDispatch::Invoke.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include "platform/automation.h"
#include "platform/win32/holders.h"

namespace ostrel::win32 {

// One COM object behind IAutomationObject. The last DispatchPtr to it releases the IDispatch.
class ComDispatchObject final : public IAutomationObject {
 public:
  explicit ComDispatchObject(ComPtr<IDispatch> dispatch) : m_dispatch(std::move(dispatch)) {}
  Variant Invoke(int32_t dispId, InvokeKind kind, std::span<const Variant> args) override;
  IDispatch* Get() const noexcept { return m_dispatch.Get(); }

 private:
  ComPtr<IDispatch> m_dispatch;
};

class ComAutomation final : public IAutomation {
 public:
  int32_t Initialize() override;
  DispatchPtr Create(const std::wstring& progId) override;
  std::wstring ErrorMessage(int32_t code) override;
};

// Conversions between our variants and COM's. ToComVariant fills an initialized VARIANT.
void ToComVariant(const Variant& value, VARIANT& out);
Variant FromComVariant(const VARIANT& value);

// The system's text for an HRESULT, without its line end.
std::wstring SystemErrorMessage(HRESULT code);

}  // namespace ostrel::win32
