#include <cstring>

#include "app/text.h"
#include "data/bitmap_file.h"
#include "data/skin.h"
#include "tests/support/settings_fixture.h"

namespace tw::test {
namespace {

constexpr std::uint32_t Rgb(std::uint32_t r, std::uint32_t g, std::uint32_t b) { return r | g << 8 | b << 16; }

// A .bmp of the given depth whose rows, top to bottom as shown, are given as
// raw bytes (palette indexes or BGR(A) values).
std::vector<std::uint8_t> MakeBitmap(int bitCount, int width, std::vector<std::vector<std::uint8_t>> rows,
                                     bool topDown, std::vector<std::uint32_t> palette = {}) {
  int height = static_cast<int>(rows.size());
  std::size_t stride = ((static_cast<std::size_t>(width) * bitCount + 31) / 32) * 4;
  std::uint32_t pixelsAt = 14 + 40 + static_cast<std::uint32_t>(palette.size()) * 4;
  std::vector<std::uint8_t> file(pixelsAt + stride * height, 0);
  auto put32 = [&](std::size_t at, std::uint32_t v) { std::memcpy(&file[at], &v, 4); };
  auto put16 = [&](std::size_t at, std::uint16_t v) { std::memcpy(&file[at], &v, 2); };
  file[0] = 'B';
  file[1] = 'M';
  put32(2, static_cast<std::uint32_t>(file.size()));
  put32(10, pixelsAt);
  put32(14, 40);
  put32(18, static_cast<std::uint32_t>(width));
  put32(22, static_cast<std::uint32_t>(topDown ? -height : height));
  put16(26, 1);
  put16(28, static_cast<std::uint16_t>(bitCount));
  put32(46, static_cast<std::uint32_t>(palette.size()));
  for (std::size_t i = 0; i < palette.size(); ++i) put32(54 + i * 4, palette[i]);
  for (int shown = 0; shown < height; ++shown) {
    int stored = topDown ? shown : height - 1 - shown;
    std::copy(rows[shown].begin(), rows[shown].end(), file.begin() + pixelsAt + stored * stride);
  }
  return file;
}

TEST(BitmapPixelTest, TopLeftHonoursRowOrderAndDepth) {
  // Top row blue, bottom row red, as BGR.
  std::vector<std::vector<std::uint8_t>> rows = {{255, 0, 0, 9, 9, 9}, {0, 0, 255, 9, 9, 9}};
  EXPECT_EQ(TopLeftPixel(MakeBitmap(24, 2, rows, false)), Rgb(0, 0, 255));
  EXPECT_EQ(TopLeftPixel(MakeBitmap(24, 2, rows, true)), Rgb(0, 0, 255));
  std::vector<std::vector<std::uint8_t>> bgra = {{0, 255, 0, 0}, {1, 2, 3, 0}};
  EXPECT_EQ(TopLeftPixel(MakeBitmap(32, 1, bgra, false)), Rgb(0, 255, 0));
  std::vector<std::uint32_t> palette = {0x000000, 0x00336699};
  EXPECT_EQ(TopLeftPixel(MakeBitmap(8, 1, {{1}, {0}}, false, palette)), Rgb(0x33, 0x66, 0x99));
  EXPECT_EQ(TopLeftPixel(MakeBitmap(4, 1, {{0x10}, {0x00}}, false, palette)), Rgb(0x33, 0x66, 0x99));
  EXPECT_EQ(TopLeftPixel(MakeBitmap(1, 1, {{0x80}, {0x00}}, false, palette)), Rgb(0x33, 0x66, 0x99));
}

TEST(BitmapPixelTest, RejectsMalformedFiles) {
  auto good = MakeBitmap(24, 1, {{1, 2, 3}}, false);
  EXPECT_TRUE(TopLeftPixel(good).has_value());
  EXPECT_FALSE(TopLeftPixel(std::vector<std::uint8_t>(good.begin(), good.begin() + 56)).has_value());
  auto huge = good;
  std::uint32_t height = 0x7FFFFFFF;
  std::memcpy(&huge[22], &height, 4);
  EXPECT_FALSE(TopLeftPixel(huge).has_value()) << "the last row lies far past the end";
  auto palette = MakeBitmap(8, 1, {{200}}, false, {0x1});
  EXPECT_FALSE(TopLeftPixel(palette).has_value()) << "index outside a one-entry palette and file";
  EXPECT_FALSE(TopLeftPixel({}).has_value());
}

TEST(SkinColorTest, ParsesComponentsModulo256) {
  EXPECT_EQ(ParseSkinColor(u"255,0,0"), Rgb(255, 0, 0));
  EXPECT_EQ(ParseSkinColor(u"300,0,0"), Rgb(44, 0, 0));
  EXPECT_EQ(ParseSkinColor(u"1,2,3"), Rgb(1, 2, 3));
  EXPECT_EQ(ParseSkinColor(u"7,8"), Rgb(7, 0, 0)) << "no second comma: green and blue are 0";
  EXPECT_EQ(ParseSkinColor(u"7,8,"), Rgb(7, 8, 0));
  EXPECT_EQ(ParseSkinColor(u"255"), 0u);
  EXPECT_EQ(ParseSkinColor(u"x,y,z"), 0u);
}

class SkinTest : public SettingsTest {
 protected:
  std::u16string SkinFolder() const { return Folder() + u"\\Skins"; }
  void WriteSkinFile(const std::u16string& skin, const std::string& name, const std::string& bytes) {
    files().MakeDirectory(SkinFolder());
    files().MakeDirectory(SkinFolder() + u"\\" + skin);
    ASSERT_TRUE(files().WriteAll(SkinFolder() + u"\\" + skin + u"\\" + Utf8ToUtf16(name), bytes.data(), bytes.size()));
  }
  SkinColors Read(const std::u16string& skin) {
    SkinColors colors;
    ReadSkin(colors, skin, SkinFolder(), files());
    return colors;
  }
};

TEST_F(SkinTest, ReadsColoursEffectsAndFlags) {
  WriteSkinFile(u"blue", "skin.ini",
                "\"txt_color\"=\"255,0,0\"\r\n"
                "\"SHADOW\"=\"Glow\"\r\n"
                "\"hide_scroll_bk\"=\"yes\"\r\n"
                "\"highlight_transparency\"=\"120\"\r\n"
                "garbage line\r\n"
                "\"monthly_clr_weekdays\"=\"1,2,3\"\r\n"
                "\"monthly_clr_weekdays\"=\"4,5,6\"\r\n"
                "\"color_notes_folder\"=\"9,9,9\"\r\n"
                "\"scroll_bk_color\"=\"7,7,7\"");  // no line feed: not taken
  SkinColors skin = Read(u"blue");
  EXPECT_EQ(skin.name.View(), u"blue");
  EXPECT_EQ(skin.folder.View(), SkinFolder() + u"\\blue");
  for (int i = 0; i < SkinColors::kTextStyles; ++i) {
    EXPECT_EQ(skin.textColor[i], Rgb(255, 0, 0)) << i;
    EXPECT_EQ(skin.textEffect[i], SkinColors::kEffectGlow) << i;
  }
  EXPECT_EQ(skin.hide_scroll_bk, 0) << "only \"hide\" hides";
  EXPECT_EQ(skin.highlight_transparency, 120);
  EXPECT_EQ(skin.monthly_clr_weekdays, Rgb(4, 5, 6)) << "the last of a repeated key wins";
  EXPECT_EQ(skin.color_notes_folder, Rgb(9, 9, 9));
  EXPECT_EQ(skin.scroll_bk_color, Rgb(140, 140, 140));
  EXPECT_EQ(skin.highlight_default_color, Rgb(44, 77, 156));
}

TEST_F(SkinTest, ReadsUtf16FilesAndKeepsUndefaultedFields) {
  std::string utf16;
  for (char c : std::string("\"shadow\"=\"shadow\"\r\n\"hide_scroll_bk\"=\"HIDE\"\r\n")) {
    utf16.push_back(c);
    utf16.push_back('\0');
  }
  WriteSkinFile(u"wide", "skin.ini", utf16);
  WriteSkinFile(u"plain", "skin.ini", "\"shadow\"=\"none\"\r\n");
  SkinColors skin = Read(u"wide");
  EXPECT_EQ(skin.textEffect[7], SkinColors::kEffectShadow);
  EXPECT_EQ(skin.hide_scroll_bk, 1);

  skin.color_tsks_sort = Rgb(1, 1, 1);
  ReadSkin(skin, u"plain", SkinFolder(), files());
  EXPECT_EQ(skin.textEffect[0], SkinColors::kEffectNone);
  EXPECT_EQ(skin.hide_scroll_bk, 0);
  EXPECT_EQ(skin.color_tsks_sort, Rgb(1, 1, 1)) << "fields without a default keep their value";
}

TEST_F(SkinTest, TextColourFromBitmapWhenThereIsNoDefinition) {
  auto bitmap = MakeBitmap(24, 1, {{255, 0, 0}}, false);
  WriteSkinFile(u"pictures", "text_color.bmp", std::string(bitmap.begin(), bitmap.end()));
  EXPECT_EQ(Read(u"pictures").textColor[3], Rgb(0, 0, 255));
  EXPECT_EQ(Read(u"missing").textColor[3], 0u);

  WriteSkinFile(u"both", "text_color.bmp", std::string(bitmap.begin(), bitmap.end()));
  WriteSkinFile(u"both", "skin.ini", "no line feed at all");
  EXPECT_EQ(Read(u"both").textColor[0], 0u) << "an unreadable skin.ini still wins over the bitmap";
}

TEST_F(SkinTest, LoadingTheSettingsReadsTheSelectedSkin) {
  const std::u16string_view today = u"Software\\Microsoft\\today\\items\\Tidewell";
  WriteText(registry(), kLocalMachine, today, u"InstallPath", Folder());
  files().MakeDirectory(Folder() + u"\\Orvex");
  files().MakeDirectory(Folder() + u"\\Orvex\\Tidewell");
  files().MakeDirectory(Folder() + u"\\Orvex\\Tidewell\\Skins");
  files().MakeDirectory(Folder() + u"\\Orvex\\Tidewell\\Skins\\Night");
  std::string ini = "\"txt_color\"=\"10,20,30\"\r\n";
  files().WriteAll(Folder() + u"\\Orvex\\Tidewell\\Skins\\Night\\skin.ini", ini.data(), ini.size());
  WriteText(registry(), kCurrentUser, kMain, u"dSelectedSkin", u"Night");
  Load();
  EXPECT_EQ(store->skin.name.View(), u"Night");
  EXPECT_EQ(store->skin.textColor[0], Rgb(10, 20, 30));
}

}  // namespace
}  // namespace tw::test
