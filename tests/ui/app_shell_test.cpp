// The main window driven as a user would: page selection, the menu, the
// first-run notice, Done and Cancel, export and import, the libraries chosen
// at start, and every page's layout at each screen geometry.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include "app/main_window.h"
#include "app/shell.h"
#include "base/scaling.h"
#include "pages/about_page.h"
#include "platform/win32/device.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "settings/schema.h"
#include "settings/settings_io.h"
#include "tests/ui/app_harness.h"

namespace tw::test {
namespace {

constexpr char16_t kFilters[] = u"\\Program Files\\Orvex\\Tidewell\\TWFilters.txt";
constexpr char16_t kCategories[] = u"Software\\Orvex\\Tidewell\\Categories";

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

using ShellTest = AppTest;

// A folder of the host as the prefix sees it (drive Z:), from a variable
// that holds its Unix path.
std::wstring HostFolder(const wchar_t* variable) {
  wchar_t path[MAX_PATH] = {};
  if (GetEnvironmentVariableW(variable, path, MAX_PATH) == 0 || path[0] != L'/') return L"";
  std::wstring folder = L"Z:" + std::wstring(path);
  for (wchar_t& c : folder)
    if (c == L'/') c = L'\\';
  return folder;
}

bool IsRealFolder(const std::wstring& path) {
  DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) &&
         !(attributes & FILE_ATTRIBUTE_REPARSE_POINT);
}

// Wine links a new prefix's documents folder to the home folder; the export
// must land in the device's own folder on drive C: of the prefix instead.
TEST_F(ShellTest, ExportStaysInsideThePrefix) {
  ASSERT_NE(Start(), nullptr);
  Command(IDM_EXPORT);
  EXPECT_EQ(answerer_.Last(), EnglishBox(40208, 40209));
  EXPECT_TRUE(IsRealFolder(L"C:\\My Documents")) << "the device's documents folder is a real folder";
  std::wstring prefix = HostFolder(L"WINEPREFIX"), home = HostHomeFolder();
  ASSERT_FALSE(prefix.empty());
  ASSERT_FALSE(home.empty());
  EXPECT_NE(GetFileAttributesW((prefix + L"\\drive_c\\My Documents\\TW_Settings.txt").c_str()),
            INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(GetFileAttributesW((home + L"\\TW_Settings.txt").c_str()), INVALID_FILE_ATTRIBUTES);
  wchar_t profile[MAX_PATH] = {};
  ASSERT_GT(GetEnvironmentVariableW(L"USERPROFILE", profile, MAX_PATH), 0u);
  EXPECT_TRUE(IsRealFolder(std::wstring(profile) + L"\\Documents")) << "the prefix's documents folder is no link";
}

// Pages store themselves into the record as they are destroyed; the Today
// item's settings depend on which page wrote last, so the order is fixed.
class RecordingPage : public SettingsPage {
 public:
  RecordingPage(const PageContext& context, int slot, std::vector<int>& log)
      : SettingsPage(context), slot_(slot), log_(log) {}
  ~RecordingPage() override { log_.push_back(slot_); }
  void Show(int, bool) override {}

 private:
  int slot_;
  std::vector<int>& log_;
};

TEST_F(ShellTest, PagesAreStoredInTheirFixedOrder) {
  for (bool done : {true, false}) {
    ASSERT_NE(Start(), nullptr);
    std::vector<int> log;
    for (int slot = 0; slot < kPageCount; ++slot)
      if (kPages[slot].destroyRank >= 0)
        Shell().slots[slot] = std::make_unique<RecordingPage>(MakePageContext(), slot, log);
    if (done) Command(IDOK);
    else DestroyWindow(Window());
    EXPECT_EQ(log, (std::vector<int>{0, 1, 2, 3, 4, 5, 8, 7, 6, 9, 12})) << (done ? "Done" : "window destruction");
    EXPECT_EQ(Window(), nullptr);
  }
}

// Pages are made on first selection and then hidden, never destroyed; the
// category pages are the shell's own painting; the font-size command is
// offered on the Fonts page alone, once however often the menu opens.
TEST_F(ShellTest, PageSelection) {
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
  EXPECT_FALSE(FontSizeItemOffered());
  EXPECT_EQ(Shell().slots[kAboutPage], nullptr);
  SelectPage(kAboutPage);
  SettingsPage* about = Shell().slots[kAboutPage].get();
  ASSERT_NE(about, nullptr);
  std::vector<HWND> controls = about->Controls();
  ASSERT_FALSE(controls.empty());
  SelectPage(kFontsPage);
  for (HWND control : controls) EXPECT_FALSE(IsWindowVisible(control));
  EXPECT_TRUE(FontSizeItemOffered());
  EXPECT_TRUE(FontSizeItemOffered());
  EXPECT_EQ(GetMenuItemCount(ToolsMenu()), 4);
  for (int page : {10, 11}) {
    SelectPage(page);
    EXPECT_EQ(pagePixel(), RGB(0x32, 0x32, 0x32)) << "page " << page;
    EXPECT_EQ(Shell().slots[page], nullptr) << "page " << page;
  }
  SelectPage(kAboutPage);
  EXPECT_EQ(Shell().currentPage, kAboutPage);
  EXPECT_EQ(Shell().slots[kAboutPage].get(), about);
  EXPECT_EQ(about->Controls(), controls);
  for (HWND control : controls) EXPECT_TRUE(IsWindowVisible(control));
  EXPECT_FALSE(FontSizeItemOffered());
  EXPECT_EQ(GetMenuItemCount(ToolsMenu()), 3) << "export, import and undo stay";
}

// Cancel asks and, on Yes, saves nothing: not even that the notice was seen.
TEST_F(ShellTest, FirstRunNoticeUntilDoneAndCancelSavesNothing) {
  ScopedKey key(registry(), kCurrentUser, kProductKey, true);
  registry().DeleteValue(key.get(), u"FirstTimeSettingsMsg");
  WriteDword(registry(), kCurrentUser, kProductKey, u"OnClick", 2);
  const std::wstring notice = EnglishBox(40218, 40219), question = EnglishBox(40216, 40217);
  for (int start = 0; start < 2; ++start) {
    answerer_.boxes.clear();
    ASSERT_NE(Start(kAboutPage), nullptr);
    std::string before = RegistrySnapshot();
    answerer_.AnswerYesNo(IDNO);
    Command(IDM_CANCEL);
    EXPECT_NE(Shell().slots[kAboutPage], nullptr) << "No keeps the window";
    answerer_.AnswerYesNo(IDYES);
    Command(IDM_CANCEL);
    EXPECT_EQ(Window(), nullptr);
    EXPECT_EQ(answerer_.Seen(), (std::vector<std::wstring>{notice, question, question}));
    EXPECT_EQ(RegistrySnapshot(), before);
  }
  RECT box = answerer_.boxes[1].area;
  EXPECT_TRUE(box.left >= 0 && box.top >= 0 && box.right <= 240 && box.bottom <= 320)
      << "boxes stand on the device screen: " << box.left << "," << box.top << "-" << box.right << "," << box.bottom;
  Pump();
  EXPECT_EQ(listener_.Received(), 0);

  ASSERT_NE(Start(), nullptr);
  Command(IDOK);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kProductKey, u"FirstTimeSettingsMsg").dword, 1u);
  answerer_.boxes.clear();
  ASSERT_NE(Start(), nullptr);
  RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  EXPECT_TRUE(answerer_.Seen().empty());
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
    WriteDword(registry(), kCurrentUser, kCategories, u"CatColor.Business", 255);
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
  EXPECT_TRUE(files().Exists(kFilters));

