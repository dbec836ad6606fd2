#include "controls/scroller.h"

#include <windowsx.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "base/scaling.h"
#include "platform/win32/control_state.h"
#include "data/win32/skin_image.h"
#include "platform/win32/win32_bitmaps.h"
#include "resources/resource_ids.h"

namespace tw {
namespace {

// Timers: the arrows' repeat, and the window in which a second press jumps.
constexpr UINT_PTR kRepeatDownTimer = 1034, kRepeatUpTimer = 1035;
constexpr UINT_PTR kUpJumpTimer = 1036, kDownJumpTimer = 1037;
constexpr UINT kRepeatMs = 70, kJumpWindowMs = 110;
constexpr DWORD kCoastPauseMs = 50;

// Layout at 96 dpi.
constexpr int kBarWidth = 13, kArrowSide = 13, kThumbCap = 4;
constexpr int kTrackInset = 8, kThumbMargin = 14, kThumbMinimum = 12;
constexpr int kRepeatStep = 10;
constexpr int kCoastSteps[] = {8, 6, 3};
constexpr COLORREF kPressedTrackColour = RGB(80, 80, 80);
// While the stylus is captured, a point above the window arrives as a large
// unsigned y; anything past this is taken as the top edge.
constexpr unsigned kLargestPlausibleY = 20000;

// A picture whose transparent colour is turned into a mask once, so that a
// paint draws it with two plain blits: Wine takes about a millisecond for
// each transparent blit, three times a paint. Both stay selected into
// contexts of their own, since Wine takes longer to select a bitmap than to
// draw the whole bar.
struct MaskedPicture {
  HBITMAP image = nullptr;  // the transparent pixels made black
  HBITMAP mask = nullptr;   // white where transparent, else black
  HDC imageDc = nullptr, maskDc = nullptr;
  HGDIOBJ oldImage = nullptr, oldMask = nullptr;
  int width = 0, height = 0;

  MaskedPicture() = default;
  MaskedPicture(const MaskedPicture&) = delete;
  MaskedPicture& operator=(const MaskedPicture&) = delete;
  ~MaskedPicture() { Release(); }
  void Release() {
    if (imageDc) {
      SelectObject(imageDc, oldImage);
      DeleteDC(imageDc);
    }
    if (maskDc) {
      SelectObject(maskDc, oldMask);
      DeleteDC(maskDc);
    }
    if (image) DeleteObject(image);
    if (mask) DeleteObject(mask);
    image = mask = nullptr;
    imageDc = maskDc = nullptr;
    width = height = 0;
  }
};

struct ScrollerState {
  HWND parent;
  std::uint16_t parentValue;
  bool showBar, fastJump, barOnLeft, noTrack;
  COLORREF trackColour;
  std::vector<ScrollerHitBand> bands{};

  int position = 0;
  int width = 0, height = 0;
  int content = 0;
  int thumbLength = 0, thumbTop = 0;
  bool upPending = false, downPending = false;
  bool repeatingUp = false, repeatingDown = false;
  bool pageUpPending = false, pageDownPending = false;
  bool dragging = false;
  int lastDragY = 0;

