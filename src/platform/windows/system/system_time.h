#pragma once

#include "platform/local_time.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

[[nodiscard]] inline SYSTEMTIME ToSystemTime(const LocalTime& time) {
  SYSTEMTIME system{};
  system.wYear = static_cast<WORD>(time.year);
  system.wMonth = static_cast<WORD>(time.month);
  system.wDay = static_cast<WORD>(time.day);
  system.wDayOfWeek = static_cast<WORD>(time.weekday);
  system.wHour = static_cast<WORD>(time.hour);
  system.wMinute = static_cast<WORD>(time.minute);
  system.wSecond = static_cast<WORD>(time.second);
  return system;
}

}  // namespace tolvane::platform::windows
