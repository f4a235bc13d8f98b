#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// A question that the system asks by a dialog of its own, such as a message box.
class WhileAsked {
 public:
  /// Does `ask`, which brings that dialog up over `owner`, and `meanwhile` with it as soon as it is
  /// up; cancels it if it still is then.
  WhileAsked(HWND owner, const std::function<void()>& ask, std::function<void(HWND)> meanwhile)
      : owner_(owner), meanwhile_(std::move(meanwhile)) {
    asked_ = this;
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, &OnTimer);
    ask();
    KillTimer(nullptr, timer);
    EXPECT_TRUE(done_) << "no dialog of the system came up";
  }

 private:
  [[nodiscard]] HWND SystemDialog() const {
    HWND found = nullptr;
    while ((found = FindWindowExW(nullptr, found, L"#32770", nullptr)) != nullptr) {
      if (GetWindow(found, GW_OWNER) == owner_ && IsWindowVisible(found)) break;
    }
    return found;
  }
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    WhileAsked& question = *asked_;
    const HWND dialog = question.SystemDialog();
    if (dialog == nullptr) return;
    if (!std::exchange(question.done_, true)) question.meanwhile_(dialog);
    if (IsWindow(dialog)) PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
  }

  static inline WhileAsked* asked_ = nullptr;
  HWND owner_;
  std::function<void(HWND)> meanwhile_;
  bool done_ = false;
};

/// Presses a button of a dialog of the system, such as IDOK.
inline void Answer(HWND dialog, WPARAM button) { SendMessageW(dialog, WM_COMMAND, button, 0); }

}  // namespace tolvane::platform::windows
