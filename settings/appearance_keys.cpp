// Fonts, colours and the Categories key's one value of the record.
#include "settings/schema.h"

namespace tw {
namespace {

using S = SettingsStore;

constexpr ValueSpec kFontSizes[] = {
    ScaledDword(u"FontGnrlSize", &S::FontGnrlSize, 12),
    ScaledDword(u"FontGnrlTitlesSize", &S::FontGnrlTitlesSize, 12),
    Dword(u"FontGnrlUseAdvncd", &S::FontGnrlUseAdvncd, 0),
};

// {name, field, bold, struck out when loaded, struck out when saved}.
// FontMailUnread's saver default differs from its loader's on purpose: a
// struck-out unread-mail font is saved by deleting the flag.
constexpr FontSpec kFonts[] = {
    {u"FontGeneral", &S::FontGeneral, false, false, false},
    {u"FontCalTasks", &S::FontCalTasks, false, false, false},
    {u"FontCalTasksOverdue", &S::FontCalTasksOverdue, false, false, false},
    {u"FontCalTasksFuture", &S::FontCalTasksFuture, false, false, false},
    {u"FontCalTasksCompleted", &S::FontCalTasksCompleted, false, false, false},
    {u"FontCalTasksUndated", &S::FontCalTasksUndated, false, false, false},
    {u"FontCalApptBusy", &S::FontCalApptBusy, false, false, false},
    {u"FontCalApptFree", &S::FontCalApptFree, false, false, false},
    {u"FontCalApptOutOfOffice", &S::FontCalApptOutOfOffice, false, false, false},
    {u"FontCalTentative", &S::FontCalTentative, false, false, false},
    {u"FontCalPast", &S::FontCalPast, false, true, true},
    {u"FontCalCompleted", &S::FontCalCompleted, false, true, true},
    {u"FontCalDayTitles", &S::FontCalDayTitles, true, false, false},
    {u"FontMailUnread", &S::FontMailUnread, true, false, true},
    {u"FontMailRead", &S::FontMailRead, false, false, false},
    {u"FontTskOverdue", &S::FontTskOverdue, false, false, false},
    {u"FontTskDueToday", &S::FontTskDueToday, false, false, false},
    {u"FontTskNoDue", &S::FontTskNoDue, false, false, false},
    {u"FontTskFutureDue", &S::FontTskFutureDue, false, false, false},
    {u"FontTskGroupingTtls", &S::FontTskGroupingTtls, true, false, false},
    {u"FontNoteItems", &S::FontNoteItems, false, false, false},
    {u"FontNoteTitles", &S::FontNoteTitles, true, false, false},
    {u"FontMsgsRead", &S::FontMsgsRead, false, false, false},
    {u"FontMsgsUnread", &S::FontMsgsUnread, true, false, false},
    {u"FontMsgsTitles", &S::FontMsgsTitles, true, false, false},
    {u"FontSEGeneral", &S::FontSEGeneral, false, false, false},
    {u"FontSEFilter1", &S::FontSEFilter1, false, false, false},
    {u"FontSEFilter2", &S::FontSEFilter2, false, false, false},
    {u"FontSEFilter3", &S::FontSEFilter3, false, false, false},
    {u"FontSEFilter4", &S::FontSEFilter4, false, false, false},
};

// Every colour starts unset: the skin's or the built-in colour applies.
constexpr ValueSpec kColors[] = {
    Dword(u"GeneralFontColor", &S::GeneralFontColor, kNoColor),
    Dword(u"HighlightBgClr", &S::HighlightBgClr, kNoColor),
    Dword(u"HighlightTextClr", &S::HighlightTextClr, kNoColor),
    Dword(u"ShadowFontColor", &S::ShadowFontColor, kNoColor),
    Dword(u"SeperatorLineClr", &S::SeperatorLineClr, kNoColor),
    Dword(u"TimeLinesBgClr", &S::TimeLinesBgClr, kNoColor),
    Dword(u"TimeLinesDfltClr", &S::TimeLinesDfltClr, kNoColor),
    Dword(u"ClrBreakingLineClr", &S::ClrBreakingLineClr, kNoColor),
    Dword(u"ClrPopupClrBg", &S::ClrPopupClrBg, kNoColor),
    Dword(u"ClrPopupCurr", &S::ClrPopupCurr, kNoColor),
    Dword(u"ClrPopupHighlight", &S::ClrPopupHighlight, kNoColor),
    Dword(u"TskBreakingLineClr", &S::TskBreakingLineClr, kNoColor),
    Dword(u"ClrStatusFree", &S::ClrStatusFree, kNoColor),
    Dword(u"ClrStatusBusy", &S::ClrStatusBusy, kNoColor),
    Dword(u"ClrStatusTentative", &S::ClrStatusTentative, kNoColor),
    Dword(u"ClrStatusOutofoffice", &S::ClrStatusOutofoffice, kNoColor),
};

constexpr ValueSpec kCategories[] = {
    Text(u"AdditionalIconsFolder", &S::AdditionalIconsFolder, u""),
};

}  // namespace

const KeySpec kFontsKey = {u"Software\\Orvex\\Tidewell\\Fonts", kFontSizes, kFonts};
const KeySpec kColorsKey = {u"Software\\Orvex\\Tidewell\\Colors", kColors};
const KeySpec kCategoriesKey = {u"Software\\Orvex\\Tidewell\\Categories", kCategories};

}  // namespace tw
