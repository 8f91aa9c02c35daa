// The process-wide platform context: the backends through which the library reaches the system. Portable
// backends are installed by default; a host (or a test) installs its own with ScopedPlatform.
#pragma once

#include "platform/automation.h"
#include "platform/settings_stores.h"
#include "platform/system.h"
#include "platform/window_tree.h"

namespace ostrel {

struct Platform {
  IAutomation* automation = nullptr;
  IWindowTree* windows = nullptr;
  IScreen* screen = nullptr;
  IRegistry* registry = nullptr;
  IIniStore* ini = nullptr;
  IFileSystem* files = nullptr;
  IClock* clock = nullptr;
  ITextEncoding* encoding = nullptr;
  IParameters* parameters = nullptr;
};

// The backends in force. Never null members: a concern without a backend of its own gets one that answers
// "nothing there" (no automation server, no windows, an empty registry).
Platform& CurrentPlatform() noexcept;

// Installs the non-null members of replacement for its lifetime and restores the previous ones after.
class ScopedPlatform {
 public:
  explicit ScopedPlatform(const Platform& replacement);
  ~ScopedPlatform();
  ScopedPlatform(const ScopedPlatform&) = delete;
  ScopedPlatform& operator=(const ScopedPlatform&) = delete;

 private:
  Platform m_saved;
};

}  // namespace ostrel
