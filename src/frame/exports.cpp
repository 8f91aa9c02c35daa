// The definitions of every export, generated from the rows of exports.def: each is its row's body run through the
// boundary of guard.h. A row whose name, result or parameters differ from the declaration in include/ostrel/
// fails to compile here (-Wmissing-declarations catches a definition that declares a new overload).
#include "frame/export_bodies.h"
#include "frame/guard.h"

#define OSTREL_EXPORT(family, R, name, parameters, body, onFailure)                          \
  R name parameters noexcept {                                                               \
    return ::ostrel::Guarded<R>([&]() -> R { return static_cast<R>(body); },                 \
                                [&]() noexcept -> R { return static_cast<R>(onFailure); }); \
  }
#define OSTREL_PS_EXPORT(family, R, name, parameters, body, onFailure, unconnected)                    \
  R name parameters noexcept {                                                                         \
    return ::ostrel::GuardedPhotoshop<R>([&]() -> R { return static_cast<R>(body); },                  \
                                         [&]() noexcept -> R { return static_cast<R>(onFailure); },   \
                                         [&]() noexcept -> R { return static_cast<R>(unconnected); }); \
  }
#include "frame/exports.def"
#undef OSTREL_EXPORT
#undef OSTREL_PS_EXPORT
