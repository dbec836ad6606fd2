#include "base/text.h"
#include "data/bitmap_file.h"
#include "data/skin.h"
#include "tests/support/make_bitmap.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

constexpr std::uint32_t Rgb(std::uint32_t r, std::uint32_t g, std::uint32_t b) { return r | g << 8 | b << 16; }

TEST(BitmapPixelTest, TopLeftHonoursRowOrderAndDepth) {
  // Top row blue, bottom row red, as BGR.
  std::vector<std::vector<std::uint8_t>> rows = {{255, 0, 0, 9, 9, 9}, {0, 0, 255, 9, 9, 9}};
  EXPECT_EQ(TopLeftPixel(MakeBitmap(24, 2, rows, false)), Rgb(0, 0, 255));
  EXPECT_EQ(TopLeftPixel(MakeBitmap(24, 2, rows, true)), Rgb(0, 0, 255));
  EXPECT_EQ(TopLeftPixel(MakeBitmap(32, 1, {{0, 255, 0, 0}, {1, 2, 3, 0}}, false)), Rgb(0, 255, 0));
  std::vector<std::uint32_t> palette = {0x000000, 0x00336699};
  for (auto [bits, top] : {std::pair{8, 1}, {4, 0x10}, {1, 0x80}})
    EXPECT_EQ(TopLeftPixel(MakeBitmap(bits, 1, {{std::uint8_t(top)}, {0}}, false, palette)), Rgb(0x33, 0x66, 0x99))
        << bits << " bits";

  auto good = MakeBitmap(24, 1, {{1, 2, 3}}, false);
  EXPECT_EQ(TopLeftPixel(good), Rgb(3, 2, 1));
  // The older 12-byte header: 16-bit width and height. One pixel wide, two high.
  const std::vector<std::uint8_t> core = {'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 26, 0, 0, 0, 12, 0, 0, 0,
                                          1,   0,   2, 0, 1, 0, 24, 0, 9, 9, 9, 0, 1, 2, 3, 0};
  EXPECT_EQ(TopLeftPixel(core), Rgb(3, 2, 1));
  EXPECT_FALSE(TopLeftPixel(std::vector<std::uint8_t>(good.begin(), good.begin() + 56)).has_value());
  std::fill_n(good.begin() + 22, 3, 0xFF);  // the last row lies far past the end
  EXPECT_FALSE(TopLeftPixel(good).has_value());
  EXPECT_FALSE(TopLeftPixel(MakeBitmap(8, 1, {{200}}, false, {0x1})).has_value()) << "index outside the palette";
  EXPECT_FALSE(TopLeftPixel({}).has_value());
}

class SkinTest : public PlatformTest {
 protected:
  std::u16string SkinFolder() const { return Folder() + u"\\Skins"; }
  void WriteSkinFile(const std::u16string& skin, const std::u16string& name, const std::string& bytes) {
    files().MakeDirectory(SkinFolder());
    files().MakeDirectory(SkinFolder() + u"\\" + skin);
    ASSERT_TRUE(files().WriteAll(SkinFolder() + u"\\" + skin + u"\\" + name, bytes.data(), bytes.size()));
  }
  SkinColors Read(const std::u16string& skin) {
    SkinColors colors;
    ReadSkin(colors, skin, SkinFolder(), files());
    return colors;
  }
};

TEST_F(SkinTest, ReadsColoursEffectsAndFlags) {
  WriteSkinFile(u"blue", u"skin.ini",
                "\"txt_color\"=\"255,0,0\"\r\n"
                "\"SHADOW\"=\"Glow\"\r\n"
                "\"hide_scroll_bk\"=\"yes\"\r\n"
                "garbage line\r\n"
                "\"monthly_clr_weekdays\"=\"1,2,3\"\r\n"
                "\"monthly_clr_weekdays\"=\"4,5,6\"\r\n"
                "\"scroll_bk_color\"=\"7,7,7\"");  // no line feed: not taken
  SkinColors skin = Read(u"blue");
  EXPECT_EQ(skin.folder.View(), SkinFolder() + u"\\blue");
  for (int i = 0; i < SkinColors::kTextStyles; ++i) {
    EXPECT_EQ(skin.textColor[i], Rgb(255, 0, 0)) << i;
    EXPECT_EQ(skin.textEffect[i], SkinColors::kEffectGlow) << i;
  }
  EXPECT_EQ(skin.hide_scroll_bk, 0) << "only \"hide\" hides";
  EXPECT_EQ(skin.monthly_clr_weekdays, Rgb(4, 5, 6)) << "the last of a repeated key wins";
  EXPECT_EQ(skin.scroll_bk_color, Rgb(140, 140, 140));
}

TEST_F(SkinTest, ReadsUtf16FilesAndSetsEachDefaultAgain) {
  std::string utf16;
  for (char c : std::string("\"shadow\"=\"shadow\"\r\n\"hide_scroll_bk\"=\"HIDE\"\r\n")) utf16 += {c, '\0'};
  WriteSkinFile(u"wide", u"skin.ini", utf16);
  WriteSkinFile(u"plain", u"skin.ini", "\"shadow\"=\"none\"\r\n");
  SkinColors skin = Read(u"wide");
  EXPECT_EQ(skin.textEffect[7], SkinColors::kEffectShadow);
  EXPECT_EQ(skin.hide_scroll_bk, 1);
  using C = SkinColors;
  constexpr std::uint32_t white = Rgb(255, 255, 255), text = Rgb(70, 50, 56);
  const std::pair<std::uint32_t C::*, std::uint32_t> defaults[] = {
      {&C::scroll_bk_color, Rgb(140, 140, 140)},       {&C::highlight_default_color, Rgb(44, 77, 156)},
      {&C::highlight_text_color, white},               {&C::blending_base_color, white},
      {&C::monthly_clr_weekdays, Rgb(150, 218, 133)},  {&C::monthly_clr_weekdays_txt, text},
      {&C::monthly_clr_weekends, Rgb(181, 201, 235)},  {&C::monthly_clr_weekends_txt, text},
      {&C::monthly_clr_curr_day, Rgb(238, 241, 143)},  {&C::monthly_clr_curr_day_txt, text},
      {&C::monthly_clr_prev_month, Rgb(230, 220, 230)}, {&C::monthly_clr_prev_month_txt, Rgb(156, 130, 136)},
      {&C::monthly_clr_weeknums, Rgb(150, 150, 150)},  {&C::monthly_clr_weeknums_txt, white},
      {&C::monthly_clr_highlight, Rgb(130, 120, 220)}, {&C::monthly_clr_highlight_txt, Rgb(116, 80, 86)},
      {&C::monthly_clr_dayttls_txt, Rgb(40, 40, 40)},  {&C::pinned_clr_blend_base, white}};
  for (auto [field, colour] : defaults) skin.*field = 1;
  skin.color_tsks_sort = Rgb(1, 1, 1);
  ReadSkin(skin, u"plain", SkinFolder(), files());
  EXPECT_EQ(skin.textEffect[0], SkinColors::kEffectNone);
  EXPECT_EQ(skin.hide_scroll_bk, 0);
  EXPECT_EQ(skin.color_tsks_sort, Rgb(1, 1, 1)) << "fields without a default keep their value";
  for (auto [field, colour] : defaults) EXPECT_EQ(skin.*field, colour) << std::hex << colour;
}

}  // namespace
}  // namespace tw::test
