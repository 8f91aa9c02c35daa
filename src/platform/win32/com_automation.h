// Automation over real COM: objects created by ProgID and called through IDispatch::Invoke.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include "platform/automation.h"
#include "platform/win32/holders.h"
#include "platform/win32/hresult.h"

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

// How an object crosses between our variants and COM's: into COM as an IDispatch reference of its own (or null
// for an object COM can't take), and out of COM as an object of ours.
struct DispatchCrossing {
  ComPtr<IDispatch> (*toCom)(const DispatchPtr& object);
  DispatchPtr (*fromCom)(IDispatch* dispatch);
};

// The crossing of a client of real COM objects: our objects are ComDispatchObjects.
const DispatchCrossing& ClientCrossing();

// Conversions between our variants and COM's; an array is a one-dimensional SAFEARRAY of VARIANTs. Both throw
// AutomationError (type mismatch) for a value they can't convert, and nothing converted before the failure stays
// alive.
ScopedVariant ToComVariant(const Variant& value, const DispatchCrossing& crossing = ClientCrossing());
Variant FromComVariant(const VARIANT& value, const DispatchCrossing& crossing = ClientCrossing());

}  // namespace ostrel::win32
