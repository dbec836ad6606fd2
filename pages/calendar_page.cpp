#include "pages/calendar_page.h"

#include <cstring>

#include "base/scaling.h"
#include "controls/icon_strip.h"
#include "data/win32/skin_image.h"
#include "platform/win32/device.h"
#include "platform/win32/wide.h"
#include "resources/string_ids.h"

namespace tw {
namespace {

using S = SettingsStore;

// Date and time samples: built from today through the locale's formatter,
// so the user sees real examples; only their positions are stored.
struct DatePicture {
  DateStyle style;
  const char16_t* picture;
};

// The two locale formats sit between the fixed pictures and the seventh
// picture comes last: the Today item numbers the formats this way.
constexpr DatePicture kDayTitlePictures[] = {
    {DateStyle::Picture, u"dddd',' MMM dd yyyy"}, {DateStyle::Picture, u"dddd',' MMM dd"},
    {DateStyle::Picture, u"ddd',' MMM dd yyyy"},  {DateStyle::Picture, u"ddd',' MMM dd"},
    {DateStyle::Short, u""},                      {DateStyle::Long, u""},
    {DateStyle::Picture, u"ddd',' dd MMM yyyy"},
};
constexpr DatePicture kDueDatePictures[] = {
    {DateStyle::Short, u""},          {DateStyle::Picture, u"M'/'d'/'yy"}, {DateStyle::Picture, u"d'/'M'/'yy"},
    {DateStyle::Picture, u"M'/'d"},   {DateStyle::Picture, u"d'/'M"},
};
constexpr DatePicture kMonthDayPictures[] = {{DateStyle::Picture, u"MM'/'dd"}, {DateStyle::Picture, u"dd'/'MM"}};

std::vector<std::u16string> DateSamples(const ChoiceContext& context, std::span<const DatePicture> pictures) {
  std::vector<std::u16string> samples;
  for (const DatePicture& picture : pictures)
    samples.push_back(context.locale.FormatDate(context.today, picture.style, picture.picture));
  return samples;
}
std::vector<std::u16string> DayTitleSamples(const ChoiceContext& c) { return DateSamples(c, kDayTitlePictures); }
std::vector<std::u16string> DueDateSamples(const ChoiceContext& c) { return DateSamples(c, kDueDatePictures); }
std::vector<std::u16string> MonthDaySamples(const ChoiceContext& c) { return DateSamples(c, kMonthDayPictures); }

// Time lines may start at any hour from midnight to 18:00.
constexpr int kLatestTimelineStart = 18;
std::vector<std::u16string> TimelineHours(const ChoiceContext& context) {
  std::vector<std::u16string> hours;
  for (int hour = 0; hour <= kLatestTimelineStart; ++hour) {
    CalendarDate time = context.today;
    time.hour = hour;
    time.minute = 0;
    hours.push_back(context.locale.FormatTime(time, {}));
  }
  return hours;
}

// Monday to Sunday; the stored value is 0 for Monday.
std::vector<std::u16string> DayNames(const ChoiceContext& context) {
  std::vector<std::u16string> days;
  for (int day = 0; day < 7; ++day) days.push_back(context.locale.DayName(day, false));
  return days;
}

// The month view's icons measure 6 to 14 units, stored in device pixels.
constexpr int kSmallestIconSize = 6, kIconSizeCount = 9;
std::int32_t ScaledIconSize(int position) { return ScaleX(kSmallestIconSize + position); }
std::vector<std::u16string> IconSizes(const ChoiceContext&) {
  std::vector<std::u16string> sizes;
  for (int position = 0; position < kIconSizeCount; ++position)
    sizes.push_back(FormatText(u"%d", {ScaledIconSize(position)}));
  return sizes;
}

// A pinned month view takes room the Today item has only with a height
// limit of at least this many units.
constexpr int kPinnedMinimumHeight = 200;
constexpr MessagePair kPinnedNeedsHeight{40914, 40915};
std::int32_t PinnedNeedsHeight(const PageContext& page, std::int32_t pinned) {
  int minimum = ScaleX(kPinnedMinimumHeight);
  if (pinned == 0 || page.settings.dHeightLimit >= minimum) return pinned;
  std::u16string text = FormatText(PageText(page, kPinnedNeedsHeight.text).View(), {minimum});
  WideString caption = PageText(page, kPinnedNeedsHeight.caption);
  device::ShowMessageBox(nullptr, AsWide(text.c_str()), AsWide(caption.Text()), MB_OK);
  return 0;
}

constexpr unsigned kClockTexts[] = {47, 48};
constexpr unsigned kPassedAppointmentTexts[] = {28, 30};
constexpr unsigned kDayBreakerTexts[] = {25, 26, 27, 40944};
constexpr const char16_t* kEndOfDayHours[] = {u"0:00 AM", u"1:00 AM", u"2:00 AM", u"3:00 AM", u"4:00 AM",
                                              u"5:00 AM", u"6:00 AM", u"7:00 AM", u"8:00 AM"};

constexpr NumberField kTitlePlaces[] = {&S::CalTitlesOrder0, &S::CalTitlesOrder1, &S::CalTitlesOrder2,
                                        &S::CalTitlesOrder3, &S::CalTitlesOrder4, &S::CalTitlesOrder5};
constexpr OrderSpec kTitleOrder{kTitlePlaces, 40310};

// Each row: its label, setting, caption and tip texts, choices, rule.
constexpr Row kGeneralRows[] = {
    DropDown(40262, &S::dNumOfDays, 40323, 40324, Numbers(1, 30), PositionPlusOne),
    Check(40263, &S::HideNoAppoDays, 40325, 40326),
    Check(40922, &S::SEventsOnClr, 40922, 40935),
    DropDown(40264, &S::TimeFormat, 40327, 40328, TextList(kClockTexts)),
    DropDown(40265, &S::FirstWeekInYear, 40329, 40330, TextRange(40331, 4)),
    DropDown(40266, &S::ClrTextColor, 40335, 40336, TextRange(40337, 3)),
};

constexpr Row kAppointmentRows[] = {
    DropDown(40267, &S::dAppoPassedToday, 40340, 40341, TextList(kPassedAppointmentTexts)),
    Check(40268, &S::IncludeYearlyCounters, 40342, 40343),
    DropDown(40269, &S::LeadingRects, 40344, 40345, TextRange(40346, 3)),
    DropDown(40270, &S::Conflicting, 40349, 40350, TextRange(40351, 3)),
};

constexpr Row kTaskRows[] = {
    Check(40271, &S::IncldTasksInCR, 40354, 40355),
    Check(40272, &S::IncldOverDueTsksInCR, 40356, 40357),
    Check(40273, &S::IncldFutureTsksInCR, 40358, 40359),
    Check(40274, &S::IncldUndatedTsksInCR, 40360, 40361),
    DropDown(40275, &S::DatesToIncldCmpltdTsksOnClr, 40936, 40937, TextRange(40938, 4)),
    Check(40276, &S::IncldPastCmpltdTsksInClndr, 40364, 40365),
    DropDown(40923, &S::FutureLimitTsksOnClr, 40942, 40943, TextRange(40781, 8)),
    DropDown(40277, &S::TasksSubsortOnCal, 40366, 40367, TextRange(40368, 7)),
    DropDown(40278, &S::SkipActiveTsksWeekends, 40375, 40376, TextRange(40377, 4)),
    DropDown(40279, &S::DueDateTsksDateFrmt, 40381, 40382, Generated(DueDateSamples)),
    Check(40280, &S::IncludeTsksCheckBoxes, 40383, 40384),
    Check(40281, &S::ShowActiveTsksOnCal, 40385, 40386),
    Check(40282, &S::PaintTsksBeforeAppts, 40387, 40388),
    Check(40283, &S::ConfirmTaskComplete, 40389, 40390),
};

// Time lines last 6 to 24 hours, stored as hours past 6.
constexpr Row kTitleRows[] = {
    DropDown(40284, &S::DayTtlFrmt, 40391, 40392, Generated(DayTitleSamples)),
    DropDown(40285, &S::dDayBreaker, 40393, 40394, TextList(kDayBreakerTexts)),
    DropDown(40286, &S::TimeLines, 40395, 40396, TextRange(40397, 3)),
    Check(40287, &S::ShowTomorrowTtl, 40400, 40401),
    Check(40288, &S::IncldCounters, 40402, 40403),
    Check(40289, &S::UseSmartFolding, 40404, 40405),
    DropDown(40290, &S::FoldingType, 40406, 40407, TextRange(40408, 3)),
    DropDown(40924, &S::FoldingDfltState, 40945, 40946, TextRange(40947, 2)),
    Check(40291, &S::FilterFreeApptsFromTL, 40415, 40416),
    Check(40294, &S::ForceTodayTitleDsply, 40419, 40420),
    Check(40295, &S::AppendDateToTodayTtl, 40421, 40422),
    Check(40296, &S::AppendDaysCountTottl, 40423, 40424),
    Check(40297, &S::AppendWeekNumTottl, 40425, 40426),
    DropDown(40925, &S::TimelinesStart, 40417, 40418, Generated(TimelineHours)),
    DropDown(40926, &S::TimelinesLength, 40949, 40950, Numbers(6, 19)),
    DropDown(40927, &S::TimelinesVertZ, 40898, 40899, Numbers(1, 2), PositionPlusOne),
    DropDown(40928, &S::TimelinesHorZ, 40900, 40901, Numbers(1, 2), PositionPlusOne),
};

constexpr Row kMonthRows[] = {
    DropDown(40298, &S::OnPopupMonthCalClick, 40427, 40428, TextRange(40429, 4)),
    DropDown(40299, &S::MonthlyPopupCalDateFrmt, 40433, 40434, Generated(MonthDaySamples)),
    DropDown(40300, &S::MonthlyStartDay, 40902, 40903, Generated(DayNames)),
    DropDown(40929, &S::FirstWorkDay, 40904, 40905, Generated(DayNames)),
    Check(40301, &S::MonthlyPopWithWeekNum, 40437, 40438),
    DropDown(40930, &S::MonthlyPopTimelines, 40906, 40907, TextRange(40916, 3)),
    Check(40931, &S::MonthlyPopCatIcons, 40908, 40909),
    DropDown(40932, &S::MonthlyPopIconsSize, 40910, 40911, Generated(IconSizes), ScaledIconSize),
    Check(40933, &S::PinnedMonthlyClr, 40912, 40913, PinnedNeedsHeight),
};

constexpr Row kMailRows[] = {
    Check(40302, &S::IncludeMainOnCal, 40439, 40440),
    Check(40304, &S::MailHideWhenZeroMsgs, 40441, 40442),
    DropDown(40306, &S::MailTitleFormat, 40443, 40444, TextRange(40445, 4)),
    DropDown(40307, &S::MailSoftwareToUse, 40449, 40450, TextRange(40451, 2)),
    TextRow(40308, &S::MailCustomInboxStr, 40453, 40454),
    Check(40309, &S::HideMailTtlUnderToday, 40455, 40456),
    Check(40934, &S::ShowMailCounterOnTtl, 40457, 40458),
};

constexpr Row kMoreRows[] = {
    Check(40316, &S::Force2DigitsTImeFrmt, 40459, 40460),
    Check(40317, &S::SkinTodayWhenCollpsAll, 40466, 40467),
    DropDown(40318, &S::HumanTime, 40470, 40471, Literals(kEndOfDayHours)),
    Check(40319, &S::HideOverDueTsksDayTtl, 40472, 40473),
    Check(40320, &S::HideUndatedTsksDayTtl, 40474, 40475),
    TextRow(40321, &S::CustomDayttlFrmtDefault, 40476, 40477),
    OrderRow(40322, kTitleOrder),
};

constexpr RowTab kTabs[kCalendarTabCount] = {
    {40240, kGeneralRows}, {40241, kAppointmentRows}, {40242, kTaskRows}, {40243, kTitleRows},
    {40244, {}},           {40245, kMonthRows},       {40246, kMailRows}, {40247, kMoreRows},
};

// Tasks have an importance marker where appointments have attendees.
constexpr MarkerChoice kTaskMarkers[] = {
    {1, 40255, u"note"},    {2, 40256, u"recurring"},        {4, 40257, u"reminder"},
    {8, 40258, u"private"}, {16, 40259, u"category_symbol"}, {32, 40261, u"high_importance"},
    {64, 40260, u"link"},   {256, 40921, u"attached_icon_symbol"},
};

// The label of a second single strip beside the first.
constexpr wchar_t kSecondStripLabel[] = L"2nd :";

// Layout of the icon markers in 96-dpi units.
constexpr int kMarkerMargin = 6, kMarkerTop = 3, kMarkerRow = 18, kMarkerCaptionRow = 14;
constexpr int kMarkerCaptionWidth = 112, kSecondLabelWidth = 30, kMarkerGap = 4, kStackedIndent = 12;
constexpr int kStripHeight = 17, kStripCell = 16, kPreviewGap = 2;

// A copy of a preview picture for a strip, which owns its pictures.
std::unique_ptr<SkinImage> CopyPicture(const SkinImage& source) {
  auto copy = std::make_unique<SkinImage>();
  const TargaImage& from = source.planes;
  if (!from.Empty()) {
    TargaImage& to = copy->planes;
    to.width = from.width;
    to.height = from.height;
    std::size_t count = from.PixelCount();
    for (auto plane : {&TargaImage::red, &TargaImage::green, &TargaImage::blue, &TargaImage::alpha}) {
      (to.*plane) = std::make_unique<std::uint8_t[]>(count);
      std::memcpy((to.*plane).get(), (from.*plane).get(), count);
    }
  } else if (source.bitmap != nullptr) {
    copy->bitmap = static_cast<HBITMAP>(CopyImage(source.bitmap, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    copy->bitmapWidth = source.bitmapWidth;
    copy->bitmapHeight = source.bitmapHeight;
    copy->transparentColor = source.transparentColor;
  }
  return copy;
}

}  // namespace

const MarkerStrip kMarkerStrips[kMarkerStripCount] = {
    {L"IconMarkerLeftApps", true, &S::ApptLeftAlignIcon1, kAppointmentMarkers, 40250},
    {L"IconMarkerLeftApps", true, &S::ApptLeftAlignIcon2, kAppointmentMarkers, 0},
    {L"IconMarkerLeftTasks", true, &S::TaskLeftAlignIcon1, kTaskMarkers, 40252},
    {L"IconMarkerLeftTasks", true, &S::TaskLeftAlignIcon2, kTaskMarkers, 0},
    {L"IconMarkerRight", false, &S::ClrApptRightIcons, kAppointmentMarkers, 40254},
    {L"IconMarkerRightTask", false, &S::ClrTaskRightIcons, kTaskMarkers, 40919},
};

std::span<const RowTab> CalendarTabs() { return kTabs; }

std::int32_t MarkedValue(const MarkerStrip& strip, HWND window) {
  std::int32_t value = 0;
  for (const MarkerChoice& choice : strip.choices) {
    if (IconStripItemState(window, choice.flag) != kIconStripOff) continue;
    if (strip.single) return static_cast<std::int32_t>(choice.flag);
    value += static_cast<std::int32_t>(choice.flag);
  }
  return value;
}

CalendarPage::CalendarPage(const PageContext& context)
    : RowListPage(context, kTabs, kCalendarPageIds), texts_(context.language), preview_(context) {}

CalendarPage::~CalendarPage() {
  for (int index = 0; index < kMarkerStripCount; ++index) {
    StoreStrip(index);
    if (strips_[index] != nullptr) DestroyWindow(strips_[index]);
  }
}

// The strips, their pictures and the preview are made when their tab is
// first shown: most visits to the page never show it.
void CalendarPage::MakeMarkerStrips() {
  if (stripsMade_) return;
  stripsMade_ = true;
  CreateMarkerStrips();
}

// Single strips pair up on a line; a multi strip goes beside its caption
// when the page is wide enough, else below it.
void CalendarPage::CreateMarkerStrips() {
  RECT page = PageArea();
  int width = page.right, y = page.top + ScaleY(kMarkerTop);
  int multiWidth = 1 + kStripCell * int(std::size(kAppointmentMarkers));
  bool beside = width >= ScaleX(2 * kMarkerMargin + kMarkerCaptionWidth + multiWidth);
  int captionX = ScaleX(kMarkerMargin), stripX = captionX + ScaleX(kMarkerCaptionWidth);
  int captionDrop = (ScaleY(kStripHeight) - ScaleY(kMarkerCaptionRow)) / 2;
  int id = FirstOwnId();
  for (int index = 0; index < kMarkerStripCount; ++index) {
    const MarkerStrip& strip = kMarkerStrips[index];
    bool second = strip.caption == 0;
    RECT label = second ? RECT{stripX + ScaleX(kStripHeight + kMarkerGap), y + captionDrop, 0, 0}
                        : RECT{captionX, y + captionDrop, 0, 0};
    label.right = label.left + ScaleX(second ? kSecondLabelWidth : kMarkerCaptionWidth - kMarkerGap);
    if (!strip.single && !beside) {
      label.top = y;
      label.right = width - ScaleX(kMarkerMargin);
    }
    label.bottom = label.top + ScaleY(kMarkerCaptionRow);
    WideString caption = second ? WideString(AsU16(kSecondStripLabel)) : Text(strip.caption);
    stripCaptions_[index] = AddControl(L"STATIC", AsWide(caption.Text()), SS_LEFT | SS_NOPREFIX, label, id++,
                                       context().normalFont);
    POINT origin = {second ? label.right : stripX, y};
    if (!strip.single && !beside) origin = {captionX + ScaleX(kStackedIndent), y + ScaleY(kMarkerCaptionRow)};
    HWND window = CreateIconStrip(context().instance, context().window, origin, strip.className, index + 1,
                                  strip.single, &texts_);
    strips_[index] = window;
    if (window != nullptr) {
      ShowWindow(window, SW_HIDE);
      std::int32_t value = settings().*strip.field;
      for (const MarkerChoice& choice : strip.choices) {
        bool marked = strip.single ? value == std::int32_t(choice.flag) : (value & choice.flag) != 0;
        auto picture = CopyPicture(context().previewImages.Image(std::u16string_view(choice.image)));
        AddIconStripItem(window, AsWide(Text(choice.name).Text()), marked, std::move(picture), choice.flag);
      }
    }
    if (strip.single && !second) continue;  // its second strip shares the line
    y = origin.y + ScaleY(kMarkerRow);
  }
  preview_.Place(y + ScaleY(kPreviewGap), page.right);
}

void CalendarPage::StoreStrip(int index) {
  if (strips_[index] == nullptr) return;
  const MarkerStrip& strip = kMarkerStrips[index];
  settings().*strip.field = MarkedValue(strip, strips_[index]);
}

void CalendarPage::Show(int showCommand, bool includeTabStrip) {
  shown_ = showCommand != 0;
  RowListPage::Show(showCommand, includeTabStrip);
}

void CalendarPage::ShowOwnTab(int tab, int showCommand) {
  if (tab != kIconMarkerTab) return;
  if (showCommand != 0) MakeMarkerStrips();
  for (int index = 0; index < kMarkerStripCount; ++index) {
    for (HWND control : {strips_[index], stripCaptions_[index]})
      if (control != nullptr) ShowWindow(control, showCommand);
  }
  RECT area = preview_.Area();
  InvalidateRect(context().window, &area, TRUE);
}

bool CalendarPage::OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (wParam != kIconStripChanged) return RowListPage::OnCommand(window, message, wParam, lParam);
  int index = static_cast<int>(lParam) - 1;
  if (index < 0 || index >= kMarkerStripCount) return false;
  StoreStrip(index);
  RedrawPreview();
  return true;
}

void CalendarPage::Paint(HDC dc) {
  if (shown_ && CurrentTab() == kIconMarkerTab) preview_.Paint(dc);
}

// Drawn at once rather than through the shell's paint, which would first
// fill the area white.
void CalendarPage::RedrawPreview() {
  if (!shown_ || CurrentTab() != kIconMarkerTab) return;
  HDC dc = GetDC(context().window);
  preview_.Paint(dc);
  ReleaseDC(context().window, dc);
}

std::unique_ptr<SettingsPage> MakeCalendarPage(const PageContext& context) {
  return std::make_unique<CalendarPage>(context);
}

}  // namespace tw
