// The scroller as its parent sees it: what it asks the parent to draw, what
// it reports of presses, and where the content stands after arrows, thumb
// and track have been used, with the real timers running.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "base/scaling.h"
#include "controls/scroller.h"
#include "pages/category_list_view.h"
#include "tests/ui/app_harness.h"
#include "tests/ui/layout_check.h"
#include "tests/ui/recording_parent.h"

namespace tw {
namespace {

using test::Logged;

// A 120 x 200 scroller: the bar column is x 107..120, the up arrow y 2..12
// and the down arrow y 187..199. A quick arrow tap coasts 8, 6 and 3.
constexpr int kWidth = 120, kHeight = 200;
constexpr int kBarX = 113, kUp = 6, kDown = 193, kTap = 8 + 6 + 3;
using Band = std::pair<LONG, LONG>;

class ScrollerTest : public ::testing::Test {
 protected:
  void SetUp() override { gScreen.dpiX = gScreen.dpiY = 96; }
  void TearDown() override { DestroyWindow(scroller_), FreeLibrary(pictures_); }

  void Make(int contentHeight, ScrollerOptions options = {}, HWND parent = nullptr) {
    DestroyWindow(scroller_);
    parent_.contentHeight = contentHeight;
    options.pictures = pictures_;
    scroller_ = CreateScroller(GetModuleHandleW(nullptr), parent ? parent : parent_.window(),
                               {0, 0, kWidth, kHeight}, L"TwTestScroller", options);
    ASSERT_NE(scroller_, nullptr);
  }
  void Send(UINT message, int x, int y) { SendMessageW(scroller_, message, message != WM_LBUTTONUP, MAKELPARAM(x, y)); }
  void Tap(int x, int y) { Send(WM_LBUTTONDOWN, x, y), Send(WM_LBUTTONUP, x, y); }
  static void Wait(int milliseconds) {
    for (DWORD end = GetTickCount() + milliseconds; static_cast<int>(end - GetTickCount()) > 0; Sleep(5)) test::Pump();
  }
  int Position() const { return ScrollerPosition(scroller_); }
  void ScrollTo(int position) { SetScrollerPosition(scroller_, position), UpdateWindow(scroller_); }
  // What the steps so far show equals what a full paint shows.
  void ExpectStepsPaintAsAFullPaint() {
    tools::Capture stepped = test::Shot(scroller_);
    parent_.drawnFrom.clear(), parent_.drawnClips.clear();
    InvalidateRect(scroller_, nullptr, FALSE), UpdateWindow(scroller_);
    EXPECT_TRUE(stepped.rows == test::Shot(scroller_).rows) << "at " << Position();
  }
  // The clip boxes the parent drew into, as (top, bottom); (-1, -1) if not full width.
  std::vector<Band> Bands() const {
    std::vector<Band> bands;
    for (const RECT& clip : parent_.drawnClips) bands.push_back(clip.left || clip.right != kWidth ? Band(-1, -1) : Band(clip.top, clip.bottom));
    return bands;
  }
  static bool BarShows(const tools::Capture& shot, int y) { return test::PixelAt(shot, kBarX, y) != test::PixelAt(shot, 60, y); }

