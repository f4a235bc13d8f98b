#include "platform/windows/dialogs/message_box.h"

#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {

void WindowsMessageBox::Critical(StringView text, StringView title) {
  Show(text, title, MB_OK | MB_ICONSTOP);
}

void WindowsMessageBox::Plain(StringView text, StringView title) { Show(text, title, MB_OK); }

bool WindowsMessageBox::AskYesNo(StringView text, StringView title) {
  return Show(text, title, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

int WindowsMessageBox::Show(StringView text, StringView title, UINT style) {
  const EventGate::Opened opened(gate_);
  // During the start no window of the program is active yet: the box would open behind others.
  return MessageBoxW(owner_, Wide(String(text)), Wide(String(title)), style | MB_SETFOREGROUND);
}

}  // namespace tolvane::platform::windows
