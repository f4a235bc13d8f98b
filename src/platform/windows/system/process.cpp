#include "platform/windows/system/process.h"

namespace tolvane::platform::windows {
namespace {

/// One that was started with higher rights shows by its refusal.
bool AnotherHasIt(DWORD error) {
  return error == ERROR_ALREADY_EXISTS || error == ERROR_ACCESS_DENIED;
}

}  // namespace

WindowsSingleInstance::WindowsSingleInstance()
    : mutex_(CreateMutexW(nullptr, FALSE, L"Local\\TolvaneRunning")),
      previous_(AnotherHasIt(GetLastError())) {}

std::int32_t WindowsCursors::LoadHand() {
  // Handles of cursors fit 32 bits in both bitnesses.
  return HandleToLong(LoadCursorW(nullptr, IDC_HAND));
}

void WindowsTimerResolution::timeBeginPeriod(std::uint32_t period) {
  if (library_) library_->timeBeginPeriod(period);
}

void WindowsTimerResolution::timeEndPeriod(std::uint32_t period) {
  if (library_) library_->timeEndPeriod(period);
}

}  // namespace tolvane::platform::windows
