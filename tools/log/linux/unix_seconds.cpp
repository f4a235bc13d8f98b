#include "tools/log/command/unix_seconds.h"

#include <ctime>

namespace tolvane::logtool {

std::optional<std::int64_t> UnixSeconds(const platform::LocalTime& time) {
  std::tm parts{};
  parts.tm_year = time.year - 1900;
  parts.tm_mon = time.month - 1;
  parts.tm_mday = time.day;
  parts.tm_hour = time.hour;
  parts.tm_min = time.minute;
  parts.tm_sec = time.second;
  parts.tm_isdst = -1;  // the zone knows
  const std::time_t seconds = std::mktime(&parts);
  if (seconds == std::time_t{-1}) return {};
  return seconds;
}

}  // namespace tolvane::logtool
