// The scroller as its parent sees it: what it asks the parent to draw, what
// it reports of presses, and where the content stands after arrows, thumb
// and track have been used, with the real timers running.
#include <gtest/gtest.h>

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
using test::PixelAt;

// A 120 x 200 scroller: the bar column is x 107..120, the up arrow y 2..12
// and the down arrow y 187..199. A quick arrow tap coasts 8, 6 and 3.
constexpr int kWidth = 120, kHeight = 200;
constexpr int kBarX = 113, kUp = 6, kDown = 193, kTap = 8 + 6 + 3;
using Band = std::pair<LONG, LONG>;

class ScrollerTest : public ::testing::Test {
 protected:
  void SetUp() override { gScreen.dpiX = gScreen.dpiY = 96; }
  void TearDown() override { DestroyWindow(scroller_), FreeLibrary(pictures_); }

  void Make(int contentHeight, ScrollerOptions options = {}) {
    DestroyWindow(scroller_);
    parent_.contentHeight = contentHeight;
    options.pictures = pictures_;
    scroller_ = CreateScroller(GetModuleHandleW(nullptr), parent_.window(), {0, 0, kWidth, kHeight},
                               L"TwTestScroller", options);
    ASSERT_NE(scroller_, nullptr);
  }
  void Press(int x, int y) { SendMessageW(scroller_, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y)); }
  void Move(int x, int y) { SendMessageW(scroller_, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, y)); }
  void Release(int x, int y) { SendMessageW(scroller_, WM_LBUTTONUP, 0, MAKELPARAM(x, y)); }
  void Tap(int x, int y) { Press(x, y), Release(x, y); }
  static void Wait(int milliseconds) {
    for (DWORD end = GetTickCount() + milliseconds; static_cast<int>(end - GetTickCount()) > 0; Sleep(5)) test::Pump();
  }
  int Position() const { return ScrollerPosition(scroller_); }
  void ScrollTo(int position) { SetScrollerPosition(scroller_, position), UpdateWindow(scroller_); }
  void Repaint() {
    parent_.drawnFrom.clear(), parent_.drawnClips.clear();
    InvalidateRect(scroller_, nullptr, FALSE), UpdateWindow(scroller_);
  }
  // The clip boxes the parent was asked to draw into, as (top, bottom) of
  // full-width bands; anything narrower shows as (-1, -1).
  std::vector<Band> Bands() const {
    std::vector<Band> bands;
    for (const RECT& clip : parent_.drawnClips) bands.push_back(clip.left || clip.right != kWidth ? Band(-1, -1) : Band(clip.top, clip.bottom));
    return bands;
  }

  test::RecordingParent parent_{240, 320};
  HMODULE pictures_ = LoadLibraryW(TW_PROGRAM_RESOURCES);
  HWND scroller_ = nullptr;
};

// Content that fits shows no bar and passes presses on; content that
// shrinks pulls the view back, the paint that finds it shorter asking again
// from the new limit.
TEST_F(ScrollerTest, ContentThatFitsShowsNoBarAndShrinkingContentPullsTheViewBack) {
  Make(150);
  tools::Capture shot = test::Shot(scroller_);
  for (int y : {kUp, 100, kDown}) EXPECT_EQ(PixelAt(shot, kBarX, y), PixelAt(shot, 60, y)) << "bar drawn at y " << y;
  Tap(kBarX, kDown);
  Tap(kBarX, kUp);
  Move(kBarX, 50);
  Move(20, 50);
  std::vector<Logged> expected = {{kScrollerPressed, 0, MAKELPARAM(kBarX, kDown)},
                                  {kScrollerPressed, 0, MAKELPARAM(kBarX, kUp)},
                                  {WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(20, 50)}};
  EXPECT_EQ(parent_.log, expected) << "releases and moves in the bar column stay with the scroller";
  EXPECT_EQ(Position(), 0);
  Make(1000);
  ScrollTo(700);
  for (auto [content, drawnFrom] : {std::pair{300, std::vector{700, 100}}, std::pair{120, std::vector{100, 0}}}) {
    parent_.contentHeight = content;
    Repaint();
    EXPECT_EQ(parent_.drawnFrom, drawnFrom) << "content " << content;
  }
}

