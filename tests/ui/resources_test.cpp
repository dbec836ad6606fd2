// The resource libraries and the program's own resources, loaded the way the
// program loads them: every text number from every language library, the
// menu bar, every picture at its cell size, and the dialog templates.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "resources/resource_ids.h"
#include "resources/string_ids.h"

#if !defined(TW_LIBRARY_FOLDER) || !defined(TW_PROGRAM_RESOURCES)
#error "the build names the folder of the resource libraries and the program's resources"
#endif

namespace {

struct LibraryFree {
  void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Library = std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryFree>;

Library Load(const std::wstring& file) {
  std::wstring path = TW_LIBRARY_FOLDER;
  path += L'\\';
  path += file;
  return Library(LoadLibraryW(path.c_str()));
}

std::wstring Text(HMODULE module, unsigned id) {
  wchar_t buffer[1024] = {};
  int length = LoadStringW(module, id, buffer, 1024);
  return std::wstring(buffer, length > 0 ? length : 0);
}

std::string Narrow(const std::wstring& text) {
  int size = WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, nullptr, 0, nullptr, nullptr);
  std::string out(size > 0 ? size - 1 : 0, '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.c_str(), -1, out.data(), size, nullptr, nullptr);
  return out;
}

// The printf conversions of a text, "%%" not counted.
std::vector<std::string> Conversions(const std::wstring& text) {
  std::vector<std::string> found;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != L'%') continue;
    if (i + 1 < text.size() && text[i + 1] == L'%') {
      ++i;
      continue;
    }
    size_t end = i + 1;
    while (end < text.size() && wcschr(L"0123456789.-+ #l", text[end])) ++end;
    found.push_back(Narrow(text.substr(i, end + 1 - i)));
    i = end;
  }
  return found;
}

struct Language {
  const wchar_t* file;
  const wchar_t* name;
};

void PrintTo(const Language& language, std::ostream* out) { *out << Narrow(language.file); }

class LanguageLibraryTest : public ::testing::TestWithParam<Language> {
 protected:
  void SetUp() override {
    library_ = Load(std::wstring(L"LangRes\\") + GetParam().file);
    ASSERT_TRUE(library_) << Narrow(GetParam().file) << " does not load";
  }
  HMODULE library() const { return library_.get(); }

 private:
  Library library_;
};

TEST_P(LanguageLibraryTest, HasEveryTextTheProgramLoads) {
  std::string missing, too_long;
  for (unsigned id : tw::kLanguageTexts) {
    std::wstring text = Text(library(), id);
    if (text.empty()) missing.append(" ").append(std::to_string(id));
    // Labels and explanations are drawn through 256-character buffers.
    if (text.size() > 255) too_long.append(" ").append(std::to_string(id));
  }
  EXPECT_EQ(missing, "") << "texts missing";
  EXPECT_EQ(too_long, "") << "texts longer than 255 characters";
}

TEST_P(LanguageLibraryTest, NamesItsLanguage) {
  EXPECT_EQ(Text(library(), tw::kLanguageNameText), GetParam().name);
}

TEST_P(LanguageLibraryTest, FormattedTextsCarryTheirOneConversion) {
  for (const auto& formatted : tw::kFormattedTexts) {
    std::vector<std::string> conversions = Conversions(Text(library(), formatted.id));
    EXPECT_EQ(conversions, std::vector<std::string>{formatted.conversion}) << "text " << formatted.id;
  }
  // A stray conversion in any other text would read an argument that is not there.
  for (unsigned id : tw::kLanguageTexts) {
    bool formatted = false;
    for (const auto& f : tw::kFormattedTexts) formatted |= f.id == id;
    if (!formatted) {
      EXPECT_EQ(Conversions(Text(library(), id)), std::vector<std::string>{}) << "text " << id;
    }
  }
}

