// The resource libraries and the program's own resources, loaded the way the
// program loads them: every text number from every language library, the
// menu bar, every picture at its cell size, and the dialog templates.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <regex>
#include <string>
#include <vector>

#include "pages/preview_cache.h"
#include "data/win32/skin_image.h"
#include "resources/resource_ids.h"
#include "resources/string_ids.h"

#if !defined(TW_LIBRARY_FOLDER) || !defined(TW_PROGRAM_RESOURCES)
#error "the build names the folder of the resource libraries and the program's resources"
#endif

namespace {

// Loaded for the rest of the process, as the program keeps its libraries.
HMODULE Load(const std::wstring& file) { return LoadLibraryW((TW_LIBRARY_FOLDER L"\\" + file).c_str()); }

std::wstring Text(HMODULE module, unsigned id) {
  wchar_t buffer[1024] = {};
  return std::wstring(buffer, std::max(LoadStringW(module, id, buffer, 1024), 0));
}

// The printf conversions of a text ("%%" is none).
std::vector<std::string> Conversions(const std::wstring& text) {
  static const std::wregex conversion(L"%%|%[-+ #0-9.l]*.?");
  std::vector<std::string> found;
  for (std::wsregex_iterator match(text.begin(), text.end(), conversion), end; match != end; ++match)
    if (std::wstring one = match->str(); one != L"%%") found.emplace_back(one.begin(), one.end());
  return found;
}

TEST(LanguageLibraries, HoldEveryTextAndTheMenuBar) {
  const struct {
    const wchar_t *file, *name, *green;
  } languages[] = {{L"CPEngRc.dll", L"English", L"Green:"}, {L"CPDeuRc.dll", L"Deutsch", L"Gr\u00fcn:"}};
  for (const auto& language : languages) {
    SCOPED_TRACE(std::string(language.name, language.name + wcslen(language.name)));
    HMODULE library = Load(std::wstring(L"LangRes\\") + language.file);
    ASSERT_TRUE(library);
    std::vector<unsigned> missing, tooLong, badConversions;
    for (unsigned id : tw::kLanguageTexts) {
      std::wstring text = Text(library, id);
      if (text.empty()) missing.push_back(id);
      // Labels and explanations are drawn through 256-character buffers.
      if (text.size() > 255) tooLong.push_back(id);
      // A conversion without its argument reads whatever the stack holds.
      std::vector<std::string> expected;
      for (const auto& formatted : tw::kFormattedTexts)
        if (formatted.id == id) expected = {formatted.conversion};
      if (Conversions(text) != expected) badConversions.push_back(id);
    }
    EXPECT_EQ(missing, std::vector<unsigned>{}) << "texts missing";
    EXPECT_EQ(tooLong, std::vector<unsigned>{}) << "texts longer than 255 characters";
    EXPECT_EQ(badConversions, std::vector<unsigned>{}) << "texts with other conversions than the program passes";
    EXPECT_EQ(Text(library, tw::kLanguageNameText), language.name);
    // The library is compiled from UTF-8: umlauts must come back as written.
    EXPECT_EQ(Text(library, tw::kColourGreenLabel), language.green);

    // The shell removes and re-adds the font-size command in the first submenu.
    HMENU menu = LoadMenuW(library, MAKEINTRESOURCEW(IDM_MENU_BAR));
    for (UINT command : {IDM_EXPORT, IDM_IMPORT, IDM_APPLY_FONT_SIZE})
      EXPECT_NE(GetMenuState(GetSubMenu(menu, 0), command, MF_BYCOMMAND), static_cast<UINT>(-1)) << command;
    DestroyMenu(menu);
  }
}

// ---------------------------------------------------------------- pictures --

constexpr COLORREF kRed = RGB(255, 0, 0);

struct Picture {
  int id;
  int width, height;
  COLORREF key;  // CLR_INVALID: no transparent colour
};
// The scroll bar's bitmaps; the item pictures come from the preview's table.
constexpr Picture kScrollBitmaps[] = {{IDB_SCROLL_DOWN, 13, 13, kRed},
                                      {IDB_SCROLL_UP, 13, 13, kRed},
                                      {IDB_THUMB_TOP, 13, 4, kRed},
                                      {IDB_THUMB_BOTTOM, 13, 4, kRed},
                                      {IDB_THUMB_MIDDLE, 13, 4, kRed}};

// Loads a picture as the program does and checks its size, that enough of
// it is drawn and that some of it is transparent (the thumb's middle piece
// fills its whole cell).
void ExpectPicture(HMODULE module, int targaId, int bitmapId, int width, int height, COLORREF key) {
  SCOPED_TRACE("picture " + std::to_string(targaId != -1 ? targaId : bitmapId));
  tw::SkinImage image;
  ASSERT_EQ(tw::LoadSkinImage(image, u"", u"", module, targaId, bitmapId, key, false), 1);
  const bool targa = targaId != -1;
  ASSERT_EQ(targa ? image.planes.width : image.bitmapWidth, width);
  ASSERT_EQ(targa ? image.planes.height : image.bitmapHeight, height);
  HDC dc = CreateCompatibleDC(nullptr);
  HGDIOBJ old = targa ? nullptr : SelectObject(dc, image.bitmap);
  int drawn = 0, clear = 0;
  for (int i = 0; i < width * height; ++i) {
    bool isClear = targa ? image.planes.alpha[i] == 0 : GetPixel(dc, i % width, i / width) == key;
    clear += isClear;
    drawn += targa ? image.planes.alpha[i] >= 128 : !isClear;
  }
  if (old) SelectObject(dc, old);
  DeleteDC(dc);
  EXPECT_GT(drawn, targa ? width * height / 8 : 0) << "too little is drawn";
  EXPECT_TRUE(clear > 0 || key == CLR_INVALID || bitmapId == IDB_THUMB_MIDDLE) << "nothing is transparent";
}

TEST(PictureLibraries, HoldEveryPictureAtItsCellSize) {
  for (int scale : {1, 2}) {
    SCOPED_TRACE(scale == 1 ? "low density" : "high density");
    HMODULE library = Load(scale == 1 ? L"LowDpiRes.dll" : L"HighDpiRes.dll");
    ASSERT_TRUE(library);
    // Each item picture as the kind, and with the transparent colour, the preview loads it.
    for (const tw::PreviewImageSource& p : tw::kPreviewImages)
      ExpectPicture(library, p.targaId, p.bitmapId, 16 * scale, 16 * scale, p.transparent);
    for (const Picture& p : kScrollBitmaps) ExpectPicture(library, -1, p.id, p.width * scale, p.height * scale, p.key);
  }
}

// ------------------------------------------------------- program resources --

TEST(ProgramResources, BitmapsAtTheirDrawingSizesAndAccelerators) {
  HMODULE program = LoadLibraryW(TW_PROGRAM_RESOURCES);
  ASSERT_TRUE(program);
  const COLORREF menuKey = RGB(222, 207, 198), chooserKey = RGB(222, 208, 198);
  const Picture pictures[] = {
      {IDB_MENU_BUTTONS_16, 32, 16, menuKey},       {IDB_MENU_BUTTONS_32, 64, 32, menuKey},
      {IDB_CHOOSER_BUTTONS_16, 32, 16, chooserKey}, {IDB_CHOOSER_BUTTONS_32, 64, 32, chooserKey},
      {IDB_HEADER_ICON_24, 24, 24, kRed},           {IDB_HEADER_ICON_48, 48, 48, kRed},
      {IDB_PALETTE_SMALL, 184, 42, CLR_INVALID},    {IDB_PALETTE_LARGE, 368, 84, CLR_INVALID},
      {IDB_MARKER_LEGEND_SMALL, 20, 12, kRed},      {IDB_MARKER_LEGEND_LARGE, 40, 24, kRed},
      {IDB_TASK_NOT_CHECKED, 16, 16, kRed},         {IDB_TASK_CHECKED, 16, 16, kRed},
  };
  for (const Picture& p : pictures) ExpectPicture(program, -1, p.id, p.width, p.height, p.key);
  for (const Picture& p : kScrollBitmaps) ExpectPicture(program, -1, p.id, p.width, p.height, p.key);

  HACCEL table = LoadAcceleratorsW(program, MAKEINTRESOURCEW(IDA_MAIN));
  ACCEL keys[16];
  int count = CopyAcceleratorTableW(table, keys, 16);
  EXPECT_TRUE(std::any_of(keys, keys + count, [](const ACCEL& k) { return k.cmd == IDM_CANCEL && k.key == VK_ESCAPE; }));
  EXPECT_TRUE(std::any_of(keys, keys + count, [](const ACCEL& k) { return k.cmd == IDOK; }));
  DestroyAcceleratorTable(table);
}

RECT ControlRect(HWND dialog, int id) {
  RECT rect = {};
  GetWindowRect(GetDlgItem(dialog, id), &rect);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

INT_PTR CALLBACK Quiet(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

// Each template is created for real: its control classes must exist and the
// dialogs find their controls by these numbers (whether they fit each screen
// is the dialogs' own tests).
TEST(ProgramResources, DialogTemplatesHoldTheControlsTheirDialogsUse) {
  HMODULE program = LoadLibraryW(TW_PROGRAM_RESOURCES);
  ASSERT_TRUE(program);
  INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_BAR_CLASSES | ICC_TAB_CLASSES | ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&classes);
  const struct {
    unsigned dialog;
    std::vector<int> controls;
  } dialogs[] = {
      {IDD_FILE_CHOOSER, {IDC_CHOOSER_PATH, IDC_CHOOSER_LIST, IDC_CHOOSER_UP}},
      {IDD_COLOUR_PICKER,
       {IDC_RED_LABEL, IDC_GREEN_LABEL, IDC_BLUE_LABEL, IDC_RED_SLIDER, IDC_GREEN_SLIDER, IDC_BLUE_SLIDER,
        IDC_RED_VALUE, IDC_GREEN_VALUE, IDC_BLUE_VALUE, IDC_HTML_VALUE, IDC_HTML_LABEL}},
      {IDD_FONT_CHOOSER,
       {IDC_FONT_SIZE_LABEL, IDC_FONT_SIZE, IDC_FONT_ITALIC, IDC_FONT_BOLD, IDC_FONT_UNDERLINE, IDC_FONT_STRIKEOUT,
        IDC_FONT_COLOUR_LABEL, IDC_FONT_SET_COLOUR}},
      {IDD_ICON_CHOOSER, {IDC_ICON_CHOOSE, IDC_ICON_NONE}},
      {IDD_PLUGIN_CHOOSER, {IDC_PLUGIN_TEXT, IDC_PLUGIN_LABEL, IDC_PLUGIN_LIST}},
  };
  for (const auto& expected : dialogs) {
    SCOPED_TRACE("dialog " + std::to_string(expected.dialog));
    HWND dialog = CreateDialogParamW(program, MAKEINTRESOURCEW(expected.dialog), nullptr, Quiet, 0);
    ASSERT_NE(dialog, nullptr);
    for (int id : expected.controls) EXPECT_NE(GetDlgItem(dialog, id), nullptr) << "control " << id;
    if (expected.dialog == IDD_COLOUR_PICKER) {
      // The picker draws its separator line 100 pixels down: sliders above, web colour below.
      EXPECT_LT(ControlRect(dialog, IDC_BLUE_SLIDER).bottom, 100);
      EXPECT_GT(ControlRect(dialog, IDC_HTML_VALUE).top, 100);
    }
    if (expected.dialog == IDD_FONT_CHOOSER) {
      // The colour swatch is painted from x 110 to 152, y 40 to 59, between label and button.
      RECT swatchLabel = ControlRect(dialog, IDC_FONT_COLOUR_LABEL), set = ControlRect(dialog, IDC_FONT_SET_COLOUR);
      EXPECT_LT(swatchLabel.right, 110);
      EXPECT_GT(set.left, 152);
      EXPECT_TRUE(set.top < 59 && set.bottom > 40) << "the button stands beside the swatch";
    }
    DestroyWindow(dialog);
  }
}

}  // namespace
