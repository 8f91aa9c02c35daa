#include "window_thread.h"

#include <exception>
#include <stdexcept>

namespace ostrel::test {
namespace {

constexpr wchar_t kMessengerClass[] = L"OstrelTestMessenger";
constexpr UINT kRunWork = WM_APP + 1;

struct Work {
  const std::function<void()>* work = nullptr;
  std::exception_ptr failure;
};

LRESULT CALLBACK MessengerProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kRunWork) return DefWindowProcW(window, message, wParam, lParam);
  auto& work = *reinterpret_cast<Work*>(lParam);
  try {
    (*work.work)();
  } catch (...) {
    work.failure = std::current_exception();  // no exception crosses the window procedure
  }
  return 0;
}

}  // namespace

WindowThread::WindowThread() {
  m_ready = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  if (!m_ready) throw std::runtime_error("CreateEventW failed");
  m_thread = std::thread([this] { Loop(); });
  WaitForSingleObject(m_ready, INFINITE);
  if (!m_messenger) {
    m_thread.join();
    CloseHandle(m_ready);
    throw std::runtime_error("the window thread could not make its message window");
  }
}

WindowThread::~WindowThread() {
  PostMessageW(m_messenger, WM_CLOSE, 0, 0);
  m_thread.join();
  CloseHandle(m_ready);
}

void WindowThread::Run(const std::function<void()>& work) {
  Work sent{&work, nullptr};
  SendMessageW(m_messenger, kRunWork, 0, reinterpret_cast<LPARAM>(&sent));
  if (sent.failure) std::rethrow_exception(sent.failure);
}

void WindowThread::Loop() {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = &MessengerProc;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kMessengerClass;
  RegisterClassExW(&windowClass);  // fails harmlessly when an earlier thread registered it
  m_messenger = CreateWindowExW(0, kMessengerClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                GetModuleHandleW(nullptr), nullptr);
  SetEvent(m_ready);
  if (!m_messenger) return;
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.hwnd == m_messenger && message.message == WM_CLOSE) break;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  DestroyWindow(m_messenger);
}

}  // namespace ostrel::test
