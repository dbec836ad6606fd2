#include "pages/appointment_preview.h"

#include <algorithm>

#include "base/scaling.h"
#include "data/win32/skin_image.h"
#include "pages/row_list_page.h"
#include "platform/win32/wide.h"
#include "platform/win32/win32_locale.h"
#include "resources/resource_ids.h"

namespace tw {
namespace {

// Layout in 96-dpi units, from the preview's top edge.
constexpr int kLegendLeft = 6, kLegendTop = 2, kLegendWidth = 20, kLegendHeight = 12;
constexpr int kCaptionLeft = 30, kCaptionHeight = 16;
constexpr int kSampleMargin = 4, kSampleHeight = 42;
constexpr int kTextInset = 3, kMarkerCell = 16, kTextGap = 4;

constexpr COLORREF kLegendTransparent = RGB(255, 0, 0);
constexpr COLORREF kSampleFrame = RGB(190, 190, 190);
constexpr int kSampleStartHour = 11, kSampleEndHour = 15;
// The font key of the appointment font when each kind has its own.
constexpr int kBusyAppointmentFont = 105;
constexpr int kCaptionFont = 1;

COLORREF TextColour(const SettingsStore& settings) {
  if (settings.FontGnrlUseAdvncd != 0 && settings.FontCalApptBusy.color != kNoColor)
    return static_cast<COLORREF>(settings.FontCalApptBusy.color);
  if (settings.GeneralFontColor != kNoColor) return static_cast<COLORREF>(settings.GeneralFontColor);
  return settings.skin.textColor[0];
}

int TextWidth(HDC dc, std::u16string_view text) {
  SIZE size = {};
  GetTextExtentPoint32W(dc, AsWide(text.data()), int(text.size()), &size);
  return size.cx;
}

// One line of text in a band, vertically centred, cut with an ellipsis.
void DrawBandText(HDC dc, HFONT font, std::u16string_view text, RECT band) {
  SelectObject(dc, font);
  DrawTextW(dc, AsWide(text.data()), int(text.size()), &band,
            DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
}

}  // namespace

std::u16string PreviewTime(const SettingsStore& settings, int hour) {
  bool twelveHour = settings.TimeFormat == 1, twoDigits = settings.Force2DigitsTImeFrmt == 1;
  const char16_t* picture = twelveHour ? (twoDigits ? u"hh':'mm tt" : u"h':'mm tt")
                                       : (twoDigits ? u"HH':'mm" : u"H':'mm");
  CalendarDate time;
  time.hour = hour;
  return Win32Locale().FormatTime(time, picture);
}

void AppointmentPreview::Place(int top, int width) {
  top_ = top;
  width_ = width;
}

RECT AppointmentPreview::Area() const {
  return {0, top_, width_, top_ + ScaleY(kCaptionHeight) + ScaleY(kSampleHeight)};
}

void AppointmentPreview::Paint(HDC dc) const {
  PaintLegend(dc);
  PaintCaption(dc);
  PaintSample(dc);
}

void AppointmentPreview::PaintLegend(HDC dc) const {
  int id = ScaleX(1) < 2 ? IDB_MARKER_LEGEND_SMALL : IDB_MARKER_LEGEND_LARGE;
  auto legend = static_cast<HBITMAP>(
      LoadImageW(context_.instance, MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
  if (legend == nullptr) return;
  BITMAP info = {};
  GetObjectW(legend, sizeof info, &info);
  TransparentImage(dc, ScaleX(kLegendLeft), top_ + ScaleY(kLegendTop), ScaleX(kLegendWidth), ScaleY(kLegendHeight),
                   legend, 0, 0, info.bmWidth, info.bmHeight, kLegendTransparent);
  DeleteObject(legend);
}

// The display format by its number, and whether it takes one line or two.
void AppointmentPreview::PaintCaption(HDC dc) const {
  std::int32_t format = context_.settings.ApptDisplayFormat;
  std::u16string caption = FormatText(PageText(context_, kPreviewFormatText).View(), {format});
  caption += PageText(context_, format < kFirstTwoLineFormat ? kPreviewOneLineText : kPreviewTwoLinesText).View();
  RECT box = {ScaleX(kCaptionLeft), top_, width_, top_ + ScaleY(kCaptionHeight)};
  FillRect(dc, &box, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  HGDIOBJ oldFont = SelectObject(dc, context_.previewFonts.Get(kCaptionFont));
  SetTextColor(dc, RGB(0, 0, 0));
  SetBkMode(dc, TRANSPARENT);
  DrawTextW(dc, AsWide(caption.c_str()), int(caption.size()), &box,
            DT_LEFT | DT_BOTTOM | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
  SelectObject(dc, oldFont);
}

void AppointmentPreview::PaintSample(HDC dc) const {
  RECT area = {ScaleX(kSampleMargin), top_ + ScaleY(kCaptionHeight), width_ - ScaleX(kSampleMargin),
               top_ + ScaleY(kCaptionHeight) + ScaleY(kSampleHeight)};
  int width = area.right - area.left, height = area.bottom - area.top;
  OffscreenSurface surface;
  if (width <= 0 || !surface.Create(dc, width, height)) return;
  DrawLine(surface.dc(), {0, 0, width, height});
  BitBlt(dc, area.left, area.top, width, height, surface.dc(), 0, 0, SRCCOPY);
}

// Time, left markers, subject and location, right markers; display formats
// from kFirstTwoLineFormat on give the location and the right markers a
// second line, so the subject keeps the first.
void AppointmentPreview::DrawLine(HDC dc, const RECT& area) const {
  const SettingsStore& settings = context_.settings;
  FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  HBRUSH frame = CreateSolidBrush(kSampleFrame);
  FrameRect(dc, &area, frame);
  DeleteObject(frame);

  HFONT fonts[4];
  std::fill(std::begin(fonts), std::end(fonts), context_.previewFonts.Get(kBusyAppointmentFont));
  SelectItemFonts(context_.previewFonts, settings, fonts);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, TextColour(settings));

  bool twoLines = settings.ApptDisplayFormat >= kFirstTwoLineFormat;
  int bandHeight = (area.bottom - area.top) / (twoLines ? 2 : 1);
  RECT first = {area.left + ScaleX(kTextInset), area.top, area.right - ScaleX(kTextInset), area.top + bandHeight};
  RECT second = first;
  OffsetRect(&second, 0, twoLines ? bandHeight : 0);

  std::u16string time = PreviewTime(settings, kSampleStartHour) + u"-" + PreviewTime(settings, kSampleEndHour);
  DrawBandText(dc, fonts[0], time, first);
  int x = first.left + TextWidth(dc, time) + ScaleX(kTextGap);
  int middle = (first.top + first.bottom) / 2;
  for (std::int32_t flag : {settings.ApptLeftAlignIcon1, settings.ApptLeftAlignIcon2})
    x = DrawMarkers(dc, static_cast<std::uint32_t>(flag), x, middle, false);
  int right = DrawMarkers(dc, static_cast<std::uint32_t>(settings.ClrApptRightIcons), second.right,
                          (second.top + second.bottom) / 2, true);

  WideString subject = PageText(context_, kSampleSubjectText), location = PageText(context_, kSampleLocationText);
  RECT text = {x + ScaleX(kTextGap), first.top, (twoLines ? first.right : right) - ScaleX(kTextGap), first.bottom};
  DrawBandText(dc, fonts[1], subject.View(), text);
  if (twoLines) text = {second.left, second.top, right - ScaleX(kTextGap), second.bottom};
  else text.left += TextWidth(dc, subject.View()) + ScaleX(kTextGap);
  if (text.left < text.right) DrawBandText(dc, fonts[0], location.View(), text);
}

// Draws the pictures of the set flags, in the strips' order, rightwards from
// x or leftwards from it; returns where the next picture would go.
int AppointmentPreview::DrawMarkers(HDC dc, std::uint32_t flags, int x, int middle, bool fromRight) const {
  int cell = ScaleX(kMarkerCell);
  for (std::size_t i = 0; i < std::size(kAppointmentMarkers); ++i) {
    const MarkerChoice& marker = kAppointmentMarkers[fromRight ? std::size(kAppointmentMarkers) - 1 - i : i];
    if (!(flags & marker.flag)) continue;
    if (fromRight) x -= cell;
    DrawSkinImage(context_.previewImages.Image(std::u16string_view(marker.image)), dc, x, middle - cell / 2);
    if (!fromRight) x += cell;
  }
  return x;
}

}  // namespace tw
