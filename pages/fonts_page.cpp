#include "pages/fonts_page.h"

#include <string>

#include "base/scaling.h"
#include "controls/colour_picker.h"
#include "controls/font_chooser.h"
#include "pages/common_controls.h"
#include "platform/win32/device.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "settings/schema.h"

namespace tw {
namespace {

// The page's own order; the record keeps FontCalDayTitles before the mail
// fonts and FontMsgsRead before FontMsgsUnread.
constexpr FontRow kFontRows[] = {
    {u"FontGeneral", 40579, 40604},           {u"FontCalTasks", 40580, 40605},
    {u"FontCalTasksOverdue", 40581, 40606},   {u"FontCalTasksFuture", 40582, 40607},
    {u"FontCalTasksCompleted", 40583, 40608}, {u"FontCalTasksUndated", 40584, 40609},
    {u"FontCalApptBusy", 40585, 40610},       {u"FontCalApptFree", 40586, 40611},
    {u"FontCalApptOutOfOffice", 40587, 40612}, {u"FontCalTentative", 40588, 40613},
    {u"FontCalPast", 40589, 40614},           {u"FontCalCompleted", 40590, 40615},
    {u"FontMailRead", 40591, 40616},          {u"FontMailUnread", 40592, 40617},
    {u"FontCalDayTitles", 40593, 40618},      {u"FontTskOverdue", 40594, 40619},
    {u"FontTskDueToday", 40595, 40620},       {u"FontTskNoDue", 40596, 40621},
    {u"FontTskFutureDue", 40597, 40622},      {u"FontTskGroupingTtls", 40598, 40623},
    {u"FontNoteItems", 40957, 40957},         {u"FontNoteTitles", 40958, 40958},
    {u"FontMsgsUnread", 40959, 40959},        {u"FontMsgsRead", 40960, 40960},
    {u"FontMsgsTitles", 40961, 40961},        {u"FontSEGeneral", 40599, 40624},
    {u"FontSEFilter1", 40600, 40625},         {u"FontSEFilter2", 40601, 40626},
    {u"FontSEFilter3", 40602, 40627},         {u"FontSEFilter4", 40603, 40628},
};
constexpr unsigned kGeneralTabText = 40572, kFontsTabText = 40573, kGeneralSizeText = 40574,
                   kTitleSizeText = 40575, kAdvancedText = 40576, kExplanationText = 40577,
                   kChangeFontText = 40578, kAdvancedHeading = 40629, kSimpleHeading = 40630,
                   kSampleText = 40631, kColourLabelText = 40632;

constexpr int kSmallestSize = 10, kLargestSize = 30;
constexpr int kTabStripHeight = 21;
constexpr int kPreviewTop = 34, kBandTop = 28, kBandBottom = 140;
constexpr int kSampleDown = 22, kSwatchDown = 27, kSwatchLeft = 82, kSwatchWidth = 42, kSwatchHeight = 20;

constexpr DWORD kListStyle = WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_NOCOLUMNHEADER |
                             LVS_SHOWSELALWAYS;

RECT Box(int left, int top, int width, int height) {
  return {ScaleX(left), ScaleY(top), ScaleX(left) + ScaleX(width), ScaleY(top) + ScaleY(height)};
}

void DrawLine(HDC dc, const WideString& text, RECT area, UINT format) {
  DrawTextW(dc, AsWide(text.Text()), text.Length(), &area, format | DT_SINGLELINE | DT_NOPREFIX);
}

}  // namespace

std::span<const FontRow> FontRows() { return kFontRows; }

FontRecord& FontOf(SettingsStore& settings, const FontRow& row) {
  for (const FontSpec& font : kFontsKey.fonts)
    if (std::u16string_view(font.name) == row.record) return settings.*font.field;
  return settings.FontGeneral;
}

FontsPage::FontsPage(const PageContext& context) : SettingsPage(context) {
  LoadCommonControls();
  CreateControls();
  FillSize(controls_[kGeneralSize], settings().FontGnrlSize);
  FillSize(controls_[kTitleSize], settings().FontGnrlTitlesSize);
  SetChecked(controls_[kAdvanced], settings().FontGnrlUseAdvncd != 0);
  ApplyEnableRule();
  ListViewBatch batch(controls_[kFontList]);
  for (const FontRow& row : kFontRows) ListViewAddRow(controls_[kFontList], Text(row.name).View());
}

// No selection stores 9: the record then holds what the Today item reads
// as "too small", exactly as a size outside the list always has.
FontsPage::~FontsPage() {
  settings().FontGnrlSize = ComboSelection(controls_[kGeneralSize]) + kSmallestSize;
  settings().FontGnrlTitlesSize = ComboSelection(controls_[kTitleSize]) + kSmallestSize;
  settings().FontGnrlUseAdvncd = IsChecked(controls_[kAdvanced]) ? 1 : 0;
}

void FontsPage::CreateControls() {
  RECT client;
  GetClientRect(context().window, &client);
  int width = client.right, height = client.bottom;
  HFONT font = context().normalFont;
  auto add = [&](Control control, const wchar_t* className, DWORD style, const RECT& area, unsigned text = 0) {
    controls_[control] = AddControl(className, AsWide(Text(text).Text()), style, area,
                                    kFontsPageIds.first + control, font);
  };
  add(kTabs, WC_TABCONTROLW, WS_CLIPSIBLINGS | TCS_BOTTOM, {0, height - ScaleY(kTabStripHeight), width, height});
  TabAdd(controls_[kTabs], Text(kGeneralTabText).View());
  TabAdd(controls_[kTabs], Text(kFontsTabText).View());
  DWORD combo = CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP;
  add(kGeneralLabel, L"STATIC", SS_RIGHT | SS_NOPREFIX, Box(0, 37, 120, 20), kGeneralSizeText);
  add(kGeneralSize, L"COMBOBOX", combo, {ScaleX(122), ScaleY(35), width - ScaleX(10), ScaleY(35 + 100)});
  add(kTitleLabel, L"STATIC", SS_RIGHT | SS_NOPREFIX, Box(0, 62, 120, 20), kTitleSizeText);
  add(kTitleSize, L"COMBOBOX", combo, {ScaleX(122), ScaleY(60), width - ScaleX(10), ScaleY(60 + 100)});
  add(kAdvanced, L"BUTTON", BS_AUTOCHECKBOX | WS_TABSTOP,
      {ScaleX(10), height - ScaleY(100), ScaleX(235), height - ScaleY(80)}, kAdvancedText);
  // Ends above the tab strip, which the explanation would otherwise run under.
  add(kExplanation, L"STATIC", SS_LEFT | SS_NOPREFIX,
      {ScaleX(10), height - ScaleY(76), ScaleX(230), height - ScaleY(kTabStripHeight + 2)}, kExplanationText);
  add(kChangeFont, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP,
      {width - ScaleX(56), ScaleY(80), width - ScaleX(10), ScaleY(100)}, kChangeFontText);
  add(kFontList, WC_LISTVIEWW, kListStyle, {ScaleX(10), ScaleY(106), width - ScaleX(10), height - ScaleY(30)});
  ListViewPrepare(controls_[kFontList]);
}

void FontsPage::FillSize(HWND combo, std::int32_t size) {
  for (int number = kSmallestSize; number <= kLargestSize; ++number) {
    int position = ComboAdd(combo, AsU16(std::to_wstring(number).c_str()));
    SendMessageW(combo, CB_SETITEMDATA, position, number);
  }
  bool listed = size >= kSmallestSize && size <= kLargestSize;
  ComboSelect(combo, listed ? size - kSmallestSize : -1);
}

bool FontsPage::Advanced() const { return IsChecked(controls_[kAdvanced]); }

// The two sizes serve the simple mode only.
void FontsPage::ApplyEnableRule() {
  for (Control control : {kGeneralLabel, kGeneralSize, kTitleLabel, kTitleSize})
    EnableWindow(controls_[control], !Advanced());
}

void FontsPage::Show(int showCommand, bool includeTabStrip) {
  bool general = TabSelection(controls_[kTabs]) == kGeneralTab;
  for (int control = kGeneralLabel; control < kControlCount; ++control) {
    bool ofGeneralTab = control <= kExplanation;
    if (ofGeneralTab == general) ShowWindow(controls_[control], showCommand);
  }
  if (includeTabStrip) ShowWindow(controls_[kTabs], showCommand);
  RECT client;
  GetClientRect(context().window, &client);
  client.top = ScaleY(kBandTop);
  RepaintArea(context().window, &client);
}

LRESULT FontsPage::OnNotify(HWND, UINT, WPARAM, LPARAM lParam) {
  const auto* header = reinterpret_cast<const NMHDR*>(lParam);
  if (header->hwndFrom == controls_[kTabs]) {
    if (header->code == static_cast<UINT>(TCN_SELCHANGING)) Show(SW_HIDE, false);
    if (header->code == static_cast<UINT>(TCN_SELCHANGE)) Show(SW_SHOW, false);
  } else if (header->hwndFrom == controls_[kFontList] && header->code == static_cast<UINT>(LVN_ITEMCHANGED)) {
    OnFontRowChanged(*reinterpret_cast<const NMLISTVIEW*>(lParam));
  }
  return 0;
}

void FontsPage::OnFontRowChanged(const NMLISTVIEW& change) {
  bool selectedNow = (change.uNewState & LVIS_SELECTED) && !(change.uOldState & LVIS_SELECTED);
  if (!(change.uChanged & LVIF_STATE) || !selectedNow) return;
  if (change.iItem < 0 || change.iItem >= int(std::size(kFontRows))) return;
  selected_ = change.iItem;
  InvalidatePreview();
}

void FontsPage::InvalidatePreview() {
  RECT client;
  GetClientRect(context().window, &client);
  RECT band = {0, ScaleY(kBandTop), client.right, ScaleY(kBandBottom)};
  RepaintArea(context().window, &band);
}

// The menu's apply-size command arrives from wherever the focus is.
bool FontsPage::OnCommand(HWND, UINT, WPARAM wParam, LPARAM lParam) {
  if (HIWORD(wParam) != BN_CLICKED) return false;
  HWND from = reinterpret_cast<HWND>(lParam);
  if (from == nullptr && LOWORD(wParam) == IDM_APPLY_FONT_SIZE) ApplyGeneralSize();
  else if (from != nullptr && from == controls_[kAdvanced]) ApplyEnableRule();
  else if (from != nullptr && from == controls_[kChangeFont]) ChangeFont();
  else return false;
  return true;
}

// Without the advanced mode only the colour of a font is the user's.
void FontsPage::ChangeFont() {
  FontRecord& record = FontOf(settings(), kFontRows[selected_]);
  auto colour = static_cast<std::uint32_t>(record.color);
  if (Advanced()) {
    EditFont(context().window, context().instance, context().language, reinterpret_cast<LOGFONTW&>(record.font),
             colour);
  } else {
    std::uint32_t chosen = PickColour(context().window, context().instance, context().language, colour, true);
    if (chosen != kColourCancelled) colour = chosen;
  }
  record.color = static_cast<std::int32_t>(colour);
  InvalidatePreview();
}

// Only the height follows the general font: faces, weights and colours
// chosen per kind stay.
void FontsPage::ApplyGeneralSize() {
  WideString text = Text(kAskApplyGeneralSize.text), caption = Text(kAskApplyGeneralSize.caption);
  if (device::ShowMessageBox(context().window, AsWide(text.Text()), AsWide(caption.Text()), MB_YESNO) != IDYES)
    return;
  std::int32_t height = settings().FontGeneral.font.lfHeight;
  for (const FontRow& row : std::span(kFontRows).subspan(1)) FontOf(settings(), row).font.lfHeight = height;
  InvalidatePreview();
}

void FontsPage::Paint(HDC dc) {
  RepaintShown(Controls());
  if (TabSelection(controls_[kTabs]) == kFontsTab) PaintPreview(dc);
}

void FontsPage::PaintPreview(HDC dc) {
  const FontRow& row = kFontRows[selected_];
  FontRecord& record = FontOf(settings(), row);
  RECT client;
  GetClientRect(context().window, &client);
  RECT line = {client.left, ScaleY(kPreviewTop), client.right, ScaleY(kPreviewTop + kSampleDown)};
  HFONT font = CreateLabelFont();
  HGDIOBJ oldFont = SelectObject(dc, font);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, RGB(0, 0, 0));
  WideString heading = Text(Advanced() ? kAdvancedHeading : kSimpleHeading);
  heading.Append(Text(row.heading).View());
  DrawLine(dc, heading, line, DT_CENTER);
  OffsetRect(&line, 0, ScaleY(kSampleDown));
  if (Advanced()) {
    HFONT own = CreateFontIndirectW(reinterpret_cast<const LOGFONTW*>(&record.font));
    SelectObject(dc, own);
    if (record.color != kNoColor) SetTextColor(dc, static_cast<COLORREF>(record.color));
    DrawLine(dc, Text(kSampleText), line, DT_CENTER);
    SelectObject(dc, font);
    DeleteObject(own);
    SetTextColor(dc, RGB(0, 0, 0));
  }
  int swatchTop = ScaleY(kPreviewTop + kSampleDown + kSwatchDown);
  RECT swatch = {ScaleX(kSwatchLeft), swatchTop, ScaleX(kSwatchLeft + kSwatchWidth), swatchTop + ScaleY(kSwatchHeight)};
  PaintSwatch(dc, swatch, static_cast<std::uint32_t>(record.color), Text(kTextNoColour).View());
  RECT label = {ScaleX(10), swatch.top, swatch.left - ScaleX(6), swatch.bottom};
  DrawLine(dc, Text(kColourLabelText), label, DT_RIGHT | DT_VCENTER);
  SelectObject(dc, oldFont);
  DeleteObject(font);
}

std::unique_ptr<SettingsPage> MakeFontsPage(const PageContext& context) {
  return std::make_unique<FontsPage>(context);
}

}  // namespace tw
