// The tab keys of the Today item: Tasks, Notes, Messages, special events, and
// the choice of another PIM program.
#include "settings/schema.h"

namespace tw {
namespace {

using S = SettingsStore;

constexpr ValueSpec kTasks[] = {
    Dword(u"TsksDateFrmt", &S::TsksDateFrmt, 3),
    Dword(u"TsksLineBreaker", &S::TsksLineBreaker, 3),
    Dword(u"TsksUseSmartFolding", &S::TsksUseSmartFolding, 1),
    Dword(u"TsksFoldingType", &S::TsksFoldingType, 0),
    Dword(u"TsksFoldingDflt", &S::TsksFoldingDflt, 0),
    Dword(u"TsksLimitFutureDate", &S::TsksLimitFutureDate, 0),
    Dword(u"TasksRightIcons", &S::TasksRightIcons, 0x17F),
    Dword(u"TaskTabLeftAlignIcon", &S::TaskTabLeftAlignIcon, 0),
    Dword(u"HideCompletedTasks", &S::HideCompletedTasks, 0),
    Dword(u"HidePastCompletedTasks", &S::HidePastCompletedTasks, 0),
    Dword(u"IncludeCountersTsks", &S::IncludeCountersTsks, 1),
    Dword(u"ConfirmTaskCompleteTsks", &S::ConfirmTaskCompleteTsks, 1),
    Dword(u"RemoveUndatedLeadingStr", &S::RemoveUndatedLeadingStr, 0),
    Dword(u"RemoveUndatedTsks", &S::RemoveUndatedTsks, 0),
    Dword(u"UseCustomDateTsks", &S::UseCustomDateTsks, 0),
    Dword(u"TsksCustomDateStruct", &S::TsksCustomDateStruct, 1),
    Text(u"CustomDateFrmtStart", &S::CustomDateFrmtStart, u""),
    Text(u"CustomDateFrmtEnd", &S::CustomDateFrmtEnd, u""),
};

// The first three belong to the Today item's own state: read, never written.
constexpr ValueSpec kNotes[] = {
    Dword(u"DisplayOnNotesTab", &S::DisplayOnNotesTab, 7, kNotSaved),
    Dword(u"NotesTabGrouping", &S::NotesTabGrouping, 1, kNotSaved),
    Dword(u"NotesTab1Sort", &S::NotesTab1Sort, 0, kNotSaved),
    Item(u"NotesBreakLineStyle", &S::NotesBreakLineStyle, 3),
    Item(u"NotesIncldFoldBttns", &S::NotesIncldFoldBttns, 1),
    Item(u"NotesIncldCounters", &S::NotesIncldCounters, 1),
};

constexpr ValueSpec kMessages[] = {
    Item(u"MsgsMrkReadOnPrev", &S::MsgsMrkReadOnPrev, 1),
    Item(u"MsgsBreakLineStyle", &S::MsgsBreakLineStyle, 3),
    Item(u"MsgsIncldFoldBttns", &S::MsgsIncldFoldBttns, 1),
    Item(u"MsgsIncldCounters", &S::MsgsIncldCounters, 1),
};

constexpr ValueSpec kSpecialEvents[] = {
    Dword(u"SEventDays", &S::SEventDays, 2),
    Dword(u"SEAlertBeforeDays", &S::SEAlertBeforeDays, 0),
    Dword(u"SEDateFormat", &S::SEDateFormat, 0),
    Dword(u"SEContactFormat", &S::SEContactFormat, 0),
    Text(u"AdditionalFilterCat1", &S::AdditionalFilterCat1, u""),
    Text(u"AdditionalFilterCat2", &S::AdditionalFilterCat2, u""),
    Text(u"AdditionalFilterCat3", &S::AdditionalFilterCat3, u""),
    Text(u"AdditionalFilterCat4", &S::AdditionalFilterCat4, u""),
    Dword(u"SE1FilterAlertDays", &S::SE1FilterAlertDays, 0),
    Dword(u"SE2FilterAlertDays", &S::SE2FilterAlertDays, 0),
    Dword(u"SE3FilterAlertDays", &S::SE3FilterAlertDays, 0),
    Dword(u"SE4FilterAlertDays", &S::SE4FilterAlertDays, 0),
    Dword(u"SEApptsDaySpan", &S::SEApptsDaySpan, 30),
};

// The numbers, then "HideABCVals", then the programs: the order the values
// are saved in, kept on purpose although "HideABCVals" is a number too.
constexpr ValueSpec kCustomPim[] = {
    Dword(u"OverridePimCatIcons", &S::OverridePimCatIcons, 0),
    Dword(u"OverridePimCatColros", &S::OverridePimCatColros, 0),
    Dword(u"LeaveAFRunning", &S::LeaveAFRunning, 0),
    Dword(u"HideABCVals", &S::HideABCVals, 1),
    Text(u"dCustomPIMCalendar", &S::dCustomPIMCalendar, u""),
    Text(u"dCustomPIMTasks", &S::dCustomPIMTasks, u""),
    Text(u"dCustomPIMContacts", &S::dCustomPIMContacts, u""),
};

}  // namespace

const KeySpec kTasksKey = {u"Software\\Orvex\\Tidewell\\Tasks", kTasks};
const KeySpec kNotesKey = {u"Software\\Orvex\\Tidewell\\Notes", kNotes};
const KeySpec kMessagesKey = {u"Software\\Orvex\\Tidewell\\Messages", kMessages};
const KeySpec kSEventsKey = {u"Software\\Orvex\\Tidewell\\SEvents", kSpecialEvents};
const KeySpec kCustomPimKey = {u"Software\\Orvex\\Tidewell\\CustomPIM", kCustomPim};

}  // namespace tw
