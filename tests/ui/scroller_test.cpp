// The scroller as its parent sees it: what it asks the parent to draw, what
// it reports of presses, and where the content stands after arrows, thumb
// and track have been used, with the real timers running.
#include <gtest/gtest.h>

#include <windowsx.h>

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "base/scaling.h"
#include "controls/scroller.h"
#include "tests/ui/app_harness.h"
#include "tests/ui/layout_check.h"
#include "tests/ui/recording_parent.h"

namespace tw {
namespace {

using test::Logged;

// A 120 x 200 scroller: the bar column is x 107..120, the up arrow y 2..12
// and the down arrow y 187..199.
constexpr int kWidth = 120, kHeight = 200;
constexpr int kBarX = 113, kUpArrowY = 6, kDownArrowY = 193;

class ScrollerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    gScreen.dpiX = gScreen.dpiY = 96;
    pictures_ = LoadLibraryW(TW_PROGRAM_RESOURCES);
  }
  void TearDown() override {
    if (scroller_) DestroyWindow(scroller_);
    FreeLibrary(pictures_);
  }

  HWND Make(int contentHeight, ScrollerOptions options = {}) {
    parent_.contentHeight = contentHeight;
    options.pictures = pictures_;
    scroller_ = CreateScroller(GetModuleHandleW(nullptr), parent_.window(), {0, 0, kWidth, kHeight},
                               L"TwTestScroller", options);
    EXPECT_NE(scroller_, nullptr);
    parent_.drawnFrom.clear();
    return scroller_;
  }
  void Press(int x, int y) { SendMessageW(scroller_, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y)); }
  void Move(int x, int y) { SendMessageW(scroller_, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, y)); }
  void Release(int x, int y) { SendMessageW(scroller_, WM_LBUTTONUP, 0, MAKELPARAM(x, y)); }
  void Tap(int x, int y) {
    Press(x, y);
    Release(x, y);
  }
  // Lets the timers run for a while.
  static void Wait(int milliseconds) {
    DWORD end = GetTickCount() + milliseconds;
    while (static_cast<int>(end - GetTickCount()) > 0) {
      test::Pump();
      Sleep(5);
    }
  }
  int Position() const { return ScrollerPosition(scroller_); }
  void ScrollTo(int position) {
    SetScrollerPosition(scroller_, position);
    UpdateWindow(scroller_);
  }

  test::RecordingParent parent_{240, 320};
  HMODULE pictures_ = nullptr;
  HWND scroller_ = nullptr;
};

TEST_F(ScrollerTest, ContentThatFitsShowsNoBarAndPressesGoToTheParent) {
  Make(150);
  parent_.Settle();
  tools::Capture shot = parent_.Shot(scroller_);
  // Row 7 (from y 140) is the last one; below it the parent paints white.
  for (int y : {kUpArrowY, 100, kDownArrowY})
    EXPECT_EQ(test::PixelAt(shot, kBarX, y), test::PixelAt(shot, 60, y)) << "bar drawn at y " << y;

  Tap(kBarX, kDownArrowY);
  Tap(kBarX, kUpArrowY);
  Move(kBarX, 50);
  Move(20, 50);
  std::vector<Logged> expected = {{kScrollerPressed, 0, MAKELPARAM(kBarX, kDownArrowY)},
                                  {kScrollerPressed, 0, MAKELPARAM(kBarX, kUpArrowY)},
                                  {WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(20, 50)}};
  EXPECT_EQ(parent_.log, expected) << "releases and moves in the bar column stay with the scroller";
  EXPECT_EQ(Position(), 0);
}

TEST_F(ScrollerTest, ContentThatShrinksPullsTheViewBack) {
  Make(1000);
  ScrollTo(700);
  EXPECT_EQ(parent_.drawnFrom, (std::vector<int>{700}));

  parent_.contentHeight = 300;
  parent_.drawnFrom.clear();
  InvalidateRect(scroller_, nullptr, FALSE);
  UpdateWindow(scroller_);
  EXPECT_EQ(parent_.drawnFrom, (std::vector<int>{700, 100})) << "asked again from content height - client height";
  EXPECT_EQ(Position(), 100);

  parent_.contentHeight = 120;
  parent_.drawnFrom.clear();
  InvalidateRect(scroller_, nullptr, FALSE);
  UpdateWindow(scroller_);
  EXPECT_EQ(parent_.drawnFrom, (std::vector<int>{100, 0})) << "never above the top";
}

