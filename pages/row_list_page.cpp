#include "pages/row_list_page.h"

#include <algorithm>
#include <cwchar>
#include <optional>
#include <utility>

#include "base/scaling.h"
#include "controls/file_chooser.h"
#include "pages/common_controls.h"
#include "platform/load_text.h"
#include "platform/win32/wide.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_text_library.h"

namespace tw {
namespace {

// Layout in 96-dpi units; Layout() scales them once.
constexpr int kMargin = 10;
constexpr int kMinEditorWidth = 130;  // beside a landscape list: a tip of a few words a line
constexpr int kCheckImageWidth = 16;  // a check list's box, beside its row text
constexpr int kLabelMargins = 12;     // a list view's row text, both sides
constexpr int kListRightMargin = 20;
constexpr int kGap = 6;
constexpr int kEditorsHeight = 128;  // below a portrait list: the editors and the tab strip
constexpr int kTabStripHeight = 21;
constexpr int kTipHeight = 42;
constexpr int kCaptionHeight = 14;
constexpr int kLineGap = 2;
constexpr int kFieldHeight = 20;
constexpr int kDropDownHeight = 100;
constexpr int kCheckHeight = 30;
constexpr int kOrderListHeight = 50;
constexpr int kOrderButtonWidth = 50;
constexpr int kOrderButtonHeight = 22;
constexpr int kFormCheckHeight = 20;
constexpr int kCheckTextGap = 4;  // between the box and its text
constexpr int kFormGap = 4;
constexpr int kCheckRowHeight = 17;
constexpr int kNumberTextLength = 256;
constexpr int kBrowseButtonWidth = 58;
constexpr unsigned kBrowseText = 40478;

// Ids within the frame's part of the page's block.
enum FrameId {
  kTabStripId,
  kTipId,
  kCaptionId,
  kDropDownId,
  kCheckId,
  kTextId,
  kOrderListId,
  kOrderUpId,
  kOrderDownId,
  kOrderResetId,
  kNumberComboId,
  kFirstListId,  // one per tab from here
};
static_assert(kFirstListId + 16 <= kRowListIdCount, "the frame's ids leave room for sixteen tabs");

// The order buttons' labels; the reset button's is shared with other pages.
constexpr unsigned kOrderUpText = 40248, kOrderDownText = 40249, kOrderResetText = 40478;

constexpr DWORD kListStyle = WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_NOCOLUMNHEADER |
                             LVS_SHOWSELALWAYS;

RECT Box(int left, int top, int width, int height) { return {left, top, left + width, top + height}; }

std::optional<CalendarDate> gFixedToday;

// What a user typed into a number combo; anything not a number reads as 0.
std::int32_t TypedNumber(std::u16string text) {
  if (text.size() > kNumberTextLength) text.resize(kNumberTextLength);
  std::wstring wide = ToWide(text);
  return static_cast<std::int32_t>(std::wcstol(wide.c_str(), nullptr, 0));
}

}  // namespace

CalendarDate PageToday() {
  if (gFixedToday) return *gFixedToday;
  SYSTEMTIME now;
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wDayOfWeek, 0, 0};
}

void FixPageToday(const CalendarDate* day) {
  gFixedToday.reset();
  if (day != nullptr) gFixedToday = *day;
}

WideString PageText(const PageContext& context, unsigned id) {
  WideString text;
  if (context.language == nullptr) return text;
  Win32TextLibrary library(context.language);
  LoadText(&library, id, text);
  return text;
}

RowListPage::RowListPage(const PageContext& context, std::span<const RowTab> tabs, ControlIdRange ids)
    : SettingsPage(context), tabs_(tabs), ids_(ids) {
  LoadCommonControls();
  Layout();
  tabStrip_ = AddControl(WC_TABCONTROLW, L"", WS_CLIPSIBLINGS | TCS_BOTTOM, tabArea_, ids_.first + kTabStripId,
                         context.normalFont);
  for (const RowTab& tab : tabs_) TabAdd(tabStrip_, Text(tab.label).View());
  lists_.assign(tabs_.size(), nullptr);
  PlanForms();
}

RowListPage::~RowListPage() {
  StoreShownRow(CurrentTab());
  for (const FormWindows& form : forms_) StoreFormRow(form);
}

