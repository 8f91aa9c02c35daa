// The window trees the real-window tests run on: every example tree of examples/windows/, and a small tree of
// this folder's own that holds the cases Windows is particular about.
#pragma once

#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/portable/recorded_windows.h"

namespace ostrel::test {

struct NamedTree {
  std::string name;
  RecordedWindowTree tree;
};

// Every tree, loaded; a tree that doesn't load throws with its error.
std::vector<NamedTree> TreesToBuild();

// The place of every window of the tree ("windows[0].children[2] (hwnd 1204, Edit)"), by its handle.
std::unordered_map<WindowHandle, std::string> PlacesOf(const RecordedWindowTree& tree);

}  // namespace ostrel::test
