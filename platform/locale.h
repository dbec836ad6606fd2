// The user's locale as the settings need it: the clock and week conventions
// that some defaults follow, date and time samples for choice lists, and the
// comparison that orders category names.
#pragma once

#include <string>
#include <string_view>

namespace tw {

struct CalendarDate {
  int year = 2000, month = 1, day = 1;  // month 1..12
  int dayOfWeek = 6;                    // 0 = Sunday .. 6 = Saturday
  int hour = 0, minute = 0;
};

enum class DateStyle { Picture, Short, Long };

class Locale {
 public:
  virtual ~Locale() = default;
  // LOCALE_ITIME: "1" for a 24-hour clock, "0" for 12-hour.
  virtual std::u16string TimeFormatIndicator() = 0;
  // LOCALE_IFIRSTDAYOFWEEK as the locale gives it: "0" = Monday .. "6" = Sunday.
  virtual std::u16string FirstDayOfWeek() = 0;
  // Full (or abbreviated) name of a day, 0 = Monday .. 6 = Sunday.
  virtual std::u16string DayName(int day, bool abbreviated) = 0;
  // GetDateFormatW with a picture such as "M'/'d'/'yy", or the locale's short or long date.
  virtual std::u16string FormatDate(const CalendarDate& date, DateStyle style,
                                    std::u16string_view picture = {}) = 0;
  // GetTimeFormatW without seconds, with a picture or the locale's own.
  virtual std::u16string FormatTime(const CalendarDate& time, std::u16string_view picture = {}) = 0;
  // CompareStringW for the user's locale ignoring case: <0, 0, >0.
  virtual int CompareIgnoreCase(std::u16string_view a, std::u16string_view b) = 0;
};

}  // namespace tw
