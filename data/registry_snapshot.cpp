#include "data/registry_snapshot.h"

#include "base/text.h"
#include "base/wide_string.h"

namespace tw {
namespace {

constexpr std::uint32_t kExportNameChars = 256, kExportDataBytes = 256, kLongestName = 16384;

// Every line starts with ';', so none is the blank line that opens an
// import's first section; hex keeps quotes, '=' and line feeds out of them
// and each line well inside the import's line buffer.
constexpr std::u16string_view kSignature = u";Tidewell registry snapshot 1\n";
constexpr std::size_t kUnitsPerLine = 128, kBytesPerLine = 256;
constexpr char16_t kDigits[] = u"0123456789abcdef";

void WriteHexLines(std::u16string_view tag, const std::uint8_t* bytes, std::size_t size, SettingsTextOutput& out) {
  for (std::size_t start = 0; start < size; start += kBytesPerLine) {
    std::u16string line(tag);
    for (std::size_t i = start; i < size && i < start + kBytesPerLine; ++i) {
      line += kDigits[bytes[i] >> 4];
      line += kDigits[bytes[i] & 15];
    }
    out.Write(line + u"\n");
  }
}

void WriteName(std::u16string_view name, SettingsTextOutput& out) {
  std::vector<std::uint8_t> bytes;
  for (char16_t unit : name) {
    bytes.push_back(std::uint8_t(unit >> 8));
    bytes.push_back(std::uint8_t(unit & 0xFF));
  }
  static_assert(kUnitsPerLine * 2 == kBytesPerLine);
  WriteHexLines(u";N ", bytes.data(), bytes.size(), out);
}

int HexDigit(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  if (c >= u'a' && c <= u'f') return c - u'a' + 10;
  return -1;
}

bool AppendHex(std::u16string_view hex, std::vector<std::uint8_t>& bytes) {
  if (hex.empty() || hex.size() % 2 != 0) return false;
  for (std::size_t i = 0; i < hex.size(); i += 2) {
    int high = HexDigit(hex[i]), low = HexDigit(hex[i + 1]);
    if (high < 0 || low < 0) return false;
    bytes.push_back(std::uint8_t(high << 4 | low));
  }
  return true;
}

bool AppendName(std::u16string_view hex, std::u16string& name) {
  std::vector<std::uint8_t> bytes;
  if (!AppendHex(hex, bytes) || bytes.size() % 2 != 0) return false;
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    auto c = char16_t(bytes[i] << 8 | bytes[i + 1]);
    // The registry ends a name at its first nul: a snapshot naming one past it is not one we wrote.
    if (c == u'\0') return false;
    name += c;
  }
  return true;
}

bool ParseNumber(std::u16string_view text, std::uint32_t& number) {
  if (text.empty() || text.size() > 10) return false;
  std::uint64_t value = 0;
  for (char16_t c : text) {
    if (c < u'0' || c > u'9') return false;
    value = value * 10 + (c - u'0');
  }
  number = std::uint32_t(value);
  return value <= 0xFFFFFFFFu;
}

bool Within(std::u16string_view path, std::u16string_view root) {
  if (path.size() < root.size() || !EqualsIgnoreCase(path.substr(0, root.size()), root)) return false;
  return path.size() == root.size() || (path[root.size()] == u'\\' && path.size() > root.size() + 1);
}

void TakeKey(Registry& registry, std::u16string path, TreeSnapshot& snapshot) {
  ScopedKey key(registry, kCurrentUser, path, false);
  if (!key) return;
  SnapshotKey& taken = snapshot.emplace_back();
  taken.path = path;
  ValueEnumerator values(registry, key.get(), true);
  for (EnumeratedValue value; values.Next(value);)
    taken.values.push_back({std::u16string(value.name), value.type, {value.data.begin(), value.data.end()}});
  for (std::uint32_t index = 0;; ++index) {
    char16_t name[kExportNameChars];
    std::uint32_t nameChars = kExportNameChars;
    if (registry.EnumKey(key.get(), index, name, nameChars) != kRegSuccess) break;
    TakeKey(registry, path + u"\\" + std::u16string(name, nameChars), snapshot);
  }
}

// The lines after the signature, one record a line: ";K" opens a key, ";V
// type" a value in it, ";N" lines continue the name of whichever was opened
// last, ";D" lines the value's data, and ";E keys values" closes the whole.
class SnapshotReader {
 public:
  explicit SnapshotReader(TreeSnapshot& snapshot) : snapshot_(snapshot) {}

