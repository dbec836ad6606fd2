// The Notes and Messages pages driven through their real controls: the
// generic walk over their tables, then the controls a user sees, in order,
// against the settings they edit, written out as the pages are described.
#include "pages/messages_page.h"
#include "pages/notes_page.h"
#include "tests/ui/row_page_test.h"

namespace tw::test {
namespace {

// A check box (no last entry) or a drop-down; the value the record holds
// when the page opens and the one the control shows, which Done stores.
struct Control { const char16_t *text, *lastEntry; ItemField field; std::int32_t held, shown; };
// Line style 4 is not offered: no choice, stored as -1. Counters: a check
// box on Notes, a three-way choice on Messages.
constexpr Control kNotesControls[] = {{u"Separator:", u"Shaded bar", &SettingsStore::NotesBreakLineStyle, 4, -1},
                                      {u"Fold buttons", u"", &SettingsStore::NotesIncldFoldBttns, 0, 0},
                                      {u"Show counters", u"", &SettingsStore::NotesIncldCounters, 1, 1}};
constexpr Control kMessagesControls[] = {{u"Mark read when previewed", u"", &SettingsStore::MsgsMrkReadOnPrev, 0, 0},
                                         {u"Separator:", u"Shaded bar", &SettingsStore::MsgsBreakLineStyle, 2, 2},
                                         {u"Counters:", u"Unread and total", &SettingsStore::MsgsIncldCounters, 2, 2},
                                         {u"Fold buttons", u"", &SettingsStore::MsgsIncldFoldBttns, 1, 1}};

template <int kSlot>
struct ListTabPageTest : RowPageTest<RowListPage, kSlot> {
  void Check(std::span<const RowTab> tabs, std::span<const Control> controls) {
    this->Start(kAboutPage);
    this->WalkEveryRow(tabs);
    this->Start(kAboutPage);
    for (const Control& control : controls) (Settings().*control.field).value = control.held;
    RowListPage* page = this->OpenPage();
    for (int i = 0; i < int(controls.size()); ++i) {
      HWND window = page->FormControl(0, i), caption = page->FormCaption(0, i);
      EXPECT_EQ(GetText(caption ? caption : window), controls[i].text) << i;
      EXPECT_EQ(caption ? ComboText(window, ComboCount(window) - 1) : u"", controls[i].lastEntry) << i;
      EXPECT_EQ(caption ? ComboSelection(window) : int(IsChecked(window)), controls[i].shown) << i;
    }
    this->Command(IDOK);
    for (const Control& control : controls) EXPECT_EQ(this->Saved(control.field), control.shown) << Show(control.text);
  }
};
using NotesTest = ListTabPageTest<3>;
using MessagesTest = ListTabPageTest<4>;

TEST_F(NotesTest, EveryControlShowsAndStoresItsSetting) { Check(NotesTabs(), kNotesControls); }
TEST_F(MessagesTest, EveryControlShowsAndStoresItsSetting) { Check(MessagesTabs(), kMessagesControls); }

}  // namespace
}  // namespace tw::test
