// The one record of every setting the Today item reads. Each field is named
// by its registry value; which key holds it, its type, its default and
// whether it is saved are declared once, in the schema tables of settings/.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "base/wide_string.h"
#include "settings/font_record.h"

namespace tw {

// A value that carries its own default and name, so a page can reset it.
struct SettingItem {
  std::int32_t value = 0;
  std::int32_t defaultValue = 0;
  WideString name;
};

// A tab of the Today item hosted from another plug-in: one TabSettings subkey.
struct TabEntry {
  static constexpr std::size_t kMaxText = 255;  // the Today item's 256-character fields

  // A name or path as those fields hold it: cut to kMaxText characters,
  // never between the halves of a surrogate pair.
  static constexpr std::u16string_view Fit(std::u16string_view text) {
    std::size_t length = text.size() <= kMaxText ? text.size() : kMaxText;
    if (length < text.size() && text[length - 1] >= 0xD800 && text[length - 1] <= 0xDBFF) --length;
    return text.substr(0, length);
  }

  WideString customIconName;
  WideString name;
  WideString library;
  WideString installPath;
  std::int32_t order = 9;
  std::int32_t enabled = 0;
  std::int32_t dynamic = 1;
  std::int32_t type = 0;
};

// The skin's colours and text effects, filled from skin.ini at every load.
struct SkinColors {
  static constexpr int kTextStyles = 8;
  static constexpr std::int32_t kEffectNone = 0, kEffectShadow = 2, kEffectGlow = 4;

  WideString name;
  WideString folder;
  std::uint32_t textColor[kTextStyles] = {};
  std::int32_t textEffect[kTextStyles] = {};
  std::uint32_t shadow_color = 0;
  std::int32_t hide_scroll_bk = 0;
  std::uint32_t scroll_bk_color = 0;
  std::uint32_t highlight_default_color = 0;
  std::int32_t highlight_transparency = 0;
  std::uint32_t highlight_text_color = 0;
  std::uint32_t blending_base_color = 0;
  std::uint32_t color_clr_loaded_dates = 0;
  std::uint32_t color_clr_loaded_dates_shadow = 0;
  std::uint32_t color_clr_category = 0;
  std::uint32_t color_clr_category_shadow = 0;
  std::uint32_t monthly_clr_weekdays = 0;
  std::uint32_t monthly_clr_weekdays_txt = 0;
  std::uint32_t monthly_clr_weekends = 0;
  std::uint32_t monthly_clr_weekends_txt = 0;
  std::uint32_t monthly_clr_curr_day = 0;
  std::uint32_t monthly_clr_curr_day_txt = 0;
  std::uint32_t monthly_clr_prev_month = 0;
  std::uint32_t monthly_clr_prev_month_txt = 0;
  std::uint32_t monthly_clr_weeknums = 0;
  std::uint32_t monthly_clr_weeknums_txt = 0;
  std::uint32_t monthly_clr_highlight = 0;
  std::uint32_t monthly_clr_highlight_txt = 0;
  std::uint32_t monthly_clr_dayttls_txt = 0;
  std::uint32_t pinned_clr_blend_base = 0;
  std::uint32_t color_tsks_sort = 0;
  std::uint32_t color_tsks_sort_shadow = 0;
  std::uint32_t color_tsks_category = 0;
  std::uint32_t color_tsks_category_shadow = 0;
  std::uint32_t color_sevents_category = 0;
  std::uint32_t color_sevents_category_shadow = 0;
  std::uint32_t color_notes_sort = 0;
  std::uint32_t color_notes_sort_shadow = 0;
  std::uint32_t color_notes_folder = 0;
  std::uint32_t color_notes_folder_shadow = 0;
};

struct SettingsStore {
  // Folders formed while loading, not values of the product's keys.
  WideString ProgramFilesFolder;
  WideString ProductFolder;
  WideString InstallFolder;
  WideString SkinsFolder;
  WideString AgendaFusionIconsFolder;
  WideString PocketInformantIconsFolder;
  WideString PocketInformantFolder;

  // Software\Orvex\Tidewell
  std::int32_t OnClick, OnDoubleClick, dUsedPIM, EnableSoundEffect, LockDpad, LockDpadHorizental,
      UseDoubleClickScroll, UseFullScrollings, ForceClearType, MyVgaMode, ExclusiveDPadNavig,
      GoofyMode, NoteZoom, RemoveHighlight, UseShadowColor, FilterMethodToUse, UseThinLines;
  WideString SelectedLangResFile, FontFaceToUse, TWFiltersFileFolder, TWIconsFolder, dSelectedSkin;
  std::int32_t ActiveTab, TsksGrouping, TsksGroupingDirctn, TsksSrt1, TsksSrt1Dirctn, TsksSrt2,
      TsksSrt2Dirctn, TsksSrt3, TsksSrt3Dirctn;
  WideString CalendarSelCategory, TasksSelCategory, SEventsSelCategory, NotesSelFolder;
  std::int32_t CalendarSelFilter, TasksSelFilter, SEventsSelFilter, LastMinimizeState,
      FirstTimeSettingsMsg, dHeightLimit, dHeightLimitLandscape, RemoveSettingsButton,
      RemoveSeparatingLine, RefreshScreenWhenMin, FilterTtlAlign, VerticalTabs, RemoveTabsBar,
      IndentItems, LoadingDelay;

