// HRESULT failures as the library's automation errors.
#include "platform/win32/hresult.h"

#include "platform/automation.h"
#include "platform/portable/portable_backends.h"
#include "platform/win32/holders.h"

namespace ostrel::win32 {

std::wstring SystemErrorMessage(HRESULT code) {
  LocalMemory buffer;
  const DWORD length =
      FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                     nullptr, static_cast<DWORD>(code), 0, reinterpret_cast<wchar_t*>(buffer.Put()), 0, nullptr);
  const auto* text = static_cast<const wchar_t*>(buffer.Get());
  std::wstring message = length && text ? std::wstring(text, length) : std::wstring();
  while (!message.empty() && (message.back() == L'\n' || message.back() == L'\r' || message.back() == L' ')) {
    message.pop_back();
  }
  // Where the system has no text, give the one the library knows, so that logs read the same everywhere.
  return message.empty() ? StandardErrorMessage(code) : message;
}

void ThrowAutomationError(HRESULT code, std::wstring description) {
  throw AutomationError(static_cast<int32_t>(code), std::move(description));
}

void ThrowFailedCall(HRESULT code, const char* expression) {
  std::wstring description = SystemErrorMessage(code);
  description += L" [";
  for (const char* c = expression; *c; ++c) description += static_cast<wchar_t>(static_cast<unsigned char>(*c));
  description += L"]";
  ThrowAutomationError(code, std::move(description));
}

}  // namespace ostrel::win32
