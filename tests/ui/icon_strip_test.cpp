// The icon strip as its owner sees it: the states it reports after taps and
// menu choices, the notifications, and when the tip with an item's name
// shows, with the real timers running.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "base/scaling.h"
#include "controls/icon_strip.h"
#include "controls/tool_tip.h"
#include "platform/win32/win32_text_library.h"
#include "resources/resource_ids.h"
#include "resources/string_ids.h"
#include "tests/ui/app_harness.h"
#include "tests/ui/layout_check.h"
#include "tests/ui/recording_parent.h"

namespace tw {
namespace {

using test::Logged;

constexpr LPARAM kCommandValue = 0x5A17;
constexpr Logged kChanged = {WM_COMMAND, kIconStripChanged, kCommandValue};
constexpr std::uint32_t kNote = 1, kRecurring = 2, kReminder = 4;

HWND VisibleTip() {
  HWND tip = FindWindowW(kToolTipClass, nullptr);
  return tip && IsWindowVisible(tip) ? tip : nullptr;
}

std::wstring TextOf(HWND window) {
  wchar_t text[128] = {};
  GetWindowTextW(window, text, 128);
  return text;
}

class IconStripTest : public ::testing::Test {
 protected:
  void SetUp() override {
    gScreen.dpiX = gScreen.dpiY = 96;
    pictures_ = LoadLibraryW(TW_LIBRARY_FOLDER L"\\LowDpiRes.dll");
  }
  void TearDown() override {
    if (strip_) DestroyWindow(strip_);
    FreeLibrary(pictures_);
    FreeLibrary(english_);
    gScreen.dpiX = gScreen.dpiY = 96;
  }

  HWND Make(bool collapsed, HWND owner = nullptr, POINT origin = {10, 10}) {
    strip_ = CreateIconStrip(GetModuleHandleW(nullptr), owner ? owner : parent_.window(), origin, L"TwTestStrip",
                             kCommandValue, collapsed, &texts_);
    EXPECT_NE(strip_, nullptr);
    return strip_;
  }
  std::unique_ptr<SkinImage> Picture(int targa) const {
    auto image = std::make_unique<SkinImage>();
    LoadSkinImage(*image, u"", u"", pictures_, targa, -1, kIconTransparent, false);
    return image;
  }
  // Note (off), Recurring (on) and Reminder (on, then locked).
  void AddThree() {
    AddIconStripItem(strip_, L"Note", true, Picture(IDT_NOTE), kNote);
    AddIconStripItem(strip_, L"Recurring", false, Picture(IDT_RECURRING), kRecurring);
    AddIconStripItem(strip_, L"Reminder", false, Picture(IDT_REMINDER), kReminder);
    LockIconStripItem(strip_, kReminder);
  }
  std::vector<int> States() const {
    return {IconStripItemState(strip_, kNote), IconStripItemState(strip_, kRecurring),
            IconStripItemState(strip_, kReminder)};
  }
  void Press(int x) { SendMessageW(strip_, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, 8)); }
  void Release(int x) { SendMessageW(strip_, WM_LBUTTONUP, 0, MAKELPARAM(x, 8)); }
  void Tap(int x) {
    Press(x);
    Release(x);
  }
  int ClientWidth() const {
    RECT client;
    GetClientRect(strip_, &client);
    return client.right;
  }

