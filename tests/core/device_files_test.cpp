// The files the installer lays out beside the program (device/), read back
// by the program's own readers: a slip in a generated skin.ini, scheme or the
// demo database would otherwise only show as a wrong colour on screen or a
// category missing from the list.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "base/text.h"
#include "data/categories.h"
#include "data/schemes.h"
#include "data/skin.h"
#include "settings/schema.h"
#include "tests/support/test_platform.h"

namespace tw::test {
namespace {

constexpr std::uint32_t Rgb(std::uint32_t r, std::uint32_t g, std::uint32_t b) { return r | g << 8 | b << 16; }

const std::filesystem::path kDeviceFolder = TW_DEVICE_FOLDER;

// A host file name as device text (under Wine, string() would give the ANSI code page).
std::u16string DeviceName(const std::filesystem::path& name) {
  std::u8string utf8 = name.u8string();
  return Utf8ToUtf16(std::string(reinterpret_cast<const char*>(utf8.data()), utf8.size()));
}

class DeviceFilesTest : public PlatformTest {
 protected:
  void TearDown() override {
    data.categories.Clear();
    PlatformTest::TearDown();
  }

  static std::string HostBytes(const std::filesystem::path& relative) {
    std::ifstream in(kDeviceFolder / relative, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }

  // Copies every file of device/<folder> (one level) into the test folder.
  void Install(const std::string& folder) {
    std::u16string target = Folder();
    for (const auto& part : std::filesystem::path(folder)) {
      target.append(u"\\").append(DeviceName(part));
      files().MakeDirectory(target);
    }
    for (const auto& entry : std::filesystem::directory_iterator(kDeviceFolder / folder)) {
      std::string bytes = HostBytes(std::filesystem::path(folder) / entry.path().filename());
      std::u16string path = target + u"\\" + DeviceName(entry.path().filename());
      ASSERT_TRUE(files().WriteAll(path, bytes.data(), bytes.size())) << Show(path);
    }
  }

  void LoadDemoCategories() {
    WriteDatabase(kCategoriesDatabase, ParseDatabaseText(HostBytes("Categories Database")));
    LoadCategories(data, {registry(), locale(), files(), database(), bitmaps()}, Folder() + u"\\CategoryIcons",
                   Folder());
  }

  std::vector<std::u16string> CategoryNames() const {
    std::vector<std::u16string> names;
    for (const CategoryEntry& entry : data.categories.entries) names.emplace_back(entry.name.View());
    return names;
  }

  CategoryData data;
};

// A value from each file's last line shows the whole file was read.
TEST_F(DeviceFilesTest, SkinsGiveTheirOwnColoursAndEffects) {
  for (const char* skin : {"Skins/default", "Skins/Harbour", "Skins/Slate"}) Install(skin);
  std::u16string skins = Folder() + u"\\Skins";
  SkinColors skin;
  ReadSkin(skin, u"Harbour", skins, files());
  EXPECT_EQ(skin.textColor[7], Rgb(16, 40, 78));
  EXPECT_EQ(skin.textEffect[7], SkinColors::kEffectGlow);
  EXPECT_EQ(skin.color_notes_folder, Rgb(0, 90, 120));
  ReadSkin(skin, u"default", skins, files());
  EXPECT_EQ(skin.textEffect[0], SkinColors::kEffectNone);
  EXPECT_EQ(skin.monthly_clr_highlight_txt, Rgb(255, 255, 255));
  ReadSkin(skin, u"Slate", skins, files());
  EXPECT_EQ(skin.textColor[7], Rgb(60, 70, 90)) << "text colour from text_color.bmp";
}

TEST_F(DeviceFilesTest, DemoDatabaseListsADozenCategoriesWithTheirIcons) {
  Install("CategoryIcons");
  LoadDemoCategories();
  std::vector<std::u16string> names = CategoryNames();
  ASSERT_EQ(names.size(), 12u);
  EXPECT_EQ(names.front(), u"Business");
  EXPECT_EQ(names[1], u"Café") << "non-ASCII names survive the UTF-8 file";
  EXPECT_EQ(names.back(), u"Travel");
  std::set<std::int32_t> ids;
  for (const CategoryEntry& entry : data.categories.entries) ids.insert(entry.id);
  EXPECT_EQ(ids.size(), 12u) << "every category has its own id";

  // Every icon file belongs to a listed category and is loaded for it.
  int withIcons = 0;
  for (const auto& file : std::filesystem::directory_iterator(kDeviceFolder / "CategoryIcons")) {
    std::u16string name = DeviceName(file.path().stem());
    const CategoryEntry* entry = data.categories.FindName(name);
    ASSERT_NE(entry, nullptr) << Show(name) << ".bmp names no category";
    EXPECT_TRUE(entry->bitmap) << Show(name);
    ++withIcons;
  }
  EXPECT_GE(withIcons, 3);
}

TEST_F(DeviceFilesTest, SchemesLoadColoursFontsAndCategoryColours) {
  Install("Schemes");
  LoadDemoCategories();
  const std::u16string_view colors = kColorsKey.path, fonts = kFontsKey.path;

  EXPECT_EQ(ListSchemes(files(), Folder()).size(), 2u);
  ASSERT_EQ(LoadScheme(registry(), files(), data, Folder(), u"Deep Water.scm"), kNoMessage);
  EXPECT_EQ(Stored(colors, u"ClrStatusTentative").dword, Rgb(120, 180, 220));
  EXPECT_EQ(Stored(fonts, u"FontCalDayTitleslfWeight").dword, 700u);
  EXPECT_EQ(data.categories.FindName(u"Travel")->color, Rgb(0, 140, 150));
  EXPECT_EQ(data.categories.FindName(u"Café")->color, kNoCategoryColor);

  ASSERT_EQ(LoadScheme(registry(), files(), data, Folder(), u"Sandbank.scm"), kNoMessage);
  EXPECT_FALSE(Stored(colors, u"ClrStatusTentative").present)
      << "a colour the scheme lacks goes back to its default";
  EXPECT_EQ(Stored(fonts, u"FontGnrlSize").dword, 13u);
  EXPECT_EQ(data.categories.FindName(u"Business")->color, Rgb(150, 90, 40));
}

}  // namespace
}  // namespace tw::test
