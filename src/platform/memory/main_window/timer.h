#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/event_gate.h"
#include "platform/memory/system/journal.h"
#include "platform/timer.h"

namespace tolvane::platform::memory {

/// A timer whose ticks come when a test calls Tick, as far as the gate lets them through.
class Timer final : public platform::Timer {
 public:
  Timer(Journal& journal, EventGate& gate, std::string name = "TimerBackView",
        std::int32_t interval = 30)
      : journal_(journal), gate_(gate), name_(std::move(name)), interval_(interval) {}

  [[nodiscard]] bool Enabled() const override { return enabled_; }
  void Enabled(bool enabled) override {
    enabled_ = enabled;
    ++period_;
    journal_.Assign(name_, "Enabled", enabled);
  }
  [[nodiscard]] std::int32_t Interval() const override { return interval_; }
  void OnTick(std::function<void()> handler) override { on_tick_ = std::move(handler); }

  /// The period has passed. Nothing happens while the timer is off, also when it was switched off
  /// while the tick waited at the gate. A second tick that waits there would add nothing.
  void Tick() {
    if (!enabled_ || waiting_) return;
    waiting_ = true;
    gate_.Deliver([this, period = period_] {
      waiting_ = false;
      if (enabled_ && period == period_ && on_tick_) on_tick_();
    });
  }

 private:
  Journal& journal_;
  EventGate& gate_;
  std::string name_;
  std::int32_t interval_;
  std::int64_t period_ = 0;
  bool enabled_ = false;
  bool waiting_ = false;
  std::function<void()> on_tick_;
};

}  // namespace tolvane::platform::memory
