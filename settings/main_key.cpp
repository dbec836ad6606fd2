#include "settings/schema.h"

namespace tw {
namespace {

using S = SettingsStore;

constexpr ValueSpec kValues[] = {
    Dword(u"OnClick", &S::OnClick, 0),
    Dword(u"OnDoubleClick", &S::OnDoubleClick, 0),
    Dword(u"dUsedPIM", &S::dUsedPIM, 0),
    Dword(u"EnableSoundEffect", &S::EnableSoundEffect, 1),
    Dword(u"LockDpad", &S::LockDpad, 1),
    Dword(u"LockDpadHorizental", &S::LockDpadHorizental, 1),
    Dword(u"UseDoubleClickScroll", &S::UseDoubleClickScroll, 1),
    Dword(u"UseFullScrollings", &S::UseFullScrollings, 1),
    Dword(u"ForceClearType", &S::ForceClearType, 0),
    Dword(u"MyVgaMode", &S::MyVgaMode, 0),  // read before every scaled default below
    Dword(u"ExclusiveDPadNavig", &S::ExclusiveDPadNavig, 0),
    Dword(u"GoofyMode", &S::GoofyMode, 0),
    Dword(u"NoteZoom", &S::NoteZoom, 100, kNotSaved),
    Dword(u"RemoveHighlight", &S::RemoveHighlight, 0),
    Dword(u"UseShadowColor", &S::UseShadowColor, 0),
    Dword(u"FilterMethodToUse", &S::FilterMethodToUse, 0),
    Dword(u"UseThinLines", &S::UseThinLines, 0),
    Text(u"SelectedLangResFile", &S::SelectedLangResFile,
         u"\\Program Files\\Orvex\\Tidewell\\LangRes\\CPEngRc.dll"),
    Text(u"FontFaceToUse", &S::FontFaceToUse, u"Tahoma"),
    FolderText(u"TWFiltersFileFolder", &S::TWFiltersFileFolder, DefaultRule::ProductFolder, kNotSaved),
    FolderText(u"TWIconsFolder", &S::TWIconsFolder, DefaultRule::CategoryIcons, kNotSaved),
    // Loaded as "default", saved against "Default": a lower-case "default" is
    // written out, and the Today item relies on seeing it.
    SkewedText(u"dSelectedSkin", &S::dSelectedSkin, u"default", u"Default"),
    Dword(u"ActiveTab", &S::ActiveTab, 1, kNotSaved),
    Dword(u"TsksGrouping", &S::TsksGrouping, 15, kNotSaved),
    Dword(u"TsksGroupingDirctn", &S::TsksGroupingDirctn, 1, kNotSaved),
    Dword(u"TsksSrt1", &S::TsksSrt1, 0, kNotSaved),
    Dword(u"TsksSrt1Dirctn", &S::TsksSrt1Dirctn, 1, kNotSaved),
    Dword(u"TsksSrt2", &S::TsksSrt2, 2, kNotSaved),
    Dword(u"TsksSrt2Dirctn", &S::TsksSrt2Dirctn, 1, kNotSaved),
    Dword(u"TsksSrt3", &S::TsksSrt3, 5, kNotSaved),
    Dword(u"TsksSrt3Dirctn", &S::TsksSrt3Dirctn, 1, kNotSaved),
    Text(u"CalendarSelCategory", &S::CalendarSelCategory, u"", kNotSaved),
    Text(u"TasksSelCategory", &S::TasksSelCategory, u"", kNotSaved),
    Text(u"SEventsSelCategory", &S::SEventsSelCategory, u"", kNotSaved),
    Text(u"NotesSelFolder", &S::NotesSelFolder, u"", kNotSaved),
    Dword(u"CalendarSelFilter", &S::CalendarSelFilter, 0, kNotSaved),
    Dword(u"TasksSelFilter", &S::TasksSelFilter, 0, kNotSaved),
    Dword(u"SEventsSelFilter", &S::SEventsSelFilter, 0, kNotSaved),
    Dword(u"LastMinimizeState", &S::LastMinimizeState, 0, kNotSaved),
    Dword(u"FirstTimeSettingsMsg", &S::FirstTimeSettingsMsg, 0),
    ScaledDword(u"dHeightLimit", &S::dHeightLimit, 160),
    Dword(u"dHeightLimitLandscape", &S::dHeightLimitLandscape, 0),
    Dword(u"RemoveSettingsButton", &S::RemoveSettingsButton, 0),
    Dword(u"RemoveSeparatingLine", &S::RemoveSeparatingLine, 1),
    Dword(u"RefreshScreenWhenMin", &S::RefreshScreenWhenMin, 1),
    Dword(u"FilterTtlAlign", &S::FilterTtlAlign, 0),
    Dword(u"VerticalTabs", &S::VerticalTabs, 0),
    Dword(u"RemoveTabsBar", &S::RemoveTabsBar, 0),
    Dword(u"IndentItems", &S::IndentItems, 0),
    Dword(u"LoadingDelay", &S::LoadingDelay, 0),
};

}  // namespace

const KeySpec kMainKey = {kProductKey, kValues};

}  // namespace tw
