#include "data/targa.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <vector>

namespace tw {
namespace {

constexpr std::size_t kHeaderSize = 18;
constexpr std::uint8_t kUncompressed = 2;
constexpr std::uint8_t kRunLength = 10;
constexpr std::uint8_t kTopDownBit = 0x10;

struct Pixel {
  std::uint8_t red, green, blue, alpha;
};

// The data as a stream that reads zeros once it runs out, so a short file
// decodes like the device's unchecked reads of an exhausted file, safely.
class ByteStream {
 public:
  ByteStream(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  std::uint8_t Next() { return pos_ < size_ ? data_[pos_++] : (++pos_, 0); }
  void Skip(std::size_t count) { pos_ += count; }
  bool Exhausted() const { return pos_ >= size_; }
  // The next count bytes when all of them are present, else null.
  const std::uint8_t* Take(std::size_t count) {
    if (pos_ > size_ || size_ - pos_ < count) return nullptr;
    const std::uint8_t* bytes = data_ + pos_;
    pos_ += count;
    return bytes;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
  std::size_t pos_ = 0;
};

// Pixels go in blocks of a fixed count: a loop of known length is what
// compilers turn into vector code even at -O2.
constexpr std::size_t kBlock = 16;

struct Planes {
  std::uint8_t *red, *green, *blue, *alpha;
};

inline void SplitPixel(const std::uint8_t* bytes, int bytesPerPixel, const Planes& to, std::size_t i) {
  to.blue[i] = bytes[0];
  to.green[i] = bytes[1];
  to.red[i] = bytes[2];
  to.alpha[i] = bytesPerPixel == 4 ? bytes[3] : 0xFF;
}

// Through local blocks, so that the compiler sees no overlap between the
// stored bytes and the four planes.
template <int kBytesPerPixel>
void SplitBlock(const std::uint8_t* bytes, const Planes& to, std::size_t first) {
  std::uint8_t in[kBlock * kBytesPerPixel], red[kBlock], green[kBlock], blue[kBlock], alpha[kBlock];
  std::memcpy(in, bytes, sizeof in);
  for (std::size_t i = 0; i < kBlock; ++i) SplitPixel(in + kBytesPerPixel * i, kBytesPerPixel, {red, green, blue, alpha}, i);
  std::memcpy(to.red + first, red, kBlock);
  std::memcpy(to.green + first, green, kBlock);
  std::memcpy(to.blue + first, blue, kBlock);
  std::memcpy(to.alpha + first, alpha, kBlock);
}

// Writes pixels at plane offsets, dropping whatever falls past the end.
class PlaneWriter {
 public:
  explicit PlaneWriter(TargaImage& image) : image_(image), total_(image.PixelCount()) {}

  // How many of count pixels from offset still land inside the planes.
  std::size_t Room(std::size_t offset, std::size_t count) const {
    return offset >= total_ ? 0 : std::min(count, total_ - offset);
  }
  void Store(std::size_t offset, Pixel p) {
    if (offset >= total_) return;
    image_.red[offset] = p.red;
    image_.green[offset] = p.green;
    image_.blue[offset] = p.blue;
    image_.alpha[offset] = p.alpha;
  }
  void Fill(std::size_t offset, std::size_t count, Pixel p) {
    count = Room(offset, count);
    if (count == 0) return;  // no pointer into the planes past their end
    std::memset(&image_.red[offset], p.red, count);
    std::memset(&image_.green[offset], p.green, count);
    std::memset(&image_.blue[offset], p.blue, count);
    std::memset(&image_.alpha[offset], p.alpha, count);
  }
  // Splits count stored pixels of bytesPerPixel (3 or 4) bytes each: b, g, r[, a].
  void Split(std::size_t offset, const std::uint8_t* bytes, std::size_t count, int bytesPerPixel) {
    count = Room(offset, count);
    if (count == 0) return;  // no pointer into the planes past their end
    Planes planes{&image_.red[offset], &image_.green[offset], &image_.blue[offset], &image_.alpha[offset]};
    std::size_t i = 0;
    if (bytesPerPixel == 4) {
      for (; i + kBlock <= count; i += kBlock) SplitBlock<4>(bytes + 4 * i, planes, i);
    } else {
      for (; i + kBlock <= count; i += kBlock) SplitBlock<3>(bytes + 3 * i, planes, i);
    }
    for (; i < count; ++i) SplitPixel(bytes + bytesPerPixel * i, bytesPerPixel, planes, i);
  }

 private:
  TargaImage& image_;
  std::size_t total_;
};

struct Header {
  std::uint8_t idLength, colorMapType, imageType;
  std::int32_t width, height;
  int bytesPerPixel;
  bool topDown;
};

Header ReadHeader(ByteStream& in) {
  std::uint8_t raw[kHeaderSize];
  for (auto& byte : raw) byte = in.Next();
  Header h;
  h.idLength = raw[0];
  h.colorMapType = raw[1];
  h.imageType = raw[2];
  h.width = raw[12] | raw[13] << 8;
  h.height = raw[14] | raw[15] << 8;
  h.bytesPerPixel = raw[16] == 32 ? 4 : 3;  // any other depth is read as 24-bit
  h.topDown = (raw[17] & kTopDownBit) != 0;
  return h;
}

Pixel ReadPixel(ByteStream& in, int bytesPerPixel) {
  Pixel p;
  p.blue = in.Next();
  p.green = in.Next();
  p.red = in.Next();
  p.alpha = bytesPerPixel == 4 ? in.Next() : 0xFF;
  return p;
}

// What a pixel read past the end of the data gives.
Pixel MissingPixel(int bytesPerPixel) { return {0, 0, 0, std::uint8_t(bytesPerPixel == 4 ? 0 : 0xFF)}; }

// count pixels stored one after another, from offset on.
void CopyPixels(ByteStream& in, PlaneWriter& out, std::size_t offset, std::size_t count, int bytesPerPixel) {
  if (const std::uint8_t* bytes = in.Take(count * bytesPerPixel)) {
    out.Split(offset, bytes, count, bytesPerPixel);
    return;
  }
  if (in.Exhausted()) {  // a short file: the same zeros, without reading them one by one
    out.Fill(offset, count, MissingPixel(bytesPerPixel));
    in.Skip(count * bytesPerPixel);
    return;
  }
  for (std::size_t i = 0; i < count; ++i) out.Store(offset + i, ReadPixel(in, bytesPerPixel));
}

void DecodeRunLengthRow(ByteStream& in, PlaneWriter& out, std::size_t rowStart, std::int32_t width,
                        int bytesPerPixel) {
  for (std::int32_t x = 0; x < width;) {
    if (in.Exhausted()) {  // zero packet bytes: one missing pixel after another to the row's end
      out.Fill(rowStart + x, width - x, MissingPixel(bytesPerPixel));
      return;
    }
    std::uint8_t packet = in.Next();
    std::size_t count = (packet & 127) + 1;
    if (packet < 128) CopyPixels(in, out, rowStart + x, count, bytesPerPixel);
    else out.Fill(rowStart + x, count, ReadPixel(in, bytesPerPixel));
    x += static_cast<std::int32_t>(count);
  }
}

bool AllocatePlanes(TargaImage& image) {
  std::size_t size = image.PixelCount();
  for (auto* plane : {&image.red, &image.green, &image.blue, &image.alpha}) {
    plane->reset(new (std::nothrow) std::uint8_t[size]);
    if (!*plane) return false;
  }
  return true;
}

}  // namespace

void TargaImage::Release() {
  red.reset();
  green.reset();
  blue.reset();
  alpha.reset();
  height = width = 0;
}

std::int32_t DecodeTarga(const std::uint8_t* data, std::size_t size, TargaImage& image) {
  image.Release();
  ByteStream in(data, size);
  Header header = ReadHeader(in);
  if (header.colorMapType != 0) return kTargaFailure;
  if (header.imageType != kUncompressed && header.imageType != kRunLength) return kTargaFailure;
  in.Skip(header.idLength);

  if (static_cast<std::int64_t>(header.width) * header.height > kMaxTargaPixels) return kTargaFailure;
  image.width = header.width;
  image.height = header.height;
  if (image.PixelCount() == 0) return 0;
  if (!AllocatePlanes(image)) {
    image.Release();
    return kTargaFailure;
  }

  PlaneWriter out(image);
  for (std::int32_t y = 0; y < header.height; ++y) {
    std::int32_t row = header.topDown ? y : header.height - 1 - y;
    std::size_t rowStart = static_cast<std::size_t>(row) * header.width;
    if (header.imageType == kUncompressed) CopyPixels(in, out, rowStart, header.width, header.bytesPerPixel);
    else DecodeRunLengthRow(in, out, rowStart, header.width, header.bytesPerPixel);
  }
  return 0;
}

std::int32_t ReadTargaFile(FileSystem& files, std::u16string_view path, TargaImage& image) {
  image.Release();
  std::vector<std::uint8_t> bytes;
  if (!files.ReadAll(path, bytes)) return kTargaFailure;
  return DecodeTarga(bytes.data(), bytes.size(), image);
}

}  // namespace tw
