#pragma once

#include "platform/event_gate.h"
#include "platform/windows/system/event_loop.h"

namespace tolvane::platform::windows {

/// What every window beside the main one needs. All of it outlives them.
struct DialogSurroundings {
  HINSTANCE instance;
  EventGate& gate;
  WindowsEventLoop& loop;
  HWND main_window;  // owns them
};

}  // namespace tolvane::platform::windows
