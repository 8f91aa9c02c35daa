// The definitions of every export, generated from the rows of exports.def: each is its row's body run through the
// boundary of guard.h. A row whose name, result or parameters differ from the declaration in include/ostrel/
// fails to compile here (-Wmissing-declarations catches a definition that declares a new overload).
#include <cstdint>
#include <string>
#include <vector>

#include "frame/connection.h"
#include "frame/guard.h"
#include "frame/lifecycle.h"
#include "ostrel/OstrelCore.h"
#include "platform/color_text.h"
#include "script/rows.h"
#include "vocabulary/color_swatches.h"
#include "vocabulary/dialog_names.h"
#include "vocabulary/layer_filter_table.h"
#include "vocabulary/layer_vocabulary.h"
#include "vocabulary/preset_catalogues.h"
#include "vocabulary/tool_option_catalogue.h"
#include "vocabulary/tool_option_names.h"
#include "vocabulary/tool_table.h"
#include "vocabulary/top_menu_table.h"

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
