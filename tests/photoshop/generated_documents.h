// Scenario files of one document with a generated layer stack, built from the real layer descriptors of
// examples/photoshop/realdata: groups in groups, a background or none, masks, effects, smart objects, text and
// shape layers, names that repeat, groups that don't pass through, group ends that do, and a selection.
#pragma once

#include <cstdint>
#include <string>

namespace ostrel::test {

struct DocumentShape {
  int layers = 10;        // records of the layer list, the groups and the background included
  int groups = 2;         // of them, layer sets
  bool background = true;
  uint32_t seed = 1;
  bool randomSelection = true;  // false: the simulator's own (the top layer), so that every list read succeeds
};

// The scenario's JSON text; its "realdata/..." names are read from examples/photoshop/.
std::string GeneratedDocument(const DocumentShape& shape);

}  // namespace ostrel::test