  registry().DeleteTree(kCurrentUser, kProductKey);
  prepare();
  SettingsStore alone{};
  LoadSettings(alone, {registry(), locale(), files()});
  SaveSettings(alone, {registry(), locale(), files()});
  EXPECT_EQ(done, RegistrySnapshot());
  EXPECT_FALSE(ReadValue(registry(), kCurrentUser, kProductKey, u"LockDpad").present) << "a default was dropped";
}

// The export takes the registry as it is, values of other programs included,
// and keeps the program open. A missing file to import changes nothing; a
// broken one keeps what was applied before the fault. Either way the window
// and its pages stay as they were. A good one is saved with the lists and
// ends the program and has the Today screen reload its items. None broadcasts.
TEST_F(ShellTest, ExportThenImportKeepsTheWindowOnFailureAndEndsOnSuccess) {
  TodayScreenListener todayScreen;
  WriteText(registry(), kCurrentUser, u"Software\\Orvex\\Tidewell\\Extra", u"Foreign", u"x");
  WriteDatabase(u"\\Categories Database", {{{0x4001001F, 0, u"Business"}, {0x40020002, 3, u""}}});
  ASSERT_NE(Start(kAboutPage), nullptr);
  SettingsPage* about = Shell().slots[kAboutPage].get();
  std::vector<HWND> controls = about->Controls();
  Command(IDM_EXPORT);
  std::vector<std::uint8_t> bytes;
  files().ReadAll(kDocument, bytes);
  std::string file(bytes.begin(), bytes.end());
  EXPECT_NE(file.find("[Software\\Orvex\\Tidewell\\Extra]\r\n\"Foreign\"=\"x\"\r\n"), std::string::npos) << file;
  EXPECT_NE(file.find("[::Filters::]"), std::string::npos);

  files().Delete(kDocument);
  std::string before = RegistrySnapshot();
  Command(IDM_IMPORT);
  EXPECT_EQ(answerer_.Last(), EnglishBox(40210, 40211));
  EXPECT_EQ(RegistrySnapshot(), before);

  // A header neither opened nor closed by a bracket, after a good section.
  WriteDocument("\r\n[Software\\Orvex\\Tidewell]\r\n\"OnClick\"=dword:1\r\n\r\nbroken\r\n");
  Command(IDM_IMPORT);
  EXPECT_EQ(answerer_.Last(), EnglishBox(40212, 40213));
  EXPECT_EQ(todayScreen.Received(), 0);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kProductKey, u"OnClick").dword, 1u) << "no rollback";
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(Shell().slots[kAboutPage].get(), about);
  EXPECT_EQ(about->Controls(), controls);
  for (HWND control : controls) EXPECT_TRUE(IsWindowVisible(control));

  WriteDocument(
      "\r\n[Software\\Orvex\\Tidewell]\r\n\"OnClick\"=dword:3\r\n\"FirstTimeSettingsMsg\"=dword:1\r\n"
      "\r\n[::Categories::]\r\n\"Category\"=\"Business\"\r\n\"FiltersFlag\"=dword:6\r\n\"Color\"=dword:128\r\n");
  Command(IDM_IMPORT);
  EXPECT_EQ(answerer_.Last(), EnglishBox(40214, 40215));
  EXPECT_EQ(Window(), nullptr) << "the program ends after an import";
  EXPECT_EQ(Settings().OnClick, 3) << "the record was read back";
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kProductKey, u"OnClick").dword, 3u);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kCategories, u"CatColor.Business").dword, 128u);
  EXPECT_EQ(ReadValue(registry(), kCurrentUser, kCategories, u"CatFilter.Business").dword, 6u);
  EXPECT_TRUE(files().Exists(kFilters));
  Pump();
  EXPECT_EQ(listener_.Received(), 0);
  EXPECT_EQ(todayScreen.Received(), 1);
}

