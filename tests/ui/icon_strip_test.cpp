// The icon strip as its owner sees it: the states it reports after taps and
// menu choices, the notifications, and when the tip with an item's name
// shows, with the real timers running.
#include <gtest/gtest.h>

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
constexpr int kOn = kIconStripOn, kOff = kIconStripOff, kLocked = kIconStripLocked;

HWND VisibleTip() {
  HWND tip = FindWindowW(kToolTipClass, nullptr);
  return tip && IsWindowVisible(tip) ? tip : nullptr;
}

class IconStripTest : public ::testing::Test {
 protected:
  void SetUp() override { gScreen.dpiX = gScreen.dpiY = 96; }
  void TearDown() override {
    DestroyWindow(strip_), FreeLibrary(pictures_), FreeLibrary(english_);
    gScreen.dpiX = gScreen.dpiY = 96;
  }

  void Make(bool collapsed, HWND owner = nullptr, POINT origin = {10, 10}) {
    strip_ = CreateIconStrip(GetModuleHandleW(nullptr), owner ? owner : parent_.window(), origin, L"TwTestStrip",
                             kCommandValue, collapsed, &texts_);
    ASSERT_NE(strip_, nullptr);
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
    return {IconStripItemState(strip_, kNote), IconStripItemState(strip_, kRecurring), IconStripItemState(strip_, kReminder)};
  }
  void Press(int x) { SendMessageW(strip_, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, 8)); }
  void Release(int x) { SendMessageW(strip_, WM_LBUTTONUP, 0, MAKELPARAM(x, 8)); }
  void Tap(int x) { Press(x), Release(x); }

  test::RecordingParent parent_{240, 60};
  HMODULE pictures_ = LoadLibraryW(TW_LIBRARY_FOLDER L"\\LowDpiRes.dll");
  HMODULE english_ = LoadLibraryW(TW_LIBRARY_FOLDER L"\\LangRes\\CPEngRc.dll");
  Win32TextLibrary texts_{english_};
  HWND strip_ = nullptr;
};

// An empty strip paints its background and still notifies; taps toggle
// the item under them but never a locked one.
TEST_F(IconStripTest, TapsToggleTheItemUnderThemButNeverALockedOne) {
  Make(false);
  tools::Capture shot = test::Shot(strip_);
  EXPECT_EQ(shot.width, 1);
  EXPECT_EQ(test::PixelAt(shot, 0, 8), RGB(20, 20, 50));
  Tap(0);
  Tap(30);
  AddThree();
  EXPECT_EQ(States(), (std::vector<int>{kOff, kOn, kLocked}));
  for (int x : {8, 20, 40, 47}) Tap(x);
  EXPECT_EQ(States(), (std::vector<int>{kOn, kOff, kLocked}));
  SetIconStripItemOn(strip_, kReminder);
  Tap(40);
  EXPECT_EQ(States(), (std::vector<int>{kOn, kOff, kOff})) << "unlocked by turning on";
  EXPECT_EQ(parent_.log, std::vector<Logged>(7, kChanged));
  EXPECT_EQ(IconStripItemState(strip_, 64), kOn) << "an unknown item counts as on";
}

// What a collapsed strip's menu offers ("text id checked"), read while it is
// open, and how many entries down the one to pick is (1 is the first).
std::vector<std::wstring> gEntries;
int gDowns = 0;

void CALLBACK ReadAndPick(HWND, UINT, UINT_PTR timer, DWORD) {
  HWND menuWindow = FindWindowW(L"#32768", nullptr);
  auto menu = menuWindow ? reinterpret_cast<HMENU>(SendMessageW(menuWindow, MN_GETHMENU, 0, 0)) : nullptr;
  if (menu == nullptr) return;
  KillTimer(nullptr, timer);
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    wchar_t text[64] = {};
    GetMenuStringW(menu, i, text, 64, MF_BYPOSITION);
    bool checked = GetMenuState(menu, i, MF_BYPOSITION) & MF_CHECKED;
    gEntries.push_back(std::wstring(text) + L" " + std::to_wstring(GetMenuItemID(menu, i)) + (checked ? L" checked" : L""));
  }
  for (int i = 0; i < gDowns; ++i) PostMessageW(menuWindow, WM_KEYDOWN, VK_DOWN, 0);
  PostMessageW(menuWindow, WM_KEYDOWN, VK_RETURN, 0);
}

