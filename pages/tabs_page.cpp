#include "pages/tabs_page.h"

#include <commctrl.h>

#include <algorithm>
#include <vector>

#include "base/scaling.h"
#include "controls/plugin_chooser.h"
#include "data/hosted_tabs.h"
#include "pages/common_controls.h"
#include "platform/win32/wide.h"

namespace tw {
namespace {

using S = SettingsStore;

// The notes and messages headings are this program's own texts.
constexpr unsigned kNotesTabHeading = 41100, kMessagesTabHeading = 41101;

// The built-in tabs in the order tabs of one number are listed. Rows show
// these fixed names in every language, and are matched by them.
struct BuiltInTab {
  std::u16string_view name;
  unsigned heading;
  std::int32_t S::*enabled;
  std::int32_t S::*order;
};
constexpr BuiltInTab kBuiltInTabs[] = {
    {u"Tasks", 40748, &S::TasksTabEnabled, &S::TasksTabOrder},
    {u"Special Events", 40747, &S::SEventsTabEnabled, &S::SEventsTabOrder},
    {u"Notes", kNotesTabHeading, &S::NotesTabEnabled, &S::NotesTabOrder},
    {u"Messages", kMessagesTabHeading, &S::MailTabEnabled, &S::MailTabOrder},
};

constexpr unsigned kUpText = 40248, kDownText = 40249, kAddText = 40739, kRemoveText = 40738,
                   kShowTabText = 40740, kOpenAsText = 40741, kPluginHeading = 40746, kExplanation = 40751;
constexpr unsigned kOpenAsChoices[] = {40743, 40744, 40745};
constexpr char16_t kHeadingPlaceholder[] = u"Settnings for __ tab";

// The calendar is the first tab, so the listed ones are numbered from 2.
constexpr std::int32_t kFirstListedOrder = 2, kOrderLimit = 1000;
constexpr COLORREF kLineColour = RGB(50, 50, 50);

constexpr DWORD kListStyle = WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_NOCOLUMNHEADER |
                             LVS_SHOWSELALWAYS;

// Layout in 96-dpi units. The explanation is painted from kTextTop down to
// the line; the list sits below the explanation (beside it on a wide
// screen), the tab's own settings below the line.
constexpr int kSide = 10, kTextTop = 34, kLineTop = 146, kWideLineTop = 99, kGap = 4, kColumnWidth = 50,
              kButtonWidth = 72, kButtonHeight = 20, kHeadingLine = 15, kCheckHeight = 18, kLabelWidth = 64,
              kDropDownHeight = 20, kDroppedHeight = 66;

// Order numbers walked upward from the lowest: at each, the built-in tabs in
// their fixed order, then the hosted ones. Skipping the numbers no tab holds
// lists the same rows; tabs numbered 1000 or more are not listed.
std::vector<std::u16string_view> ListedTabs(const SettingsStore& record) {
  std::vector<std::int32_t> orders;
  for (const BuiltInTab& tab : kBuiltInTabs) orders.push_back(record.*tab.order);
  for (const TabEntry& tab : record.tabs) orders.push_back(tab.order);
  std::sort(orders.begin(), orders.end());
  orders.erase(std::unique(orders.begin(), orders.end()), orders.end());
  std::vector<std::u16string_view> rows;
  for (std::int32_t order : orders) {
    if (order >= kOrderLimit) break;
    for (const BuiltInTab& tab : kBuiltInTabs)
      if (record.*tab.order == order) rows.push_back(tab.name);
    for (const TabEntry& tab : record.tabs)
      if (tab.order == order) rows.push_back(tab.name.View());
  }
  return rows;
}

int WrappedHeight(HWND window, HFONT font, std::u16string_view text, int width) {
  HDC dc = GetDC(window);
  HGDIOBJ oldFont = SelectObject(dc, font);
  RECT area = {0, 0, width, 0};
  DrawTextW(dc, AsWide(text.data()), int(text.size()), &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
  SelectObject(dc, oldFont);
  ReleaseDC(window, dc);
  return area.bottom;
}

}  // namespace

// Where everything goes in the main window's client area, in pixels.
struct TabsLayout {
  RECT text;
  int line;
  RECT list, up, down, heading, showTab, openAsLabel, openAs, add, remove;
};

namespace {

TabsLayout LayOut(HWND window, HFONT font, std::u16string_view explanation) {
  RECT client;
  GetClientRect(window, &client);
  bool wide = client.right > client.bottom;
  int left = ScaleX(kSide), right = client.right - ScaleX(kSide), gapX = ScaleX(kGap), gapY = ScaleY(kGap);
  int middle = client.right / 2, buttonHeight = ScaleY(kButtonHeight);
  TabsLayout at = {};
  at.line = ScaleY(wide ? kWideLineTop : kLineTop);
  at.text = {left, ScaleY(kTextTop), wide ? middle - gapX : right, at.line - gapY};

  int listTop = wide ? at.text.top : at.text.top + WrappedHeight(window, font, explanation, right - left) + gapY;
  int column = right - ScaleX(kColumnWidth);
  at.list = {wide ? middle : left, listTop, column - gapX, at.line - gapY};
  at.up = {column, listTop, right, listTop + buttonHeight};
  at.down = {column, at.up.bottom + gapY, right, at.up.bottom + gapY + buttonHeight};

  int top = at.line + ScaleY(1) + gapY;
  at.heading = {left, top, right, top + ScaleY(kHeadingLine) * (wide ? 1 : 2)};
  top = at.heading.bottom + gapY;
  // A wide screen has no room below: Add and Remove end the check box's row.
  int buttonsLeft = right - 2 * ScaleX(kButtonWidth) - gapX;
  at.showTab = {left, top, wide ? buttonsLeft - gapX : right, top + ScaleY(kCheckHeight)};
  int buttonsTop = wide ? top - (buttonHeight - ScaleY(kCheckHeight)) / 2 : client.bottom - gapY - buttonHeight;
  at.add = {wide ? buttonsLeft : left, buttonsTop, 0, buttonsTop + buttonHeight};
  at.add.right = at.add.left + ScaleX(kButtonWidth);
  at.remove = {at.add.right + gapX, buttonsTop, at.add.right + gapX + ScaleX(kButtonWidth), at.add.bottom};
  top = std::max(at.showTab.bottom, wide ? at.add.bottom : 0) + gapY;
  at.openAsLabel = {left, top, left + ScaleX(kLabelWidth), top + ScaleY(kDropDownHeight)};
  at.openAs = {at.openAsLabel.right + gapX, top, right, top + ScaleY(kDropDownHeight + kDroppedHeight)};
  return at;
}

}  // namespace

TabsPage::TabsPage(const PageContext& context) : SettingsPage(context) {
  LoadCommonControls();
  CreateControls(LayOut(context.window, context.normalFont, Text(kExplanation).View()));
  FillList();
  UpdateRemoveButton();
}

void TabsPage::CreateControls(const TabsLayout& at) {
  auto add = [&](Control control, const wchar_t* type, std::u16string_view text, DWORD style, const RECT& area) {
    controls_[control] = AddControl(type, ToWide(text).c_str(), style, area, kTabsPageIds.first + control,
                                    context().normalFont);
  };
  add(kTabList, WC_LISTVIEWW, u"", kListStyle, at.list);
  add(kUp, L"BUTTON", Text(kUpText).View(), BS_PUSHBUTTON | WS_TABSTOP, at.up);
  add(kDown, L"BUTTON", Text(kDownText).View(), BS_PUSHBUTTON | WS_TABSTOP, at.down);
  add(kAdd, L"BUTTON", Text(kAddText).View(), BS_PUSHBUTTON | WS_TABSTOP, at.add);
  add(kRemove, L"BUTTON", Text(kRemoveText).View(), BS_PUSHBUTTON | WS_TABSTOP, at.remove);
  add(kHeading, L"STATIC", kHeadingPlaceholder, SS_CENTER | SS_NOPREFIX, at.heading);
  add(kShowTab, L"BUTTON", Text(kShowTabText).View(), BS_AUTOCHECKBOX | WS_TABSTOP, at.showTab);
  add(kOpenAsLabel, L"STATIC", Text(kOpenAsText).View(), SS_LEFT | SS_CENTERIMAGE | SS_NOPREFIX, at.openAsLabel);
  add(kOpenAs, L"COMBOBOX", u"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, at.openAs);
  ListViewPrepare(controls_[kTabList]);
  for (unsigned choice : kOpenAsChoices) ComboAdd(controls_[kOpenAs], Text(choice).View());
}

void TabsPage::FillList() {
  ListViewBatch batch(controls_[kTabList]);
  for (std::u16string_view row : ListedTabs(settings())) ListViewAddRow(controls_[kTabList], row);
}

TabsPage::~TabsPage() {
  HWND list = controls_[kTabList];
  if (list == nullptr) return;
  if (int row = ListViewSelection(list); row >= 0) StoreTabSettings(ListViewRowText(list, row));
  // The list's order is the tab order: whatever numbers came in, they go
  // out as 2, 3, 4, ... from the top.
  SettingsStore& record = settings();
  for (int row = 0; row < ListViewCount(list); ++row) {
    std::u16string name = ListViewRowText(list, row);
    std::int32_t order = kFirstListedOrder + row;
    if (TabEntry* hosted = HostedTab(name)) hosted->order = order;
    for (const BuiltInTab& tab : kBuiltInTabs)
      if (name == tab.name) record.*tab.order = order;
  }
}

void TabsPage::Show(int showCommand, bool) {
  for (int control = 0; control < kControlCount; ++control) {
    bool shown = showCommand != SW_HIDE && (control < kHeading || settingsShown_[control]);
    ShowWindow(controls_[control], shown ? SW_SHOW : SW_HIDE);
  }
}

TabEntry* TabsPage::HostedTab(std::u16string_view name) const {
  std::vector<TabEntry>& tabs = settings().tabs;
  auto found = std::find_if(tabs.begin(), tabs.end(), [&](const TabEntry& tab) { return tab.name == name; });
  return found == tabs.end() ? nullptr : &*found;
}

void TabsPage::SetSettingsShown(Control control, bool shown) {
  settingsShown_[control] = shown;
  ShowWindow(controls_[control], shown ? SW_SHOW : SW_HIDE);
}

// A row is matched by its text against every rule, so a plug-in named like a
// built-in tab gets the plug-in's settings and then the built-in tab's.
void TabsPage::ShowTabSettings(std::u16string_view row) {
  SetText(controls_[kHeading], u"");
  for (Control control : {kHeading, kShowTab, kOpenAsLabel, kOpenAs}) SetSettingsShown(control, false);
  if (const TabEntry* hosted = HostedTab(row)) {
    SetText(controls_[kHeading], FormatText(Text(kPluginHeading).View(), {hosted->name.View()}));
    SetChecked(controls_[kShowTab], hosted->enabled != 0);
    ComboSelect(controls_[kOpenAs], hosted->type);
    for (Control control : {kHeading, kShowTab, kOpenAsLabel, kOpenAs}) SetSettingsShown(control, true);
  }
  for (const BuiltInTab& tab : kBuiltInTabs) {
    if (row != tab.name) continue;
    SetText(controls_[kHeading], Text(tab.heading).View());
    SetChecked(controls_[kShowTab], settings().*tab.enabled != 0);
    SetSettingsShown(kHeading, true);
    SetSettingsShown(kShowTab, true);
  }
}

void TabsPage::StoreTabSettings(std::u16string_view row) {
  std::int32_t shown = IsChecked(controls_[kShowTab]) ? 1 : 0;
  if (TabEntry* hosted = HostedTab(row)) {
    hosted->enabled = shown;
    // Left without a choice (a value the list does not offer): kept.
    if (int choice = ComboSelection(controls_[kOpenAs]); choice >= 0) hosted->type = choice;
  }
  for (const BuiltInTab& tab : kBuiltInTabs)
    if (row == tab.name) settings().*tab.enabled = shown;
}

// Only tabs of other plug-ins can go; the built-in ones are always there.
void TabsPage::UpdateRemoveButton() {
  HWND list = controls_[kTabList];
  int row = ListViewSelection(list);
  bool removable = false;
  if (row >= 0) {
    std::u16string name = ListViewRowText(list, row);
    for (const TabEntry& tab : settings().tabs) removable = removable || (tab.dynamic == 1 && tab.name == name);
  }
  EnableWindow(controls_[kRemove], removable);
}

// Before the rows change under it, the chosen row keeps its settings and
// the choice is cleared without the list's notices.
void TabsPage::LeaveRow() {
  HWND list = controls_[kTabList];
  if (int row = ListViewSelection(list); row >= 0) StoreTabSettings(ListViewRowText(list, row));
  quiet_ = true;
  ListViewSelect(list, -1);
  quiet_ = false;
}

void TabsPage::Move(int step) {
  HWND list = controls_[kTabList];
  int from = ListViewSelection(list), to = from + step;
  if (from < 0 || to < 0 || to >= ListViewCount(list)) return;
  std::u16string moved = ListViewRowText(list, from), other = ListViewRowText(list, to);
  LeaveRow();
  ListViewSetRowText(list, from, other);
  ListViewSetRowText(list, to, moved);
  ListViewSelect(list, to);
}

void TabsPage::AddPlugin() {
  if (context().registry == nullptr) return;
  Registry& registry = *context().registry;
  std::u16string name;
  if (ChoosePlugin(context().window, context().instance, context().language, registry, name) != 1) return;
  if (MessagePair refused = AddHostedTab(settings(), registry, name); refused != kNoMessage) {
    Tell(refused);
    return;
  }
  HWND list = controls_[kTabList];
  ListViewAddRow(list, TabEntry::Fit(name));
  ListViewSelect(list, ListViewCount(list) - 1);
}

void TabsPage::RemovePlugin() {
  HWND list = controls_[kTabList];
  int row = ListViewSelection(list);
  if (row < 0) return;
  std::u16string name = ListViewRowText(list, row);
  LeaveRow();
  if (!RemoveHostedTab(settings(), name)) {
    ListViewSelect(list, row);
    return;
  }
  SendMessageW(list, LVM_DELETEITEM, row, 0);
  for (Control control : {kHeading, kShowTab, kOpenAsLabel, kOpenAs}) SetSettingsShown(control, false);
}

bool TabsPage::OnCommand(HWND, UINT, WPARAM wParam, LPARAM) {
  int id = LOWORD(wParam);
  if (!kTabsPageIds.Holds(id) || HIWORD(wParam) != BN_CLICKED) return false;
  switch (id - kTabsPageIds.first) {
    case kUp:
      Move(-1);
      break;
    case kDown:
      Move(1);
      break;
    case kAdd:
      AddPlugin();
      break;
    case kRemove:
      RemovePlugin();
      break;
    default:
      return false;
  }
  UpdateRemoveButton();
  return true;
}

LRESULT TabsPage::OnNotify(HWND, UINT, WPARAM, LPARAM lParam) {
  const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
  if (header.hwndFrom != controls_[kTabList]) return 0;
  if (header.code == LVN_ITEMCHANGED) OnRowChanged(*reinterpret_cast<const NMLISTVIEW*>(lParam));
  UpdateRemoveButton();
  return 0;
}

void TabsPage::OnRowChanged(const NMLISTVIEW& change) {
  if (quiet_ || change.iItem < 0 || !(change.uChanged & LVIF_STATE)) return;
  bool was = change.uOldState & LVIS_SELECTED, is = change.uNewState & LVIS_SELECTED;
  if (was && !is) StoreTabSettings(ListViewRowText(controls_[kTabList], change.iItem));
  if (!was && is) ShowTabSettings(ListViewRowText(controls_[kTabList], change.iItem));
}

void TabsPage::Paint(HDC dc) {
  WideString explanation = Text(kExplanation);
  TabsLayout at = LayOut(context().window, context().normalFont, explanation.View());
  HGDIOBJ oldFont = SelectObject(dc, context().normalFont);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, RGB(0, 0, 0));
  DrawTextW(dc, AsWide(explanation.Text()), explanation.Length(), &at.text, DT_WORDBREAK | DT_NOPREFIX);
  SelectObject(dc, oldFont);
  RECT client;
  GetClientRect(context().window, &client);
  RECT line = {ScaleX(kSide), at.line, client.right - ScaleX(kSide), at.line + ScaleY(1)};
  HBRUSH brush = CreateSolidBrush(kLineColour);
  FillRect(dc, &line, brush);
  DeleteObject(brush);
  RepaintShown(Controls());
}

std::unique_ptr<SettingsPage> MakeTabsPage(const PageContext& context) {
  return std::make_unique<TabsPage>(context);
}

}  // namespace tw
