// Typing a zoom into the zoom field, on real windows built from an example tree: the field, an Edit of another
// thread, receives WM_SETTEXT with the text, WM_SETFOCUS, and Enter down and up, in that order and nothing else
// of these four kinds; the recorded tree's backend logs the same messages.
#include <windows.h>  // first: the library's headers then take HWND, tagRECT and tagSIZE from it

#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "platform/portable/recorded_windows.h"
#include "platform/text.h"
#include "platform/win32/win32_windows.h"
#include "real_windows.h"
#include "window_thread.h"

namespace ostrel {

// A received message as a failure shows it: its window, number, key and text.
void PrintTo(const ReceivedMessage& message, std::ostream* out) {
  *out << "{hwnd " << message.window << ", message " << message.message << ", key " << message.key << ", \""
       << ToUtf8(message.text) << "\"}";
}

namespace {

// What the subclassed field received, written on the window thread while the sender waits for each message.
std::vector<ReceivedMessage> g_received;
WNDPROC g_fieldProcedure = nullptr;
WindowHandle g_recordedField = 0;

LRESULT CALLBACK RecordingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SETTEXT:
      g_received.push_back(
          ReceivedMessage{g_recordedField, message, 0, reinterpret_cast<const wchar_t*>(lParam)});
      break;
    case WM_SETFOCUS:
      g_received.push_back(ReceivedMessage{g_recordedField, message, 0, {}});
      break;
    case WM_KEYDOWN:
    case WM_KEYUP:
      g_received.push_back(ReceivedMessage{g_recordedField, message, static_cast<uint32_t>(wParam), {}});
      break;
    default:
      break;
  }
  return CallWindowProcW(g_fieldProcedure, window, message, wParam, lParam);
}

TEST(ZoomFieldMessages, SetScaleSendsTextFocusAndEnterInOrder) {
  const std::filesystem::path file = std::filesystem::path(OSTREL_SOURCE_DIR) / "examples/windows/layers_panel.json";
  WindowTreeLoad load = LoadWindowTree(file);
  ASSERT_TRUE(load.tree) << load.error;
  constexpr WindowHandle kZoomField = 1543;

  // Through the recorded tree.
  std::vector<ReceivedMessage> fromModel;
  {
    RecordedWindows model(*load.tree);
    const ScopedPlatform platform({.windows = &model});
    EXPECT_EQ(Ostrel_SetScale(33.333), 1);
    fromModel = model.Received();
  }

  // Through real windows, the field subclassed on its own thread.
  test::WindowThread thread;
  test::RealWindows real(thread, *load.tree);
  const HWND field = win32::ToHwnd(real.RealOf(kZoomField));
  ASSERT_NE(field, nullptr);
  g_received.clear();
  g_recordedField = kZoomField;
  thread.Run([&] {
    g_fieldProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(field, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&RecordingProcedure)));
  });
  ASSERT_NE(g_fieldProcedure, nullptr);
  win32::Win32WindowTree live;
  {
    const ScopedPlatform platform({.windows = &live});
    EXPECT_EQ(Ostrel_SetScale(33.333), 1);
    EXPECT_DOUBLE_EQ(Ostrel_GetScale(), 33.33);
  }
  thread.Run([&] { SetWindowLongPtrW(field, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(g_fieldProcedure)); });

  const std::vector<ReceivedMessage> expected = {{kZoomField, WM_SETTEXT, 0, L"33.33"},
                                                 {kZoomField, WM_SETFOCUS, 0, L""},
                                                 {kZoomField, WM_KEYDOWN, VK_RETURN, L""},
                                                 {kZoomField, WM_KEYUP, VK_RETURN, L""}};
  EXPECT_EQ(g_received, expected);
  EXPECT_EQ(fromModel, expected);
  wchar_t text[64] = {};
  GetWindowTextW(field, text, 64);
  EXPECT_EQ(std::wstring(text), L"33.33");
}

}  // namespace
}  // namespace ostrel
