// OstrelCore: the whole exported interface.
#pragma once

#include "ostrel/documents.h"
#include "ostrel/export.h"
#include "ostrel/filters.h"
#include "ostrel/layers.h"
#include "ostrel/lifecycle.h"
#include "ostrel/menus.h"
#include "ostrel/presets.h"
#include "ostrel/script.h"
#include "ostrel/swatches.h"
#include "ostrel/tool_options.h"
#include "ostrel/tool_state.h"
#include "ostrel/tools.h"
#include "ostrel/window_locator.h"
