// The main window driven as a user would: page selection, the menu, the
// first-run notice, Done and Cancel, and the libraries chosen at start.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include "app/main_window.h"
#include "app/scaling.h"
#include "app/shell.h"
#include "pages/about_page.h"
#include "platform/win32/device.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "settings/schema.h"
#include "settings/settings_io.h"
#include "tests/ui/app_harness.h"
#include "tests/ui/layout_check.h"

namespace tw::test {
namespace {

std::wstring SelectorText(int item) {
  wchar_t text[256] = {};
  SendMessageW(Shell().selector, CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(text));
  return text;
}

HMENU ToolsMenu() {
  auto menu = reinterpret_cast<HMENU>(SendMessageW(Shell().menuBar, device::kMenuBarGetMenu, 0, 0));
  return menu ? GetSubMenu(menu, 0) : nullptr;
}

// What the user sees on opening the menu: the popup is initialised first.
bool FontSizeItemOffered() {
  HMENU tools = ToolsMenu();
  SendMessageW(Shell().mainWindow, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(tools), 0);
  return GetMenuState(tools, IDM_APPLY_FONT_SIZE, MF_BYCOMMAND) != static_cast<UINT>(-1);
}

std::wstring Module(HMODULE module) {
  wchar_t path[MAX_PATH] = {};
  GetModuleFileNameW(module, path, MAX_PATH);
  std::wstring name = path;
  return name.substr(name.find_last_of(L'\\') + 1);
}

int MenuImageSize() {
  auto images = reinterpret_cast<HIMAGELIST>(SendMessageW(Shell().menuBar, TB_GETIMAGELIST, 0, 0));
  int width = 0, height = 0;
  ImageList_GetIconSize(images, &width, &height);
  return width;
}

std::vector<std::wstring> Captions(MessageBoxAnswerer& answerer) {
  std::vector<std::wstring> captions;
  for (const auto& box : answerer.Boxes()) captions.push_back(box.caption + L": " + box.text);
  return captions;
}

using ShellTest = AppTest;

TEST_F(ShellTest, SelectorListsThePagesAndStartsOnTheStartPage) {
  ASSERT_NE(Start(kAboutPage), nullptr);
  ASSERT_EQ(SendMessageW(Shell().selector, CB_GETCOUNT, 0, 0), kPageCount);
  const unsigned names[] = {40220, 40221, 40222, 40981, 40982, 40223, 40224,
                            40225, 40227, 40228, 40229, 40230, 40231};
  for (int page = 0; page < kPageCount; ++page) {
    EXPECT_EQ(SelectorText(page), EnglishText(names[page])) << "page " << page;
    EXPECT_EQ(SendMessageW(Shell().selector, CB_GETITEMDATA, page, 0), page);
  }
  EXPECT_EQ(SendMessageW(Shell().selector, CB_GETCURSEL, 0, 0), kAboutPage);
  ASSERT_NE(Shell().slots[kAboutPage], nullptr);
  for (HWND control : Shell().slots[kAboutPage]->Controls()) EXPECT_TRUE(IsWindowVisible(control));
}

TEST_F(ShellTest, ChoosingThePageTwiceCreatesItOnce) {
  ASSERT_NE(Start(), nullptr);
  EXPECT_EQ(Shell().slots[kAboutPage], nullptr) << "pages are made on first selection";
  SelectPage(kAboutPage);
  SettingsPage* about = Shell().slots[kAboutPage].get();
  ASSERT_NE(about, nullptr);
  std::vector<HWND> controls = about->Controls();
  ASSERT_FALSE(controls.empty());

  SelectPage(kFirstPage);
  EXPECT_EQ(Shell().currentPage, kFirstPage);
  EXPECT_EQ(Shell().slots[kFirstPage], nullptr) << "a slot without its page stays empty";
  for (HWND control : controls) EXPECT_FALSE(IsWindowVisible(control)) << "hidden, not destroyed";

  SelectPage(kAboutPage);
  EXPECT_EQ(Shell().slots[kAboutPage].get(), about);
  EXPECT_EQ(about->Controls(), controls);
  for (HWND control : controls) EXPECT_TRUE(IsWindow(control) && IsWindowVisible(control));
}

TEST_F(ShellTest, CategoryPagesArePaintedDarkByTheShell) {
  ASSERT_NE(Start(), nullptr);
  auto pagePixel = [&] {
    RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    RECT client;
    GetClientRect(Window(), &client);
    HDC dc = GetDC(Window());
    COLORREF colour = GetPixel(dc, client.right / 2, client.bottom - 4);
    ReleaseDC(Window(), dc);
    return colour;
  };
  EXPECT_EQ(pagePixel(), RGB(255, 255, 255));
  for (int page : {10, 11}) {
    SelectPage(page);
    EXPECT_EQ(pagePixel(), RGB(0x32, 0x32, 0x32)) << "page " << page;
    EXPECT_EQ(Shell().slots[page], nullptr) << "no page object in slot " << page;
  }
}

TEST_F(ShellTest, FontSizeCommandOnlyOnTheFontsPage) {
  ASSERT_NE(Start(), nullptr);
  ASSERT_NE(ToolsMenu(), nullptr);
  EXPECT_FALSE(FontSizeItemOffered());
  SelectPage(kFontsPage);
  EXPECT_TRUE(FontSizeItemOffered());
  EXPECT_TRUE(FontSizeItemOffered()) << "opening the menu twice keeps one item";
  EXPECT_EQ(GetMenuItemCount(ToolsMenu()), 3);
  wchar_t text[128] = {};
  GetMenuStringW(ToolsMenu(), IDM_APPLY_FONT_SIZE, text, 128, MF_BYCOMMAND);
  EXPECT_EQ(std::wstring(text), EnglishText(40201));
  SelectPage(kAboutPage);
  EXPECT_FALSE(FontSizeItemOffered());
  EXPECT_NE(GetMenuState(ToolsMenu(), IDM_EXPORT, MF_BYCOMMAND), static_cast<UINT>(-1));
  EXPECT_NE(GetMenuState(ToolsMenu(), IDM_IMPORT, MF_BYCOMMAND), static_cast<UINT>(-1));
}

TEST_F(ShellTest, FirstRunNoticeUntilDone) {
  ScopedKey key(registry(), kCurrentUser, kProductKey, true);
  registry().DeleteValue(key.get(), u"FirstTimeSettingsMsg");
  const std::wstring notice = EnglishText(40219) + L": " + EnglishText(40218);

  ASSERT_NE(Start(), nullptr);
  EXPECT_EQ(Captions(answerer_), std::vector<std::wstring>{notice});
  answerer_.AnswerYesNo(IDYES);
  Command(IDM_CANCEL);
  EXPECT_EQ(Window(), nullptr);
  EXPECT_FALSE(ReadValue(registry(), kCurrentUser, kProductKey, u"FirstTimeSettingsMsg").present);

  answerer_.Forget();
  ASSERT_NE(Start(), nullptr);
  EXPECT_EQ(Captions(answerer_), std::vector<std::wstring>{notice}) << "Cancel saved nothing";
  Command(IDOK);
  EXPECT_EQ(Window(), nullptr);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kProductKey, u"FirstTimeSettingsMsg").dword, 1u);