// Rows still in view move along; the parent draws only the band that comes
// in, yet the window shows what a full paint at the new place shows.
TEST_F(ScrollerTest, AScrollStepMovesTheRowsInViewAndAsksOnlyForTheNewBand) {
  for (bool barOnLeft : {false, true}) {
    SCOPED_TRACE(barOnLeft ? "bar on the left" : "bar on the right");
    ScrollerOptions options;
    options.barOnLeft = barOnLeft;
    Make(1000, options);
    int barX = barOnLeft ? 7 : kBarX;
    ScrollTo(300);
    parent_.drawnClips.clear();
    ScrollTo(310);
    ScrollTo(293);
    Tap(barX, kDown);
    EXPECT_EQ(Bands(), (std::vector<Band>{{190, 200}, {0, 17}, {192, 200}, {194, 200}, {197, 200}}));
    EXPECT_EQ(Position(), 310);
    tools::Capture stepped = test::Shot(scroller_);
    Repaint();
    EXPECT_EQ(Bands(), (std::vector<Band>{{0, kHeight}})) << "a paint asks for everything";
    EXPECT_TRUE(stepped.rows == test::Shot(scroller_).rows);
  }
}

TEST_F(ScrollerTest, AnArrowHeldDownRepeatsThenCoasts) {
  Make(1000);
  Press(kBarX, kDown);
  Wait(300);
  int repeated = Position();
  EXPECT_GE(repeated, 20) << "a step of 10 every 70 ms";
  EXPECT_EQ(repeated % 10, 0);
  Release(kBarX, kDown);
  EXPECT_EQ(Position(), repeated + kTap) << "coasting on after the release";
}

// Two taps on an arrow, `apart` ms apart: each coasts, stopping at the ends
// (an arrow that cannot move does not even coast); with fast jump, two
// within 110 ms jump to that end.
TEST_F(ScrollerTest, ArrowTapsCoastStopAtTheEndsAndJumpWhenQuick) {
  const struct { bool fastJump; int from, y, apart, to; } cases[] = {
      {false, 0, kDown, 0, 2 * kTap}, {false, 790, kDown, 0, 800}, {false, 10, kUp, 0, 0}, {false, 0, kUp, 0, 0},
      {true, 0, kDown, 0, 800},       {true, 500, kUp, 0, 0},      {true, 0, kDown, 200, 2 * kTap}};
  for (const auto& c : cases) {
    ScrollerOptions options;
    options.fastJump = c.fastJump;
    Make(1000, options);
    ScrollTo(c.from);
    Tap(kBarX, c.y);
    Wait(c.apart);
    Tap(kBarX, c.y);
    EXPECT_EQ(Position(), c.to) << "fast jump " << c.fastJump << ", from " << c.from << ", " << c.apart << " ms apart";
  }
  EXPECT_TRUE(parent_.log.empty());
}

// The thumb follows the stylus: 20 of 160 pixels of travel move an eighth
// of 800; above the top edge y arrives as 65506, which counts as 0; leaving
// the bar column ends the drag. The track pages when the stylus lifts, and
// a page past an end stops there.
TEST_F(ScrollerTest, TheThumbFollowsTheStylusAndTheTrackPagesOnRelease) {
  Make(1000);
  ScrollTo(400);  // the 12-pixel thumb sits half way along its travel 14..186: y 94..106
  Press(kBarX, 100);
  const struct { int x, y, position; } moves[] = {
      {kBarX, 120, 500}, {kBarX, 120, 500}, {kBarX, -30, 0}, {kBarX, 100, 500}, {10, 100, 500}, {kBarX, 150, 500}};
  for (const auto& m : moves) {
    Move(m.x, m.y);
    EXPECT_EQ(Position(), m.position) << "moved to " << m.x << ", " << m.y;
  }
  Release(kBarX, 150);
  ScrollTo(0);
  Press(kBarX, 150);
  EXPECT_EQ(Position(), 0) << "the page moves only when the stylus lifts";
  Release(kBarX, 150);
  const struct { int from, y, to; } taps[] = {{200, 30, 0}, {0, 150, 200}, {700, 180, 800}, {100, 30, 0}};
  for (const auto& c : taps) {
    ScrollTo(c.from);
    Tap(kBarX, c.y);
    EXPECT_EQ(Position(), c.to) << "from " << c.from << " touching y " << c.y;
  }
  EXPECT_TRUE(parent_.log.empty());
}

