#include "platform/windows/window_parts/window_place.h"

namespace tolvane::platform::windows {
namespace {

ScreenPlace PlaceOf(const RECT& bounds) {
  return {static_cast<std::int32_t>(bounds.left), static_cast<std::int32_t>(bounds.top),
          static_cast<std::int32_t>(bounds.right - bounds.left),
          static_cast<std::int32_t>(bounds.bottom - bounds.top)};
}

}  // namespace

ScreenPlace WorkArea(HWND window) {
  const DWORD without = window == nullptr ? MONITOR_DEFAULTTOPRIMARY : MONITOR_DEFAULTTONEAREST;
  MONITORINFO monitor{};
  monitor.cbSize = sizeof(monitor);
  GetMonitorInfoW(MonitorFromWindow(window, without), &monitor);
  return PlaceOf(monitor.rcWork);
}

SIZE FrameSize(DWORD style, DWORD extended_style, bool has_menu) {
  RECT bounds{};
  AdjustWindowRectEx(&bounds, style, has_menu, extended_style);
  return {bounds.right - bounds.left, bounds.bottom - bounds.top};
}

DialogLook LookOver(HWND owner, SIZE client, DWORD style, DWORD extended_style) {
  const ScreenPlace area = WorkArea(owner);
  return {client, FrameSize(style, extended_style, false), {area.width, area.height}};
}

WindowPlace PlaceOverOwner(HWND owner, const Dpi& dpi, SIZE client, DWORD style,
                           DWORD extended_style) {
  const SIZE frame = FrameSize(style, extended_style, false);
  const Extent size{static_cast<std::int32_t>(dpi.Pixels(client.cx) + frame.cx),
                    static_cast<std::int32_t>(dpi.Pixels(client.cy) + frame.cy)};
  const ScreenPlace area = WorkArea(owner);
  ScreenPlace around = area;
  if (RECT bounds{}; !IsIconic(owner) && GetWindowRect(owner, &bounds)) around = PlaceOf(bounds);
  const ScreenPlace place = InMiddle(around, size, area);
  return {.style = style,
          .extended_style = extended_style,
          .bounds = {place.left, place.top, place.left + place.width, place.top + place.height},
          .parent = owner};
}

}  // namespace tolvane::platform::windows
