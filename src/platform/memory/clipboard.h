#pragma once

#include <optional>

#include "platform/clipboard.h"
#include "platform/memory/journal.h"
#include "platform/string.h"

namespace tolvane::platform::memory {

/// A clipboard of one text per format. While another program holds it, the formats can still be
/// learned; everything else fails. Every attempt to change it is noted.
class Clipboard final : public platform::Clipboard {
 public:
  explicit Clipboard(Journal& journal) : journal_(journal) {}

  bool Clear() override;
  bool GetFormat(Format format) override { return Slot(format).has_value(); }
  String GetText(Format format) override {
    return held_ ? String() : Slot(format).value_or(String());
  }
  bool SetText(StringView text, Format format) override;

  void HeldByAnother(bool held) { held_ = held; }

 private:
  std::optional<String>& Slot(Format format) {
    return format == Format::kPlainText ? plain_text_ : rich_text_;
  }

  Journal& journal_;
  std::optional<String> plain_text_;
  std::optional<String> rich_text_;
  bool held_ = false;
};

}  // namespace tolvane::platform::memory
