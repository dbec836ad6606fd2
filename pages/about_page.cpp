#include "pages/about_page.h"

#include <cstring>

#include "base/scaling.h"
#include "platform/win32/wide.h"

namespace tw {
namespace {

constexpr char16_t kProduct[] = u"Tidewell Settings";
constexpr char16_t kVersion[] = u"1.4";
constexpr char16_t kBuildSuffix[] = u", WM2003 Build";
// The maker's contact lines; the last one is drawn grey.
constexpr const char16_t* kContactLines[] = {u"Orvex Software", u"www.orvexsoft.com", u"support@orvexsoft.com"};
constexpr COLORREF kLastLineColour = 0xA0A0A0;

// Layout in 96-dpi units below the header band.
constexpr int kTopMargin = 20, kSideMargin = 6, kLineHeight = 16, kGroupGap = 10;

// Labels, one per line, numbered from here.
enum ControlId { IDT_ABOUT_FIRST = kAboutPageIds.first };

}  // namespace

std::u16string FormatBuildDate(const char* compilerDate) {
  static constexpr const char* kShort[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                           "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  static constexpr const char16_t* kLong[] = {u"January", u"February", u"March",     u"April",
                                              u"May",     u"June",     u"July",      u"August",
                                              u"September", u"October", u"November", u"December"};
  std::u16string kept(compilerDate, compilerDate + std::strlen(compilerDate));
  if (std::strlen(compilerDate) != 11 || compilerDate[3] != ' ' || compilerDate[6] != ' ') return kept;
  int month = -1;
  for (int i = 0; i < 12; ++i)
    if (std::strncmp(compilerDate, kShort[i], 3) == 0) month = i;
  if (month < 0) return kept;
  std::u16string day;
  if (compilerDate[4] != ' ') day += static_cast<char16_t>(compilerDate[4]);
  day += static_cast<char16_t>(compilerDate[5]);
  return day + u" " + kLong[month] + u" " + std::u16string(kept.substr(7));
}

AboutPage::AboutPage(const PageContext& context) : SettingsPage(context) {
  RECT area = PageArea();
  std::u16string lines[] = {std::u16string(kProduct) + u" " + kVersion, FormatBuildDate(__DATE__) + kBuildSuffix,
                            kContactLines[0], kContactLines[1], kContactLines[2]};
  int top = area.top + ScaleY(kTopMargin);
  int id = IDT_ABOUT_FIRST;
  for (const std::u16string& line : lines) {
    if (id == IDT_ABOUT_FIRST + 2) top += ScaleY(kGroupGap);  // the maker's lines stand apart
    RECT at = {area.left + ScaleX(kSideMargin), top, area.right - ScaleX(kSideMargin), top + ScaleY(kLineHeight)};
    lastLine_ = AddControl(L"STATIC", AsWide(line.c_str()), SS_CENTER | SS_NOPREFIX, at, id++,
                           context.normalFont);
    top = at.bottom;
  }
}

void AboutPage::Show(int showCommand, bool) { ShowControls(showCommand); }

HBRUSH AboutPage::ControlColour(HDC dc, HWND control) {
  if (control != lastLine_) return nullptr;
  SetTextColor(dc, kLastLineColour);
  SetBkColor(dc, RGB(255, 255, 255));
  return static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
}

std::unique_ptr<SettingsPage> MakeAboutPage(const PageContext& context) {
  return std::make_unique<AboutPage>(context);
}

}  // namespace tw
