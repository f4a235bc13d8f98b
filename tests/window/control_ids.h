#pragma once

#include <tolvane_control_ids.h>

namespace tolvane::window {

/// The numbers of the program's controls, commands and icons.
namespace id = platform::windows::id;

}  // namespace tolvane::window