std::string Box(const RECT& box) {
  char text[48];
  std::snprintf(text, sizeof text, "(%ld, %ld)-(%ld, %ld)", box.left, box.top, box.right, box.bottom);
  return text;
}
std::vector<std::string> Boxes(const std::vector<RECT>& clips) {
  std::vector<std::string> boxes;
  for (const RECT& clip : clips) boxes.push_back(Box(clip));
  return boxes;
}
// Full-width bands from top to bottom (not included).
std::vector<std::string> Bands(std::initializer_list<std::pair<int, int>> topsAndBottoms) {
  std::vector<std::string> bands;
  for (auto [top, bottom] : topsAndBottoms) bands.push_back(Box({0, top, kWidth, bottom}));
  return bands;
}

// Rows still in view move along; the parent draws only the band that comes
// in, yet the window shows what a full paint at the new place shows.
TEST_F(ScrollerTest, AScrollStepMovesTheRowsInViewAndAsksOnlyForTheNewBand) {
  for (bool barOnLeft : {false, true}) {
    ScrollerOptions options;
    options.barOnLeft = barOnLeft;
    Make(1000, options);
    int barX = barOnLeft ? 7 : kBarX;
    ScrollTo(300);
    parent_.drawnClips.clear();
    ScrollTo(310);
    ScrollTo(293);
    Tap(barX, kDownArrowY);  // coasts on by 8, 6 and 3
    EXPECT_EQ(Boxes(parent_.drawnClips), Bands({{190, 200}, {0, 17}, {192, 200}, {194, 200}, {197, 200}}));
    EXPECT_EQ(Position(), 310);
    parent_.Settle();
    tools::Capture stepped = parent_.Shot(scroller_);

    parent_.drawnClips.clear();
    InvalidateRect(scroller_, nullptr, FALSE);
    parent_.Settle();
    EXPECT_EQ(Boxes(parent_.drawnClips), Bands({{0, kHeight}})) << "a paint asks for everything";
    tools::Capture full = parent_.Shot(scroller_);
    EXPECT_TRUE(stepped.rows == full.rows) << (barOnLeft ? "bar on the left" : "bar on the right");

    parent_.drawnClips.clear();
    Tap(barX, 150);  // the press shows the pressed track, the release a page further on
    EXPECT_EQ(Boxes(parent_.drawnClips), Bands({{0, kHeight}, {0, kHeight}}));
    DestroyWindow(scroller_);
  }
  scroller_ = nullptr;
}

TEST_F(ScrollerTest, TwoQuickArrowPressesJumpToThatEnd) {
  ScrollerOptions fast;
  fast.fastJump = true;
  Make(1000, fast);
  Tap(kBarX, kDownArrowY);
  Tap(kBarX, kDownArrowY);
  EXPECT_EQ(Position(), 800) << "the end of the content";
  Wait(150);
  Tap(kBarX, kUpArrowY);
  Tap(kBarX, kUpArrowY);
  EXPECT_EQ(Position(), 0);

  // 200 ms apart, each press only starts the repeat and its release coasts on.
  Tap(kBarX, kDownArrowY);
  Wait(200);
  Tap(kBarX, kDownArrowY);
  EXPECT_EQ(Position(), 2 * (8 + 6 + 3));
  EXPECT_TRUE(parent_.log.empty());
}

