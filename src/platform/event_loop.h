#pragma once

namespace tolvane::platform {

/// The user-interface event loop, seen from the one thread that everything runs on.
///
/// Event gate: while the logic runs, timer ticks, clicks and commands reach it only inside
/// a yield, inside a modal loop begun there (a menu, a window being dragged), or inside one
/// that the logic begins itself (a message box: the stop message of a failed open, for one).
/// Whatever else pumps messages must not let them through.
class EventLoop {
 public:
  virtual ~EventLoop() = default;

  /// Hands every waiting event to its handler, then returns. Never waits for one. Any handler of
  /// the main window and any timer tick may run inside this call, so callers must be ready for
  /// changed settings, a cleared RxFlag and a rewritten view.
  virtual void YieldToEvents() = 0;

  /// The same for yields that follow each other closely, in a tick and in the search for a free
  /// file name: where to ask the system costs more than what lies between, it is asked only once a
  /// millisecond, and an event waits that long.
  virtual void YieldWhenDue() { YieldToEvents(); }
};

}  // namespace tolvane::platform
