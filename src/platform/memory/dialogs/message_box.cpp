#include "platform/memory/dialogs/message_box.h"

#include "platform/utf8.h"

namespace tolvane::platform::memory {

bool MessageBox::AskYesNo(StringView text, StringView title) {
  Show(Kind::kYesNo, text, title);
  if (answers_.empty()) return false;
  const bool yes = answers_.front();
  answers_.pop_front();
  return yes;
}

void MessageBox::Show(Kind kind, StringView text, StringView title) {
  boxes_.push_back({kind, String(text), String(title)});
  journal_.Note("MessageBox(\"" + ToUtf8(text) + "\")");
  const EventGate::Opened opened(gate_);
  if (while_shown_) while_shown_();
}

}  // namespace tolvane::platform::memory
