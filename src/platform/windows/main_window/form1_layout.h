#pragma once

#include "platform/windows/window_parts/dpi.h"

namespace tolvane::platform::windows {

/// Smallest and first size of the client area, in units of 96 dpi.
inline constexpr SIZE kSmallestClient{820, 360};
inline constexpr SIZE kFirstClient{1000, 640};

/// Makes the controls but for the view, in the tab order, all with `font` and without a place.
/// False when the system refuses one.
[[nodiscard]] bool AddForm1Controls(HWND window, HFONT font);

/// Moves every child of the main window to its place in a client area of `client` pixels.
void LayOutForm1(HWND window, const Dpi& dpi, SIZE client);

}  // namespace tolvane::platform::windows
