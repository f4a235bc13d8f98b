#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include "platform/event_loop.h"

namespace tolvane::platform::memory {

/// A yield runs what a test has given: the user, a tick of a timer, a device arriving. A handler
/// that yields again is not entered a second time.
class EventLoop final : public platform::EventLoop {
 public:
  void YieldToEvents() override {
    ++yields_;
    if (!on_yield_ || inside_) return;
    inside_ = true;
    on_yield_();
    inside_ = false;
  }

  void OnYield(std::function<void()> handler) { on_yield_ = std::move(handler); }
  [[nodiscard]] std::int64_t Yields() const { return yields_; }

 private:
  std::function<void()> on_yield_;
  std::int64_t yields_ = 0;
  bool inside_ = false;
};

}  // namespace tolvane::platform::memory
