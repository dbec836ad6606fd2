// The fonts and small pictures the Today preview draws with: fonts by key,
// built from the settings record on first use, and the 23 item pictures
// from the skin folder or the picture library.
#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "data/win32/skin_image.h"
#include "settings/settings_store.h"

namespace tw {

// The font a key stands for, as the record holds it now. Keys outside the
// table give an all-zero font.
LOGFONTW BuildPreviewFont(const SettingsStore& settings, int key);

// One font per key, created on the first request and kept, with the record
// as it was then, until Release. A font that could not be created is kept as
// null and not tried again.
class PreviewFontCache {
 public:
  explicit PreviewFontCache(const SettingsStore& settings) : settings_(settings) {}
  PreviewFontCache(const PreviewFontCache&) = delete;
  PreviewFontCache& operator=(const PreviewFontCache&) = delete;
  ~PreviewFontCache() { Release(); }

  HFONT Get(int key);
  void Release();

  // The cached keys, largest first.
  std::vector<std::int32_t> Keys() const;
  int Count() const { return static_cast<int>(entries_.size()); }

 private:
  struct Entry {
    std::int32_t key;
    HFONT font;
  };
  const SettingsStore& settings_;
  std::vector<Entry> entries_;  // in descending order of key
};

// The four fonts of a preview item: normal, bold, bold struck out, title.
// Without the advanced font setting they are keys 50 to 53; with it the
// caller's per-kind choice stands.
void SelectItemFonts(PreviewFontCache& cache, const SettingsStore& settings, HFONT (&fonts)[4]);

struct PreviewImageSource {
  const char16_t* name;  // file base name in a skin folder
  int targaId;           // -1: none
  int bitmapId;          // -1: none
  COLORREF transparent;
  bool highVariant;      // the "_high" file may be used when the caller allows it
};

inline constexpr int kPreviewImageCount = 23;
extern const PreviewImageSource kPreviewImages[kPreviewImageCount];

// Index of a name in kPreviewImages, or -1.
int PreviewImageIndex(std::u16string_view name);

class PreviewImageSet {
 public:
  // Releases what the set holds, then loads every image in table order. With
  // a list window, keeps its answer to message 1124 (wParam 0x10000004).
  void Load(HMODULE library, bool allowHighVariant, std::u16string_view folder, HWND listWindow);
  void Release();

  const SkinImage& Image(int index) const { return images_[index]; }
  const SkinImage& Image(std::u16string_view name) const;
  LRESULT ListQuery() const { return listQuery_; }

 private:
  std::array<SkinImage, kPreviewImageCount> images_;
  SkinImage none_;
  LRESULT listQuery_ = 0;
};

}  // namespace tw
