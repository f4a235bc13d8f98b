#pragma once

#include <cstdint>

#include "platform/string.h"

namespace tolvane::platform {

/// The system's shell, as far as links need it.
class Shell {
 public:
  virtual ~Shell() = default;
  /// Hands `file`, an address too, to the program that the system keeps for it. Show command 1 is a
  /// window of normal size. A system that knows no such program does nothing.
  virtual void ShellExecuteA(StringView verb, StringView file, std::int32_t show_command) = 0;

  /// Shows the web page `file` at `address`, the file's address with "#" and one of its headings
  /// behind it: in the program that the system keeps for such files, since an address that is
  /// handed to the system itself loses its heading. Without such a program nothing happens.
  virtual void OpenPage(StringView file, StringView address) = 0;
};

}  // namespace tolvane::platform
