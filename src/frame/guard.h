// The export boundary: the one place where an exception becomes a documented default, and where an export that
// talks to Photoshop takes the connection's lock and gives its unconnected answer. Every export is defined from
// its row in exports.def through these two functions.
#pragma once

#include <mutex>
#include <utility>

#include "frame/connection.h"

namespace ostrel {

// Exports call exports: a question answered from another (the layer list, the background test) asks that
// export, and a failure inside it becomes the inner export's default, with which the outer one goes on. These
// counters, per thread, tell how deep in exports the thread is and how many failures inner exports have turned
// into their defaults; the failure sweeps read the second to tell an answer built on an inner default from one
// that should have been the export's own default.
inline thread_local int t_exportDepth = 0;
inline thread_local long long t_innerFailuresAbsorbed = 0;

inline long long InnerFailuresAbsorbed() noexcept { return t_innerFailuresAbsorbed; }

// Runs body and returns its value; any exception gives fallback() instead. The library is a guest in the lesson
// player's process, so nothing may escape an export. fallback must not throw.
template <class R, class Body, class Fallback>
R Guarded(Body&& body, Fallback&& fallback) noexcept {
  struct Depth {
    Depth() noexcept { ++t_exportDepth; }
    ~Depth() { --t_exportDepth; }
  } depth;
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    if (t_exportDepth > 1) ++t_innerFailuresAbsorbed;
    return std::forward<Fallback>(fallback)();
  }
}

// The same with a plain fallback value, for code inside the library that guards one step of its own.
template <class T, class F>
T Guarded(T fallback, F&& body) noexcept {
  try {
    return std::forward<F>(body)();
  } catch (...) {
    return fallback;
  }
}

// An export that reads or commands Photoshop: serialized with connecting, releasing and every other such export
// by the connection's lock; unconnected() without any automation call when there is no connection; otherwise
// body(), with fallback() for a failure inside it.
template <class R, class Body, class Fallback, class Unconnected>
R GuardedPhotoshop(Body&& body, Fallback&& fallback, Unconnected&& unconnected) noexcept {
  return Guarded<R>(
      [&]() -> R {
        std::lock_guard lock(ConnectionMutex());
        if (!IsConnected()) return std::forward<Unconnected>(unconnected)();
        return std::forward<Body>(body)();
      },
      std::forward<Fallback>(fallback));
}

}  // namespace ostrel
