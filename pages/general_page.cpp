#include "pages/general_page.h"

#include <windows.h>

#include "data/choice_lists.h"
#include "platform/win32/font_faces.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_library_loader.h"

namespace tw {
namespace {

using S = SettingsStore;

// A stored 3 is a tap action no longer offered; it reads as the last one.
constexpr std::int32_t kLastTapAction = 2;
std::int32_t KnownTapAction(std::int32_t value) { return value == 3 ? kLastTapAction : value; }

// Height limits offered in steps of 20 units; any other may be typed.
constexpr int kLowestLimit = 80, kHighestLimit = 600, kLimitStep = 20;
std::vector<std::u16string> HeightLimits(const ChoiceContext&) {
  std::vector<std::u16string> limits;
  for (int limit = kLowestLimit; limit <= kHighestLimit; limit += kLimitStep)
    limits.push_back(FormatText(u"%d", {limit}));
  return limits;
}
// Landscape may also have no limit of its own.
std::vector<std::u16string> LandscapeLimits(const ChoiceContext& context) {
  std::vector<std::u16string> limits = HeightLimits(context);
  limits.insert(limits.begin(), u"0");
  return limits;
}

TextChoices FromList(const ChoiceList& list) {
  TextChoices choices;
  for (const ChoiceEntry& entry : list.entries) {
    choices.shown.push_back(entry.text);
    choices.stored.push_back(entry.text);
  }
  choices.selected = list.selected;
  return choices;
}

// Each entry stores the full path of its library.
TextChoices Languages(const ChoiceContext& context) {
  const SettingsStore& record = context.page.settings;
  Win32FileSystem files;
  Win32LibraryLoader loader;
  LanguageChoices languages =
      ListLanguages(files, loader, record.InstallFolder.View(), record.SelectedLangResFile.View());
  TextChoices choices = FromList(languages.list);
  for (std::size_t i = 0; i < languages.list.entries.size(); ++i)
    choices.stored[i] = languages.paths[languages.list.entries[i].itemData];
  return choices;
}

// The current skin, else the first.
TextChoices Skins(const ChoiceContext& context) {
  const SettingsStore& record = context.page.settings;
  Win32FileSystem files;
  TextChoices choices = FromList(ListSkins(files, record.SkinsFolder.View(), record.dSelectedSkin.View()));
  if (choices.selected < 0) choices.selected = 0;
  return choices;
}

TextChoices FontFaceChoices(const ChoiceContext& context) {
  HDC dc = GetDC(context.page.window);
  std::vector<std::u16string> faces = FontFaces(dc);
  ReleaseDC(context.page.window, dc);
  return FromList(ListFontFaces(faces, context.page.settings.FontFaceToUse.View()));
}

constexpr unsigned kTapTexts[] = {31, 32, 40657};
constexpr Row kTapAction =
    DropDown(40633, &S::OnClick, 40655, 40656, TextList(kTapTexts));
constexpr Row WithFillRule(Row row, FillRule rule) {
  row.fillRule = rule;
  return row;
}

constexpr Row kMainRows[] = {
    WithFillRule(kTapAction, KnownTapAction),
    DropDown(40634, &S::OnDoubleClick, 40658, 40659, TextRange(40660, 3)),
    NumberCombo(40635, &S::dHeightLimit, 40663, 40664, Generated(HeightLimits)),
    NumberCombo(40636, &S::dHeightLimitLandscape, 40665, 40666, Generated(LandscapeLimits)),
    TextDropDown(40637, &S::SelectedLangResFile, 40667, 40668, Languages),
    TextDropDown(40638, &S::dSelectedSkin, 40669, 40670, Skins),
    Check(40639, &S::EnableSoundEffect, 40671, 40672),
    Check(40640, &S::LockDpad, 40673, 40674),
    Check(40641, &S::LockDpadHorizental, 40675, 40676),
    TextDropDown(40648, &S::FontFaceToUse, 40695, 40696, FontFaceChoices),
    Check(40650, &S::RemoveHighlight, 40702, 40703),
    Check(40653, &S::GoofyMode, 40708, 40709),
    Check(40963, &S::IndentItems, 40963, 40968),
};

constexpr Row kTabBarForm[] = {
    FormCheck(40652, &S::RemoveTabsBar),
    FormCheck(40964, &S::RemoveSettingsButton),
    FormCheck(40644, &S::RemoveSeparatingLine),
    FormDropDown(40649, &S::FilterTtlAlign, TextRange(40699, 3)),
    FormCheck(40965, &S::VerticalTabs),
};

constexpr Row kDrawingRows[] = {
    Check(40642, &S::UseDoubleClickScroll, 40677, 40678),
    Check(40643, &S::UseFullScrollings, 40679, 40680),
    DropDown(40645, &S::UseShadowColor, 40683, 40684, TextRange(40685, 5)),
    Check(40646, &S::RefreshScreenWhenMin, 40690, 40691),
    Check(40647, &S::ForceClearType, 40692, 40693),
    Check(40651, &S::MyVgaMode, 40704, 40705),
    Check(40654, &S::UseThinLines, 40710, 40711),
    DropDown(40966, &S::LoadingDelay, 40969, 40970, Numbers(0, 6)),
    DropDown(40303, &S::ClrDPadEnterAction, 40461, 40462, TextRange(40463, 3)),
    Check(40967, &S::ExclusiveDPadNavig, 40972, 40973),
};

constexpr RowTab kTabs[kGeneralTabCount] = {{40240, kMainRows}, {40962, {}, kTabBarForm}, {40247, kDrawingRows}};

}  // namespace

std::span<const RowTab> GeneralTabs() { return kTabs; }

GeneralPage::GeneralPage(const PageContext& context) : RowListPage(context, kTabs, kGeneralPageIds) {}

std::unique_ptr<SettingsPage> MakeGeneralPage(const PageContext& context) {
  return std::make_unique<GeneralPage>(context);
}

}  // namespace tw
