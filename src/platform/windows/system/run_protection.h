#pragma once

#include "platform/run_protection.h"
#include "platform/windows/system/system_libraries.h"

namespace tolvane::platform::windows {

class WindowsRunProtection final : public RunProtection {
 public:
  /// `main_window`, made by this thread, must outlive this.
  explicit WindowsRunProtection(HWND main_window);

  void Begin() override;
  void End() override;

 private:
  /// Takes the kinds of throttling in `mask` out of the system's hands and switches them off; the
  /// others are the system's again. False when it does not know one of them.
  bool ForbidThrottling(ULONG mask);

  HWND main_window_;
  LoadedLibrary<Kernel32Of8> kernel32_;  // not loaded before Windows 8, which does not throttle
};

}  // namespace tolvane::platform::windows
