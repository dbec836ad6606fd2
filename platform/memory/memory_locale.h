// A locale whose answers tests set: US English by default.
#pragma once

#include "platform/locale.h"

namespace tw {

class MemoryLocale : public Locale {
 public:
  std::u16string timeFormatIndicator = u"0";  // "1" = 24-hour clock
  std::u16string firstDayOfWeek = u"6";       // 0 = Monday .. 6 = Sunday

  std::u16string TimeFormatIndicator() override { return timeFormatIndicator; }
  std::u16string FirstDayOfWeek() override { return firstDayOfWeek; }
  std::u16string DayName(int day, bool abbreviated) override;
  std::u16string FormatDate(const CalendarDate& date, DateStyle style,
                            std::u16string_view picture) override;
  std::u16string FormatTime(const CalendarDate& time, std::u16string_view picture) override;
  int CompareIgnoreCase(std::u16string_view a, std::u16string_view b) override;
};

}  // namespace tw
