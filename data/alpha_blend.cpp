#include "data/alpha_blend.h"

#include <algorithm>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace tw {

namespace {

// Rows go in blocks of a fixed pixel count; the rest of a row pixel by pixel.
constexpr int kBlock = 16;

// One channel of a block. A loop of known length over separate planes is
// what compilers turn into vector code even at -O2.
void BlendPlane(const std::uint8_t* source, std::uint8_t* destination, const std::uint8_t* alpha) {
  for (int i = 0; i < kBlock; ++i) destination[i] = BlendChannel(source[i], destination[i], alpha[i]);
}

#if defined(__SSE2__)
// Sixteen pixels at a time with SSE2, which every x86-64 processor has. It
// has no byte shuffle, so the three-byte pixels are split into planes and
// joined again by networks of unpacks.
namespace sse2 {

// 48 bytes of pixels into their first, second and third bytes.
void Deinterleave(const std::uint8_t* p, __m128i& c0, __m128i& c1, __m128i& c2) {
  __m128i t00 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
  __m128i t01 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 16));
  __m128i t02 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + 32));
  __m128i t10 = _mm_unpacklo_epi8(t00, _mm_unpackhi_epi64(t01, t01));
  __m128i t11 = _mm_unpacklo_epi8(_mm_unpackhi_epi64(t00, t00), t02);
  __m128i t12 = _mm_unpacklo_epi8(t01, _mm_unpackhi_epi64(t02, t02));
  __m128i t20 = _mm_unpacklo_epi8(t10, _mm_unpackhi_epi64(t11, t11));
  __m128i t21 = _mm_unpacklo_epi8(_mm_unpackhi_epi64(t10, t10), t12);
  __m128i t22 = _mm_unpacklo_epi8(t11, _mm_unpackhi_epi64(t12, t12));
  __m128i t30 = _mm_unpacklo_epi8(t20, _mm_unpackhi_epi64(t21, t21));
  __m128i t31 = _mm_unpacklo_epi8(_mm_unpackhi_epi64(t20, t20), t22);
  __m128i t32 = _mm_unpacklo_epi8(t21, _mm_unpackhi_epi64(t22, t22));
  c0 = _mm_unpacklo_epi8(t30, _mm_unpackhi_epi64(t31, t31));
  c1 = _mm_unpacklo_epi8(_mm_unpackhi_epi64(t30, t30), t32);
  c2 = _mm_unpacklo_epi8(t31, _mm_unpackhi_epi64(t32, t32));
}

// Four pixels held as b g r 0 in 32-bit lanes, written as 12 bytes.
void Store12(std::uint8_t* p, __m128i pixels) {
  const __m128i low = _mm_set_epi32(0, 0x00FFFFFF, 0, 0x00FFFFFF);
  const __m128i high = _mm_set_epi32(0x00FFFFFF, 0, 0x00FFFFFF, 0);
  // Two pixels in bytes 0 to 5 and two in bytes 8 to 13, then all in 0 to 11.
  __m128i pairs = _mm_or_si128(_mm_and_si128(pixels, low), _mm_srli_epi64(_mm_and_si128(pixels, high), 8));
  __m128i packed = _mm_or_si128(_mm_and_si128(pairs, _mm_set_epi32(0, 0, 0x0000FFFF, -1)),
                                _mm_and_si128(_mm_srli_si128(pairs, 2), _mm_set_epi32(0, -1, static_cast<int>(0xFFFF0000), 0)));
  _mm_storel_epi64(reinterpret_cast<__m128i*>(p), packed);
  std::int32_t last = _mm_cvtsi128_si32(_mm_srli_si128(packed, 8));
  std::memcpy(p + 8, &last, 4);
}

void Interleave(std::uint8_t* p, __m128i c0, __m128i c1, __m128i c2) {
  const __m128i zero = _mm_setzero_si128();
  __m128i low01 = _mm_unpacklo_epi8(c0, c1), high01 = _mm_unpackhi_epi8(c0, c1);
  __m128i low2 = _mm_unpacklo_epi8(c2, zero), high2 = _mm_unpackhi_epi8(c2, zero);
  Store12(p, _mm_unpacklo_epi16(low01, low2));
  Store12(p + 12, _mm_unpackhi_epi16(low01, low2));
  Store12(p + 24, _mm_unpacklo_epi16(high01, high2));
  Store12(p + 36, _mm_unpackhi_epi16(high01, high2));
}

// BlendChannel on eight 16-bit lanes; (t + (t >> 8)) >> 8 is the high half of t x 257.
__m128i BlendLanes(__m128i source, __m128i destination, __m128i alpha) {
  __m128i inverse = _mm_sub_epi16(_mm_set1_epi16(255), alpha);
  __m128i t = _mm_add_epi16(_mm_add_epi16(_mm_mullo_epi16(source, alpha), _mm_mullo_epi16(destination, inverse)),
                            _mm_set1_epi16(128));
  return _mm_mulhi_epu16(t, _mm_set1_epi16(257));
}

