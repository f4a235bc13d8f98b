#pragma once

#include <array>
#include <cstdint>

#include "config/dialogs/dialog_controls.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// Carries values between the controls of a settings dialog and its window, one way or the other.
/// One list of pairs serves both ways. Showing a value raises no click; what the user cannot change
/// is not taken back.
class ControlBinder {
 public:
  enum class Way : std::uint8_t { kShow, kTake };

  ControlBinder(HWND window, Way way) : window_(window), way_(way) {}

  void operator()(int id, Choice& choice) const;
  void operator()(int id, TextControl& control) const;
  void operator()(int id, const ColourButton& button) const;
  void operator()(int id, const GroupBox& group) const;

  /// Controls with an index have ids that count up from the first one's.
  template <typename Control, std::size_t N>
  void operator()(int first_id, std::array<Control, N>& controls) const {
    for (std::size_t i = 0; i < N; ++i) (*this)(first_id + static_cast<int>(i), controls[i]);
  }

 private:
  [[nodiscard]] HWND Control(int id) const { return GetDlgItem(window_, id); }

  HWND window_;
  Way way_;
};

}  // namespace tolvane::platform::windows
