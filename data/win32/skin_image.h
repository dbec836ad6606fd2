// Images of skins, icon sets and controls: a Targa image kept as planes and
// blended over the screen, or a bitmap drawn with one colour left out. Also
// the tint of a rectangle and the off-screen surface for flicker-free paints.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>

#include "data/targa.h"
#include "platform/folder_listing.h"

namespace tw {

inline constexpr COLORREF kIconTransparent = RGB(0, 255, 0);
inline constexpr COLORREF kArrowTransparent = RGB(255, 0, 0);

// The device's TransparentImage: copies part of a bitmap, skipping the
// pixels of one colour.
bool TransparentImage(HDC destination, int x, int y, int width, int height, HBITMAP source, int sourceX,
                      int sourceY, int sourceWidth, int sourceHeight, COLORREF transparent);

// Holds either Targa planes or a bitmap, never both.
struct SkinImage {
  TargaImage planes;
  HBITMAP bitmap = nullptr;
  std::int32_t bitmapWidth = -1;
  std::int32_t bitmapHeight = -1;
  COLORREF transparentColor = 0;

  SkinImage() = default;
  SkinImage(const SkinImage&) = delete;
  SkinImage& operator=(const SkinImage&) = delete;
  ~SkinImage() { Release(); }

  bool Empty() const { return planes.Empty() && bitmap == nullptr; }
  void Release();
};

// 0 or kTargaFailure, as the decoder reports; resources are of type "TARGA".
std::int32_t ReadTargaFile(SkinImage& image, std::u16string_view path);
std::int32_t ReadTargaResource(SkinImage& image, HMODULE module, const wchar_t* name);

// Tries, in order: folder\baseName.tga; folder\baseName.bmp; when allowed and
// the .bmp failed, folder\baseName_high.bmp (no files when folder is empty);
// the Targa resource; the bitmap resource (ids of -1 are skipped). A listing
// of the folder, when given, spares the files it rules out.
// Returns 1 when one of them loaded, else 0.
int LoadSkinImage(SkinImage& image, std::u16string_view folder, std::u16string_view baseName, HMODULE module,
                  int targaId, int bitmapId, COLORREF transparent, bool allowHighVariant,
                  const FolderListing* listing = nullptr);

// Planes are blended over (x, y) at width x height (-1: the image's size),
// taking from (sourceX, sourceY) and blending at most clipWidth x clipHeight.
// A bitmap goes through TransparentImage at its own size. 0 when empty.
int DrawSkinImage(const SkinImage& image, HDC dc, int x, int y, int width = -1, int height = -1,
                  int sourceX = 0, int sourceY = 0, int clipWidth = -1, int clipHeight = -1);

// Blends one colour at an opacity from 0 (nothing) to 255 (solid) over a rectangle.
int TintRect(HDC dc, int x, int y, int width, int height, COLORREF color, int opacity);

// A memory context with a compatible bitmap of the given size; on release
// the context gets back its original bitmap and font before both go.
class OffscreenSurface {
 public:
  OffscreenSurface() = default;
  OffscreenSurface(const OffscreenSurface&) = delete;
  OffscreenSurface& operator=(const OffscreenSurface&) = delete;
  ~OffscreenSurface() { Release(); }

  bool Create(HDC dc, int width, int height);
  void Release();
  HDC dc() const { return dc_; }

 private:
  HDC dc_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ oldBitmap_ = nullptr;
  HGDIOBJ oldFont_ = nullptr;
};

}  // namespace tw