  // Arrows from a skin's Targa files keep their planes; bitmaps are masked.
  SkinImage up{}, down{};
  MaskedPicture upMasked{}, downMasked{}, top{}, middle{}, bottom{};
  // The three thumb parts composed for the current length, drawn from
  // thumbOffset above the thumb's top (a very short thumb's caps overlap).
  MaskedPicture thumb{};
  int thumbOffset = 0, composedLength = -1;
  // Taller than the client by a runway: the view lies at viewTop on it, so
  // that most scroll steps move the view instead of the pixels.
  OffscreenSurface surface{};
  int surfaceWidth = 0, surfaceHeight = 0, viewTop = 0;
  // The content under the bar, and the position the surface's content is
  // drawn from (-1: nothing worth keeping), for scroll steps to build on.
  OffscreenSurface underBar{};
  int cachedPosition = -1;
  // Filling the track's tall, narrow rectangle costs Wine something for
  // each of its rows; copying a strip filled once costs a third of that.
  OffscreenSurface trackStrip{};
  COLORREF stripColour = 0;
  SIZE stripSize{};
};

int Largest(const ScrollerState& state) { return state.content - state.height; }

struct BarColumn {
  int left, right;  // both included
  int imageX;
};

BarColumn Column(const ScrollerState& state) {
  if (state.barOnLeft) return {ScaleX(1), ScaleX(1 + kBarWidth), ScaleX(1)};
  return {state.width - ScaleX(kBarWidth), state.width, state.width - ScaleX(kBarWidth + 1)};
}

bool InColumn(const ScrollerState& state, int x) {
  BarColumn column = Column(state);
  return x >= column.left && x <= column.right;
}

// ---- Pictures

// A mask's bits become white and black only with these colours set; a bar
// sets them once for all its pictures, as each call costs Wine about as
// much as a small blit.
class MaskColours {
 public:
  explicit MaskColours(HDC dc)
      : dc_(dc), oldBack_(SetBkColor(dc, RGB(255, 255, 255))), oldText_(SetTextColor(dc, RGB(0, 0, 0))) {}
  ~MaskColours() {
    SetBkColor(dc_, oldBack_);
    SetTextColor(dc_, oldText_);
  }
  MaskColours(const MaskColours&) = delete;
  MaskColours& operator=(const MaskColours&) = delete;

