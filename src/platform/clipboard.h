#pragma once

#include <cstdint>

#include "platform/string.h"

namespace tolvane::platform {

/// The system clipboard, shared with every other program, any of which may hold it at any moment;
/// some open it at each change. What needs it to itself tries again for up to `patience` ms, and
/// the program stands meanwhile; then it fails and changes nothing. Nothing here pumps messages.
class Clipboard {
 public:
  enum class Format : std::uint8_t { kPlainText, kRichText };

  virtual ~Clipboard() = default;

  /// Clears the clipboard and puts one text there in both formats, without letting go of it in
  /// between. Each step is tried whatever became of the one before. False unless both texts are
  /// there.
  virtual bool Replace(StringView plain_text, StringView rich_text, std::int32_t patience) = 0;
  /// Whether the clipboard holds something in `format`, even while another program holds it open;
  /// false also when that cannot be learned.
  [[nodiscard]] virtual bool GetFormat(Format format) = 0;
  /// What it holds in `format`; empty when there is none or it cannot be read.
  [[nodiscard]] virtual String GetText(Format format, std::int32_t patience) = 0;
};

}  // namespace tolvane::platform
