// A test of a page in its slot: opening it, the taps on its tabs, rows and
// buttons that a user makes, and the values Done stored; and a page's table
// against its description.
#pragma once

#include <string>
#include <vector>

#include "app/shell.h"
#include "base/scaling.h"
#include "pages/common_controls.h"
#include "pages/row_list_page.h"
#include "platform/win32/wide.h"
#include "settings/schema.h"
#include "tests/ui/app_harness.h"

namespace tw::test {

// The shared editors in the order the frame lists them.
enum Editor { kTip, kCaption, kDropDown, kCheck, kText, kOrderList, kOrderUp, kOrderDown, kOrderReset, kNumberCombo };

struct RowAt {
  int tab, row;  // row from 1
};

inline std::u16string English(unsigned id) { return AsU16(EnglishText(id).c_str()); }

inline bool Holds(const ValueSpec& value, NumberField field) { return value.dword == field; }
inline bool Holds(const ValueSpec& value, ItemField field) { return value.item == field; }
inline bool Holds(const ValueSpec& value, TextField field) { return value.string == field; }

// The key path and the value the schema keeps a field under.
template <typename Field>
std::pair<const char16_t*, const ValueSpec*> SpecOf(Field field) {
  for (const KeySpec* key : ProductKeys())
    for (const ValueSpec& value : key->values)
      if (Holds(value, field)) return {key->path, &value};
  return {u"", nullptr};
}

// A row as the page's description gives it: where it is (row from 1, a
// tab's list before its form), the texts it shows, the registry value it
// edits and, for a list of texts or numbers, how many entries there are, the
// first one's text or number and what that entry stores.
struct Described {
  int tab, row;
  unsigned name, caption, tip;
  const char16_t* value;
  int entries = 0;
  unsigned first = 0;
  std::int32_t storedFirst = 0;
};

inline std::u16string ValueName(const Row& row) {
  const ValueSpec* spec = row.item     ? SpecOf(row.item).second
                          : row.number ? SpecOf(row.number).second
                          : row.text   ? SpecOf(row.text).second
                                       : nullptr;
  return spec ? spec->name : u"";
}

// A page's table against its description: each tab's label and number of
// rows, and the rows where a slip is likeliest. The frame's own test shows
// that a row shows and stores what it names, so this needs no window.
inline void ExpectDescribed(std::span<const RowTab> tabs,
                            std::vector<std::pair<unsigned, std::size_t>> labelsAndRows,
                            std::span<const Described> described) {
  std::vector<std::pair<unsigned, std::size_t>> actual;
  for (const RowTab& tab : tabs) actual.push_back({tab.label, tab.rows.size() + tab.form.size()});
  ASSERT_EQ(actual, labelsAndRows);
  for (const Described& d : described) {
    SCOPED_TRACE(Show(d.value));
    const RowTab& tab = tabs[d.tab];
    const Row& row = d.row <= int(tab.rows.size()) ? tab.rows[d.row - 1] : tab.form[d.row - 1 - tab.rows.size()];
    EXPECT_EQ(ValueName(row), d.value);
    EXPECT_EQ(std::vector<unsigned>({row.name, row.caption, row.tip}),
              std::vector<unsigned>({d.name, d.caption, d.tip}));
    EXPECT_EQ(row.rule(0), d.storedFirst) << "what the first entry stores";
    if (d.entries == 0) continue;
    const Choices& choices = row.choices;
    EXPECT_EQ(choices.count, d.entries);
    EXPECT_EQ(choices.kind == Choices::Kind::TextList  ? choices.texts[0]
              : choices.kind == Choices::Kind::Numbers ? unsigned(choices.firstNumber)
                                                       : choices.firstText,
              d.first);
  }
}

template <typename PageType, int kSlot>
class RowPageTest : public AppTest {
 protected:
  PageType* OpenPage() {
    if (Window() == nullptr) Start();
    SelectPage(kSlot);
    return Page();
  }
  PageType* Page() { return static_cast<PageType*>(Shell().slots[kSlot].get()); }
  HWND EditorWindow(Editor editor) { return Page()->EditorWindows()[editor]; }
  void SelectTab(int tab) { TapTab(Page()->TabStrip(), tab); }
  // A tap on a row; row 0 taps nothing, which deselects.
  void SelectRow(RowAt at) {
    if (Page()->CurrentTab() != at.tab) SelectTab(at.tab);
    ListViewSelect(Page()->List(at.tab), at.row - 1);
  }
  // A choice in a drop-down, as the control reports it.
  void Pick(HWND combo, int position, int code = CBN_SELCHANGE) {
    ComboSelect(combo, position);
    SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), code), LPARAM(combo));
    Pump();
  }
  void Deselect() { ListViewSelect(Page()->List(Page()->CurrentTab()), -1); }
  void Press(HWND button) {
    SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(button), BN_CLICKED), LPARAM(button));
    Pump();
  }
  // Every tab at each screen and in both languages, with the first row of a
  // list shown and then its last, so each kind of editor is laid out.
  void CheckEveryTab(const std::wstring& name, int tabs) {
    CheckEveryScreen(name, tabs, [&] { OpenPage(); }, [&](int tab) {
      SelectTab(tab);
      if (Page()->List(tab) == nullptr) return;
      SelectRow({tab, 1});
      ExpectLayoutFits("first row of tab " + std::to_string(tab));
      SelectRow({tab, ListViewCount(Page()->List(tab))});
    });
  }
  // Stored values; one left at its default may be absent, and one whose
  // default the locale gives is then taken as the record's.
  template <typename Field>  // NumberField, ItemField or TextField
  auto Saved(Field field) {
    auto [path, spec] = SpecOf(field);
    EXPECT_NE(spec, nullptr) << "no value holds the field";
    StoredValue value = spec ? Stored(path, spec->name) : StoredValue{};
    if constexpr (std::is_same_v<Field, TextField>) {
      return value.present || !spec ? value.text : std::u16string(spec->text);
    } else {
      if (value.present || !spec) return std::int32_t(value.dword);
      if (spec->rule == DefaultRule::Scaled) return ScaleX(spec->number);
      if constexpr (std::is_same_v<Field, ItemField>) return spec->number;
      else return spec->rule == DefaultRule::Constant ? spec->number : Settings().*field;
    }
  }
};

}  // namespace tw::test
