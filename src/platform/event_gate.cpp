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
  // A handler may add new events; they are delivered too, in the order in which they came.
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
