// A thread of its own for real test windows, with a message loop, so that the windows belong to another thread
// than the one that asks about them, as Photoshop's windows belong to another process than the lesson player:
// hit testing and messages then cross threads as they would cross processes.
#pragma once

#include <windows.h>

#include <functional>
#include <thread>

namespace ostrel::test {

class WindowThread {
 public:
  WindowThread();
  // Ends the message loop; windows the work left behind are destroyed with the thread.
  ~WindowThread();
  WindowThread(const WindowThread&) = delete;
  WindowThread& operator=(const WindowThread&) = delete;

  // Runs work on the thread and waits for it; an exception that work throws is thrown here again.
  void Run(const std::function<void()>& work);

 private:
  void Loop();

  std::thread m_thread;
  HWND m_messenger = nullptr;  // a message-only window of the thread that runs the work it is sent
  HANDLE m_ready = nullptr;
};

}  // namespace ostrel::test
