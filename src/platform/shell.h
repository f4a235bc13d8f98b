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
};

}  // namespace tolvane::platform
