#pragma once

#include <array>

#include "platform/colour_dialog.h"
#include "platform/event_gate.h"
#include "platform/windows/system/system_libraries.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// The colour dialog of Windows. It does not start on any colour of the program.
class WindowsColourDialog final : public ColourDialog {
 public:
  explicit WindowsColourDialog(EventGate& gate) : gate_(gate) {
    own_colours_.fill(RGB(255, 255, 255));
  }

  void Owner(HWND window) { owner_ = window; }
  [[nodiscard]] std::optional<std::int32_t> ShowColor() override;

 private:
  EventGate& gate_;
  LoadedLibrary<Comdlg32> library_;
  HWND owner_ = nullptr;
  std::array<COLORREF, 16> own_colours_{};  // mixed by the user, kept until the program ends
};

}  // namespace tolvane::platform::windows