// A language library that is missing falls back to English (a chosen one
// in use is the General page's test).
TEST_F(ShellTest, DensityPicksThePictureLibraryAndMenuImages) {
  WriteText(registry(), kCurrentUser, kProductKey, u"SelectedLangResFile",
            u"\\Program Files\\Orvex\\Tidewell\\LangRes\\Missing.dll");
  const struct {
    int dpi;
    bool vgaMode;
    const wchar_t* library;
    int menuImage;
  } screens[] = {{131, false, L"LowDpiRes.dll", 16}, {192, false, L"HighDpiRes.dll", 32}, {96, true, L"HighDpiRes.dll", 32}};
  for (const auto& screen : screens) {
    SCOPED_TRACE(std::to_string(screen.dpi) + (screen.vgaMode ? " dpi in VGA mode" : " dpi"));
    gScreen.dpiX = gScreen.dpiY = screen.dpi;
    WriteDword(registry(), kCurrentUser, kProductKey, u"MyVgaMode", screen.vgaMode);
    ASSERT_NE(Start(), nullptr);
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(Shell().pictures, path, MAX_PATH);
    EXPECT_STREQ(wcsrchr(path, L'\\') + 1, screen.library);
    EXPECT_EQ(device::MenuBarImageSize(Shell().menuBar), screen.menuImage);
    SendMessageW(Shell().selector, CB_GETLBTEXT, 0, reinterpret_cast<LPARAM>(path));
    EXPECT_STREQ(path, L"General");
    DestroyWindow(Window());
  }
}

TEST(AboutPage, BuildDateReadsNaturally) {
  EXPECT_EQ(FormatBuildDate("Nov  2 2026"), u"2 November 2026");
  EXPECT_EQ(FormatBuildDate("Dec 31 2025"), u"31 December 2025");
  EXPECT_EQ(FormatBuildDate("someday"), u"someday");
}

// Every page as it exists, at each geometry and in both languages (German
// words run longer): pages added later are checked here as soon as their
// slot has a factory.
TEST_F(ShellTest, EveryPageFitsTheWindowOnEachScreen) {
  CheckEveryScreen(L"page", kPageCount, [] {}, [this](int page) { SelectPage(page); });
}

}  // namespace
}  // namespace tw::test
