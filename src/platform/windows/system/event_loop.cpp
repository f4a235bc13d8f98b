#include "platform/windows/system/event_loop.h"

#include <algorithm>

namespace tolvane::platform::windows {
namespace {

constexpr LPARAM kHeldBefore = 1 << 30;

bool IsPlainPress(const MSG& message) {
  if (message.message != WM_KEYDOWN || (message.lParam & kHeldBefore) != 0) return false;
  return GetKeyState(VK_CONTROL) >= 0 && GetKeyState(VK_SHIFT) >= 0 && GetKeyState(VK_MENU) >= 0;
}

}  // namespace

void WindowsEventLoop::YieldToEvents() {
  const EventGate::Opened opened(gate_);
  gate_.DeliverWaiting();
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    Dispatch(message);
  }
  last_look_ = Ticks();
}

void WindowsEventLoop::YieldWhenDue() {
  if (Ticks() - last_look_ >= ticks_of_millisecond_) {
    YieldToEvents();
    return;
  }
  const EventGate::Opened opened(gate_);
  gate_.DeliverWaiting();
}

std::int64_t WindowsEventLoop::TicksOfMillisecond() {
  LARGE_INTEGER ticks{};
  QueryPerformanceFrequency(&ticks);
  return ticks.QuadPart / 1000;
}

std::int64_t WindowsEventLoop::Ticks() {
  LARGE_INTEGER ticks{};
  QueryPerformanceCounter(&ticks);
  return ticks.QuadPart;
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
  if (HandledAsKey(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

bool WindowsEventLoop::HandledAsKey(MSG& message) {
  const HWND window = message.hwnd == nullptr ? nullptr : GetAncestor(message.hwnd, GA_ROOT);
  const auto row = std::ranges::find(keyboard_windows_, window, &KeyboardWindow::window);
  if (row == keyboard_windows_.end() || !IsWindowVisible(window)) return false;
  if (IsPlainPress(message)) {
    // The handler of a key may open or close such a window, so the list is left before.
    const Keys keys = row->keys;
    if (keys && keys(message.wParam)) return true;
  }
  return IsDialogMessageW(window, &message) != FALSE;
}

}  // namespace tolvane::platform::windows
