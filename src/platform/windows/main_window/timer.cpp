#include "platform/windows/main_window/timer.h"

#include <utility>

namespace tolvane::platform::windows {

WorkerWindow::WorkerWindow(EventGate& gate, HINSTANCE instance, std::int32_t interval)
    : gate_(gate), interval_(interval) {
  // Without its window the timer never ticks; the main window checks that it is there.
  static_cast<void>(Create(instance, {.parent = HWND_MESSAGE}));
}

void WorkerWindow::Enabled(bool enabled) {
  if (enabled_) KillTimer(Hwnd(), id_);
  enabled_ = enabled && Hwnd() != nullptr &&
             SetTimer(Hwnd(), ++id_, static_cast<UINT>(interval_), nullptr) != 0;
  TellRunning();
}

void WorkerWindow::TellRunning() {
  const bool running = enabled_ || ticking_;
  if (std::exchange(told_running_, running) == running) return;
  if (on_running_) on_running_(running);
}

LRESULT WorkerWindow::HandleMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_TIMER:
      Tick(wparam);
      return 0;
    case WM_DESTROY:
      Enabled(false);
      return 0;
    default:
      return DefaultHandling(message, wparam, lparam);
  }
}

void WorkerWindow::Tick(UINT_PTR id) {
  if (waiting_) return;
  waiting_ = true;
  gate_.Deliver([this, id] {
    waiting_ = false;
    if (enabled_ && id == id_ && handler_) RunTick();
  });
}

void WorkerWindow::RunTick() {
  ticking_ = true;
  handler_();
  ticking_ = false;
  TellRunning();
}

}  // namespace tolvane::platform::windows
