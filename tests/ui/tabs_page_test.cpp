// The Tabs page and the plug-in chooser driven as a user would; then Done
// and the registry checked, the Today screen's items included.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "controls/plugin_chooser.h"
#include "data/hosted_tabs.h"
#include "pages/tabs_page.h"
#include "platform/win32/win32_registry.h"
#include "resources/resource_ids.h"
#include "tests/ui/dialog_driver.h"
#include "tests/ui/row_page_test.h"

namespace tw::test {
namespace {

using T = TabsPage;
using S = SettingsStore;
using Rows = std::vector<std::u16string>;

std::u16string Item(std::u16string_view name) { return std::u16string(kTodayItemsKey) + u"\\" + std::u16string(name); }

class TabsTest : public RowPageTest<TabsPage, 9> {
 protected:
  // Two plug-ins, one shown on the Today screen; an item of another type;
  // this product's own item, which the platform clears.
  void SetUp() override {
    RowPageTest::SetUp();
    for (auto [name, type, enabled] : {std::tuple{u"TwTest Clock", 4u, 1u}, {u"TwTest Weather", 4u, 0u},
                                       {u"TwTest Date", 0u, 1u}, {u"Tidewell", 4u, 1u}}) {
      WriteDword(registry(), kLocalMachine, Item(name), u"Type", type);
      WriteDword(registry(), kLocalMachine, Item(name), u"Enabled", enabled);
      WriteText(registry(), kLocalMachine, Item(name), u"DLL", u"\\Windows\\" + std::u16string(name) + u".dll");
    }
  }
  void TearDown() override {
    for (auto name : {u"TwTest Clock", u"TwTest Weather", u"TwTest Date"}) registry().DeleteTree(kLocalMachine, Item(name));
    RowPageTest::TearDown();
  }
  std::uint32_t ItemEnabled(std::u16string_view name) {
    return ReadValue(registry(), kLocalMachine, Item(name), u"Enabled").dword;
  }
  void AddHostedTab(std::u16string_view name, std::int32_t order, std::int32_t dynamic = 1, std::int32_t type = 0) {
    TabEntry& tab = Settings().tabs.emplace_back();
    tab.name.Assign(name);
    tab.order = order, tab.dynamic = dynamic, tab.type = type, tab.enabled = 1;
  }
  StoredValue Hosted(std::u16string_view name, std::u16string_view value) {
    return Stored(u"Software\\Orvex\\Tidewell\\TabSettings\\" + std::u16string(name), value);
  }
  HWND At(T::Control control) { return Page()->Window(control); }
  bool Shown(T::Control control) { return IsWindowVisible(At(control)); }
  std::u16string Heading() { return GetText(At(T::kHeading)); }
  Rows Listed() {
    Rows rows;
    for (int row = 0; row < ListViewCount(At(T::kTabList)); ++row) rows.push_back(ListViewRowText(At(T::kTabList), row));
    return rows;
  }
  void Choose(int row) { ListViewSelect(At(T::kTabList), row); }
  void Choose(std::u16string_view name) {
    Rows rows = Listed();
    Choose(int(std::find(rows.begin(), rows.end(), name) - rows.begin()));
  }
  int Chosen() { return ListViewSelection(At(T::kTabList)); }
  // Add, with `name` chosen in the chooser and Done tapped.
  void Add(const wchar_t* name) {
    Then(IDC_PLUGIN_LIST, [name](HWND dialog) {
      LRESULT at = SendDlgItemMessageW(dialog, IDC_PLUGIN_LIST, CB_FINDSTRINGEXACT, WPARAM(-1), LPARAM(name));
      SendDlgItemMessageW(dialog, IDC_PLUGIN_LIST, CB_SETCURSEL, at, 0);
      TapMenuBar(dialog, IDOK);
    });
    PlaySteps([&] { Press(At(T::kAdd)); });
  }
};

// Tabs of one number list in the fixed order, hosted ones last; one numbered
// 1000 is not listed. A row's settings are found by its text under every
// rule: a plug-in named "Tasks" shows its choice, then the Tasks tab's
// heading and box, and stores into both. Moves take a row's settings along;
// Done numbers the rows from 2.
TEST_F(TabsTest, RowsFollowTheOrdersKeepTheirSettingsAndAreRenumbered) {
  Start();
  S& record = Settings();
  record.SEventsTabOrder = 2, record.NotesTabOrder = 2, record.TasksTabOrder = 5, record.MailTabOrder = 9;
  record.TasksTabEnabled = 0;
  AddHostedTab(u"TwTest Clock", 2, 1, 2);
  AddHostedTab(u"Tasks", 7, 0);
  AddHostedTab(u"TwTest Far", 1000);
  OpenPage();
  EXPECT_EQ(Listed(), (Rows{u"Special Events", u"Notes", u"TwTest Clock", u"Tasks", u"Tasks", u"Messages"}));
  EXPECT_EQ(Heading(), u"Settnings for __ tab");
  EXPECT_FALSE(Shown(T::kHeading) || Shown(T::kShowTab) || IsWindowEnabled(At(T::kRemove)));

  Choose(0);
  EXPECT_EQ(Heading(), English(40747));
  EXPECT_TRUE(Shown(T::kShowTab) && !Shown(T::kOpenAs) && !IsWindowEnabled(At(T::kRemove)));
  SetChecked(At(T::kShowTab), false);
  for (T::Control button : {T::kUp, T::kDown, T::kDown}) Press(At(button));
  EXPECT_EQ(Listed(), (Rows{u"Notes", u"TwTest Clock", u"Special Events", u"Tasks", u"Tasks", u"Messages"}));
  EXPECT_EQ(Chosen(), 2) << "the selection follows the row, never past the top";
  Choose(1);
  EXPECT_EQ(Heading(), u"Settings for the TwTest Clock tab");
  EXPECT_TRUE(Shown(T::kOpenAs) && IsWindowEnabled(At(T::kRemove)));
  EXPECT_TRUE(IsChecked(At(T::kShowTab))) << "the plug-in is shown";
  EXPECT_EQ(ComboSelection(At(T::kOpenAs)), 2);
  ComboSelect(At(T::kOpenAs), 1);
  Choose(4);  // the plug-in named "Tasks"
  EXPECT_EQ(Heading(), English(40748));
  EXPECT_TRUE(Shown(T::kOpenAs) && !IsChecked(At(T::kShowTab)));
  EXPECT_FALSE(IsWindowEnabled(At(T::kRemove))) << "a hosted tab not marked removable";
  SetChecked(At(T::kShowTab), true);
  Choose(5);
  EXPECT_EQ(Heading(), u"Settings for the Messages tab");
  Press(At(T::kDown));
  EXPECT_EQ(Listed()[5], u"Messages") << "never past the end";

  Command(IDOK);
  EXPECT_EQ(Saved(&S::NotesTabOrder), 2);
  EXPECT_EQ(Hosted(u"TwTest Clock", u"Order").dword, 3u);
  EXPECT_EQ(Saved(&S::SEventsTabOrder), 4);
  EXPECT_EQ(Saved(&S::TasksTabOrder), 6);
  EXPECT_EQ(Saved(&S::MailTabOrder), 7);
  EXPECT_EQ(Hosted(u"TwTest Far", u"Order").dword, 1000u);
  EXPECT_EQ(Saved(&S::SEventsTabEnabled), 0);
  EXPECT_EQ(Saved(&S::NotesTabEnabled), 1);
  EXPECT_EQ(Saved(&S::TasksTabEnabled), 1);
  EXPECT_EQ(Hosted(u"Tasks", u"Enabled").dword, 1u);
  EXPECT_EQ(Hosted(u"TwTest Clock", u"Type").dword, 1u);
}

TEST_F(TabsTest, PluginsAreAddedAndRemovedThroughTheChooser) {
  TodayScreenListener todayScreen;
  OpenPage();
  Then(IDC_PLUGIN_LIST, [](HWND dialog) {
    auto offered = [&](const wchar_t* name) {
      return SendDlgItemMessageW(dialog, IDC_PLUGIN_LIST, CB_FINDSTRINGEXACT, WPARAM(-1), LPARAM(name)) >= 0;
    };
    EXPECT_TRUE(offered(L"TwTest Clock") && offered(L"TwTest Weather"));
    EXPECT_FALSE(offered(L"TwTest Date") || offered(L"Tidewell")) << "another type; this product";
    EXPECT_EQ(SendDlgItemMessageW(dialog, IDC_PLUGIN_LIST, CB_GETCURSEL, 0, 0), 0);
    TapMenuBar(dialog, IDM_CANCEL);
  });
  PlaySteps([&] { Press(At(T::kAdd)); });
  const Rows builtIn = Listed();
  answerer_.AnswerYesNo(IDNO);
  Add(L"TwTest Clock");
  EXPECT_EQ(answerer_.Seen().back(), EnglishText(40737) + L": " + EnglishText(40736));
  EXPECT_EQ(Listed(), builtIn) << "declined: nothing added";
  EXPECT_EQ(ItemEnabled(u"TwTest Clock"), 1u);

  answerer_.AnswerYesNo(IDYES);
  Add(L"TwTest Clock");
  EXPECT_EQ(ItemEnabled(u"TwTest Clock"), 0u);
  EXPECT_EQ(todayScreen.Received(), 1) << "the Today screen drops the item";
  EXPECT_EQ(Listed().back(), u"TwTest Clock");
  EXPECT_EQ(Chosen(), int(builtIn.size()));
  Add(L"TwTest Clock");
  EXPECT_EQ(answerer_.Seen().back(), EnglishText(40750) + L": " + EnglishText(40749));
  Add(L"TwTest Weather");
  EXPECT_EQ(Listed().size(), builtIn.size() + 2) << "off the Today screen: added without a question";
  EXPECT_EQ(answerer_.boxes.size(), 3u);

  Choose(u"TwTest Clock");
  Press(At(T::kRemove));
  EXPECT_EQ(Listed(), (Rows{builtIn[0], builtIn[1], builtIn[2], builtIn[3], u"TwTest Weather"}));
  EXPECT_FALSE(IsWindowEnabled(At(T::kRemove)) || Shown(T::kHeading));
  Command(IDOK);
  EXPECT_FALSE(Hosted(u"TwTest Clock", u"DLL").present);
  EXPECT_EQ(Hosted(u"TwTest Weather", u"DLL").text, u"\\Windows\\TwTest Weather.dll");
  EXPECT_EQ(ItemEnabled(u"TwTest Clock"), 0u) << "removing the tab leaves the item off";
}

TEST_F(TabsTest, PageFitsEveryScreenInEnglishAndGerman) {
  auto open = [&] {
    AddHostedTab(u"TwTest Clock", 6);
    OpenPage();
  };
  auto show = [&](int shot) { Choose(shot == 1 ? u"TwTest Clock" : u"Special Events"); };
  CheckEveryScreen(L"tabs", 2, open, show);
}

class PluginChooserTest : public DialogTest {};

TEST_F(PluginChooserTest, FitsEveryScreenInEnglishAndGerman) {
  Win32Registry registry;
  std::u16string chosen;
  auto open = [&] { ChoosePlugin(owner_, resources_, language_, registry, chosen); };
  OnEveryScreen(IDC_PLUGIN_LIST, L"plugin-chooser", open);
}

}  // namespace
}  // namespace tw::test
