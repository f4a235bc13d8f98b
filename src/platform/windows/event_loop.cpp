#include "platform/windows/event_loop.h"

#include <algorithm>

namespace tolvane::platform::windows {

void WindowsEventLoop::YieldToEvents() {
  const EventGate::Opened opened(gate_);
  gate_.DeliverWaiting();
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    Dispatch(message);
  }
}

void WindowsEventLoop::RunUntilEnd() {
  MSG message;
  while (!ended_ && GetMessageW(&message, nullptr, 0, 0) >= 0) {
    Dispatch(message);
    gate_.DeliverWaiting();
  }
}

void WindowsEventLoop::End() {
  ended_ = true;
  // A message that another program sent is handled inside GetMessage, which then waits on.
  PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

void WindowsEventLoop::Dispatch(MSG& message) {
  if (message.message == WM_QUIT) {
    if (on_quit_) on_quit_();
    return;
  }
  // The handler of a key may open or close such a window, so the list is left before.
  const HWND window = message.hwnd == nullptr ? nullptr : GetAncestor(message.hwnd, GA_ROOT);
  const bool by_keyboard = std::ranges::find(keyboard_windows_, window) != keyboard_windows_.end();
  if (by_keyboard && IsWindowVisible(window) && IsDialogMessageW(window, &message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

}  // namespace tolvane::platform::windows
