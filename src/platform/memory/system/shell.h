#pragma once

#include <string>

#include "platform/memory/system/journal.h"
#include "platform/shell.h"
#include "platform/utf8.h"

namespace tolvane::platform::memory {

/// Opens nothing and notes what it was asked.
class Shell final : public platform::Shell {
 public:
  explicit Shell(Journal& journal) : journal_(journal) {}

  void ShellExecuteA(StringView verb, StringView file, std::int32_t show_command) override {
    journal_.Note("ShellExecuteA(" + ToUtf8(verb) + ", " + ToUtf8(file) + ", " +
                  std::to_string(show_command) + ")");
  }
  void OpenPage(StringView file, StringView address) override {
    journal_.Note("OpenPage(" + ToUtf8(file) + ", " + ToUtf8(address) + ")");
  }

 private:
  Journal& journal_;
};

}  // namespace tolvane::platform::memory
