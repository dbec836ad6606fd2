#include "platform/memory/memory_registry.h"

#include <algorithm>
#include <cstring>

namespace tw {
namespace {

char16_t FoldCase(char16_t c) {
  if (c >= u'A' && c <= u'Z') return c + 32;
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;      // Latin-1 capitals
  if (c >= 0x410 && c <= 0x42F) return c + 32;                 // Cyrillic А..Я
  if (c >= 0x400 && c <= 0x40F) return c + 80;                 // Cyrillic Ѐ..Џ
  return c;
}

struct NameLess {
  bool operator()(const std::u16string& a, const std::u16string& b) const {
    return CompareRegistryNames(a, b) < 0;
  }
};

struct Value {
  std::u16string name;  // as first written, so enumeration keeps its case
  std::uint32_t type = kRegNone;
  std::vector<std::uint8_t> data;
};

long CopyName(const std::u16string& source, char16_t* name, std::uint32_t& nameChars) {
  if (name == nullptr || source.size() + 1 > nameChars) return kRegMoreData;
  std::copy(source.begin(), source.end(), name);
  name[source.size()] = 0;
  nameChars = static_cast<std::uint32_t>(source.size());
  return kRegSuccess;
}

}  // namespace

int CompareRegistryNames(std::u16string_view a, std::u16string_view b) {
  std::size_t n = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < n; ++i) {
    char16_t x = FoldCase(a[i]), y = FoldCase(b[i]);
    if (x != y) return x < y ? -1 : 1;
  }
  return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

struct MemoryRegistry::Node {
  std::u16string name;
  bool deleted = false;
  std::vector<Value> values;  // sorted by name, so enumeration by index is direct

  std::vector<Value>::iterator Find(std::u16string_view name, bool& exact) {
    auto at = std::lower_bound(values.begin(), values.end(), name, [](const Value& v, std::u16string_view n) {
      return CompareRegistryNames(v.name, n) < 0;
    });
    exact = at != values.end() && CompareRegistryNames(at->name, name) == 0;
    return at;
  }
  std::map<std::u16string, std::shared_ptr<Node>, NameLess> subkeys;

