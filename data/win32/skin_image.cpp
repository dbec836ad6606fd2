#include "data/win32/skin_image.h"

#include <algorithm>
#include <string>

#include "data/alpha_blend.h"
#include "platform/win32/win32_bitmaps.h"
#include "platform/win32/win32_file_system.h"

namespace tw {
namespace {

constexpr LONG kPixelsPerMetre = 3780;  // 96 dpi

// A screen rectangle copied into a 24-bit bottom-up DIB section, for pixel
// arithmetic without one graphics call per pixel, and copied back after.
class CapturedRect {
 public:
  CapturedRect(HDC dc, int x, int y, int width, int height) : dc_(dc), x_(x), y_(y), width_(width), height_(height) {
    // Rows of a multiple of 4 pixels are a multiple of 4 bytes: no padding.
    int rowPixels = (width + 3) & ~3;
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = rowPixels;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    info.bmiHeader.biXPelsPerMeter = info.bmiHeader.biYPelsPerMeter = kPixelsPerMetre;
    void* bits = nullptr;
    section_ = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!section_) return;
    memory_ = CreateCompatibleDC(dc);
    old_ = SelectObject(memory_, section_);
    BitBlt(memory_, 0, 0, width, height, dc, x, y, SRCCOPY);
    GdiFlush();
    std::ptrdiff_t stride = static_cast<std::ptrdiff_t>(rowPixels) * 3;
    surface_ = {static_cast<std::uint8_t*>(bits) + (height - 1) * stride, -stride, width, height};
  }
  ~CapturedRect() {
    if (!section_) return;
    SelectObject(memory_, old_);
    DeleteDC(memory_);
    DeleteObject(section_);
  }

  explicit operator bool() const { return section_ != nullptr; }
  const BgrSurface& Surface() const { return surface_; }
  void CopyBack() { BitBlt(dc_, x_, y_, width_, height_, memory_, 0, 0, SRCCOPY); }

 private:
  HDC dc_;
  int x_, y_, width_, height_;
  HBITMAP section_ = nullptr;
  HDC memory_ = nullptr;
  HGDIOBJ old_ = nullptr;
  BgrSurface surface_;
};

bool KeepBitmap(SkinImage& image, HBITMAP bitmap) {
  BITMAP info;
  if (!bitmap) return false;
  if (!GetObjectW(bitmap, sizeof info, &info)) {
    DeleteObject(bitmap);
    return false;
  }
  image.bitmap = bitmap;
  image.bitmapWidth = info.bmWidth;
  image.bitmapHeight = info.bmHeight;
  return true;
}

// SHLoadDIBitmap: a .bmp file as a DIB section, or null.
HBITMAP LoadBitmapFile(std::u16string_view path) {
  static Win32Bitmaps bitmaps;
  return static_cast<HBITMAP>(bitmaps.Load(path));
}

bool LoadFromFolder(SkinImage& image, std::u16string_view folder, std::u16string_view baseName, bool allowHigh,
                    const FolderListing* listing) {
  auto mayHold = [&](std::u16string_view suffix) {
    return listing == nullptr || listing->MayHold(std::u16string(baseName) + std::u16string(suffix));
  };
  std::u16string base = std::u16string(folder) + u"\\" + std::u16string(baseName);
  if (mayHold(u".tga") && ReadTargaFile(image, base + u".tga") == 0) return true;
  HBITMAP bitmap = mayHold(u".bmp") ? LoadBitmapFile(base + u".bmp") : nullptr;
  if (!bitmap && allowHigh && mayHold(u"_high.bmp")) bitmap = LoadBitmapFile(base + u"_high.bmp");
  return KeepBitmap(image, bitmap);
}

int BlendPlanes(const TargaImage& planes, HDC dc, int x, int y, int width, int height, int sourceX, int sourceY,
                int clipWidth, int clipHeight) {
  DrawExtent extent = MeasureDraw(planes, width, height, clipWidth, clipHeight);
  if (extent.width <= 0 || extent.height <= 0) return 1;
  CapturedRect capture(dc, x, y, extent.width, extent.height);
  if (!capture) return 1;
  BlendImage(planes, capture.Surface(), sourceX, sourceY, extent.clipWidth, extent.clipHeight);
  capture.CopyBack();
  return 1;
}

}  // namespace

