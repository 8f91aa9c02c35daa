// Pictures for the image search's tests: textures, flat colours, cuts and pastes of RGB images, noise, and PNG
// files (written uncompressed, in stored deflate blocks: quick to write in any build).
#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/image_search.h"

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
  RgbImage image{width, height, std::vector<uint8_t>(static_cast<size_t>(width) * static_cast<size_t>(height) * 3)};
  uint8_t* p = image.rgb.data();
  for (int32_t i = 0; i < width * height; ++i, p += 3) {
    p[0] = r;
    p[1] = g;
    p[2] = b;
  }
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

namespace png_detail {

inline uint32_t Crc(const std::string& bytes, size_t from) {
  static const auto table = [] {
    std::array<uint32_t, 256> t{};
    for (uint32_t n = 0; n < 256; ++n) {
      uint32_t c = n;
      for (int k = 0; k < 8; ++k) c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
      t[n] = c;
    }
    return t;
  }();
  uint32_t crc = 0xFFFFFFFFu;
  const auto* data = reinterpret_cast<const uint8_t*>(bytes.data());
  for (size_t i = from, n = bytes.size(); i < n; ++i) crc = table[(crc ^ data[i]) & 0xFF] ^ (crc >> 8);
  return crc ^ 0xFFFFFFFFu;
}

inline void Big(std::string& out, uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>((value >> shift) & 0xFF);
}

inline void Chunk(std::string& out, const char* kind, const std::string& data) {
  Big(out, static_cast<uint32_t>(data.size()));
  const size_t from = out.size();
  out += kind;
  out += data;
  Big(out, Crc(out, from));
}

}  // namespace png_detail

// Pixels of channels bytes each (1 grey, 2 grey and alpha, 3 RGB, 4 RGBA), row after row, as PNG bytes.
inline std::string PngBytes(int32_t width, int32_t height, int channels, const uint8_t* pixels) {
  static constexpr char kColourType[] = {0, 0, 4, 2, 6};
  std::string raw;
  const size_t rowBytes = static_cast<size_t>(width) * static_cast<size_t>(channels);
  for (int32_t y = 0; y < height; ++y) {
    raw += '\0';  // no filter
    raw.append(reinterpret_cast<const char*>(pixels) + static_cast<size_t>(y) * rowBytes, rowBytes);
  }
  std::string zlib = "\x78\x01";
  uint32_t a = 1, b = 0;
  const auto* data = reinterpret_cast<const uint8_t*>(raw.data());
  for (size_t i = 0, n = raw.size(); i < n; ++i) {
    a += data[i];
    b += a;
    if ((i & 4095) == 4095) a %= 65521, b %= 65521;  // no overflow in 4096 steps
  }
  a %= 65521;
  b %= 65521;
  for (size_t at = 0; at < raw.size() || at == 0; at += 65535) {
    const size_t length = std::min<size_t>(65535, raw.size() - at);
    zlib += static_cast<char>(at + length >= raw.size() ? 1 : 0);
    zlib += static_cast<char>(length & 0xFF);
    zlib += static_cast<char>(length >> 8);
    zlib += static_cast<char>(~length & 0xFF);
    zlib += static_cast<char>((~length >> 8) & 0xFF);
    zlib.append(raw, at, length);
    if (raw.empty()) break;
  }
  png_detail::Big(zlib, (b << 16) | a);
  std::string header;
  png_detail::Big(header, static_cast<uint32_t>(width));
  png_detail::Big(header, static_cast<uint32_t>(height));
  header += {'\x08', kColourType[channels], '\0', '\0', '\0'};
  std::string out = "\x89PNG\r\n\x1a\n";
  png_detail::Chunk(out, "IHDR", header);
  png_detail::Chunk(out, "IDAT", zlib);
  png_detail::Chunk(out, "IEND", "");
  return out;
}

inline std::string PngBytes(const RgbImage& image) { return PngBytes(image.width, image.height, 3, image.rgb.data()); }

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
