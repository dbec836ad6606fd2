#include "pages/colours_page.h"

#include "base/scaling.h"
#include "controls/colour_picker.h"
#include "data/schemes.h"
#include "pages/common_controls.h"
#include "platform/win32/device.h"
#include "platform/win32/wide.h"
#include "platform/win32/win32_file_system.h"

namespace tw {
namespace {

using S = SettingsStore;

// The page's own order, which is not the record's.
constexpr ColourRow kColourRows[] = {
    {&S::SeperatorLineClr, 40505},   {&S::ShadowFontColor, 40506},   {&S::GeneralFontColor, 40507},
    {&S::HighlightBgClr, 40508},     {&S::HighlightTextClr, 40509},  {&S::TimeLinesBgClr, 40510},
    {&S::TimeLinesDfltClr, 40511},   {&S::ClrBreakingLineClr, 40512}, {&S::ClrPopupClrBg, 40513},
    {&S::ClrPopupCurr, 40514},       {&S::ClrPopupHighlight, 40515}, {&S::TskBreakingLineClr, 40516},
    {&S::ClrStatusFree, 40517},      {&S::ClrStatusBusy, 40518},     {&S::ClrStatusTentative, 40519},
    {&S::ClrStatusOutofoffice, 40520},
};
constexpr unsigned kFirstSwatchLabel = 40521, kFirstExplanation = 40522;
constexpr unsigned kColoursTabText = 40951, kSchemesTabText = 40952, kChangeColourText = 40504,
                   kSaveSchemeText = 40503, kApplySchemeText = 40501, kDeleteSchemeText = 40502,
                   kSchemesNoteText = 40484;

constexpr COLORREF kNoteColour = RGB(30, 30, 100);
constexpr int kTabStripHeight = 21;
constexpr int kBandTop = 28, kBandBottom = 140;  // what a new colour row repaints
constexpr RECT kSwatch = {132, 84, 175, 104};
constexpr int kSwatchLabelRight = 128;
constexpr int kNoteTop = 32, kNameTop = 72, kSeparatorTop = 96;

constexpr DWORD kListStyle = WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_NOCOLUMNHEADER |
                             LVS_SHOWSELALWAYS;

RECT Box(int left, int top, int width, int height) {
  return {ScaleX(left), ScaleY(top), ScaleX(left) + ScaleX(width), ScaleY(top) + ScaleY(height)};
}

// Client width and height minus 96-dpi margins.
RECT BoxToEdges(const RECT& client, int left, int top, int rightMargin, int bottomMargin) {
  return {ScaleX(left), ScaleY(top), client.right - ScaleX(rightMargin), client.bottom - ScaleY(bottomMargin)};
}

RECT Scaled(const RECT& r) { return {ScaleX(r.left), ScaleY(r.top), ScaleX(r.right), ScaleY(r.bottom)}; }

}  // namespace

std::span<const ColourRow> ColourRows() { return kColourRows; }

ColoursPage::ColoursPage(const PageContext& context) : SettingsPage(context) {
  LoadCommonControls();
  CreateControls();
  ListViewBatch batch(controls_[kColourList]);
  for (const ColourRow& row : kColourRows) ListViewAddRow(controls_[kColourList], Text(row.name).View());
  FillSchemeList();
}

void ColoursPage::CreateControls() {
  RECT client;
  GetClientRect(context().window, &client);
  HFONT font = context().normalFont;
  auto add = [&](Control control, const wchar_t* className, DWORD style, const RECT& area, unsigned text = 0) {
    controls_[control] = AddControl(className, AsWide(Text(text).Text()), style, area,
                                    kColoursPageIds.first + control, font);
  };
  add(kTabs, WC_TABCONTROLW, WS_CLIPSIBLINGS | TCS_BOTTOM,
      {0, client.bottom - ScaleY(kTabStripHeight), client.right, client.bottom});
  TabAdd(controls_[kTabs], Text(kColoursTabText).View());
  TabAdd(controls_[kTabs], Text(kSchemesTabText).View());
  // Wider than the Fonts page's button: "Change" needs the room.
  add(kChangeColour, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP,
      {client.right - ScaleX(60), ScaleY(84), client.right - ScaleX(10), ScaleY(104)}, kChangeColourText);
  add(kColourList, WC_LISTVIEWW, kListStyle, BoxToEdges(client, 10, 110, 10, 28));
  add(kSchemeName, L"EDIT", WS_BORDER | ES_AUTOHSCROLL | WS_TABSTOP, Box(10, kNameTop, 130, 19));
  SendMessageW(controls_[kSchemeName], EM_LIMITTEXT, kMaxSchemeName, 0);
  add(kSaveScheme, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP, Box(150, kNameTop, 80, 19), kSaveSchemeText);
  add(kSchemeList, WC_LISTVIEWW, kListStyle, BoxToEdges(client, 10, 104, 10, 54));
  RECT bottomRow = {0, client.bottom - ScaleY(48), 0, client.bottom - ScaleY(28)};
  add(kApplyScheme, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP,
      {ScaleX(10), bottomRow.top, ScaleX(90), bottomRow.bottom}, kApplySchemeText);
  add(kDeleteScheme, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP,
      {ScaleX(100), bottomRow.top, ScaleX(180), bottomRow.bottom}, kDeleteSchemeText);
  ListViewPrepare(controls_[kColourList]);
  ListViewPrepare(controls_[kSchemeList]);
}

void ColoursPage::FillSchemeList() {
  Win32FileSystem files;
  ListViewBatch batch(controls_[kSchemeList]);
  for (const std::u16string& name : ListSchemes(files, settings().InstallFolder.View()))
    ListViewAddRow(controls_[kSchemeList], name);
}

void ColoursPage::Show(int showCommand, bool includeTabStrip) {
  bool colours = TabSelection(controls_[kTabs]) == kColoursTab;
  for (int control = kChangeColour; control < kControlCount; ++control) {
    bool ofColoursTab = control <= kColourList;
    if (ofColoursTab == colours) ShowWindow(controls_[control], showCommand);
  }
  if (includeTabStrip) ShowWindow(controls_[kTabs], showCommand);
  RepaintArea(context().window, nullptr);
}

LRESULT ColoursPage::OnNotify(HWND, UINT, WPARAM, LPARAM lParam) {
  const auto* header = reinterpret_cast<const NMHDR*>(lParam);
  if (header->hwndFrom == controls_[kTabs]) {
    if (header->code == static_cast<UINT>(TCN_SELCHANGING)) Show(SW_HIDE, false);
    if (header->code == static_cast<UINT>(TCN_SELCHANGE)) Show(SW_SHOW, false);
  } else if (header->hwndFrom == controls_[kColourList] && header->code == static_cast<UINT>(LVN_ITEMCHANGED)) {
    OnColourRowChanged(*reinterpret_cast<const NMLISTVIEW*>(lParam));
  }
  return 0;
}

void ColoursPage::OnColourRowChanged(const NMLISTVIEW& change) {
  bool selectedNow = (change.uNewState & LVIS_SELECTED) && !(change.uOldState & LVIS_SELECTED);
  if (!(change.uChanged & LVIF_STATE) || !selectedNow) return;
  if (change.iItem < 0 || change.iItem >= int(std::size(kColourRows))) return;
  selected_ = change.iItem;
  RECT client;
  GetClientRect(context().window, &client);
  RECT band = {0, ScaleY(kBandTop), client.right, ScaleY(kBandBottom)};
  RepaintArea(context().window, &band);
}

bool ColoursPage::OnCommand(HWND, UINT, WPARAM wParam, LPARAM lParam) {
  if (HIWORD(wParam) != BN_CLICKED) return false;
  HWND from = reinterpret_cast<HWND>(lParam);
  if (from == nullptr) return false;
  if (from == controls_[kChangeColour]) ChangeColour();
  else if (from == controls_[kSaveScheme]) SaveScheme();
  else if (from == controls_[kDeleteScheme]) DeleteScheme();
  else if (from == controls_[kApplyScheme]) ApplyScheme();  // may destroy this page: nothing may follow
  else return false;
  return true;
}

void ColoursPage::ChangeColour() {
  std::int32_t& field = settings().*kColourRows[selected_].field;
  std::uint32_t chosen = PickColour(context().window, context().instance, context().language,
                                    static_cast<std::uint32_t>(field), true);
  if (chosen == kColourCancelled) return;
  field = static_cast<std::int32_t>(chosen);
  RepaintArea(context().window, nullptr);
}

void ColoursPage::SaveScheme() {
  std::u16string name = GetText(controls_[kSchemeName]).substr(0, kMaxSchemeName);
  if (context().schemes == nullptr) return;
  MessagePair outcome = context().schemes->save(name);
  Tell(outcome, MB_OK);
  if (outcome != kSchemeSaved) return;
  HWND list = controls_[kSchemeList];
  LVITEMW item = {};
  item.mask = LVIF_TEXT;
  std::u16string fileName = name + u".scm";
  item.pszText = const_cast<wchar_t*>(AsWide(fileName.c_str()));
  SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
  SetText(controls_[kSchemeName], u"");
}

std::u16string ColoursPage::SelectedScheme() {
  int row = ListViewSelection(controls_[kSchemeList]);
  if (row < 0) {
    Tell(kNoSchemeSelected, MB_OK);
    return {};
  }
  return ListViewRowText(controls_[kSchemeList], row);
}

void ColoursPage::DeleteScheme() {
  std::u16string fileName = SelectedScheme();
  if (fileName.empty() || Tell(kAskDeleteScheme, MB_YESNO) != IDYES) return;
  Win32FileSystem files;
  tw::DeleteScheme(files, settings().InstallFolder.View(), fileName);
  ListView_DeleteItem(controls_[kSchemeList], ListViewSelection(controls_[kSchemeList]));
}

void ColoursPage::ApplyScheme() {
  std::u16string fileName = SelectedScheme();
  if (fileName.empty() || Tell(kAskLoadScheme, MB_YESNO) != IDYES) return;
  if (context().schemes != nullptr) context().schemes->apply(context().window, fileName);
}

void ColoursPage::Paint(HDC dc) {
  if (TabSelection(controls_[kTabs]) == kColoursTab) PaintColour(dc);
  else PaintSchemesNote(dc);
  RepaintShown(Controls());
}

void ColoursPage::PaintColour(HDC dc) {
  HFONT font = CreateLabelFont();
  HGDIOBJ oldFont = SelectObject(dc, font);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, RGB(0, 0, 0));
  RECT swatch = Scaled(kSwatch);
  PaintSwatch(dc, swatch, static_cast<std::uint32_t>(settings().*kColourRows[selected_].field),
              Text(kTextNoColour).View());
  InflateRect(&swatch, 0, -ScaleY(1));
  WideString label = Text(kFirstSwatchLabel + 2 * selected_);
  RECT labelArea = {0, swatch.top, ScaleX(kSwatchLabelRight), swatch.bottom};
  DrawTextW(dc, AsWide(label.Text()), label.Length(), &labelArea, DT_RIGHT | DT_VCENTER | DT_SINGLELINE);
  RECT client;
  GetClientRect(context().window, &client);
  WideString explanation = Text(kFirstExplanation + 2 * selected_);
  RECT explained = {ScaleX(6), ScaleY(kNoteTop), client.right - ScaleX(6), ScaleY(82)};
  DrawTextW(dc, AsWide(explanation.Text()), explanation.Length(), &explained, DT_WORDBREAK | DT_NOPREFIX);
  SelectObject(dc, oldFont);
  DeleteObject(font);
}

void ColoursPage::PaintSchemesNote(HDC dc) {
  RECT client;
  GetClientRect(context().window, &client);
  // Above the name field, which would hide the end of a longer note.
  RECT note = {ScaleX(10), ScaleY(kNoteTop), client.right - ScaleX(10), ScaleY(kNameTop - 2)};
  HGDIOBJ oldFont = SelectObject(dc, context().normalFont);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, kNoteColour);
  WideString text = Text(kSchemesNoteText);
  DrawTextW(dc, AsWide(text.Text()), text.Length(), &note, DT_WORDBREAK | DT_NOPREFIX);
  SelectObject(dc, oldFont);
  RECT line = {note.left, ScaleY(kSeparatorTop), note.right, ScaleY(kSeparatorTop) + ScaleY(1)};
  HBRUSH brush = CreateSolidBrush(kNoteColour);
  FillRect(dc, &line, brush);
  DeleteObject(brush);
}

std::unique_ptr<SettingsPage> MakeColoursPage(const PageContext& context) {
  return std::make_unique<ColoursPage>(context);
}

}  // namespace tw
