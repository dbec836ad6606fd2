// A registry that lists a key's value names at the first query on it and
// then answers "not found" for the names the key lacks without asking again.
// Under Wine every query is a round trip to the server, and loading the
// settings asks for some four hundred values of which a registry usually
// holds a few dozen. Values that exist are still read from the registry
// itself, so what a caller receives never differs from a plain query.
#pragma once

#include <map>
#include <unordered_set>
#include <string>

#include "platform/registry.h"

namespace tw {

class MissCachingRegistry final : public Registry {
 public:
  explicit MissCachingRegistry(Registry& source) : source_(source) {}

  long Open(RegKey parent, std::u16string_view path, bool create, RegKey& key) override;
  long Close(RegKey key) override;
  long Query(RegKey key, std::u16string_view name, std::uint32_t& type, void* data,
             std::uint32_t& size) override;
  // Writes go through and forget every listing: another handle may name the same key.
  long Set(RegKey key, std::u16string_view name, std::uint32_t type, const void* data,
           std::uint32_t size) override;
  long DeleteValue(RegKey key, std::u16string_view name) override;
  long EnumValue(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& nameChars,
                 std::uint32_t& type, void* data, std::uint32_t& dataSize) override;
  long EnumKey(RegKey key, std::uint32_t index, char16_t* name, std::uint32_t& nameChars) override;
  long DeleteTree(RegKey parent, std::u16string_view subkey) override;

 private:
  // The ASCII names of one key, lower-cased. Only an ASCII name can be
  // ruled out with certainty: other scripts fold case in ways the registry
  // knows better, so a key with such names, or a listing cut short, answers
  // nothing itself.
  struct Listing {
    bool decisive = true;
    std::unordered_set<std::u16string> names;
  };
  const Listing& ListingOf(RegKey key);

  Registry& source_;
  std::map<RegKey, Listing> listings_;
  std::u16string folded_;  // kept between queries: a load asks thousands
};

}  // namespace tw
