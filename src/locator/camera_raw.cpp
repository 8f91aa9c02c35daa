// The Camera Raw panel: the main tabs' reference images are searched in a strip below the dialog's top right, in
// the order of the table; the first found names the panel, and a main tab with sub-tabs then searches a taller
// strip for its sub-tabs' images.
#include "locator/camera_raw.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

#include "locator/patterns.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace ostrel::locator {
namespace {

// The strip searched, from the dialog's rectangle: 300 pixels left of its right edge to that edge, from 190 to
// 270 below its top; with sub-tabs its bottom moves further down.
constexpr int32_t kStripWidth = 300;
constexpr int32_t kStripTop = 190;
constexpr int32_t kStripBottom = 270;
// What the image search must reach: 1 - correlation at most this (see platform/image_search.h).
constexpr double kThreshold = 0.03;

struct SubTab {
  const wchar_t* image;
  int panel;
};

// The files tried for a tab's image: the name alone, or also its two variants _0 and _1.
enum class Files { kOne, kThree };

struct MainTab {
  const wchar_t* image;
  int panel;
  Files files;
  int32_t subTabBottom;  // below the dialog's top; 0 without sub-tabs
  std::array<SubTab, 3> subTabs;
  size_t subTabCount;
};

constexpr MainTab kMainTabs[] = {
    {L"基本", 0, Files::kOne, 0, {}, 0},
    {L"色调曲线", 1, Files::kOne, 320, {{{L"参数", 2}, {L"点", 3}}}, 2},
    {L"细节", 4, Files::kOne, 0, {}, 0},
    {L"HSL", 5, Files::kOne, 340, {{{L"色相", 7}, {L"饱和度", 8}, {L"明亮度", 9}}}, 3},
    {L"黑白混合", 6, Files::kOne, 0, {}, 0},
    {L"分离色调", 10, Files::kOne, 0, {}, 0},
    {L"镜头校正", 11, Files::kOne, 0, {}, 0},
    {L"效果", 12, Files::kOne, 0, {}, 0},
    {L"相机校准", 13, Files::kThree, 0, {}, 0},
    {L"预设", 14, Files::kOne, 0, {}, 0},
};

// A side of the dialog moved by delta pixels, held inside 32 bits.
int32_t Shifted(int32_t side, int32_t delta) {
  return static_cast<int32_t>(std::clamp<int64_t>(int64_t{side} + delta, std::numeric_limits<int32_t>::min(),
                                                  std::numeric_limits<int32_t>::max()));
}

// Whether the image of name, as the file "<folder><name><suffix>.png", is on the screen within strip.
bool Shown(const std::wstring& folder, const wchar_t* name, const wchar_t* suffix, const WindowRect& strip) {
  WindowRect found;
  const std::wstring file = Format(L"%s%s%s.png", folder, name, suffix);
  return CurrentPlatform().screen->FindImage(file, strip, found, kThreshold) != 0;
}

bool TabShown(const std::wstring& folder, const MainTab& tab, const WindowRect& strip) {
  if (Shown(folder, tab.image, L"", strip)) return true;
  return tab.files == Files::kThree &&
         (Shown(folder, tab.image, L"_0", strip) || Shown(folder, tab.image, L"_1", strip));
}

}  // namespace

WindowHandle CameraRawDialog() {
  IWindowTree& windows = Windows();
  const WindowHandle dialog = windows.FindTopLevel(kFilterDialogClass, nullptr);
  if (dialog == 0 || windows.TextOf(dialog).find(kCameraRawTitlePart) == std::wstring::npos) return 0;
  return windows.IsVisible(dialog) ? dialog : 0;
}

int CameraRawPanel() {
  const WindowHandle dialog = CameraRawDialog();
  if (dialog == 0) return -1;
  const WindowRect frame = RectOf(dialog);
  WindowRect strip{Shifted(frame.right, -kStripWidth), Shifted(frame.top, kStripTop), frame.right,
                   Shifted(frame.top, kStripBottom)};
  IParameters& parameters = *CurrentPlatform().parameters;
  const std::wstring mainFolder = parameters.GetString(EnTallyKey::kCameraRawMainTabImages);
  const std::wstring subFolder = parameters.GetString(EnTallyKey::kCameraRawSubTabImages);
  for (const MainTab& tab : kMainTabs) {
    if (!TabShown(mainFolder, tab, strip)) continue;
    if (tab.subTabCount > 0) {
      strip.bottom = Shifted(frame.top, tab.subTabBottom);
      for (const SubTab& sub : std::span(tab.subTabs.data(), tab.subTabCount)) {
        if (Shown(subFolder, sub.image, L"", strip)) return sub.panel;
      }
    }
    return tab.panel;
  }
  return -1;
}

}  // namespace ostrel::locator
