// A registry tree exactly as it stood: every key, and every value with its
// type and bytes, whatever the settings record makes of them. Written as
// lines that a settings import passes over (they stand before the file's
// first blank line), so one file can both import and restore.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/settings_text.h"
#include "platform/registry.h"

namespace tw {

struct EnumeratedValue {
  std::u16string_view name;
  std::uint32_t type = 0;
  std::span<const std::uint8_t> data;
};

// A key's values one by one, with buffers kept between them. The export's
// fixed buffers (256 characters, 256 bytes) end the enumeration at the first
// value that passes them; whole ones grow up to the registry's longest name
// and any data size, and end it at the last value only.
class ValueEnumerator {
 public:
  ValueEnumerator(Registry& registry, RegKey key, bool whole);
  bool Next(EnumeratedValue& value);

 private:
  Registry& registry_;
  RegKey key_;
  bool whole_;
  std::uint32_t index_ = 0;
  std::vector<char16_t> name_;
  std::vector<std::uint8_t> data_;
};

struct SnapshotValue {
  std::u16string name;
  std::uint32_t type = 0;
  std::vector<std::uint8_t> data;

  bool operator==(const SnapshotValue&) const = default;
};
struct SnapshotKey {
  std::u16string path;  // below HKEY_CURRENT_USER
  std::vector<SnapshotValue> values;

  bool operator==(const SnapshotKey&) const = default;
};
// Parents before their subkeys; empty when the tree did not exist.
using TreeSnapshot = std::vector<SnapshotKey>;

TreeSnapshot TakeSnapshot(Registry& registry, std::u16string_view root);
void WriteSnapshot(const TreeSnapshot& snapshot, SettingsTextOutput& out);
// False when the input holds no whole snapshot of root: missing, cut short,
// damaged, or naming a key outside root.
bool ReadSnapshot(SettingsTextInput& in, std::u16string_view root, TreeSnapshot& snapshot);
// Replaces the tree at root with the snapshot; false when any key or value
// could not be written (the tree is then partly restored).
bool RestoreSnapshot(Registry& registry, std::u16string_view root, const TreeSnapshot& snapshot);

}  // namespace tw
