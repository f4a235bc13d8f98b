#pragma once

#include "platform/event_gate.h"
#include "platform/folder_dialog.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

/// The file dialog of Windows, choosing folders.
class WindowsFolderDialog final : public FolderDialog {
 public:
  explicit WindowsFolderDialog(EventGate& gate) : gate_(gate) {}

  void Owner(HWND window) { owner_ = window; }
  [[nodiscard]] std::optional<String> ShowFolder(StringView start) override;

 private:
  EventGate& gate_;
  HWND owner_ = nullptr;
};

}  // namespace tolvane::platform::windows
