// The backup written before an import or a scheme rewrites the registry.
#include "data/settings_backup.h"

#include <filesystem>

#include "data/registry_snapshot.h"
#include "data/settings_file.h"
#include "platform/memory/folder_file_system.h"
#include "platform/memory/memory_registry.h"
#include "tests/support/record_text.h"
#include "tests/support/settings_fixture.h"

namespace tw::test {
namespace {

const std::u16string_view kMain = kMainKey.path, kCalendar = kCalendarKey.path;
const std::u16string kTab = std::u16string(kTabSettingsKey.path) + u"\\Other";

// Keys and values one a line, for comparing trees with a readable failure.
std::string Describe(const TreeSnapshot& tree) {
  std::string text;
  for (const SnapshotKey& key : tree) {
    text += Show(key.path) + "\n";
    for (const SnapshotValue& value : key.values)
      text += "  " + Show(value.name) + " " + std::to_string(value.type) + ":" +
              std::string(value.data.begin(), value.data.end()) + "\n";
  }
  return text;
}

class SettingsBackupTest : public SettingsTest {
 protected:
  std::vector<std::uint8_t> BackUp() {
    EXPECT_EQ(BackUpSettings(Environment(registry()), data, Folder()), kNoMessage);
    std::vector<std::uint8_t> bytes;
    files().ReadAll(Folder() + u"\\" + std::u16string(kSettingsBackupName), bytes);
    return bytes;
  }
  int Import(const std::vector<std::uint8_t>& bytes) {
    SettingsTextInput in = SettingsTextInput::FromBytes(bytes);
    return ImportSettings(in, registry(), data);
  }
  // What an import of some other file may do: every value the tables name,
  // loaded or not, saved or not, present or missing, gets another value.
  void OverwriteEverything() {
    for (const KeySpec* key : ProductKeys()) {
      OverwriteValues<SettingsStore>(key->path, key->values);
      for (const FontSpec& font : key->fonts)
        for (std::u16string_view field :
             {u"lfWeight", u"lfItalic", u"lfUnderline", u"lfStrikeOut", u"lfHeight", u"lfColor"})
          Put(key->path, font.name + std::u16string(field), field == u"lfWeight" ? 700 : 1);
    }
    OverwriteValues(kTab, HostedTabValues());
  }
  template <typename Record>
  void OverwriteValues(std::u16string_view path, std::span<const FieldSpec<Record>> values) {
    for (const FieldSpec<Record>& value : values) {
      if (value.kind == ValueKind::Text) PutText(path, value.name, u"other");
      else Put(path, value.name, 12345);
    }
  }

