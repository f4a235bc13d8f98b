#include "tools/log/command/unix_seconds.h"

#include "platform/windows/system/system_time.h"

namespace tolvane::logtool {

std::optional<std::int64_t> UnixSeconds(const platform::LocalTime& time) {
  const SYSTEMTIME local = platform::windows::ToSystemTime(time);
  SYSTEMTIME utc;
  FILETIME file_time;
  if (!TzSpecificLocalTimeToSystemTime(nullptr, &local, &utc) ||
      !SystemTimeToFileTime(&utc, &file_time)) {
    return {};
  }
  constexpr std::int64_t kTicksOfSecond = 10'000'000;
  constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;  // from 1601
  const auto ticks = static_cast<std::int64_t>(std::uint64_t{file_time.dwHighDateTime} << 32 |
                                               file_time.dwLowDateTime);
  return ticks / kTicksOfSecond - kSecondsTo1970;
}

}  // namespace tolvane::logtool
