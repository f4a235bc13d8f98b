#pragma once

#include "platform/help_window.h"
#include "platform/shell.h"
#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {

class WindowsShell final : public Shell {
 public:
  /// `verb` and `file` are plain ASCII.
  void ShellExecuteA(StringView verb, StringView file, std::int32_t show_command) override;
  void OpenPage(StringView file, StringView address) override;
};

/// The string table of the running program.
class WindowsStringResources final : public StringResources {
 public:
  [[nodiscard]] String LoadText(std::int32_t number) override;
};

}  // namespace tolvane::platform::windows
