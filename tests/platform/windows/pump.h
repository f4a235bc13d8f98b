#pragma once

#include "platform/windows/event_loop.h"

namespace tolvane::platform::windows {

/// Yields until `done()` or until five seconds have gone; gives `done()`.
template <typename Done>
bool PumpUntil(WindowsEventLoop& loop, Done done) {
  const ULONGLONG deadline = GetTickCount64() + 5000;
  while (!done() && GetTickCount64() < deadline) loop.YieldToEvents();
  return done();
}

/// Yields for `milliseconds`.
inline void PumpFor(WindowsEventLoop& loop, ULONGLONG milliseconds) {
  const ULONGLONG end = GetTickCount64() + milliseconds;
  while (GetTickCount64() < end) loop.YieldToEvents();
}

}  // namespace tolvane::platform::windows
