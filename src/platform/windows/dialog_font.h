#pragma once

#include "platform/windows/handle.h"

namespace tolvane::platform::windows {

/// The font that the user has set for message boxes, in `percent` of its size.
[[nodiscard]] FontHandle DialogFont(int percent = 100);

}  // namespace tolvane::platform::windows
