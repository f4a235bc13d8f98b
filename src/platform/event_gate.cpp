#include "platform/event_gate.h"

#include <utility>

namespace tolvane::platform {

void EventGate::Deliver(Event event) {
  if (!open_) {
    waiting_.push_back(std::move(event));
    return;
  }
  Run(event);
}

void EventGate::DeliverWaiting() {
  // A handler may leave new events behind; they are delivered too, in the order of their coming.
  while (open_ && !waiting_.empty()) {
    const Event event = std::move(waiting_.front());
    waiting_.pop_front();
    Run(event);
  }
}

void EventGate::Run(const Event& event) {
  open_ = false;
  event();
  open_ = true;
}

}  // namespace tolvane::platform
