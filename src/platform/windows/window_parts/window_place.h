#pragma once

#include "platform/screen_place.h"
#include "platform/windows/window_parts/base_window.h"
#include "platform/windows/window_parts/dialog_font.h"

namespace tolvane::platform::windows {

/// What windows may cover of the screen that shows most of `window`, of the first screen without
/// one.
[[nodiscard]] ScreenPlace WorkArea(HWND window);

/// Pixels that such a window takes beside its client area.
[[nodiscard]] SIZE FrameSize(DWORD style, DWORD extended_style, bool has_menu);

/// The look of a window owned by `owner` with a client area of `client` units of 96 dpi.
[[nodiscard]] DialogLook LookOver(HWND owner, SIZE client, DWORD style, DWORD extended_style);

/// Where that window stands: in the middle of its owner, but wholly on the screen that shows most
/// of it.
[[nodiscard]] WindowPlace PlaceOverOwner(HWND owner, const Dpi& dpi, SIZE client, DWORD style,
                                         DWORD extended_style);

}  // namespace tolvane::platform::windows
