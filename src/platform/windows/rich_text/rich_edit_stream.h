#pragma once

#include <string>
#include <string_view>

#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// What the control writes in `format`, SF_RTF with or without SFF_SELECTION.
[[nodiscard]] std::string StreamOut(HWND rich_edit, UINT format);

/// Replaces the whole content by the rich text in `rtf`. False when the control could not read it,
/// or did not take a byte; what it then holds is anything.
[[nodiscard]] bool StreamIn(HWND rich_edit, std::string_view rtf);

}  // namespace tolvane::platform::windows
