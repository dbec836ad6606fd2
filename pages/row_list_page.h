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
//
// A tab may instead be a plain form: the same kinds of row, each with a
// control of its own, all filled when the page is built and all stored, in
// table order, when it is destroyed.
//
//   constexpr Row kFoldingForm[] = {
//       FormCheck(40770, &S::TsksUseSmartFolding),
//       FormDropDown(40771, &S::TsksFoldingType, TextRange(40408, 3)),
//   };
//   constexpr RowTab kTabs[] = {{40763, {}, kFoldingForm}};
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

// NumberCombo: a drop-down whose text may also be typed, read as a number.
// TextDropDown: a drop-down storing a text (a path, a name) per entry.
// CheckList: one check row per setting (set when 1); FlagList: one check
// row per flag of a single setting. Heading: a caption over the rows that
// follow; Path: a text with a button that browses for a file. The last four
// only on forms.
enum class EditorKind { DropDown, Check, Text, Order, NumberCombo, TextDropDown, CheckList, FlagList, Heading, Path };

struct PageContext;

// What a generator of choices may use: the user's locale, today and the page.
struct ChoiceContext {
  Locale& locale;
  CalendarDate today;
  const PageContext& page;
};
using ChoiceGenerator = std::vector<std::u16string> (*)(const ChoiceContext&);

// Today as the pages see it: the local date, or the day fixed with
// FixPageToday, so that month and year ends can be reached at will.
CalendarDate PageToday();
// Null returns to the clock.
void FixPageToday(const CalendarDate* day);

// Entries shown and the text each one stores, with the entry to select (-1
// for none).
struct TextChoices {
  std::vector<std::u16string> shown;
  std::vector<std::u16string> stored;
  int selected = -1;
};
using TextChoiceGenerator = TextChoices (*)(const ChoiceContext&);

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
// Brings a setting into the entries' range before it is shown; the setting
// takes the result.
using FillRule = std::int32_t (*)(std::int32_t value);

// Whether a form row can be used with the record as it is. Rules are applied
// when the page is built and whenever a form drop-down changes, which then
// stores its setting at once, so the rows follow the choice they depend on.
using EnableRule = bool (*)(const SettingsStore& record);

using NumberField = std::int32_t SettingsStore::*;
using TextField = WideString SettingsStore::*;
// A number that carries its own default and registry name.
using ItemField = SettingItem SettingsStore::*;

// Parts of a title or list kept in order, one setting per place; part p is
// named by text firstPartText + p.
struct OrderSpec {
  std::span<const NumberField> places;
  unsigned firstPartText;
};

