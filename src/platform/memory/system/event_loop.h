#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include "platform/event_gate.h"
#include "platform/event_loop.h"

namespace tolvane::platform::memory {

/// A yield opens the gate, delivers what waits at it and then lets a test act: the user, the tick
/// of a timer, a device arriving. A handler that yields in turn lets the test act again, within the
/// handler, as the next message of a queue would.
class EventLoop final : public platform::EventLoop {
 public:
  explicit EventLoop(EventGate& gate) : gate_(gate) {}

  void YieldToEvents() override {
    ++yields_;
    const EventGate::Opened opened(gate_);
    gate_.DeliverWaiting();
    if (on_yield_) on_yield_();
  }

  /// Not to be called by the handler itself.
  void OnYield(std::function<void()> handler) { on_yield_ = std::move(handler); }
  [[nodiscard]] std::int64_t Yields() const { return yields_; }

 private:
  EventGate& gate_;
  std::function<void()> on_yield_;
  std::int64_t yields_ = 0;
};

}  // namespace tolvane::platform::memory
