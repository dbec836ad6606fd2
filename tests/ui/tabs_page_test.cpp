// The Tabs page and the plug-in chooser driven as a user would: rows chosen
// and moved, plug-ins added and removed through the chooser; then Done and
// the registry checked, the Today screen's items included.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "controls/plugin_chooser.h"
#include "data/hosted_tabs.h"
#include "pages/tabs_page.h"
#include "platform/win32/win32_registry.h"
#include "resources/resource_ids.h"
#include "tests/ui/dialog_driver.h"
#include "tests/ui/row_page_test.h"

namespace tw::test {
namespace {

constexpr int kTabsSlot = 9;
constexpr char16_t kTabSettings[] = u"Software\\Orvex\\Tidewell\\TabSettings\\";
constexpr WPARAM kTodayItemsChanged = 0xF2;
using T = TabsPage;
using S = SettingsStore;
using Rows = std::vector<std::u16string>;

std::u16string TodayItem(std::u16string_view name) {
  return std::u16string(kTodayItemsKey) + u"\\" + std::u16string(name);
}

class TabsTest : public RowPageTest<TabsPage, kTabsSlot> {
 protected:
  void SetUp() override {
    RowPageTest::SetUp();
    AddTodayItem(u"TwTest Clock", 4, 1);
    AddTodayItem(u"TwTest Weather", 4, 0);
    AddTodayItem(u"TwTest Date", 0, 1);
    AddTodayItem(u"Tidewell", 4, 1);  // this product's own item; the platform clears it
  }
  void TearDown() override {
    for (auto name : {u"TwTest Clock", u"TwTest Weather", u"TwTest Date"})
      registry().DeleteTree(kLocalMachine, TodayItem(name));
    RowPageTest::TearDown();
  }
  void AddTodayItem(std::u16string_view name, std::uint32_t type, std::uint32_t enabled) {
    WriteDword(registry(), kLocalMachine, TodayItem(name), u"Type", type);
    WriteDword(registry(), kLocalMachine, TodayItem(name), u"Enabled", enabled);
    WriteText(registry(), kLocalMachine, TodayItem(name), u"DLL", u"\\Windows\\" + std::u16string(name) + u".dll");
  }
  std::uint32_t TodayItemEnabled(std::u16string_view name) {
    return ReadValue(registry(), kLocalMachine, TodayItem(name), u"Enabled").dword;
  }
  // A hosted tab in the record, before the page is made from it.
  void AddHostedTab(std::u16string_view name, std::int32_t order, std::int32_t dynamic = 1, std::int32_t type = 0) {
    TabEntry& tab = Settings().tabs.emplace_back();
    tab.name.Assign(name);
    tab.order = order, tab.dynamic = dynamic, tab.type = type, tab.enabled = 1;
  }
  // A saved value of a hosted tab; absent when at its default.
  StoredValue Hosted(std::u16string_view name, std::u16string_view value) {
    return ReadValue(registry(), kCurrentUser, kTabSettings + std::u16string(name), value);
  }