  answerer_.Forget();
  ASSERT_NE(Start(), nullptr);
  InvalidateRect(Window(), nullptr, TRUE);
  UpdateWindow(Window());
  EXPECT_TRUE(Captions(answerer_).empty());
}

TEST_F(ShellTest, CancelAsksAndSavesNothing) {
  WriteDword(registry(), kCurrentUser, kProductKey, u"OnClick", 2);
  ASSERT_NE(Start(kAboutPage), nullptr);
  std::string before = RegistrySnapshot();
  answerer_.AnswerYesNo(IDNO);
  Command(IDM_CANCEL);
  EXPECT_NE(Window(), nullptr) << "No keeps the window";
  EXPECT_NE(Shell().slots[kAboutPage], nullptr);
  answerer_.AnswerYesNo(IDYES);
  Command(IDM_CANCEL);
  EXPECT_EQ(Window(), nullptr);
  const std::wstring question = EnglishText(40217) + L": " + EnglishText(40216);
  ASSERT_EQ(Captions(answerer_), (std::vector<std::wstring>{question, question}));
  RECT box = answerer_.Boxes()[0].area;
  EXPECT_TRUE(box.left >= 0 && box.top >= 0 && box.right <= 240 && box.bottom <= 320)
      << "boxes stand on the device screen: " << box.left << "," << box.top << "-" << box.right << "," << box.bottom;
  EXPECT_EQ(RegistrySnapshot(), before);
  Pump();
  EXPECT_EQ(listener_.Received(), 0);
}