// A row of a check list: its label and either its own setting (CheckList)
// or its flag in the list's setting (FlagList).
struct CheckItem {
  unsigned label;
  NumberField field = nullptr;
  std::int32_t flag = 0;
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
  TextChoiceGenerator textChoices = nullptr;
  FillRule fillRule = nullptr;
  int fallback = -1;  // the entry selected when none has the setting's value
  std::span<const CheckItem> items = {};
  ItemField item = nullptr;  // in place of number
  bool storesNoChoice = false;  // a drop-down left without a choice stores -1
  EnableRule enabled = nullptr;
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

// Drop-down whose entries may also be typed over; the text is read as a
// number in C's automatic base ("0x" hexadecimal, a leading "0" octal), so
// values outside the list are kept.
constexpr Row NumberCombo(unsigned name, NumberField field, unsigned caption, unsigned tip, Choices choices) {
  return {.name = name, .editor = EditorKind::NumberCombo, .number = field, .caption = caption, .tip = tip,
          .choices = choices};
}
constexpr Row TextDropDown(unsigned name, TextField field, unsigned caption, unsigned tip,
                           TextChoiceGenerator choices) {
  return {.name = name, .editor = EditorKind::TextDropDown, .text = field, .caption = caption, .tip = tip,
          .textChoices = choices};
}

// Form rows: a caption and a control, no name or tip.
constexpr Row FormDropDown(unsigned caption, NumberField field, Choices choices, ValueRule rule = AsPosition,
                           int fallback = -1) {
  return {.name = 0, .editor = EditorKind::DropDown, .number = field, .caption = caption, .choices = choices,
          .rule = rule, .fallback = fallback};
}
constexpr Row FormCheck(unsigned caption, NumberField field) {
  return {.name = 0, .editor = EditorKind::Check, .number = field, .caption = caption};
}
// Free text, at most kFormTextLength characters read back.
constexpr Row FormText(unsigned caption, TextField field) {
  return {.name = 0, .editor = EditorKind::Text, .text = field, .caption = caption};
}
constexpr Row CheckList(unsigned caption, std::span<const CheckItem> items) {
  return {.name = 0, .editor = EditorKind::CheckList, .caption = caption, .items = items};
}
// The setting is rebuilt from the listed flags alone: flags not listed are cleared.
constexpr Row FlagList(unsigned caption, NumberField field, std::span<const CheckItem> items) {
  return {.name = 0, .editor = EditorKind::FlagList, .number = field, .caption = caption, .items = items};
}
inline constexpr int kFormTextLength = 255;
constexpr Row Heading(unsigned caption) { return {.name = 0, .editor = EditorKind::Heading, .caption = caption}; }
// A file path, typed or chosen with the file chooser; at most
// kFormPathLength characters are read back, and nothing checks the file.
constexpr Row FormPath(unsigned caption, TextField field) {
  return {.name = 0, .editor = EditorKind::Path, .text = field, .caption = caption};
}
inline constexpr int kFormPathLength = 256;
constexpr Row EnabledWhen(Row row, EnableRule rule) {
  row.enabled = rule;
  return row;
}

// The number a row edits: its setting, or its SettingItem's value.
inline std::int32_t& NumberOf(SettingsStore& record, const Row& row) {
  return row.item != nullptr ? (record.*row.item).value : record.*row.number;
}

// Form rows over a SettingItem. Their drop-downs store the position exactly
// as the list reports it: a stored value the list does not offer leaves it
// without a choice, and the registry then says so with -1 rather than keep
// a value the user was never shown.
constexpr Row ItemDropDown(unsigned caption, ItemField field, Choices choices) {
  return {.name = 0, .editor = EditorKind::DropDown, .caption = caption, .choices = choices, .item = field,
          .storesNoChoice = true};
}
constexpr Row ItemCheck(unsigned caption, ItemField field) {
  return {.name = 0, .editor = EditorKind::Check, .caption = caption, .item = field};
}

// A tab of the page: its label and rows, or its form. A tab without rows
// shows controls of the page's own too (ShowOwnTab), beside its form.
struct RowTab {
  unsigned label;
  std::span<const Row> rows;
  std::span<const Row> form = {};
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
  // The control of a form's row (from 0) and its caption (null for none);
  // asking makes the tab's form if it is not made yet.
  HWND FormControl(int tab, int row);
  HWND FormCaption(int tab, int row);
  // A path row's browse button (null for other rows).
  HWND FormButton(int tab, int row);
  HWND OrderList() const { return orderList_; }

 protected:
  // A tab without rows: show or hide the page's own controls.
  virtual void ShowOwnTab(int /*tab*/, int /*showCommand*/) {}
  // The area where a tab's list lies, for a tab of the page's own.
  RECT ListArea() const { return listArea_; }
  int FirstOwnId() const { return firstOwnId_; }

 private:
  struct Editors {
    HWND tip, caption, dropDown, check, text, numberCombo;
  };
  struct FormWindows {
    int tab;
    const Row* row;
    HWND caption, control;
    HWND button = nullptr;  // a path's browse button
  };

  const Row* RowAt(int row, int tab) const;
  void Layout();
  int ListWidthNeeded() const;
  // Least: the tip's usual height, which the editors below it keep to.
  void FitTip(int least);
  int OrderNameHeight() const;
  std::vector<std::size_t> FormColumns(std::span<const Row> rows, const std::vector<RECT>& columns) const;
  int FormRowWidth(const Row& row) const;
  HWND ShownList(int tab);
  void MakeEditors();
  void CreateEditors();
  void CreateOrderEditor();
  void PlanForms();
  static int FormRowWindowCount(const Row& row);
  void MakeForm(int tab);
  int FormRowHeight(const Row& row, int width) const;
  int CheckHeight(const Row& row, int width) const;
  void CreateFormRow(const Row& row, int tab, RECT& area, int& id);
  void FillFormRow(const FormWindows& form);
  void StoreFormRow(const FormWindows& form);
  const FormWindows* FindForm(int tab, int row);
  void ApplyEnableRules();
  bool OnFormCommand(int id, int code);
  void BrowseForPath(const FormWindows& form);
  void ShowTab(int tab, int showCommand);
  void HideEditors();
  void FillChoices(const Row& row, HWND combo);
  void FillTextChoices(const Row& row);
  ChoiceContext Choosing();
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
  std::vector<HWND> lists_;  // null for a tab of the page's own and for one not shown yet
  Editors editor_ = {};
  std::vector<HWND> editors_;  // every row editor, for hiding them all
  std::vector<FormWindows> forms_;  // of the forms made so far
  std::vector<int> formFirstIds_;   // each tab's first form id
  std::vector<bool> formsMade_;
  std::vector<std::u16string> storedTexts_;  // what each entry of a TextDropDown stores
  int firstOwnId_ = 0;
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
