// The preview's fonts by key and its item pictures.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "base/scaling.h"
#include "pages/preview_cache.h"
#include "platform/win32/wide.h"
#include "tests/ui/image_test_support.h"

namespace tw {
namespace {

LOGFONTW Describe(HFONT font) {
  LOGFONTW info = {};
  EXPECT_EQ(GetObjectW(font, sizeof info, &info), static_cast<int>(sizeof info));
  return info;
}

void SetRecord(FontRecord& record, int height, const char16_t* face, int weight, int quality) {
  record.font = {};
  record.font.lfHeight = height;
  record.font.lfWeight = weight;
  record.font.lfQuality = static_cast<std::uint8_t>(quality);
  std::memcpy(record.font.lfFaceName, face, std::char_traits<char16_t>::length(face) * 2);
}

class PreviewFontCacheTest : public ::testing::Test {
 protected:
  void SetUp() override {
    settings_.FontFaceToUse.Assign(u"Tahoma");
    settings_.FontGnrlSize = 12;
    settings_.FontGnrlTitlesSize = 15;
    SetRecord(settings_.FontSEGeneral, -13, u"Courier New", 400, 3);
    SetRecord(settings_.FontGeneral, -11, u"Arial", 400, 3);
  }
  SettingsStore settings_{};
};

// Record keys copy their record (quality included) and change the weight or
// strike-out; size-only keys take the general face and ClearType. Keys 107,
// 108 and 111 to 113 do not follow the order of their records.
TEST_F(PreviewFontCacheTest, EachKeyBuildsItsFont) {
  settings_.ForceClearType = 1;
  int height = -20;
  for (FontRecord SettingsStore::*record : {&SettingsStore::FontCalTentative, &SettingsStore::FontCalApptOutOfOffice,
                                            &SettingsStore::FontMailRead, &SettingsStore::FontMailUnread,
                                            &SettingsStore::FontCalDayTitles})
    SetRecord(settings_.*record, height--, u"Arial", 400, 0);
  const struct {
    int key, height, weight, strikeOut;
    const char16_t* face;
    int quality;
  } cases[] = {
      {300, -13, 0, 0, u"Courier New", 3}, {301, -13, 700, 0, u"Courier New", 3}, {0, -11, 400, 0, u"Arial", 3},
      {205, -11, 400, 1, u"Arial", 3},     {52, 12, 700, 1, u"Tahoma", 5},        {53, 15, 700, 0, u"Tahoma", 5},
      {1, ScaleX(11), 0, 0, u"Tahoma", 5}, {4, ScaleX(12), 700, 0, u"Tahoma", 5}, {400, ScaleX(11), 0, 0, u"Tahoma", 5},
      {107, -20, 400, 0, u"Arial", 0},     {108, -21, 400, 0, u"Arial", 0},       {111, -22, 400, 0, u"Arial", 0},
      {112, -23, 400, 0, u"Arial", 0},     {113, -24, 400, 0, u"Arial", 0},
  };
  PreviewFontCache cache(settings_);
  for (const auto& c : cases) {
    SCOPED_TRACE("key " + std::to_string(c.key));
    LOGFONTW font = Describe(cache.Get(c.key));
    EXPECT_EQ((std::vector<long>{font.lfHeight, font.lfWeight, font.lfStrikeOut, font.lfItalic, font.lfQuality}),
              (std::vector<long>{c.height, c.weight, c.strikeOut, 0, c.quality}));
    EXPECT_EQ(std::u16string(AsU16(font.lfFaceName)), c.face);
  }
  EXPECT_NE(cache.Get(300), cache.Get(301)) << "two fonts of one record";
  settings_.ForceClearType = 0;
  EXPECT_EQ(BuildPreviewFont(settings_, 52).lfQuality, 0);
}

TEST_F(PreviewFontCacheTest, OneFontPerKeyInDescendingOrder) {
  PreviewFontCache cache(settings_);
  HFONT first = cache.Get(52);
  EXPECT_EQ(cache.Get(52), first);
  EXPECT_EQ(cache.Count(), 1);
  for (int key : {100, 2, 300, 0, 400, 205, 52, 1}) cache.Get(key);
  EXPECT_EQ(cache.Keys(), (std::vector<std::int32_t>{400, 300, 205, 100, 52, 2, 1, 0}));
  EXPECT_EQ(cache.Get(52), first) << "kept while others arrive";

  settings_.FontGnrlSize = 30;
  EXPECT_EQ(Describe(cache.Get(51)).lfHeight, 30) << "a new key sees the record as it is now";
  EXPECT_EQ(Describe(cache.Get(52)).lfHeight, 12) << "an old one as it was";
  cache.Release();
  EXPECT_EQ(cache.Count(), 0);
  EXPECT_EQ(Describe(cache.Get(52)).lfHeight, 30);
}

using PreviewImageSetTest = test::ImageTest;

TEST_F(PreviewImageSetTest, FilesFirstThenThePictureLibrary) {
  Write(u"note.tga", test::TargaFile(1, 1, {0xFF102030}));
  Write(u"birthday.bmp", test::BitmapFile(3, RGB(1, 2, 3), RGB(1, 2, 3)));
  Write(u"anniversary_high.bmp", test::BitmapFile(4, RGB(1, 2, 3), RGB(1, 2, 3)));
  Write(u"task_checked_high.bmp", test::BitmapFile(4, RGB(1, 2, 3), RGB(1, 2, 3)));
  PreviewImageSet set;
  // The test program holds Targa 396 (reminder) and bitmap 391 (anniversary).
  set.Load(Module(), true, Folder(), nullptr);
  EXPECT_EQ(set.Image(u"note").planes.width, 1) << "from the folder";
  EXPECT_EQ(set.Image(u"reminder").planes.width, 2) << "from the Targa resource";
  EXPECT_EQ(set.Image(u"reminder").planes.alpha[0], 127);
  EXPECT_EQ(set.Image(u"birthday").bitmapWidth, 3) << "from the folder";
  EXPECT_EQ(set.Image(u"anniversary").bitmapWidth, 2) << "from the bitmap resource: its _high file is not for it";
  EXPECT_EQ(set.Image(u"task_checked").bitmapWidth, 4) << "its _high file is";
  EXPECT_TRUE(set.Image(u"private").Empty()) << "in neither";

  set.Load(Module(), false, Folder(), nullptr);
  EXPECT_TRUE(set.Image(u"task_checked").Empty()) << "no _high file when the caller says no";
}

}  // namespace
}  // namespace tw
