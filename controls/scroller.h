// A scrolling view whose content its parent draws. Each paint hands the
// parent an off-screen context and the scroll position; the parent draws the
// content from that row down and answers with the content's whole height.
// The scroller draws its own bar over it from the skin's pictures: arrows
// that repeat while held (a quick second press jumps to the end), a thumb to
// drag, a track to page through, and a short coast when an arrow is let go.
//
//   HWND list = CreateScroller(instance, page, {x, y, width, height}, L"CategoriesView", options);
//   case kScrollerDrawContent: return DrawRows(HDC(wParam), ScrollerPosition(list));
//   case kScrollerPressed: ... the band value in wParam, the point in lParam ...
#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>

namespace tw {

// Sent to the parent while painting. wParam: the off-screen HDC, its origin
// at the client area's top left and clipped to it; lParam: the scroll
// position in the low word (its low 16 bits; ScrollerPosition has all of
// it) and the parent value in the high word. The parent draws the content
// whose row `position` goes at y 0 and returns the content's total height
// in pixels.
// A scroll step keeps the rows still in view and clips the context to the
// band that came into view, so a parent that draws only the rows meeting
// GetClipBox pays for that band alone; one that draws everything still
// paints right. A parent whose content changes invalidates the scroller,
// whose next paint asks for everything.
inline constexpr UINT kScrollerDrawContent = WM_USER + 2;
// Sent to the parent for a press outside the bar (or anywhere, when the
// content fits). wParam: the value of the first hit band holding the press's
// y, else 0; lParam: the press's point in the scroller's client coordinates.
inline constexpr UINT kScrollerPressed = WM_USER + 1;
// Moves and releases of the stylus outside the bar reach the parent as the
// scroller's own WM_MOUSEMOVE and WM_LBUTTONUP, unchanged.

// Messages to the scroller.
// lParam: const ScrollerHitBand*, appended to the band list. Returns TRUE.
inline constexpr UINT kScrollerAddHitBand = WM_USER + 100;
// Empties the band list.
inline constexpr UINT kScrollerClearHitBands = WM_USER + 101;
// Returns the scroll position in pixels from the top of the content.
inline constexpr UINT kScrollerGetPosition = WM_USER + 102;
// wParam: the new position, kept within the content. Repaints at once.
inline constexpr UINT kScrollerSetPosition = WM_USER + 103;

// Rows of content that report a value of their own when pressed; top and
// bottom (both included) are in the scroller's client coordinates.
struct ScrollerHitBand {
  LPARAM value;
  std::int32_t top;
  std::int32_t bottom;
};

inline constexpr COLORREF kScrollerTrackColour = RGB(140, 140, 140);

struct ScrollerOptions {
  // Folder of the skin whose "up", "down" and "scroller_*" pictures the bar
  // uses; empty for the built-in ones.
  std::u16string_view skinFolder;
  // Module with the built-in pictures (the picture library of the screen's
  // resolution); null takes the instance's own.
  HMODULE pictures = nullptr;
  // Handed back to the parent with every draw request.
  std::uint16_t parentValue = 0;
  bool showBar = true;    // track and thumb; without it only the arrows that can move show
  bool fastJump = false;  // a second arrow press within 110 ms jumps to that end
  bool barOnLeft = false;
  bool noTrack = false;
  COLORREF trackColour = kScrollerTrackColour;
};

// Registers the class `className` (once per module) and creates a visible
// child of `parent` over `area`, painted at once. Null on failure.
HWND CreateScroller(HINSTANCE instance, HWND parent, const RECT& area, const wchar_t* className,
                    const ScrollerOptions& options);

inline bool AddScrollerHitBand(HWND scroller, const ScrollerHitBand& band) {
  return SendMessageW(scroller, kScrollerAddHitBand, 0, reinterpret_cast<LPARAM>(&band)) != 0;
}
inline void ClearScrollerHitBands(HWND scroller) { SendMessageW(scroller, kScrollerClearHitBands, 0, 0); }
inline int ScrollerPosition(HWND scroller) {
  return static_cast<int>(SendMessageW(scroller, kScrollerGetPosition, 0, 0));
}
inline void SetScrollerPosition(HWND scroller, int position) {
  SendMessageW(scroller, kScrollerSetPosition, static_cast<WPARAM>(position), 0);
}

}  // namespace tw
