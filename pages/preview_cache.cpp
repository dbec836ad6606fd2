#include "pages/preview_cache.h"

#include <algorithm>
#include <cstring>

#include "base/scaling.h"
#include "platform/win32/win32_file_system.h"
#include "resources/resource_ids.h"

namespace tw {
namespace {

static_assert(sizeof(LogFont) == sizeof(LOGFONTW), "font records hold a LOGFONTW");

constexpr COLORREF kGreen = RGB(0, 255, 0);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr UINT kListQueryMessage = 1124;
constexpr WPARAM kListQueryParam = 0x10000004;

// How a size-only font gets its height.
enum class Height { None, Scaled10, Scaled11, Scaled12, GeneralSize, TitlesSize };
enum class Change { None, Normal, Bold, StrikeOut, BoldStrikeOut };

struct FontKey {
  std::int32_t key;
  FontRecord SettingsStore::*record;  // null: a size-only font
  Height height;
  Change change;
};

using S = SettingsStore;
// 105 to 108 and 111 to 113 do not follow the order of the records: the
// Today item numbers them this way.
constexpr FontKey kFontKeys[] = {
    {0, &S::FontGeneral, Height::None, Change::None},
    {1, nullptr, Height::Scaled11, Change::Normal},
    {2, nullptr, Height::Scaled11, Change::Bold},
    {3, nullptr, Height::Scaled10, Change::Normal},
    {4, nullptr, Height::Scaled12, Change::Bold},
    {50, nullptr, Height::GeneralSize, Change::Normal},
    {51, nullptr, Height::GeneralSize, Change::Bold},
    {52, nullptr, Height::GeneralSize, Change::BoldStrikeOut},
    {53, nullptr, Height::TitlesSize, Change::Bold},
    {100, &S::FontCalTasks, Height::None, Change::None},
    {101, &S::FontCalTasksOverdue, Height::None, Change::None},
    {102, &S::FontCalTasksFuture, Height::None, Change::None},
    {103, &S::FontCalTasksCompleted, Height::None, Change::None},
    {104, &S::FontCalTasksUndated, Height::None, Change::None},
    {105, &S::FontCalApptBusy, Height::None, Change::None},
    {106, &S::FontCalApptFree, Height::None, Change::None},
    {107, &S::FontCalTentative, Height::None, Change::None},
    {108, &S::FontCalApptOutOfOffice, Height::None, Change::None},
    {109, &S::FontCalPast, Height::None, Change::None},
    {110, &S::FontCalCompleted, Height::None, Change::None},
    {111, &S::FontMailRead, Height::None, Change::None},
    {112, &S::FontMailUnread, Height::None, Change::None},
    {113, &S::FontCalDayTitles, Height::None, Change::None},
    {200, &S::FontTskOverdue, Height::None, Change::None},
    {201, &S::FontTskDueToday, Height::None, Change::None},
    {202, &S::FontTskNoDue, Height::None, Change::None},
    {203, &S::FontTskFutureDue, Height::None, Change::None},
    {204, &S::FontTskGroupingTtls, Height::None, Change::None},
    {205, &S::FontGeneral, Height::None, Change::StrikeOut},
    {250, &S::FontNoteItems, Height::None, Change::None},
    {251, &S::FontNoteTitles, Height::None, Change::None},
    {270, &S::FontMsgsRead, Height::None, Change::None},
    {271, &S::FontMsgsUnread, Height::None, Change::None},
    {272, &S::FontMsgsTitles, Height::None, Change::None},
    {300, &S::FontSEGeneral, Height::None, Change::Normal},
    {301, &S::FontSEGeneral, Height::None, Change::Bold},
    {302, &S::FontSEFilter1, Height::None, Change::Normal},
    {303, &S::FontSEFilter1, Height::None, Change::Bold},
    {304, &S::FontSEFilter2, Height::None, Change::Normal},
    {305, &S::FontSEFilter2, Height::None, Change::Bold},
    {306, &S::FontSEFilter3, Height::None, Change::Normal},
    {307, &S::FontSEFilter3, Height::None, Change::Bold},
    {308, &S::FontSEFilter4, Height::None, Change::Normal},
    {309, &S::FontSEFilter4, Height::None, Change::Bold},
    {400, nullptr, Height::Scaled11, Change::Normal},
};

int HeightOf(const SettingsStore& settings, Height height) {
  switch (height) {
    case Height::Scaled10: return ScaleX(10);
    case Height::Scaled11: return ScaleX(11);
    case Height::Scaled12: return ScaleX(12);
    case Height::GeneralSize: return settings.FontGnrlSize;
    case Height::TitlesSize: return settings.FontGnrlTitlesSize;
    case Height::None: break;
  }
  return 0;
}

LOGFONTW SizeOnlyFont(const SettingsStore& settings, Height height) {
  LOGFONTW font = {};
  std::u16string_view face = settings.FontFaceToUse.View().substr(0, LF_FACESIZE - 1);
  std::memcpy(font.lfFaceName, face.data(), face.size() * sizeof(char16_t));
  if (settings.ForceClearType == 1) font.lfQuality = kClearTypeQuality;
  font.lfHeight = HeightOf(settings, height);
  return font;
}

void ApplyChange(LOGFONTW& font, Change change) {
  if (change == Change::Normal) font.lfWeight = 0;
  if (change == Change::Bold || change == Change::BoldStrikeOut) font.lfWeight = kWeightBold;
  if (change == Change::StrikeOut || change == Change::BoldStrikeOut) font.lfStrikeOut = 1;
}

}  // namespace

LOGFONTW BuildPreviewFont(const SettingsStore& settings, int key) {
  LOGFONTW font = {};
  auto found = std::find_if(std::begin(kFontKeys), std::end(kFontKeys), [key](const FontKey& k) { return k.key == key; });
  if (found == std::end(kFontKeys)) return font;
  if (found->record) std::memcpy(&font, &(settings.*(found->record)).font, sizeof font);
  else font = SizeOnlyFont(settings, found->height);
  ApplyChange(font, found->change);
  return font;
}

HFONT PreviewFontCache::Get(int key) {
  auto at = std::find_if(entries_.begin(), entries_.end(), [key](const Entry& e) { return e.key <= key; });
  if (at != entries_.end() && at->key == key) return at->font;
  LOGFONTW font = BuildPreviewFont(settings_, key);
  return entries_.insert(at, {key, CreateFontIndirectW(&font)})->font;
}

void PreviewFontCache::Release() {
  for (const Entry& entry : entries_)
    if (entry.font) DeleteObject(entry.font);
  entries_.clear();
}

std::vector<std::int32_t> PreviewFontCache::Keys() const {
  std::vector<std::int32_t> keys;
  for (const Entry& entry : entries_) keys.push_back(entry.key);
  return keys;
}

void SelectItemFonts(PreviewFontCache& cache, const SettingsStore& settings, HFONT (&fonts)[4]) {
  if (settings.FontGnrlUseAdvncd != 0) return;
  for (int i = 0; i < 4; ++i) fonts[i] = cache.Get(50 + i);
}

const PreviewImageSource kPreviewImages[kPreviewImageCount] = {
    {u"note", IDT_NOTE, -1, kGreen, false},
    {u"regenerated", IDT_REGENERATED, -1, kGreen, false},
    {u"reminder", IDT_REMINDER, -1, kGreen, false},
    {u"high_importance", IDT_HIGH_IMPORTANCE, -1, kGreen, false},
    {u"low_importance", IDT_LOW_IMPORTANCE, -1, kGreen, false},
    {u"recurring", IDT_RECURRING, -1, kGreen, false},
    {u"private", IDT_PRIVATE, -1, kGreen, false},
    {u"link", IDT_LINK, -1, kGreen, false},
    {u"attendees", IDT_ATTENDEES, -1, kGreen, false},
    {u"active_task", IDT_ACTIVE_TASK, -1, kGreen, false},
    {u"allday_appt", IDT_ALLDAY_APPT, -1, kGreen, false},
    {u"appt_counter", IDT_APPT_COUNTER, -1, kGreen, false},
    {u"task_counter", IDT_TASK_COUNTER, -1, kGreen, false},
    {u"mail_counter", IDT_MAIL_COUNTER, -1, kGreen, false},
    {u"notes_counter", IDT_NOTES_COUNTER, -1, kGreen, false},
    {u"task_checked", -1, IDB_TASK_CHECKED, kRed, true},
    {u"task_not_checked", -1, IDB_TASK_NOT_CHECKED, kRed, true},
    {u"anniversary", -1, IDB_ANNIVERSARY, kGreen, false},
    {u"birthday", -1, IDB_BIRTHDAY, kGreen, false},
    {u"tabs_left", -1, IDB_TABS_LEFT, kGreen, false},
    {u"tabs_right", -1, IDB_TABS_RIGHT, kGreen, false},
    {u"category_symbol", IDT_CATEGORY_SYMBOL, -1, kGreen, false},
    {u"attached_icon_symbol", IDT_ATTACHED_ICON_SYMBOL, -1, kGreen, false},
};

int PreviewImageIndex(std::u16string_view name) {
  for (int i = 0; i < kPreviewImageCount; ++i)
    if (name == kPreviewImages[i].name) return i;
  return -1;
}

void PreviewImageSet::Load(HMODULE library, bool allowHighVariant, std::u16string_view folder, HWND listWindow) {
  Release();
  // A skin holds a few of the pictures at most: one listing rules out the rest.
  Win32FileSystem files;
  FolderListing listing(files, folder);
  for (int i = 0; i < kPreviewImageCount; ++i) {
    const PreviewImageSource& source = kPreviewImages[i];
    LoadSkinImage(images_[i], folder, source.name, library, source.targaId, source.bitmapId, source.transparent,
                  source.highVariant && allowHighVariant, &listing);
  }
  listQuery_ = listWindow ? SendMessageW(listWindow, kListQueryMessage, kListQueryParam, 0) : 0;
}

void PreviewImageSet::Release() {
  for (SkinImage& image : images_) image.Release();
  listQuery_ = 0;
}

const SkinImage& PreviewImageSet::Image(std::u16string_view name) const {
  int index = PreviewImageIndex(name);
  return index < 0 ? none_ : images_[index];
}

}  // namespace tw
