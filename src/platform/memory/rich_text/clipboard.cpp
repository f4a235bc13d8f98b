#include "platform/memory/rich_text/clipboard.h"

namespace tolvane::platform::memory {

bool Clipboard::Open(std::int32_t patience) {
  if (held_ > patience) {
    if (held_ != kForever) held_ -= patience;
    return false;
  }
  held_ = 0;
  return true;
}

bool Clipboard::SetText(StringView text, Format format) {
  if (refused_ == format) return false;
  Put(text, format);
  return true;
}

void Clipboard::Empty() {
  plain_text_.reset();
  rich_text_.reset();
}

bool Clipboard::Replace(StringView plain_text, StringView rich_text, std::int32_t patience) {
  journal_.Note("Clipboard.Replace()");
  if (!Open(patience)) return false;
  Empty();
  const bool has_plain_text = SetText(plain_text, Format::kPlainText);
  const bool has_rich_text = SetText(rich_text, Format::kRichText);
  held_ = watched_;
  return has_plain_text && has_rich_text;
}

String Clipboard::GetText(Format format, std::int32_t patience) {
  return Open(patience) ? Slot(format).value_or(String()) : String();
}

}  // namespace tolvane::platform::memory