  // Calendar
  std::int32_t dNumOfDays, DayTtlFrmt, TimeFormat, Force2DigitsTImeFrmt, dDayBreaker,
      dAppoPassedToday, UseSmartFolding, FoldingType, FoldingDfltState, TasksSubsortOnCal,
      OnPopupMonthCalClick, FilterFreeApptsFromTL, MonthlyPopupCalDateFrmt,
      SkipActiveTsksWeekends, DueDateTsksDateFrmt, ClrDPadEnterAction, TimelinesStart,
      TimelinesLength, TimelinesVertZ, TimelinesHorZ, SkinTodayWhenCollpsAll,
      IncludeYearlyCounters, HumanTime, FirstWeekInYear, LeadingRects, TimeLines,
      ShowTomorrowTtl, Conflicting, ClrTextColor, HideNoAppoDays, SEventsOnClr, IncldCounters,
      IncldTasksInCR, IncldOverDueTsksInCR, IncldFutureTsksInCR, IncldUndatedTsksInCR,
      FutureLimitTsksOnClr, HideOverDueTsksDayTtl, HideUndatedTsksDayTtl, IncludeTsksCheckBoxes,
      DatesToIncldCmpltdTsksOnClr, IncldPastCmpltdTsksInClndr, ShowActiveTsksOnCal,
      ForceTodayTitleDsply, AppendDateToTodayTtl, PaintTsksBeforeAppts, ConfirmTaskComplete,
      AppendDaysCountTottl, AppendWeekNumTottl, MonthlyStartDay, FirstWorkDay,
      MonthlyPopTimelines, MonthlyPopCatIcons, MonthlyPopIconsSize, PinnedMonthlyClr,
      MonthlyPopWithWeekNum, CalTitlesOrder0, CalTitlesOrder1, CalTitlesOrder2, CalTitlesOrder3,
      CalTitlesOrder4, CalTitlesOrder5, ApptDisplayFormat, ApptLeftAlignIcon1,
      ApptLeftAlignIcon2, TaskLeftAlignIcon1, TaskLeftAlignIcon2, ClrApptRightIcons,
      ClrTaskRightIcons;
  WideString CustomDayttlFrmtDefault;
  std::int32_t IncludeMainOnCal, MailHideWhenZeroMsgs, MailTitleFormat, MailSoftwareToUse;
  WideString MailCustomInboxStr;
  std::int32_t HideMailTtlUnderToday, ShowMailCounterOnTtl;

  // Tasks
  std::int32_t TsksDateFrmt, TsksLineBreaker, TsksUseSmartFolding, TsksFoldingType,
      TsksFoldingDflt, TsksLimitFutureDate, TasksRightIcons, TaskTabLeftAlignIcon,
      HideCompletedTasks, HidePastCompletedTasks, IncludeCountersTsks, ConfirmTaskCompleteTsks,
      RemoveUndatedLeadingStr, RemoveUndatedTsks, UseCustomDateTsks, TsksCustomDateStruct;
  WideString CustomDateFrmtStart, CustomDateFrmtEnd;

  // Notes
  std::int32_t DisplayOnNotesTab, NotesTabGrouping, NotesTab1Sort;
  SettingItem NotesBreakLineStyle, NotesIncldFoldBttns, NotesIncldCounters;

  // Messages
  SettingItem MsgsMrkReadOnPrev, MsgsBreakLineStyle, MsgsIncldFoldBttns, MsgsIncldCounters;

  // SEvents
  std::int32_t SEventDays, SEAlertBeforeDays, SEDateFormat, SEContactFormat;
  WideString AdditionalFilterCat1, AdditionalFilterCat2, AdditionalFilterCat3, AdditionalFilterCat4;
  std::int32_t SE1FilterAlertDays, SE2FilterAlertDays, SE3FilterAlertDays, SE4FilterAlertDays,
      SEApptsDaySpan;

  // CustomPIM
  std::int32_t OverridePimCatIcons, OverridePimCatColros, LeaveAFRunning;
  WideString dCustomPIMCalendar, dCustomPIMTasks, dCustomPIMContacts;
  std::int32_t HideABCVals;

  // Fonts
  std::int32_t FontGnrlSize, FontGnrlTitlesSize, FontGnrlUseAdvncd;
  FontRecord FontGeneral, FontCalTasks, FontCalTasksOverdue, FontCalTasksFuture,
      FontCalTasksCompleted, FontCalTasksUndated, FontCalApptBusy, FontCalApptFree,
      FontCalApptOutOfOffice, FontCalTentative, FontCalPast, FontCalCompleted, FontCalDayTitles,
      FontMailUnread, FontMailRead, FontTskOverdue, FontTskDueToday, FontTskNoDue,
      FontTskFutureDue, FontTskGroupingTtls, FontNoteItems, FontNoteTitles, FontMsgsRead,
      FontMsgsUnread, FontMsgsTitles, FontSEGeneral, FontSEFilter1, FontSEFilter2,
      FontSEFilter3, FontSEFilter4;

  // Colors
  std::int32_t GeneralFontColor, HighlightBgClr, HighlightTextClr, ShadowFontColor,
      SeperatorLineClr, TimeLinesBgClr, TimeLinesDfltClr, ClrBreakingLineClr, ClrPopupClrBg,
      ClrPopupCurr, ClrPopupHighlight, TskBreakingLineClr, ClrStatusFree, ClrStatusBusy,
      ClrStatusTentative, ClrStatusOutofoffice;

  // TabSettings: the four built-in tabs, then one entry per hosted tab.
  std::int32_t TasksTabEnabled, SEventsTabEnabled, NotesTabEnabled, MailTabEnabled,
      TasksTabOrder, NotesTabOrder, MailTabOrder, SEventsTabOrder;
  std::vector<TabEntry> tabs;

  // Categories
  WideString AdditionalIconsFolder;

  SkinColors skin;
};

}  // namespace tw
