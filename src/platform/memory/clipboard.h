#pragma once

#include <optional>

#include "platform/clipboard.h"
#include "platform/string.h"

namespace tolvane::platform::memory {

/// A clipboard of one text per format. While another program holds it, everything fails.
class Clipboard final : public platform::Clipboard {
 public:
  bool Clear() override;
  bool GetFormat(Format format) override { return !held_ && Slot(format).has_value(); }
  String GetText(Format format) override {
    return held_ ? String() : Slot(format).value_or(String());
  }
  bool SetText(StringView text, Format format) override;

  void HeldByAnother(bool held) { held_ = held; }

 private:
  std::optional<String>& Slot(Format format) {
    return format == Format::kPlainText ? plain_text_ : rich_text_;
  }

  std::optional<String> plain_text_;
  std::optional<String> rich_text_;
  bool held_ = false;
};

}  // namespace tolvane::platform::memory