// Portrait pages put the editors below the list; pages wider than high
// put them beside it, so the list keeps a useful height, and give the list
// the width its longest row name needs, the editors the rest.
void RowListPage::Layout() {
  RECT page = PageArea();
  int width = page.right, bottom = page.bottom;
  tabArea_ = {0, bottom - ScaleY(kTabStripHeight), width, bottom};
  int top = page.top + ScaleY(kGap);
  if (width > bottom) {
    int shared = width - 3 * ScaleX(kMargin);
    int listWidth = std::clamp(ListWidthNeeded(), shared / 3, shared - ScaleX(kMinEditorWidth));
    listArea_ = {ScaleX(kMargin), top, ScaleX(kMargin) + listWidth, tabArea_.top - ScaleY(kGap)};
    editorArea_ = {listArea_.right + ScaleX(kMargin), top, width - ScaleX(kMargin), listArea_.bottom};
  } else {
    listArea_ = {ScaleX(kMargin), top, width - ScaleX(kListRightMargin), bottom - ScaleY(kEditorsHeight)};
    editorArea_ = {ScaleX(kMargin), listArea_.bottom + ScaleY(kGap), width - ScaleX(kMargin),
                   tabArea_.top - ScaleY(kLineGap)};
  }
}

// Row names on one line, beside the scroll bar a long list shows.
int RowListPage::ListWidthNeeded() const {
  int widest = 0;
  for (const RowTab& tab : tabs_)
    for (const Row& row : tab.rows)
      widest = std::max(widest, int(TextExtent(context().normalFont, Text(row.name).View()).cx));
  return widest + ScaleX(kLabelMargins) + 2 * GetSystemMetrics(SM_CXBORDER) + GetSystemMetrics(SM_CXVSCROLL);
}

// A tab's list is made when the tab is first shown: most tabs never are,
// and each list costs the page's first open its window and its rows.
HWND RowListPage::ShownList(int tab) {
  if (tab < 0 || tab >= int(tabs_.size()) || tabs_[tab].rows.empty()) return nullptr;
  if (lists_[tab] != nullptr) return lists_[tab];
  HWND list = AddControl(WC_LISTVIEWW, L"", kListStyle, listArea_, ids_.first + kFirstListId + tab,
                         context().normalFont);
  ListViewBatch batch(list);
  ListViewPrepare(list);
  for (const Row& row : tabs_[tab].rows) ListViewAddRow(list, Text(row.name).View());
  lists_[tab] = list;
  return list;
}

// The editors show a selected row: a page first opened shows none, and
// many are closed again before a row is tapped.
void RowListPage::MakeEditors() {
  if (!editors_.empty()) return;
  CreateEditors();
  CreateOrderEditor();
}

void RowListPage::CreateEditors() {
  const RECT& area = editorArea_;
  int width = area.right - area.left;
  int below = area.top + ScaleY(kTipHeight) + ScaleY(kLineGap);
  HFONT font = context().normalFont;
  editor_.tip = AddControl(L"STATIC", L"Tip text", SS_LEFT | SS_NOPREFIX,
                           Box(area.left, area.top, width, ScaleY(kTipHeight)), ids_.first + kTipId, font);
  editor_.caption = AddControl(L"STATIC", L"Static combo :", SS_LEFT | SS_NOPREFIX,
                               Box(area.left, below, width, ScaleY(kCaptionHeight)), ids_.first + kCaptionId,
                               context().boldFont);
  int field = below + ScaleY(kCaptionHeight) + ScaleY(kLineGap);
  editor_.dropDown = AddControl(L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP,
                                Box(area.left, field, width, ScaleY(kDropDownHeight)), ids_.first + kDropDownId,
                                font);
  editor_.check = AddControl(L"BUTTON", L"Calendar static checkbox", BS_AUTOCHECKBOX | BS_MULTILINE | WS_TABSTOP,
                             Box(area.left, below, width, ScaleY(kCheckHeight)), ids_.first + kCheckId, font);
  editor_.text = AddControl(L"EDIT", L"", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP,
                            Box(area.left, field, width, ScaleY(kFieldHeight)), ids_.first + kTextId, font);
  editor_.numberCombo = AddControl(L"COMBOBOX", L"", CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP,
                                   Box(area.left, field, width, ScaleY(kDropDownHeight)),
                                   ids_.first + kNumberComboId, font);
  editors_ = {editor_.tip, editor_.caption, editor_.dropDown, editor_.check, editor_.text};
}