  test::RecordingParent parent_{240, 320};
  HMODULE pictures_ = LoadLibraryW(TW_PROGRAM_RESOURCES);
  HWND scroller_ = nullptr;
};

// Content that fits shows no bar; without the bar only the arrows that can
// move show. Presses where nothing of the bar shows go to the parent with
// the first hit band holding them; releases and moves in the bar column
// stay with the scroller.
TEST_F(ScrollerTest, PressesWhereNoBarShowsGoToTheParentWithTheirBand) {
  Make(150);
  for (int y : {kUp, 100, kDown}) EXPECT_FALSE(BarShows(test::Shot(scroller_), y)) << "bar drawn at y " << y;
  for (ScrollerHitBand band : {ScrollerHitBand{7, 0, 19}, {8, 20, 39}, {9, 30, 59}}) AddScrollerHitBand(scroller_, band);
  Tap(kBarX, kDown), Send(WM_MOUSEMOVE, kBarX, 50), Send(WM_MOUSEMOVE, 20, 50);
  std::vector<Logged> expected = {{kScrollerPressed, 0, MAKELPARAM(kBarX, kDown)},
                                  {WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(20, 50)}};
  for (auto [y, band] : std::initializer_list<std::pair<int, int>>{{19, 7}, {35, 8}, {59, 9}, {60, 0}, {0, 0}}) {
    if (y == 0) ClearScrollerHitBands(scroller_);
    Tap(20, y);
    expected.insert(expected.end(), {{kScrollerPressed, WPARAM(band), MAKELPARAM(20, y)}, {WM_LBUTTONUP, 0, MAKELPARAM(20, y)}});
  }
  EXPECT_EQ(parent_.log, expected);
  EXPECT_EQ(Position(), 0);
  ScrollerOptions arrowsOnly;
  arrowsOnly.showBar = false;
  Make(1000, arrowsOnly);
  tools::Capture shot = test::Shot(scroller_);
  EXPECT_TRUE(!BarShows(shot, kUp) && BarShows(shot, kDown) && !BarShows(shot, 100)) << "the down arrow alone";
  parent_.log.clear();
  Tap(kBarX, 100);  // no track to page with: the content's
  EXPECT_EQ(parent_.log, (std::vector<Logged>{{kScrollerPressed, 0, MAKELPARAM(kBarX, 100)}}));
}

// Rows still in view move along; the parent draws only the band that comes
// in, yet the window shows what a full paint at the new place shows. Content
// that shrinks pulls the view back, the paint that finds it shorter asking
// again from the new limit.
TEST_F(ScrollerTest, AScrollStepAsksOnlyForTheNewBandAndShrinkingContentPullsTheViewBack) {
  for (bool barOnLeft : {false, true}) {
    SCOPED_TRACE(barOnLeft ? "bar on the left" : "bar on the right");
    ScrollerOptions options;
    options.barOnLeft = barOnLeft;
    Make(1000, options);
    ScrollTo(300);
    parent_.drawnClips.clear();
    ScrollTo(310), ScrollTo(293), Tap(barOnLeft ? 7 : kBarX, kDown);
    EXPECT_EQ(Bands(), (std::vector<Band>{{190, 200}, {0, 17}, {192, 200}, {194, 200}, {197, 200}}));
    EXPECT_EQ(Position(), 310);
    ExpectStepsPaintAsAFullPaint();
    EXPECT_EQ(Bands(), (std::vector<Band>{{0, kHeight}})) << "a paint asks for everything";
  }
  ScrollTo(700);
  for (auto [content, drawnFrom] : {std::pair{300, std::vector{700, 100}}, std::pair{120, std::vector{100, 0}}}) {
    parent_.contentHeight = content;
    parent_.drawnFrom.clear();
    InvalidateRect(scroller_, nullptr, FALSE), UpdateWindow(scroller_);
    EXPECT_EQ(parent_.drawnFrom, drawnFrom) << "content " << content;
  }
}

// The categories view's rows behind a scroller: steps copy rows drawn whole
// earlier, which must show what a full paint shows, also after a row changed.
TEST_F(ScrollerTest, CategoryRowsStepAsAFullPaintShowsThem) {
  static CategoryRowPainter* painter = nullptr;
  WNDCLASSW type = {};
  type.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
    if (message == kScrollerDrawContent && painter) return painter->Paint(reinterpret_cast<HDC>(wParam));
    return DefWindowProcW(window, message, wParam, lParam);
  };
  type.hInstance = GetModuleHandleW(nullptr);
  type.lpszClassName = L"TwTestCategories";
  RegisterClassW(&type);
  HWND parent = CreateWindowExW(0, type.lpszClassName, L"", WS_POPUP | WS_VISIBLE, 40, 40, 240, 320, nullptr,
                                nullptr, type.hInstance, nullptr);
  CategoryList categories;
  for (int i = 0; i < 40; ++i) {
    categories.entries.emplace_back().name.Format(u"Category %d", i);
    if (i % 3) categories.entries.back().color = RGB(i * 6, 80, 160);
  }
  Make(0, {}, parent);
  CategoryRowPainter rows(scroller_, categories, static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)));
  painter = &rows;
  for (int position = 5; position <= 115; position += 10) ScrollTo(position);
  ExpectStepsPaintAsAFullPaint();
  categories.entries[13].color = RGB(200, 0, 0);  // row 13, held, shows its top edge alone
  InvalidateRect(scroller_, nullptr, FALSE), UpdateWindow(scroller_);
  ScrollTo(135);  // and now its swatch
  ExpectStepsPaintAsAFullPaint();
  DestroyWindow(parent);  // the scroller goes before the painter whose pen it holds
  scroller_ = nullptr, painter = nullptr;
}

