#pragma once

#include "platform/windows/system/handle.h"
#include "platform/windows/window_parts/dpi.h"

namespace tolvane::platform::windows {

/// Loads a picture of the program in `size` units of 96 dpi and shows it in the picture control
/// `control` of `window`. The result must live as long as the control.
[[nodiscard]] inline IconHandle ShowPicture(HWND window, int control, int picture, int size,
                                            const Dpi& dpi) {
  const int pixels = dpi.Pixels(size);
  IconHandle icon(static_cast<HICON>(LoadImageW(
      GetModuleHandleW(nullptr), MAKEINTRESOURCEW(picture), IMAGE_ICON, pixels, pixels, 0)));
  SendDlgItemMessageW(window, control, STM_SETICON, reinterpret_cast<WPARAM>(icon.Get()), 0);
  return icon;
}

}  // namespace tolvane::platform::windows
