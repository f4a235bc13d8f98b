#pragma once

#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// Lets a static control be worked like a push button by the keyboard: Tab comes to it, which a
/// mark shows, and the space bar presses it. The parent is told as of a click: WM_COMMAND with
/// STN_CLICKED. `control` must have WS_TABSTOP.
void MakePressable(HWND control);

}  // namespace tolvane::platform::windows