TEST_F(ScrollerTest, AnArrowHeldDownRepeatsAndWithoutFastJumpNeverJumps) {
  Make(1000);
  Press(kBarX, kDownArrowY);
  Wait(300);
  int repeated = Position();
  EXPECT_GE(repeated, 20) << "a step of 10 every 70 ms";
  EXPECT_EQ(repeated % 10, 0);
  Release(kBarX, kDownArrowY);
  EXPECT_EQ(Position(), repeated + 8 + 6 + 3) << "coasting on after the release";

  Tap(kBarX, kDownArrowY);
  Tap(kBarX, kDownArrowY);
  EXPECT_EQ(Position(), repeated + 3 * 17);
}

TEST_F(ScrollerTest, CoastingStopsAtEitherEnd) {
  Make(1000);
  ScrollTo(790);
  Tap(kBarX, kDownArrowY);
  EXPECT_EQ(Position(), 800);
  ScrollTo(10);
  Tap(kBarX, kUpArrowY);
  EXPECT_EQ(Position(), 0);
  // Arrows that cannot move do nothing, not even coast.
  Tap(kBarX, kUpArrowY);
  EXPECT_EQ(Position(), 0);
  EXPECT_TRUE(parent_.log.empty());
}

TEST_F(ScrollerTest, DraggingTheThumbFollowsTheStylusAndAboveTheWindowCountsAsTheTop) {
  Make(1000);
  // Half way, the 12-pixel thumb sits in the middle of its travel (14..186): y 94..106.
  ScrollTo(400);
  Press(kBarX, 100);
  Move(kBarX, 120);
  EXPECT_EQ(Position(), 500) << "20 of 160 pixels of travel move an eighth of 800";
  Move(kBarX, 120);
  EXPECT_EQ(Position(), 500);
  // Above the top edge while captured: y arrives as 65506, which must count as 0.
  Move(kBarX, -30);
  EXPECT_EQ(Position(), 0);
  Move(kBarX, 100);
  EXPECT_EQ(Position(), 500);
  Move(10, 100);  // leaving the bar column ends the drag
  Move(kBarX, 150);
  EXPECT_EQ(Position(), 500);
  Release(kBarX, 150);
  EXPECT_TRUE(parent_.log.empty());
}

TEST_F(ScrollerTest, TouchingTheTrackPagesOnRelease) {
  Make(1000);
  Press(kBarX, 150);  // below the thumb at 14..26
  EXPECT_EQ(Position(), 0) << "the page moves only when the stylus lifts";
  Release(kBarX, 150);
  EXPECT_EQ(Position(), 200);
  Tap(kBarX, 30);  // above the thumb, now at 54..66
  EXPECT_EQ(Position(), 0);
  ScrollTo(700);
  Tap(kBarX, 180);  // below the thumb at 154..166, with only 100 left to go
  EXPECT_EQ(Position(), 800) << "a page past the end stops at the end";
}

TEST_F(ScrollerTest, PressesReportTheFirstHitBandHoldingThem) {
  Make(1000);
  AddScrollerHitBand(scroller_, {7, 0, 19});
  AddScrollerHitBand(scroller_, {8, 20, 39});
  AddScrollerHitBand(scroller_, {9, 30, 59});
  for (int y : {19, 35, 59, 60}) Tap(20, y);
  ClearScrollerHitBands(scroller_);
  Tap(20, 0);
  std::vector<Logged> expected = {
      {kScrollerPressed, 7, MAKELPARAM(20, 19)}, {WM_LBUTTONUP, 0, MAKELPARAM(20, 19)},
      {kScrollerPressed, 8, MAKELPARAM(20, 35)}, {WM_LBUTTONUP, 0, MAKELPARAM(20, 35)},
      {kScrollerPressed, 9, MAKELPARAM(20, 59)}, {WM_LBUTTONUP, 0, MAKELPARAM(20, 59)},
      {kScrollerPressed, 0, MAKELPARAM(20, 60)}, {WM_LBUTTONUP, 0, MAKELPARAM(20, 60)},
      {kScrollerPressed, 0, MAKELPARAM(20, 0)},  {WM_LBUTTONUP, 0, MAKELPARAM(20, 0)},
  };
  EXPECT_EQ(parent_.log, expected);
}

