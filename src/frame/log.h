// The daily log: a few lines of diagnostics in a text file named by the date, one line per call, written whole
// under a lock and closed again, so that a line is in the file when the call returns.
#pragma once

#include <mutex>
#include <string>

#include "platform/text.h"

namespace ostrel {

// A lock with virtual Lock and Unlock, so that the log can be given another kind of lock.
class CLockBase {
 public:
  virtual ~CLockBase() = default;
  virtual void Lock() = 0;
  virtual void Unlock() = 0;
};

// A recursive lock, the critical section of the log.
class CLockCS final : public CLockBase {
 public:
  void Lock() override { m_cs.lock(); }
  void Unlock() override { m_cs.unlock(); }

 private:
  std::recursive_mutex m_cs;
};

// The log writer. The file is "<base>Log\YYYY-MM-DD.log" by the local date, with the base directory that the
// host's parameter 33 gives, taken unchanged. Each line is "[hh:mm:ss] text" with a CR LF line end, in code
// page 936. Nothing stays open between two lines, and a failure to log never reaches the caller.
class CLogFile {
 public:
  // Formats the pattern printf-style (see Format) and writes the text as one line. 1 if written, else 0.
  template <class... Args>
  int Write(std::wstring_view format, const Args&... args) noexcept {
    std::wstring text;
    try {
      text = Format(format, args...);
    } catch (...) {
      text.clear();  // a text that can't be formatted is written empty: the time stamp alone
    }
    return WriteString(text);
  }

  // Writes the finished text as one line. 1 if written, else 0.
  int WriteString(const std::wstring& text) noexcept;

  // Today's log file name (from the parameters and the clock in force).
  static std::wstring TodayFileName();

 private:
  CLockCS m_lock;
};

// The one log of the module.
CLogFile& TheLog() noexcept;

}  // namespace ostrel
