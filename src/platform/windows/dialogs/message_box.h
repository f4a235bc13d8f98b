#pragma once

#include "platform/event_gate.h"
#include "platform/message_box.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

class WindowsMessageBox final : public MessageBox {
 public:
  /// `owner`, the main window, must outlive this; null when there is none.
  WindowsMessageBox(EventGate& gate, HWND owner) : gate_(gate), owner_(owner) {}

  void Critical(StringView text, StringView title) override;
  void Plain(StringView text, StringView title) override;
  bool AskYesNo(StringView text, StringView title) override;

 private:
  int Show(StringView text, StringView title, UINT style);

  EventGate& gate_;
  HWND owner_;
};

}  // namespace tolvane::platform::windows
