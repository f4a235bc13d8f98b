#pragma once

#include <limits>

#include "tests/platform/windows/rich_text/control_hook.h"

namespace tolvane::platform::windows {

/// While it lives, a rich edit control fails to take rich text in: what it holds is then a piece,
/// and it reports `error`, or, for 0, merely takes no byte.
class RefusedStreams {
 public:
  RefusedStreams(HWND control, DWORD error, int times = std::numeric_limits<int>::max())
      : hook_(control, [=, this](UINT message, LPARAM lparam) -> std::optional<LRESULT> {
          if (message != EM_STREAMIN || count_ >= times) return std::nullopt;
          ++count_;
          SetWindowTextW(control, L"a piece");
          reinterpret_cast<EDITSTREAM*>(lparam)->dwError = error;
          return 0;
        }) {}

  /// How often it refused.
  [[nodiscard]] int Count() const { return count_; }

 private:
  int count_ = 0;
  ControlHook hook_;
};

}  // namespace tolvane::platform::windows
