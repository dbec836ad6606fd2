// Targa decoding against stb_image on the same 1024 x 1024 32-bit files,
// uncompressed and run-length. Ratios: tools/bench_ratios.py.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "data/targa.h"

#define STB_IMAGE_IMPLEMENTATION
#define STBI_ONLY_TGA
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#pragma GCC diagnostic ignored "-Wsign-compare"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace {

constexpr int kSide = 1024;

struct Bgra {
  std::uint8_t b, g, r, a;
  bool operator==(const Bgra&) const = default;
};

// Skin-like content: a noisy gradient (raw packets) under flat panels (runs)
// with an alpha ramp, so both packet kinds occur.
std::vector<Bgra> MakePicture() {
  std::vector<Bgra> pixels(kSide * kSide);
  std::uint32_t noise = 12345;
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      noise = noise * 1103515245 + 12345;
      Bgra p{std::uint8_t(x / 4), std::uint8_t(y / 4), std::uint8_t((noise >> 16) & 0x0F), std::uint8_t(255 - x / 8)};
      bool panel = (x / 64 + y / 64) % 3 == 0;
      pixels[y * kSide + x] = panel ? Bgra{40, 90, 200, 255} : p;
    }
  }
  return pixels;
}

std::vector<std::uint8_t> Header(std::uint8_t type) {
  return {0, 0, type, 0, 0, 0, 0, 0, 0, 0, 0, 0, kSide & 0xFF, kSide >> 8, kSide & 0xFF, kSide >> 8, 32, 0x08};
}

void Put(std::vector<std::uint8_t>& out, Bgra p) { out.insert(out.end(), {p.b, p.g, p.r, p.a}); }

std::vector<std::uint8_t> EncodeRaw(const std::vector<Bgra>& pixels) {
  std::vector<std::uint8_t> out = Header(2);
  for (Bgra p : pixels) Put(out, p);
  return out;
}

// Packets never cross a row: runs of two or more become run packets.
std::vector<std::uint8_t> EncodeRunLength(const std::vector<Bgra>& pixels) {
  std::vector<std::uint8_t> out = Header(10);
  for (int y = 0; y < kSide; ++y) {
    const Bgra* row = &pixels[y * kSide];
    for (int x = 0; x < kSide;) {
      int run = 1;
      while (x + run < kSide && run < 128 && row[x + run] == row[x]) ++run;
      if (run >= 2) {
        out.push_back(std::uint8_t(0x80 | (run - 1)));
        Put(out, row[x]);
        x += run;
        continue;
      }
      int count = 1;
      while (x + count < kSide && count < 128 && !(x + count + 1 < kSide && row[x + count] == row[x + count + 1]))
        ++count;
      out.push_back(std::uint8_t(count - 1));
      for (int i = 0; i < count; ++i) Put(out, row[x + i]);
      x += count;
    }
  }
  return out;
}

const std::vector<std::uint8_t>& File(bool runLength) {
  static const std::vector<Bgra> picture = MakePicture();
  static const std::vector<std::uint8_t> raw = EncodeRaw(picture);
  static const std::vector<std::uint8_t> packed = EncodeRunLength(picture);
  return runLength ? packed : raw;
}

void DecodeTidewell(benchmark::State& state, bool runLength) {
  const auto& file = File(runLength);
  for (auto _ : state) {
    tw::TargaImage image;
    if (tw::DecodeTarga(file.data(), file.size(), image) != 0) state.SkipWithError("decode failed");
    benchmark::DoNotOptimize(image.alpha.get());
  }
  state.SetItemsProcessed(state.iterations() * kSide * kSide);
}

void DecodeStb(benchmark::State& state, bool runLength) {
  const auto& file = File(runLength);
  for (auto _ : state) {
    int width, height, channels;
    stbi_uc* pixels = stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &width, &height, &channels, 4);
    if (!pixels) state.SkipWithError("stb_image failed");
    benchmark::DoNotOptimize(pixels);
    stbi_image_free(pixels);
  }
  state.SetItemsProcessed(state.iterations() * kSide * kSide);
}

BENCHMARK_CAPTURE(DecodeStb, raw, false)->Name("targa_raw_1024/baseline_stb_image")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DecodeTidewell, raw, false)->Name("targa_raw_1024/tidewell")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DecodeStb, rle, true)->Name("targa_rle_1024/baseline_stb_image")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DecodeTidewell, rle, true)->Name("targa_rle_1024/tidewell")->Unit(benchmark::kMillisecond);

}  // namespace
