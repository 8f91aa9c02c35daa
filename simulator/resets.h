// What Photoshop's "set" of a tool class and its "reset" of tool options, preset libraries and colours change,
// as far as later reads see it.
#pragma once

#include <optional>

#include "simulator/session.h"
#include "simulator/values.h"

namespace ostrel::sim {

// set with the target putClass(tool) and "to" an object: every key of the object replaces that key in the tool's
// options (the current options if the tool is current, else the ones kept for it). The keys "tool" and
// "currentToolOptions" of an application read that is handed back whole are not options and are left out. A class
// that isn't a tool changes nothing.
void ApplySet(Session& session, const std::optional<Descriptor>& descriptor);

// reset of:
// - the application's "allToolOptions": every tool with defaults in the scenario gets them back, the current one
//   and those kept; a tool without defaults keeps its options (its defaults aren't known).
// - the application's key of a preset library ("brush", "colors", "gradientClassEvent", "style", "pattern",
//   "shapeCurveType", "toolPreset"): that list of "presetManager" becomes the scenario's defaults, or has them
//   appended when the command's "append" is true; without defaults the list stays.
// - property "colors" of class "color": foreground black, background white.
void ApplyReset(Session& session, const std::optional<Descriptor>& descriptor);

}  // namespace ostrel::sim
