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

// How an object crosses between our variants and COM's: into COM as an IDispatch with a reference of its own
// (or null for an object COM can't take), and out of COM as an object of ours.
struct DispatchCrossing {
  IDispatch* (*toCom)(const DispatchPtr& object);
  DispatchPtr (*fromCom)(IDispatch* dispatch);
};

// The crossing of a client of real COM objects: our objects are ComDispatchObjects.
const DispatchCrossing& ClientCrossing();

// Conversions between our variants and COM's. ToComVariant fills an initialized VARIANT; an array becomes a
// SAFEARRAY of VARIANTs.
void ToComVariant(const Variant& value, VARIANT& out, const DispatchCrossing& crossing = ClientCrossing());
Variant FromComVariant(const VARIANT& value, const DispatchCrossing& crossing = ClientCrossing());

// The system's text for an HRESULT, without its line end.
std::wstring SystemErrorMessage(HRESULT code);

}  // namespace ostrel::win32
