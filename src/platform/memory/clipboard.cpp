#include "platform/memory/clipboard.h"

namespace tolvane::platform::memory {

bool Clipboard::Clear() {
  if (held_) return false;
  plain_text_.reset();
  rich_text_.reset();
  return true;
}

bool Clipboard::SetText(StringView text, Format format) {
  if (held_) return false;
  Slot(format) = String(text);
  return true;
}

}  // namespace tolvane::platform::memory
