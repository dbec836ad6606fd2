#include "platform/win32/win32_locale.h"

#include <windows.h>

#include "platform/win32/wide.h"

namespace tw {
namespace {

std::u16string Info(LCTYPE type, int bufferChars) {
  wchar_t buffer[128] = {};
  int got = GetLocaleInfoW(LOCALE_USER_DEFAULT, type, buffer, bufferChars);
  return got > 0 ? ToU16(buffer) : std::u16string();
}

SYSTEMTIME ToSystemTime(const CalendarDate& d) {
  SYSTEMTIME t = {};
  t.wYear = static_cast<WORD>(d.year);
  t.wMonth = static_cast<WORD>(d.month);
  t.wDay = static_cast<WORD>(d.day);
  t.wDayOfWeek = static_cast<WORD>(d.dayOfWeek);
  t.wHour = static_cast<WORD>(d.hour);
  t.wMinute = static_cast<WORD>(d.minute);
  return t;
}

}  // namespace

std::u16string Win32Locale::TimeFormatIndicator() { return Info(LOCALE_ITIME, 2); }

std::u16string Win32Locale::FirstDayOfWeek() { return Info(LOCALE_IFIRSTDAYOFWEEK, 5); }

std::u16string Win32Locale::DayName(int day, bool abbreviated) {
  LCTYPE first = abbreviated ? LOCALE_SABBREVDAYNAME1 : LOCALE_SDAYNAME1;
  return Info(first + ((day % 7) + 7) % 7, 128);
}

std::u16string Win32Locale::FormatDate(const CalendarDate& date, DateStyle style,
                                       std::u16string_view picture) {
  SYSTEMTIME t = ToSystemTime(date);
  std::wstring format = ToWide(picture);
  DWORD flags = style == DateStyle::Short ? DATE_SHORTDATE : style == DateStyle::Long ? DATE_LONGDATE : 0;
  wchar_t buffer[256] = {};
  int got = GetDateFormatW(LOCALE_USER_DEFAULT, flags, &t,
                           style == DateStyle::Picture ? format.c_str() : nullptr, buffer, 256);
  return got > 0 ? ToU16(buffer) : std::u16string();
}

std::u16string Win32Locale::FormatTime(const CalendarDate& time, std::u16string_view picture) {
  SYSTEMTIME t = ToSystemTime(time);
  std::wstring format = ToWide(picture);
  wchar_t buffer[128] = {};
  int got = GetTimeFormatW(LOCALE_USER_DEFAULT, picture.empty() ? TIME_NOSECONDS : 0, &t,
                           picture.empty() ? nullptr : format.c_str(), buffer, 128);
  return got > 0 ? ToU16(buffer) : std::u16string();
}

int Win32Locale::CompareIgnoreCase(std::u16string_view a, std::u16string_view b) {
  int result = CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, AsWide(a.data()),
                              static_cast<int>(a.size()), AsWide(b.data()), static_cast<int>(b.size()));
  return result - CSTR_EQUAL;
}

}  // namespace tw
