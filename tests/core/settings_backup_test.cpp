// The backup written before an import or a scheme rewrites the registry.
#include "data/settings_backup.h"

#include "data/settings_file.h"
#include "tests/support/record_text.h"
#include "tests/support/settings_fixture.h"

namespace tw::test {
namespace {

const std::u16string_view kMain = kMainKey.path, kCalendar = kCalendarKey.path;
const std::u16string kTab = std::u16string(kTabSettingsKey.path) + u"\\Other";

class SettingsBackupTest : public SettingsTest {
 protected:
  std::vector<std::uint8_t> BackUp() {
    EXPECT_TRUE(BackUpSettings(Environment(registry()), data, Folder()));
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
  Load();
  const std::string before = DescribeRecord(*store);
  ASSERT_EQ(store->OnClick, 2) << "a DWORD stored as binary data still loads";
  std::vector<std::uint8_t> backup = BackUp();

  OverwriteEverything();
  work.color = 7;
  Reload();
  ASSERT_NE(DescribeRecord(*store), before);
  ASSERT_EQ(Import(backup), 1);
  Reload();
  EXPECT_EQ(DescribeRecord(*store), before);
  EXPECT_EQ(data.categories.entries[0].color, 0x123456u);
}

// A value no line can carry as it stands is cut, so that the file stays
// importable to its end; the loader sees the same beyond 259 characters.
TEST_F(SettingsBackupTest, ValuesTheFileCannotCarryAreCutNotFatal) {
  PutText(kMain, u"FontFaceToUse", u"first\n\n[broken]");
  PutText(kCalendar, u"MailCustomInboxStr", std::u16string(900, u'x'));
  Put(kCalendar, u"dNumOfDays", 3);
  std::vector<std::uint8_t> backup = BackUp();
  OverwriteEverything();
  ASSERT_EQ(Import(backup), 1);
  EXPECT_EQ(Stored(kMain, u"FontFaceToUse").text, u"first");
  EXPECT_GT(Stored(kCalendar, u"MailCustomInboxStr").text.size(), 259u) << "still too long to load";
  EXPECT_EQ(Stored(kCalendar, u"dNumOfDays").dword, 3u);
}

}  // namespace
}  // namespace tw::test
