#pragma once

#include <string>

#include "platform/memory/system/journal.h"
#include "platform/timer_resolution.h"

namespace tolvane::platform::memory {

class TimerResolution final : public platform::TimerResolution {
 public:
  explicit TimerResolution(Journal& journal) : journal_(journal) {}

  void timeBeginPeriod(std::uint32_t period) override {
    journal_.Note("timeBeginPeriod(" + std::to_string(period) + ")");
  }
  void timeEndPeriod(std::uint32_t period) override {
    journal_.Note("timeEndPeriod(" + std::to_string(period) + ")");
  }

 private:
  Journal& journal_;
};

}  // namespace tolvane::platform::memory
