#include "tools/log/windows/unix_seconds.h"

#include "platform/windows/system/win32.h"

namespace tolvane::logtool {

std::optional<std::int64_t> UnixSeconds(const platform::LocalTime& time) {
  SYSTEMTIME local{};
  local.wYear = static_cast<WORD>(time.year);
  local.wMonth = static_cast<WORD>(time.month);
  local.wDay = static_cast<WORD>(time.day);
  local.wHour = static_cast<WORD>(time.hour);
  local.wMinute = static_cast<WORD>(time.minute);
  local.wSecond = static_cast<WORD>(time.second);
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