  HWND Control(T::Control control) { return Page()->Window(control); }
  void Press(T::Control button) { RowPageTest::Press(Control(button)); }
  bool Shown(T::Control control) { return IsWindowVisible(Control(control)) != FALSE; }
  bool Enabled(T::Control control) { return IsWindowEnabled(Control(control)) != FALSE; }
  Rows ListedRows() {
    Rows rows;
    for (int row = 0; row < ListViewCount(Control(T::kTabList)); ++row)
      rows.push_back(ListViewRowText(Control(T::kTabList), row));
    return rows;
  }
  void Choose(int row) { ListViewSelect(Control(T::kTabList), row); }
  void Choose(std::u16string_view name) {
    Rows rows = ListedRows();
    auto found = std::find(rows.begin(), rows.end(), name);
    ASSERT_NE(found, rows.end()) << Show(name);
    Choose(int(found - rows.begin()));
  }
  int Chosen() { return ListViewSelection(Control(T::kTabList)); }
  // Add, with the chooser played: `name` chosen, then Done.
  void Add(const wchar_t* name) {
    Then(IDC_PLUGIN_LIST, [name](HWND dialog) {
      LRESULT at = SendDlgItemMessageW(dialog, IDC_PLUGIN_LIST, CB_FINDSTRINGEXACT, WPARAM(-1), LPARAM(name));
      ASSERT_GE(at, 0) << "not offered";
      SendDlgItemMessageW(dialog, IDC_PLUGIN_LIST, CB_SETCURSEL, at, 0);
      TapMenuBar(dialog, IDOK);
    });
    PlaySteps([&] { Press(T::kAdd); });
  }
};

// Tabs of one number list in the fixed order, hosted ones last; a tab
// numbered 1000 or more is not listed. Done numbers the list from 2.
TEST_F(TabsTest, ListFollowsTheOrdersAndMovesRenumberTheTabs) {
  Start();
  S& record = Settings();
  record.SEventsTabOrder = 2, record.NotesTabOrder = 2, record.TasksTabOrder = 5, record.MailTabOrder = 9;
  AddHostedTab(u"TwTest Clock", 2);
  AddHostedTab(u"TwTest Far", 1000);
  OpenPage();
  EXPECT_EQ(ListedRows(), (Rows{u"Special Events", u"Notes", u"TwTest Clock", u"Tasks", u"Messages"}));

  Choose(0);
  SetChecked(Control(T::kShowTab), false);  // goes with its row, not its place
  Press(T::kUp);
  EXPECT_EQ(ListedRows()[0], u"Special Events") << "never past the top";
  Press(T::kDown);
  Press(T::kDown);
  EXPECT_EQ(ListedRows(), (Rows{u"Notes", u"TwTest Clock", u"Special Events", u"Tasks", u"Messages"}));
  EXPECT_EQ(Chosen(), 2) << "the selection follows the row";
  Choose(4);
  Press(T::kDown);
  EXPECT_EQ(ListedRows()[4], u"Messages") << "never past the end";

  Command(IDOK);
  EXPECT_EQ(Saved(&S::NotesTabOrder), 2);
  EXPECT_EQ(Hosted(u"TwTest Clock", u"Order").dword, 3u);
  EXPECT_EQ(Saved(&S::SEventsTabOrder), 4);
  EXPECT_EQ(Saved(&S::TasksTabOrder), 5);
  EXPECT_EQ(Saved(&S::MailTabOrder), 6);
  EXPECT_EQ(Hosted(u"TwTest Far", u"Order").dword, 1000u) << "an unlisted tab keeps its number";
  EXPECT_EQ(Saved(&S::SEventsTabEnabled), 0);
  EXPECT_EQ(Saved(&S::NotesTabEnabled), 1);
}

// A row's settings are found by its text under every rule: a plug-in named
// "Tasks" shows its choice and the Tasks tab's heading, and both store.
TEST_F(TabsTest, RowsShowAndStoreTheirTabsSettings) {
  Start();
  AddHostedTab(u"TwTest Clock", 6, 1, 2);
  AddHostedTab(u"Tasks", 7, 0);
  Settings().TasksTabEnabled = 0;
  OpenPage();
  EXPECT_EQ(GetText(Control(T::kHeading)), u"Settnings for __ tab");
  EXPECT_FALSE(Shown(T::kHeading) || Shown(T::kShowTab) || Shown(T::kOpenAs));
  EXPECT_TRUE(Enabled(T::kAdd));
  EXPECT_FALSE(Enabled(T::kRemove));

  Choose(u"Special Events");
  EXPECT_EQ(GetText(Control(T::kHeading)), English(40747));
  EXPECT_TRUE(Shown(T::kShowTab) && IsChecked(Control(T::kShowTab)));
  EXPECT_FALSE(Shown(T::kOpenAsLabel) || Shown(T::kOpenAs)) << "built-in tabs have no choice";
  EXPECT_FALSE(Enabled(T::kRemove));
  SetChecked(Control(T::kShowTab), false);

  Choose(u"TwTest Clock");
  EXPECT_EQ(GetText(Control(T::kHeading)), u"Settings for the TwTest Clock tab");
  EXPECT_TRUE(Shown(T::kOpenAsLabel) && Shown(T::kOpenAs));
  EXPECT_EQ(ComboSelection(Control(T::kOpenAs)), 2);
  EXPECT_TRUE(Enabled(T::kRemove));
  ComboSelect(Control(T::kOpenAs), 1);
  SetChecked(Control(T::kShowTab), false);

  Choose(5);  // the plug-in named "Tasks"
  EXPECT_EQ(GetText(Control(T::kHeading)), English(40748));
  EXPECT_TRUE(Shown(T::kOpenAs));
  EXPECT_FALSE(IsChecked(Control(T::kShowTab))) << "the Tasks tab's box, which comes last";
  EXPECT_FALSE(Enabled(T::kRemove)) << "a hosted tab not marked removable";
  SetChecked(Control(T::kShowTab), true);

  Choose(u"Messages");
  EXPECT_EQ(GetText(Control(T::kHeading)), u"Settings for the Messages tab");
  EXPECT_FALSE(Shown(T::kOpenAs));
  Command(IDOK);
  EXPECT_EQ(Saved(&S::SEventsTabEnabled), 0);
  EXPECT_EQ(Saved(&S::TasksTabEnabled), 1);
  EXPECT_EQ(Saved(&S::MailTabEnabled), 1);
  EXPECT_FALSE(Hosted(u"TwTest Clock", u"Enabled").present) << "off, the default";
  EXPECT_EQ(Hosted(u"TwTest Clock", u"Type").dword, 1u);
  EXPECT_EQ(Hosted(u"Tasks", u"Enabled").dword, 1u) << "stored by both rules";
}

TEST_F(TabsTest, PluginsAreAddedAndRemovedThroughTheChooser) {
  DesktopListener todayScreen(kTodayItemsChanged);
  OpenPage();
  Then(IDC_PLUGIN_LIST, [](HWND dialog) {
    std::vector<std::wstring> offered;
    for (int i = 0; i < int(SendDlgItemMessageW(dialog, IDC_PLUGIN_LIST, CB_GETCOUNT, 0, 0)); ++i) {
      wchar_t name[256] = {};
      SendDlgItemMessageW(dialog, IDC_PLUGIN_LIST, CB_GETLBTEXT, i, LPARAM(name));
      offered.push_back(name);
    }
    auto has = [&](const wchar_t* name) { return std::count(offered.begin(), offered.end(), name) == 1; };
    EXPECT_TRUE(has(L"TwTest Clock") && has(L"TwTest Weather"));
    EXPECT_FALSE(has(L"TwTest Date")) << "not a plug-in library";
    EXPECT_FALSE(has(L"Tidewell")) << "this product's own item";
    EXPECT_EQ(SendDlgItemMessageW(dialog, IDC_PLUGIN_LIST, CB_GETCURSEL, 0, 0), 0);
    EXPECT_EQ(ItemText(dialog, IDC_PLUGIN_LABEL), EnglishText(40838));
    TapMenuBar(dialog, IDM_CANCEL);
  });
  PlaySteps([&] { Press(T::kAdd); });
  const Rows builtIn = ListedRows();

  answerer_.AnswerYesNo(IDNO);
  Add(L"TwTest Clock");
  ASSERT_FALSE(answerer_.boxes.empty());
  EXPECT_EQ(answerer_.boxes.back().text, EnglishText(40736));
  EXPECT_EQ(ListedRows(), builtIn) << "declined: nothing added";
  EXPECT_EQ(TodayItemEnabled(u"TwTest Clock"), 1u);
  EXPECT_EQ(todayScreen.Received(), 0);

  answerer_.AnswerYesNo(IDYES);
  Add(L"TwTest Clock");
  EXPECT_EQ(TodayItemEnabled(u"TwTest Clock"), 0u);
  EXPECT_EQ(todayScreen.Received(), 1) << "the Today screen drops the item";
  ASSERT_EQ(ListedRows().size(), builtIn.size() + 1);
  EXPECT_EQ(ListedRows().back(), u"TwTest Clock");
  EXPECT_EQ(Chosen(), int(builtIn.size()));
  EXPECT_TRUE(Enabled(T::kRemove));

  std::size_t boxes = answerer_.boxes.size();
  Add(L"TwTest Clock");
  ASSERT_EQ(answerer_.boxes.size(), boxes + 1) << "switched off already: only the refusal";
  EXPECT_EQ(answerer_.boxes.back().text, EnglishText(40749));
  Add(L"TwTest Weather");
  EXPECT_EQ(answerer_.boxes.size(), boxes + 1) << "not on the Today screen: no question";
  EXPECT_EQ(todayScreen.Received(), 1);

  Choose(u"TwTest Clock");
  Press(T::kRemove);
  Rows rows = ListedRows();
  EXPECT_EQ(std::count(rows.begin(), rows.end(), u"TwTest Clock"), 0);
  EXPECT_FALSE(Enabled(T::kRemove) || Shown(T::kHeading));
  Command(IDOK);
  EXPECT_FALSE(Hosted(u"TwTest Clock", u"DLL").present);
  EXPECT_EQ(Hosted(u"TwTest Weather", u"DLL").text, u"\\Windows\\TwTest Weather.dll");
  EXPECT_EQ(Hosted(u"TwTest Weather", u"Enabled").dword, 1u);
  EXPECT_EQ(TodayItemEnabled(u"TwTest Clock"), 0u) << "removing the tab does not bring the item back";
}

TEST_F(TabsTest, PageFitsEveryScreenInEnglishAndGerman) {
  auto open = [&] {
    AddHostedTab(u"TwTest Clock", 6);
    OpenPage();
  };
  auto show = [&](int shot) {
    if (shot == 1) Choose(u"TwTest Clock");
    if (shot == 2) Choose(u"Special Events");
  };
  CheckEveryScreen(L"tabs", 3, open, show);
  WriteText(registry(), kCurrentUser, kProductKey, u"SelectedLangResFile",
            std::u16string(Settings().InstallFolder.View()) + u"\\LangRes\\CPDeuRc.dll");
  CheckEveryScreen(L"tabs-de", 3, open, show);
}

class PluginChooserTest : public DialogTest {};

TEST_F(PluginChooserTest, FitsEveryScreenInEnglishAndGerman) {
  Win32Registry registry;
  std::u16string chosen;
  auto open = [&] { ChoosePlugin(owner_, resources_, language_, registry, chosen); };
  OnEveryScreen(IDC_PLUGIN_LIST, L"plugin-chooser", open);
  language_ = LoadLibraryW(TW_LIBRARY_FOLDER L"\\LangRes\\CPDeuRc.dll");
  ASSERT_NE(language_, nullptr);
  OnEveryScreen(IDC_PLUGIN_LIST, L"plugin-chooser-de", open);
}

}  // namespace
}  // namespace tw::test