// The order list below the row's name, which is all its tip says. The list
// takes the full width with the buttons in rows below it where the area
// is tall enough; else the buttons stand beside it, stacked, or in two
// columns where the area is short.
void RowListPage::CreateOrderEditor() {
  const RECT& area = editorArea_;
  int width = area.right - area.left, gap = ScaleX(kGap), height = ScaleY(kOrderButtonHeight);
  int top = area.top + OrderNameHeight() + ScaleY(kLineGap), listHeight = ScaleY(kOrderListHeight);
  const unsigned texts[] = {kOrderUpText, kOrderDownText, kOrderResetText};
  int buttonWidth = ScaleX(kOrderButtonWidth);
  for (unsigned text : texts)
    buttonWidth =
        std::max(buttonWidth, int(TextExtent(context().normalFont, Text(text).View()).cx) + ScaleX(kLabelMargins));
  int step = height + ScaleY(kLineGap);
  int perRow = std::clamp((width + gap) / (buttonWidth + gap), 1, 3), rows = (3 + perRow - 1) / perRow;
  bool below = top + listHeight + ScaleY(kLineGap) + rows * step <= area.bottom;
  bool stacked = !below && top + 3 * step <= area.bottom;
  int listWidth = below ? width : width - (stacked ? 1 : 2) * (buttonWidth + gap);
  orderList_ = AddControl(WC_LISTVIEWW, L"", kListStyle, Box(area.left, top, listWidth, listHeight),
                          ids_.first + kOrderListId, context().normalFont);
  ListViewPrepare(orderList_);
  POINT places[3];
  for (int i = 0; i < 3; ++i) {
    int x = area.left + listWidth + gap;
    if (below)
      places[i] = {area.left + i % perRow * (buttonWidth + gap), top + listHeight + ScaleY(kLineGap) + i / perRow * step};
    else if (stacked) places[i] = {x, top + i * step};
    else places[i] = {x + (i / 2) * (buttonWidth + gap), top + (i % 2) * step};
  }
  std::pair<HWND*, unsigned> buttons[] = {
      {&orderUp_, kOrderUpText}, {&orderDown_, kOrderDownText}, {&orderReset_, kOrderResetText}};
  for (int i = 0; i < 3; ++i)
    *buttons[i].first = AddControl(L"BUTTON", AsWide(Text(buttons[i].second).Text()), BS_PUSHBUTTON | WS_TABSTOP,
                                   Box(places[i].x, places[i].y, buttonWidth, height), ids_.first + kOrderUpId + i,
                                   context().normalFont);
  editors_.insert(editors_.end(), {orderList_, orderUp_, orderDown_, orderReset_, editor_.numberCombo});
}

// The longest order row's name wrapped at the editors' width.
int RowListPage::OrderNameHeight() const {
  int height = ScaleY(kCaptionHeight);
  for (const RowTab& tab : tabs_)
    for (const Row& row : tab.rows)
      if (row.editor == EditorKind::Order)
        height = std::max(height, int(TextExtent(context().normalFont, Text(row.name).View(),
                                                 editorArea_.right - editorArea_.left).cy));
  return height;
}

// Each form is a column of captioned controls from the top of the page;
// pages wider than high go on in a second column what the first cannot
// hold, and then share the width by what the columns hold: a check list
// gets the width its longest entry needs where the other column can spare
// it. A check list takes the rows it has, or what room is left.
void RowListPage::MakeForm(int tab) {
  if (tab < 0 || tab >= int(tabs_.size()) || formsMade_[tab]) return;
  formsMade_[tab] = true;
  std::span<const Row> rows = tabs_[tab].form;
  if (rows.empty()) return;
  int id = formFirstIds_[tab];
  RECT page = PageArea();
  int top = page.top + ScaleY(kGap), bottom = tabArea_.top - ScaleY(kGap);
  int left = ScaleX(kMargin), right = page.right - ScaleX(kMargin);
  int shared = page.right - 3 * ScaleX(kMargin), half = shared / 2;
  std::vector<RECT> columns = {{left, top, right, bottom}};
  int height = 0, fullWidth = right - left;
  for (const Row& row : rows) height += FormRowHeight(row, fullWidth) + ScaleY(kFormGap);
  if (page.right > page.bottom && top + height - ScaleY(kFormGap) > bottom) {
    columns = {{left, top, left + half, bottom}, {right - half, top, right, bottom}};
    std::vector<std::size_t> placed = FormColumns(rows, columns);
    int needed[2] = {0, 0};
    for (std::size_t i = 0; i < rows.size(); ++i)
      needed[placed[i]] = std::max(needed[placed[i]], FormRowWidth(rows[i]));
    int most = shared - shared / 3;
    int leftWidth = needed[1] > half ? shared - std::min(needed[1], most)
                    : needed[0] > half ? std::min(needed[0], most) : half;
    columns = {{left, top, left + leftWidth, bottom}, {right - (shared - leftWidth), top, right, bottom}};
  }
  std::size_t first = forms_.size();
  std::vector<std::size_t> placed = FormColumns(rows, columns);
  for (std::size_t i = 0; i < rows.size(); ++i) CreateFormRow(rows[i], tab, columns[placed[i]], id);
  for (std::size_t i = first; i < forms_.size(); ++i) FillFormRow(forms_[i]);
  ApplyEnableRules();
}

