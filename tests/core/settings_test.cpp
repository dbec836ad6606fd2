#include <set>

#include "app/scaling.h"
#include "tests/support/counting_registry.h"
#include "tests/support/settings_fixture.h"

namespace tw::test {
namespace {

// Every product key, for checks over the whole tree.
std::vector<std::u16string> ProductKeyPaths() {
  std::vector<std::u16string> paths;
  for (const KeySpec* key : ProductKeys()) paths.emplace_back(key->path);
  return paths;
}

TEST(SchemaTest, EachFieldAndNameAppearsOnce) {
  // Member pointers have no order; the addresses they give in one record do.
  auto record = std::make_unique<SettingsStore>();
  std::set<std::u16string> names;
  std::set<const void*> fields;
  std::size_t fonts = 0;
  for (const KeySpec* key : ProductKeys()) {
    for (const ValueSpec& value : key->values) {
      EXPECT_TRUE(names.insert(value.name).second) << Show(value.name) << " listed twice";
      const void* field = value.dword    ? static_cast<const void*>(&(record.get()->*value.dword))
                          : value.string ? static_cast<const void*>(&(record.get()->*value.string))
                                         : static_cast<const void*>(&(record.get()->*value.item));
      EXPECT_TRUE(fields.insert(field).second) << Show(value.name) << " shares a field";
    }
    for (const FontSpec& font : key->fonts) {
      EXPECT_TRUE(names.insert(font.name).second) << Show(font.name);
      EXPECT_TRUE(fields.insert(&(record.get()->*font.field)).second) << Show(font.name);
      ++fonts;
    }
  }
  EXPECT_EQ(fonts, 30u);
}

class LoadSaveTest : public SettingsTest {};

TEST_F(LoadSaveTest, EmptyRegistryGivesDefaults) {
  Load();
  const SettingsStore& s = *store;
  EXPECT_EQ(s.ProductFolder.View(), u"\\Program Files\\Orvex\\Tidewell");
  EXPECT_EQ(s.SkinsFolder.View(), u"\\Program Files\\Orvex\\Tidewell\\Skins");
  EXPECT_EQ(s.TWIconsFolder.View(), u"\\Program Files\\Orvex\\Tidewell\\CategoryIcons");
  EXPECT_EQ(s.TWFiltersFileFolder.View(), u"\\Program Files\\Orvex\\Tidewell");
  EXPECT_EQ(s.AgendaFusionIconsFolder.View(), u"Program Files\\Agenda Fusion\\Icons");
  EXPECT_EQ(s.PocketInformantFolder.View(), u"My Documents");
  EXPECT_EQ(s.dSelectedSkin.View(), u"default");
  EXPECT_EQ(s.FontFaceToUse.View(), u"Tahoma");
  EXPECT_EQ(s.NoteZoom, 100);
  EXPECT_EQ(s.dHeightLimit, 160);
  EXPECT_EQ(s.TimeFormat, 1) << "the test locale keeps a 12-hour clock";
  EXPECT_EQ(s.MonthlyStartDay, 6);
  EXPECT_EQ(s.ClrApptRightIcons, 479);
  EXPECT_EQ(s.TasksRightIcons, 383);
  EXPECT_EQ(s.MsgsMrkReadOnPrev.value, 1);
  EXPECT_EQ(s.NotesBreakLineStyle.defaultValue, 3);
  EXPECT_EQ(s.NotesBreakLineStyle.name.View(), u"NotesBreakLineStyle");
  EXPECT_EQ(s.HighlightBgClr, -1);
  EXPECT_EQ(s.FontGeneral.font.lfWeight, 100);
  EXPECT_EQ(s.FontCalDayTitles.font.lfWeight, 700);
  EXPECT_EQ(s.FontCalPast.font.lfStrikeOut, 1);
  EXPECT_EQ(s.FontMailUnread.font.lfStrikeOut, 0);
  EXPECT_EQ(s.FontGeneral.font.lfHeight, 12);
  EXPECT_EQ(s.FontGeneral.color, -1);
  EXPECT_EQ(std::u16string_view(s.FontGeneral.font.lfFaceName), u"Tahoma");
  EXPECT_EQ(s.FontGeneral.font.lfQuality, 0);
  EXPECT_TRUE(s.tabs.empty());
  EXPECT_EQ(s.ActiveTab, 1);
}

// Only what the saver judges differently from the loader is left behind:
// the skin name, every font's weight (always written) and the unread-mail
// font's strike-out flag.
TEST_F(LoadSaveTest, SavingDefaultsLeavesOnlyTheDeliberateValues) {
  Load();
  Save();
  std::map<std::u16string, std::vector<std::u16string>> expected;
  expected[std::u16string(kMain)] = {u"dSelectedSkin"};
  expected[std::u16string(kFonts)] = {
      u"FontGenerallfWeight", u"FontCalTaskslfWeight", u"FontCalTasksOverduelfWeight",
      u"FontCalTasksFuturelfWeight", u"FontCalTasksCompletedlfWeight", u"FontCalTasksUndatedlfWeight",
      u"FontCalApptBusylfWeight", u"FontCalApptFreelfWeight", u"FontCalApptOutOfOfficelfWeight",
      u"FontCalTentativelfWeight", u"FontCalPastlfWeight", u"FontCalCompletedlfWeight",
      u"FontCalDayTitleslfWeight", u"FontMailUnreadlfWeight", u"FontMailReadlfWeight",
      u"FontTskOverduelfWeight", u"FontTskDueTodaylfWeight", u"FontTskNoDuelfWeight",
      u"FontTskFutureDuelfWeight", u"FontTskGroupingTtlslfWeight", u"FontNoteItemslfWeight",
      u"FontNoteTitleslfWeight", u"FontMsgsReadlfWeight", u"FontMsgsUnreadlfWeight",
      u"FontMsgsTitleslfWeight", u"FontSEGenerallfWeight", u"FontSEFilter1lfWeight",
      u"FontSEFilter2lfWeight", u"FontSEFilter3lfWeight", u"FontSEFilter4lfWeight",
      u"FontMailUnreadlfStrikeOut"};

  for (const std::u16string& path : ProductKeyPaths()) {
    std::vector<std::u16string> names = ValueNames(registry(), kCurrentUser, path);
    std::vector<std::u16string> want = expected[path];
    std::sort(names.begin(), names.end());
    std::sort(want.begin(), want.end());
    EXPECT_EQ(names, want) << Show(path);
  }
  EXPECT_EQ(Stored(kMain, u"dSelectedSkin").text, u"default");
  EXPECT_EQ(Stored(kFonts, u"FontMailUnreadlfStrikeOut").dword, 0u);
  EXPECT_EQ(Stored(kFonts, u"FontGenerallfWeight").dword, 100u);
  EXPECT_EQ(Stored(kFonts, u"FontMsgsTitleslfWeight").dword, 700u);
}

TEST_F(LoadSaveTest, ChangedValuesRoundTripAndEqualOnesAreDeleted) {
  Load();
  store->OnClick = 3;
  store->dNumOfDays = 12;
  store->CustomDayttlFrmtDefault.Assign(u"ddd d MMM");
  store->AdditionalFilterCat3.Assign(u"Geburtstag Привет");
  store->MsgsBreakLineStyle.value = 0;
  store->HideABCVals = 0;
  store->ClrStatusBusy = 0x00FF00;
  store->FontCalTentative.font.lfItalic = 1;
  store->FontCalTentative.color = 0x123456;
  store->AdditionalIconsFolder.Assign(u"\\Icons");
  Save();
  Put(kMain, u"OnDoubleClick", 0);  // equal to its default: the save must delete it
  Save();
  EXPECT_FALSE(Stored(kMain, u"OnDoubleClick").present);

  Reload();
  EXPECT_EQ(store->OnClick, 3);
  EXPECT_EQ(store->dNumOfDays, 12);
  EXPECT_EQ(store->CustomDayttlFrmtDefault.View(), u"ddd d MMM");
  EXPECT_EQ(store->AdditionalFilterCat3.View(), u"Geburtstag Привет");
  EXPECT_EQ(store->MsgsBreakLineStyle.value, 0);
  EXPECT_EQ(store->HideABCVals, 0);
  EXPECT_EQ(store->ClrStatusBusy, 0x00FF00);
  EXPECT_EQ(store->FontCalTentative.font.lfItalic, 1);
  EXPECT_EQ(store->FontCalTentative.color, 0x123456);
  EXPECT_EQ(store->AdditionalIconsFolder.View(), u"\\Icons");
  EXPECT_EQ(Stored(kMessages, u"MsgsBreakLineStyle").dword, 0u);

  store->MsgsBreakLineStyle.value = store->MsgsBreakLineStyle.defaultValue;
  store->FontCalTentative.font.lfItalic = 0;
  Save();
  EXPECT_FALSE(Stored(kMessages, u"MsgsBreakLineStyle").present);
  EXPECT_FALSE(Stored(kFonts, u"FontCalTentativelfItalic").present);
}

TEST_F(LoadSaveTest, DwordReadsIgnoreTypeButNotSize) {
  std::uint64_t wide = 5;
  WriteRaw(registry(), kCurrentUser, kMain, u"OnClick", kRegDword, &wide, 8);
  WriteText(registry(), kCurrentUser, kMain, u"OnDoubleClick", u"1");
  WriteText(registry(), kCurrentUser, kMain, u"dUsedPIM", u"12");
  Load();
  EXPECT_EQ(store->OnClick, 0) << "8-byte data is too long";
  EXPECT_EQ(store->OnDoubleClick, 49) << "'1' and terminator are exactly 4 bytes";
  EXPECT_EQ(store->dUsedPIM, 0) << "two characters are 6 bytes";
}

TEST_F(LoadSaveTest, StringsLongerThan259CharactersLoadTheDefault) {
  WriteText(registry(), kCurrentUser, kMain, u"FontFaceToUse", std::u16string(259, u'a'));
  WriteText(registry(), kCurrentUser, kMain, u"SelectedLangResFile", std::u16string(260, u'b'));
  Load();
  EXPECT_EQ(store->FontFaceToUse.View(), std::u16string(259, u'a'));
  EXPECT_EQ(store->SelectedLangResFile.View(), u"\\Program Files\\Orvex\\Tidewell\\LangRes\\CPEngRc.dll");
  EXPECT_EQ(std::u16string_view(store->FontGeneral.font.lfFaceName), std::u16string(31, u'a'))
      << "a face name is cut to the 32 characters of the font record";
}

TEST_F(LoadSaveTest, SkinNameLoadsAndSavesAgainstDifferentDefaults) {
  Load();
  store->dSelectedSkin.Assign(u"Default");
  Save();
  EXPECT_FALSE(Stored(kMain, u"dSelectedSkin").present);
  Reload();
  EXPECT_EQ(store->dSelectedSkin.View(), u"default");
}

TEST_F(LoadSaveTest, LocaleDefaultsAreAskedAgainAtSave) {
  Use24HourClock(true);
  SetFirstDayOfWeek(0);
  Load();
  EXPECT_EQ(store->TimeFormat, 0);
  EXPECT_EQ(store->MonthlyStartDay, 0);
  EXPECT_EQ(store->FirstWorkDay, 0);
  Save();
  EXPECT_FALSE(Stored(kCalendar, u"TimeFormat").present);

  Use24HourClock(false);
  SetFirstDayOfWeek(6);
  Save();
  EXPECT_EQ(Stored(kCalendar, u"TimeFormat").dword, 0u) << "equalled the old default only";
  EXPECT_EQ(Stored(kCalendar, u"MonthlyStartDay").dword, 0u);
  EXPECT_EQ(Stored(kCalendar, u"FirstWorkDay").dword, 0u);
  store->TimeFormat = 1;
  Save();
  EXPECT_FALSE(Stored(kCalendar, u"TimeFormat").present);
}

TEST_F(LoadSaveTest, VgaModeDoublesScaledDefaults) {
  Load();
  EXPECT_EQ(store->dHeightLimit, 160);
  store->MyVgaMode = 1;
  Save();
  EXPECT_EQ(Stored(kMain, u"MyVgaMode").dword, 1u);
  EXPECT_EQ(Stored(kMain, u"dHeightLimit").dword, 160u) << "unchanged, but no longer the default";
  EXPECT_EQ(Stored(kCalendar, u"MonthlyPopIconsSize").dword, 6u);
  EXPECT_EQ(Stored(kFonts, u"FontGnrlSize").dword, 12u);
  EXPECT_EQ(Stored(kFonts, u"FontGenerallfHeight").dword, 12u);

  registry().DeleteTree(kCurrentUser, u"Software\\Orvex");
  Put(kMain, u"MyVgaMode", 1);
  Reload();
  EXPECT_EQ(store->dHeightLimit, 320);
  EXPECT_EQ(store->FontGeneral.font.lfHeight, 24);
  EXPECT_EQ(store->MonthlyPopIconsSize, 12);
}

TEST_F(LoadSaveTest, DayCountAndTitleOrderAreValidated) {
  for (std::int32_t days : {0, 31, 1, 30}) {
    Put(kCalendar, u"dNumOfDays", static_cast<std::uint32_t>(days));
    Reload();
    EXPECT_EQ(store->dNumOfDays, days == 0 || days == 31 ? 7 : days) << days;
    EXPECT_EQ(static_cast<std::int32_t>(Stored(kCalendar, u"dNumOfDays").dword), days)
        << "the registry keeps it until the next save";
  }

  const std::u16string names[] = {u"CalTitlesOrder0", u"CalTitlesOrder1", u"CalTitlesOrder2",
                                  u"CalTitlesOrder3", u"CalTitlesOrder4", u"CalTitlesOrder5"};
  const std::uint32_t permuted[] = {5, 4, 3, 2, 1, 0};
  for (int i = 0; i < 6; ++i) Put(kCalendar, names[i], permuted[i]);
  Reload();
  EXPECT_EQ(store->CalTitlesOrder0, 5);
  EXPECT_EQ(store->CalTitlesOrder5, 0);

  const std::uint32_t repeated[] = {0, 1, 2, 3, 4, 4};
  for (int i = 0; i < 6; ++i) Put(kCalendar, names[i], repeated[i]);
  Reload();
  EXPECT_EQ(store->CalTitlesOrder4, 4);
  EXPECT_EQ(store->CalTitlesOrder5, 5);
  for (const auto& name : names) EXPECT_FALSE(Stored(kCalendar, name).present) << Show(name);
}

TEST_F(LoadSaveTest, PinnedMonthNeedsAHighEnoughItem) {
  Load();
  store->PinnedMonthlyClr = 1;
  store->dHeightLimit = ScaleX(200);
  Save();
  EXPECT_EQ(Stored(kCalendar, u"PinnedMonthlyClr").dword, 1u);
  store->dHeightLimit = ScaleX(199);
  Save();
  EXPECT_EQ(store->PinnedMonthlyClr, 0);
  EXPECT_FALSE(Stored(kCalendar, u"PinnedMonthlyClr").present);
}

TEST_F(LoadSaveTest, TodayItemStateIsReadButNeverWritten) {
  Put(kNotes, u"DisplayOnNotesTab", 2);
  Put(kNotes, u"NotesTab1Sort", 0);  // equal to its default, yet kept
  Put(kMain, u"NoteZoom", 150);
  WriteText(registry(), kCurrentUser, kMain, u"TasksSelCategory", u"Work");
  Load();
  EXPECT_EQ(store->DisplayOnNotesTab, 2);
  EXPECT_EQ(store->NoteZoom, 150);
  store->DisplayOnNotesTab = 7;
  store->NoteZoom = 100;
  store->TasksSelCategory.Assign(u"");
  Save();
  EXPECT_EQ(Stored(kNotes, u"DisplayOnNotesTab").dword, 2u);
  EXPECT_TRUE(Stored(kNotes, u"NotesTab1Sort").present);
  EXPECT_EQ(Stored(kMain, u"NoteZoom").dword, 150u);
  EXPECT_EQ(Stored(kMain, u"TasksSelCategory").text, u"Work");
}

TEST_F(LoadSaveTest, InstallFoldersComeFromTheTodayItemKey) {
  const std::u16string_view today = u"Software\\Microsoft\\today\\items\\Tidewell";
  WriteText(registry(), kLocalMachine, today, u"ProgramFiles", u"\\Programme");
  WriteText(registry(), kLocalMachine, today, u"InstallPath", u"\\Storage Card\\Apps");
  WriteText(registry(), kCurrentUser, u"Software\\WebIS\\PocketInformant", u"IconPath", u"\\PI\\Icons");
  Load();
  EXPECT_EQ(store->ProductFolder.View(), u"\\Programme\\Orvex\\Tidewell");
  EXPECT_EQ(store->InstallFolder.View(), u"\\Storage Card\\Apps\\Orvex\\Tidewell");
  EXPECT_EQ(store->SkinsFolder.View(), u"\\Storage Card\\Apps\\Orvex\\Tidewell\\Skins");
  EXPECT_EQ(store->TWFiltersFileFolder.View(), u"\\Programme\\Orvex\\Tidewell");
  EXPECT_EQ(store->PocketInformantIconsFolder.View(), u"\\PI\\Icons");
  EXPECT_TRUE(KeyExists(registry(), kLocalMachine, u"SOFTWARE\\Developer One, Inc.\\Agenda Fusion"))
      << "other vendors' keys are opened with create semantics";
}

// How much registry work one load and one save do: every loaded value is one
// query, and the save writes or deletes each saved value exactly once.
TEST_F(LoadSaveTest, LoadQueriesEachValueOnceAndSaveWritesEachOnce) {
  WriteText(registry(), kLocalMachine, u"Software\\Microsoft\\today\\items\\Tidewell", u"ProgramFiles",
            u"\\Program Files");
  for (const char16_t* tab : {u"Alpha", u"Beta"}) {
    Put(std::u16string(kTabs) + u"\\" + tab, u"Order", 7);
  }
  std::size_t loadedValues = 2 + 3;  // install folders, other vendors' folders
  std::size_t savedValues = 0;
  for (const KeySpec* key : ProductKeys()) {
    loadedValues += key->values.size() + 6 * key->fonts.size();
    for (const ValueSpec& value : key->values) savedValues += value.saved;
    savedValues += 6 * key->fonts.size();
  }
  loadedValues += 2 * HostedTabValues().size();
  savedValues += 2 * HostedTabValues().size();

  CountingRegistry counting(registry());
  LoadSettings(*store, Environment(counting));
  EXPECT_EQ(counting.counts.queries, static_cast<int>(loadedValues));
  EXPECT_EQ(counting.counts.opens, counting.counts.closes);
  RecordProperty("LoadQueries", counting.counts.queries);

  counting.Reset();
  SaveSettings(*store, Environment(counting));
  EXPECT_EQ(counting.counts.queries, 0);
  EXPECT_EQ(counting.counts.sets + counting.counts.deletes, static_cast<int>(savedValues));
  for (const auto& [name, writes] : counting.counts.writesByName)
    if (name != u"Enabled" && name != u"Dynamic" && name != u"Order" && name != u"Type" &&
        name != u"DLL" && name != u"InstallPath" && name != u"CustomIconName")
      EXPECT_EQ(writes, 1) << Show(name);
  EXPECT_EQ(counting.counts.opens, static_cast<int>(ProductKeys().size()) + 2);
  for (const KeySpec* key : ProductKeys()) EXPECT_EQ(counting.counts.opensByPath[key->path], 1) << Show(key->path);
  EXPECT_EQ(counting.counts.opens, counting.counts.closes);
  std::printf("load: %d queries for %zu values; save: %d opens, %d sets + %d deletes for %zu values, %d queries\n",
              static_cast<int>(loadedValues), loadedValues, counting.counts.opens, counting.counts.sets,
              counting.counts.deletes, savedValues, counting.counts.queries);
}

}  // namespace
}  // namespace tw::test
