#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "app/scaling.h"
#include "app/text.h"
#include "pages/preview_cache.h"
#include "platform/win32/wide.h"
#include "tests/support/test_platform.h"
#include "tests/ui/image_test_support.h"

namespace tw {
namespace {

LOGFONTW Describe(HFONT font) {
  LOGFONTW info = {};
  EXPECT_NE(font, nullptr);
  if (font) {
    EXPECT_EQ(GetObjectW(font, sizeof info, &info), static_cast<int>(sizeof info));
  }
  return info;
}

std::string Face(const LOGFONTW& font) { return Utf16ToUtf8(AsU16(font.lfFaceName)); }

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

TEST_F(PreviewFontCacheTest, BuildsVariantsOfOneRecord) {
  PreviewFontCache cache(settings_);
  HFONT normal = cache.Get(300), bold = cache.Get(301);
  EXPECT_NE(normal, bold);
  LOGFONTW first = Describe(normal), second = Describe(bold);
  EXPECT_EQ(first.lfWeight, 0);
  EXPECT_EQ(second.lfWeight, 700);
  for (const LOGFONTW& font : {first, second}) {
    EXPECT_EQ(font.lfHeight, -13);
    EXPECT_EQ(Face(font), "Courier New");
  }
  LOGFONTW struck = Describe(cache.Get(205));
  EXPECT_EQ(struck.lfStrikeOut, 1);
  EXPECT_EQ(struck.lfWeight, 400) << "strike-out alone keeps the record's weight";
  EXPECT_EQ(Face(struck), "Arial");
}

TEST_F(PreviewFontCacheTest, SizeOnlyKeysUseTheGeneralFace) {
  PreviewFontCache cache(settings_);
  LOGFONTW font = Describe(cache.Get(52));
  EXPECT_EQ(font.lfHeight, 12);
  EXPECT_EQ(font.lfWeight, 700);
  EXPECT_EQ(font.lfStrikeOut, 1);
  EXPECT_EQ(font.lfItalic, 0);
  EXPECT_EQ(Face(font), "Tahoma");
  EXPECT_EQ(Describe(cache.Get(53)).lfHeight, 15);
  EXPECT_EQ(Describe(cache.Get(4)).lfHeight, ScaleX(12));
  EXPECT_EQ(Describe(cache.Get(400)).lfHeight, ScaleX(11));
}

TEST_F(PreviewFontCacheTest, ClearTypeIsForcedOnSizeOnlyKeysOnly) {
  for (int force : {0, 1}) {
    settings_.ForceClearType = force;
    PreviewFontCache cache(settings_);
    EXPECT_EQ(Describe(cache.Get(1)).lfQuality, force ? 5 : 0) << "ForceClearType " << force;
    EXPECT_EQ(Describe(cache.Get(50)).lfQuality, force ? 5 : 0);
    EXPECT_EQ(Describe(cache.Get(0)).lfQuality, 3) << "a record keeps its own quality";
    EXPECT_EQ(Describe(cache.Get(301)).lfQuality, 3);
  }
}

TEST_F(PreviewFontCacheTest, KeysOutOfRecordOrderPickTheirOwnRecords) {
  struct {
    int key;
    FontRecord SettingsStore::*record;
  } swapped[] = {{107, &SettingsStore::FontCalTentative}, {108, &SettingsStore::FontCalApptOutOfOffice},
                 {111, &SettingsStore::FontMailRead}, {112, &SettingsStore::FontMailUnread},
                 {113, &SettingsStore::FontCalDayTitles}};
  int height = -20;
  for (auto& s : swapped) SetRecord(settings_.*s.record, height--, u"Arial", 400, 0);
  height = -20;
  for (auto& s : swapped) EXPECT_EQ(BuildPreviewFont(settings_, s.key).lfHeight, height--) << "key " << s.key;
  EXPECT_EQ(BuildPreviewFont(settings_, 999).lfHeight, 0) << "not a key";
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

TEST_F(PreviewFontCacheTest, ItemFontsFollowTheAdvancedSetting) {
  PreviewFontCache cache(settings_);
  HFONT own = cache.Get(100);
  HFONT fonts[4] = {own, own, own, own};
  settings_.FontGnrlUseAdvncd = 1;
  SelectItemFonts(cache, settings_, fonts);
  EXPECT_EQ(fonts[3], own);
  settings_.FontGnrlUseAdvncd = 0;
  SelectItemFonts(cache, settings_, fonts);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(fonts[i], cache.Get(50 + i)) << i;
}

class PreviewImageSetTest : public test::PlatformTest {
 protected:
  void Write(std::u16string_view name, const std::vector<std::uint8_t>& bytes) {
    ASSERT_TRUE(files().WriteAll(Folder() + u"\\" + std::u16string(name), bytes.data(), bytes.size()));
  }
};

LRESULT CALLBACK AnswerListQuery(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == 1124 && wParam == 0x10000004) return 0x1234;
  return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(PreviewImageSetTest, FilesFirstThenThePictureLibrary) {
  Write(u"note.tga", test::TargaFile(1, 1, {0xFF102030}));
  Write(u"birthday.bmp", test::BitmapFile(3, RGB(1, 2, 3), RGB(1, 2, 3)));
  Write(u"anniversary_high.bmp", test::BitmapFile(4, RGB(1, 2, 3), RGB(1, 2, 3)));
  Write(u"task_checked_high.bmp", test::BitmapFile(4, RGB(1, 2, 3), RGB(1, 2, 3)));
  PreviewImageSet set;
  // The test program holds Targa 396 (reminder) and bitmap 391 (anniversary).
  set.Load(GetModuleHandleW(nullptr), true, Folder(), nullptr);
  EXPECT_EQ(set.Image(u"note").planes.width, 1) << "from the folder";
  EXPECT_EQ(set.Image(u"reminder").planes.width, 2) << "from the Targa resource";
  EXPECT_EQ(set.Image(u"reminder").planes.alpha[0], 127);
  EXPECT_EQ(set.Image(u"birthday").bitmapWidth, 3) << "from the folder";
  EXPECT_EQ(set.Image(u"anniversary").bitmapWidth, 2) << "its _high file is not for it";
  EXPECT_EQ(set.Image(u"task_checked").bitmapWidth, 4) << "its _high file is";
  EXPECT_TRUE(set.Image(u"private").Empty()) << "in neither";
  EXPECT_EQ(set.Image(u"task_checked").transparentColor, RGB(255, 0, 0));
  EXPECT_EQ(set.Image(u"note").transparentColor, RGB(0, 255, 0));
  EXPECT_EQ(set.ListQuery(), 0);

  set.Load(GetModuleHandleW(nullptr), false, Folder(), nullptr);
  EXPECT_TRUE(set.Image(u"task_checked").Empty()) << "no _high file when the caller says no";

  WNDCLASSW type = {};
  type.lpfnWndProc = AnswerListQuery;
  type.hInstance = GetModuleHandleW(nullptr);
  type.lpszClassName = L"TwTestListQuery";
  RegisterClassW(&type);
  HWND list = CreateWindowW(L"TwTestListQuery", L"", 0, 0, 0, 1, 1, nullptr, nullptr, type.hInstance, nullptr);
  files().Delete(Folder() + u"\\note.tga");
  set.Load(GetModuleHandleW(nullptr), false, u"", list);
  EXPECT_EQ(set.ListQuery(), 0x1234);
  EXPECT_TRUE(set.Image(u"note").Empty()) << "reloading dropped the file's image";
  EXPECT_EQ(set.Image(u"birthday").bitmapWidth, -1) << "no folder: no files";
  DestroyWindow(list);
}

#if defined(TW_LIBRARY_FOLDER)
// The picture libraries of the product hold every image of the set, each as
// the kind the table names.
TEST(PreviewImageLibraryTest, EveryImageIsInBothPictureLibraries) {
  for (const wchar_t* file : {L"LowDpiRes.dll", L"HighDpiRes.dll"}) {
    std::wstring path = std::wstring(TW_LIBRARY_FOLDER) + L"\\" + file;
    HMODULE library = LoadLibraryW(path.c_str());
    ASSERT_NE(library, nullptr) << Utf16ToUtf8(AsU16(file));
    PreviewImageSet set;
    set.Load(library, false, u"", nullptr);
    for (int i = 0; i < kPreviewImageCount; ++i) {
      const SkinImage& image = set.Image(i);
      bool targa = kPreviewImages[i].targaId != -1;
      EXPECT_EQ(!image.planes.Empty(), targa) << Utf16ToUtf8(AsU16(file)) << " " << Utf16ToUtf8(kPreviewImages[i].name);
      EXPECT_EQ(image.bitmap != nullptr, !targa) << Utf16ToUtf8(AsU16(file)) << " " << Utf16ToUtf8(kPreviewImages[i].name);
    }
    set.Release();
    FreeLibrary(library);
  }
}
#endif

}  // namespace
}  // namespace tw
