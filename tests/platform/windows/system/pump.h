#pragma once

#include "platform/windows/system/event_loop.h"

namespace tolvane::platform::windows {

/// Yields until `done()` or until five seconds have gone; gives `done()`.
template <typename Done>
bool PumpUntil(WindowsEventLoop& loop, Done done) {
  const ULONGLONG deadline = GetTickCount64() + 5000;
  while (!done() && GetTickCount64() < deadline) loop.YieldToEvents();
  return done();
}

}  // namespace tolvane::platform::windows
