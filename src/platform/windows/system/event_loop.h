#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "platform/event_gate.h"
#include "platform/event_loop.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// The message loop of the one thread. Windows that are worked with the keyboard like a dialog
/// (Tab, arrow keys, mnemonics) are registered here.
class WindowsEventLoop final : public EventLoop {
 public:
  explicit WindowsEventLoop(EventGate& gate) : gate_(gate) {}

  /// One pass over the queue. On some systems a look into an empty queue costs 70 us, so there is
  /// exactly one such look in each yield.
  void YieldToEvents() override;
  /// Looks into the queue when the last look is a millisecond ago.
  void YieldWhenDue() override;

  /// Waits for events and hands them out until End was called.
  void RunUntilEnd();
  void End();
  [[nodiscard]] bool Ended() const { return ended_; }

  /// WM_QUIT does not end the loop. Nothing in the program posts it: from outside it asks the
  /// program to close, and the handler decides about that, once for each.
  void OnQuit(std::function<void()> handler) { on_quit_ = std::move(handler); }

  /// True when the window has taken the key, which then does nothing else.
  using Keys = std::function<bool(WPARAM key)>;

  /// `keys` is asked first, for every press of a key, once for a key that is held down, and not for
  /// one together with Ctrl, Shift or Alt.
  void AddKeyboardWindow(HWND window, Keys keys = {}) {
    keyboard_windows_.push_back({window, std::move(keys)});
  }
  void RemoveKeyboardWindow(HWND window) {
    std::erase_if(keyboard_windows_, [window](const auto& row) { return row.window == window; });
  }

 private:
  struct KeyboardWindow {
    HWND window;  // not owned; a destroyed one matches no message
    Keys keys;
  };

  [[nodiscard]] static std::int64_t TicksOfMillisecond();
  [[nodiscard]] static std::int64_t Ticks();
  void Dispatch(MSG& message);
  [[nodiscard]] bool HandledAsKey(MSG& message);

  EventGate& gate_;
  std::int64_t ticks_of_millisecond_ = TicksOfMillisecond();
  std::int64_t last_look_ = 0;  // in ticks of the performance counter
  std::function<void()> on_quit_;
  std::vector<KeyboardWindow> keyboard_windows_;
  bool ended_ = false;
};

}  // namespace tolvane::platform::windows
