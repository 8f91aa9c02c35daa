// The dispatch holder.
#include "frame/dispatch_driver.h"

#include <vector>

#include "platform/platform.h"

namespace ostrel {

std::wstring COleException::GetErrorMessage() const { return CurrentPlatform().automation->ErrorMessage(m_sc); }

bool COleDispatchDriver::CreateDispatch(const std::wstring& progId, COleException* error) {
  try {
    m_lpDispatch = CurrentPlatform().automation->Create(progId);
    m_bAutoRelease = true;
    if (m_lpDispatch) return true;
    if (error) error->m_sc = kEFail;
    return false;
  } catch (const AutomationError& failure) {
    m_lpDispatch.reset();
    if (error) error->m_sc = failure.code();
    return false;
  }
}

void COleDispatchDriver::ReleaseDispatch() noexcept { m_lpDispatch.reset(); }

void COleDispatchDriver::InvokeHelper(int32_t dispId, InvokeKind kind, Variant* result,
                                      std::initializer_list<Variant> args) const {
  if (!m_lpDispatch) return;
  Variant answer = m_lpDispatch->Invoke(dispId, kind, std::span<const Variant>(args.begin(), args.size()));
  if (result) *result = std::move(answer);
}

Variant COleDispatchDriver::Call(int32_t dispId, std::initializer_list<Variant> args) const {
  Variant result;
  InvokeHelper(dispId, InvokeKind::kMethod, &result, args);
  return result;
}

Variant COleDispatchDriver::Get(int32_t dispId) const {
  Variant result;
  InvokeHelper(dispId, InvokeKind::kPropertyGet, &result, {});
  return result;
}

void COleDispatchDriver::Put(int32_t dispId, Variant value) const {
  InvokeHelper(dispId, InvokeKind::kPropertyPut, nullptr, {std::move(value)});
}

}  // namespace ostrel