  // False on a line that does not belong; done once the closing line matched.
  bool Take(std::u16string_view line) {
    if (line.size() < 3 || line[0] != u';' || line.back() != u'\n') return false;
    std::u16string_view payload = line.substr(2, line.size() - 3);
    if (!payload.empty() && payload.front() != u' ') return false;
    if (!payload.empty()) payload.remove_prefix(1);
    switch (line[1]) {
      case u'K':
        if (!payload.empty()) return false;
        snapshot_.emplace_back();
        value_ = nullptr;
        return true;
      case u'V': {
        std::uint32_t type = 0;
        if (snapshot_.empty() || !ParseNumber(payload, type)) return false;
        value_ = &snapshot_.back().values.emplace_back();
        value_->type = type;
        return true;
      }
      case u'N':
        if (snapshot_.empty()) return false;
        return AppendName(payload, value_ ? value_->name : snapshot_.back().path);
      case u'D':
        return value_ != nullptr && AppendHex(payload, value_->data);
      case u'E':
        done_ = Closes(payload);
        return done_;
    }
    return false;
  }
  bool Done() const { return done_; }

 private:
  bool Closes(std::u16string_view counts) {
    std::size_t space = counts.find(u' ');
    std::uint32_t keys = 0, values = 0;
    if (space == counts.npos || !ParseNumber(counts.substr(0, space), keys) ||
        !ParseNumber(counts.substr(space + 1), values))
      return false;
    std::size_t found = 0;
    for (const SnapshotKey& key : snapshot_) found += key.values.size();
    return keys == snapshot_.size() && values == found;
  }

  TreeSnapshot& snapshot_;
  SnapshotValue* value_ = nullptr;
  bool done_ = false;
};

}  // namespace

ValueEnumerator::ValueEnumerator(Registry& registry, RegKey key, bool whole)
    : registry_(registry), key_(key), whole_(whole), name_(whole ? kLongestName : kExportNameChars),
      data_(kExportDataBytes + 2) {}

bool ValueEnumerator::Next(EnumeratedValue& value) {
  for (;;) {
    std::uint32_t nameChars = static_cast<std::uint32_t>(name_.size());
    std::uint32_t size = static_cast<std::uint32_t>(data_.size() - 2);  // room for a missing terminator
    long result = registry_.EnumValue(key_, index_, name_.data(), nameChars, value.type, data_.data(), size);
    if (result == kRegMoreData && whole_ && size > data_.size() - 2) {
      data_.resize(size + 2);
      continue;
    }
    if (result != kRegSuccess) return false;
    ++index_;
    data_[size] = data_[size + 1] = 0;
    value.name = std::u16string_view(name_.data(), nameChars);
    value.data = std::span(data_.data(), size);
    return true;
  }
}

TreeSnapshot TakeSnapshot(Registry& registry, std::u16string_view root) {
  TreeSnapshot snapshot;
  TakeKey(registry, std::u16string(root), snapshot);
  return snapshot;
}

void WriteSnapshot(const TreeSnapshot& snapshot, SettingsTextOutput& out) {
  out.Write(kSignature);
  std::size_t values = 0;
  for (const SnapshotKey& key : snapshot) {
    out.Write(u";K\n");
    WriteName(key.path, out);
    for (const SnapshotValue& value : key.values) {
      out.Write(FormatText(u";V %u\n", {value.type}, WideString::kMaxLength));
      WriteName(value.name, out);
      WriteHexLines(u";D ", value.data.data(), value.data.size(), out);
    }
    values += key.values.size();
  }
  out.Write(FormatText(u";E %u %u\n", {std::uint32_t(snapshot.size()), std::uint32_t(values)},
                       WideString::kMaxLength));
}

bool ReadSnapshot(SettingsTextInput& in, std::u16string_view root, TreeSnapshot& snapshot) {
  TreeSnapshot read;
  SnapshotReader reader(read);
  std::u16string line;
  if (!in.Rewind() || !in.ReadLine(line) || line != kSignature) return false;
  while (!reader.Done())
    if (!in.ReadLine(line) || !reader.Take(line)) return false;
  for (const SnapshotKey& key : read)
    if (!Within(key.path, root)) return false;
  snapshot = std::move(read);
  return true;
}

bool RestoreSnapshot(Registry& registry, std::u16string_view root, const TreeSnapshot& snapshot) {
  long cleared = registry.DeleteTree(kCurrentUser, root);
  bool whole = cleared == kRegSuccess || cleared == kRegNotFound;
  for (const SnapshotKey& taken : snapshot) {
    ScopedKey key(registry, kCurrentUser, taken.path, true);
    whole = whole && key;
    for (const SnapshotValue& value : taken.values)
      whole = key && registry.Set(key.get(), value.name, value.type, value.data.data(),
                                  static_cast<std::uint32_t>(value.data.size())) == kRegSuccess && whole;
  }
  return whole;
}

}  // namespace tw