// A form is made when its tab is first shown or its controls are asked for,
// so a page opens with its first tab's windows alone. Ids are handed out as
// if every form were made at once: a control's id never depends on which
// tabs were shown.
void RowListPage::PlanForms() {
  int id = ids_.first + kRowListIdCount;
  for (const RowTab& tab : tabs_) {
    formFirstIds_.push_back(id);
    for (const Row& row : tab.form) id += FormRowWindowCount(row);
  }
  formsMade_.assign(tabs_.size(), false);
  firstOwnId_ = id;
}

// The windows CreateFormRow makes for the row, each taking an id.
int RowListPage::FormRowWindowCount(const Row& row) {
  bool captioned = row.editor != EditorKind::Check && row.caption != 0;
  int controls = row.editor == EditorKind::Heading ? 0 : row.editor == EditorKind::Path ? 2 : 1;
  return (captioned ? 1 : 0) + controls;
}

// Rows go down the first column and on in the next what it cannot hold.
std::vector<std::size_t> RowListPage::FormColumns(std::span<const Row> rows, const std::vector<RECT>& columns) const {
  std::vector<std::size_t> placed;
  std::size_t column = 0;
  int top = columns[0].top;
  for (const Row& row : rows) {
    int width = columns[column].right - columns[column].left;
    if (top + FormRowHeight(row, width) > columns[column].bottom && column + 1 < columns.size()) {
      top = columns[++column].top;
      width = columns[column].right - columns[column].left;
    }
    placed.push_back(column);
    top += FormRowHeight(row, width) + ScaleY(kFormGap);
  }
  return placed;
}

// The width a row needs to show every entry on one line; rows that wrap or
// widen their open list need none of their own.
int RowListPage::FormRowWidth(const Row& row) const {
  if (row.editor != EditorKind::CheckList && row.editor != EditorKind::FlagList) return 0;
  int widest = 0;
  for (const CheckItem& item : row.items)
    widest = std::max(widest, int(TextExtent(context().normalFont, Text(item.label).View()).cx));
  return widest + ScaleX(kCheckImageWidth + kLabelMargins) + 2 * GetSystemMetrics(SM_CXBORDER);
}

void RowListPage::ApplyEnableRules() {
  for (const FormWindows& form : forms_)
    if (form.row->enabled != nullptr) {
      BOOL enable = form.row->enabled(settings()) ? TRUE : FALSE;
      for (HWND window : {form.caption, form.control, form.button})
        if (window != nullptr) EnableWindow(window, enable);
    }
}

int RowListPage::FormRowHeight(const Row& row, int width) const {
  bool captioned = row.editor != EditorKind::Check && row.caption != 0;
  int caption = captioned ? ScaleY(kCaptionHeight) + ScaleY(kLineGap) : 0;
  switch (row.editor) {
    case EditorKind::Check:
      return CheckHeight(row, width);
    case EditorKind::Heading:
      return caption;
    case EditorKind::CheckList:
    case EditorKind::FlagList:
      return caption + ScaleY(kCheckRowHeight) * int(row.items.size()) + ScaleY(kGap);
    default:
      return caption + ScaleY(kFieldHeight);
  }
}

// A check box wraps its text: a text longer than the column takes the lines
// it needs beside the box, as a German one does in a landscape column.
int RowListPage::CheckHeight(const Row& row, int width) const {
  WideString text = Text(row.caption);
  int needed = TextExtent(context().normalFont, text.View(),
                          width - GetSystemMetrics(SM_CXMENUCHECK) - ScaleX(kCheckTextGap)).cy;
  return std::max(ScaleY(kFormCheckHeight), needed + 2 * ScaleY(kLineGap));
}