 private:
  HDC dc_;
  COLORREF oldBack_, oldText_;
};


// Takes both bitmaps over and keeps them selected.
bool AdoptPicture(MaskedPicture& picture, HBITMAP image, HBITMAP mask, int width, int height) {
  picture.image = image;
  picture.mask = mask;
  if (image == nullptr || mask == nullptr) {
    picture.Release();
    return false;
  }
  picture.width = width;
  picture.height = height;
  picture.imageDc = CreateCompatibleDC(nullptr);
  picture.maskDc = CreateCompatibleDC(nullptr);
  picture.oldImage = SelectObject(picture.imageDc, image);
  picture.oldMask = SelectObject(picture.maskDc, mask);
  return true;
}

// Takes the bitmap over. Both pictures end up in the screen's format, as
// Wine blits a monochrome mask or a bitmap of another depth about half as
// fast.
void MakeMasked(MaskedPicture& picture, HBITMAP bitmap, COLORREF transparent) {
  BITMAP info;
  if (bitmap == nullptr) return;
  if (!GetObjectW(bitmap, sizeof info, &info) || info.bmWidth <= 0 || info.bmHeight <= 0) {
    DeleteObject(bitmap);
    return;
  }
  int width = info.bmWidth, height = info.bmHeight;
  MaskedPicture loaded;
  if (!AdoptPicture(loaded, bitmap, CreateBitmap(width, height, 1, 1, nullptr), width, height)) return;
  HDC imageDc = loaded.imageDc, maskDc = loaded.maskDc;
  // Pixels of the background colour become 1 in a monochrome copy.
  SetBkColor(imageDc, transparent);
  BitBlt(maskDc, 0, 0, width, height, imageDc, 0, 0, SRCCOPY);
  SetBkColor(imageDc, RGB(0, 0, 0));
  SetTextColor(imageDc, RGB(255, 255, 255));
  BitBlt(imageDc, 0, 0, width, height, maskDc, 0, 0, SRCAND);
  HDC screen = GetDC(nullptr);
  bool made = AdoptPicture(picture, CreateCompatibleBitmap(screen, width, height),
                           CreateCompatibleBitmap(screen, width, height), width, height);
  ReleaseDC(nullptr, screen);
  if (!made) return;
  BitBlt(picture.imageDc, 0, 0, width, height, imageDc, 0, 0, SRCCOPY);
  MaskColours colours(picture.maskDc);
  BitBlt(picture.maskDc, 0, 0, width, height, maskDc, 0, 0, SRCCOPY);
}

HBITMAP LoadThumbPart(std::u16string_view folder, std::u16string_view name, HMODULE pictures, int resource) {
  // The plain file comes before the high-density one whatever the display.
  if (!folder.empty()) {
    Win32Bitmaps files;
    std::u16string base = std::u16string(folder) + u"\\" + std::u16string(name);
    for (std::u16string_view suffix : {u".bmp", u"_high.bmp"})
      if (auto bitmap = static_cast<HBITMAP>(files.Load(base + std::u16string(suffix)))) return bitmap;
  }
  return static_cast<HBITMAP>(LoadImageW(pictures, MAKEINTRESOURCEW(resource), IMAGE_BITMAP, 0, 0,
                                         LR_CREATEDIBSECTION));
}

void LoadArrow(SkinImage& image, MaskedPicture& masked, std::u16string_view folder, std::u16string_view name,
               HMODULE pictures, int resource) {
  LoadSkinImage(image, folder, name, pictures, -1, resource, kArrowTransparent, true);
  MakeMasked(masked, std::exchange(image.bitmap, nullptr), kArrowTransparent);
}

void LoadPictures(ScrollerState& state, std::u16string_view folder, HMODULE pictures) {
  LoadArrow(state.up, state.upMasked, folder, u"up", pictures, IDB_SCROLL_UP);
  LoadArrow(state.down, state.downMasked, folder, u"down", pictures, IDB_SCROLL_DOWN);
  MakeMasked(state.top, LoadThumbPart(folder, u"scroller_top", pictures, IDB_THUMB_TOP), kArrowTransparent);
  MakeMasked(state.bottom, LoadThumbPart(folder, u"scroller_bottom", pictures, IDB_THUMB_BOTTOM), kArrowTransparent);
  MakeMasked(state.middle, LoadThumbPart(folder, u"scroller_middle", pictures, IDB_THUMB_MIDDLE), kArrowTransparent);
}

ScrollerState* MakeScroller(HWND, const CREATESTRUCTW& create) {
  auto options = static_cast<const ScrollerOptions*>(create.lpCreateParams);
  if (options == nullptr) return nullptr;
  auto state = new ScrollerState{create.hwndParent, options->parentValue, options->showBar, options->fastJump,
                                 options->barOnLeft,  options->noTrack,     options->trackColour};
  LoadPictures(*state, options->skinFolder, options->pictures ? options->pictures : create.hInstance);
  return state;
}

// ---- Painting

int BarAreaWidth(const ScrollerState& state) {
  return std::max({ScaleX(kBarWidth + 1), state.upMasked.width, state.downMasked.width, state.up.planes.width,
                   state.down.planes.width});
}

// Everything the bar may cover, arrows included.
RECT BarArea(const ScrollerState& state) {
  int left = std::max(Column(state).imageX, 0);
  return {left, 0, std::min(left + BarAreaWidth(state), state.width), state.height};
}

int Runway(const ScrollerState& state) { return state.surfaceHeight / 2; }

// The off-screen context always matches the client area, whichever of
// WM_MOVE and WM_SIZE tells of a change first.
void FitSurface(HWND window, ScrollerState& state) {
  RECT client;
  GetClientRect(window, &client);
  if (state.surface.dc() && client.right == state.surfaceWidth && client.bottom == state.surfaceHeight) return;
  HDC dc = GetDC(window);
  int height = std::max<int>(client.bottom, 1);
  state.surface.Create(dc, std::max<int>(client.right, 1), height + client.bottom / 2);  // the runway
  state.underBar.Create(dc, BarAreaWidth(state), height);
  ReleaseDC(window, dc);
  state.surfaceWidth = client.right;
  state.surfaceHeight = client.bottom;
  state.viewTop = 0;
  state.cachedPosition = -1;
}

// The parent draws in the view's coordinates, y 0 at its top, clipped to
// the rows from top to bottom: the runway around the view is never drawn.
void AskForContent(ScrollerState& state, int top, int bottom) {
  HDC surface = state.surface.dc();
  IntersectClipRect(surface, 0, top, state.width, bottom);
  LPARAM where = MAKELPARAM(static_cast<WORD>(state.position), state.parentValue);
  LRESULT height = SendMessageW(state.parent, kScrollerDrawContent, reinterpret_cast<WPARAM>(surface), where);
  SelectClipRgn(surface, nullptr);
  state.content = static_cast<int>(std::clamp<LRESULT>(height, 0, INT32_MAX / 2));
}

// Content that shrank since the last paint pulls the view back up.
void DrawContent(ScrollerState& state) {
  AskForContent(state, 0, state.height);
  if (state.content - state.position >= state.height) return;
  state.position = std::max(Largest(state), 0);
  AskForContent(state, 0, state.height);
}

void FillSolid(HDC dc, const RECT& area, COLORREF colour) {
  COLORREF old = SetBkColor(dc, colour);
  ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
  SetBkColor(dc, old);
}

// Within MaskColours.
void DrawMasked(HDC dc, const MaskedPicture& picture, int x, int y, int width, int height, bool maskOnly = false) {
  if (picture.image == nullptr || width <= 0 || height <= 0) return;
  StretchBlt(dc, x, y, width, height, picture.maskDc, 0, 0, picture.width, picture.height, SRCAND);
  if (!maskOnly)
    StretchBlt(dc, x, y, width, height, picture.imageDc, 0, 0, picture.width, picture.height, SRCPAINT);
}

void DrawThumbParts(HDC dc, const ScrollerState& state, int x, int top, bool maskOnly) {
  int cap = ScaleY(kThumbCap), width = ScaleX(kBarWidth), length = state.thumbLength;
  DrawMasked(dc, state.top, x, top, width, cap, maskOnly);
  DrawMasked(dc, state.middle, x, top + cap, width, length - 2 * cap, maskOnly);
  DrawMasked(dc, state.bottom, x, top + length - cap, width, cap, maskOnly);
}

// Drawing the parts one by one is six blits a step; the composed picture is
// two. Its mask is the parts' masks laid over white, its image the parts
// laid over black, so drawing it gives the same pixels.
void ComposeThumb(HDC like, ScrollerState& state) {
  if (state.composedLength == state.thumbLength) return;
  state.thumb.Release();
  state.composedLength = state.thumbLength;
  int cap = ScaleY(kThumbCap), width = ScaleX(kBarWidth);
  state.thumbOffset = std::min(0, state.thumbLength - cap);
  int height = std::max(cap, state.thumbLength) - state.thumbOffset;
  HBITMAP image = CreateCompatibleBitmap(like, width, height), mask = CreateCompatibleBitmap(like, width, height);
  if (!AdoptPicture(state.thumb, image, mask, width, height)) return;
  HDC imageDc = state.thumb.imageDc;
  RECT all = {0, 0, width, height};
  FillSolid(imageDc, all, RGB(255, 255, 255));
  MaskColours colours(imageDc);
  DrawThumbParts(imageDc, state, 0, -state.thumbOffset, true);
  BitBlt(state.thumb.maskDc, 0, 0, width, height, imageDc, 0, 0, SRCCOPY);
  FillSolid(imageDc, all, RGB(0, 0, 0));
  DrawThumbParts(imageDc, state, 0, -state.thumbOffset, false);
}

void DrawThumb(HDC dc, ScrollerState& state) {
  ComposeThumb(dc, state);
  const MaskedPicture& thumb = state.thumb;
  DrawMasked(dc, thumb, Column(state).imageX, state.thumbTop + state.thumbOffset, thumb.width, thumb.height);
}

void DrawArrow(HDC dc, const ScrollerState& state, const SkinImage& image, const MaskedPicture& masked, int y) {
  int x = Column(state).imageX;
  if (masked.image)
    DrawMasked(dc, masked, x, y, masked.width, masked.height);
  else
    DrawSkinImage(image, dc, x, y);
}

// The thumb shrinks as the content grows past twice the client height.
void PlaceThumb(ScrollerState& state) {
  int largest = Largest(state);
  float ratio = largest > 0 ? static_cast<float>(state.position) / static_cast<float>(largest) : 0.0f;
  int room = state.height - 2 * ScaleY(kThumbMargin);
  int length = std::max(2 * state.height - 2 * ScaleY(kThumbMargin) - state.content, ScaleY(kThumbMinimum));
  state.thumbLength = std::min(length, room);
  state.thumbTop = static_cast<int>(static_cast<float>(room - state.thumbLength) * ratio + ScaleY(kThumbMargin));
}

void DrawTrack(HDC dc, ScrollerState& state) {
  if (state.noTrack) return;
  RECT track = {state.width - ScaleX(kTrackInset + 1), ScaleY(kTrackInset), state.width - ScaleX(kTrackInset - 1),
                state.height - ScaleY(kTrackInset)};
  // A left bar's track is the empty rectangle 8..6: it shows no track.
  if (state.barOnLeft) track.left = ScaleX(kTrackInset), track.right = ScaleX(kTrackInset - 2);
  if (track.right <= track.left) return;
  bool paging = state.pageUpPending || state.pageDownPending;
  COLORREF colour = paging ? kPressedTrackColour : state.trackColour;
  SIZE size = {track.right - track.left, track.bottom - track.top};
  HDC strip = state.trackStrip.dc();
  if (strip == nullptr || size.cx != state.stripSize.cx || size.cy != state.stripSize.cy) {
    state.trackStrip.Create(dc, size.cx, size.cy);
    strip = state.trackStrip.dc();
    state.stripSize = size;
    state.stripColour = ~colour;
  }
  if (colour != state.stripColour) FillSolid(strip, {0, 0, size.cx, size.cy}, colour);
  state.stripColour = colour;
  BitBlt(dc, track.left, track.top, size.cx, size.cy, strip, 0, 0, SRCCOPY);
}

// Within MaskColours.
void DrawArrows(HDC dc, const ScrollerState& state, bool up, bool down) {
  if (up) DrawArrow(dc, state, state.up, state.upMasked, ScaleY(1));
  if (down) DrawArrow(dc, state, state.down, state.downMasked, state.height - ScaleY(kArrowSide));
}

void DrawBar(HDC dc, ScrollerState& state) {
  int largest = Largest(state);
  PlaceThumb(state);
  if (!state.showBar) {
    MaskColours colours(dc);
    DrawArrows(dc, state, state.position >= 1, state.position + 1 < largest);
    return;
  }
  bool fits = state.position < 1 && state.position >= largest;
  if (fits && !state.barOnLeft) return;
  DrawTrack(dc, state);
  MaskColours colours(dc);
  DrawArrows(dc, state, true, true);
  DrawThumb(dc, state);
}

// The bar is drawn over a copy of what lies under it, so that a scroll
// step can put the content back before moving it.
void CopyUnderBar(ScrollerState& state, bool restore) {
  RECT area = BarArea(state);
  HDC surface = state.surface.dc(), saved = state.underBar.dc();
  if (restore)
    BitBlt(surface, area.left, 0, area.right - area.left, area.bottom, saved, 0, 0, SRCCOPY);
  else
    BitBlt(saved, 0, 0, area.right - area.left, area.bottom, surface, area.left, 0, SRCCOPY);
}

void ShowSurface(HDC dc, ScrollerState& state) {
  state.cachedPosition = state.position;
  CopyUnderBar(state, false);
  DrawBar(state.surface.dc(), state);
  BitBlt(dc, 0, 0, state.width, state.height, state.surface.dc(), 0, 0, SRCCOPY);
}

bool CanShift(const ScrollerState& state) {
  int delta = state.position - state.cachedPosition;
  return state.cachedPosition >= 0 && delta != 0 && std::abs(delta) < state.height &&
         state.position <= Largest(state);
}

// The view moves along the runway over the rows still in view; only at its
// end do they move, with one blit, to the runway's other end. The parent is
// asked for the band that came into view only; content of another height is
// asked for in full.
void ShiftContent(ScrollerState& state) {
  HDC surface = state.surface.dc();
  int delta = state.position - state.cachedPosition;
  int kept = state.height - std::abs(delta);
  CopyUnderBar(state, true);
  int top = state.viewTop + delta;
  if (top < 0 || top > Runway(state)) {
    top = delta > 0 ? 0 : Runway(state);
    BitBlt(surface, 0, top - state.viewTop + std::max(-delta, 0), state.width, kept, surface, 0,
           std::max(delta, 0), SRCCOPY);
  }
  state.viewTop = top;
  SetViewportOrgEx(surface, 0, top, nullptr);
  int bandTop = delta > 0 ? kept : 0, content = state.content;
  AskForContent(state, bandTop, bandTop + std::abs(delta));
  if (state.content != content) DrawContent(state);
}

void OnPaint(HWND window, ScrollerState& state) {
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(window, &paint);
  if (state.surface.dc()) {
    DrawContent(state);
    ShowSurface(dc, state);
  }
  EndPaint(window, &paint);
}

// A scroll step paints at once through the window's own context: under
// Wine an invalidate-and-paint round costs some twenty blits of the client.
void Repaint(HWND window, ScrollerState& state) {
  if (!state.surface.dc()) return;
  if (CanShift(state))
    ShiftContent(state);
  else
    DrawContent(state);
  HDC dc = GetDC(window);
  ShowSurface(dc, state);
  ReleaseDC(window, dc);
}

// ---- The stylus

void NotifyPressed(const ScrollerState& state, LPARAM point) {
  int y = GET_Y_LPARAM(point);
  auto band = std::find_if(state.bands.begin(), state.bands.end(),
                           [y](const ScrollerHitBand& b) { return y >= b.top && y <= b.bottom; });
  SendMessageW(state.parent, kScrollerPressed, band != state.bands.end() ? band->value : 0, point);
}

void StartRepeat(HWND window, ScrollerState& state, bool down) {
  (down ? state.repeatingDown : state.repeatingUp) = true;
  SetTimer(window, down ? kRepeatDownTimer : kRepeatUpTimer, kRepeatMs, nullptr);
}

void PressDownArrow(HWND window, ScrollerState& state) {
  if (state.position >= Largest(state)) return;
  if (state.fastJump && state.downPending) {
    state.position = Largest(state);
    Repaint(window, state);
    return;
  }
  if (state.fastJump) {
    state.downPending = true;
    SetTimer(window, kDownJumpTimer, kJumpWindowMs, nullptr);
  }
  StartRepeat(window, state, true);
}

void PressUpArrow(HWND window, ScrollerState& state) {
  if (state.position < 1) return;
  if (state.fastJump && state.upPending) {
    state.position = 0;
    Repaint(window, state);
    return;
  }
  if (state.fastJump) {
    state.upPending = true;
    SetTimer(window, kUpJumpTimer, kJumpWindowMs, nullptr);
  }
  StartRepeat(window, state, false);
}

void RepaintColumn(HWND window, const ScrollerState& state) {
  BarColumn column = Column(state);
  RECT area = {column.left, 0, column.right + 1, state.height};
  RedrawWindow(window, &area, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

void PressTrack(HWND window, ScrollerState& state, int y) {
  if (y >= state.thumbTop && y <= state.thumbTop + state.thumbLength) {
    state.dragging = true;
    state.lastDragY = y;
    return;
  }
  (y < state.thumbTop ? state.pageUpPending : state.pageDownPending) = true;
  RepaintColumn(window, state);
}

void OnPress(HWND window, ScrollerState& state, LPARAM point) {
  SetCapture(window);
  int x = GET_X_LPARAM(point), y = GET_Y_LPARAM(point);
  bool inColumn = InColumn(state, x) && state.height < state.content;
  if (inColumn && y >= state.height - ScaleY(kArrowSide) && y <= state.height - 1)
    PressDownArrow(window, state);
  else if (inColumn && y > ScaleY(1) && y < ScaleY(kArrowSide))
    PressUpArrow(window, state);
  else if (inColumn && state.showBar)
    PressTrack(window, state, y);
  else
    NotifyPressed(state, point);
}

void OnTimer(HWND window, ScrollerState& state, UINT_PTR timer) {
  switch (timer) {
    case kUpJumpTimer:
    case kDownJumpTimer:
      (timer == kUpJumpTimer ? state.upPending : state.downPending) = false;
      KillTimer(window, timer);
      return;
    case kRepeatDownTimer:
      state.position += ScaleY(kRepeatStep);
      if (state.position > Largest(state)) {
        KillTimer(window, timer);
        state.repeatingDown = false;
        state.position = Largest(state);
      }
      Repaint(window, state);
      return;
    case kRepeatUpTimer:
      state.position -= ScaleY(kRepeatStep);
      if (state.position < 0) {
        KillTimer(window, timer);
        state.repeatingUp = false;
        state.position = 0;
      }
      Repaint(window, state);
      return;
  }
}

// Small moves add up until they move the content by a pixel or more.
void Drag(HWND window, ScrollerState& state, unsigned y) {
  if (y > kLargestPlausibleY) y = 0;
  int travel = state.height - 2 * ScaleY(kThumbMargin) - state.thumbLength;
  if (travel <= 0) return;
  int largest = Largest(state);
  float moved = static_cast<float>(static_cast<int>(y) - state.lastDragY) / static_cast<float>(travel) *
                static_cast<float>(largest);
  int position = state.position + static_cast<int>(moved);
  if (position + state.height >= state.content) position = largest;
  if (position < 1) position = 0;
  if (position == state.position) return;
  state.position = position;
  state.lastDragY = static_cast<int>(y);
  Repaint(window, state);
}

void OnMove(HWND window, ScrollerState& state, WPARAM keys, LPARAM point) {
  bool inColumn = InColumn(state, GET_X_LPARAM(point));
  if (state.dragging && inColumn)
    Drag(window, state, HIWORD(point));
  else if (state.dragging)
    state.dragging = false;
  else if (!inColumn)
    SendMessageW(state.parent, WM_MOUSEMOVE, keys, point);
}

// Letting go of an arrow glides on a little, slowing down, blocking the
// thread for at most 100 ms.
void CoastDown(HWND window, ScrollerState& state) {
  for (int step : kCoastSteps) {
    state.position += ScaleY(step);
    if (state.position >= Largest(state)) continue;
    Repaint(window, state);
    if (step != kCoastSteps[2]) Sleep(kCoastPauseMs);
  }
  if (state.position < Largest(state)) return;
  state.position = Largest(state);
  Repaint(window, state);
}

void CoastUp(HWND window, ScrollerState& state) {
  for (int step : kCoastSteps) {
    state.position -= ScaleY(step);
    if (state.position <= 0) {
      state.position = 0;
      Repaint(window, state);
      return;
    }
    Repaint(window, state);
    if (step != kCoastSteps[2]) Sleep(kCoastPauseMs);
  }
}

void FinishPaging(HWND window, ScrollerState& state) {
  if (state.pageDownPending) {
    state.pageDownPending = false;
    state.position += state.height;  // the paint keeps it within the content
    Repaint(window, state);
  }
  if (state.pageUpPending) {
    state.pageUpPending = false;
    state.position = std::max(state.position - state.height, 0);
    Repaint(window, state);
  }
}

void OnRelease(HWND window, ScrollerState& state, WPARAM keys, LPARAM point) {
  if (GetCapture() == window) ReleaseCapture();
  state.dragging = false;
  if (state.repeatingDown || state.repeatingUp) {
    bool down = state.repeatingDown;
    KillTimer(window, down ? kRepeatDownTimer : kRepeatUpTimer);
    state.repeatingDown = state.repeatingUp = false;
    down ? CoastDown(window, state) : CoastUp(window, state);
    return;
  }
  FinishPaging(window, state);
  if (!InColumn(state, GET_X_LPARAM(point))) SendMessageW(state.parent, WM_LBUTTONUP, keys, point);
}

// ---- Size and the rest

void OnSize(HWND window, ScrollerState& state, LPARAM size) {
  int width = LOWORD(size), height = HIWORD(size);
  if (width == state.width && height == state.height) return;
  state.width = width;
  state.height = height;
  state.position = 0;
  FitSurface(window, state);
  InvalidateRect(window, nullptr, FALSE);
}

void OnCreate(HWND window, ScrollerState& state) {
  RECT client;
  GetClientRect(window, &client);
  state.width = client.right;
  state.height = client.bottom;
  FitSurface(window, state);
}

void OnDestroy(HWND window) {
  for (UINT_PTR timer : {kRepeatDownTimer, kRepeatUpTimer, kUpJumpTimer, kDownJumpTimer}) KillTimer(window, timer);
}

LRESULT AddHitBand(ScrollerState& state, const ScrollerHitBand* band) {
  if (band == nullptr) return FALSE;
  state.bands.push_back(*band);
  return TRUE;
}

void SetPosition(HWND window, ScrollerState& state, WPARAM position) {
  state.position = std::max(static_cast<int>(position), 0);
  Repaint(window, state);
}

LRESULT ScrollerProc(HWND window, ScrollerState& state, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      OnCreate(window, state);
      return 0;
    case WM_PAINT:
      OnPaint(window, state);
      return 0;
    case WM_LBUTTONDOWN:
      OnPress(window, state, lParam);
      return 0;
    case WM_MOUSEMOVE:
      OnMove(window, state, wParam, lParam);
      return 0;
    case WM_LBUTTONUP:
      OnRelease(window, state, wParam, lParam);
      return 0;
    case WM_TIMER:
      OnTimer(window, state, wParam);
      return 0;
    case WM_SIZE:
      OnSize(window, state, lParam);
      return 0;
    case WM_MOVE:
      FitSurface(window, state);
      return 0;
    case WM_DESTROY:
      OnDestroy(window);
      return 0;
    case kScrollerAddHitBand:
      return AddHitBand(state, reinterpret_cast<const ScrollerHitBand*>(lParam));
    case kScrollerClearHitBands:
      state.bands.clear();
      return 0;
    case kScrollerGetPosition:
      return state.position;
    case kScrollerSetPosition:
      SetPosition(window, state, wParam);
      return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

HWND CreateScroller(HINSTANCE instance, HWND parent, const RECT& area, const wchar_t* className,
                    const ScrollerOptions& options) {
  if (className == nullptr || parent == nullptr) return nullptr;
  if (!RegisterControlClass(instance, className, ControlProc<ScrollerState, MakeScroller, ScrollerProc>,
                            static_cast<HBRUSH>(GetStockObject(NULL_BRUSH)), CS_HREDRAW | CS_VREDRAW))
    return nullptr;
  HWND scroller = CreateWindowExW(0, className, L"", WS_CHILD | WS_VISIBLE, area.left, area.top,
                                  area.right - area.left, area.bottom - area.top, parent, nullptr, instance,
                                  const_cast<ScrollerOptions*>(&options));
  if (scroller) UpdateWindow(scroller);
  return scroller;
}

}  // namespace tw
