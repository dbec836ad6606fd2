// Alpha blending of a 1024 x 1024 image over a 24-bit surface, against a
// memcpy of the bytes the blend reads (four plane bytes and three surface
// bytes a pixel). Ratios: tools/bench_ratios.py.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "data/alpha_blend.h"

namespace {

constexpr int kSide = 1024;
constexpr std::size_t kPixels = std::size_t(kSide) * kSide;

void Blend(benchmark::State& state) {
  tw::TargaImage image;
  image.width = image.height = kSide;
  for (auto* plane : {&image.red, &image.green, &image.blue, &image.alpha}) plane->reset(new std::uint8_t[kPixels]);
  for (std::size_t i = 0; i < kPixels; ++i) {
    image.red[i] = std::uint8_t(i);
    image.green[i] = std::uint8_t(i >> 3);
    image.blue[i] = std::uint8_t(i >> 6);
    image.alpha[i] = std::uint8_t(i * 7);
  }
  std::vector<std::uint8_t> pixels(kPixels * 3, 0x80);
  tw::BgrSurface surface{pixels.data(), kSide * 3, kSide, kSide};
  for (auto _ : state) {
    tw::BlendImage(image, surface, 0, 0, kSide, kSide);
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * kPixels);
}

void CopyTouchedBytes(benchmark::State& state) {
  std::vector<std::uint8_t> from(kPixels * 7, 0x80), to(kPixels * 7);
  for (auto _ : state) {
    std::memcpy(to.data(), from.data(), from.size());
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * kPixels);
}

BENCHMARK(CopyTouchedBytes)->Name("blend_1024/baseline_memcpy_7_bytes_a_pixel")->Unit(benchmark::kMillisecond);
BENCHMARK(Blend)->Name("blend_1024/alpha_blend")->Unit(benchmark::kMillisecond);

}  // namespace
