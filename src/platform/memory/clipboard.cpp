#include "platform/memory/clipboard.h"

namespace tolvane::platform::memory {

bool Clipboard::Clear() {
  journal_.Note("Clipboard.Clear()");
  if (held_) return false;
  plain_text_.reset();
  rich_text_.reset();
  return true;
}

bool Clipboard::SetText(StringView text, Format format) {
  journal_.Note(format == Format::kPlainText ? "Clipboard.SetText(plain text)"
                                             : "Clipboard.SetText(rich text)");
  if (held_) return false;
  Slot(format) = String(text);
  return true;
}

}  // namespace tolvane::platform::memory
