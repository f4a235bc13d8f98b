#pragma once

#include <cstdint>

namespace tolvane::platform {

/// The multimedia timer service's system-wide resolution (winmm.dll).
class TimerResolution {
 public:
  virtual ~TimerResolution() = default;

  /// Asks for `period` ms; each call is matched by one timeEndPeriod of the same period.
  virtual void timeBeginPeriod(std::uint32_t period) = 0;
  virtual void timeEndPeriod(std::uint32_t period) = 0;
};

}  // namespace tolvane::platform