  test::RecordingParent parent_{240, 60};
  HMODULE pictures_ = nullptr;
  HMODULE english_ = LoadLibraryW(TW_LIBRARY_FOLDER L"\\LangRes\\CPEngRc.dll");
  Win32TextLibrary texts_{english_};
  HWND strip_ = nullptr;
};

TEST_F(IconStripTest, TapsToggleTheItemUnderThemButNeverALockedOne) {
  Make(false);
  EXPECT_EQ(ClientWidth(), 1);
  AddThree();
  EXPECT_EQ(ClientWidth(), 1 + 3 * 16);
  EXPECT_EQ(States(), (std::vector<int>{kIconStripOff, kIconStripOn, kIconStripLocked}));

  Tap(8);
  Tap(20);
  Tap(40);
  Tap(47);
  EXPECT_EQ(States(), (std::vector<int>{kIconStripOn, kIconStripOff, kIconStripLocked}));
  SetIconStripItemOn(strip_, kReminder);
  Tap(40);
  EXPECT_EQ(States(), (std::vector<int>{kIconStripOn, kIconStripOff, kIconStripOff})) << "unlocked by turning on";
  EXPECT_EQ(parent_.log, std::vector<Logged>(5, kChanged));
  EXPECT_EQ(IconStripItemState(strip_, 64), kIconStripOn) << "an unknown item counts as on";
}

TEST_F(IconStripTest, AStripWithoutItemsPaintsItsBackgroundAndStillNotifies) {
  Make(false);
  parent_.Settle();
  tools::Capture shot = parent_.Shot(strip_);
  EXPECT_EQ(shot.width, 1);
  EXPECT_EQ(test::PixelAt(shot, 0, 8), RGB(20, 20, 50));
  Tap(0);
  Tap(30);
  EXPECT_EQ(parent_.log, std::vector<Logged>(2, kChanged));
  EXPECT_EQ(FindWindowW(kToolTipClass, nullptr), nullptr);
}

// What a collapsed strip's menu offers, read while it is open, and the keys
// that pick one of its entries.
struct MenuVisit {
  std::vector<std::wstring> entries;  // "text id checked"
  int downs = 0;                      // entry to pick: 1 is the first
};
MenuVisit* gVisit = nullptr;

void CALLBACK ReadAndPick(HWND, UINT, UINT_PTR timer, DWORD) {
  HWND menuWindow = FindWindowW(L"#32768", nullptr);
  auto menu = menuWindow ? reinterpret_cast<HMENU>(SendMessageW(menuWindow, MN_GETHMENU, 0, 0)) : nullptr;
  if (menu == nullptr) return;
  KillTimer(nullptr, timer);
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    wchar_t text[64] = {};
    GetMenuStringW(menu, i, text, 64, MF_BYPOSITION);
    bool checked = GetMenuState(menu, i, MF_BYPOSITION) & MF_CHECKED;
    gVisit->entries.push_back(std::wstring(text) + L" " + std::to_wstring(GetMenuItemID(menu, i)) +
                              (checked ? L" checked" : L""));
  }
  for (int i = 0; i < gVisit->downs; ++i) PostMessageW(menuWindow, WM_KEYDOWN, VK_DOWN, 0);
  PostMessageW(menuWindow, WM_KEYDOWN, VK_RETURN, 0);
}

MenuVisit OpenMenuAndPick(HWND strip, int entry) {
  MenuVisit visit{{}, entry};
  gVisit = &visit;
  SetTimer(nullptr, 0, 50, ReadAndPick);
  SendMessageW(strip, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(8, 8));
  SendMessageW(strip, WM_LBUTTONUP, 0, MAKELPARAM(8, 8));
  test::Pump();  // the choice arrives as a posted command
  gVisit = nullptr;
  return visit;
}

TEST_F(IconStripTest, CollapsedTheMenuTurnsTheChosenItemOffAndAllOthersOn) {
  Make(true);
  AddThree();
  EXPECT_EQ(ClientWidth(), 17);
  MenuVisit first = OpenMenuAndPick(strip_, 4);
  EXPECT_EQ(first.entries, (std::vector<std::wstring>{L"None 0", L"Note 1144 checked", L"Recurring 1145",
                                                      L"Reminder 1146"}))
      << "the item that is off is the one checked";
  EXPECT_EQ(States(), (std::vector<int>{kIconStripOn, kIconStripOn, kIconStripOff})) << "locked ones too";

  MenuVisit none = OpenMenuAndPick(strip_, 1);
  EXPECT_EQ(none.entries.at(3), L"Reminder 1146 checked");
  EXPECT_EQ(States(), (std::vector<int>{kIconStripOn, kIconStripOn, kIconStripOn}));
  MenuVisit again = OpenMenuAndPick(strip_, 2);
  EXPECT_EQ(again.entries.at(0), L"None 0 checked") << "with no item off";
  EXPECT_EQ(States(), (std::vector<int>{kIconStripOff, kIconStripOn, kIconStripOn}));
  EXPECT_EQ(parent_.log, std::vector<Logged>(3, kChanged)) << "opening the menu alone tells nothing";
}