TEST_F(IconStripTest, CollapsedTheMenuTurnsTheChosenItemOffAndAllOthersOn) {
  Make(true);
  AddThree();
  // The item that is off is the one checked, "None" when none is; the
  // choice turns every item on, locked ones too, and the chosen one off.
  const struct {
    int pick;
    std::vector<std::wstring> entries;
    std::vector<int> states;
  } visits[] = {
      {4, {L"None 0", L"Note 1144 checked", L"Recurring 1145", L"Reminder 1146"}, {kOn, kOn, kOff}},
      {1, {L"None 0", L"Note 1144", L"Recurring 1145", L"Reminder 1146 checked"}, {kOn, kOn, kOn}},
      {2, {L"None 0 checked", L"Note 1144", L"Recurring 1145", L"Reminder 1146"}, {kOff, kOn, kOn}},
  };
  for (const auto& visit : visits) {
    gEntries.clear(), gDowns = visit.pick;
    SetTimer(nullptr, 0, 50, ReadAndPick);
    Tap(8);
    test::Pump();  // the choice arrives as a posted command
    EXPECT_EQ(gEntries, visit.entries);
    EXPECT_EQ(States(), visit.states) << "after entry " << visit.pick;
  }
  EXPECT_EQ(parent_.log, std::vector<Logged>(3, kChanged)) << "opening the menu alone tells nothing";

  for (int outside : {kIconStripFirstItemCommand - 1, kIconStripFirstItemCommand + kIconStripMenuItems})
    SendMessageW(strip_, WM_COMMAND, outside, 0);
  EXPECT_EQ(States(), visits[2].states) << "commands outside ignored";
  SendMessageW(strip_, WM_COMMAND, kIconStripFirstItemCommand + 7, 0);  // no item there: all on
  EXPECT_EQ(States(), (std::vector<int>{kOn, kOn, kOn}));
}

// The tip with an item's name shows only while the stylus stays down, for
// 3.2 s at most, left of and above the tap.
TEST_F(IconStripTest, LooksRightAtBothDensitiesAndTipsTheItemHeld) {
  for (int dpi : {96, 192}) {
    gScreen.dpiX = gScreen.dpiY = dpi;
    FreeLibrary(pictures_);
    pictures_ = LoadLibraryW(dpi > 96 ? TW_LIBRARY_FOLDER L"\\HighDpiRes.dll" : TW_LIBRARY_FOLDER L"\\LowDpiRes.dll");
    test::RecordingParent parent(ScaleX(120), ScaleY(30), 40, 400);  // its strips go with it
    for (bool collapsed : {true, false}) {
      Make(collapsed, parent.window(), {ScaleX(collapsed ? 4 : 30), ScaleY(6)});
      AddThree();
    }
    AddIconStripItem(strip_, L"Link", false, Picture(IDT_LINK), 64);
    EXPECT_NE(test::SaveScreenshot(L"icon-strip-" + std::to_wstring(dpi), parent.window()), L"");
    EXPECT_TRUE(test::CheckLayout(parent.window()).empty());
    tools::Capture shot = test::Shot(strip_);
    EXPECT_EQ(shot.width, ScaleX(1 + 4 * 16));
    EXPECT_EQ(test::PixelAt(shot, ScaleX(2), shot.height - ScaleY(2)), RGB(80, 90, 170)) << "Note is off";
    EXPECT_EQ(test::PixelAt(shot, ScaleX(18), shot.height - ScaleY(2)), RGB(243, 243, 243)) << "Recurring is on";
    EXPECT_EQ(test::PixelAt(shot, ScaleX(16), ScaleY(8)), RGB(20, 20, 50)) << "between the cells";
    if (dpi == 96) {
      Tap(20);
      EXPECT_FALSE(test::WaitFor([] { return VisibleTip() != nullptr; }, 600)) << "a quick tap shows no tip";
      EXPECT_EQ(FindWindowW(kToolTipClass, nullptr), nullptr);
    }
    DWORD pressed = GetTickCount();
    Press(20);
    ASSERT_TRUE(test::WaitFor([] { return VisibleTip() != nullptr; }, 2000));
    EXPECT_GE(GetTickCount() - pressed, 300u);
    EXPECT_NE(test::SaveScreenshot(L"tool-tip-" + std::to_wstring(dpi), VisibleTip()), L"");
    if (dpi == 96) {
      wchar_t text[32] = {};
      GetWindowTextW(VisibleTip(), text, 32);
      EXPECT_STREQ(text, L"Recurring");
      RECT area, strip;
      GetWindowRect(VisibleTip(), &area);
      GetWindowRect(strip_, &strip);
      EXPECT_EQ(area.right, strip.left + 20 - 2) << "ends left of the tap";
      EXPECT_EQ(area.bottom, strip.top + 8 - 2) << "ends above the tap";
      EXPECT_TRUE(test::WaitFor([] { return FindWindowW(kToolTipClass, nullptr) == nullptr; }, 4000))
          << "gone after 3.2 s though the stylus stays";
      Release(20);
      Press(8);
      ASSERT_TRUE(test::WaitFor([] { return VisibleTip() != nullptr; }, 2000));
    }
    Release(20);
    EXPECT_EQ(FindWindowW(kToolTipClass, nullptr), nullptr) << "lifting the stylus ends it";
  }
}

}  // namespace
}  // namespace tw
