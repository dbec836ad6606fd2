// The preview under the Calendar page's icon markers: one sample appointment
// line drawn as the Today item would draw it with the settings now in the
// record (time format, the markers on the left and right, the item fonts and
// colours), with the legend picture and the caption naming the display
// format above it. The line is drawn off-screen and copied in one piece, so
// redrawing it after every change of a strip never flickers.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "pages/settings_page.h"

namespace tw {

// An icon marker: its flag, its name and its picture in the preview's image set.
struct MarkerChoice {
  std::uint32_t flag;
  unsigned name;
  const char16_t* image;
};

// The markers an appointment can carry, in the order the strips offer them.
inline constexpr MarkerChoice kAppointmentMarkers[] = {
    {1, 40255, u"note"},     {2, 40256, u"recurring"},        {4, 40257, u"reminder"},
    {8, 40258, u"private"},  {16, 40259, u"category_symbol"}, {128, 40920, u"attendees"},
    {64, 40260, u"link"},    {256, 40921, u"attached_icon_symbol"},
};

// The preview's texts.
inline constexpr unsigned kPreviewFormatText = 40233;  // "%d": the display format number
inline constexpr unsigned kPreviewOneLineText = 40234, kPreviewTwoLinesText = 40235;
inline constexpr unsigned kSampleSubjectText = 40236, kSampleLocationText = 40237;
// Display formats from this one on give the location a line of its own.
inline constexpr std::int32_t kFirstTwoLineFormat = 7;

// "11:00" or "11:00 AM" as the item writes times, with the record's clock.
std::u16string PreviewTime(const SettingsStore& settings, int hour);

class AppointmentPreview {
 public:
  explicit AppointmentPreview(const PageContext& context) : context_(context) {}

  // Puts the preview's top edge at `top` (client coordinates), page-wide.
  void Place(int top, int width);
  // Legend, caption and sample line.
  RECT Area() const;
  void Paint(HDC dc) const;

 private:
  void PaintLegend(HDC dc) const;
  void PaintCaption(HDC dc) const;
  void PaintSample(HDC dc) const;
  void DrawLine(HDC dc, const RECT& area) const;
  int DrawMarkers(HDC dc, std::uint32_t flags, int x, int y, bool fromRight) const;

  PageContext context_;
  int top_ = 0;
  int width_ = 0;
};

}  // namespace tw