TEST_F(IconStripTest, CollapsedMenuCommandsOutsideItsRangeAreIgnored) {
  Make(true);
  AddThree();
  SendMessageW(strip_, WM_COMMAND, kIconStripFirstItemCommand + kIconStripMenuItems, 0);
  SendMessageW(strip_, WM_COMMAND, kIconStripFirstItemCommand - 1, 0);
  EXPECT_EQ(States(), (std::vector<int>{kIconStripOff, kIconStripOn, kIconStripLocked}));
  SendMessageW(strip_, WM_COMMAND, kIconStripFirstItemCommand + 7, 0);  // no item there: all on
  EXPECT_EQ(States(), (std::vector<int>{kIconStripOn, kIconStripOn, kIconStripOn}));
  EXPECT_EQ(parent_.log, std::vector<Logged>(1, kChanged));
}

TEST_F(IconStripTest, TheTipShowsOnlyWhileTheStylusStaysDown) {
  Make(false);
  AddThree();
  Tap(20);
  EXPECT_FALSE(test::WaitFor([] { return VisibleTip() != nullptr; }, 600)) << "a quick tap shows no tip";
  EXPECT_EQ(FindWindowW(kToolTipClass, nullptr), nullptr);

  DWORD pressed = GetTickCount();
  Press(20);
  ASSERT_TRUE(test::WaitFor([] { return VisibleTip() != nullptr; }, 2000));
  EXPECT_GE(GetTickCount() - pressed, 300u);
  HWND tip = VisibleTip();
  EXPECT_EQ(TextOf(tip), L"Recurring");
  RECT area, strip;
  GetWindowRect(tip, &area);
  GetWindowRect(strip_, &strip);
  EXPECT_EQ(area.right, strip.left + 20 - 2) << "ends left of the tap";
  EXPECT_EQ(area.bottom, strip.top + 8 - 2) << "ends above the tap";
  EXPECT_TRUE(test::WaitFor([] { return FindWindowW(kToolTipClass, nullptr) == nullptr; }, 4000))
      << "gone after 3.2 s though the stylus stays";
  Release(20);

  Press(8);
  ASSERT_TRUE(test::WaitFor([] { return VisibleTip() != nullptr; }, 2000));
  Release(8);
  EXPECT_EQ(FindWindowW(kToolTipClass, nullptr), nullptr) << "lifting the stylus ends it";
}

TEST_F(IconStripTest, LooksRightAtBothDensities) {
  for (int dpi : {96, 192}) {
    gScreen.dpiX = gScreen.dpiY = dpi;
    HMODULE pictures = LoadLibraryW(dpi > 96 ? TW_LIBRARY_FOLDER L"\\HighDpiRes.dll"
                                             : TW_LIBRARY_FOLDER L"\\LowDpiRes.dll");
    std::swap(pictures, pictures_);
    test::RecordingParent parent(ScaleX(120), ScaleY(30), 40, 400);
    HWND collapsed = Make(true, parent.window(), {ScaleX(4), ScaleY(6)});
    AddThree();
    Make(false, parent.window(), {ScaleX(30), ScaleY(6)});
    AddThree();
    AddIconStripItem(strip_, L"Link", false, Picture(IDT_LINK), 64);
    std::wstring path = parent.Save(L"icon-strip-" + std::to_wstring(dpi));
    EXPECT_TRUE(test::CheckLayout(parent.window()).empty());
    tools::Capture shot = parent.Shot(strip_);
    EXPECT_EQ(shot.width, ScaleX(1 + 4 * 16));
    EXPECT_EQ(test::PixelAt(shot, ScaleX(2), shot.height - ScaleY(2)), RGB(80, 90, 170)) << "Note is off";
    EXPECT_EQ(test::PixelAt(shot, ScaleX(18), shot.height - ScaleY(2)), RGB(243, 243, 243)) << "Recurring is on";
    EXPECT_EQ(test::PixelAt(shot, ScaleX(16), ScaleY(8)), RGB(20, 20, 50)) << "between the cells";
    Press(20);
    ASSERT_TRUE(test::WaitFor([] { return VisibleTip() != nullptr; }, 2000));
    std::wstring tipPath = parent.Save(L"tool-tip-" + std::to_wstring(dpi), VisibleTip());
    Release(20);
    DestroyWindow(collapsed);
    DestroyWindow(strip_);
    strip_ = nullptr;
    std::swap(pictures, pictures_);
    FreeLibrary(pictures);
    printf("screenshots %ls %ls\n", path.c_str(), tipPath.c_str());
  }
}

}  // namespace
}  // namespace tw
