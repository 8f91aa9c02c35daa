// Pictures for the image search's tests: textures, flat colours, cuts and pastes of RGB images, noise, and PNG
// files written by stb_image_write.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/image_search.h"

#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#endif
#include <stb/stb_image_write.h>
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

namespace ostrel::test_support {

// A small generator of its own, so that every system draws the same pictures.
class Pixels {
 public:
  explicit Pixels(uint32_t seed) : m_state(seed * 2654435761u + 1u) {}
  uint8_t Next() {
    m_state = m_state * 1664525u + 1013904223u;
    return static_cast<uint8_t>(m_state >> 24);
  }

 private:
  uint32_t m_state;
};

inline RgbImage Flat(int32_t width, int32_t height, uint8_t r, uint8_t g, uint8_t b) {
  RgbImage image{width, height, {}};
  for (int32_t i = 0; i < width * height; ++i) image.rgb.insert(image.rgb.end(), {r, g, b});
  return image;
}

// Random blocks of block by block pixels: a picture with contrast at every scale the tests use.
inline RgbImage Texture(int32_t width, int32_t height, uint32_t seed, int32_t block = 2) {
  RgbImage image = Flat(width, height, 0, 0, 0);
  Pixels random(seed);
  const int32_t columns = (width + block - 1) / block, rows = (height + block - 1) / block;
  for (int32_t by = 0; by < rows; ++by) {
    for (int32_t bx = 0; bx < columns; ++bx) {
      const uint8_t r = random.Next(), g = random.Next(), b = random.Next();
      for (int32_t y = by * block; y < std::min(height, (by + 1) * block); ++y) {
        for (int32_t x = bx * block; x < std::min(width, (bx + 1) * block); ++x) {
          uint8_t* p = &image.rgb[(static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)) * 3];
          p[0] = r;
          p[1] = g;
          p[2] = b;
        }
      }
    }
  }
  return image;
}

inline RgbImage Cut(const RgbImage& from, int32_t left, int32_t top, int32_t width, int32_t height) {
  RgbImage part{width, height, {}};
  for (int32_t y = top; y < top + height; ++y) {
    const auto row = from.rgb.begin() + (static_cast<std::ptrdiff_t>(y) * from.width + left) * 3;
    part.rgb.insert(part.rgb.end(), row, row + static_cast<std::ptrdiff_t>(width) * 3);
  }
  return part;
}

inline void Paste(RgbImage& into, const RgbImage& part, int32_t left, int32_t top) {
  for (int32_t y = 0; y < part.height; ++y) {
    std::copy_n(part.rgb.begin() + static_cast<std::ptrdiff_t>(y) * part.width * 3, part.width * 3,
                into.rgb.begin() + (static_cast<std::ptrdiff_t>(top + y) * into.width + left) * 3);
  }
}

// Every byte moved by a pseudo-random amount from -amplitude to +amplitude, held inside 0..255.
inline RgbImage WithNoise(RgbImage image, int amplitude, uint32_t seed) {
  Pixels random(seed);
  for (uint8_t& byte : image.rgb) {
    const int shift = static_cast<int>(random.Next() % static_cast<unsigned>(2 * amplitude + 1)) - amplitude;
    byte = static_cast<uint8_t>(std::clamp(static_cast<int>(byte) + shift, 0, 255));
  }
  return image;
}

// The image as PNG bytes.
inline std::string PngBytes(const RgbImage& image) {
  std::string bytes;
  stbi_write_png_to_func(
      [](void* context, void* data, int size) {
        static_cast<std::string*>(context)->append(static_cast<const char*>(data), static_cast<size_t>(size));
      },
      &bytes, image.width, image.height, 3, image.rgb.data(), image.width * 3);
  return bytes;
}

inline void WriteFile(const std::filesystem::path& file, const std::string& bytes) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

inline void WritePng(const std::filesystem::path& file, const RgbImage& image) { WriteFile(file, PngBytes(image)); }

// A new folder under the system's temporary folder, of this process alone (tests of several builds and test
// processes run at once).
inline std::filesystem::path FreshFolder(const std::string& name) {
  const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("ostrel_" + name + "_" + std::to_string(stamp));
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  return folder;
}

}  // namespace ostrel::test_support
