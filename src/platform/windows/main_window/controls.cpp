#include "platform/windows/main_window/controls.h"

#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {

void WindowsMenuItem::Enabled(bool enabled) {
  EnableMenuItem(menu_, command_,
                 static_cast<UINT>(MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED)));
}

String WindowsTextBox::Text() const { return WindowText(window_); }

void WindowsTextBox::Text(StringView text) {
  SetWindowTextW(window_, Wide(String(text)));
  // Whoever shows a text may be busy for a while: opening an adapter, writing a log. And what is
  // painted here is not painted in the first yield of a run, when frames are waiting already.
  RedrawWindow(GetAncestor(window_, GA_ROOT), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void WindowsTextBox::Locked(bool locked) { SendMessageW(window_, EM_SETREADONLY, locked, 0); }

void WindowsComboBox::AddItem(StringView text) {
  const String line(text);
  SendMessageW(window_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(line)));
}

std::int32_t WindowsComboBox::ListIndex() const {
  return static_cast<std::int32_t>(SendMessageW(window_, CB_GETCURSEL, 0, 0));
}

void WindowsComboBox::ListIndex(std::int32_t index) {
  SendMessageW(window_, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  if (clicked_) clicked_();
}

String WindowsComboBox::Text() const { return WindowText(window_); }

}  // namespace tolvane::platform::windows
