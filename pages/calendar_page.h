// The Calendar page (slot 1): everything about the calendar view that is not
// a colour or a font, in seven row lists, and the icon markers drawn beside
// items, with a live preview of an appointment line.
#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <memory>
#include <span>

#include "pages/appointment_preview.h"
#include "pages/row_list_page.h"
#include "platform/win32/win32_text_library.h"

namespace tw {

inline constexpr ControlIdRange kCalendarPageIds{2200, 2399};

inline constexpr int kCalendarTabCount = 8;
inline constexpr int kIconMarkerTab = 4;
inline constexpr int kMarkerStripCount = 6;

// The page's tabs and rows, for tests that walk them.
std::span<const RowTab> CalendarTabs();

struct MarkerStrip {
  const wchar_t* className;
  bool single;  // one choice (shown collapsed) or any set of them
  NumberField field;
  std::span<const MarkerChoice> choices;
  unsigned caption;  // 0: the "2nd :" label of a second single strip
};
extern const MarkerStrip kMarkerStrips[kMarkerStripCount];

// The stored value of a strip: the flag of its one marked choice, or the
// sum of the marked flags.
std::int32_t MarkedValue(const MarkerStrip& strip, HWND window);

class CalendarPage : public RowListPage {
 public:
  explicit CalendarPage(const PageContext& context);
  ~CalendarPage() override;

  void Show(int showCommand, bool includeTabStrip) override;
  bool OnCommand(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  void Paint(HDC dc) override;

  // Asking for a strip or the preview's place makes the strips.
  HWND Strip(int index) {
    MakeMarkerStrips();
    return strips_[index];
  }
  // Where the preview is drawn, in the main window's client coordinates.
  RECT PreviewArea() {
    MakeMarkerStrips();
    return preview_.Area();
  }

 protected:
  void ShowOwnTab(int tab, int showCommand) override;

 private:
  void MakeMarkerStrips();
  void CreateMarkerStrips();
  void StoreStrip(int index);
  void RedrawPreview();

  Win32TextLibrary texts_;  // the strips keep a pointer to it
  std::array<HWND, kMarkerStripCount> strips_ = {};
  std::array<HWND, kMarkerStripCount> stripCaptions_ = {};
  AppointmentPreview preview_;
  bool shown_ = false;
  bool stripsMade_ = false;
};

std::unique_ptr<SettingsPage> MakeCalendarPage(const PageContext& context);

}  // namespace tw
