#pragma once

#include "platform/windows/window_parts/dpi.h"

namespace tolvane::platform::windows {

/// The tool tip window of `owner`, which destroys it.
[[nodiscard]] HWND CreateToolTips(HWND owner, const Dpi& dpi);

/// Shows `text` while the pointer rests on `child`, a child of `owner`.
void AddToolTip(HWND tool_tips, HWND owner, HWND child, const wchar_t* text);

}  // namespace tolvane::platform::windows
