#include <set>

#include "base/text.h"
#include "tests/support/settings_fixture.h"

namespace tw::test {
namespace {

const std::u16string_view kMain = kMainKey.path, kCalendar = kCalendarKey.path, kFonts = kFontsKey.path,
                          kTabs = kTabSettingsKey.path;

class LoadSaveTest : public SettingsTest {
 protected:
  void PutTab(std::u16string_view name, std::uint32_t order, std::uint32_t enabled) {
    Put(Tab(name), u"Order", order);
    Put(Tab(name), u"Enabled", enabled);
  }
  static std::u16string Tab(std::u16string_view name) {
    return std::u16string(kTabs) + u"\\" + std::u16string(name);
  }
  // A skin in the test folder, which the Today item key names as the install folder.
  void InstallSkin(std::u16string_view name, std::string_view ini) {
    WriteText(registry(), kLocalMachine, kTodayItem, u"InstallPath", Folder());
    std::u16string skin = Folder();
    for (auto part : {u"\\Orvex", u"\\Tidewell", u"\\Skins"}) files().MakeDirectory(skin += part);
    files().MakeDirectory(skin.append(u"\\").append(name));
    ASSERT_TRUE(files().WriteAll(skin + u"\\skin.ini", ini.data(), ini.size()));
  }

  static constexpr std::u16string_view kTodayItem = u"Software\\Microsoft\\today\\items\\Tidewell";
};

// The numbers a fresh device must start from, in load order, where they are
// not 0: written out here, not taken from the tables the loader uses.
constexpr const char* kNonZeroDefaults =
    "EnableSoundEffect=1 LockDpad=1 LockDpadHorizental=1 UseDoubleClickScroll=1 UseFullScrollings=1 NoteZoom=100 "
    "ActiveTab=1 TsksGrouping=15 TsksGroupingDirctn=1 TsksSrt1Dirctn=1 TsksSrt2=2 TsksSrt2Dirctn=1 TsksSrt3=5 "
    "TsksSrt3Dirctn=1 dHeightLimit=160 RemoveSeparatingLine=1 RefreshScreenWhenMin=1 dNumOfDays=7 DayTtlFrmt=1 "
    "TimeFormat=1 dDayBreaker=3 UseSmartFolding=1 TimelinesLength=18 TimelinesVertZ=1 TimelinesHorZ=1 "
    "IncludeYearlyCounters=1 LeadingRects=1 TimeLines=2 ShowTomorrowTtl=1 Conflicting=1 HideNoAppoDays=1 "
    "IncldTasksInCR=1 IncldOverDueTsksInCR=1 IncldFutureTsksInCR=1 IncludeTsksCheckBoxes=1 "
    "IncldPastCmpltdTsksInClndr=1 ShowActiveTsksOnCal=1 MonthlyStartDay=6 FirstWorkDay=6 MonthlyPopTimelines=2 "
    "MonthlyPopCatIcons=1 MonthlyPopIconsSize=6 CalTitlesOrder1=1 CalTitlesOrder2=2 CalTitlesOrder3=3 "
    "CalTitlesOrder4=4 CalTitlesOrder5=5 ApptDisplayFormat=7 ClrApptRightIcons=479 ClrTaskRightIcons=383 "
    "ShowMailCounterOnTtl=1 TsksDateFrmt=3 TsksLineBreaker=3 TsksUseSmartFolding=1 TasksRightIcons=383 "
    "IncludeCountersTsks=1 ConfirmTaskCompleteTsks=1 TsksCustomDateStruct=1 DisplayOnNotesTab=7 NotesTabGrouping=1 "
    "NotesBreakLineStyle=3 NotesIncldFoldBttns=1 NotesIncldCounters=1 MsgsMrkReadOnPrev=1 MsgsBreakLineStyle=3 "
    "MsgsIncldFoldBttns=1 MsgsIncldCounters=1 SEventDays=2 SEApptsDaySpan=30 HideABCVals=1 FontGnrlSize=12 "
    "FontGnrlTitlesSize=12 GeneralFontColor=-1 HighlightBgClr=-1 HighlightTextClr=-1 ShadowFontColor=-1 "
    "SeperatorLineClr=-1 TimeLinesBgClr=-1 TimeLinesDfltClr=-1 ClrBreakingLineClr=-1 ClrPopupClrBg=-1 ClrPopupCurr=-1 "
    "ClrPopupHighlight=-1 TskBreakingLineClr=-1 ClrStatusFree=-1 ClrStatusBusy=-1 ClrStatusTentative=-1 "
    "ClrStatusOutofoffice=-1 TasksTabEnabled=1 SEventsTabEnabled=1 NotesTabEnabled=1 MailTabEnabled=1 TasksTabOrder=2 "
    "NotesTabOrder=3 MailTabOrder=4 SEventsTabOrder=5 ";

TEST_F(LoadSaveTest, EmptyRegistryGivesDefaults) {
  Load();
  std::string nonZero;
  for (const KeySpec* key : ProductKeys())
    for (const ValueSpec& value : key->values) {
      if (value.kind == ValueKind::Text) continue;
      std::int32_t v = value.kind == ValueKind::Dword ? (*store).*value.dword : ((*store).*value.item).value;
      if (v != 0) nonZero += Utf16ToUtf8(value.name) + "=" + std::to_string(v) + " ";
    }
  EXPECT_EQ(nonZero, kNonZeroDefaults);
  EXPECT_EQ(store->SkinsFolder.View(), u"\\Program Files\\Orvex\\Tidewell\\Skins");
  EXPECT_EQ(store->ProductFolder.View(), u"\\Program Files\\Orvex\\Tidewell");
  EXPECT_EQ(store->FontCalPast.font.lfStrikeOut, 1);
  EXPECT_EQ(store->FontGeneral.font.lfQuality, 0);
  EXPECT_EQ(std::u16string_view(store->FontGeneral.font.lfFaceName), u"Tahoma");
  Use24HourClock(true);
  Reload();
  EXPECT_EQ(store->TimeFormat, 0) << "a 24-hour clock";
}

// Only what the saver judges differently from the loader is left behind:
// the skin name, every font's weight (always written) and the strike-out
// flag of a font whose saver default is not its loader's.
TEST_F(LoadSaveTest, SavingDefaultsLeavesOnlyTheDeliberateValues) {
  Load();
  Save();
  for (const KeySpec* key : ProductKeys()) {
    std::set<std::u16string> expected;
    if (key == &kMainKey) expected.insert(u"dSelectedSkin");
    for (const FontSpec& font : key->fonts) {
      expected.insert(font.name + std::u16string(u"lfWeight"));
      if (font.strikeOut != font.savedStrikeOut) expected.insert(font.name + std::u16string(u"lfStrikeOut"));
    }
    std::vector<std::u16string> names = ValueNames(registry(), kCurrentUser, key->path);
    EXPECT_EQ(std::set<std::u16string>(names.begin(), names.end()), expected) << Show(key->path);
  }
  EXPECT_EQ(Stored(kMain, u"dSelectedSkin").text, u"default");
  EXPECT_EQ(Stored(kFonts, u"FontGenerallfWeight").dword, 100u);
  EXPECT_EQ(Stored(kFonts, u"FontMsgsTitleslfWeight").dword, 700u);
  EXPECT_TRUE(Stored(kFonts, u"FontMailUnreadlfStrikeOut").present);
}

TEST_F(LoadSaveTest, ChangedValuesRoundTripAndEqualOnesAreDeleted) {
  Load();
  store->AdditionalFilterCat3.Assign(u"Geburtstag Привет");
  store->MsgsBreakLineStyle.value = 0;
  store->FontCalTentative.font.lfItalic = 1;
  store->FontCalTentative.color = 0x123456;
  store->dSelectedSkin.Assign(u"Default");  // the saver's default, though not the loader's
  Save();
  EXPECT_FALSE(Stored(kMain, u"dSelectedSkin").present);
  Reload();
  EXPECT_EQ(store->AdditionalFilterCat3.View(), u"Geburtstag Привет");
  EXPECT_EQ(store->MsgsBreakLineStyle.value, 0);
  EXPECT_EQ(store->FontCalTentative.font.lfItalic, 1);
  EXPECT_EQ(store->FontCalTentative.color, 0x123456);
  EXPECT_EQ(store->dSelectedSkin.View(), u"default");
  store->MsgsBreakLineStyle.value = store->MsgsBreakLineStyle.defaultValue;
  store->FontCalTentative.font.lfItalic = 0;
  Save();
  EXPECT_FALSE(Stored(kMessagesKey.path, u"MsgsBreakLineStyle").present);
  EXPECT_FALSE(Stored(kFonts, u"FontCalTentativelfItalic").present);
}

TEST_F(LoadSaveTest, VgaModeDoublesScaledDefaults) {
  Load();
  store->MyVgaMode = 1;
  Save();
  EXPECT_EQ(Stored(kMain, u"dHeightLimit").dword, 160u) << "unchanged, but no longer the default";
  EXPECT_EQ(Stored(kFonts, u"FontGenerallfHeight").dword, 12u);

  registry().DeleteTree(kCurrentUser, u"Software\\Orvex");
  Put(kMain, u"MyVgaMode", 1);
  Reload();
  EXPECT_EQ(store->dHeightLimit, 320);
  EXPECT_EQ(store->FontGeneral.font.lfHeight, 24);

  registry().DeleteTree(kCurrentUser, u"Software\\Orvex");
  dpi = 144;
  Reload();
  EXPECT_EQ(store->dHeightLimit, 240) << "the screen's dots per inch scale the defaults too";
  EXPECT_EQ(store->FontGeneral.font.lfHeight, 18);
}

// One or more values written to an empty tree, the record loaded, one field checked.
TEST_F(LoadSaveTest, LoadedValuesAreCheckedByTheirOwnRules) {
  const std::u16string kHosted = Tab(u"Hosted");
  struct Value {
    std::u16string_view path, name;
    std::uint32_t data;
  };
  const struct Case {
    std::vector<Value> values;
    std::int32_t (*field)(const SettingsStore&), expected;
    const char* why;
  } cases[] = {
#define FIELD(member) [](const SettingsStore& s) -> std::int32_t { return s.member; }
      {{{kFonts, u"FontGenerallfWeight", 400}}, FIELD(FontGeneral.font.lfWeight), 100, "neither 100 nor 700"},
      {{{kFonts, u"FontCalDayTitleslfWeight", 600}}, FIELD(FontCalDayTitles.font.lfWeight), 700, "bold by default"},
      {{{kFonts, u"FontCalPastlfStrikeOut", 2}}, FIELD(FontCalPast.font.lfStrikeOut), 0, "not the struck-out default"},
      {{{kFonts, u"FontGenerallfItalic", 5}}, FIELD(FontGeneral.font.lfItalic), 0, "neither 0 nor 1"},
      {{{kFonts, u"FontGenerallfHeight", 0xFFFFFFF1}}, FIELD(FontGeneral.font.lfHeight), -15, "any height"},
      {{{kMain, u"ForceClearType", 1}}, FIELD(FontGeneral.font.lfQuality), 5, "ClearType quality"},
      {{{kCalendar, u"dNumOfDays", 0}}, FIELD(dNumOfDays), 7, "no days"},
      {{{kCalendar, u"dNumOfDays", 31}}, FIELD(dNumOfDays), 7, "more than 30 days"},
      {{{kCalendar, u"dNumOfDays", 30}}, FIELD(dNumOfDays), 30, "30 days"},
      {{{kMain, u"ActiveTab", 5}}, FIELD(ActiveTab), 5, "special events"},
      {{{kMain, u"ActiveTab", 5}, {kTabs, u"SEventsTabEnabled", 0}}, FIELD(ActiveTab), 1, "a disabled tab"},
      {{{kMain, u"ActiveTab", 6}, {kHosted, u"Order", 6}, {kHosted, u"Enabled", 1}}, FIELD(ActiveTab), 1,
       "an enabled hosted tab"},
#undef FIELD
  };
  for (const Case& c : cases) {
    registry().DeleteTree(kCurrentUser, u"Software\\Orvex");
    for (const Value& v : c.values) Put(v.path, v.name, v.data);
    Reload();
    EXPECT_EQ(c.field(*store), c.expected) << Show(c.values[0].name) << " " << c.values[0].data << ": " << c.why;
  }
}

TEST_F(LoadSaveTest, ARepeatedTitlePositionResetsTheOrder) {
  auto putOrder = [&](std::vector<std::uint32_t> order) {
    for (int i = 0; i < 6; ++i) Put(kCalendar, FormatText(u"CalTitlesOrder%d", {i}), order[i]);
    Reload();
  };
  putOrder({5, 4, 3, 2, 1, 0});
  EXPECT_EQ(store->CalTitlesOrder0, 5);
  EXPECT_EQ(store->CalTitlesOrder5, 0);
  putOrder({0, 1, 2, 3, 4, 4});
  EXPECT_EQ(store->CalTitlesOrder5, 5) << "a repeated position resets the order";
  for (int i = 0; i < 6; ++i) EXPECT_FALSE(Stored(kCalendar, FormatText(u"CalTitlesOrder%d", {i})).present) << i;
}

TEST_F(LoadSaveTest, SaveRewritesHostedTabsButKeepsContacts) {
  PutTab(u"contacts", 6, 1);  // the key the Today item opens as "Contacts"
  PutTab(u"Old", 7, 1);
  Put(Tab(u"Old\\Deeper"), u"X", 1);
  Load();
  ASSERT_EQ(store->tabs.size(), 2u);
  store->tabs.erase(store->tabs.begin() + 1);  // "Old" removed on the Tabs page
  store->tabs.emplace_back().name.Assign(u"New");  // all defaults: an empty subkey
  Save();
  EXPECT_EQ(SubkeyNames(registry(), kCurrentUser, kTabs), (std::vector<std::u16string>{u"contacts", u"New"}));
  EXPECT_TRUE(ValueNames(registry(), kCurrentUser, Tab(u"New")).empty());
  EXPECT_EQ(Stored(Tab(u"Contacts"), u"Order").dword, 6u);
  store->tabs.clear();
  Save();
  EXPECT_EQ(SubkeyNames(registry(), kCurrentUser, kTabs), std::vector<std::u16string>{u"contacts"})
      << "Contacts survives even when the record no longer lists it";
}

// Import reloads the record it already holds: nothing may pile up or stay behind.
TEST_F(LoadSaveTest, LoadingAgainIntoTheSameRecordStartsClean) {
  PutTab(u"Weather", 6, 1);
  PutText(kMain, u"dSelectedSkin", u"Night");
  InstallSkin(u"Night", "\"shadow\"=\"glow\"\r\n");
  Load();
  ASSERT_EQ(store->skin.textEffect[0], SkinColors::kEffectGlow);
  PutText(kMain, u"dSelectedSkin", u"Plain");
  Load();
  EXPECT_EQ(store->tabs.size(), 1u);
  EXPECT_EQ(store->MsgsBreakLineStyle.name.View(), u"MsgsBreakLineStyle");
  EXPECT_EQ(store->skin.textEffect[0], SkinColors::kEffectNone) << "the skin is read afresh";
}

}  // namespace
}  // namespace tw::test
