// The frame of every row-list page: a tab strip at the bottom, one row list
// per tab and one set of editors shared by all rows. What a page edits is a
// table of rows; one generic Fill and Store walk it, and the few rows that
// behave differently name a small function of their own.
//
//   constexpr Row kMailRows[] = {
//       Check(40439, &S::IncludeMainOnCal, 40439, 40440),
//       DropDown(40443, &S::MailTitleFormat, 40443, 40444, TextRange(40445, 4)),
//   };
//   constexpr RowTab kTabs[] = {{40246, kMailRows}};
//
// A row is filled when it is selected and stored when it loses the
// selection, when the tab changes, when the page is hidden and when it is
// destroyed, so the record always holds what the editors show.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "pages/settings_page.h"
#include "platform/locale.h"
#include "platform/win32/win32_locale.h"

namespace tw {

enum class EditorKind { DropDown, Check, Text, Order };

// What a generator of choices may use: the user's locale and today.
struct ChoiceContext {
  Locale& locale;
  CalendarDate today;
};
using ChoiceGenerator = std::vector<std::u16string> (*)(const ChoiceContext&);

// The entries of a drop-down, in position order.
struct Choices {
  enum class Kind { None, TextRange, TextList, Literals, Numbers, Generated };
  Kind kind = Kind::None;
  unsigned firstText = 0;  // TextRange: texts firstText .. firstText + count - 1
  int firstNumber = 0;     // Numbers: firstNumber .. firstNumber + count - 1, shown with "%d"
  int count = 0;
  std::span<const unsigned> texts = {};
  std::span<const char16_t* const> literals = {};
  ChoiceGenerator generate = nullptr;
};

constexpr Choices TextRange(unsigned first, int count) {
  return {.kind = Choices::Kind::TextRange, .firstText = first, .count = count};
}
constexpr Choices TextList(std::span<const unsigned> texts) {
  return {.kind = Choices::Kind::TextList, .count = static_cast<int>(texts.size()), .texts = texts};
}
constexpr Choices Literals(std::span<const char16_t* const> literals) {
  return {.kind = Choices::Kind::Literals, .count = static_cast<int>(literals.size()), .literals = literals};
}
constexpr Choices Numbers(int first, int count) {
  return {.kind = Choices::Kind::Numbers, .firstNumber = first, .count = count};
}
constexpr Choices Generated(ChoiceGenerator generate) {
  return {.kind = Choices::Kind::Generated, .generate = generate};
}

// The stored value of the entry at a position. Fill selects the entry whose
// value equals the setting, or none.
using ValueRule = std::int32_t (*)(int position);
constexpr std::int32_t AsPosition(int position) { return position; }
constexpr std::int32_t PositionPlusOne(int position) { return position + 1; }

// Sees the value about to be stored and returns the one to store.
using StoreCheck = std::int32_t (*)(const PageContext& page, std::int32_t value);

using NumberField = std::int32_t SettingsStore::*;
using TextField = WideString SettingsStore::*;

// Parts of a title or list kept in order, one setting per place; part p is
// named by text firstPartText + p.
struct OrderSpec {
  std::span<const NumberField> places;
  unsigned firstPartText;
};

struct Row {
  unsigned name;  // the row's label in the list
  EditorKind editor;
  NumberField number = nullptr;
  TextField text = nullptr;
  unsigned caption = 0;  // the caption static, or the check box's own text
  unsigned tip = 0;
  Choices choices = {};
  ValueRule rule = AsPosition;
  StoreCheck check = nullptr;
  const OrderSpec* order = nullptr;
};

constexpr Row DropDown(unsigned name, NumberField field, unsigned caption, unsigned tip, Choices choices,
                       ValueRule rule = AsPosition) {
  return {.name = name, .editor = EditorKind::DropDown, .number = field, .caption = caption, .tip = tip,
          .choices = choices, .rule = rule};
}
constexpr Row Check(unsigned name, NumberField field, unsigned caption, unsigned tip, StoreCheck check = nullptr) {
  return {.name = name, .editor = EditorKind::Check, .number = field, .caption = caption, .tip = tip,
          .check = check};
}
constexpr Row TextRow(unsigned name, TextField field, unsigned caption, unsigned tip) {
  return {.name = name, .editor = EditorKind::Text, .text = field, .caption = caption, .tip = tip};
}
constexpr Row OrderRow(unsigned name, const OrderSpec& order) {
  return {.name = name, .editor = EditorKind::Order, .order = &order};
}

// A tab of the page: its label and rows. A tab without rows shows controls
// of the page's own instead (ShowOwnTab).
struct RowTab {
  unsigned label;
  std::span<const Row> rows;
};

// Ids the frame takes from the start of the page's block; the page's own
// controls follow.
inline constexpr int kRowListIdCount = 32;

class RowListPage : public SettingsPage {
 public:
  // Builds the tab strip, one list per tab with rows and the shared editors,
  // hidden, with the first tab selected.
  RowListPage(const PageContext& context, std::span<const RowTab> tabs, ControlIdRange ids);
  // Stores the shown row.
  ~RowListPage() override;

  void Show(int showCommand, bool includeTabStrip) override;
  bool OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  LRESULT OnNotify(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

  // Rows count from 1; a row outside the tab does nothing.
  void Fill(int row, int tab);
  void Store(int row, int tab);

  int CurrentTab() const;
  HWND TabStrip() const { return tabStrip_; }
  HWND List(int tab) const;
  const std::vector<HWND>& EditorWindows() const { return editors_; }
  HWND OrderList() const { return orderList_; }

 protected:
  // A tab without rows: show or hide the page's own controls.
  virtual void ShowOwnTab(int /*tab*/, int /*showCommand*/) {}
  // The area where a tab's list lies, for a tab of the page's own.
  RECT ListArea() const { return listArea_; }
  int FirstOwnId() const { return ids_.first + kRowListIdCount; }

 private:
  struct Editors {
    HWND tip, caption, dropDown, check, text;
  };

  const Row* RowAt(int row, int tab) const;
  void Layout();
  void CreateLists();
  void CreateEditors();
  void CreateOrderEditor();
  void ShowTab(int tab, int showCommand);
  void HideEditors();
  void FillChoices(const Row& row);
  void FillOrder(const OrderSpec& order);
  void MoveOrderPart(int by);
  void ResetOrder();
  void StoreShownRow(int tab);
  void OnRowChanged(const NMLISTVIEW& change);
  void ShowEditor(HWND editor, unsigned text);

  std::span<const RowTab> tabs_;
  ControlIdRange ids_;
  Win32Locale locale_;
  HWND tabStrip_ = nullptr;
  std::vector<HWND> lists_;  // null for a tab of the page's own
  Editors editor_ = {};
  std::vector<HWND> editors_;  // every row editor, for hiding them all
  HWND orderList_ = nullptr, orderUp_ = nullptr, orderDown_ = nullptr, orderReset_ = nullptr;
  const OrderSpec* shownOrder_ = nullptr;
  RECT listArea_ = {}, editorArea_ = {}, tabArea_ = {};
  // Set while the page itself clears a list's selection, so that the
  // notifications it causes store nothing twice.
  bool quiet_ = false;
};

// Text of the language library in the page's context (empty without one).
WideString PageText(const PageContext& context, unsigned id);

}  // namespace tw
