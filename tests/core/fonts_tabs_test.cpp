#include "tests/support/settings_fixture.h"

namespace tw::test {
namespace {

class FontRecordTest : public SettingsTest {};

TEST_F(FontRecordTest, OutOfRangeFieldsFallBackByTheirOwnRules) {
  Put(kFonts, u"FontGenerallfWeight", 400);
  Put(kFonts, u"FontCalDayTitleslfWeight", 600);
  Put(kFonts, u"FontMailReadlfWeight", 700);
  Put(kFonts, u"FontCalPastlfStrikeOut", 2);
  Put(kFonts, u"FontGenerallfItalic", 5);
  Put(kFonts, u"FontGenerallfUnderline", 1);
  Put(kFonts, u"FontGenerallfHeight", static_cast<std::uint32_t>(-15));
  Put(kFonts, u"FontGenerallfColor", 0x0000FF);
  Put(kMain, u"ForceClearType", 1);
  WriteText(registry(), kCurrentUser, kMain, u"FontFaceToUse", u"Verdana");
  Load();
  EXPECT_EQ(store->FontGeneral.font.lfWeight, 100) << "400 is neither 100 nor 700";
  EXPECT_EQ(store->FontCalDayTitles.font.lfWeight, 700) << "bold by default";
  EXPECT_EQ(store->FontMailRead.font.lfWeight, 700);
  EXPECT_EQ(store->FontCalPast.font.lfStrikeOut, 0) << "2 gives 0, not the struck-out default";
  EXPECT_EQ(store->FontCalCompleted.font.lfStrikeOut, 1) << "missing gives the default";
  EXPECT_EQ(store->FontGeneral.font.lfItalic, 0);
  EXPECT_EQ(store->FontGeneral.font.lfUnderline, 1);
  EXPECT_EQ(store->FontGeneral.font.lfHeight, -15);
  EXPECT_EQ(store->FontGeneral.color, 0x0000FF);
  EXPECT_EQ(store->FontGeneral.font.lfQuality, 5);
  EXPECT_EQ(std::u16string_view(store->FontSEFilter4.font.lfFaceName), u"Verdana");
}

TEST_F(FontRecordTest, StrikeOutIsSavedAgainstTheSaversDefault) {
  Load();
  store->FontCalPast.font.lfStrikeOut = 0;
  store->FontGeneral.font.lfStrikeOut = 1;
  store->FontMailUnread.font.lfStrikeOut = 1;
  Save();
  EXPECT_EQ(Stored(kFonts, u"FontCalPastlfStrikeOut").dword, 0u);
  EXPECT_EQ(Stored(kFonts, u"FontGenerallfStrikeOut").dword, 1u);
  EXPECT_FALSE(Stored(kFonts, u"FontCalCompletedlfStrikeOut").present);
  // The unread-mail font's flag is deleted, so it comes back not struck out.
  EXPECT_FALSE(Stored(kFonts, u"FontMailUnreadlfStrikeOut").present);
  Reload();
  EXPECT_EQ(store->FontMailUnread.font.lfStrikeOut, 0);
  EXPECT_EQ(store->FontCalPast.font.lfStrikeOut, 0);
  EXPECT_EQ(store->FontGeneral.font.lfStrikeOut, 1);
}

class TabSettingsTest : public SettingsTest {
 protected:
  void PutTab(const std::u16string& name, std::uint32_t order, std::uint32_t enabled) {
    Put(std::u16string(kTabs) + u"\\" + name, u"Order", order);
    Put(std::u16string(kTabs) + u"\\" + name, u"Enabled", enabled);
  }
};

TEST_F(TabSettingsTest, HostedTabsLoadInEnumerationOrder) {
  PutTab(u"Weather", 6, 1);
  PutTab(u"Battery", 7, 0);
  WriteText(registry(), kCurrentUser, std::u16string(kTabs) + u"\\Weather", u"DLL", u"\\Windows\\wx.dll");
  Load();
  ASSERT_EQ(store->tabs.size(), 2u);
  EXPECT_EQ(store->tabs[0].name.View(), u"Battery");
  EXPECT_EQ(store->tabs[1].name.View(), u"Weather");
  EXPECT_EQ(store->tabs[1].library.View(), u"\\Windows\\wx.dll");
  EXPECT_EQ(store->tabs[1].order, 6);
  EXPECT_EQ(store->tabs[0].dynamic, 1);
  EXPECT_EQ(store->TasksTabOrder, 2);
  EXPECT_EQ(store->SEventsTabOrder, 5);
}

TEST_F(TabSettingsTest, AHostedOrderBelowTwoRenumbersTheTabs) {
  PutTab(u"A", 1, 1);
  PutTab(u"B", 8, 1);
  Put(kTabs, u"NotesTabOrder", 0);
  Load();
  EXPECT_EQ(store->TasksTabOrder, 2);
  EXPECT_EQ(store->SEventsTabOrder, 3);
  EXPECT_EQ(store->tabs[0].order, 4);
  EXPECT_EQ(store->tabs[1].order, 5);
  EXPECT_EQ(store->NotesTabOrder, 0) << "Notes and Messages orders are not checked";
}

TEST_F(TabSettingsTest, ActiveTabMustBeAnEnabledBuiltInTab) {
  Put(kMain, u"ActiveTab", 5);  // special events
  Load();
  EXPECT_EQ(store->ActiveTab, 5);

  Put(kTabs, u"SEventsTabEnabled", 0);
  Reload();
  EXPECT_EQ(store->ActiveTab, 1) << "disabled tab";

  Put(kTabs, u"SEventsTabEnabled", 1);
  Put(kMain, u"ActiveTab", 6);
  PutTab(u"Hosted", 6, 1);
  Reload();
  EXPECT_EQ(store->ActiveTab, 1) << "an enabled hosted tab does not stay active";
}

TEST_F(TabSettingsTest, SaveRewritesHostedTabsButKeepsContacts) {
  PutTab(u"Contacts", 6, 1);
  PutTab(u"Old", 7, 1);
  Put(std::u16string(kTabs) + u"\\Old\\Deeper", u"X", 1);
  Load();
  ASSERT_EQ(store->tabs.size(), 2u);
  store->tabs.erase(store->tabs.begin() + 1);  // "Old" removed on the Tabs page
  TabEntry& added = store->tabs.emplace_back();
  added.name.Assign(u"New");  // all defaults: an empty subkey
  store->TasksTabEnabled = 0;
  Save();
  EXPECT_EQ(SubkeyNames(registry(), kCurrentUser, kTabs), (std::vector<std::u16string>{u"Contacts", u"New"}));
  EXPECT_TRUE(ValueNames(registry(), kCurrentUser, std::u16string(kTabs) + u"\\New").empty());
  EXPECT_EQ(Stored(std::u16string(kTabs) + u"\\Contacts", u"Order").dword, 6u);
  EXPECT_EQ(Stored(kTabs, u"TasksTabEnabled").dword, 0u);

  store->tabs.clear();
  Save();
  EXPECT_EQ(SubkeyNames(registry(), kCurrentUser, kTabs), std::vector<std::u16string>{u"Contacts"})
      << "Contacts survives even when the record no longer lists it";
}

}  // namespace
}  // namespace tw::test