void RowListPage::CreateFormRow(const Row& row, int tab, RECT& area, int& id) {
  HFONT font = context().normalFont;
  int width = area.right - area.left;
  int rowBottom = area.top + FormRowHeight(row, width);
  FormWindows form = {tab, &row, nullptr, nullptr};
  if (row.editor != EditorKind::Check && row.caption != 0) {
    DWORD align = row.editor == EditorKind::Text ? SS_CENTER : SS_LEFT;
    form.caption = AddControl(L"STATIC", AsWide(Text(row.caption).Text()), align | SS_NOPREFIX,
                              Box(area.left, area.top, width, ScaleY(kCaptionHeight)), id++, context().boldFont);
    area.top += ScaleY(kCaptionHeight) + ScaleY(kLineGap);
  }
  int height = std::min(rowBottom, int(area.bottom)) - area.top;
  switch (row.editor) {
    case EditorKind::Check:
      form.control = AddControl(L"BUTTON", AsWide(Text(row.caption).Text()),
                                BS_AUTOCHECKBOX | BS_MULTILINE | WS_TABSTOP, Box(area.left, area.top, width, height),
                                id++, font);
      break;
    case EditorKind::Text:
      form.control = AddControl(L"EDIT", L"", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP,
                                Box(area.left, area.top, width, height), id++, font);
      break;
    case EditorKind::Heading:
      form.control = form.caption;
      break;
    case EditorKind::Path: {
      int button = ScaleX(kBrowseButtonWidth), field = width - button - ScaleX(kGap);
      form.control = AddControl(L"EDIT", L"", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP,
                                Box(area.left, area.top, field, height), id++, font);
      form.button = AddControl(L"BUTTON", AsWide(Text(kBrowseText).Text()), BS_PUSHBUTTON | WS_TABSTOP,
                               Box(area.right - button, area.top, button, height), id++, font);
      break;
    }
    case EditorKind::CheckList:
    case EditorKind::FlagList:
      form.control = AddControl(WC_LISTVIEWW, L"", kListStyle, Box(area.left, area.top, width, height), id++, font);
      ListViewPrepare(form.control, true);
      {
        ListViewBatch batch(form.control);
        for (const CheckItem& item : row.items) ListViewAddRow(form.control, Text(item.label).View());
      }
      break;
    default:
      form.control = AddControl(L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP,
                                Box(area.left, area.top, width, ScaleY(kDropDownHeight)), id++, font);
      break;
  }
  area.top += height + ScaleY(kFormGap);
  forms_.push_back(form);
}

void RowListPage::FillFormRow(const FormWindows& form) {
  const Row& row = *form.row;
  HWND control = form.control;
  if (control == nullptr) return;
  SettingsStore& record = settings();
  switch (row.editor) {
    case EditorKind::Check:
      SetChecked(control, (NumberOf(record, row) & 1) != 0);
      break;
    case EditorKind::Text:
    case EditorKind::Path:
      SetText(control, (record.*row.text).View());
      break;
    case EditorKind::Heading:
      break;
    case EditorKind::CheckList:
      for (int i = 0; i < int(row.items.size()); ++i) ListViewSetChecked(control, i, record.*row.items[i].field == 1);
      break;
    case EditorKind::FlagList:
      for (int i = 0; i < int(row.items.size()); ++i)
        ListViewSetChecked(control, i, (record.*row.number & row.items[i].flag) != 0);
      break;
    default:
      FillChoices(row, control);
      break;
  }
}

void RowListPage::StoreFormRow(const FormWindows& form) {
  const Row& row = *form.row;
  HWND control = form.control;
  if (control == nullptr) return;
  SettingsStore& record = settings();
  switch (row.editor) {
    case EditorKind::Check:
      NumberOf(record, row) = IsChecked(control) ? 1 : 0;
      break;
    case EditorKind::Text:
    case EditorKind::Path: {
      std::u16string text = GetText(control);
      std::size_t length = row.editor == EditorKind::Path ? kFormPathLength : kFormTextLength;
      if (text.size() > length) text.resize(length);
      (record.*row.text).Assign(text);
      break;
    }
    case EditorKind::Heading:
      break;
    case EditorKind::CheckList:
      for (int i = 0; i < int(row.items.size()); ++i) record.*row.items[i].field = ListViewChecked(control, i) ? 1 : 0;
      break;
    case EditorKind::FlagList: {
      std::int32_t value = 0;
      for (int i = 0; i < int(row.items.size()); ++i)
        if (ListViewChecked(control, i)) value |= row.items[i].flag;
      record.*row.number = value;
      break;
    }
    default: {
      int position = ComboSelection(control);
      if (position >= 0 || row.storesNoChoice) NumberOf(record, row) = row.rule(position);
      break;
    }
  }
}

const RowListPage::FormWindows* RowListPage::FindForm(int tab, int row) {
  MakeForm(tab);
  for (const FormWindows& form : forms_)
    if (form.tab == tab && row-- == 0) return &form;
  return nullptr;
}

