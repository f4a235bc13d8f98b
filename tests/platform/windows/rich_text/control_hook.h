#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// While it lives, the messages to a control come here first. What `handle` gives is the answer;
/// without one the control gets the message.
class ControlHook {
 public:
  using Handle = std::function<std::optional<LRESULT>(UINT message, LPARAM lparam)>;

  ControlHook(HWND control, Handle handle) : control_(control), handle_(std::move(handle)) {
    SetWindowSubclass(control_, &Procedure, Number(), reinterpret_cast<DWORD_PTR>(this));
  }
  ~ControlHook() { RemoveWindowSubclass(control_, &Procedure, Number()); }
  ControlHook(const ControlHook&) = delete;
  ControlHook& operator=(const ControlHook&) = delete;

 private:
  /// Of this hook alone, as a control can have several.
  [[nodiscard]] UINT_PTR Number() const { return reinterpret_cast<UINT_PTR>(this); }

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                                    UINT_PTR /*id*/, DWORD_PTR object) noexcept {
    const std::optional<LRESULT> answer =
        reinterpret_cast<ControlHook*>(object)->handle_(message, lparam);
    return answer ? *answer : DefSubclassProc(window, message, wparam, lparam);
  }

  HWND control_;
  Handle handle_;
};

}  // namespace tolvane::platform::windows
