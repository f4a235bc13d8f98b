#pragma once

namespace tolvane::platform {

/// The user-interface event loop, seen from the one thread that everything runs on.
///
/// Event gate: timer ticks, clicks and commands reach the logic only while YieldToEvents is open
/// or inside a modal loop begun there (a message box, a menu, a window being dragged). Whatever
/// else pumps messages during a run must not let them through.
class EventLoop {
 public:
  virtual ~EventLoop() = default;

  /// Hands every waiting event to its handler, then returns. Never waits for one. Any handler of
  /// the main window and any timer tick may run inside this call, so callers must be ready for
  /// changed settings, a cleared RxFlag and a rewritten view.
  virtual void YieldToEvents() = 0;
};

}  // namespace tolvane::platform
