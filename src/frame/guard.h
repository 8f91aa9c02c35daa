// The one place where an exception becomes a documented default: every export's body runs inside it.
#pragma once

#include <utility>

namespace ostrel {

// Runs body and returns its value; any exception gives fallback instead. The library is a guest in the
// lesson player's process, so nothing may escape an export.
template <class T, class F>
T Guarded(T fallback, F&& body) noexcept {
  try {
    return std::forward<F>(body)();
  } catch (...) {
    return fallback;
  }
}

// The same for an export that returns nothing.
template <class F>
void GuardedVoid(F&& body) noexcept {
  try {
    std::forward<F>(body)();
  } catch (...) {
  }
}

}  // namespace ostrel