bool TransparentImage(HDC destination, int x, int y, int width, int height, HBITMAP source, int sourceX,
                      int sourceY, int sourceWidth, int sourceHeight, COLORREF transparent) {
  HDC memory = CreateCompatibleDC(destination);
  if (!memory) return false;
  HGDIOBJ old = SelectObject(memory, source);
  BOOL drawn = GdiTransparentBlt(destination, x, y, width, height, memory, sourceX, sourceY, sourceWidth,
                                 sourceHeight, transparent);
  SelectObject(memory, old);
  DeleteDC(memory);
  return drawn != FALSE;
}

void SkinImage::Release() {
  planes.Release();
  if (bitmap) DeleteObject(bitmap);
  bitmap = nullptr;
  bitmapWidth = bitmapHeight = -1;
}

std::int32_t ReadTargaFile(SkinImage& image, std::u16string_view path) {
  static Win32FileSystem files;
  return ReadTargaFile(files, path, image.planes);
}

std::int32_t ReadTargaResource(SkinImage& image, HMODULE module, const wchar_t* name) {
  image.planes.Release();
  HRSRC found = FindResourceW(module, name, L"TARGA");
  HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
  const void* bytes = loaded ? LockResource(loaded) : nullptr;
  if (!bytes) return kTargaFailure;
  return DecodeTarga(static_cast<const std::uint8_t*>(bytes), SizeofResource(module, found), image.planes);
}

int LoadSkinImage(SkinImage& image, std::u16string_view folder, std::u16string_view baseName, HMODULE module,
                  int targaId, int bitmapId, COLORREF transparent, bool allowHighVariant,
                  const FolderListing* listing) {
  image.Release();
  image.transparentColor = transparent;
  if (!folder.empty() && LoadFromFolder(image, folder, baseName, allowHighVariant, listing)) return 1;
  if (targaId != -1 && ReadTargaResource(image, module, MAKEINTRESOURCEW(targaId)) == 0) return 1;
  if (bitmapId != -1 &&
      KeepBitmap(image, static_cast<HBITMAP>(LoadImageW(module, MAKEINTRESOURCEW(bitmapId), IMAGE_BITMAP, 0, 0,
                                                        LR_CREATEDIBSECTION))))
    return 1;
  return 0;
}

int DrawSkinImage(const SkinImage& image, HDC dc, int x, int y, int width, int height, int sourceX, int sourceY,
                  int clipWidth, int clipHeight) {
  if (!image.planes.Empty())
    return BlendPlanes(image.planes, dc, x, y, width, height, sourceX, sourceY, clipWidth, clipHeight);
  if (!image.bitmap) return 0;
  TransparentImage(dc, x, y, image.bitmapWidth, image.bitmapHeight, image.bitmap, sourceX, sourceY,
                   image.bitmapWidth, image.bitmapHeight, image.transparentColor);
  return 1;
}

int TintRect(HDC dc, int x, int y, int width, int height, COLORREF color, int opacity) {
  if (width <= 0 || height <= 0) return 1;
  CapturedRect capture(dc, x, y, width, height);
  if (!capture) return 1;
  TintSurface(capture.Surface(), color, static_cast<std::uint8_t>(std::clamp(opacity, 0, 255)));
  capture.CopyBack();
  return 1;
}

bool OffscreenSurface::Create(HDC dc, int width, int height) {
  Release();
  dc_ = CreateCompatibleDC(dc);
  if (!dc_) return false;
  bitmap_ = CreateCompatibleBitmap(dc, width, height);
  oldBitmap_ = SelectObject(dc_, bitmap_);
  oldFont_ = GetCurrentObject(dc_, OBJ_FONT);
  return bitmap_ != nullptr;
}

void OffscreenSurface::Release() {
  if (!dc_) return;
  SelectObject(dc_, oldFont_);
  SelectObject(dc_, oldBitmap_);
  if (bitmap_) DeleteObject(bitmap_);
  DeleteDC(dc_);
  dc_ = nullptr;
  bitmap_ = nullptr;
}

}  // namespace tw
