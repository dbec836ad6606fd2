// The registry kept in memory, with the Win32 calls' semantics (see
// platform/registry.h). Native tests, benchmarks and fuzzers use it.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/registry.h"

namespace tw {

class MemoryRegistry : public Registry {
 public:
  MemoryRegistry();
  ~MemoryRegistry() override;

  long Open(RegKey parent, std::u16string_view path, bool create, RegKey& key) override;
  long Close(RegKey key) override;
  long Query(RegKey key, std::u16string_view name, std::uint32_t& type, void* data,
             std::uint32_t& size) override;
  long Set(RegKey key, std::u16string_view name, std::uint32_t type, const void* data,
           std::uint32_t size) override;
  long DeleteValue(RegKey key, std::u16string_view name) override;
  long EnumValue(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& nameChars,
                 std::uint32_t& type, void* data, std::uint32_t& dataSize) override;
  long EnumKey(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& nameChars) override;
  long DeleteTree(RegKey parent, std::u16string_view subkey) override;

  std::size_t OpenHandles() const { return handles_.size(); }

 private:
  struct Node;
  Node* Resolve(RegKey key) const;

  std::shared_ptr<Node> currentUser_, localMachine_;
  std::map<RegKey, std::shared_ptr<Node>> handles_;
  RegKey nextHandle_ = 0x1000;
};

// Registry names compare without regard to case; this is the order they
// enumerate in (Wine's: by the lower-cased name).
int CompareRegistryNames(std::u16string_view a, std::u16string_view b);

}  // namespace tw
