// A recorded window tree: the windows of a screen as plain data, the file form they are kept in, and the window
// tree backend that answers the locator's queries from them, so that the locator runs without Windows.
//
// The file is JSON (UTF-8):
//
//   {"comment": "...", "screen": {"width": 1920, "height": 1080},
//    "screenshot": "shot.png",           a PNG of the screen, its top-left pixel at (0, 0); path from the file's folder
//    "windows": [WINDOW, ...]}            top-level windows in z-order, topmost first
//   WINDOW: {"hwnd": 1234,                nonzero, unique in the file: the handle the locator answers
//            "class": "PSFloatC",         required
//            "title": "",                 default ""; an Edit's content, a ComboBox's shown text, a label
//            "rect": [l, t, r, b],        screen pixels from -32768 to 32767, right and bottom one past;
//                                         default zeros
//            "visible": true,             the window's own shown flag (WS_VISIBLE), default true
//            "owner": 100,                only on a top-level window: its owner, a top-level window of the file
//            "items": ["..."], "selected": 0,   only on a ComboBox: its list and current selection (default -1)
//            "children": [WINDOW, ...]}   child windows, topmost first
//
// "comment", "screen" and "screenshot" may be left out (the screen is then 0 by 0, its sizes from 0 to 32767; without
// a screenshot no image is found on it). Any other key is a mistake, as are a repeated or zero handle, a missing
// class, an owner that isn't a top-level window of the file, an owned window listed after its owner (an owned window
// always lies above it), an owner on a child window, items or a selection on another class than ComboBox, a
// selection outside the items, a coordinate beyond the range above, and a ComboBox whose title isn't the item it
// shows (a drop-down list has no text of its own; its title defaults to that item, "" for none).
//
// What the tree means, as Windows answers for real windows:
// - Classes and titles are compared whole and without regard to case by the searches of top-level windows and of
//   direct children (FindWindowW, FindWindowExW).
// - A window is visible when its own flag and the flags of all its parents are set; an owner doesn't count.
// - The parent (GetParent) of a child window is the window that holds it; of a top-level window its owner, if it
//   has one (an owned window is a pop-up: GetParent gives the owner only for WS_POPUP windows), else none.
// - Descendants are listed in z-order, each window followed by its own descendants (EnumChildWindows).
// - The window at a point is the deepest visible window whose rectangle holds the point, looking at the top-level
//   windows and then at the children of each level topmost first (WindowFromPoint). Labels (Static) count: they
//   are passed over only for the windows of the calling thread, and Photoshop's windows are another process's.
#pragma once

#include <cstdint>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/image_search.h"
#include "platform/window_tree.h"

