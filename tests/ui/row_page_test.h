// A test of a page in its slot: opening it, the taps on its tabs, rows and
// buttons that a user makes, and the values Done stored.
#pragma once

#include <map>
#include <string>

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
  // Every row of the lists and every control of the forms, in one walk: each
  // shows the record's value with its texts and is changed as a user would,
  // and Done saves the change under the row's own name. Call it before the
  // page is made: forms are filled then, from the record this sets.
  void WalkEveryRow(std::span<const RowTab> tabs) {
    constexpr std::int32_t kSomeFlags = 8 | 2;
    auto each = [&](auto visit) {
      int n = 0;
      for (int tab = 0; tab < int(tabs.size()); ++tab)
        for (bool form : {false, true}) {
          std::span<const Row> rows = form ? tabs[tab].form : tabs[tab].rows;
          for (int i = 0; i < int(rows.size()); ++i) {
            SCOPED_TRACE((form ? "tab " : "list of tab ") + std::to_string(tab) + " row " + std::to_string(i));
            if (rows[i].editor != EditorKind::NumberCombo && rows[i].editor != EditorKind::TextDropDown)
              visit(tab, form, i, rows[i], std::u16string(1, char16_t(u'A' + n++ % 26)));
          }
        }
    };
    SettingsStore& record = Settings();
    each([&](int, bool, int, const Row& row, const std::u16string& mark) {
      if (row.editor == EditorKind::DropDown) NumberOf(record, row) = row.rule(1);
      if (row.editor == EditorKind::Check) NumberOf(record, row) = 1;
      if (row.editor == EditorKind::Text || row.editor == EditorKind::Path) (record.*row.text).Assign(u"from " + mark);
      if (row.editor == EditorKind::FlagList) record.*row.number = kSomeFlags;
      for (const CheckItem& item : row.items)
        if (item.field != nullptr) record.*item.field = 1;
    });
    OpenPage();
    std::map<const Row*, int> lasts;
    each([&](int tab, bool form, int i, const Row& row, const std::u16string& mark) {
      if (Page()->CurrentTab() != tab) SelectTab(tab);
      if (!form) SelectRow({tab, i + 1});
      const Editor kEditors[] = {kDropDown, kCheck, kText, kOrderList};
      HWND control = form ? Page()->FormControl(tab, i) : int(row.editor) < 4 ? EditorWindow(kEditors[int(row.editor)]) : nullptr;
      ASSERT_NE(control, nullptr);
      EXPECT_TRUE(IsWindowVisible(control));
      if (!form) {
        EXPECT_EQ(ListViewRowText(Page()->List(tab), i), English(row.name));
        EXPECT_EQ(GetText(EditorWindow(kTip)), English(row.editor == EditorKind::Order ? row.name : row.tip));
      }
      HWND caption = row.editor == EditorKind::Check ? control : form ? Page()->FormCaption(tab, i) : EditorWindow(kCaption);
      if (row.caption != 0 && (form || row.editor != EditorKind::Text)) {
        EXPECT_EQ(GetText(caption), English(row.caption));
      }
      switch (row.editor) {
        case EditorKind::DropDown:
          EXPECT_EQ(ComboSelection(control), 1);
          ComboSelect(control, lasts[&row] = ComboCount(control) - 1);
          break;
        case EditorKind::Check:
          EXPECT_TRUE(IsChecked(control));
          SetChecked(control, false);
          break;
        case EditorKind::Path:
          EXPECT_TRUE(IsWindowVisible(Page()->FormButton(tab, i)));
          [[fallthrough]];
        case EditorKind::Text:
          EXPECT_EQ(GetText(control), u"from " + mark);
          SetText(control, u"to " + mark);
          break;
        case EditorKind::CheckList:
        case EditorKind::FlagList:  // the first item is flipped
          for (int item = 0; item < int(row.items.size()); ++item)
            EXPECT_EQ(ListViewChecked(control, item), row.items[item].field || (kSomeFlags & row.items[item].flag)) << item;
          ListViewSetChecked(control, 0, !ListViewChecked(control, 0));
          break;
        default:
          break;
      }
      if (!form) {
        Deselect();
        EXPECT_FALSE(IsWindowVisible(control)) << "an editor without a row loses its edit";
      }
    });
    Command(IDOK);
    each([&](int, bool, int, const Row& row, const std::u16string& mark) {
      std::int32_t expected = row.editor == EditorKind::DropDown ? row.rule(lasts[&row])
                              : row.editor == EditorKind::FlagList ? kSomeFlags ^ row.items[0].flag : 0;
      EXPECT_EQ(row.item ? Saved(row.item) : row.number ? Saved(row.number) : 0, expected);  // checks left off
      EXPECT_EQ(row.text ? Saved(row.text) : u"to " + mark, u"to " + mark);
      for (int item = 0; row.editor == EditorKind::CheckList && item < int(row.items.size()); ++item)
        EXPECT_EQ(Saved(row.items[item].field), item == 0 ? 0 : 1) << item;
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