TEST_P(LanguageLibraryTest, MenuBarHoldsTheShellCommands) {
  HMENU menu = LoadMenuW(library(), MAKEINTRESOURCEW(IDM_MENU_BAR));
  ASSERT_NE(menu, nullptr);
  // The shell removes and re-adds the font-size command in the first submenu.
  HMENU first = GetSubMenu(menu, 0);
  ASSERT_NE(first, nullptr);
  for (UINT command : {IDM_EXPORT, IDM_IMPORT, IDM_APPLY_FONT_SIZE}) {
    wchar_t label[128] = {};
    EXPECT_GT(GetMenuStringW(first, command, label, 128, MF_BYCOMMAND), 0) << "command " << command;
  }
  DestroyMenu(menu);
}

INSTANTIATE_TEST_SUITE_P(Languages, LanguageLibraryTest,
                         ::testing::Values(Language{L"CPEngRc.dll", L"English"},
                                           Language{L"CPDeuRc.dll", L"Deutsch"}),
                         [](const auto& info) { return Narrow(info.param.name); });

TEST(LanguageLibraries, GermanIsATranslationNotACopy) {
  Library english = Load(L"LangRes\\CPEngRc.dll"), german = Load(L"LangRes\\CPDeuRc.dll");
  ASSERT_TRUE(english && german);
  size_t same = 0;
  for (unsigned id : tw::kLanguageTexts) same += Text(english.get(), id) == Text(german.get(), id);
  // Product names, numbers and a few words are the same in both languages.
  EXPECT_LT(same, tw::kLanguageTextCount / 20) << same << " texts are identical";
  // The library is compiled from UTF-8: umlauts must come back as written.
  EXPECT_EQ(Text(german.get(), 40834), L"Gr\u00fcn:");
}

// ---------------------------------------------------------------- pictures --

struct Picture {
  unsigned id;
  int width;  // at 96 dpi; twice that in the high-density library
  int height;
  COLORREF key;  // CLR_INVALID for Targa pictures
};

constexpr COLORREF kRed = RGB(255, 0, 0), kGreen = RGB(0, 255, 0);
constexpr Picture kTargaPictures[] = {
    {IDT_PRIVATE, 16, 16, CLR_INVALID},         {IDT_REMINDER, 16, 16, CLR_INVALID},
    {IDT_ATTENDEES, 16, 16, CLR_INVALID},       {IDT_RECURRING, 16, 16, CLR_INVALID},
    {IDT_NOTE, 16, 16, CLR_INVALID},            {IDT_REGENERATED, 16, 16, CLR_INVALID},
    {IDT_HIGH_IMPORTANCE, 16, 16, CLR_INVALID}, {IDT_LOW_IMPORTANCE, 16, 16, CLR_INVALID},
    {IDT_LINK, 16, 16, CLR_INVALID},            {IDT_ALLDAY_APPT, 16, 16, CLR_INVALID},
    {IDT_ACTIVE_TASK, 16, 16, CLR_INVALID},     {IDT_APPT_COUNTER, 16, 16, CLR_INVALID},
    {IDT_TASK_COUNTER, 16, 16, CLR_INVALID},    {IDT_MAIL_COUNTER, 16, 16, CLR_INVALID},
    {IDT_NOTES_COUNTER, 16, 16, CLR_INVALID},   {IDT_CATEGORY_SYMBOL, 16, 16, CLR_INVALID},
    {IDT_ATTACHED_ICON_SYMBOL, 16, 16, CLR_INVALID},
};
constexpr Picture kLibraryBitmaps[] = {
    {IDB_TASK_NOT_CHECKED, 16, 16, kRed}, {IDB_TASK_CHECKED, 16, 16, kRed},
    {IDB_TABS_LEFT, 16, 16, kGreen},      {IDB_TABS_RIGHT, 16, 16, kGreen},
    {IDB_ANNIVERSARY, 16, 16, kGreen},    {IDB_BIRTHDAY, 16, 16, kGreen},
    {IDB_SCROLL_DOWN, 13, 13, kRed},      {IDB_SCROLL_UP, 13, 13, kRed},
    {IDB_THUMB_TOP, 13, 4, kRed},         {IDB_THUMB_BOTTOM, 13, 4, kRed},
    {IDB_THUMB_MIDDLE, 13, 4, kRed},
};

