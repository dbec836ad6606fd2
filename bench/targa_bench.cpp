// Targa decoding against stb_image on the same 1024 x 1024 32-bit files,
// uncompressed and run-length. Ratios: tools/bench_ratios.py.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "data/targa.h"

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STBI_ONLY_TGA
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#pragma GCC diagnostic ignored "-Wsign-compare"
#include <stb/stb_image.h>
#include <stb/stb_image_write.h>
#pragma GCC diagnostic pop

namespace {

constexpr int kSide = 1024;
constexpr auto kMs = benchmark::kMillisecond;

// Skin-like content: a noisy gradient (raw packets) under flat panels (runs)
// with an alpha ramp, so both packet kinds occur.
std::vector<std::uint8_t> MakeFile(bool runLength) {
  std::vector<std::uint8_t> rgba;
  std::uint32_t noise = 12345;
  for (int y = 0; y < kSide; ++y)
    for (int x = 0; x < kSide; ++x) {
      noise = noise * 1103515245 + 12345;
      if ((x / 64 + y / 64) % 3 == 0) rgba.insert(rgba.end(), {200, 90, 40, 255});
      else rgba.insert(rgba.end(), {std::uint8_t((noise >> 16) & 0x0F), std::uint8_t(y / 4), std::uint8_t(x / 4),
                                    std::uint8_t(255 - x / 8)});
    }
  std::vector<std::uint8_t> file;
  auto append = [](void* out, void* data, int size) {
    auto& file = *static_cast<std::vector<std::uint8_t>*>(out);
    file.insert(file.end(), static_cast<std::uint8_t*>(data), static_cast<std::uint8_t*>(data) + size);
  };
  stbi_write_tga_with_rle = runLength;
  stbi_write_tga_to_func(append, &file, kSide, kSide, 4, rgba.data());
  return file;
}

void Decode(benchmark::State& state, bool runLength, bool withStb) {
  static const std::vector<std::uint8_t> raw = MakeFile(false), packed = MakeFile(true);
  const std::vector<std::uint8_t>& file = runLength ? packed : raw;
  if (file[2] != (runLength ? 10 : 2)) state.SkipWithError("stb_image_write wrote another image type");
  for (auto _ : state) {
    if (withStb) {
      int width, height, channels, size = static_cast<int>(file.size());
      stbi_uc* pixels = stbi_load_from_memory(file.data(), size, &width, &height, &channels, 4);
      if (!pixels) state.SkipWithError("stb_image failed");
      benchmark::DoNotOptimize(pixels);
      stbi_image_free(pixels);
    } else {
      tw::TargaImage image;
      if (tw::DecodeTarga(file.data(), file.size(), image) != 0) state.SkipWithError("decode failed");
      benchmark::DoNotOptimize(image.alpha.get());
    }
  }
  state.SetItemsProcessed(state.iterations() * kSide * kSide);
}

BENCHMARK_CAPTURE(Decode, raw_stb, false, true)->Name("targa_raw_1024/baseline_stb_image")->Unit(kMs);
BENCHMARK_CAPTURE(Decode, raw, false, false)->Name("targa_raw_1024/tidewell")->Unit(kMs);
BENCHMARK_CAPTURE(Decode, rle_stb, true, true)->Name("targa_rle_1024/baseline_stb_image")->Unit(kMs);
BENCHMARK_CAPTURE(Decode, rle, true, false)->Name("targa_rle_1024/tidewell")->Unit(kMs);

}  // namespace
