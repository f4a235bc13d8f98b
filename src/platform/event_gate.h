#pragma once

#include <deque>
#include <functional>

namespace tolvane::platform {

/// Decides when an event may reach the logic.
///
/// Open while the program waits for the user, inside YieldToEvents, and inside the modal loops that
/// the logic begins (a message box, the pop-up, the colour and folder dialogs). Closed while a
/// handler of the logic runs: whatever pumps messages then, an outgoing automation call for one,
/// only fills the waiting line.
class EventGate {
 public:
  using Event = std::function<void()>;

  /// Hands `event` to the logic, with the gate closed while it is handled, or puts it in the line
  /// when the gate is closed already.
  void Deliver(Event event);

  /// Delivers what waits, in its order; each yield and each turn of the main loop begins so. Does
  /// nothing while the gate is closed.
  void DeliverWaiting();

  /// Opens the gate for a scope: a yield or a modal loop of the logic's own.
  class Opened {
   public:
    explicit Opened(EventGate& gate) : gate_(gate), before_(gate.open_) { gate_.open_ = true; }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    ~Opened() { gate_.open_ = before_; }

   private:
    EventGate& gate_;
    bool before_;
  };

 private:
  void Run(const Event& event);

  std::deque<Event> waiting_;
  bool open_ = true;
};

}  // namespace tolvane::platform
