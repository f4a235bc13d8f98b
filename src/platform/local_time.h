#pragma once

#include <cstdint>

#include "platform/string.h"

namespace tolvane::platform {

/// The user's wall clock. Never used to time frames.
struct LocalTime {
  std::int32_t year;     // four digits
  std::int32_t month;    // 1 to 12
  std::int32_t day;      // 1 to 31
  std::int32_t weekday;  // 0 Sunday to 6 Saturday
  std::int32_t hour;     // 0 to 23
  std::int32_t minute;
  std::int32_t second;

  [[nodiscard]] constexpr bool IsMidnight() const {
    return hour == 0 && minute == 0 && second == 0;
  }
};

class WallClock {
 public:
  virtual ~WallClock() = default;
  [[nodiscard]] virtual LocalTime Now() = 0;
  /// Date and time as the user's settings write them ("general date": short date, a blank, long
  /// time). A moment without a time of day, 0:00:00, is the date alone.
  [[nodiscard]] virtual String GeneralDate(const LocalTime& time) = 0;
  /// The weekday's short name in the locale's language, such as "月".
  [[nodiscard]] virtual String ShortWeekday(const LocalTime& time) = 0;
};

}  // namespace tolvane::platform
