#pragma once

#include <cstdint>

#include "platform/string.h"

namespace tolvane::platform {

/// FormHelp: a help text, next to a settings dialog. Loaded when it is first shown.
class HelpWindow {
 public:
  virtual ~HelpWindow() = default;
  virtual void Show() = 0;
  /// Hides it and keeps it loaded.
  virtual void Hide() = 0;
  [[nodiscard]] virtual bool Visible() const = 0;
  /// The text of its box, lines joined by carriage return and line feed.
  virtual void TB_View(StringView text) = 0;
};

/// The texts that are kept in the program's file.
class StringResources {
 public:
  virtual ~StringResources() = default;
  /// Empty when there is no such text.
  [[nodiscard]] virtual String LoadText(std::int32_t number) = 0;
};

}  // namespace tolvane::platform
