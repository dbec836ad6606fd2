// Bitmap files loaded for drawing. The core only holds the handles; what
// they are (a GDI bitmap on Windows) is the platform's business.
#pragma once

#include <string_view>
#include <utility>

namespace tw {

using BitmapHandle = void*;

class Bitmaps {
 public:
  virtual ~Bitmaps() = default;
  // SHLoadDIBitmap: the file as a DIB section, or null if it cannot be loaded.
  virtual BitmapHandle Load(std::u16string_view path) = 0;
  virtual void Free(BitmapHandle bitmap) = 0;
};

// Owns one loaded bitmap and frees it when replaced or destroyed.
class Bitmap {
 public:
  Bitmap() = default;
  Bitmap(Bitmaps& owner, BitmapHandle handle) : owner_(handle ? &owner : nullptr), handle_(handle) {}
  Bitmap(Bitmap&& other) noexcept { *this = std::move(other); }
  Bitmap& operator=(Bitmap&& other) noexcept {
    if (this != &other) {
      Reset();
      owner_ = std::exchange(other.owner_, nullptr);
      handle_ = std::exchange(other.handle_, nullptr);
    }
    return *this;
  }
  Bitmap(const Bitmap&) = delete;
  Bitmap& operator=(const Bitmap&) = delete;
  ~Bitmap() { Reset(); }

  void Reset() {
    if (handle_) owner_->Free(handle_);
    owner_ = nullptr;
    handle_ = nullptr;
  }
  BitmapHandle get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }

 private:
  Bitmaps* owner_ = nullptr;
  BitmapHandle handle_ = nullptr;
};

}  // namespace tw
