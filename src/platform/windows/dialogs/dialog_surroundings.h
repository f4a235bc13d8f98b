#pragma once

#include "platform/event_gate.h"
#include "platform/windows/system/event_loop.h"

namespace tolvane::platform::windows {

/// What the windows that the menus open need. All of it outlives them.
struct DialogSurroundings {
  HINSTANCE instance;
  EventGate& gate;
  WindowsEventLoop& loop;
  HWND main_window;  // owns them
};

}  // namespace tolvane::platform::windows
