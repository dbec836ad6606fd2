#include "data/skin.h"

#include <vector>

#include "base/text.h"
#include "data/bitmap_file.h"
#include "data/line_reader.h"

namespace tw {
namespace {

using C = SkinColors;

constexpr std::uint32_t Rgb(std::uint32_t r, std::uint32_t g, std::uint32_t b) {
  return r | g << 8 | b << 16;
}
constexpr std::uint32_t kBlack = 0, kWhite = Rgb(255, 255, 255);

enum class Kind : std::uint8_t { Color, Number, AllTextColors, Effect, Hide };

struct SkinKey {
  const char16_t* key;
  Kind kind;
  std::uint32_t SkinColors::*color;  // Color fields
  bool hasDefault;                   // false: reading a skin keeps the old value
  std::uint32_t defaultColor;
};

constexpr SkinKey Keeps(const char16_t* key, std::uint32_t C::*field) {
  return {key, Kind::Color, field, false, 0};
}
constexpr SkinKey Color(const char16_t* key, std::uint32_t C::*field, std::uint32_t value) {
  return {key, Kind::Color, field, true, value};
}
constexpr SkinKey Special(const char16_t* key, Kind kind) { return {key, kind, nullptr, false, 0}; }

constexpr SkinKey kKeys[] = {
    Special(u"txt_color", Kind::AllTextColors),
    Special(u"shadow", Kind::Effect),
    Keeps(u"shadow_color", &C::shadow_color),
    Special(u"hide_scroll_bk", Kind::Hide),
    Color(u"scroll_bk_color", &C::scroll_bk_color, Rgb(140, 140, 140)),
    Color(u"highlight_default_color", &C::highlight_default_color, Rgb(44, 77, 156)),
    Special(u"highlight_transparency", Kind::Number),
    Color(u"highlight_text_color", &C::highlight_text_color, kWhite),
    Color(u"blending_base_color", &C::blending_base_color, kWhite),
    Keeps(u"color_clr_loaded_dates", &C::color_clr_loaded_dates),
    Keeps(u"color_clr_loaded_dates_shadow", &C::color_clr_loaded_dates_shadow),
    Keeps(u"color_clr_category", &C::color_clr_category),
    Keeps(u"color_clr_category_shadow", &C::color_clr_category_shadow),
    Color(u"monthly_clr_weekdays", &C::monthly_clr_weekdays, Rgb(150, 218, 133)),
    Color(u"monthly_clr_weekdays_txt", &C::monthly_clr_weekdays_txt, Rgb(70, 50, 56)),
    Color(u"monthly_clr_weekends", &C::monthly_clr_weekends, Rgb(181, 201, 235)),
    Color(u"monthly_clr_weekends_txt", &C::monthly_clr_weekends_txt, Rgb(70, 50, 56)),
    Color(u"monthly_clr_curr_day", &C::monthly_clr_curr_day, Rgb(238, 241, 143)),
    Color(u"monthly_clr_curr_day_txt", &C::monthly_clr_curr_day_txt, Rgb(70, 50, 56)),
    Color(u"monthly_clr_prev_month", &C::monthly_clr_prev_month, Rgb(230, 220, 230)),
    Color(u"monthly_clr_prev_month_txt", &C::monthly_clr_prev_month_txt, Rgb(156, 130, 136)),
    Color(u"monthly_clr_weeknums", &C::monthly_clr_weeknums, Rgb(150, 150, 150)),
    Color(u"monthly_clr_weeknums_txt", &C::monthly_clr_weeknums_txt, kWhite),
    Color(u"monthly_clr_highlight", &C::monthly_clr_highlight, Rgb(130, 120, 220)),
    Color(u"monthly_clr_highlight_txt", &C::monthly_clr_highlight_txt, Rgb(116, 80, 86)),
    Color(u"monthly_clr_dayttls_txt", &C::monthly_clr_dayttls_txt, Rgb(40, 40, 40)),
    Color(u"pinned_clr_blend_base", &C::pinned_clr_blend_base, kWhite),
    Keeps(u"color_tsks_sort", &C::color_tsks_sort),
    Keeps(u"color_tsks_sort_shadow", &C::color_tsks_sort_shadow),
    Keeps(u"color_tsks_category", &C::color_tsks_category),
    Keeps(u"color_tsks_category_shadow", &C::color_tsks_category_shadow),
    Keeps(u"color_sevents_category", &C::color_sevents_category),
    Keeps(u"color_sevents_category_shadow", &C::color_sevents_category_shadow),
    Keeps(u"color_notes_sort", &C::color_notes_sort),
    Keeps(u"color_notes_sort_shadow", &C::color_notes_sort_shadow),
    Keeps(u"color_notes_folder", &C::color_notes_folder),
    Keeps(u"color_notes_folder_shadow", &C::color_notes_folder_shadow),
};

void SetTextColors(SkinColors& skin, std::uint32_t color) {
  for (std::uint32_t& c : skin.textColor) c = color;
}

void SetDefaults(SkinColors& skin) {
  SetTextColors(skin, kBlack);
  for (std::int32_t& effect : skin.textEffect) effect = SkinColors::kEffectNone;
  skin.hide_scroll_bk = 0;
  skin.highlight_transparency = 0;
  for (const SkinKey& key : kKeys)
    if (key.hasDefault) skin.*key.color = key.defaultColor;
}

void Apply(SkinColors& skin, const SkinKey& key, std::u16string_view value) {
  switch (key.kind) {
    case Kind::Color:
      skin.*key.color = ParseSkinColor(value);
      break;
    case Kind::AllTextColors:
      SetTextColors(skin, ParseSkinColor(value));
      break;
    case Kind::Number:
      skin.highlight_transparency = ParseLong(value, 10);
      break;
    case Kind::Effect: {
      std::int32_t effect = EqualsIgnoreCase(value, u"shadow") ? SkinColors::kEffectShadow
                            : EqualsIgnoreCase(value, u"glow") ? SkinColors::kEffectGlow
                                                               : SkinColors::kEffectNone;
      if (effect != SkinColors::kEffectNone)
        for (std::int32_t& e : skin.textEffect) e = effect;
      break;
    }
    case Kind::Hide:
      if (EqualsIgnoreCase(value, u"hide")) skin.hide_scroll_bk = 1;
      break;
  }
}

void ApplyTextColorBitmap(SkinColors& skin, std::u16string_view path, FileSystem& files) {
  std::vector<std::uint8_t> bytes;
  if (!files.ReadAll(path, bytes)) return;
  if (auto color = TopLeftPixel(bytes)) SetTextColors(skin, *color);
}

}  // namespace

std::uint32_t ParseSkinColor(std::u16string_view text) {
  std::size_t first = text.find(u',');
  if (first == std::u16string_view::npos) return 0;
  std::uint32_t red = ParseUnsignedLong(text.substr(0, first), 10) % 256;
  std::u16string_view rest = text.substr(first + 1);
  std::size_t second = rest.find(u',');
  if (second == std::u16string_view::npos) return red;
  std::uint32_t green = ParseUnsignedLong(rest.substr(0, second), 10) % 256;
  std::u16string_view tail = rest.substr(second + 1);
  std::uint32_t blue = tail.empty() ? 0 : ParseUnsignedLong(tail, 10) % 256;
  return red + green * 256 + blue * 65536;
}

// A line is only taken once its line feed has been read, so a last line
// without one is left out.
void ApplySkinFile(SkinColors& skin, File& file) {
  WideString line, key, value;
  if (ReadByteLine(file, line) != 1) return;
  int more = 1;
  while (more == 1) {
    ParseStringLine(line.View(), key, value);
    for (const SkinKey& entry : kKeys)
      if (EqualsIgnoreCase(key.View(), entry.key)) Apply(skin, entry, value.View());
    more = ReadByteLine(file, line);
  }
}

void ReadSkin(SkinColors& skin, std::u16string_view name, std::u16string_view skinsFolder,
              FileSystem& files) {
  skin.name.Assign(name);
  skin.folder.Format(u"%s\\%s", skinsFolder, name);
  SetDefaults(skin);
  std::u16string folder = skin.folder.Str();
  if (auto file = files.OpenRead(folder + u"\\skin.ini")) {
    ApplySkinFile(skin, *file);
    return;
  }
  ApplyTextColorBitmap(skin, folder + u"\\text_color.bmp", files);
}

void ReadSelectedSkin(SettingsStore& store, FileSystem& files) {
  ReadSkin(store.skin, store.dSelectedSkin.View(), store.SkinsFolder.View(), files);
}

}  // namespace tw