HWND RowListPage::FormControl(int tab, int row) {
  const FormWindows* form = FindForm(tab, row);
  return form ? form->control : nullptr;
}

HWND RowListPage::FormCaption(int tab, int row) {
  const FormWindows* form = FindForm(tab, row);
  return form ? form->caption : nullptr;
}

HWND RowListPage::FormButton(int tab, int row) {
  const FormWindows* form = FindForm(tab, row);
  return form ? form->button : nullptr;
}

int RowListPage::CurrentTab() const { return tabStrip_ ? TabSelection(tabStrip_) : -1; }

HWND RowListPage::List(int tab) const {
  return tab >= 0 && tab < int(lists_.size()) ? lists_[tab] : nullptr;
}

const Row* RowListPage::RowAt(int row, int tab) const {
  if (tab < 0 || tab >= int(tabs_.size())) return nullptr;
  std::span<const Row> rows = tabs_[tab].rows;
  return row >= 1 && row <= int(rows.size()) ? &rows[row - 1] : nullptr;
}

void RowListPage::Show(int showCommand, bool) {
  ShowWindow(tabStrip_, showCommand);
  ShowTab(CurrentTab(), showCommand);
}

// Hiding stores the shown row and leaves the list without a selection, so
// coming back shows the list with no editor.
void RowListPage::ShowTab(int tab, int showCommand) {
  HWND list = showCommand == 0 ? List(tab) : ShownList(tab);
  if (showCommand == 0 && list != nullptr) {
    StoreShownRow(tab);
    quiet_ = true;
    ListViewSelect(list, -1);
    quiet_ = false;
  }
  bool listed = tab >= 0 && tab < int(tabs_.size()) && !tabs_[tab].rows.empty();
  if (list != nullptr) {
    ShowWindow(list, showCommand);
    SetWindowPos(list, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  } else if (!listed) {
    if (showCommand != 0) MakeForm(tab);
    for (const FormWindows& form : forms_)
      if (form.tab == tab)
        for (HWND window : {form.caption, form.control, form.button})
          if (window != nullptr) ShowWindow(window, showCommand);
    ShowOwnTab(tab, showCommand);
  }
  HideEditors();
}

// The editor shows the selected row. The selection mark agrees after a tap,
// but not after one selected by a message to the list; storing at the
// mark then wrote the editor's value into another row's setting.
void RowListPage::StoreShownRow(int tab) {
  HWND list = List(tab);
  int row = list != nullptr ? ListViewSelection(list) : -1;
  if (row >= 0) Store(row + 1, tab);
}

void RowListPage::HideEditors() {
  for (HWND editor : editors_) ShowWindow(editor, SW_HIDE);
  shownOrder_ = nullptr;
}

void RowListPage::ShowEditor(HWND editor, unsigned text) {
  if (text != 0) SetText(editor, Text(text).View());
  ShowWindow(editor, SW_SHOW);
}

void RowListPage::Fill(int rowNumber, int tab) {
  const Row* row = RowAt(rowNumber, tab);
  if (row == nullptr) return;
  MakeEditors();
  ComboClear(editor_.dropDown);
  ComboClear(editor_.numberCombo);
  HideEditors();
  SettingsStore& record = settings();
  switch (row->editor) {
    case EditorKind::DropDown:
      FillChoices(*row, editor_.dropDown);
      ShowEditor(editor_.caption, row->caption);
      ShowEditor(editor_.dropDown, 0);
      break;
    case EditorKind::NumberCombo:
      FillChoices(*row, editor_.numberCombo);
      SetText(editor_.numberCombo, FormatText(u"%d", {record.*row->number}));
      ShowEditor(editor_.caption, row->caption);
      ShowEditor(editor_.numberCombo, 0);
      break;
    case EditorKind::TextDropDown:
      FillTextChoices(*row);
      ShowEditor(editor_.caption, row->caption);
      ShowEditor(editor_.dropDown, 0);
      break;
    case EditorKind::CheckList:
    case EditorKind::FlagList:
    case EditorKind::Heading:
    case EditorKind::Path:
      break;  // form rows only
    case EditorKind::Check:
      SetChecked(editor_.check, (record.*row->number & 1) != 0);
      ShowEditor(editor_.check, row->caption);
      break;
    case EditorKind::Text:
      SetText(editor_.text, (record.*row->text).View());
      ShowEditor(editor_.caption, row->caption);
      ShowEditor(editor_.text, 0);
      break;
    case EditorKind::Order:
      FillOrder(*row->order);
      for (HWND control : {orderList_, orderUp_, orderDown_, orderReset_}) ShowWindow(control, SW_SHOW);
      break;
  }
  ShowEditor(editor_.tip, row->editor == EditorKind::Order ? row->name : row->tip);
  FitTip(row->editor == EditorKind::Order ? OrderNameHeight() : ScaleY(kTipHeight));
}

// A tip takes the lines its wrapped text needs, a long German one more than
// the usual three, and the editors follow below it.
void RowListPage::FitTip(int least) {
  const RECT& area = editorArea_;
  int width = area.right - area.left;
  int tip = std::max(least, int(TextExtent(context().normalFont, GetText(editor_.tip), width).cy));
  int below = area.top + tip + ScaleY(kLineGap), field = below + ScaleY(kCaptionHeight) + ScaleY(kLineGap);
  constexpr UINT kMoveOnly = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
  SetWindowPos(editor_.tip, nullptr, area.left, area.top, width, tip, SWP_NOZORDER | SWP_NOACTIVATE);
  for (HWND editor : {editor_.caption, editor_.check}) SetWindowPos(editor, nullptr, area.left, below, 0, 0, kMoveOnly);
  for (HWND editor : {editor_.dropDown, editor_.text, editor_.numberCombo})
    SetWindowPos(editor, nullptr, area.left, field, 0, 0, kMoveOnly);
}

ChoiceContext RowListPage::Choosing() { return {locale_, PageToday(), context()}; }

// Adds the row's entries and selects the one whose value is the setting's;
// the row's fallback, or none, when no entry has it (a value from an older
// version, say).
void RowListPage::FillChoices(const Row& row, HWND combo) {
  const Choices& choices = row.choices;
  switch (choices.kind) {
    case Choices::Kind::None:
      break;
    case Choices::Kind::TextRange:
      for (int i = 0; i < choices.count; ++i) ComboAdd(combo, Text(choices.firstText + i).View());
      break;
    case Choices::Kind::TextList:
      for (unsigned id : choices.texts) ComboAdd(combo, Text(id).View());
      break;
    case Choices::Kind::Literals:
      for (const char16_t* literal : choices.literals) ComboAdd(combo, literal);
      break;
    case Choices::Kind::Numbers:
      for (int i = 0; i < choices.count; ++i) ComboAdd(combo, FormatText(u"%d", {choices.firstNumber + i}));
      break;
    case Choices::Kind::Generated:
      for (const std::u16string& text : choices.generate(Choosing())) ComboAdd(combo, text);
      break;
  }
  std::int32_t& value = NumberOf(settings(), row);
  if (row.fillRule != nullptr) value = row.fillRule(value);
  int selected = -1;
  for (int position = 0, count = ComboCount(combo); position < count && selected < 0; ++position)
    if (row.rule(position) == value) selected = position;
  ComboSelect(combo, selected < 0 ? row.fallback : selected);
}

void RowListPage::FillTextChoices(const Row& row) {
  TextChoices choices = row.textChoices(Choosing());
  for (const std::u16string& text : choices.shown) ComboAdd(editor_.dropDown, text);
  storedTexts_ = std::move(choices.stored);
  ComboSelect(editor_.dropDown, choices.selected);
}

// A drop-down left without a selection keeps the setting as it was.
void RowListPage::Store(int rowNumber, int tab) {
  const Row* row = RowAt(rowNumber, tab);
  // Editors not made yet were never filled: they hold nothing to store.
  if (row == nullptr || editors_.empty()) return;
  SettingsStore& record = settings();
  switch (row->editor) {
    case EditorKind::DropDown: {
      int position = ComboSelection(editor_.dropDown);
      if (position >= 0) record.*row->number = row->rule(position);
      break;
    }
    case EditorKind::Check: {
      std::int32_t value = IsChecked(editor_.check) ? 1 : 0;
      if (row->check != nullptr) value = row->check(context(), value);
      record.*row->number = value;
      SetChecked(editor_.check, value != 0);
      break;
    }
    case EditorKind::Text:
      (record.*row->text).Assign(GetText(editor_.text));
      break;
    case EditorKind::NumberCombo:
      record.*row->number = TypedNumber(GetText(editor_.numberCombo));
      break;
    case EditorKind::TextDropDown: {
      int position = ComboSelection(editor_.dropDown);
      if (position >= 0 && position < int(storedTexts_.size())) (record.*row->text).Assign(storedTexts_[position]);
      break;
    }
    case EditorKind::Order:
    case EditorKind::CheckList:
    case EditorKind::FlagList:
    case EditorKind::Heading:
    case EditorKind::Path:
      break;  // every move is written at once; check lists are form rows
  }
}

// Part numbers outside the range stand for their own place.
void RowListPage::FillOrder(const OrderSpec& order) {
  shownOrder_ = &order;
  int parts = int(order.places.size());
  while (ListViewCount(orderList_) < parts) ListViewAddRow(orderList_, u"");
  for (int place = 0; place < parts; ++place) {
    std::int32_t part = settings().*order.places[place];
    if (part < 0 || part >= parts) part = place;
    ListViewSetRowText(orderList_, place, Text(order.firstPartText + part).View());
  }
}

// Swaps the selected part with its neighbour; nothing moves past the ends.
void RowListPage::MoveOrderPart(int by) {
  if (shownOrder_ == nullptr) return;
  std::span<const NumberField> places = shownOrder_->places;
  int from = ListViewSelection(orderList_), to = from + by;
  if (from < 0 || to < 0 || to >= int(places.size())) return;
  SettingsStore& record = settings();
  for (int place : {from, to}) {
    std::int32_t& part = record.*places[place];
    if (part < 0 || part >= int(places.size())) part = place;
  }
  std::swap(record.*places[from], record.*places[to]);
  FillOrder(*shownOrder_);
  ListViewSelect(orderList_, to);
}

void RowListPage::ResetOrder() {
  if (shownOrder_ == nullptr) return;
  for (std::size_t place = 0; place < shownOrder_->places.size(); ++place)
    settings().*shownOrder_->places[place] = std::int32_t(place);
  FillOrder(*shownOrder_);
}

// A drop-down is stored as soon as a choice is made in it, so that the rows
// whose use depends on it follow at once.
bool RowListPage::OnFormCommand(int id, int code) {
  for (const FormWindows& form : forms_) {
    if (form.button != nullptr && id == GetDlgCtrlID(form.button) && code == BN_CLICKED) {
      BrowseForPath(form);
      return true;
    }
    bool choice = code == CBN_SELCHANGE || code == CBN_SELENDOK;
    if (choice && id == GetDlgCtrlID(form.control) && form.row->editor == EditorKind::DropDown) {
      StoreFormRow(form);
      ApplyEnableRules();
      return true;
    }
  }
  return false;
}

// The chooser starts where the typed path points; one too long for its
// buffer starts it at the root rather than being cut.
void RowListPage::BrowseForPath(const FormWindows& form) {
  std::wstring typed = ToWide(GetText(form.control));
  wchar_t path[kChooserPathCapacity] = {};
  if (typed.size() < kChooserPathCapacity) std::wcscpy(path, typed.c_str());
  Win32FileSystem files;
  if (ChoosePath(context().window, context().instance, context().language, files, locale_, BrowseFor::File, path,
                 kChooserPathCapacity) == 1)
    SetText(form.control, AsU16(path));
}

bool RowListPage::OnCommand(HWND, UINT, WPARAM wParam, LPARAM) {
  if (OnFormCommand(LOWORD(wParam), HIWORD(wParam))) return true;
  if (HIWORD(wParam) != BN_CLICKED) return false;
  int id = LOWORD(wParam) - ids_.first;
  if (id == kOrderUpId) MoveOrderPart(-1);
  else if (id == kOrderDownId) MoveOrderPart(1);
  else if (id == kOrderResetId) ResetOrder();
  else return false;
  return true;
}

void RowListPage::OnRowChanged(const NMLISTVIEW& change) {
  if (quiet_ || !(change.uChanged & LVIF_STATE)) return;
  bool was = change.uOldState & LVIS_SELECTED, is = change.uNewState & LVIS_SELECTED;
  // An editor left showing after a tap on blank list space would take edits
  // that no row receives; the next row's Fill shows it again.
  if (was && !is) {
    Store(change.iItem + 1, CurrentTab());
    HideEditors();
  }
  if (!was && is) Fill(change.iItem + 1, CurrentTab());
}

LRESULT RowListPage::OnNotify(HWND, UINT, WPARAM, LPARAM lParam) {
  const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
  if (header.hwndFrom == tabStrip_) {
    if (header.code == TCN_SELCHANGING) ShowTab(CurrentTab(), SW_HIDE);
    if (header.code == TCN_SELCHANGE) ShowTab(CurrentTab(), SW_SHOW);
    return 0;
  }
  for (HWND list : lists_)
    if (list != nullptr && header.hwndFrom == list && header.code == LVN_ITEMCHANGED)
      OnRowChanged(*reinterpret_cast<const NMLISTVIEW*>(lParam));
  return 0;
}

}  // namespace tw
