#pragma once

#include "platform/local_time.h"

namespace tolvane::platform::windows {

class WindowsWallClock final : public WallClock {
 public:
  [[nodiscard]] LocalTime Now() override;
  [[nodiscard]] String GeneralDate(const LocalTime& time) override;
  [[nodiscard]] String ShortWeekday(const LocalTime& time) override;
};

}  // namespace tolvane::platform::windows
