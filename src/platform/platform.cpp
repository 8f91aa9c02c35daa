// The process-wide platform context and its default backends.
#include "platform/platform.h"

#include "platform/portable/portable_backends.h"
#include "platform/system_backends.h"

namespace ostrel {

ProcessParameters& DefaultParameters() noexcept {
  static ProcessParameters parameters;
  return parameters;
}

namespace {

Platform MakeDefaultPlatform() {
  static NoAutomation automation;
  static NoWindows windows;
  static MemoryRegistry registry;
  static FileIniStore ini;
  static StdFileSystem files;
  static LocalClock clock;
  static PortableEncoding encoding;
  Platform platform;
  platform.automation = &automation;
  platform.windows = &windows;
  platform.screen = &windows;
  platform.registry = &registry;
  platform.ini = &ini;
  platform.files = &files;
  platform.clock = &clock;
  platform.encoding = &encoding;
  platform.parameters = &DefaultParameters();
  InstallSystemBackends(platform);
  return platform;
}

template <class T>
void Replace(T*& target, T* replacement) {
  if (replacement) target = replacement;
}

}  // namespace

Platform& CurrentPlatform() noexcept {
  static Platform platform = MakeDefaultPlatform();
  return platform;
}

ScopedPlatform::ScopedPlatform(const Platform& replacement) : m_saved(CurrentPlatform()) {
  Platform& current = CurrentPlatform();
  Replace(current.automation, replacement.automation);
  Replace(current.windows, replacement.windows);
  Replace(current.screen, replacement.screen);
  Replace(current.registry, replacement.registry);
  Replace(current.ini, replacement.ini);
  Replace(current.files, replacement.files);
  Replace(current.clock, replacement.clock);
  Replace(current.encoding, replacement.encoding);
  Replace(current.parameters, replacement.parameters);
}

ScopedPlatform::~ScopedPlatform() { CurrentPlatform() = m_saved; }

}  // namespace ostrel
