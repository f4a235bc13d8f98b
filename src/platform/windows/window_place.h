#pragma once

#include "platform/windows/base_window.h"
#include "platform/windows/dpi.h"

namespace tolvane::platform::windows {

/// Where a window owned by `owner` with a client area of `client` units of 96 dpi stands: in the
/// middle of its owner, but wholly on the screen that shows most of it.
[[nodiscard]] WindowPlace PlaceOverOwner(HWND owner, const Dpi& dpi, SIZE client, DWORD style,
                                         DWORD extended_style);

}  // namespace tolvane::platform::windows
