#include "platform/miss_caching_registry.h"

#include <algorithm>

#include "base/text.h"

namespace tw {
namespace {

// Registry names may be 16,383 characters; settings names are far shorter,
// and a longer one only makes the listing indecisive.
constexpr std::uint32_t kNameChars = 256;

}  // namespace

const MissCachingRegistry::Listing& MissCachingRegistry::ListingOf(RegKey key) {
  auto [at, added] = listings_.try_emplace(key);
  Listing& listing = at->second;
  if (!added) return listing;
  char16_t name[kNameChars];
  std::u16string folded;
  for (std::uint32_t index = 0;; ++index) {
    std::uint32_t chars = kNameChars, type = 0, size = 0;
    long result = source_.EnumValue(key, index, name, chars, type, nullptr, size);
    if (result == kRegNoMoreItems) break;
    if (result != kRegSuccess || !FoldAsciiName({name, std::min(chars, kNameChars - 1)}, folded)) {
      listing.decisive = false;
      break;
    }
    listing.names.insert(folded);
  }
  return listing;
}

long MissCachingRegistry::Open(RegKey parent, std::u16string_view path, bool create, RegKey& key) {
  return source_.Open(parent, path, create, key);
}

long MissCachingRegistry::Close(RegKey key) {
  listings_.erase(key);
  return source_.Close(key);
}

long MissCachingRegistry::Query(RegKey key, std::u16string_view name, std::uint32_t& type, void* data,
                                std::uint32_t& size) {
  if (key != 0 && FoldAsciiName(name, folded_)) {
    const Listing& listing = ListingOf(key);
    if (listing.decisive && listing.names.count(folded_) == 0) return kRegNotFound;
  }
  return source_.Query(key, name, type, data, size);
}

long MissCachingRegistry::Set(RegKey key, std::u16string_view name, std::uint32_t type, const void* data,
                              std::uint32_t size) {
  listings_.clear();
  return source_.Set(key, name, type, data, size);
}

long MissCachingRegistry::DeleteValue(RegKey key, std::u16string_view name) {
  listings_.clear();
  return source_.DeleteValue(key, name);
}

long MissCachingRegistry::EnumValue(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& nameChars,
                                    std::uint32_t& type, void* data, std::uint32_t& dataSize) {
  return source_.EnumValue(key, index, name, nameChars, type, data, dataSize);
}

long MissCachingRegistry::EnumKey(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& nameChars) {
  return source_.EnumKey(key, index, name, nameChars);
}

long MissCachingRegistry::DeleteTree(RegKey parent, std::u16string_view subkey) {
  listings_.clear();
  return source_.DeleteTree(parent, subkey);
}

}  // namespace tw