// Held, an arrow repeats, then coasts. Tapped twice, `apart` ms apart, each
// tap coasts, stopping at the ends (an arrow that cannot move does not even
// coast); with fast jump, two within 110 ms jump to that end.
TEST_F(ScrollerTest, ArrowsRepeatCoastStopAtTheEndsAndJumpWhenQuick) {
  Make(1000);
  Send(WM_LBUTTONDOWN, kBarX, kDown);
  Wait(300);
  int repeated = Position();
  EXPECT_TRUE(repeated >= 20 && repeated % 10 == 0) << repeated << ": a step of 10 every 70 ms";
  Send(WM_LBUTTONUP, kBarX, kDown);
  EXPECT_EQ(Position(), repeated + kTap) << "coasting on after the release";
  const struct { bool fastJump; int from, y, apart, to; } cases[] = {
      {false, 0, kDown, 0, 2 * kTap}, {false, 790, kDown, 0, 800}, {false, 10, kUp, 0, 0}, {false, 0, kUp, 0, 0},
      {true, 0, kDown, 0, 800},       {true, 500, kUp, 0, 0},      {true, 0, kDown, 200, 2 * kTap}};
  for (const auto& c : cases) {
    ScrollerOptions options;
    options.fastJump = c.fastJump;
    Make(1000, options);
    ScrollTo(c.from);
    Tap(kBarX, c.y), Wait(c.apart), Tap(kBarX, c.y);
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
  Send(WM_LBUTTONDOWN, kBarX, 100);
  const struct { int x, y, position; } moves[] = {
      {kBarX, 120, 500}, {kBarX, 120, 500}, {kBarX, -30, 0}, {kBarX, 100, 500}, {10, 100, 500}, {kBarX, 150, 500}};
  for (const auto& m : moves) {
    Send(WM_MOUSEMOVE, m.x, m.y);
    EXPECT_EQ(Position(), m.position) << "moved to " << m.x << ", " << m.y;
  }
  Send(WM_LBUTTONUP, kBarX, 150);
  ScrollTo(0);
  Send(WM_LBUTTONDOWN, kBarX, 150);
  EXPECT_EQ(Position(), 0) << "the page moves only when the stylus lifts";
  Send(WM_LBUTTONUP, kBarX, 150);
  const struct { int from, y, to; } taps[] = {{200, 30, 0}, {0, 150, 200}, {700, 180, 800}, {100, 30, 0}};
  for (const auto& c : taps) {
    ScrollTo(c.from), Tap(kBarX, c.y);
    EXPECT_EQ(Position(), c.to) << "from " << c.from << " touching y " << c.y;
  }
  EXPECT_TRUE(parent_.log.empty());
}

// A new size starts at the top, a move alone keeps the place; a hundred
// scrollers made, used and destroyed leave no graphics objects behind.
TEST_F(ScrollerTest, ANewSizeStartsAtTheTopAndNothingLeaks) {
  Make(1000);
  ScrollTo(300), MoveWindow(scroller_, 10, 10, kWidth, kHeight + 40, TRUE);
  EXPECT_EQ(Position(), 0);
  ScrollTo(300), MoveWindow(scroller_, 20, 20, kWidth, kHeight + 40, TRUE);
  EXPECT_EQ(Position(), 300);
  EXPECT_TRUE(BarShows(test::Shot(scroller_), kHeight + 33)) << "the down arrow at the new bottom";
  DestroyWindow(scroller_), scroller_ = nullptr;
  int before = test::CountGdiObjects();
  for (int i = 0; i < 100; ++i) Make(1000), ScrollTo(i * 7), Tap(kBarX, 150);
  DestroyWindow(scroller_), scroller_ = nullptr;
  EXPECT_GT(before, 0) << "objects are counted";
  EXPECT_LE(test::CountGdiObjects(), before + 2);
}

// Bars on the right and on the left, in screenshots at both densities.
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
      options.pictures = pictures_, options.barOnLeft = left;
      scrollers[left] = CreateScroller(GetModuleHandleW(nullptr), parent.window(),
                                       {ScaleX(left ? 124 : 4), ScaleY(10), ScaleX(left ? 236 : 116), ScaleY(210)},
                                       L"TwTestScroller", options);
    }
    SetScrollerPosition(scrollers[0], 600);
    EXPECT_NE(test::SaveScreenshot(L"scroller-" + std::to_wstring(dpi), parent.window()), L"");
    EXPECT_TRUE(test::CheckLayout(parent.window()).empty());
    tools::Capture shot = test::Shot(scrollers[0]);
    EXPECT_NE(test::PixelAt(shot, ScaleX(104), ScaleY(100)), test::PixelAt(shot, ScaleX(50), ScaleY(100))) << dpi;
    EXPECT_EQ(test::PixelAt(shot, ScaleX(104), ScaleY(150)), RGB(140, 140, 140)) << "the track, below the thumb";
  }
  gScreen.dpiX = gScreen.dpiY = 96;
}

}  // namespace
}  // namespace tw