// Done with no page edited writes exactly what saving the loaded record
// writes: explicit defaults go, other values stay, foreign values survive.
TEST_F(ShellTest, DoneSavesTheRecordAndBroadcasts) {
  auto prepare = [this] {
    WriteDword(registry(), kCurrentUser, kProductKey, u"OnClick", 2);
    WriteDword(registry(), kCurrentUser, kProductKey, u"LockDpad", 1);
    WriteText(registry(), kCurrentUser, kProductKey, u"FontFaceToUse", u"Tahoma");
    WriteText(registry(), kCurrentUser, kProductKey, u"NotOurs", u"kept");
    WriteDword(registry(), kCurrentUser, u"Software\\Orvex\\Tidewell\\Calendar", u"dNumOfDays", 5);
    WriteDword(registry(), kCurrentUser, u"Software\\Orvex\\Tidewell\\Categories", u"CatColor.Business", 255);
    SkipFirstRunNotice();
  };
  WriteDatabase(u"\\Categories Database", {{{0x4001001F, 0, u"Business"}, {0x40020002, 3, u""}},
                                           {{0x4001001F, 0, u"Personal"}, {0x40020002, 4, u""}}});
  prepare();
  ASSERT_NE(Start(kAboutPage), nullptr);
  ASSERT_EQ(Categories().categories.entries.size(), 2u);
  Command(IDOK);
  EXPECT_EQ(Window(), nullptr);
  EXPECT_TRUE(WaitFor([&] { return listener_.Received() == 1; })) << "TidewellSettingsChanged";
  std::string done = RegistrySnapshot();
  EXPECT_TRUE(files().Exists(u"\\Program Files\\Orvex\\Tidewell\\TWFilters.txt"));
  files().Delete(u"\\Program Files\\Orvex\\Tidewell\\TWFilters.txt");

  registry().DeleteTree(kCurrentUser, kProductKey);
  prepare();
  SettingsStore alone{};
  LoadSettings(alone, {registry(), locale(), files()});
  SaveSettings(alone, {registry(), locale(), files()});
  EXPECT_EQ(done, RegistrySnapshot());
  EXPECT_FALSE(ReadValue(registry(), kCurrentUser, kProductKey, u"LockDpad").present);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kProductKey, u"OnClick").dword, 2u);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kProductKey, u"NotOurs").text, u"kept");
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, u"Software\\Orvex\\Tidewell\\Categories", u"CatColor.Business").dword,
            255u);
}

struct Density {
  int dpi;
  bool vgaMode;
  const wchar_t* library;
  int menuImage;
};

class DensityTest : public AppTest, public ::testing::WithParamInterface<Density> {};

TEST_P(DensityTest, PicksThePictureLibraryAndMenuImages) {
  gScreen.dpiX = gScreen.dpiY = GetParam().dpi;
  if (GetParam().vgaMode) WriteDword(registry(), kCurrentUser, kProductKey, u"MyVgaMode", 1);
  ASSERT_NE(Start(), nullptr);
  ASSERT_NE(Shell().pictures, nullptr);
  EXPECT_EQ(Module(Shell().pictures), GetParam().library);
  EXPECT_EQ(MenuImageSize(), GetParam().menuImage);
}

INSTANTIATE_TEST_SUITE_P(Screens, DensityTest,
                         ::testing::Values(Density{131, false, L"LowDpiRes.dll", 16},
                                           Density{192, false, L"HighDpiRes.dll", 32},
                                           Density{96, true, L"HighDpiRes.dll", 32}));

TEST_F(ShellTest, LanguageLibraryFromTheSettingElseEnglish) {
  WriteText(registry(), kCurrentUser, kProductKey, u"SelectedLangResFile",
            u"\\Program Files\\Orvex\\Tidewell\\LangRes\\CPDeuRc.dll");
  ASSERT_NE(Start(), nullptr);
  std::wstring german = SelectorText(0);
  EXPECT_NE(german, EnglishText(40220));
  EXPECT_FALSE(german.empty());
  DestroyWindow(Window());
  Pump();

  WriteText(registry(), kCurrentUser, kProductKey, u"SelectedLangResFile",
            u"\\Program Files\\Orvex\\Tidewell\\LangRes\\Missing.dll");
  ASSERT_NE(Start(), nullptr);
  EXPECT_NE(Shell().language, nullptr);
  EXPECT_EQ(SelectorText(0), EnglishText(40220));
}

TEST_F(ShellTest, BuildDateReadsNaturally) {
  EXPECT_EQ(FormatBuildDate("Nov  2 2026"), u"2 November 2026");
  EXPECT_EQ(FormatBuildDate("Dec 31 2025"), u"31 December 2025");
  EXPECT_EQ(FormatBuildDate("someday"), u"someday");
}

}  // namespace
}  // namespace tw::test

namespace tw::test {
namespace {

struct Screen {
  const wchar_t* size;
  int dpi;
  int clientWidth, clientHeight;
};

class EveryPageTest : public AppTest, public ::testing::WithParamInterface<Screen> {};

// Every page as it exists, at each geometry: pages added later are checked
// here as soon as their slot has a factory.
TEST_P(EveryPageTest, FitsTheWindow) {
  SetEnvironmentVariableW(L"TIDEWELL_SCREEN", GetParam().size);
  gScreen.dpiX = gScreen.dpiY = GetParam().dpi;
  ASSERT_NE(Start(), nullptr);
  RECT client;
  GetClientRect(Window(), &client);
  EXPECT_EQ(client.right, GetParam().clientWidth);
  EXPECT_EQ(client.bottom, GetParam().clientHeight);
  for (int page = 0; page < kPageCount; ++page) {
    SelectPage(page);
    for (const std::string& fault : CheckLayout(Window())) ADD_FAILURE() << "page " << page << ": " << fault;
  }
}

INSTANTIATE_TEST_SUITE_P(Screens, EveryPageTest,
                         ::testing::Values(Screen{L"240x320", 96, 240, 268}, Screen{L"320x240", 96, 320, 188},
                                           Screen{L"480x640", 192, 480, 536}));

}  // namespace
}  // namespace tw::test
