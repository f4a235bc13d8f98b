#pragma once

#include <cstdint>
#include <limits>
#include <optional>

#include "platform/clipboard.h"
#include "platform/memory/system/journal.h"
#include "platform/string.h"

namespace tolvane::platform::memory {

/// A clipboard of one text per format, and the programs around it that hold it. While one does, the
/// formats can still be learned. Every attempt to change it is noted.
class Clipboard final : public platform::Clipboard {
 public:
  static constexpr std::int32_t kForever = std::numeric_limits<std::int32_t>::max();

  explicit Clipboard(Journal& journal) : journal_(journal) {}

  [[nodiscard]] bool Replace(StringView plain_text, StringView rich_text,
                             std::int32_t patience) override;
  [[nodiscard]] bool GetFormat(Format format) override { return Slot(format).has_value(); }
  [[nodiscard]] String GetText(Format format, std::int32_t patience) override;

  // Other programs.
  /// One puts this text there, beside what is there in the other format.
  void Put(StringView text, Format format) { Slot(format) = String(text); }
  void Empty();
  /// One holds the clipboard for `ms` from now.
  void HeldByAnother(std::int32_t ms) { held_ = ms; }
  /// One opens it at each change and holds it for `ms`.
  void WatchedByAnother(std::int32_t ms) { watched_ = ms; }
  /// The system has no room for a text in this format; empty takes it back.
  void Refuse(std::optional<Format> format) { refused_ = format; }

 private:
  std::optional<String>& Slot(Format format) {
    return format == Format::kPlainText ? plain_text_ : rich_text_;
  }
  /// Waits, if that is long enough.
  [[nodiscard]] bool Open(std::int32_t patience);
  [[nodiscard]] bool SetText(StringView text, Format format);

  Journal& journal_;
  std::optional<String> plain_text_;
  std::optional<String> rich_text_;
  std::int32_t held_ = 0;     // ms from now
  std::int32_t watched_ = 0;  // ms
  std::optional<Format> refused_;
};

}  // namespace tolvane::platform::memory
