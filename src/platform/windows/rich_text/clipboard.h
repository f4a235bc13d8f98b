#pragma once

#include "platform/clipboard.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

class WindowsClipboard final : public Clipboard {
 public:
  /// `owner`, the main window, must outlive this.
  explicit WindowsClipboard(HWND owner);

  [[nodiscard]] bool Replace(StringView plain_text, StringView rich_text,
                             std::int32_t patience) override;
  [[nodiscard]] bool GetFormat(Format format) override;
  [[nodiscard]] String GetText(Format format, std::int32_t patience) override;

 private:
  [[nodiscard]] UINT FormatNumber(Format format) const;

  HWND owner_;
  UINT rich_text_;
};

}  // namespace tolvane::platform::windows
