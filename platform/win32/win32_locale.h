#pragma once

#include "platform/locale.h"

namespace tw {

// The user's locale through GetLocaleInfoW and the date and time formatters,
// asked afresh on every call so that a change between load and save is seen.
class Win32Locale : public Locale {
 public:
  std::u16string TimeFormatIndicator() override;
  std::u16string FirstDayOfWeek() override;
  std::u16string DayName(int day, bool abbreviated) override;
  std::u16string FormatDate(const CalendarDate& date, DateStyle style,
                            std::u16string_view picture) override;
  std::u16string FormatTime(const CalendarDate& time, std::u16string_view picture) override;
  int CompareIgnoreCase(std::u16string_view a, std::u16string_view b) override;
};

}  // namespace tw
