// The image search: PNG decoding by stb_image, and zero-mean normalized cross-correlation over integral images.
#include "platform/image_search.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>

#include "platform/portable/portable_backends.h"

// stb_image, PNG only, its functions static to this file (nothing of it is exported by the library), and no
// image larger than a screen could be decoded into.
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#define STBI_NO_LINEAR
#define STBI_NO_HDR
#define STBI_MAX_DIMENSIONS (1 << 14)
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wmissing-declarations"
#endif
#include <stb/stb_image.h>
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

namespace ostrel {
namespace {

// A PNG file larger than this isn't a reference image or a screenshot: it isn't read.
constexpr std::streamoff kMaxPngFileBytes = std::streamoff{64} << 20;

// A pixel count whose byte sums stay inside 32 bits in the dot product of one run of a row.
constexpr size_t kDotRun = 16384;

bool Empty(const WindowRect& rect) { return rect.right <= rect.left || rect.bottom <= rect.top; }

bool WellFormed(const RgbImage& image) {
  return image.width > 0 && image.height > 0 &&
         image.rgb.size() == static_cast<size_t>(image.width) * static_cast<size_t>(image.height) * 3;
}

// The sum of the products of two runs of bytes.
int64_t Dot(const uint8_t* a, const uint8_t* b, size_t count) {
  int64_t total = 0;
  while (count > 0) {
    const size_t run = std::min(count, kDotRun);
    uint32_t partial = 0;
    for (size_t k = 0; k < run; ++k) partial += static_cast<uint32_t>(a[k]) * static_cast<uint32_t>(b[k]);
    total += partial;
    a += run;
    b += run;
    count -= run;
  }
  return total;
}

// Integral images of a region of an image: per channel the sums of the bytes, and the sum of the squares of all
// three channels, each over the rectangle from the region's top-left corner up to (x, y), exclusive.
class RegionSums {
 public:
  RegionSums(const RgbImage& image, int32_t left, int32_t top, int32_t width, int32_t height)
      : m_stride(static_cast<size_t>(width) + 1),
        m_sums(3 * m_stride * (static_cast<size_t>(height) + 1), 0),
        m_squares(m_stride * (static_cast<size_t>(height) + 1), 0) {
    for (int32_t y = 0; y < height; ++y) {
      const uint8_t* row = image.rgb.data() +
                           (static_cast<size_t>(top + y) * static_cast<size_t>(image.width) + static_cast<size_t>(left)) * 3;
      int64_t rowSums[3] = {0, 0, 0};
      int64_t rowSquares = 0;
      for (int32_t x = 0; x < width; ++x) {
        for (int c = 0; c < 3; ++c) {
          const int64_t value = row[static_cast<size_t>(x) * 3 + static_cast<size_t>(c)];
          rowSums[c] += value;
          rowSquares += value * value;
        }
        const size_t here = Index(x + 1, y + 1);
        const size_t above = Index(x + 1, y);
        for (int c = 0; c < 3; ++c) m_sums[3 * here + static_cast<size_t>(c)] = m_sums[3 * above + static_cast<size_t>(c)] + rowSums[c];
        m_squares[here] = m_squares[above] + rowSquares;
      }
    }
  }

  // The channel sums and the sum of squares of the box at (x, y) of the given size.
  void Box(int32_t x, int32_t y, int32_t width, int32_t height, int64_t sums[3], int64_t& squares) const {
    const size_t a = Index(x, y), b = Index(x + width, y), c = Index(x, y + height), d = Index(x + width, y + height);
    for (size_t k = 0; k < 3; ++k) sums[k] = m_sums[3 * d + k] - m_sums[3 * b + k] - m_sums[3 * c + k] + m_sums[3 * a + k];
    squares = m_squares[d] - m_squares[b] - m_squares[c] + m_squares[a];
  }

 private:
  size_t Index(int32_t x, int32_t y) const { return static_cast<size_t>(y) * m_stride + static_cast<size_t>(x); }

