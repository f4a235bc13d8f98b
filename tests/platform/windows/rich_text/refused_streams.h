#pragma once

#include <limits>

#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// While it lives, a rich edit control fails to take rich text in: what it holds is then a piece,
/// and it reports `error`, or, for 0, merely takes no byte.
class RefusedStreams {
 public:
  RefusedStreams(HWND control, DWORD error, int times = std::numeric_limits<int>::max())
      : control_(control), error_(error), times_(times) {
    SetWindowSubclass(control_, &Refuse, kNumber, reinterpret_cast<DWORD_PTR>(this));
  }
  ~RefusedStreams() { RemoveWindowSubclass(control_, &Refuse, kNumber); }
  RefusedStreams(const RefusedStreams&) = delete;
  RefusedStreams& operator=(const RefusedStreams&) = delete;

  /// How often it refused.
  [[nodiscard]] int Count() const { return count_; }

 private:
  static constexpr UINT_PTR kNumber = 17;

  static LRESULT CALLBACK Refuse(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                                 UINT_PTR /*id*/, DWORD_PTR object) noexcept {
    auto& self = *reinterpret_cast<RefusedStreams*>(object);
    if (message != EM_STREAMIN || self.count_ >= self.times_) {
      return DefSubclassProc(window, message, wparam, lparam);
    }
    ++self.count_;
    SetWindowTextW(window, L"a piece");
    reinterpret_cast<EDITSTREAM*>(lparam)->dwError = self.error_;
    return 0;
  }

  HWND control_;
  DWORD error_;
  int times_;
  int count_ = 0;
};

}  // namespace tolvane::platform::windows
