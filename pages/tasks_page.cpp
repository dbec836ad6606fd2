#include "pages/tasks_page.h"

#include <windows.h>

#include "resources/string_ids.h"

namespace tw {
namespace {

using S = SettingsStore;

// Words after a lone date: the first date's and the second date's.
constexpr unsigned kStartWord = 40779, kEndWord = 40780;
constexpr int kLaterDays = 7;

struct DateSample {
  bool range;  // both dates, else one date and its word
  bool later;  // a lone date: the later day
  const char16_t* first;
  const char16_t* second;  // the range's second picture
};

// Month-first, then day-first: a range with year, one without, then each
// date alone with its word, with and without year.
constexpr DateSample kDateSamples[] = {
    {true, false, u"M'/'d", u"M'/'d'/'yy"}, {true, false, u"M'/'d", u"M'/'d"},
    {false, false, u"M'/'d'/'yy", nullptr}, {false, true, u"M'/'d'/'yy", nullptr},
    {false, false, u"M'/'d", nullptr},      {false, true, u"M'/'d", nullptr},
    {true, false, u"d'/'M", u"d'/'M'/'yy"}, {true, false, u"d'/'M", u"d'/'M"},
    {false, false, u"d'/'M'/'yy", nullptr}, {false, true, u"d'/'M'/'yy", nullptr},
    {false, false, u"d'/'M", nullptr},      {false, true, u"d'/'M", nullptr},
};

std::vector<std::u16string> TaskDateSamples(const ChoiceContext& context) {
  CalendarDate today = context.today, later = AddDays(today, kLaterDays);
  WideString startWord = PageText(context.page, kStartWord), endWord = PageText(context.page, kEndWord);
  Locale& locale = context.locale;
  std::vector<std::u16string> samples;
  for (const DateSample& sample : kDateSamples) {
    if (sample.range) {
      samples.push_back(FormatText(u"%s - %s", {locale.FormatDate(today, DateStyle::Picture, sample.first),
                                                locale.FormatDate(later, DateStyle::Picture, sample.second)}));
    } else {
      std::u16string date = locale.FormatDate(sample.later ? later : today, DateStyle::Picture, sample.first);
      samples.push_back(FormatText(u"%s %s", {date, (sample.later ? endWord : startWord).View()}));
    }
  }
  return samples;
}

// High importance (32) is offered before the category symbol (16).
constexpr std::int32_t kLeftIconFlags[] = {0, 2, 4, 8, 32, 16};
constexpr unsigned kLeftIconTexts[] = {40791, 40256, 40257, 40258, 40792, 40259};
std::int32_t LeftIconFlag(int position) {
  return position >= 0 && position < int(std::size(kLeftIconFlags)) ? kLeftIconFlags[position] : -1;
}
constexpr int kNoIcon = 0;

constexpr CheckItem kHidingChecks[] = {
    {40793, &S::HideCompletedTasks},      {40794, &S::HidePastCompletedTasks},
    {40795, &S::IncludeCountersTsks},     {40796, &S::ConfirmTaskCompleteTsks},
    {40797, &S::RemoveUndatedLeadingStr}, {40798, &S::RemoveUndatedTsks},
};
constexpr CheckItem kRightIcons[] = {
    {40258, nullptr, 8}, {40255, nullptr, 1}, {40256, nullptr, 2}, {40257, nullptr, 4}, {40261, nullptr, 32},
};
constexpr unsigned kLineBreakerTexts[] = {25, 26, 27, 40944};

constexpr Row kListingForm[] = {
    FormDropDown(40767, &S::TsksDateFrmt, Generated(TaskDateSamples)),
    FormDropDown(40768, &S::TsksLimitFutureDate, TextRange(40781, 8)),
    CheckList(0, kHidingChecks),
};
constexpr Row kFoldingForm[] = {
    FormDropDown(40769, &S::TsksLineBreaker, TextList(kLineBreakerTexts)),
    FormCheck(40770, &S::TsksUseSmartFolding),
    FormDropDown(40771, &S::TsksFoldingType, TextRange(40408, 3)),
    FormDropDown(40980, &S::TsksFoldingDflt, TextRange(40947, 2)),
};
constexpr Row kIconForm[] = {
    FormDropDown(40772, &S::TaskTabLeftAlignIcon, TextList(kLeftIconTexts), LeftIconFlag, kNoIcon),
    FlagList(40773, &S::TasksRightIcons, kRightIcons),
};
constexpr Row kCustomDateForm[] = {
    FormCheck(40775, &S::UseCustomDateTsks),
    FormDropDown(40776, &S::TsksCustomDateStruct, TextRange(40799, 3)),
    FormText(40777, &S::CustomDateFrmtStart),
    FormText(40778, &S::CustomDateFrmtEnd),
};

// Text 40765 names no tab.
constexpr RowTab kTabs[kTasksTabCount] = {
    {40762, {}, kListingForm}, {40763, {}, kFoldingForm}, {40764, {}, kIconForm}, {40766, {}, kCustomDateForm}};

}  // namespace

std::span<const RowTab> TasksTabs() { return kTabs; }

// Through the file-time day count, which the system converts both ways for
// any date the device can show.
CalendarDate AddDays(const CalendarDate& day, int days) {
  constexpr ULONGLONG kTicksPerDay = 864000000000ULL;
  SYSTEMTIME time = {};
  time.wYear = WORD(day.year);
  time.wMonth = WORD(day.month);
  time.wDay = WORD(day.day);
  FILETIME file;
  if (!SystemTimeToFileTime(&time, &file)) return day;
  ULARGE_INTEGER ticks = {{file.dwLowDateTime, file.dwHighDateTime}};
  ticks.QuadPart += ULONGLONG(days) * kTicksPerDay;
  file = {ticks.LowPart, ticks.HighPart};
  if (!FileTimeToSystemTime(&file, &time)) return day;
  return {time.wYear, time.wMonth, time.wDay, time.wDayOfWeek, day.hour, day.minute};
}

TasksPage::TasksPage(const PageContext& context) : RowListPage(context, kTabs, kTasksPageIds) {}

std::unique_ptr<SettingsPage> MakeTasksPage(const PageContext& context) {
  return std::make_unique<TasksPage>(context);
}

}  // namespace tw
