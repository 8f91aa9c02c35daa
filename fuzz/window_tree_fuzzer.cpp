// Recorded window trees (the JSON of `ostrel --windows`): a mistake must come back as an error that names its
// place, never as an exception or a crash; a tree that reads must write back to text that reads as the same tree,
// and the window locator runs over it (the main frame, the options bar and its controls, the pop-ups, the
// floating panels, the type tool's bar, free transform) under a Photoshop version picked by the input, where every
// handle it answers is 0 or a window of the tree. Odd trees are the point: deep nesting, rectangles at the ends
// of 32 bits, empty or inverted rectangles, owners and pop-ups in any order the reader lets through.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "fuzz_support.h"
#include "ostrel/window_locator.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/portable/recorded_windows.h"

namespace {

using ostrel::RecordedWindows;

uint64_t Number(HWND window) { return static_cast<uint64_t>(reinterpret_cast<uintptr_t>(window)); }

// A handle that the locator answered: none, or one of the tree's windows.
void CheckHandle(const RecordedWindows& windows, HWND window) {
  const uint64_t number = Number(window);
  if (number != 0 && windows.Find(static_cast<ostrel::WindowHandle>(number)) == nullptr) {
    ostrel::fuzz::Broken("the locator answered a handle that isn't a window of the tree");
  }
}

void RunLocators(const RecordedWindows& windows, uint64_t pick) {
  for (HWND (*locate)() : {Ostrel_GetPhotoshopWnd, Ostrel_GetPhotoshopMenuBarWnd, Ostrel_GetToolFeaturesBarWnd,
                           Ostrel_GetToolBarWnd, Ostrel_GetToolBarPanel, Ostrel_GetDocumentWnd,
                           Ostrel_GetBrushPickerWnd, Ostrel_GetShapePickerWnd, Ostrel_GetColorPickerWnd,
                           Ostrel_GetToolOptionWnd, Ostrel_GetStrokeStyleWnd, Ostrel_GetFontNameListWnd,
                           Ostrel_GetShapeColorWnd, Ostrel_GetShapePatternWnd, Ostrel_GetBrushPanelWnd,
                           Ostrel_GetHistoryWnd, Ostrel_GetGradualEditWnd, Ostrel_GetFreeTransfHorizontalPosWnd}) {
    CheckHandle(windows, locate());
  }
  (void)Ostrel_GetPhotoshopRect();
  std::vector<HWND> controls(3, reinterpret_cast<HWND>(uintptr_t{7}));  // the call empties what it is given
  const int found = Ostrel_GetToolFeaturesBarChildWnd(controls);
  if (found != (controls.empty() ? 0 : 1)) ostrel::fuzz::Broken("1 without controls, or 0 with some");
  for (HWND control : controls) CheckHandle(windows, control);
  // The controls of the options bar by option id: the marquee's, the brush's, the type tool's, the shape tools'.
  for (const unsigned id : {51u, 58u, 408u, 1204u, 1409u, 2176u, 2481u, 2904u}) {
    CheckHandle(windows, Ostrel_GetToolFeaturesControlWnd(id, L""));
  }
  // Any window of the tree (or none) as the shape fill panel's candidate.
  (void)Ostrel_IsShapeColorFillPanelWnd(reinterpret_cast<HWND>(static_cast<uintptr_t>(pick % 4096)));
  (void)Ostrel_GetFontName();
  (void)Ostrel_GetFontSize();
  (void)Ostrel_IsFreeTransf();
  (void)Ostrel_GetFreeTransfHorizontalPos();
  (void)Ostrel_GetStopColorPos();
  (void)Ostrel_GetShapePatternScale();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text = ostrel::fuzz::Bytes(data, size);
  const ostrel::WindowTreeLoad load = ostrel::ParseWindowTree(text);
  if (!load.tree) {
    if (load.error.empty()) ostrel::fuzz::Broken("a tree refused without a message");
    return 0;
  }
  if (!load.error.empty()) ostrel::fuzz::Broken("a message beside a tree");
  // What is written reads back, and writes the same text again.
  const std::string written = ostrel::WriteWindowTree(*load.tree);
  const ostrel::WindowTreeLoad again = ostrel::ParseWindowTree(written);
  if (!again.tree) ostrel::fuzz::Broken(("a written tree doesn't read: " + again.error).c_str());
  if (ostrel::WriteWindowTree(*again.tree) != written) ostrel::fuzz::Broken("a written tree reads as another");

  const uint64_t pick = std::hash<std::string_view>{}(text);
  constexpr const wchar_t* kVersions[] = {L"Adobe Photoshop CC 2017", L"Adobe Photoshop CC 2019",
                                          L"Adobe Photoshop 2021", L""};
  RecordedWindows windows(*load.tree);
  {
    ostrel::ScopedPlatform platform(ostrel::Platform{.windows = &windows, .screen = &windows});
    ostrel::DefaultParameters().Set(ostrel::EnTallyKey::kPhotoshopVersionName, kVersions[pick % 4]);
    RunLocators(windows, pick);
    ostrel::DefaultParameters().Erase(ostrel::EnTallyKey::kPhotoshopVersionName);
  }
  return 0;
}
