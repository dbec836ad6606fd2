#include "pages/filter_panel.h"

#include <string>

#include "base/scaling.h"
#include "pages/common_controls.h"
#include "platform/win32/wide.h"

namespace tw {
namespace {

using P = FilterPanel;

constexpr unsigned kFilterTabText = 40999, kCategoriesTabText = 41000, kTitleText = 41001,
                   kSensitivityText = 41002, kVisibleText = 41003, kUncategorizedText = 41004,
                   kMembersText = 41009;
// The sensitivity choices, by the number the filter file holds.
constexpr unsigned kSensitivityTexts[] = {41005, 41006, 41007, 41008};
constexpr int kSensitivityChoices = int(std::size(kSensitivityTexts));

// Layout in 96-dpi units below the page's top.
constexpr int kMargin = 4, kRowHeight = 20, kLabelWidth = 86, kTabStripHeight = 21, kDropHeight = 160;
constexpr int kTitleTop = 28, kSensitivityTop = 52, kVisibleTop = 78, kUncategorizedTop = 98,
              kUncategorizedHeight = 28, kMembersLabelTop = 26, kMembersTop = 42;

constexpr P::Control kFilterTabControls[] = {P::kTitleLabel,  P::kTitle,   P::kSensitivityLabel,
                                             P::kSensitivity, P::kVisible, P::kUncategorized};
constexpr P::Control kCategoriesTabControls[] = {P::kMembersLabel, P::kMembers};

std::u16string ChoiceText(int filter, const FilterEntry& entry) {
  return FormatText(u"%d: %s", {filter + 1, entry.title.View()}, WideString::kMaxLength);
}

}  // namespace

FilterPanel::FilterPanel(const PageContext& context, CategoryData& data) : SettingsPage(context), data_(data) {
  filters_ = data.filters.entries;
  for (const CategoryEntry& category : data.categories.entries) masks_.push_back(category.filterMask);
}

// Made when first shown: the tab strip and the list need the common
// controls, which would cost every start-up their loading.
void FilterPanel::CreateControls() {
  LoadCommonControls();
  auto add = [&](Control control, const wchar_t* className, DWORD style, unsigned text = 0) {
    controls_[control] =
        AddControl(className, AsWide(Text(text).Text()), style, {}, IdOf(control), context().normalFont);
  };
  add(kFilterChoice, WC_COMBOBOXW, CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP);
  add(kTabs, WC_TABCONTROLW, WS_CLIPSIBLINGS | TCS_BOTTOM);
  TabAdd(controls_[kTabs], Text(kFilterTabText).View());
  TabAdd(controls_[kTabs], Text(kCategoriesTabText).View());
  add(kTitleLabel, L"STATIC", SS_LEFT | SS_CENTERIMAGE | SS_NOPREFIX, kTitleText);
  add(kTitle, L"EDIT", WS_BORDER | ES_AUTOHSCROLL | WS_TABSTOP);
  SendMessageW(controls_[kTitle], EM_LIMITTEXT, WideString::kMaxLength, 0);
  add(kSensitivityLabel, L"STATIC", SS_LEFT | SS_CENTERIMAGE | SS_NOPREFIX, kSensitivityText);
  add(kSensitivity, WC_COMBOBOXW, CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP);
  add(kVisible, L"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP, kVisibleText);
  add(kUncategorized, L"BUTTON", BS_AUTOCHECKBOX | BS_MULTILINE | WS_TABSTOP, kUncategorizedText);
  add(kMembersLabel, L"STATIC", SS_LEFT | SS_NOPREFIX, kMembersText);
  add(kMembers, WC_LISTVIEWW,
      WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_NOCOLUMNHEADER | LVS_SHOWSELALWAYS);
  Place();
  ListViewPrepare(controls_[kMembers], true);
  {
    ListViewBatch batch(controls_[kMembers]);
    for (const CategoryEntry& category : data_.categories.entries)
      ListViewAddRow(controls_[kMembers], category.name.View());
  }
  FillFilterChoice();
  ShowFilter(0);
}

void FilterPanel::Place() {
  RECT area = PageArea();
  int top = area.top, left = ScaleX(kMargin), right = area.right - ScaleX(kMargin);
  int tabTop = area.bottom - ScaleY(kTabStripHeight), fieldLeft = left + ScaleX(kLabelWidth);
  auto row = [&](int rowTop, int height = kRowHeight) -> RECT {
    return {left, top + ScaleY(rowTop), right, top + ScaleY(rowTop) + ScaleY(height)};
  };
  auto label = [&](int rowTop) { return RECT{left, top + ScaleY(rowTop), fieldLeft - ScaleX(2), row(rowTop).bottom}; };
  auto field = [&](int rowTop, int height = kRowHeight) {
    return RECT{fieldLeft, top + ScaleY(rowTop), right, row(rowTop, height).bottom};
  };
  const RECT boxes[kControlCount] = {
      row(kMargin, kDropHeight),
      {0, tabTop, area.right, area.bottom},
      label(kTitleTop),
      field(kTitleTop),
      label(kSensitivityTop),
      field(kSensitivityTop, kDropHeight / 2),
      row(kVisibleTop, 18),
      row(kUncategorizedTop, kUncategorizedHeight),
      {left, top + ScaleY(kMembersLabelTop), right, top + ScaleY(kMembersTop - 2)},
      {left, top + ScaleY(kMembersTop), right, tabTop - ScaleY(kMargin)},
  };
  PlaceControls(controls_, boxes);
}

void FilterPanel::FillFilterChoice() {
  HWND choice = controls_[kFilterChoice];
  ComboClear(choice);
  for (int filter = 0; filter < int(filters_.size()); ++filter) ComboAdd(choice, ChoiceText(filter, filters_[filter]));
  ComboSelect(choice, current_);
}

// A sensitivity the panel has no name for keeps its number as a choice of
// its own, so that looking at a filter never changes it.
void FilterPanel::ShowFilter(int filter) {
  if (filter < 0 || filter >= int(filters_.size())) return;
  current_ = filter;
  const FilterEntry& entry = filters_[filter];
  SetText(controls_[kTitle], entry.title.View());
  HWND sensitivity = controls_[kSensitivity];
  ComboClear(sensitivity);
  for (unsigned text : kSensitivityTexts) ComboAdd(sensitivity, Text(text).View());
  bool named = entry.sensitivity >= 0 && entry.sensitivity < kSensitivityChoices;
  if (!named) ComboAdd(sensitivity, FormatText(u"%d", {entry.sensitivity}, WideString::kMaxLength));
  ComboSelect(sensitivity, named ? entry.sensitivity : kSensitivityChoices);
  SetChecked(controls_[kVisible], entry.visible);
  SetChecked(controls_[kUncategorized], entry.includeUncategorized);
  for (int category = 0; category < int(masks_.size()); ++category)
    ListViewSetChecked(controls_[kMembers], category, (masks_[category] >> filter) & 1u);
}

void FilterPanel::StoreFilter() {
  if (controls_[kTitle] == nullptr) return;  // never shown, nothing edited
  FilterEntry& entry = filters_[current_];
  std::u16string title = GetText(controls_[kTitle]);
  bool renamed = entry.title.View() != title;
  entry.title.Assign(title);
  int sensitivity = ComboSelection(controls_[kSensitivity]);
  if (sensitivity >= 0 && sensitivity < kSensitivityChoices) entry.sensitivity = sensitivity;
  entry.visible = IsChecked(controls_[kVisible]);
  entry.includeUncategorized = IsChecked(controls_[kUncategorized]);
  // Filters beyond the mask's 32 bits have no memberships to keep, and
  // without the common controls there is no list to read them from.
  if (current_ < 32 && controls_[kMembers] != nullptr) {
    std::uint32_t bit = 1u << current_;
    for (int category = 0; category < int(masks_.size()); ++category) {
      bool member = ListViewChecked(controls_[kMembers], category);
      masks_[category] = member ? masks_[category] | bit : masks_[category] & ~bit;
    }
  }
  if (renamed) FillFilterChoice();
}

void FilterPanel::Show(int showCommand, bool) {
  shown_ = showCommand != 0;
  if (shown_ && controls_[kTitle] == nullptr) CreateControls();
  ShowWindow(controls_[kFilterChoice], showCommand);
  ShowWindow(controls_[kTabs], showCommand);
  ShowTab(showCommand);
}

void FilterPanel::ShowTab(int showCommand) {
  bool categories = TabSelection(controls_[kTabs]) == kCategoriesTab;
  for (Control control : kFilterTabControls) ShowWindow(controls_[control], categories ? 0 : showCommand);
  for (Control control : kCategoriesTabControls) ShowWindow(controls_[control], categories ? showCommand : 0);
}

void FilterPanel::OnCommand(int id, int code) {
  if (id == IdOf(kFilterChoice) && code == CBN_SELCHANGE) {
    int chosen = ComboSelection(controls_[kFilterChoice]);
    StoreFilter();
    ShowFilter(chosen);
    ComboSelect(controls_[kFilterChoice], current_);
  }
}

LRESULT FilterPanel::OnNotify(HWND, UINT, WPARAM, LPARAM lParam) {
  const auto* header = reinterpret_cast<const NMHDR*>(lParam);
  if (header == nullptr || header->hwndFrom != controls_[kTabs]) return 0;
  if (header->code == TCN_SELCHANGE) ShowTab(shown_ ? SW_SHOW : 0);
  return 0;
}

// The shell paints the dark page over the controls; they come out on top.
void FilterPanel::Paint(HDC) { RepaintShown(Controls()); }

HBRUSH FilterPanel::ControlColour(HDC dc, HWND control) {
  if (control == controls_[kTitle]) return nullptr;
  return CategoryPageColours(dc);
}

void FilterPanel::Commit() {
  StoreFilter();
  data_.filters.entries = filters_;
  for (std::size_t category = 0; category < masks_.size() && category < data_.categories.entries.size(); ++category)
    data_.categories.entries[category].filterMask = masks_[category];
}

}  // namespace tw
