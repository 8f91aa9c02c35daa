// HRESULT failures as the library's automation errors: one check per call, naming the call that failed.
#pragma once

#include <windows.h>

#include <string>

namespace ostrel::win32 {

// The system's text for an HRESULT, without its line end; the library's own text where the system has none.
std::wstring SystemErrorMessage(HRESULT code);

// Throws AutomationError with the code and description.
[[noreturn]] void ThrowAutomationError(HRESULT code, std::wstring description);

// Throws AutomationError with the code, the system's text for it and the text of the expression that gave it.
[[noreturn]] void ThrowFailedCall(HRESULT code, const char* expression);

inline void CheckHresult(HRESULT code, const char* expression) {
  if (FAILED(code)) ThrowFailedCall(code, expression);
}

}  // namespace ostrel::win32

// Evaluates an HRESULT expression once and throws AutomationError if it failed.
#define OSTREL_CHECK_HR(expression) ::ostrel::win32::CheckHresult((expression), #expression)