  size_t m_stride;
  std::vector<int64_t> m_sums;
  std::vector<int64_t> m_squares;
};

}  // namespace

std::optional<RgbImage> DecodePng(std::string_view bytes) {
  static constexpr unsigned char kSignature[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  if (bytes.size() < sizeof kSignature || !std::equal(kSignature, kSignature + sizeof kSignature,
                                                      reinterpret_cast<const unsigned char*>(bytes.data()))) {
    return std::nullopt;
  }
  if (bytes.size() > static_cast<size_t>(std::numeric_limits<int>::max())) return std::nullopt;
  int width = 0, height = 0, channels = 0;
  stbi_uc* pixels = stbi_load_from_memory(reinterpret_cast<const stbi_uc*>(bytes.data()),
                                          static_cast<int>(bytes.size()), &width, &height, &channels, 3);
  if (pixels == nullptr) return std::nullopt;
  RgbImage image;
  if (width > 0 && height > 0) {
    image.width = width;
    image.height = height;
    image.rgb.assign(pixels, pixels + static_cast<size_t>(width) * static_cast<size_t>(height) * 3);
  }
  stbi_image_free(pixels);
  if (!WellFormed(image)) return std::nullopt;
  return image;
}

std::optional<RgbImage> LoadPng(const std::wstring& path) {
  if (path.empty()) return std::nullopt;
  return LoadPngFile(NativePath(path));
}

std::optional<RgbImage> LoadPngFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  in.seekg(0, std::ios::end);
  const std::streamoff size = in.tellg();
  if (size <= 0 || size > kMaxPngFileBytes) return std::nullopt;
  in.seekg(0, std::ios::beg);
  std::string bytes(static_cast<size_t>(size), '\0');
  if (!in.read(bytes.data(), size)) return std::nullopt;
  return DecodePng(bytes);
}

WindowRect ClipToScreen(const WindowRect& area, int32_t width, int32_t height) {
  return WindowRect{std::max<int32_t>(area.left, 0), std::max<int32_t>(area.top, 0),
                    std::min<int32_t>(area.right, std::max<int32_t>(width, 0)),
                    std::min<int32_t>(area.bottom, std::max<int32_t>(height, 0))};
}

ScreenPixels CropScreen(const RgbImage& whole, const WindowRect& rect) {
  ScreenPixels part;
  if (!WellFormed(whole)) return part;
  const WindowRect cut = ClipToScreen(rect, whole.width, whole.height);
  if (Empty(cut)) return part;
  part.left = cut.left;
  part.top = cut.top;
  part.image.width = cut.right - cut.left;
  part.image.height = cut.bottom - cut.top;
  part.image.rgb.reserve(static_cast<size_t>(part.image.width) * static_cast<size_t>(part.image.height) * 3);
  for (int32_t y = cut.top; y < cut.bottom; ++y) {
    const auto row = whole.rgb.begin() +
                     static_cast<std::ptrdiff_t>((static_cast<size_t>(y) * static_cast<size_t>(whole.width) +
                                                  static_cast<size_t>(cut.left)) * 3);
    part.image.rgb.insert(part.image.rgb.end(), row, row + static_cast<std::ptrdiff_t>(part.image.width) * 3);
  }
  return part;
}

ImageMatch SearchImage(const ScreenPixels& screen, const WindowRect& area, const RgbImage& reference,
                       double threshold) {
  ImageMatch match;
  const RgbImage& image = screen.image;
  if (!WellFormed(reference) || !WellFormed(image)) return match;
  const int64_t pixelCount = int64_t{reference.width} * reference.height;
  if (pixelCount > kMaxReferencePixels) return match;

  // The part of the area that the pixels cover, in 64 bits: the sums of a rectangle and an origin may pass 2^31.
  const int64_t left = std::max<int64_t>(area.left, screen.left);
  const int64_t top = std::max<int64_t>(area.top, screen.top);
  const int64_t right = std::min<int64_t>(area.right, int64_t{screen.left} + image.width);
  const int64_t bottom = std::min<int64_t>(area.bottom, int64_t{screen.top} + image.height);
  if (right - left < reference.width || bottom - top < reference.height) return match;
  const auto regionWidth = static_cast<int32_t>(right - left);
  const auto regionHeight = static_cast<int32_t>(bottom - top);
  const auto imageLeft = static_cast<int32_t>(left - screen.left);
  const auto imageTop = static_cast<int32_t>(top - screen.top);

  const int64_t n = pixelCount;
  int64_t referenceSums[3] = {0, 0, 0};
  int64_t referenceSquares = 0;
  for (size_t k = 0; k < reference.rgb.size(); ++k) {
    const int64_t value = reference.rgb[k];
    referenceSums[k % 3] += value;
    referenceSquares += value * value;
  }
  // n times the reference's variance (summed over the channels); with the counts bounded above, every product
  // here stays below 2^58.
  const int64_t referenceSpread = n * referenceSquares - referenceSums[0] * referenceSums[0] -
                                  referenceSums[1] * referenceSums[1] - referenceSums[2] * referenceSums[2];
  const bool flatReference = referenceSpread == 0;

  const RegionSums sums(image, imageLeft, imageTop, regionWidth, regionHeight);
  const size_t rowBytes = static_cast<size_t>(reference.width) * 3;
  const size_t imageRowBytes = static_cast<size_t>(image.width) * 3;
  double best = -2.0;
  int32_t bestX = 0, bestY = 0;
  for (int32_t y = 0; y + reference.height <= regionHeight; ++y) {
    for (int32_t x = 0; x + reference.width <= regionWidth; ++x) {
      int64_t windowSums[3];
      int64_t windowSquares = 0;
      sums.Box(x, y, reference.width, reference.height, windowSums, windowSquares);
      const int64_t windowSpread = n * windowSquares - windowSums[0] * windowSums[0] -
                                   windowSums[1] * windowSums[1] - windowSums[2] * windowSums[2];
      double score = 0.0;
      if (flatReference) {
        score = windowSpread == 0 && windowSums[0] == referenceSums[0] && windowSums[1] == referenceSums[1] &&
                        windowSums[2] == referenceSums[2]
                    ? 1.0
                    : 0.0;
      } else if (windowSpread != 0) {
        int64_t dot = 0;
        const uint8_t* start = image.rgb.data() + static_cast<size_t>(imageTop + y) * imageRowBytes +
                               static_cast<size_t>(imageLeft + x) * 3;
        for (int32_t row = 0; row < reference.height; ++row) {
          dot += Dot(reference.rgb.data() + static_cast<size_t>(row) * rowBytes,
                     start + static_cast<size_t>(row) * imageRowBytes, rowBytes);
        }
        const int64_t covariance = n * dot - referenceSums[0] * windowSums[0] - referenceSums[1] * windowSums[1] -
                                   referenceSums[2] * windowSums[2];
        if (covariance == referenceSpread && covariance == windowSpread) {
          score = 1.0;  // the same pixels: exactly 1, which rounding in the division could miss
        } else {
          score = static_cast<double>(covariance) /
                  (std::sqrt(static_cast<double>(referenceSpread)) * std::sqrt(static_cast<double>(windowSpread)));
          score = std::clamp(score, -1.0, 1.0);
        }
      }
      if (score > best) {
        best = score;
        bestX = x;
        bestY = y;
      }
    }
  }
  match.score = best;
  match.where = WindowRect{static_cast<int32_t>(left + bestX), static_cast<int32_t>(top + bestY),
                           static_cast<int32_t>(left + bestX + reference.width),
                           static_cast<int32_t>(top + bestY + reference.height)};
  match.found = 1.0 - best <= threshold;
  return match;
}

int32_t FindImageOnScreen(const std::wstring& imagePath, const WindowRect& area, WindowRect& found, double threshold,
                          int32_t screenWidth, int32_t screenHeight,
                          const std::function<std::optional<ScreenPixels>(const WindowRect& clipped)>& capture) {
  const WindowRect clipped = ClipToScreen(area, screenWidth, screenHeight);
  if (Empty(clipped)) return 0;
  const std::optional<RgbImage> reference = LoadPng(imagePath);
  if (!reference) return 0;
  if (int64_t{reference->width} > int64_t{clipped.right} - clipped.left ||
      int64_t{reference->height} > int64_t{clipped.bottom} - clipped.top) {
    return 0;  // it can't lie inside: no need to take the screen
  }
  const std::optional<ScreenPixels> pixels = capture(clipped);
  if (!pixels) return 0;
  const ImageMatch match = SearchImage(*pixels, clipped, *reference, threshold);
  if (!match.found) return 0;
  found = match.where;
  return 1;
}

}  // namespace ostrel
