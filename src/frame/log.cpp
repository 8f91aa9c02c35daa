// The daily log writer.
#include "frame/log.h"

#include "platform/platform.h"

namespace ostrel {
namespace {

// Holds the log's lock for one line and gives it back on every way out.
class LogLockScope {
 public:
  explicit LogLockScope(CLockBase& lock) : m_lock(lock) { m_lock.Lock(); }
  ~LogLockScope() { m_lock.Unlock(); }
  LogLockScope(const LogLockScope&) = delete;
  LogLockScope& operator=(const LogLockScope&) = delete;

 private:
  CLockBase& m_lock;
};

// The file's bytes of one line: code page 936, every LF written as CR LF as a text-mode file does.
std::string LineBytes(const std::wstring& line) {
  const std::string encoded = CurrentPlatform().encoding->ToCodePage936(line);
  std::string bytes;
  bytes.reserve(encoded.size() + 8);
  for (const char c : encoded) {
    if (c == '\n') bytes += '\r';
    bytes += c;
  }
  return bytes;
}

}  // namespace

std::wstring CLogFile::TodayFileName() {
  Platform& platform = CurrentPlatform();
  const std::wstring base = platform.parameters->GetString(EnTallyKey::kLogDirectory);
  const LocalTime today = platform.clock->Now();
  return Format(L"%sLog\\%04d-%02d-%02d.log", base, today.year, today.month, today.day);
}

int CLogFile::WriteString(const std::wstring& text) noexcept {
  try {
    LogLockScope lock(m_lock);
    Platform& platform = CurrentPlatform();
    platform.files->CreatePathTo(TodayFileName());
    const std::wstring fileName = TodayFileName();
    if (fileName.empty()) return 0;
    const LocalTime now = platform.clock->Now();
    const std::wstring stamp = Format(L"%02d:%02d:%02d", now.hour, now.minute, now.second);
    const std::wstring line = Format(L"[%s] %s\n", stamp, text);
    return platform.files->AppendToFile(fileName, LineBytes(line)) ? 1 : 0;
  } catch (...) {
    return 0;
  }
}

CLogFile& TheLog() noexcept {
  static CLogFile log;
  return log;
}

}  // namespace ostrel