  CategoryData data;
};

TEST_F(SettingsBackupTest, ImportedOverAnyLaterStateItLoadsTheSameRecordAgain) {
  Put(kMain, u"MyVgaMode", 1);  // the scaled defaults follow it
  PutText(kMain, u"FontFaceToUse", u"Verdana");
  std::int32_t onClick = 2;
  WriteRaw(registry(), kCurrentUser, kMain, u"OnClick", kRegBinary, &onClick, sizeof onClick);
  PutText(kCalendar, u"MailCustomInboxStr", std::u16string(200, u'm'));  // ends an export's key
  Put(kCalendar, u"dNumOfDays", 3);
  Put(kTab, u"Order", 4);
  PutText(kTab, u"DLL", u"\\Windows\\other.dll");
  CategoryEntry& work = data.categories.entries.emplace_back();
  work.name.Assign(u"Work");
  work.color = 0x123456;
  MakeDefaultFilters(data.filters);
  data.filters.entries[5].visible = false;
  Load();
  const std::string before = DescribeRecord(*store);
  ASSERT_EQ(store->OnClick, 2) << "a DWORD stored as binary data still loads";
  std::vector<std::uint8_t> backup = BackUp();

  OverwriteEverything();
  work.color = 7;
  data.filters.entries[5].visible = true;
  Reload();
  ASSERT_NE(DescribeRecord(*store), before);
  ASSERT_EQ(Import(backup), 1);
  Reload();
  EXPECT_EQ(DescribeRecord(*store), before);
  EXPECT_EQ(data.categories.entries[0].color, 0x123456u);
  EXPECT_FALSE(data.filters.entries[5].visible) << "the filters are backed up too";
}

// Undo puts back what no import line can carry and removes what the import
// added; its own backup makes a second Undo take the first back.
TEST_F(SettingsBackupTest, UndoRestoresTheTreeExactlyAndUndoesItself) {
  const std::uint8_t bytes[] = {1, 0, 2};
  WriteRaw(registry(), kCurrentUser, kMain, u"Blob", 9, bytes, sizeof bytes);  // any type, a 9 among its digits
  PutText(kCalendar, u"Long", std::u16string(900, u'x'));
  PutText(kCalendar, u"Odd \"name\"\n", u"a \"quoted\" value");
  Put(std::u16string(kMain) + u"\\Unknown\\Deeper", u"Kept", 9);
  Put(kCalendar, u"dNumOfDays", 3);
  CategoryEntry& work = data.categories.entries.emplace_back();
  work.name.Assign(u"Work");
  work.color = 0x123456;
  const std::string before = Describe(TakeSnapshot(registry(), kProductKey));
  BackUp();

  Put(kTab, u"Order", 4);  // a hosted tab the import brought
  Put(kCalendar, u"dNumOfDays", 5);
  registry().DeleteTree(kCurrentUser, std::u16string(kMain) + u"\\Unknown");
  work.color = 7;
  const std::string imported = Describe(TakeSnapshot(registry(), kProductKey));
  Put(u"Software\\Orvex\\Elsewhere", u"Left", 1);

  ASSERT_EQ(UndoRewrite(Environment(registry()), data, Folder(), true), kNoMessage);
  EXPECT_EQ(Describe(TakeSnapshot(registry(), kProductKey)), before);
  EXPECT_EQ(data.categories.entries[0].color, 0x123456u);
  EXPECT_TRUE(Stored(u"Software\\Orvex\\Elsewhere", u"Left").present) << "only the product's tree is replaced";

  ASSERT_EQ(UndoRewrite(Environment(registry()), data, Folder(), true), kNoMessage);
  EXPECT_EQ(Describe(TakeSnapshot(registry(), kProductKey)), imported);
  EXPECT_EQ(data.categories.entries[0].color, 7u);
  registry().DeleteTree(kCurrentUser, u"Software\\Orvex\\Elsewhere");

  struct Refusing : MemoryRegistry {
    long Set(RegKey, std::u16string_view, std::uint32_t, const void*, std::uint32_t) override { return 5; }
  } refusing;
  EXPECT_FALSE(RestoreSnapshot(refusing, kProductKey, TakeSnapshot(registry(), kProductKey)))
      << "a value it could not put back";
}

// A backup Undo cannot trust changes nothing: none at all, one cut short, one
// whose tree reaches outside the product's key.
TEST_F(SettingsBackupTest, UndoRefusesABackupItCannotTrust) {
  Put(kCalendar, u"dNumOfDays", 3);
  const std::u16string path = Folder() + u"\\" + std::u16string(kSettingsBackupName);
  EXPECT_EQ(UndoRewrite(Environment(registry()), data, Folder(), true), kBackupUnreadable);

  std::vector<std::uint8_t> whole = BackUp();
  std::string text(whole.begin(), whole.end());
  std::size_t cut = text.find(";E ");
  ASSERT_NE(cut, std::string::npos);
  ASSERT_TRUE(files().WriteAll(path, whole.data(), cut));
  Put(kCalendar, u"dNumOfDays", 4);
  EXPECT_EQ(UndoRewrite(Environment(registry()), data, Folder(), true), kBackupUnreadable);
  text.erase(text.find(";D ") + 3, 1);  // an odd number of hex digits
  ASSERT_TRUE(files().WriteAll(path, text.data(), text.size()));
  EXPECT_EQ(UndoRewrite(Environment(registry()), data, Folder(), true), kBackupUnreadable);
  std::string other = "not a backup" + std::string(whole.begin(), whole.end()).substr(text.find('\n'));
  ASSERT_TRUE(files().WriteAll(path, other.data(), other.size()));
  EXPECT_EQ(UndoRewrite(Environment(registry()), data, Folder(), true), kBackupUnreadable) << "unsigned";

  // A key outside the tree, and a name the registry would cut at its nul.
  for (std::u16string strange : {std::u16string(u"Software\\Orvex\\TidewellOther"), kTab + u'\0' + u"x"}) {
    SettingsTextOutput out;
    WriteSnapshot({{std::u16string(kMain), {}}, {strange, {}}}, out);
    ASSERT_TRUE(files().WriteAll(path, out.Bytes().data(), out.Bytes().size()));
    EXPECT_EQ(UndoRewrite(Environment(registry()), data, Folder(), true), kBackupUnreadable) << Show(strange);
  }
  EXPECT_FALSE(KeyExists(registry(), kCurrentUser, u"Software\\Orvex\\TidewellOther"));
  EXPECT_FALSE(KeyExists(registry(), kCurrentUser, kTab));
  EXPECT_EQ(Stored(kCalendar, u"dNumOfDays").dword, 4u);
}

// The backup is never written through what stands at its name, and a
// refused backup leaves the former one as it was.
TEST_F(SettingsBackupTest, ABackupThatCannotBeWrittenSaysWhy) {
  const std::u16string path = Folder() + u"\\" + std::u16string(kSettingsBackupName);
  ASSERT_TRUE(files().MakeDirectory(path));
  EXPECT_EQ(BackUpSettings(Environment(registry()), data, Folder()), kBackupLinkInTheWay);
#ifndef _WIN32
  auto& host = static_cast<FolderFileSystem&>(files());
  std::filesystem::remove(host.HostPath(path));
  std::filesystem::path target = host.HostPath(Folder() + u"\\elsewhere");
  ASSERT_TRUE(files().WriteAll(Folder() + u"\\elsewhere", "kept", 4));
  std::filesystem::create_symlink(target, host.HostPath(path));
  EXPECT_EQ(BackUpSettings(Environment(registry()), data, Folder()), kBackupLinkInTheWay);
  std::vector<std::uint8_t> kept;
  ASSERT_TRUE(files().ReadAll(Folder() + u"\\elsewhere", kept));
  EXPECT_EQ(std::string(kept.begin(), kept.end()), "kept");
#endif
  EXPECT_EQ(BackUpSettings(Environment(registry()), data, Folder() + u"\\missing"), kBackupNotWritten);
}

}  // namespace
}  // namespace tw::test
