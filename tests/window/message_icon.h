#pragma once

#include <windows.h>

namespace tolvane::window {

/// Whether a standing message box shows one of the system's icons, such as IDI_HAND, pixel by pixel
/// on the screen: the icon's handle belongs to the other process.
[[nodiscard]] bool ShowsIcon(HWND box, const wchar_t* system_icon);

}  // namespace tolvane::window