TEST_F(ScrollerTest, PressesReportTheFirstHitBandHoldingThem) {
  Make(1000);
  AddScrollerHitBand(scroller_, {7, 0, 19});
  AddScrollerHitBand(scroller_, {8, 20, 39});
  AddScrollerHitBand(scroller_, {9, 30, 59});
  std::vector<Logged> expected;
  for (auto [y, band] : std::initializer_list<std::pair<int, int>>{{19, 7}, {35, 8}, {59, 9}, {60, 0}, {0, 0}}) {
    if (y == 0) ClearScrollerHitBands(scroller_);
    Tap(20, y);
    expected.insert(expected.end(), {{kScrollerPressed, WPARAM(band), MAKELPARAM(20, y)}, {WM_LBUTTONUP, 0, MAKELPARAM(20, y)}});
  }
  EXPECT_EQ(parent_.log, expected);
}

TEST_F(ScrollerTest, WithoutTheBarOnlyArrowsThatCanMoveShow) {
  ScrollerOptions arrowsOnly;
  arrowsOnly.showBar = false;
  Make(1000, arrowsOnly);
  tools::Capture top = test::Shot(scroller_);
  EXPECT_EQ(PixelAt(top, kBarX, kUp), PixelAt(top, 60, kUp)) << "no up arrow at the top";
  EXPECT_NE(PixelAt(top, kBarX, kDown), PixelAt(top, 60, kDown)) << "a down arrow";
  EXPECT_EQ(PixelAt(top, kBarX, 100), PixelAt(top, 60, 100)) << "no track";
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
  tools::Capture shot = test::Shot(scroller_);
  EXPECT_NE(PixelAt(shot, kBarX, kHeight + 33), PixelAt(shot, 60, kHeight + 33)) << "the down arrow at the new bottom";
}

TEST_F(ScrollerTest, LeavesNoGraphicsObjectsBehind) {
  Make(1000);
  DestroyWindow(scroller_);
  scroller_ = nullptr;
  int before = test::CountGdiObjects();
  for (int i = 0; i < 100; ++i) {
    Make(1000);
    ScrollTo(i * 7);
    Tap(kBarX, 150);
  }
  DestroyWindow(scroller_);
  scroller_ = nullptr;
  EXPECT_GT(before, 0) << "objects are counted";
  EXPECT_LE(test::CountGdiObjects(), before + 2);
}

TEST_F(ScrollerTest, LooksRightAtBothDensities) {
  for (int dpi : {96, 192}) {
    gScreen.dpiX = gScreen.dpiY = dpi;
    FreeLibrary(pictures_);
    pictures_ = LoadLibraryW(dpi > 96 ? TW_LIBRARY_FOLDER L"\\HighDpiRes.dll" : TW_LIBRARY_FOLDER L"\\LowDpiRes.dll");
    test::RecordingParent parent(ScaleX(240), ScaleY(220), 300, 40);  // its scrollers go with it
    parent.contentHeight = 2000;
    HWND scrollers[2];
    for (bool left : {false, true}) {
      ScrollerOptions options;
      options.pictures = pictures_;
      options.barOnLeft = left;
      scrollers[left] = CreateScroller(GetModuleHandleW(nullptr), parent.window(),
                                       {ScaleX(left ? 124 : 4), ScaleY(10), ScaleX(left ? 236 : 116), ScaleY(210)},
                                       L"TwTestScroller", options);
    }
    SetScrollerPosition(scrollers[0], 600);
    EXPECT_NE(test::SaveScreenshot(L"scroller-" + std::to_wstring(dpi), parent.window()), L"");
    EXPECT_TRUE(test::CheckLayout(parent.window()).empty());
    tools::Capture shot = test::Shot(scrollers[0]);
    EXPECT_NE(PixelAt(shot, ScaleX(104), ScaleY(100)), PixelAt(shot, ScaleX(50), ScaleY(100))) << "track at " << dpi;
  }
  gScreen.dpiX = gScreen.dpiY = 96;
}

}  // namespace
}  // namespace tw
