// The search of a reference image on the screen: a PNG file decoded to RGB pixels, looked for within a rectangle
// of the screen by zero-mean normalized cross-correlation. Both screen backends (the recorded screenshot and the
// live screen of Windows) hand their pixels to the one search here, so that both answer alike.
//
// What a search answers:
// - The score of a place is the ZNCC of the reference with the screen's pixels under it: the three colour
//   channels taken together as one vector, each channel less its own mean (over the reference, and over the
//   window of the screen under it). It runs from -1 to 1; 1 is the same picture up to a brightness and contrast
//   change of each channel. An alpha channel of the PNG is dropped: the search compares colours only.
// - A flat reference (every pixel of one colour) has no contrast to correlate: it scores 1 where the screen under
//   it is flat and of exactly that colour, else 0. A flat window of the screen under a reference that isn't flat
//   scores 0.
// - The image is found when 1 - best score <= threshold, at the place of the best score (the first in reading
//   order, top to bottom and then left to right, among equal scores). A threshold of 0.03 thus asks for a score of
//   at least 0.97; a threshold below 0 never finds anything, and one of 2 or more finds the image wherever it
//   fits.
// - The rectangle searched is the one given, cut to the screen; the whole reference must lie inside it. The found
//   rectangle is the reference's place on the screen: left and top of the best place, right and bottom one past,
//   so it is as large as the reference.
// - A missing, unreadable or corrupt file, a reference of zero size or of more than 2^20 pixels, a rectangle that
//   is empty on the screen or smaller than the reference: not found.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/window_tree.h"

namespace ostrel {

// An image as rows of RGB pixels, top row first, three bytes a pixel.
struct RgbImage {
  int32_t width = 0;
  int32_t height = 0;
  std::vector<uint8_t> rgb;
};

// A PNG decoded to RGB (alpha dropped, grey and palette images expanded); nothing when the bytes aren't a PNG
// that can be decoded.
std::optional<RgbImage> DecodePng(std::string_view bytes);
// The PNG file at path; nothing when it can't be read or decoded.
std::optional<RgbImage> LoadPng(const std::wstring& path);
std::optional<RgbImage> LoadPngFile(const std::filesystem::path& path);

// Pixels of a part of the screen: the image's top-left pixel lies at (left, top) on the screen.
struct ScreenPixels {
  RgbImage image;
  int32_t left = 0;
  int32_t top = 0;
};

// The best place of a search, and whether it is good enough.
struct ImageMatch {
  bool found = false;
  WindowRect where;     // the reference's rectangle at the best place, when there was a place to try
  double score = -2.0;  // the best ZNCC; -2 when no place could be tried
};

// The largest reference searched for, in pixels.
inline constexpr int64_t kMaxReferencePixels = int64_t{1} << 20;

// The rectangle cut to a screen of width by height pixels with its top-left corner at (0, 0). An area that lies
// off the screen gives an empty rectangle (right <= left or bottom <= top).
WindowRect ClipToScreen(const WindowRect& area, int32_t width, int32_t height);

// The pixels of whole (a picture of the screen with its top-left pixel at (0, 0)) within rect, cut to the picture.
ScreenPixels CropScreen(const RgbImage& whole, const WindowRect& rect);

// Searches reference within area (screen coordinates) on the pixels given; the part of area that the pixels
// don't cover isn't searched.
ImageMatch SearchImage(const ScreenPixels& screen, const WindowRect& area, const RgbImage& reference,
                       double threshold);

// The search as the screen backends answer it: the reference read from imagePath, area cut to a screen of
// screenWidth by screenHeight, the screen's pixels of the cut area from capture (nothing when they can't be had).
// 1 and found set to the reference's place when found; else 0 and found as it was.
int32_t FindImageOnScreen(const std::wstring& imagePath, const WindowRect& area, WindowRect& found, double threshold,
                          int32_t screenWidth, int32_t screenHeight,
                          const std::function<std::optional<ScreenPixels>(const WindowRect& clipped)>& capture);

}  // namespace ostrel
