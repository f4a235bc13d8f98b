#include "platform/windows/system/run_protection.h"

namespace tolvane::platform::windows {
namespace {

// Shown by the system beside the program's name when the user signs out or shuts down.
constexpr wchar_t kReason[] = L"CANバスを受信中です。「切断」で受信を終えてください。";

// The process information "power throttling"; the compiler's headers hide it from a program that
// also runs on Windows 7.
constexpr int kPowerThrottling = 4;
constexpr ULONG kExecutionSpeed = 1;
constexpr ULONG kIgnoreTimerResolution = 4;  // known from Windows 11 on
struct PowerThrottlingState {
  ULONG version;
  ULONG control_mask;  // what the program decides about; the rest is the system's
  ULONG state_mask;    // what is switched on
};

}  // namespace

WindowsRunProtection::WindowsRunProtection(HWND main_window) : main_window_(main_window) {
  kernel32_.Load(SystemLibrary(u"kernel32.dll"));
}

void WindowsRunProtection::Begin() {
  // The screen too: a notebook on battery that has no sleep but the connected one sleeps some
  // minutes after its screen has gone dark, whatever else the program asked for.
  SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED);
  // Given now and not when it is asked for: a flush can keep the question waiting.
  ShutdownBlockReasonCreate(main_window_, kReason);
  if (!ForbidThrottling(kExecutionSpeed | kIgnoreTimerResolution)) {
    ForbidThrottling(kExecutionSpeed);
  }
}

void WindowsRunProtection::End() {
  ForbidThrottling(0);
  ShutdownBlockReasonDestroy(main_window_);
  SetThreadExecutionState(ES_CONTINUOUS);
}

bool WindowsRunProtection::ForbidThrottling(ULONG mask) {
  PowerThrottlingState state{1, mask, 0};
  return kernel32_ && kernel32_->SetProcessInformation(GetCurrentProcess(), kPowerThrottling,
                                                       &state, sizeof(state)) != FALSE;
}

}  // namespace tolvane::platform::windows
