#pragma once

#include "platform/local_time.h"

namespace tolvane::platform::memory {

/// Stands still until it is set. Writes dates as Japanese systems do.
class WallClock final : public platform::WallClock {
 public:
  explicit WallClock(const LocalTime& now) : now_(now) {}

  [[nodiscard]] LocalTime Now() override { return now_; }
  /// "2026/11/20 9:05:07", at midnight "2026/11/20".
  [[nodiscard]] String GeneralDate(const LocalTime& time) override;
  [[nodiscard]] String ShortWeekday(const LocalTime& time) override;

  void Set(const LocalTime& now) { now_ = now; }

 private:
  LocalTime now_;
};

}  // namespace tolvane::platform::memory