__m128i BlendBytes(__m128i source, __m128i destination, __m128i alpha) {
  const __m128i zero = _mm_setzero_si128();
  __m128i low = BlendLanes(_mm_unpacklo_epi8(source, zero), _mm_unpacklo_epi8(destination, zero),
                           _mm_unpacklo_epi8(alpha, zero));
  __m128i high = BlendLanes(_mm_unpackhi_epi8(source, zero), _mm_unpackhi_epi8(destination, zero),
                            _mm_unpackhi_epi8(alpha, zero));
  return _mm_packus_epi16(low, high);
}

__m128i Load(const std::uint8_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }

void BlendBlock(const std::uint8_t* red, const std::uint8_t* green, const std::uint8_t* blue,
                const std::uint8_t* alpha, std::uint8_t* bgr) {
  __m128i b, g, r;
  Deinterleave(bgr, b, g, r);
  __m128i a = Load(alpha);
  Interleave(bgr, BlendBytes(Load(blue), b, a), BlendBytes(Load(green), g, a), BlendBytes(Load(red), r, a));
}

}  // namespace sse2
#endif

}  // namespace

void BlendRow(const std::uint8_t* red, const std::uint8_t* green, const std::uint8_t* blue,
              const std::uint8_t* alpha, std::uint8_t* bgr, int count) {
  int i = 0;
#if defined(__SSE2__)
  for (; i + kBlock <= count; i += kBlock) sse2::BlendBlock(red + i, green + i, blue + i, alpha + i, bgr + 3 * i);
#endif
  for (; i < count; ++i) {
    std::uint8_t* pixel = bgr + 3 * i;
    pixel[0] = BlendChannel(blue[i], pixel[0], alpha[i]);
    pixel[1] = BlendChannel(green[i], pixel[1], alpha[i]);
    pixel[2] = BlendChannel(red[i], pixel[2], alpha[i]);
  }
}

void TintRow(std::uint8_t* bgr, int count, std::uint32_t color, std::uint8_t opacity) {
  // The colour repeated as the bytes of kBlock pixels, then blended bytewise.
  std::uint8_t colorBytes[kBlock * 3], opacities[kBlock * 3];
  for (int k = 0; k < kBlock * 3; k += 3) {
    colorBytes[k] = color >> 16 & 0xFF;
    colorBytes[k + 1] = color >> 8 & 0xFF;
    colorBytes[k + 2] = color & 0xFF;
  }
  std::fill(opacities, opacities + kBlock * 3, opacity);
  int bytes = count * 3, k = 0;
  for (; k + kBlock * 3 <= bytes; k += kBlock * 3)
    for (int block = 0; block < 3; ++block)
      BlendPlane(colorBytes + block * kBlock, bgr + k + block * kBlock, opacities);
  for (; k < bytes; ++k) bgr[k] = BlendChannel(colorBytes[k % 3], bgr[k], opacity);
}

DrawExtent MeasureDraw(const TargaImage& image, int width, int height, int clipWidth, int clipHeight) {
  DrawExtent extent;
  extent.width = width == -1 ? image.width : width;
  extent.height = height == -1 ? image.height : height;
  extent.clipWidth = std::min(clipWidth == -1 ? image.width : clipWidth, extent.width);
  extent.clipHeight = std::min(clipHeight == -1 ? image.height : clipHeight, extent.height);
  return extent;
}

void BlendImage(const TargaImage& image, const BgrSurface& surface, int sourceX, int sourceY,
                int clipWidth, int clipHeight) {
  if (image.Empty()) return;
  const std::int64_t total = static_cast<std::int64_t>(image.PixelCount());
  clipWidth = std::min(clipWidth, surface.width);
  clipHeight = std::min(clipHeight, surface.height);
  for (int j = 0; j < clipHeight; ++j) {
    std::int64_t rowStart = (static_cast<std::int64_t>(j) + sourceY) * image.width + sourceX;
    // The columns i whose index rowStart + i lies in [0, total).
    std::int64_t first = std::max<std::int64_t>(0, -rowStart);
    std::int64_t end = std::min<std::int64_t>(clipWidth, total - rowStart);
    if (first >= end) continue;
    std::size_t s = static_cast<std::size_t>(rowStart + first);
    BlendRow(&image.red[s], &image.green[s], &image.blue[s], &image.alpha[s],
             surface.Row(j) + first * 3, static_cast<int>(end - first));
  }
}

void TintSurface(const BgrSurface& surface, std::uint32_t color, std::uint8_t opacity) {
  for (int y = 0; y < surface.height; ++y) TintRow(surface.Row(y), surface.width, color, opacity);
}

}  // namespace tw