  void MarkDeleted() {
    deleted = true;
    for (auto& [name, child] : subkeys) child->MarkDeleted();
  }
};

MemoryRegistry::MemoryRegistry()
    : currentUser_(std::make_shared<Node>()), localMachine_(std::make_shared<Node>()) {}

MemoryRegistry::~MemoryRegistry() = default;

MemoryRegistry::Node* MemoryRegistry::Resolve(RegKey key) const {
  if (key == kCurrentUser) return currentUser_.get();
  if (key == kLocalMachine) return localMachine_.get();
  auto found = handles_.find(key);
  if (found == handles_.end() || found->second->deleted) return nullptr;
  return found->second.get();
}

long MemoryRegistry::Open(RegKey parent, std::u16string_view path, bool create, RegKey& key) {
  Node* node = Resolve(parent);
  if (node == nullptr) return kRegInvalidHandle;
  std::shared_ptr<Node> current;
  std::size_t start = 0;
  while (start <= path.size()) {
    std::size_t end = path.find(u'\\', start);
    if (end == std::u16string_view::npos) end = path.size();
    std::u16string part(path.substr(start, end - start));
    start = end + 1;
    if (part.empty()) {
      if (end == path.size()) break;
      continue;
    }
    Node* from = current ? current.get() : node;
    auto child = from->subkeys.find(part);
    if (child == from->subkeys.end()) {
      if (!create) return kRegNotFound;
      auto made = std::make_shared<Node>();
      made->name = part;
      child = from->subkeys.emplace(part, made).first;
    }
    current = child->second;
  }
  if (!current) {  // an empty path opens the parent again
    if (parent == kCurrentUser) current = currentUser_;
    else if (parent == kLocalMachine) current = localMachine_;
    else current = handles_.at(parent);
  }
  key = nextHandle_++;
  handles_[key] = current;
  return kRegSuccess;
}

long MemoryRegistry::Close(RegKey key) {
  if (key == kCurrentUser || key == kLocalMachine) return kRegSuccess;
  return handles_.erase(key) ? kRegSuccess : kRegInvalidHandle;
}

long MemoryRegistry::Query(RegKey key, std::u16string_view name, std::uint32_t& type, void* data,
                           std::uint32_t& size) {
  Node* node = Resolve(key);
  if (node == nullptr) return kRegInvalidHandle;
  bool exact = false;
  auto found = node->Find(name, exact);
  if (!exact) return kRegNotFound;
  const Value& value = *found;
  type = value.type;
  std::uint32_t needed = static_cast<std::uint32_t>(value.data.size());
  if (data != nullptr && needed > size) {
    size = needed;
    return kRegMoreData;
  }
  if (data != nullptr && needed > 0) std::memcpy(data, value.data.data(), needed);
  size = needed;
  return kRegSuccess;
}

long MemoryRegistry::Set(RegKey key, std::u16string_view name, std::uint32_t type,
                         const void* data, std::uint32_t size) {
  Node* node = Resolve(key);
  if (node == nullptr) return kRegInvalidHandle;
  if (data == nullptr && size > 0) return kRegInvalidParameter;
  bool exact = false;
  auto at = node->Find(name, exact);
  if (!exact) at = node->values.insert(at, Value{std::u16string(name), kRegNone, {}});
  Value& value = *at;
  value.type = type;
  const auto* bytes = static_cast<const std::uint8_t*>(data);
  value.data.assign(bytes, bytes + size);
  return kRegSuccess;
}

long MemoryRegistry::DeleteValue(RegKey key, std::u16string_view name) {
  Node* node = Resolve(key);
  if (node == nullptr) return kRegInvalidHandle;
  bool exact = false;
  auto at = node->Find(name, exact);
  if (!exact) return kRegNotFound;
  node->values.erase(at);
  return kRegSuccess;
}

long MemoryRegistry::EnumValue(RegKey key, std::uint32_t index, char16_t* name,
                               std::uint32_t& nameChars, std::uint32_t& type, void* data,
                               std::uint32_t& dataSize) {
  Node* node = Resolve(key);
  if (node == nullptr) return kRegInvalidHandle;
  if (index >= node->values.size()) return kRegNoMoreItems;
  const Value& value = node->values[index];
  std::uint32_t needed = static_cast<std::uint32_t>(value.data.size());
  if (data != nullptr && needed > dataSize) {
    dataSize = needed;
    return kRegMoreData;
  }
  if (long result = CopyName(value.name, name, nameChars); result != kRegSuccess) return result;
  type = value.type;
  if (data != nullptr && needed > 0) std::memcpy(data, value.data.data(), needed);
  dataSize = needed;
  return kRegSuccess;
}

long MemoryRegistry::EnumKey(RegKey key, std::uint32_t index, char16_t* name,
                             std::uint32_t& nameChars) {
  Node* node = Resolve(key);
  if (node == nullptr) return kRegInvalidHandle;
  if (index >= node->subkeys.size()) return kRegNoMoreItems;
  return CopyName(std::next(node->subkeys.begin(), index)->second->name, name, nameChars);
}

long MemoryRegistry::DeleteTree(RegKey parent, std::u16string_view subkey) {
  RegKey opened = 0;
  if (subkey.empty()) return kRegInvalidParameter;
  std::size_t split = subkey.rfind(u'\\');
  std::u16string_view folder = split == std::u16string_view::npos ? u"" : subkey.substr(0, split);
  std::u16string leaf(split == std::u16string_view::npos ? subkey : subkey.substr(split + 1));
  if (long result = Open(parent, folder, false, opened); result != kRegSuccess) return result;
  Node* node = Resolve(opened);
  auto child = node->subkeys.find(leaf);
  long result = kRegNotFound;
  if (child != node->subkeys.end()) {
    child->second->MarkDeleted();
    node->subkeys.erase(child);
    result = kRegSuccess;
  }
  Close(opened);
  return result;
}

}  // namespace tw
