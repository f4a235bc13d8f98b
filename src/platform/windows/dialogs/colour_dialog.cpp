#include "platform/windows/dialogs/colour_dialog.h"

namespace tolvane::platform::windows {

std::optional<std::int32_t> WindowsColourDialog::ShowColor() {
  if (!library_.Load(SystemLibrary(u"comdlg32.dll"))) return std::nullopt;
  CHOOSECOLORW choice{};
  choice.lStructSize = sizeof(choice);
  const HWND owner = owner_;
  choice.hwndOwner = owner;
  choice.lpCustColors = own_colours_.data();
  const EventGate::Opened opened(gate_);
  if (!library_->ChooseColorW(&choice) || !IsWindow(owner)) return std::nullopt;
  return static_cast<std::int32_t>(choice.rgbResult);
}

}  // namespace tolvane::platform::windows
