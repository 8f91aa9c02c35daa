// The image search: one reference image looked for in the Camera Raw dialog's strip of 300 by 80 pixels (nowhere
// found, so every place is tried), and the whole Camera Raw panel question on the example tree, whose screenshot
// shows the HSL tab on saturation (six searches, each reading its PNG file).
#include <benchmark/benchmark.h>

#include <filesystem>

#include "ostrel/OstrelCore.h"
#include "platform/image_search.h"
#include "platform/platform.h"
#include "platform/portable/portable_backends.h"
#include "platform/portable/recorded_windows.h"

namespace {

ostrel::RgbImage Noise(int32_t width, int32_t height, uint32_t seed) {
  ostrel::RgbImage image{width, height, std::vector<uint8_t>(static_cast<size_t>(width * height * 3))};
  for (uint8_t& byte : image.rgb) {
    seed = seed * 1664525u + 1013904223u;
    byte = static_cast<uint8_t>(seed >> 24);
  }
  return image;
}

void BM_ImageSearchStrip(benchmark::State& state) {
  const ostrel::ScreenPixels strip{Noise(300, 80, 1), 700, 200};
  const ostrel::RgbImage reference = Noise(18, 12, 2);
  for (auto _ : state) {
    benchmark::DoNotOptimize(ostrel::SearchImage(strip, ostrel::WindowRect{700, 200, 1000, 280}, reference, 0.03));
  }
}
BENCHMARK(BM_ImageSearchStrip)->Unit(benchmark::kMicrosecond);

void BM_CameraRawPanel(benchmark::State& state) {
  const std::filesystem::path examples = std::filesystem::path(OSTREL_SOURCE_DIR) / "examples" / "windows";
  ostrel::WindowTreeLoad load = ostrel::LoadWindowTree(examples / "camera_raw.json");
  if (!load.tree) {
    state.SkipWithError(load.error.c_str());
    return;
  }
  ostrel::RecordedWindows windows(std::move(*load.tree));
  ostrel::ProcessParameters parameters;
  parameters.Set(ostrel::EnTallyKey::kCameraRawMainTabImages, (examples / "camera_raw" / "main").wstring() + L"/");
  parameters.Set(ostrel::EnTallyKey::kCameraRawSubTabImages, (examples / "camera_raw" / "sub").wstring() + L"/");
  const ostrel::ScopedPlatform platform({.windows = &windows, .screen = &windows, .parameters = &parameters});
  for (auto _ : state) benchmark::DoNotOptimize(Ostrel_GetCameraRawPanel());
}
BENCHMARK(BM_CameraRawPanel)->Unit(benchmark::kMicrosecond);

}  // namespace
