#pragma once

#include <array>
#include <cstdint>

#include "config/dialogs/dialog_controls.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// Carries values between the controls of a settings dialog and its window, one way or the other.
/// One list of pairs serves both ways. Showing a value raises no click. Marks and texts are taken,
/// also of controls that are disabled; colours and what is enabled are only shown.
class ControlBinder {
 public:
  enum class Way : std::uint8_t { kShow, kTake };

  ControlBinder(HWND window, Way way) : window_(window), way_(way) {}

  void operator()(int control, Choice& choice) const;
  void operator()(int control, TextControl& text) const;
  void operator()(int control, const ColourButton& button) const;
  void operator()(int control, const GroupBox& group) const;

  /// Controls with an index have numbers that count up from the first one's.
  template <typename Control, std::size_t N>
  void operator()(int first, std::array<Control, N>& controls) const {
    for (std::size_t i = 0; i < N; ++i) (*this)(first + static_cast<int>(i), controls[i]);
  }

 private:
  [[nodiscard]] HWND Child(int control) const { return GetDlgItem(window_, control); }

  HWND window_;
  Way way_;
};

}  // namespace tolvane::platform::windows
