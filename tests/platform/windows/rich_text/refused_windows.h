#pragma once

#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// While it lives, the system makes no window for this thread. One at a time.
class RefusedWindows {
 public:
  RefusedWindows() : hook_(SetWindowsHookExW(WH_CBT, &Refuse, nullptr, GetCurrentThreadId())) {
    count_ = 0;
  }
  ~RefusedWindows() { UnhookWindowsHookEx(hook_); }
  RefusedWindows(const RefusedWindows&) = delete;
  RefusedWindows& operator=(const RefusedWindows&) = delete;

  /// How many it refused.
  [[nodiscard]] int Count() const { return count_; }

 private:
  static LRESULT CALLBACK Refuse(int code, WPARAM wparam, LPARAM lparam) noexcept {
    if (code != HCBT_CREATEWND) return CallNextHookEx(nullptr, code, wparam, lparam);
    ++count_;
    return 1;
  }

  static inline int count_ = 0;  // a hook is given no object
  HHOOK hook_;
};

}  // namespace tolvane::platform::windows
