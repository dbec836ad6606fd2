#include "pages/special_events_page.h"

#include <windows.h>

#include "base/scaling.h"
#include "pages/common_controls.h"
#include "platform/win32/wide.h"

namespace tw {
namespace {

using S = SettingsStore;

constexpr int kFilterTab = 1;
constexpr int kDaySpanRow = 0;

constexpr unsigned kNoDateText = 40728, kWarningDaysText = 40727, kFirstFilterText = 40732;
// This label has no text number: the words stand as they are in every language.
constexpr wchar_t kFilterCategoryLabel[] = L"Filter category :";

// Today written with each picture, so that the user sees examples; only
// the position is stored.
constexpr const char16_t* kDatePictures[] = {u"MM/dd", u"MM/dd/yy", u"dd/MM", u"dd/MM/yy"};
std::vector<std::u16string> DateFormats(const ChoiceContext& context) {
  std::vector<std::u16string> formats = {std::u16string(PageText(context.page, kNoDateText).View())};
  for (const char16_t* picture : kDatePictures)
    formats.push_back(context.locale.FormatDate(context.today, DateStyle::Picture, picture));
  return formats;
}

// Days scanned for event appointments; any other stored number shows and
// stores as 30.
constexpr std::int32_t kDaySpans[] = {15, 30, 60, 120, 365};
constexpr int kThirtyDays = 1;
std::int32_t DaySpanAt(int position) {
  return position >= 0 && position < int(std::size(kDaySpans)) ? kDaySpans[position] : -1;
}
std::vector<std::u16string> DaySpanTexts(const ChoiceContext&) {
  std::vector<std::u16string> texts;
  for (std::int32_t days : kDaySpans) texts.push_back(FormatText(u"%d", {days}));
  return texts;
}

constexpr int kMaxWarningDays = 15;

constexpr Row kGeneralForm[] = {
    FormDropDown(40722, &S::SEventDays, TextRange(38, 3)),
    FormDropDown(40723, &S::SEAlertBeforeDays, Numbers(0, kMaxWarningDays + 1)),
    FormDropDown(40724, &S::SEDateFormat, Generated(DateFormats)),
    FormDropDown(40725, &S::SEContactFormat, TextRange(40729, 3)),
};
// The filters themselves are the page's own controls, laid out beside
// this row.
constexpr Row kFilterForm[] = {
    FormDropDown(40726, &S::SEApptsDaySpan, Generated(DaySpanTexts), DaySpanAt, kThirtyDays),
};

constexpr RowTab kTabs[kSpecialEventsTabCount] = {{40720, {}, kGeneralForm}, {40721, {}, kFilterForm}};

constexpr TextField kFilterCategories[kEventFilterCount] = {
    &S::AdditionalFilterCat1, &S::AdditionalFilterCat2, &S::AdditionalFilterCat3, &S::AdditionalFilterCat4};
constexpr NumberField kFilterWarningDays[kEventFilterCount] = {
    &S::SE1FilterAlertDays, &S::SE2FilterAlertDays, &S::SE3FilterAlertDays, &S::SE4FilterAlertDays};

// Layout in 96-dpi units.
constexpr int kMargin = 10, kGap = 6, kLineGap = 2;
constexpr int kCaptionHeight = 14, kFieldStep = 24, kDropDownHeight = 100;
constexpr int kFilterListWidth = 70;
constexpr int kFilterColumnWidth = 300;
// The band of the main window repainted when another filter is picked. It
// is given in pixels as it stands, unscaled on purpose: how the page paints
// relies on exactly this band.
constexpr RECT kFilterBand = {0, 40, 0, 180};

RECT Box(int left, int top, int width, int height) { return {left, top, left + width, top + height}; }

}  // namespace

std::span<const RowTab> SpecialEventsTabs() { return kTabs; }

SpecialEventsPage::SpecialEventsPage(const PageContext& context)
    : RowListPage(context, kTabs, kSpecialEventsPageIds) {
  CreateFilters();
  FillCategories();
}

SpecialEventsPage::~SpecialEventsPage() {
  SettingsStore& record = settings();
  for (int filter = 0; filter < kEventFilterCount; ++filter) {
    int position = ComboSelection(categories_[filter]);
    (record.*kFilterCategories[filter]).Assign(position > 0 ? ComboText(categories_[filter], position) : u"");
  }
}

// Portrait: under the day span the filters, each one's category beside
// it, then the warning days. Wider than high: the filters take the right
// column and the warning days go under the day span.
void SpecialEventsPage::CreateFilters() {
  RECT page = PageArea();
  bool wide = page.right > page.bottom;
  if (wide) NarrowDaySpan((page.right - 3 * ScaleX(kMargin)) / 2);
  RECT span = {};
  GetWindowRect(FormControl(kFilterTab, kDaySpanRow), &span);
  MapWindowPoints(nullptr, context().window, reinterpret_cast<POINT*>(&span), 2);
  int width = span.right - span.left, right = page.right - ScaleX(kMargin), below = span.bottom + ScaleY(kGap);
  int id = FirstOwnId();
  if (wide) {
    CreateFilterGrid(right - width, page.top + ScaleY(kGap), right, id);
    CreateWarningDays(span.left, below, width, id);
  } else {
    int gridBottom = CreateFilterGrid(span.left, below, right, id);
    CreateWarningDays(span.left, gridBottom + ScaleY(kLineGap), width, id);
  }
}

// The caption, then the filter list with the category drop-downs beside
// it; returns the grid's bottom.
int SpecialEventsPage::CreateFilterGrid(int left, int top, int right, int& id) {
  HFONT font = context().normalFont;
  int listWidth = ScaleX(kFilterListWidth), height = kEventFilterCount * ScaleY(kFieldStep) - ScaleY(kLineGap);
  int choicesLeft = left + listWidth + ScaleX(kGap), choicesTop = top + ScaleY(kCaptionHeight) + ScaleY(kLineGap);
  categoryLabel_ = AddControl(L"STATIC", kFilterCategoryLabel, SS_LEFT | SS_NOPREFIX,
                              Box(left, top, right - left, ScaleY(kCaptionHeight)), id++, context().boldFont);
  filterList_ = AddControl(WC_LISTVIEWW, L"", WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL |
                                                  LVS_NOCOLUMNHEADER | LVS_SHOWSELALWAYS,
                           Box(left, choicesTop, listWidth, height), id++, font);
  ListViewPrepare(filterList_);
  SendMessageW(filterList_, LVM_SETCOLUMNWIDTH, 0, ScaleX(kFilterColumnWidth));
  for (int filter = 0; filter < kEventFilterCount; ++filter)
    ListViewAddRow(filterList_, Text(kFirstFilterText + filter).View());
  ListViewSelect(filterList_, selectedFilter_);
  for (int filter = 0; filter < kEventFilterCount; ++filter)
    categories_[filter] = AddControl(L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP,
                                     Box(choicesLeft, choicesTop + filter * ScaleY(kFieldStep), right - choicesLeft,
                                         ScaleY(kDropDownHeight)),
                                     id++, font);
  return choicesTop + height;
}

void SpecialEventsPage::CreateWarningDays(int left, int top, int width, int& id) {
  warningLabel_ = AddControl(L"STATIC", AsWide(Text(kWarningDaysText).Text()), SS_LEFT | SS_NOPREFIX,
                             Box(left, top, width, ScaleY(kCaptionHeight)), id++, context().boldFont);
  warningDays_ = AddControl(L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP,
                            Box(left, top + ScaleY(kCaptionHeight) + ScaleY(kLineGap), width, ScaleY(kDropDownHeight)),
                            id++, context().normalFont);
  for (int days = 0; days <= kMaxWarningDays; ++days) ComboAdd(warningDays_, FormatText(u"%d", {days}));
  // Like the general warning list, it starts at the general warning days.
  ComboSelect(warningDays_, settings().SEAlertBeforeDays);
}

// The day span row fits the page's width alone; beside the filters it
// takes the left column only.
void SpecialEventsPage::NarrowDaySpan(int width) {
  for (HWND part : {FormCaption(kFilterTab, kDaySpanRow), FormControl(kFilterTab, kDaySpanRow)}) {
    RECT area = {};
    GetWindowRect(part, &area);
    SetWindowPos(part, nullptr, 0, 0, width, area.bottom - area.top, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

// An empty entry (no filter), then every category in list order; the
// stored name selects its entry only when it matches exactly.
void SpecialEventsPage::FillCategories() {
  const SettingsStore& record = settings();
  for (int filter = 0; filter < kEventFilterCount; ++filter) {
    HWND choice = categories_[filter];
    ComboAdd(choice, u"");
    int selected = 0;
    if (context().categories != nullptr)
      for (const CategoryEntry& category : context().categories->entries) {
        int position = ComboAdd(choice, category.name.View());
        if (category.name.View() == (record.*kFilterCategories[filter]).View()) selected = position;
      }
    ComboSelect(choice, selected);
  }
}

void SpecialEventsPage::ShowOwnTab(int tab, int showCommand) {
  if (tab != kFilterTab) return;
  for (HWND control : {filterList_, categoryLabel_, warningLabel_, warningDays_}) ShowWindow(control, showCommand);
  for (HWND choice : categories_) ShowWindow(choice, showCommand);
}

// The warning days of the picked filter show; the stored value of one the
// list cannot show leaves it without a selection.
void SpecialEventsPage::OnFilterSelected(int filter) {
  selectedFilter_ = filter;
  RECT client = {}, band = kFilterBand;
  GetClientRect(context().window, &client);
  band.right = client.right;
  InvalidateRect(context().window, &band, TRUE);
  if (filter >= 0 && filter < kEventFilterCount) ComboSelect(warningDays_, settings().*kFilterWarningDays[filter]);
}

bool SpecialEventsPage::OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (LOWORD(wParam) != GetDlgCtrlID(warningDays_)) return RowListPage::OnCommand(window, message, wParam, lParam);
  int position = ComboSelection(warningDays_);
  if (HIWORD(wParam) == CBN_SELCHANGE && position >= 0 && selectedFilter_ >= 0 && selectedFilter_ < kEventFilterCount)
    settings().*kFilterWarningDays[selectedFilter_] = position;
  return true;
}

LRESULT SpecialEventsPage::OnNotify(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
  if (header.hwndFrom != filterList_) return RowListPage::OnNotify(window, message, wParam, lParam);
  const auto& change = *reinterpret_cast<const NMLISTVIEW*>(lParam);
  bool selected = (change.uChanged & LVIF_STATE) && (change.uNewState & LVIS_SELECTED) &&
                  !(change.uOldState & LVIS_SELECTED);
  if (header.code == LVN_ITEMCHANGED && selected) OnFilterSelected(change.iItem);
  return 0;
}

std::unique_ptr<SettingsPage> MakeSpecialEventsPage(const PageContext& context) {
  return std::make_unique<SpecialEventsPage>(context);
}

}  // namespace tw