struct ResourceBytes {
  const std::uint8_t* data = nullptr;
  DWORD size = 0;
};

ResourceBytes Find(HMODULE module, unsigned id, const wchar_t* type) {
  HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(id), type);
  if (!found) return {};
  HGLOBAL loaded = LoadResource(module, found);
  return {static_cast<const std::uint8_t*>(LockResource(loaded)), SizeofResource(module, found)};
}

std::uint16_t Word(const std::uint8_t* p) { return static_cast<std::uint16_t>(p[0] | p[1] << 8); }

// Checks a Targa resource as the program's reader takes it: uncompressed
// true colour with alpha, top-down, some pixels drawn and some transparent.
void ExpectTarga(HMODULE module, const Picture& picture, int scale) {
  SCOPED_TRACE("Targa " + std::to_string(picture.id));
  ResourceBytes tga = Find(module, picture.id, L"TARGA");
  ASSERT_NE(tga.data, nullptr);
  ASSERT_GE(tga.size, 18u);
  const int width = picture.width * scale, height = picture.height * scale;
  EXPECT_EQ(tga.data[1], 0) << "colour map";
  EXPECT_EQ(tga.data[2], 2) << "image type";
  EXPECT_EQ(Word(tga.data + 12), width);
  EXPECT_EQ(Word(tga.data + 14), height);
  EXPECT_EQ(tga.data[16], 32) << "pixel depth";
  EXPECT_TRUE(tga.data[17] & 0x10) << "rows stored top-down";
  ASSERT_EQ(tga.size, 18u + tga.data[0] + 4u * width * height);
  int covered = 0, clear = 0;
  for (int i = 0; i < width * height; ++i) {
    std::uint8_t alpha = tga.data[18 + tga.data[0] + 4 * i + 3];
    covered += alpha >= 128;
    clear += alpha == 0;
  }
  EXPECT_GT(covered, width * height / 8) << "too little is drawn";
  EXPECT_GT(clear, 0) << "nothing is transparent";
}