TEST_F(ScrollerTest, WithoutTheBarOnlyArrowsThatCanMoveShow) {
  ScrollerOptions arrowsOnly;
  arrowsOnly.showBar = false;
  Make(1000, arrowsOnly);
  parent_.Settle();
  tools::Capture top = parent_.Shot(scroller_);
  EXPECT_EQ(test::PixelAt(top, kBarX, kUpArrowY), test::PixelAt(top, 60, kUpArrowY)) << "no up arrow at the top";
  EXPECT_NE(test::PixelAt(top, kBarX, kDownArrowY), test::PixelAt(top, 60, kDownArrowY)) << "a down arrow";
  EXPECT_EQ(test::PixelAt(top, kBarX, 100), test::PixelAt(top, 60, 100)) << "no track";

  Tap(kBarX, 100);  // no track to page with: the content's
  EXPECT_EQ(parent_.log.front(), (Logged{kScrollerPressed, 0, MAKELPARAM(kBarX, 100)}));
}

TEST_F(ScrollerTest, ANewSizeStartsAtTheTop) {
  Make(1000);
  ScrollTo(300);
  MoveWindow(scroller_, 10, 10, kWidth, kHeight + 40, TRUE);
  EXPECT_EQ(Position(), 0);
  ScrollTo(300);
  MoveWindow(scroller_, 20, 20, kWidth, kHeight + 40, TRUE);
  EXPECT_EQ(Position(), 300) << "a move alone keeps the place";
  parent_.Settle();
  tools::Capture shot = parent_.Shot(scroller_);
  EXPECT_NE(test::PixelAt(shot, kBarX, kHeight + 40 - 7), test::PixelAt(shot, 60, kHeight + 40 - 7))
      << "the down arrow at the new bottom";
}

TEST_F(ScrollerTest, LeavesNoGraphicsObjectsBehind) {
  Make(1000);
  DestroyWindow(scroller_);
  int before = test::CountGdiObjects();
  for (int i = 0; i < 100; ++i) {
    Make(1000);
    ScrollTo(i * 7);
    Tap(kBarX, 150);
    DestroyWindow(scroller_);
  }
  scroller_ = nullptr;
  EXPECT_GT(before, 0) << "objects are counted";
  EXPECT_LE(test::CountGdiObjects(), before + 2);
}

// Pictures at both densities, with the bar on either side.
TEST_F(ScrollerTest, LooksRightAtBothDensities) {
  for (int dpi : {96, 192}) {
    gScreen.dpiX = gScreen.dpiY = dpi;
    HMODULE pictures = LoadLibraryW(dpi > 96 ? TW_LIBRARY_FOLDER L"\\HighDpiRes.dll"
                                             : TW_LIBRARY_FOLDER L"\\LowDpiRes.dll");
    test::RecordingParent parent(ScaleX(240), ScaleY(220), 300, 40);
    parent.contentHeight = 2000;
    ScrollerOptions right, left;
    right.pictures = left.pictures = pictures;
    left.barOnLeft = true;
    HINSTANCE instance = GetModuleHandleW(nullptr);
    HWND a = CreateScroller(instance, parent.window(), {ScaleX(4), ScaleY(10), ScaleX(116), ScaleY(210)},
                            L"TwTestScroller", right);
    HWND b = CreateScroller(instance, parent.window(), {ScaleX(124), ScaleY(10), ScaleX(236), ScaleY(210)},
                            L"TwTestScroller", left);
    SetScrollerPosition(a, 600);
    std::wstring path = parent.Save(L"scroller-" + std::to_wstring(dpi));
    EXPECT_TRUE(test::CheckLayout(parent.window()).empty());
    tools::Capture shot = parent.Shot(a);
    EXPECT_NE(test::PixelAt(shot, ScaleX(104), ScaleY(100)), test::PixelAt(shot, ScaleX(50), ScaleY(100)))
        << "track at " << dpi << " dpi";
    DestroyWindow(a);
    DestroyWindow(b);
    FreeLibrary(pictures);
    printf("screenshot %ls\n", path.c_str());
  }
  gScreen.dpiX = gScreen.dpiY = 96;
}

}  // namespace
}  // namespace tw
