#include "platform/memory/memory_locale.h"

#include "base/wide_string.h"
#include "platform/memory/memory_registry.h"

namespace tw {
namespace {

constexpr const char16_t* kDays[] = {u"Monday", u"Tuesday", u"Wednesday", u"Thursday",
                                     u"Friday", u"Saturday", u"Sunday"};
constexpr const char16_t* kMonths[] = {u"January", u"February", u"March",     u"April",
                                       u"May",     u"June",     u"July",      u"August",
                                       u"September", u"October", u"November", u"December"};

// Expands a GetDateFormatW/GetTimeFormatW picture: runs of d M y h H m t,
// text in single quotes taken literally.
std::u16string Expand(const CalendarDate& d, std::u16string_view picture) {
  std::u16string out;
  for (std::size_t i = 0; i < picture.size();) {
    char16_t c = picture[i];
    if (c == u'\'') {
      std::size_t end = picture.find(u'\'', i + 1);
      if (end == std::u16string_view::npos) end = picture.size();
      out.append(picture.substr(i + 1, end - i - 1));
      i = end + 1;
      continue;
    }
    std::size_t run = 1;
    while (i + run < picture.size() && picture[i + run] == c) ++run;
    int weekday = (d.dayOfWeek + 6) % 7;  // Sunday-based to Monday-based
    int hour12 = d.hour % 12 == 0 ? 12 : d.hour % 12;
    switch (c) {
      case u'd':
        if (run >= 4) out += kDays[weekday];
        else if (run == 3) out += std::u16string(kDays[weekday]).substr(0, 3);
        else out += FormatText(run == 2 ? u"%02d" : u"%d", {d.day});
        break;
      case u'M':
        if (run >= 4) out += kMonths[d.month - 1];
        else if (run == 3) out += std::u16string(kMonths[d.month - 1]).substr(0, 3);
        else out += FormatText(run == 2 ? u"%02d" : u"%d", {d.month});
        break;
      case u'y':
        out += run <= 2 ? FormatText(run == 2 ? u"%02d" : u"%d", {d.year % 100})
                        : FormatText(u"%d", {d.year});
        break;
      case u'h': out += FormatText(run >= 2 ? u"%02d" : u"%d", {hour12}); break;
      case u'H': out += FormatText(run >= 2 ? u"%02d" : u"%d", {d.hour}); break;
      case u'm': out += FormatText(u"%02d", {d.minute}); break;
      case u't': out += run >= 2 ? (d.hour < 12 ? u"AM" : u"PM") : (d.hour < 12 ? u"A" : u"P"); break;
      default: out.append(run, c);
    }
    i += run;
  }
  return out;
}

}  // namespace

std::u16string MemoryLocale::DayName(int day, bool abbreviated) {
  std::u16string name = kDays[((day % 7) + 7) % 7];
  return abbreviated ? name.substr(0, 3) : name;
}

std::u16string MemoryLocale::FormatDate(const CalendarDate& date, DateStyle style,
                                        std::u16string_view picture) {
  if (style == DateStyle::Short) return Expand(date, u"M/d/yyyy");
  if (style == DateStyle::Long) return Expand(date, u"dddd, MMMM dd, yyyy");
  return Expand(date, picture);
}

std::u16string MemoryLocale::FormatTime(const CalendarDate& time, std::u16string_view picture) {
  if (picture.empty()) picture = timeFormatIndicator == u"1" ? u"HH:mm" : u"h:mm tt";
  return Expand(time, picture);
}

int MemoryLocale::CompareIgnoreCase(std::u16string_view a, std::u16string_view b) {
  return CompareRegistryNames(a, b);
}

}  // namespace tw