// Checks a bitmap's size and that it has both key-coloured and drawn pixels.
void ExpectBitmap(HMODULE module, const Picture& picture, int scale) {
  SCOPED_TRACE("bitmap " + std::to_string(picture.id));
  HBITMAP bitmap = static_cast<HBITMAP>(
      LoadImageW(module, MAKEINTRESOURCEW(picture.id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
  ASSERT_NE(bitmap, nullptr);
  DIBSECTION dib = {};
  ASSERT_EQ(GetObjectW(bitmap, sizeof dib, &dib), static_cast<int>(sizeof dib));
  EXPECT_EQ(dib.dsBmih.biWidth, picture.width * scale);
  EXPECT_EQ(std::abs(dib.dsBmih.biHeight), picture.height * scale);
  if (picture.key != CLR_INVALID) {
    HDC dc = CreateCompatibleDC(nullptr);
    HGDIOBJ old = SelectObject(dc, bitmap);
    int keyed = 0, drawn = 0;
    for (int y = 0; y < dib.dsBm.bmHeight; ++y)
      for (int x = 0; x < dib.dsBm.bmWidth; ++x) (GetPixel(dc, x, y) == picture.key ? keyed : drawn)++;
    SelectObject(dc, old);
    DeleteDC(dc);
    EXPECT_GT(drawn, 0) << "nothing is drawn";
    if (picture.id != IDB_THUMB_MIDDLE) {
      EXPECT_GT(keyed, 0) << "no transparent pixel";
    }
  }
  DeleteObject(bitmap);
}

class PictureLibraryTest : public ::testing::TestWithParam<int> {};

TEST_P(PictureLibraryTest, HoldsEveryPictureAtItsCellSize) {
  const int scale = GetParam();
  Library library = Load(scale == 1 ? L"LowDpiRes.dll" : L"HighDpiRes.dll");
  ASSERT_TRUE(library);
  for (const Picture& picture : kTargaPictures) ExpectTarga(library.get(), picture, scale);
  for (const Picture& picture : kLibraryBitmaps) ExpectBitmap(library.get(), picture, scale);
}

INSTANTIATE_TEST_SUITE_P(Densities, PictureLibraryTest, ::testing::Values(1, 2),
                         [](const auto& info) { return info.param == 1 ? "Low" : "High"; });

// ------------------------------------------------------- program resources --

// The program's resources, built into a library of their own for this test.
class ProgramResources : public ::testing::Test {
 protected:
  void SetUp() override {
    library_.reset(LoadLibraryW(TW_PROGRAM_RESOURCES));
    ASSERT_TRUE(library_);
  }
  HMODULE program() const { return library_.get(); }

 private:
  Library library_;
};

TEST_F(ProgramResources, BitmapsHaveTheSizesTheirUsersDrawThemAt) {
  const COLORREF menu_key = RGB(222, 207, 198), chooser_key = RGB(222, 208, 198);
  const Picture pictures[] = {
      {IDB_MENU_BUTTONS_16, 32, 16, menu_key},       {IDB_MENU_BUTTONS_32, 64, 32, menu_key},
      {IDB_CHOOSER_BUTTONS_16, 32, 16, chooser_key}, {IDB_CHOOSER_BUTTONS_32, 64, 32, chooser_key},
      {IDB_HEADER_ICON_24, 24, 24, kRed},            {IDB_HEADER_ICON_48, 48, 48, kRed},
      {IDB_PALETTE_SMALL, 184, 42, CLR_INVALID},     {IDB_PALETTE_LARGE, 368, 84, CLR_INVALID},
      {IDB_MARKER_LEGEND_SMALL, 20, 12, kRed},       {IDB_MARKER_LEGEND_LARGE, 40, 24, kRed},
  };
  for (const Picture& picture : pictures) ExpectBitmap(program(), picture, 1);
  for (const Picture& picture : kLibraryBitmaps) {
    if (picture.key == kRed) ExpectBitmap(program(), picture, 1);
  }
}

TEST_F(ProgramResources, IconTitleClassAndAccelerators) {
  for (int size : {16, 32}) {
    HICON icon = static_cast<HICON>(LoadImageW(program(), MAKEINTRESOURCEW(IDI_APP), IMAGE_ICON, size, size, 0));
    EXPECT_NE(icon, nullptr) << size;
    if (icon) DestroyIcon(icon);
  }
  EXPECT_NE(Text(program(), IDS_APP_TITLE), L"");
  EXPECT_NE(Text(program(), IDS_WINDOW_CLASS), L"");

  HACCEL table = LoadAcceleratorsW(program(), MAKEINTRESOURCEW(IDA_MAIN));
  ASSERT_NE(table, nullptr);
  ACCEL keys[16];
  int count = CopyAcceleratorTableW(table, keys, 16);
  bool cancel = false, done = false;
  for (int i = 0; i < count; ++i) {
    cancel |= keys[i].cmd == IDM_CANCEL && keys[i].key == VK_ESCAPE;
    done |= keys[i].cmd == IDOK;
  }
  EXPECT_TRUE(cancel && done);
  DestroyAcceleratorTable(table);
}

RECT ControlRect(HWND dialog, int id) {
  RECT rect = {};
  GetWindowRect(GetDlgItem(dialog, id), &rect);
  MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

INT_PTR CALLBACK Quiet(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

std::wstring ClassOf(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return name;
}

// Each template is created for real: its control classes must exist and the
// dialogs find their controls by these numbers.
TEST_F(ProgramResources, DialogTemplatesHoldTheControlsTheirDialogsUse) {
  INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_BAR_CLASSES | ICC_TAB_CLASSES | ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&classes);
  struct Expected {
    unsigned dialog;
    std::vector<std::pair<int, std::wstring>> controls;
  };
  const Expected expected[] = {
      {IDD_FILE_CHOOSER,
       {{IDC_CHOOSER_PATH, L"Edit"}, {IDC_CHOOSER_LIST, L"ListBox"}, {IDC_CHOOSER_UP, L"Button"}}},
      {IDD_COLOUR_PICKER,
       {{IDC_RED_LABEL, L"Static"}, {IDC_GREEN_LABEL, L"Static"}, {IDC_BLUE_LABEL, L"Static"},
        {IDC_RED_SLIDER, TRACKBAR_CLASSW}, {IDC_GREEN_SLIDER, TRACKBAR_CLASSW},
        {IDC_BLUE_SLIDER, TRACKBAR_CLASSW}, {IDC_RED_VALUE, L"Edit"}, {IDC_GREEN_VALUE, L"Edit"},
        {IDC_BLUE_VALUE, L"Edit"}, {IDC_HTML_VALUE, L"Edit"}, {IDC_HTML_LABEL, L"Static"}}},
      {IDD_FONT_CHOOSER,
       {{IDC_FONT_SIZE_LABEL, L"Static"}, {IDC_FONT_SIZE, L"ComboBox"}, {IDC_FONT_ITALIC, L"Button"},
        {IDC_FONT_BOLD, L"Button"}, {IDC_FONT_UNDERLINE, L"Button"}, {IDC_FONT_STRIKEOUT, L"Button"},
        {IDC_FONT_COLOUR_LABEL, L"Static"}, {IDC_FONT_SET_COLOUR, L"Button"}}},
      {IDD_ICON_CHOOSER, {{IDC_ICON_CHOOSE, L"Button"}, {IDC_ICON_NONE, L"Button"}}},
      {IDD_PLUGIN_CHOOSER,
       {{IDC_PLUGIN_TEXT, L"Static"}, {IDC_PLUGIN_LABEL, L"Static"}, {IDC_PLUGIN_LIST, L"ComboBox"}}},
  };
  for (const Expected& e : expected) {
    SCOPED_TRACE("dialog " + std::to_string(e.dialog));
    HWND dialog = CreateDialogParamW(program(), MAKEINTRESOURCEW(e.dialog), nullptr, Quiet, 0);
    ASSERT_NE(dialog, nullptr);
    for (const auto& [id, class_name] : e.controls) {
      HWND control = GetDlgItem(dialog, id);
      ASSERT_NE(control, nullptr) << "control " << id;
      EXPECT_EQ(lstrcmpiW(ClassOf(control).c_str(), class_name.c_str()), 0)
          << "control " << id << " is a " << Narrow(ClassOf(control));
    }
    // Everything fits the 240-pixel width of the screen.
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
      EXPECT_LE(ControlRect(dialog, GetDlgCtrlID(child)).right, 240) << "control " << GetDlgCtrlID(child);
    }
    if (e.dialog == IDD_COLOUR_PICKER) {
      // The picker draws its separator line 100 pixels down: sliders above, web colour below.
      EXPECT_LT(ControlRect(dialog, IDC_BLUE_SLIDER).bottom, 100);
      EXPECT_GT(ControlRect(dialog, IDC_HTML_VALUE).top, 100);
    }
    if (e.dialog == IDD_FONT_CHOOSER) {
      // The colour swatch is painted from x 110 to 152, 40 pixels down, between label and button.
      RECT label = ControlRect(dialog, IDC_FONT_COLOUR_LABEL), button = ControlRect(dialog, IDC_FONT_SET_COLOUR);
      EXPECT_LT(label.right, 110);
      EXPECT_GT(button.left, 152);
      EXPECT_LT(button.top, 59);
      EXPECT_GT(button.bottom, 40);
    }
    DestroyWindow(dialog);
  }
}

}  // namespace
