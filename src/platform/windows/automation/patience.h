#pragma once

#include <algorithm>

#include "platform/automation.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// True for what a call gives when the server is only busy: it starts, calculates, or has a cell in
/// edit.
[[nodiscard]] bool IsTurnedAway(HRESULT result);

/// How long a busy server is still waited for. The pauses block the thread; no message is looked
/// at.
///
/// All waiting is done here. A message filter could do a part of it, but is not asked about every
/// code, and the time would have to be kept in two places.
class Patience {
 public:
  explicit Patience(ULONGLONG limit_ms = AutomationObject::kBusyLimit_ms)
      : limit_ms_(limit_ms), left_ms_(limit_ms) {}

  void Renew() { left_ms_ = limit_ms_; }

  /// Repeats the call until the server is no longer busy or the time is over; returns the last
  /// result.
  template <typename Call>
  [[nodiscard]] HRESULT Insist(Call call) {
    const ULONGLONG begun = GetTickCount64();
    ULONGLONG waited = 0;
    HRESULT result = call();
    while (IsTurnedAway(result) && waited + kPause_ms <= left_ms_) {
      Sleep(kPause_ms);
      // Ahead of the call: the one that gets through is work, however long it takes.
      waited = GetTickCount64() - begun;
      result = call();
    }
    left_ms_ -= std::min(waited, left_ms_);
    return result;
  }

 private:
  static constexpr DWORD kPause_ms = 50;

  ULONGLONG limit_ms_;
  ULONGLONG left_ms_;
};

}  // namespace tolvane::platform::windows
