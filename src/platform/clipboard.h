#pragma once

#include <cstdint>

#include "platform/string.h"

namespace tolvane::platform {

/// The system clipboard, shared with every other program, any of which may hold it at any moment:
/// each operation can fail, and a failed one changes nothing. Nothing here pumps messages.
class Clipboard {
 public:
  enum class Format : std::uint8_t { kPlainText, kRichText };

  virtual ~Clipboard() = default;

  virtual bool Clear() = 0;
  /// Whether the clipboard holds something in `format`, even while another program holds it open;
  /// false also when that cannot be learned.
  [[nodiscard]] virtual bool GetFormat(Format format) = 0;
  /// What it holds in `format`; empty when there is none or it cannot be read.
  [[nodiscard]] virtual String GetText(Format format) = 0;
  /// Adds `text` in `format`, beside what is there in other formats.
  virtual bool SetText(StringView text, Format format) = 0;
};

}  // namespace tolvane::platform
