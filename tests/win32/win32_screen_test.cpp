// The screen of Windows: its size, and the image search on what a real window shows. A window of a thread of its
// own paints a known picture; a patch of it is found at its place on the screen, and a patch it doesn't show
// isn't.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "../support/png_files.h"
#include "platform/text.h"
#include "platform/win32/win32_windows.h"
#include "window_thread.h"

namespace ostrel {
namespace {

constexpr wchar_t kClass[] = L"OstrelPaintedPicture";
constexpr int kLeft = 300, kTop = 200;

const RgbImage& Picture() {
  static const RgbImage picture = test_support::Texture(160, 90, 21, 3);
  return picture;
}

LRESULT CALLBACK PaintPicture(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) return 1;
  if (message != WM_PAINT) return DefWindowProcW(window, message, wParam, lParam);
  const RgbImage& picture = Picture();
  std::vector<uint8_t> bgrx(static_cast<size_t>(picture.width * picture.height) * 4);
  for (size_t i = 0; i < bgrx.size() / 4; ++i) {
    bgrx[4 * i] = picture.rgb[3 * i + 2];
    bgrx[4 * i + 1] = picture.rgb[3 * i + 1];
    bgrx[4 * i + 2] = picture.rgb[3 * i];
  }
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
  info.bmiHeader.biWidth = picture.width;
  info.bmiHeader.biHeight = -picture.height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  PAINTSTRUCT paint;
  const HDC dc = BeginPaint(window, &paint);
  SetDIBitsToDevice(dc, 0, 0, static_cast<DWORD>(picture.width), static_cast<DWORD>(picture.height), 0, 0, 0,
                    static_cast<UINT>(picture.height), bgrx.data(), &info, DIB_RGB_COLORS);
  EndPaint(window, &paint);
  return 0;
}

std::wstring Wide(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return FromUtf8(std::string(text.begin(), text.end()));
}

TEST(Win32ScreenTest, TheSizeIsThePrimaryDisplays) {
  win32::Win32Screen screen;
  int32_t width = 0, height = 0;
  screen.ScreenSize(width, height);
  EXPECT_EQ(width, GetSystemMetrics(SM_CXSCREEN));
  EXPECT_EQ(height, GetSystemMetrics(SM_CYSCREEN));
  EXPECT_GT(width, 0);
  EXPECT_GT(height, 0);
}

TEST(Win32ScreenTest, APatchOfAPaintedWindowIsFoundAtItsPlaceOnTheScreen) {
  test::WindowThread thread;
  HWND window = nullptr;
  thread.Run([&] {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &PaintPicture;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClass;
    RegisterClassW(&windowClass);
    window = CreateWindowExW(WS_EX_TOPMOST, kClass, L"", WS_POPUP | WS_VISIBLE, kLeft, kTop, Picture().width,
                             Picture().height, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    UpdateWindow(window);
  });
  ASSERT_NE(window, nullptr);

  const std::filesystem::path folder = test_support::FreshFolder("win32_screen");
  test_support::WritePng(folder / "patch.png", test_support::Cut(Picture(), 50, 30, 24, 16));
  test_support::WritePng(folder / "other.png", test_support::Texture(24, 16, 99, 3));
  const WindowRect around{kLeft - 50, kTop - 50, kLeft + 220, kTop + 140};
  win32::Win32Screen screen;
  WindowRect found;
  int32_t result = 0;
  // The window paints on its own thread, and the X server shows it some moments later: ask again until it does.
  for (int attempt = 0; attempt < 100 && result == 0; ++attempt) {
    thread.Run([&] { RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); });
    result = screen.FindImage(Wide(folder / "patch.png"), around, found, 0.03);
    if (result == 0) Sleep(50);
  }
  EXPECT_EQ(result, 1);
  EXPECT_EQ(found.left, kLeft + 50);
  EXPECT_EQ(found.top, kTop + 30);
  EXPECT_EQ(found.right, kLeft + 74);
  EXPECT_EQ(found.bottom, kTop + 46);

  // The pixels themselves, colour by colour: the capture keeps red, green and blue in their places.
  const std::optional<ScreenPixels> pixels = win32::CaptureScreen(WindowRect{kLeft, kTop, kLeft + 160, kTop + 90});
  ASSERT_TRUE(pixels);
  EXPECT_EQ(pixels->left, kLeft);
  EXPECT_EQ(pixels->top, kTop);
  EXPECT_EQ(pixels->image.rgb, Picture().rgb);

  WindowRect untouched{1, 2, 3, 4};
  EXPECT_EQ(screen.FindImage(Wide(folder / "other.png"), around, untouched, 0.03), 0);
  EXPECT_EQ(untouched.left, 1);
  EXPECT_EQ(screen.FindImage(Wide(folder / "missing.png"), around, untouched, 0.03), 0);

  thread.Run([&] {
    DestroyWindow(window);
    UnregisterClassW(kClass, GetModuleHandleW(nullptr));
  });
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace ostrel
