#include "settings/registry_values.h"
#include "settings/schema.h"
#include "settings/settings_io.h"

namespace tw {
namespace {

using S = SettingsStore;

// The six parts of a day title, in the order the Today item draws them.
constexpr std::int32_t SettingsStore::*kTitleOrder[] = {
    &S::CalTitlesOrder0, &S::CalTitlesOrder1, &S::CalTitlesOrder2,
    &S::CalTitlesOrder3, &S::CalTitlesOrder4, &S::CalTitlesOrder5};
constexpr const char16_t* kTitleOrderNames[] = {u"CalTitlesOrder0", u"CalTitlesOrder1",
                                                u"CalTitlesOrder2", u"CalTitlesOrder3",
                                                u"CalTitlesOrder4", u"CalTitlesOrder5"};

constexpr ValueSpec kValues[] = {
    Dword(u"dNumOfDays", &S::dNumOfDays, 7),
    Dword(u"DayTtlFrmt", &S::DayTtlFrmt, 1),
    LocaleDword(u"TimeFormat", &S::TimeFormat, DefaultRule::LocaleClock),
    Dword(u"Force2DigitsTImeFrmt", &S::Force2DigitsTImeFrmt, 0),
    Dword(u"dDayBreaker", &S::dDayBreaker, 3),
    Dword(u"dAppoPassedToday", &S::dAppoPassedToday, 0),
    Dword(u"UseSmartFolding", &S::UseSmartFolding, 1),
    Dword(u"FoldingType", &S::FoldingType, 0),
    Dword(u"FoldingDfltState", &S::FoldingDfltState, 0),
    Dword(u"TasksSubsortOnCal", &S::TasksSubsortOnCal, 0),
    Dword(u"OnPopupMonthCalClick", &S::OnPopupMonthCalClick, 0),
    Dword(u"FilterFreeApptsFromTL", &S::FilterFreeApptsFromTL, 0),
    Dword(u"MonthlyPopupCalDateFrmt", &S::MonthlyPopupCalDateFrmt, 0),
    Dword(u"SkipActiveTsksWeekends", &S::SkipActiveTsksWeekends, 0),
    Dword(u"DueDateTsksDateFrmt", &S::DueDateTsksDateFrmt, 0),
    Dword(u"ClrDPadEnterAction", &S::ClrDPadEnterAction, 0),
    Dword(u"TimelinesStart", &S::TimelinesStart, 0),
    Dword(u"TimelinesLength", &S::TimelinesLength, 18),
    Dword(u"TimelinesVertZ", &S::TimelinesVertZ, 1),
    Dword(u"TimelinesHorZ", &S::TimelinesHorZ, 1),
    Dword(u"SkinTodayWhenCollpsAll", &S::SkinTodayWhenCollpsAll, 0),
    Dword(u"IncludeYearlyCounters", &S::IncludeYearlyCounters, 1),
    Dword(u"HumanTime", &S::HumanTime, 0),
    Dword(u"FirstWeekInYear", &S::FirstWeekInYear, 0),
    Dword(u"LeadingRects", &S::LeadingRects, 1),
    Dword(u"TimeLines", &S::TimeLines, 2),
    Dword(u"ShowTomorrowTtl", &S::ShowTomorrowTtl, 1),
    Dword(u"Conflicting", &S::Conflicting, 1),
    Dword(u"ClrTextColor", &S::ClrTextColor, 0),
    Dword(u"HideNoAppoDays", &S::HideNoAppoDays, 1),
    Dword(u"SEventsOnClr", &S::SEventsOnClr, 0),
    Dword(u"IncldCounters", &S::IncldCounters, 0),
    Dword(u"IncldTasksInCR", &S::IncldTasksInCR, 1),
    Dword(u"IncldOverDueTsksInCR", &S::IncldOverDueTsksInCR, 1),
    Dword(u"IncldFutureTsksInCR", &S::IncldFutureTsksInCR, 1),
    Dword(u"IncldUndatedTsksInCR", &S::IncldUndatedTsksInCR, 0),
    Dword(u"FutureLimitTsksOnClr", &S::FutureLimitTsksOnClr, 0),
    Dword(u"HideOverDueTsksDayTtl", &S::HideOverDueTsksDayTtl, 0),
    Dword(u"HideUndatedTsksDayTtl", &S::HideUndatedTsksDayTtl, 0),
    Dword(u"IncludeTsksCheckBoxes", &S::IncludeTsksCheckBoxes, 1),
    Dword(u"DatesToIncldCmpltdTsksOnClr", &S::DatesToIncldCmpltdTsksOnClr, 0),
    Dword(u"IncldPastCmpltdTsksInClndr", &S::IncldPastCmpltdTsksInClndr, 1),
    Dword(u"ShowActiveTsksOnCal", &S::ShowActiveTsksOnCal, 1),
    Dword(u"ForceTodayTitleDsply", &S::ForceTodayTitleDsply, 0),
    Dword(u"AppendDateToTodayTtl", &S::AppendDateToTodayTtl, 0),
    Dword(u"PaintTsksBeforeAppts", &S::PaintTsksBeforeAppts, 0),
    Dword(u"ConfirmTaskComplete", &S::ConfirmTaskComplete, 0),
    Dword(u"AppendDaysCountTottl", &S::AppendDaysCountTottl, 0),
    Dword(u"AppendWeekNumTottl", &S::AppendWeekNumTottl, 0),
    LocaleDword(u"MonthlyStartDay", &S::MonthlyStartDay, DefaultRule::LocaleFirstDay),
    LocaleDword(u"FirstWorkDay", &S::FirstWorkDay, DefaultRule::LocaleFirstDay),
    Dword(u"MonthlyPopTimelines", &S::MonthlyPopTimelines, 2),
    Dword(u"MonthlyPopCatIcons", &S::MonthlyPopCatIcons, 1),
    ScaledDword(u"MonthlyPopIconsSize", &S::MonthlyPopIconsSize, 6),
    Dword(u"PinnedMonthlyClr", &S::PinnedMonthlyClr, 0),
    Dword(u"MonthlyPopWithWeekNum", &S::MonthlyPopWithWeekNum, 0),
    Dword(kTitleOrderNames[0], kTitleOrder[0], 0),
    Dword(kTitleOrderNames[1], kTitleOrder[1], 1),
    Dword(kTitleOrderNames[2], kTitleOrder[2], 2),
    Dword(kTitleOrderNames[3], kTitleOrder[3], 3),
    Dword(kTitleOrderNames[4], kTitleOrder[4], 4),
    Dword(kTitleOrderNames[5], kTitleOrder[5], 5),
    Dword(u"ApptDisplayFormat", &S::ApptDisplayFormat, 7),
    Dword(u"ApptLeftAlignIcon1", &S::ApptLeftAlignIcon1, 0),
    Dword(u"ApptLeftAlignIcon2", &S::ApptLeftAlignIcon2, 0),
    Dword(u"TaskLeftAlignIcon1", &S::TaskLeftAlignIcon1, 0),
    Dword(u"TaskLeftAlignIcon2", &S::TaskLeftAlignIcon2, 0),
    Dword(u"ClrApptRightIcons", &S::ClrApptRightIcons, 0x1DF),
    Dword(u"ClrTaskRightIcons", &S::ClrTaskRightIcons, 0x17F),
    Text(u"CustomDayttlFrmtDefault", &S::CustomDayttlFrmtDefault, u""),
    Dword(u"IncludeMainOnCal", &S::IncludeMainOnCal, 0),
    Dword(u"MailHideWhenZeroMsgs", &S::MailHideWhenZeroMsgs, 0),
    Dword(u"MailTitleFormat", &S::MailTitleFormat, 0),
    Dword(u"MailSoftwareToUse", &S::MailSoftwareToUse, 0),
    Text(u"MailCustomInboxStr", &S::MailCustomInboxStr, u""),
    Dword(u"HideMailTtlUnderToday", &S::HideMailTtlUnderToday, 0),
    Dword(u"ShowMailCounterOnTtl", &S::ShowMailCounterOnTtl, 1),
};

bool IsPermutationOfTitleParts(const SettingsStore& store) {
  bool seen[6] = {};
  for (auto field : kTitleOrder) {
    std::int32_t part = store.*field;
    if (part >= 0 && part < 6) seen[part] = true;
  }
  for (bool marked : seen)
    if (!marked) return false;
  return true;
}

// A day count out of range is corrected in the record only; a broken title
// order is reset in the registry too, where the defaults delete the values.
void ValidateCalendar(SettingsStore& store, const SettingsEnvironment& environment, RegKey key) {
  if (store.dNumOfDays < 1 || store.dNumOfDays > 30) store.dNumOfDays = 7;
  if (IsPermutationOfTitleParts(store)) return;
  for (std::int32_t part = 0; part < 6; ++part) {
    store.*kTitleOrder[part] = part;
    WriteDword(environment.registry, key, kTitleOrderNames[part], part, part);
  }
}

// A month calendar pinned into the Today item needs room: an item lower than
// 200 (scaled) does not keep it.
void DropPinnedMonthOnLowItem(SettingsStore& store, const SettingsEnvironment& environment, RegKey) {
  if (store.dHeightLimit < ScaledFor(store, environment, 200) &&
      store.PinnedMonthlyClr == 1)
    store.PinnedMonthlyClr = 0;
}

}  // namespace

const KeySpec kCalendarKey = {u"Software\\Orvex\\Tidewell\\Calendar", kValues, {},
                              ValidateCalendar, DropPinnedMonthOnLowItem};

}  // namespace tw
