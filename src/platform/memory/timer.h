#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/memory/journal.h"
#include "platform/timer.h"

namespace tolvane::platform::memory {

/// A timer whose ticks come when a test calls Tick.
class Timer final : public platform::Timer {
 public:
  explicit Timer(Journal& journal, std::string name = "TimerBackView", std::int32_t interval = 30)
      : journal_(journal), name_(std::move(name)), interval_(interval) {}

  [[nodiscard]] bool Enabled() const override { return enabled_; }
  void Enabled(bool enabled) override {
    enabled_ = enabled;
    journal_.Assign(name_, "Enabled", enabled);
  }
  [[nodiscard]] std::int32_t Interval() const override { return interval_; }
  void OnTick(std::function<void()> handler) override { on_tick_ = std::move(handler); }

  /// The period has passed. Nothing happens while the timer is off.
  void Tick() {
    if (enabled_ && on_tick_) on_tick_();
  }

 private:
  Journal& journal_;
  std::string name_;
  std::int32_t interval_;
  bool enabled_ = false;
  std::function<void()> on_tick_;
};

}  // namespace tolvane::platform::memory
