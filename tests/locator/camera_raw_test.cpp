// The Camera Raw dialog and its panel. The searches the panel makes are checked one by one on a screen that
// records them (files, rectangles, threshold, order), and every answer is reached end to end on screenshots
// composed from the example tab images of examples/windows/camera_raw/.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "../support/png_files.h"
#include "ostrel/OstrelCore.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/portable/recorded_windows.h"
#include "platform/text.h"

namespace ostrel {
namespace {

const std::filesystem::path kExamples = std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "windows";

std::wstring Wide(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return FromUtf8(std::string(text.begin(), text.end()));
}

RecordedWindowTree ExampleTree() {
  WindowTreeLoad load = LoadWindowTree(kExamples / "camera_raw.json");
  EXPECT_TRUE(load.tree) << load.error;
  return load.tree ? std::move(*load.tree) : RecordedWindowTree{};
}

// The folders of the reference images, as the host gives them: with a closing separator.
class ImageFolders {
 public:
  ImageFolders(const std::wstring& main, const std::wstring& sub) {
    DefaultParameters().Set(EnTallyKey::kCameraRawMainTabImages, main);
    DefaultParameters().Set(EnTallyKey::kCameraRawSubTabImages, sub);
  }
  ImageFolders() : ImageFolders(Wide(kExamples / "camera_raw" / "main") + L"/", Wide(kExamples / "camera_raw" / "sub") + L"/") {}
  ~ImageFolders() {
    DefaultParameters().Erase(EnTallyKey::kCameraRawMainTabImages);
    DefaultParameters().Erase(EnTallyKey::kCameraRawSubTabImages);
  }
};

// A screen that writes down every search and finds the files named in shown.
class RecordingScreen final : public IScreen {
 public:
  struct Search {
    std::wstring file;
    WindowRect area;
    double threshold;
  };
  void ScreenSize(int32_t& width, int32_t& height) override { width = 1024, height = 768; }
  int32_t FindImage(const std::wstring& file, const WindowRect& area, WindowRect&, double threshold) override {
    searches.push_back({file, area, threshold});
    return shown.contains(file) ? 1 : 0;
  }
  std::set<std::wstring> shown;
  std::vector<Search> searches;
};

// The dialog of the example tree lies at [12, 10, 1012, 750]: the strip searched is [712, 200, 1012, 280], and
// [712, 200, 1012, 330] or [712, 200, 1012, 350] for the sub-tabs of the tone curve and of HSL.
struct SearchCase {
  const char* name;
  std::vector<std::wstring> shown;
  int expected;
  std::vector<std::wstring> searched;  // "M:" a main tab image, "S:" a sub-tab image, and the strip's bottom
};

const std::vector<SearchCase>& SearchCases() {
  static const std::vector<SearchCase> cases = {
      {"nothing shown: every main tab is tried once, the calibration in its three files",
       {},
       -1,
       {L"M:基本.png 280", L"M:色调曲线.png 280", L"M:细节.png 280", L"M:HSL.png 280", L"M:黑白混合.png 280",
        L"M:分离色调.png 280", L"M:镜头校正.png 280", L"M:效果.png 280", L"M:相机校准.png 280",
        L"M:相机校准_0.png 280", L"M:相机校准_1.png 280", L"M:预设.png 280"}},
      {"the first tab found ends the walk", {L"M:基本.png", L"M:细节.png"}, 0, {L"M:基本.png 280"}},
      {"the tone curve without a sub-tab",
       {L"M:色调曲线.png"},
       1,
       {L"M:基本.png 280", L"M:色调曲线.png 280", L"S:参数.png 330", L"S:点.png 330"}},
      {"the tone curve's point sub-tab",
       {L"M:色调曲线.png", L"S:点.png"},
       3,
       {L"M:基本.png 280", L"M:色调曲线.png 280", L"S:参数.png 330", L"S:点.png 330"}},
      {"the tone curve's parametric sub-tab comes first",
       {L"M:色调曲线.png", L"S:参数.png", L"S:点.png"},
       2,
       {L"M:基本.png 280", L"M:色调曲线.png 280", L"S:参数.png 330"}},
      {"HSL's luminance sub-tab, after hue and saturation",
       {L"M:HSL.png", L"S:明亮度.png"},
       9,
       {L"M:基本.png 280", L"M:色调曲线.png 280", L"M:细节.png 280", L"M:HSL.png 280", L"S:色相.png 350",
        L"S:饱和度.png 350", L"S:明亮度.png 350"}},
      {"a sub-tab of another main tab doesn't count", {L"M:HSL.png", L"S:点.png"}, 5, {}},
      {"a sub-tab without its main tab isn't looked for", {L"S:色相.png"}, -1, {}},
      {"the calibration only in its _1 file",
       {L"M:相机校准_1.png"},
       13,
       {L"M:基本.png 280", L"M:色调曲线.png 280", L"M:细节.png 280", L"M:HSL.png 280", L"M:黑白混合.png 280",
        L"M:分离色调.png 280", L"M:镜头校正.png 280", L"M:效果.png 280", L"M:相机校准.png 280",
        L"M:相机校准_0.png 280", L"M:相机校准_1.png 280"}},
      {"a variant file of another tab isn't tried", {L"M:预设_0.png"}, -1, {}},
  };
  return cases;
}

class CameraRawSearchTest : public ::testing::TestWithParam<SearchCase> {};

TEST_P(CameraRawSearchTest, SearchesTheTabsInOrderInTheStripBelowTheDialogsTopRight) {
  const SearchCase& c = GetParam();
  RecordedWindows windows(ExampleTree());
  RecordingScreen screen;
  for (const std::wstring& image : c.shown) {
    screen.shown.insert((image[0] == L'M' ? L"main\\" : L"sub\\") + image.substr(2));
  }
  const ImageFolders folders(L"main\\", L"sub\\");
  const ScopedPlatform platform({.windows = &windows, .screen = &screen});
  EXPECT_EQ(static_cast<int>(Ostrel_GetCameraRawPanel()), c.expected);
  std::vector<std::wstring> searched;
  for (const RecordingScreen::Search& search : screen.searches) {
    const bool main = search.file.starts_with(L"main\\");
    searched.push_back((main ? L"M:" : L"S:") + search.file.substr(main ? 5 : 4) + L" " +
                       std::to_wstring(search.area.bottom));
    EXPECT_EQ(search.area.left, 712);
    EXPECT_EQ(search.area.top, 200);
    EXPECT_EQ(search.area.right, 1012);
    EXPECT_EQ(search.threshold, 0.03);
  }
  if (!c.searched.empty()) {
    EXPECT_EQ(searched, c.searched);
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, CameraRawSearchTest, ::testing::ValuesIn(SearchCases()),
                         [](const ::testing::TestParamInfo<SearchCase>& info) {
                           return "Case" + std::to_string(info.index);
                         });

TEST(CameraRawWindowTest, TheDialogIsTheFirstFilterDialogWhenItsTitleHoldsCameraRawAndItIsShown) {
  struct Variant {
    const char* name;
    void (*change)(RecordedWindowTree&);
    WindowHandle dialog;
  };
  const Variant variants[] = {
      {"as recorded", [](RecordedWindowTree&) {}, 3001},
      {"hidden", [](RecordedWindowTree& tree) { tree.windows[0].visible = false; }, 0},
      {"another filter", [](RecordedWindowTree& tree) { tree.windows[0].title = L"液化"; }, 0},
      {"other case", [](RecordedWindowTree& tree) { tree.windows[0].title = L"camera raw 11.0"; }, 0},
      {"the title's middle", [](RecordedWindowTree& tree) { tree.windows[0].title = L"滤镜 Camera Raw 滤镜"; }, 3001},
      {"the hidden Liquify first",
       [](RecordedWindowTree& tree) { std::swap(tree.windows[0], tree.windows[1]); },
       0},
  };
  for (const Variant& variant : variants) {
    SCOPED_TRACE(variant.name);
    RecordedWindowTree tree = ExampleTree();
    variant.change(tree);
    RecordedWindows windows(std::move(tree));
    RecordingScreen screen;
    const ImageFolders folders;
    const ScopedPlatform platform({.windows = &windows, .screen = &screen});
    EXPECT_EQ(reinterpret_cast<uintptr_t>(Ostrel_GetCameraRawWnd()), variant.dialog);
    if (variant.dialog == 0) {
      EXPECT_EQ(static_cast<int>(Ostrel_GetCameraRawPanel()), -1);
      EXPECT_TRUE(screen.searches.empty()) << "no search while the dialog is closed";
    }
  }
}

// ---- End to end, on screenshots ---------------------------------------------------------------------------------

TEST(CameraRawScreenshotTest, TheExampleTreeShowsHslOnSaturation) {
  const ImageFolders folders;
  RecordedWindows windows(ExampleTree());
  const ScopedPlatform platform({.windows = &windows, .screen = &windows});
  EXPECT_EQ(static_cast<int>(Ostrel_GetCameraRawPanel()), 8);
}

struct Shown {
  const char* image;  // "main/<name>" or "sub/<name>"
  int32_t left, top;
};

struct ScreenshotCase {
  std::vector<Shown> shown;
  int expected;
};

RgbImage Tab(const std::string& image) {
  const std::optional<RgbImage> picture = LoadPngFile(kExamples / "camera_raw" / std::filesystem::path(
                                                                                   std::u8string(image.begin(), image.end()) + u8".png"));
  EXPECT_TRUE(picture) << image;
  return picture.value_or(RgbImage{});
}

class CameraRawScreenshotCaseTest : public ::testing::TestWithParam<ScreenshotCase> {};

TEST_P(CameraRawScreenshotCaseTest, TheTabsOnTheScreenshotGiveThePanel) {
  const ScreenshotCase& c = GetParam();
  // The screenshot covers the screen's top-left part down to the lowest strip; the rest isn't searched.
  RgbImage shot = test_support::Flat(1012, 352, 83, 83, 83);
  for (const Shown& shown : c.shown) test_support::Paste(shot, Tab(shown.image), shown.left, shown.top);
  const std::filesystem::path folder = test_support::FreshFolder("camera_raw");
  test_support::WritePng(folder / "shot.png", shot);
  RecordedWindowTree tree = ExampleTree();
  tree.screenshot = "shot.png";
  tree.folder = folder;
  {
    const ImageFolders folders;
    RecordedWindows windows(std::move(tree));
    const ScopedPlatform platform({.windows = &windows, .screen = &windows});
    EXPECT_EQ(static_cast<int>(Ostrel_GetCameraRawPanel()), c.expected);
  }
  std::filesystem::remove_all(folder);
}

// The strip is [712, 200, 1012, 280]; the tabs are 18 by 12 pixels; the sub-tabs' strip ends at 330 (tone curve)
// or 350 (HSL).
const ScreenshotCase kScreenshotCases[] = {
    {{{"main/基本", 720, 220}}, 0},
    {{{"main/色调曲线", 720, 220}}, 1},
    {{{"main/色调曲线", 720, 220}, {"sub/参数", 740, 300}}, 2},
    {{{"main/色调曲线", 720, 220}, {"sub/点", 740, 300}}, 3},
    {{{"main/细节", 720, 220}}, 4},
    {{{"main/HSL", 720, 220}}, 5},
    {{{"main/黑白混合", 720, 220}}, 6},
    {{{"main/HSL", 720, 220}, {"sub/色相", 740, 300}}, 7},
    {{{"main/HSL", 720, 220}, {"sub/饱和度", 740, 300}}, 8},
    {{{"main/HSL", 720, 220}, {"sub/明亮度", 740, 300}}, 9},
    {{{"main/分离色调", 720, 220}}, 10},
    {{{"main/镜头校正", 720, 220}}, 11},
    {{{"main/效果", 720, 220}}, 12},
    {{{"main/相机校准", 720, 220}}, 13},
    {{{"main/相机校准_0", 720, 220}}, 13},
    {{{"main/相机校准_1", 720, 220}}, 13},
    {{{"main/预设", 720, 220}}, 14},
    {{}, -1},
    // The strip's edges: a tab reaching one pixel past them isn't found.
    {{{"main/基本", 712, 200}}, 0},
    {{{"main/基本", 994, 268}}, 0},
    {{{"main/基本", 711, 220}}, -1},
    {{{"main/基本", 995, 220}}, -1},
    {{{"main/基本", 720, 199}}, -1},
    {{{"main/基本", 720, 269}}, -1},
    // The sub-tabs' bottoms: 330 for the tone curve, 350 for HSL.
    {{{"main/色调曲线", 720, 220}, {"sub/点", 740, 318}}, 3},
    {{{"main/色调曲线", 720, 220}, {"sub/点", 740, 319}}, 1},
    {{{"main/HSL", 720, 220}, {"sub/色相", 740, 338}}, 7},
    {{{"main/HSL", 720, 220}, {"sub/色相", 740, 339}}, 5},
    // Two main tabs: the first of the table wins, wherever it stands.
    {{{"main/预设", 720, 220}, {"main/细节", 900, 240}}, 4},
};

INSTANTIATE_TEST_SUITE_P(Cases, CameraRawScreenshotCaseTest, ::testing::ValuesIn(kScreenshotCases),
                         [](const ::testing::TestParamInfo<ScreenshotCase>& info) {
                           return "Case" + std::to_string(info.index) + "_Panel" +
                                  (info.param.expected < 0 ? std::string("None")
                                                           : std::to_string(info.param.expected));
                         });

}  // namespace
}  // namespace ostrel