namespace ostrel {

// One window of a recorded tree, with its children.
struct RecordedWindow {
  WindowHandle hwnd = 0;
  std::wstring className;
  std::wstring title;
  WindowRect rect;
  bool visible = true;     // the window's own shown flag; see IsVisible for what the locator is told
  WindowHandle owner = 0;  // top-level windows only; 0 for none
  std::vector<std::wstring> items;  // a ComboBox's list
  int32_t selected = -1;            // a ComboBox's current selection, -1 for none
  std::vector<RecordedWindow> children;  // topmost first
};

// A whole recorded screen.
struct RecordedWindowTree {
  std::string comment;  // UTF-8, as written in the file
  int32_t screenWidth = 0;
  int32_t screenHeight = 0;
  // The screenshot's path as written in the file (UTF-8), relative to folder unless absolute; empty for none.
  std::string screenshot;
  // The folder of the file the tree was read from (LoadWindowTree sets it); empty: the working directory.
  std::filesystem::path folder;
  std::vector<RecordedWindow> windows;  // top-level windows, topmost first
};

// The result of reading a tree: the tree, or what is wrong with the text and where.
struct WindowTreeLoad {
  std::optional<RecordedWindowTree> tree;
  // Empty when tree is set. Otherwise the place and the mistake: "line 3, column 7: ..." for text that isn't
  // JSON, "windows[0].children[2] (hwnd 1204): ..." for a window, prefixed by the file's name when read from one.
  std::string error;
};

// Reads a tree from JSON text (UTF-8).
WindowTreeLoad ParseWindowTree(std::string_view jsonText);
// Reads a tree from a file; a file that can't be read is an error too.
WindowTreeLoad LoadWindowTree(const std::filesystem::path& file);
// The tree as JSON text in the form above, one window to a line, ready to be read back by ParseWindowTree. Keys
// with their default value are left out, except "title", "rect" and "visible".
std::string WriteWindowTree(const RecordedWindowTree& tree);

// A message that a window of a recorded tree received, as Windows numbers it: WM_SETTEXT (12) with its text,
// WM_SETFOCUS (7), WM_KEYDOWN (256) and WM_KEYUP (257) with the key (13 for Enter).
inline constexpr uint32_t kSetTextMessage = 12;
inline constexpr uint32_t kSetFocusMessage = 7;
inline constexpr uint32_t kKeyDownMessage = 256;
inline constexpr uint32_t kKeyUpMessage = 257;
inline constexpr uint32_t kEnterKey = 13;
struct ReceivedMessage {
  WindowHandle window = 0;
  uint32_t message = 0;
  uint32_t key = 0;
  std::wstring text;
  bool operator==(const ReceivedMessage&) const = default;
};

// The window tree and screen backend over a recorded tree. It keeps its own copy, which WM_SETTEXT changes, and
// the messages its windows received, in order (a message to a handle the tree doesn't have goes nowhere). The
// screen's pixels are those of the screenshot, read at the first image search; a screenshot that can't be read
// finds nothing.
class RecordedWindows final : public IWindowTree, public IScreen {
 public:
  explicit RecordedWindows(RecordedWindowTree tree);
  RecordedWindows(const RecordedWindows&) = delete;
  RecordedWindows& operator=(const RecordedWindows&) = delete;

  const RecordedWindowTree& Tree() const { return m_tree; }
  // The window of a handle, null when there is none.
  const RecordedWindow* Find(WindowHandle window) const;
  const std::vector<ReceivedMessage>& Received() const { return m_received; }

  WindowHandle FindTopLevel(const std::wstring& className, const std::wstring* title) override;
  WindowHandle FindChild(WindowHandle parent, const std::wstring& className) override;
  WindowHandle FindDescendantByClass(WindowHandle parent, const std::wstring& className) override;
  bool GetDescendants(WindowHandle parent, bool visibleOnly, std::vector<WindowHandle>& out) override;
  WindowHandle ParentOf(WindowHandle window) override;
  bool RectOf(WindowHandle window, WindowRect& rect) override;
  bool IsVisible(WindowHandle window) override;
  WindowHandle WindowAt(int32_t x, int32_t y) override;
  std::wstring ClassOf(WindowHandle window) override;
  std::wstring TextOf(WindowHandle window) override;
  bool SetText(WindowHandle window, const std::wstring& text) override;
  bool GiveFocus(WindowHandle window) override;
  bool PressEnter(WindowHandle window) override;
  int32_t ComboBoxCount(WindowHandle window) override;
  int32_t ComboBoxSelection(WindowHandle window) override;
  void ScreenSize(int32_t& width, int32_t& height) override;
  int32_t FindImage(const std::wstring& imagePath, const WindowRect& area, WindowRect& found,
                    double threshold) override;

 private:
  struct Place {
    RecordedWindow* window = nullptr;
    RecordedWindow* container = nullptr;  // the parent that holds it; null for a top-level window
  };
  void Index(RecordedWindow& window, RecordedWindow* container);
  RecordedWindow* Lookup(WindowHandle window);
  WindowHandle DeepestAt(const std::vector<RecordedWindow>& windows, int32_t x, int32_t y) const;
  const RgbImage* Screenshot();

  RecordedWindowTree m_tree;
  std::mutex m_screenshotMutex;
  bool m_screenshotRead = false;
  std::optional<RgbImage> m_screenshot;
  std::unordered_map<WindowHandle, Place> m_places;
  std::vector<ReceivedMessage> m_received;
};

}  // namespace ostrel
