// ostrel capture-windows [FILE]: the live windows of the running Photoshop, written as a recorded window tree.
#include <filesystem>
#include <fstream>
#include <iostream>

#include "commands.h"
#include "platform/portable/recorded_windows.h"
#include "platform/window_capture.h"

namespace ostrel::cli {

int RunCaptureCommand(const CaptureOptions& options) {
  if (!CanCaptureWindows()) {
    std::cerr << "ostrel capture-windows: needs Windows (it records the live windows of a running Photoshop)\n";
    return 2;
  }
  const std::optional<RecordedWindowTree> tree = CapturePhotoshopWindows();
  if (!tree) {
    std::cerr << "ostrel capture-windows: Photoshop isn't running (no top-level window of the class Photoshop)\n";
    return 1;
  }
  const std::string text = WriteWindowTree(*tree);
  if (options.path == "-") {
    std::cout << text;
    return std::cout ? 0 : 2;
  }
  std::ofstream out(std::filesystem::u8path(options.path), std::ios::binary);
  out << text;
  out.close();
  if (!out) {
    std::cerr << "ostrel capture-windows: can't write " << options.path << '\n';
    return 2;
  }
  return 0;
}

}  // namespace ostrel::cli
