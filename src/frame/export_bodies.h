// Everything the rows of exports.def name: the public interface and the internal functions that are the bodies
// and defaults of the exports. Whoever expands the rows includes this.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "events/event_file.h"
#include "events/notifiers.h"
#include "frame/connection.h"
#include "frame/lifecycle.h"
#include "locator/camera_raw.h"
#include "locator/dialogs.h"
#include "locator/handles.h"
#include "locator/layer_panel.h"
#include "locator/main_frame.h"
#include "locator/patterns.h"
#include "locator/pickers.h"
#include "locator/screen_mode.h"
#include "locator/tool_options_bar.h"
#include "ostrel/OstrelCore.h"
#include "photoshop/brush_colors.h"
#include "photoshop/channels_paths.h"
#include "photoshop/documents.h"
#include "photoshop/layer_list.h"
#include "photoshop/resets.h"
#include "photoshop/shape_fill.h"
#include "photoshop/tool_state.h"
#include "platform/color_text.h"
#include "preferences/ui_language.h"
#include "preferences/preferences.h"
#include "script/rows.h"
#include "vocabulary/color_swatches.h"
#include "vocabulary/dialog_names.h"
#include "vocabulary/layer_filter_table.h"
#include "vocabulary/layer_vocabulary.h"
#include "vocabulary/live_menu.h"
#include "vocabulary/preset_catalogues.h"
#include "vocabulary/tool_option_catalogue.h"
#include "vocabulary/tool_option_names.h"
#include "vocabulary/tool_table.h"
#include "vocabulary/top_menu_table.h"
