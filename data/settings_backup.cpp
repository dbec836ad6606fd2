#include "data/settings_backup.h"

#include <map>
#include <memory>

#include "base/text.h"
#include "data/registry_snapshot.h"
#include "data/settings_file.h"
#include "data/value_lines.h"

namespace tw {
namespace {

// Registry names match without regard to case; other scripts are compared as
// they stand, which is how the loader's own paths and the enumerated tab
// names meet anyway.
std::u16string Folded(std::u16string_view name) {
  std::u16string folded(name);
  for (char16_t& c : folded) c = AsciiLower(c);
  return folded;
}

// Lines for the values the loader reads that the export leaves out, by key:
// a missing value as the default the loader took, one of a type the file
// cannot carry as the value the loader made of it.
class UnexportedValues final : public LoadedValueSink, public KeyAddenda {
 public:
  void Number(std::u16string_view keyPath, std::u16string_view name, std::int32_t loaded,
              std::int32_t missing) override {
    Add(keyPath, name, FormatText(kDwordLineFormat, {name, loaded}, WideString::kMaxLength),
        FormatText(kDwordLineFormat, {name, missing}, WideString::kMaxLength));
  }
  void Text(std::u16string_view keyPath, std::u16string_view name, std::u16string_view loaded,
            std::u16string_view missing) override {
    Add(keyPath, name, FormatText(kStringLineFormat, {name, ImportableText(name, loaded)}, WideString::kMaxLength),
        FormatText(kStringLineFormat, {name, ImportableText(name, missing)}, WideString::kMaxLength));
  }

  void Write(std::u16string_view path, std::span<const MetValue> met, SettingsTextOutput& out) override {
    auto found = byKey_.find(Folded(path));
    if (found == byKey_.end()) return;
    std::map<std::u16string, bool> written;
    for (const MetValue& value : met) written.emplace(Folded(value.name), value.written);
    for (const Line& line : found->second.lines) {
      auto seen = written.find(line.foldedName);
      if (seen == written.end()) WriteLine(line.missing, out);
      else if (!seen->second) WriteLine(line.loaded, out);
    }
    byKey_.erase(found);
  }

  // Keys the export did not meet, each as a section of its own.
  void WriteRest(SettingsTextOutput& out) {
    for (const auto& [folded, key] : byKey_) {
      WriteSectionHeader(key.path, out);
      for (const Line& line : key.lines) WriteLine(line.missing, out);
    }
    byKey_.clear();
  }

 private:
  struct Line {
    std::u16string foldedName;
    std::u16string loaded;
    std::u16string missing;
  };
  struct Key {
    std::u16string path;
    std::vector<Line> lines;
  };

  void Add(std::u16string_view keyPath, std::u16string_view name, std::u16string loaded, std::u16string missing) {
    Key& key = byKey_[Folded(keyPath)];
    key.path = keyPath;
    key.lines.push_back({Folded(name), std::move(loaded), std::move(missing)});
  }
  static void WriteLine(std::u16string_view text, SettingsTextOutput& out) {
    out.Write(text);
    out.Write(u"\n");
  }

  std::map<std::u16string, Key> byKey_;
};

std::u16string BackupPath(std::u16string_view documentsFolder) {
  return FormatText(u"%s\\%s", {documentsFolder, kSettingsBackupName}, WideString::kMaxLength);
}

}  // namespace

MessagePair BackUpSettings(const SettingsEnvironment& environment, const CategoryData& data,
                           std::u16string_view documentsFolder) {
  // Taken first: loading opens the record's keys with create semantics.
  TreeSnapshot tree = TakeSnapshot(environment.registry, kProductKey);
  // The defaults follow what the registry holds now, not the pages' edits.
  auto stored = std::make_unique<SettingsStore>();
  LoadSettings(*stored, environment);
  UnexportedValues unexported;
  ListLoadedValues(*stored, environment, unexported);

  SettingsTextOutput out;
  WriteSnapshot(tree, out);
  ExportWholeTree(environment.registry, kProductKey, unexported, out);
  unexported.WriteRest(out);
  WriteCategoriesSection(data.categories, out);
  WriteFiltersSection(data.filters, out);
  switch (environment.files.Replace(BackupPath(documentsFolder), out.Bytes().data(), out.Bytes().size())) {
    case WriteFailure::None:
      return kNoMessage;
    case WriteFailure::NoRoom:
      return kBackupNoRoom;
    case WriteFailure::LinkInTheWay:
      return kBackupLinkInTheWay;
    case WriteFailure::Other:
      break;
  }
  return kBackupNotWritten;
}

MessagePair UndoRewrite(const SettingsEnvironment& environment, CategoryData& data,
                        std::u16string_view documentsFolder, bool backUpFirst) {
  std::u16string path = BackupPath(documentsFolder);
  std::vector<std::uint8_t> backup;
  TreeSnapshot snapshot;
  if (!environment.files.ReadAll(path, backup)) return kBackupUnreadable;
  SettingsTextInput in = SettingsTextInput::FromBytes(backup);
  CategoryData probe;  // the lists are taken only once the tree is back
  if (!ReadSnapshot(in, kProductKey, snapshot) || !ImportLists(in, probe)) return kBackupUnreadable;
  if (backUpFirst)
    if (MessagePair refused = BackUpSettings(environment, data, documentsFolder); refused != kNoMessage)
      return refused;
  if (!RestoreSnapshot(environment.registry, kProductKey, snapshot)) {
    environment.files.Replace(path, backup.data(), backup.size());
    return kUndoIncomplete;
  }
  ImportLists(in, data);
  return kNoMessage;
}

}  // namespace tw
