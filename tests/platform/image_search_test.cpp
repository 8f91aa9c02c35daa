// The image search: what the threshold means at its edge, where a match is placed, the flat reference, the
// clipping of the searched rectangle, and files that can't be searched for.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <string>

#include "../support/png_files.h"
#include "platform/image_search.h"
#include "platform/text.h"

namespace ostrel {
namespace {

using test_support::Cut;
using test_support::Flat;
using test_support::Paste;
using test_support::Texture;
using test_support::WithNoise;

constexpr WindowRect kWholeScreen{0, 0, 200, 120};

ScreenPixels Screen(const RgbImage& image) { return ScreenPixels{image, 0, 0}; }

bool Same(const WindowRect& a, const WindowRect& b) {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

TEST(ImageSearchTest, AnExactPatchIsFoundAtItsPlaceWithScoreOne) {
  const RgbImage screen = Texture(200, 120, 1);
  const RgbImage patch = Cut(screen, 37, 21, 24, 16);
  const ImageMatch match = SearchImage(Screen(screen), kWholeScreen, patch, 0.0);
  EXPECT_TRUE(match.found);
  EXPECT_EQ(match.score, 1.0);
  EXPECT_TRUE(Same(match.where, WindowRect{37, 21, 61, 37}));
}

TEST(ImageSearchTest, ThePixelsMayStandAnywhereOnTheScreen) {
  // The pixels of a capture of (500, 300) onwards: the place found is on the screen, not in the capture.
  const RgbImage part = Texture(80, 40, 2);
  const RgbImage patch = Cut(part, 10, 5, 12, 9);
  const ImageMatch match = SearchImage(ScreenPixels{part, 500, 300}, WindowRect{500, 300, 580, 340}, patch, 0.03);
  EXPECT_TRUE(match.found);
  EXPECT_TRUE(Same(match.where, WindowRect{510, 305, 522, 314}));
}

// The threshold is the greatest 1 - score that counts as found: a patch is found exactly when its distance from a
// perfect match is at most the threshold.
TEST(ImageSearchTest, TheThresholdBoundsOneMinusTheBestScoreInclusively) {
  const RgbImage screen = Texture(200, 120, 3);
  const RgbImage noisy = WithNoise(Cut(screen, 120, 70, 30, 20), 40, 7);
  const ImageMatch measured = SearchImage(Screen(screen), kWholeScreen, noisy, 1.0);
  ASSERT_TRUE(measured.found);
  ASSERT_TRUE(Same(measured.where, WindowRect{120, 70, 150, 90}));
  const double distance = 1.0 - measured.score;
  ASSERT_GT(distance, 0.01);  // the noise took it well away from 1
  EXPECT_TRUE(SearchImage(Screen(screen), kWholeScreen, noisy, distance).found);
  EXPECT_TRUE(SearchImage(Screen(screen), kWholeScreen, noisy, distance * (1 + 1e-9)).found);
  EXPECT_FALSE(SearchImage(Screen(screen), kWholeScreen, noisy, distance * (1 - 1e-9)).found);
}

TEST(ImageSearchTest, SmallNoiseStaysUnderTheLessonThresholdAndLargeNoiseGoesOverIt) {
  const RgbImage screen = Texture(200, 120, 4);
  const RgbImage patch = Cut(screen, 60, 40, 30, 20);
  const ImageMatch small = SearchImage(Screen(screen), kWholeScreen, WithNoise(patch, 12, 5), 0.03);
  EXPECT_TRUE(small.found) << "score " << small.score;
  EXPECT_GT(1.0 - small.score, 0.0);
  EXPECT_TRUE(Same(small.where, WindowRect{60, 40, 90, 60}));
  const ImageMatch large = SearchImage(Screen(screen), kWholeScreen, WithNoise(patch, 60, 5), 0.03);
  EXPECT_FALSE(large.found) << "score " << large.score;
  EXPECT_GT(1.0 - large.score, 0.03);
  EXPECT_TRUE(Same(large.where, WindowRect{60, 40, 90, 60}));  // still the best place, but not good enough
}

TEST(ImageSearchTest, APatchThatIsntOnTheScreenScoresFarBelowTheThreshold) {
  const RgbImage screen = Texture(200, 120, 6);
  const RgbImage elsewhere = Cut(Texture(200, 120, 8), 37, 21, 24, 16);
  const ImageMatch match = SearchImage(Screen(screen), kWholeScreen, elsewhere, 0.03);
  EXPECT_FALSE(match.found);
  EXPECT_LT(match.score, 0.5);
}

TEST(ImageSearchTest, ABrightnessAndContrastChangeOfEachChannelStillMatches) {
  RgbImage screen = Texture(200, 120, 9);
  RgbImage patch = Cut(screen, 100, 50, 20, 20);
  for (size_t i = 0; i < patch.rgb.size(); ++i) {
    patch.rgb[i] = static_cast<uint8_t>(patch.rgb[i] / 2 + (i % 3 == 0 ? 100 : 20));
  }
  const ImageMatch match = SearchImage(Screen(screen), kWholeScreen, patch, 0.03);
  EXPECT_TRUE(match.found);
  EXPECT_GT(match.score, 0.999);
}

TEST(ImageSearchTest, OfTwoEqualPlacesTheFirstInReadingOrderIsGiven) {
  RgbImage screen = Flat(200, 120, 90, 90, 90);
  const RgbImage patch = Texture(10, 10, 10);
  Paste(screen, patch, 150, 20);
  Paste(screen, patch, 20, 80);
  Paste(screen, patch, 60, 20);
  const ImageMatch match = SearchImage(Screen(screen), kWholeScreen, patch, 0.0);
  EXPECT_TRUE(match.found);
  EXPECT_TRUE(Same(match.where, WindowRect{60, 20, 70, 30}));
}

TEST(ImageSearchTest, AFlatReferenceIsFoundOnlyWhereTheScreenIsFlatInItsVeryColour) {
  RgbImage screen = Texture(200, 120, 11);
  Paste(screen, Flat(20, 20, 10, 200, 30), 140, 80);
  Paste(screen, Flat(20, 20, 10, 201, 30), 20, 10);  // one step off in green
  const ImageMatch match = SearchImage(Screen(screen), kWholeScreen, Flat(8, 6, 10, 200, 30), 0.03);
  EXPECT_TRUE(match.found);
  EXPECT_EQ(match.score, 1.0);
  EXPECT_TRUE(Same(match.where, WindowRect{140, 80, 148, 86}));
  const ImageMatch none = SearchImage(Screen(screen), kWholeScreen, Flat(8, 6, 11, 200, 30), 0.03);
  EXPECT_FALSE(none.found);
  EXPECT_EQ(none.score, 0.0);
}

TEST(ImageSearchTest, AFlatPartOfTheScreenDoesntMatchAReferenceWithContrast) {
  const ImageMatch match = SearchImage(Screen(Flat(200, 120, 128, 128, 128)), kWholeScreen, Texture(8, 8, 12), 1.0);
  EXPECT_TRUE(match.found);  // with a threshold of 1 a score of 0 is enough
  EXPECT_EQ(match.score, 0.0);
  EXPECT_FALSE(SearchImage(Screen(Flat(200, 120, 128, 128, 128)), kWholeScreen, Texture(8, 8, 12), 0.99).found);
}

TEST(ImageSearchTest, OnlyTheRectangleIsSearchedAndTheWholeReferenceMustLieInIt) {
  const RgbImage screen = Texture(200, 120, 13);
  const RgbImage patch = Cut(screen, 50, 50, 20, 10);
  EXPECT_TRUE(SearchImage(Screen(screen), WindowRect{50, 50, 70, 60}, patch, 0.03).found);
  EXPECT_FALSE(SearchImage(Screen(screen), WindowRect{51, 50, 90, 80}, patch, 0.03).found);
  EXPECT_FALSE(SearchImage(Screen(screen), WindowRect{0, 0, 69, 120}, patch, 0.03).found);
  EXPECT_FALSE(SearchImage(Screen(screen), WindowRect{0, 0, 200, 59}, patch, 0.03).found);
}

TEST(ImageSearchTest, AReferenceLargerThanTheRectangleIsNotFound) {
  const RgbImage screen = Texture(200, 120, 14);
  const ImageMatch match = SearchImage(Screen(screen), WindowRect{0, 0, 30, 30}, Cut(screen, 0, 0, 31, 10), 2.0);
  EXPECT_FALSE(match.found);
  EXPECT_EQ(match.score, -2.0);
}

// ---- Files ------------------------------------------------------------------------------------------------------

class ImageFileTest : public ::testing::Test {
 protected:
  void SetUp() override { m_folder = test_support::FreshFolder("image_search"); }
  void TearDown() override { std::filesystem::remove_all(m_folder); }

  static std::wstring Wide(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return FromUtf8(std::string(text.begin(), text.end()));
  }
  std::wstring Path(const std::string& name) const { return Wide(m_folder / name); }

  // The search through the screen backends' shape on a 200 by 120 screen that shows screen; counts captures.
  int32_t Find(const std::wstring& file, const WindowRect& area, WindowRect& found, double threshold = 0.03) {
    return FindImageOnScreen(file, area, found, threshold, 200, 120, [this](const WindowRect& clipped) {
      ++m_captures;
      return std::optional<ScreenPixels>(CropScreen(m_screen, clipped));
    });
  }

  std::filesystem::path m_folder;
  RgbImage m_screen = Texture(200, 120, 15);
  int m_captures = 0;
};

TEST_F(ImageFileTest, APngFileIsFoundAndOnlyTheClippedRectangleIsTaken) {
  test_support::WritePng(m_folder / "corner.png", Cut(m_screen, 0, 0, 16, 12));
  WindowRect found;
  EXPECT_EQ(Find(Path("corner.png"), WindowRect{-40, -30, 50, 40}, found), 1);
  EXPECT_TRUE(Same(found, WindowRect{0, 0, 16, 12}));
  EXPECT_EQ(m_captures, 1);
  test_support::WritePng(m_folder / "edge.png", Cut(m_screen, 190, 110, 10, 10));
  EXPECT_EQ(Find(Path("edge.png"), WindowRect{150, 100, 400, 300}, found), 1);
  EXPECT_TRUE(Same(found, WindowRect{190, 110, 200, 120}));
}

TEST_F(ImageFileTest, AChineseFileNameIsRead) {
  test_support::WritePng(m_folder / std::filesystem::path(u8"相机校准_1.png"), Cut(m_screen, 30, 40, 16, 12));
  WindowRect found;
  EXPECT_EQ(Find(Wide(m_folder / std::filesystem::path(u8"相机校准_1.png")), kWholeScreen, found), 1);
  EXPECT_TRUE(Same(found, WindowRect{30, 40, 46, 52}));
}

TEST_F(ImageFileTest, FilesThatArentPngsOfSomeSizeAreNotFoundAndFoundStaysAsItWas) {
  const std::string png = test_support::PngBytes(Cut(m_screen, 0, 0, 16, 12));
  test_support::WriteFile(m_folder / "empty.png", "");
  test_support::WriteFile(m_folder / "text.png", "not a picture");
  test_support::WriteFile(m_folder / "cut.png", png.substr(0, png.size() / 2));
  test_support::WriteFile(m_folder / "signature.png", png.substr(0, 8) + std::string(200, '\x5a'));
  std::string damaged = png;
  damaged[20] = static_cast<char>(0x7f);  // the header's height, now beyond any screen
  test_support::WriteFile(m_folder / "damaged.png", damaged);
  std::filesystem::create_directories(m_folder / "folder.png");
  for (const char* name : {"missing.png", "empty.png", "text.png", "cut.png", "signature.png", "damaged.png",
                           "folder.png"}) {
    SCOPED_TRACE(name);
    WindowRect found{1, 2, 3, 4};
    EXPECT_EQ(Find(Path(name), kWholeScreen, found), 0);
    EXPECT_TRUE(Same(found, WindowRect{1, 2, 3, 4}));
  }
  WindowRect found;
  EXPECT_EQ(Find(L"", kWholeScreen, found), 0);
  EXPECT_EQ(m_captures, 0);  // nothing to look for: the screen isn't taken
}

TEST_F(ImageFileTest, ARectangleOffTheScreenOrSmallerThanTheReferenceTakesNoCapture) {
  test_support::WritePng(m_folder / "patch.png", Cut(m_screen, 0, 0, 16, 12));
  WindowRect found;
  EXPECT_EQ(Find(Path("patch.png"), WindowRect{200, 0, 400, 120}, found), 0);
  EXPECT_EQ(Find(Path("patch.png"), WindowRect{-100, -100, 0, 0}, found), 0);
  EXPECT_EQ(Find(Path("patch.png"), WindowRect{10, 10, 5, 50}, found), 0);
  EXPECT_EQ(Find(Path("patch.png"), WindowRect{0, 0, 15, 120}, found), 0);
  EXPECT_EQ(m_captures, 0);
}

TEST_F(ImageFileTest, AScreenThatCantBeTakenFindsNothing) {
  test_support::WritePng(m_folder / "patch.png", Cut(m_screen, 0, 0, 16, 12));
  WindowRect found;
  EXPECT_EQ(FindImageOnScreen(Path("patch.png"), kWholeScreen, found, 0.03, 200, 120,
                              [](const WindowRect&) { return std::optional<ScreenPixels>(); }),
            0);
}

}  // namespace
}  // namespace ostrel
