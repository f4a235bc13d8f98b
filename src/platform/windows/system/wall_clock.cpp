#include "platform/windows/system/wall_clock.h"

#include <array>

#include "platform/windows/system/system_time.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

constexpr int kRoom = 128;  // the longest format of the settings has 80 characters

/// Runs one of the formatting calls of the locale, which count the closing NUL.
template <typename Write>
String LocaleText(Write write) {
  std::array<wchar_t, kRoom> buffer{};
  const int length = write(buffer.data());
  if (length < 1) return {};
  return String(FromWide(buffer.data(), static_cast<std::size_t>(length - 1)));
}

}  // namespace

LocalTime WindowsWallClock::Now() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wDayOfWeek, now.wHour, now.wMinute, now.wSecond};
}

String WindowsWallClock::GeneralDate(const LocalTime& time) {
  const SYSTEMTIME system = ToSystemTime(time);
  const String date = LocaleText([&system](wchar_t* buffer) {
    return GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &system, nullptr, buffer, kRoom);
  });
  if (time.IsMidnight()) return date;
  return date + u' ' + LocaleText([&system](wchar_t* buffer) {
           return GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &system, nullptr, buffer, kRoom);
         });
}

String WindowsWallClock::ShortWeekday(const LocalTime& time) {
  // The locale's list begins with Monday.
  const auto item = static_cast<LCTYPE>(LOCALE_SABBREVDAYNAME1 + (time.weekday + 6) % 7);
  return LocaleText(
      [item](wchar_t* buffer) { return GetLocaleInfoW(LOCALE_USER_DEFAULT, item, buffer, kRoom); });
}

}  // namespace tolvane::platform::windows
