// A File over bytes in memory, for fuzzers and tests of readers.
#pragma once

#include <cstring>
#include <vector>

#include "platform/file_system.h"

namespace tw {

class MemoryFile : public File {
 public:
  MemoryFile() = default;
  MemoryFile(const void* data, std::size_t size)
      : bytes_(static_cast<const std::uint8_t*>(data), static_cast<const std::uint8_t*>(data) + size) {}

  std::size_t Read(void* buffer, std::size_t size) override {
    std::size_t n = std::min(size, bytes_.size() - position_);
    if (n > 0) std::memcpy(buffer, bytes_.data() + position_, n);
    position_ += n;
    return n;
  }
  bool Write(const void* data, std::size_t size) override {
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    bytes_.insert(bytes_.end(), bytes, bytes + size);
    return true;
  }
  bool Rewind() override {
    position_ = 0;
    return true;
  }
  const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

 private:
  std::vector<std::uint8_t> bytes_;
  std::size_t position_ = 0;
};

}  // namespace tw
