#include "platform/windows/window_place.h"

#include <algorithm>

namespace tolvane::platform::windows {
namespace {

/// The start of `length` in the middle between `low` and `high`, kept inside the screen's limits;
/// what is longer than the screen shows its beginning.
LONG Middle(LONG low, LONG high, LONG length, LONG screen_low, LONG screen_high) {
  const LONG start = (low + high - length) / 2;
  return std::max(screen_low, std::min(start, screen_high - length));
}

}  // namespace

WindowPlace PlaceOverOwner(HWND owner, const Dpi& dpi, SIZE client, DWORD style,
                           DWORD extended_style) {
  RECT size{0, 0, dpi.Pixels(client.cx), dpi.Pixels(client.cy)};
  AdjustWindowRectEx(&size, style, FALSE, extended_style);
  const LONG width = size.right - size.left;
  const LONG height = size.bottom - size.top;

  MONITORINFO monitor{};
  monitor.cbSize = sizeof(monitor);
  GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& screen = monitor.rcWork;
  RECT around = screen;
  if (!IsIconic(owner)) GetWindowRect(owner, &around);
  const LONG left = Middle(around.left, around.right, width, screen.left, screen.right);
  const LONG top = Middle(around.top, around.bottom, height, screen.top, screen.bottom);
  return {.style = style,
          .extended_style = extended_style,
          .bounds = {left, top, left + width, top + height},
          .parent = owner};
}

}  // namespace tolvane::platform::windows
