// The Notes and Messages pages driven through their real controls. The
// generic walk covers their tables; these tests hold what a table cannot
// check of itself: the controls a user sees, in order, and the registry
// names they write, written out here; and a list left without a choice.
#include <windows.h>

#include <gtest/gtest.h>

#include <span>

#include "pages/messages_page.h"
#include "pages/notes_page.h"
#include "tests/ui/row_page_test.h"

namespace tw::test {
namespace {

constexpr int kNotesSlot = 3, kMessagesSlot = 4;
constexpr char16_t kNotesKey[] = u"Software\\Orvex\\Tidewell\\Notes";
constexpr char16_t kMessagesKey[] = u"Software\\Orvex\\Tidewell\\Messages";
constexpr char16_t kLanguages[] = u"\\Program Files\\Orvex\\Tidewell\\LangRes\\CP";

// A check box (no entries) or a drop-down and its last entry; the value
// the registry holds when the page opens, and the one the test then sets,
// away from the default so that Done writes it.
struct Control {
  const char16_t* text;
  int entries;
  const char16_t* lastEntry;
  const char16_t* value;
  std::int32_t shown, set;
};
constexpr Control kNotesControls[] = {
    {u"Separator:", 4, u"Shaded bar", u"NotesBreakLineStyle", 2, 1},
    {u"Fold buttons", 0, nullptr, u"NotesIncldFoldBttns", 0, 0},
    {u"Show counters", 0, nullptr, u"NotesIncldCounters", 1, 0},
};
constexpr Control kMessagesControls[] = {
    {u"Mark read when previewed", 0, nullptr, u"MsgsMrkReadOnPrev", 0, 0},
    {u"Separator:", 4, u"Shaded bar", u"MsgsBreakLineStyle", 2, 0},
    {u"Counters:", 3, u"Unread and total", u"MsgsIncldCounters", 0, 2},
    {u"Fold buttons", 0, nullptr, u"MsgsIncldFoldBttns", 1, 0},
};

template <int kSlot>
class ListTabPageTest : public RowPageTest<RowListPage, kSlot> {
 protected:
  void ExpectControls(std::span<const Control> controls, const char16_t* key) {
    for (const Control& expected : controls) this->Put(key, expected.value, expected.shown);
    RowListPage* page = this->OpenPage();
    for (int i = 0; i < int(controls.size()); ++i) {
      const Control& expected = controls[i];
      SCOPED_TRACE(i);
      HWND control = page->FormControl(0, i);
      ASSERT_NE(control, nullptr);
      LONG style = GetWindowLongW(control, GWL_STYLE);
      if (expected.entries == 0) {
        EXPECT_EQ(GetText(control), expected.text);
        EXPECT_EQ(style & (BS_TYPEMASK | BS_MULTILINE), BS_AUTOCHECKBOX | BS_MULTILINE);
        EXPECT_EQ(IsChecked(control), expected.shown != 0);
        SetChecked(control, expected.set != 0);
      } else {
        EXPECT_EQ(GetText(page->FormCaption(0, i)), expected.text);
        EXPECT_EQ(style & 3, CBS_DROPDOWNLIST);
        ASSERT_EQ(ComboCount(control), expected.entries);
        EXPECT_EQ(ComboText(control, expected.entries - 1), expected.lastEntry);
        EXPECT_EQ(ComboSelection(control), expected.shown);
        ComboSelect(control, expected.set);
      }
    }
    EXPECT_EQ(page->FormControl(0, int(controls.size())), nullptr);
    this->Command(IDOK);
    for (const Control& expected : controls) {
      StoredValue stored = this->Stored(key, expected.value);
      EXPECT_TRUE(stored.present) << Show(expected.value);
      EXPECT_EQ(std::int32_t(stored.dword), expected.set) << Show(expected.value);
    }
  }
};
using NotesTest = ListTabPageTest<kNotesSlot>;
using MessagesTest = ListTabPageTest<kMessagesSlot>;

TEST_F(NotesTest, EveryControlShowsAndStoresItsSetting) {
  Start(kAboutPage);
  WalkEveryRow(NotesTabs());
}

TEST_F(MessagesTest, EveryControlShowsAndStoresItsSetting) {
  Start(kAboutPage);
  WalkEveryRow(MessagesTabs());
}

// Counters: a check box on Notes, a three-way choice on Messages.
TEST_F(NotesTest, ControlsInOrderWriteTheirValues) { ExpectControls(kNotesControls, kNotesKey); }
TEST_F(MessagesTest, ControlsInOrderWriteTheirValues) { ExpectControls(kMessagesControls, kMessagesKey); }

// A line style the list does not offer leaves it without a choice, and the
// page stores that as -1, exactly as the list reports it.
TEST_F(NotesTest, UnofferedLineStyleIsStoredAsNoChoice) {
  const std::pair<const char16_t*, const char16_t*> styles[] = {{kNotesKey, u"NotesBreakLineStyle"},
                                                                {kMessagesKey, u"MsgsBreakLineStyle"}};
  for (auto [key, name] : styles) Put(key, name, 4);
  Start();
  for (int slot : {kNotesSlot, kMessagesSlot}) {
    SelectPage(slot);
    HWND list = static_cast<RowListPage*>(Shell().slots[slot].get())->FormControl(0, slot == kNotesSlot ? 0 : 1);
    EXPECT_EQ(ComboSelection(list), -1) << slot;
  }
  Command(IDOK);
  for (auto [key, name] : styles) EXPECT_EQ(std::int32_t(Stored(key, name).dword), -1) << Show(name);
}

// German wraps the read-mark check box in a landscape column.
TEST_F(NotesTest, BothPagesFitEachScreenInEnglishAndGerman) {
  for (std::u16string language : {u"Eng", u"Deu"}) {
    PutText(kProductKey, u"SelectedLangResFile", kLanguages + language + u"Rc.dll");
    CheckEveryScreen(L"notes-messages-" + ToWide(language), 2, [] {},
                     [&](int shot) { SelectPage(shot == 0 ? kNotesSlot : kMessagesSlot); });
  }
}

}  // namespace
}  // namespace tw::test
