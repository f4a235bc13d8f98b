#pragma once

#include "platform/string.h"

namespace tolvane::platform {

/// Modal message boxes owned by the main window. Each shows until the user answers and pumps
/// messages meanwhile: inside a run a tick or a command may run nested.
class MessageBox {
 public:
  virtual ~MessageBox() = default;

  /// Stop icon, one OK button.
  virtual void Critical(StringView text, StringView title) = 0;
  /// No icon, one OK button.
  virtual void Plain(StringView text, StringView title) = 0;
  /// Question icon, yes and no, no being the default button. True when the user answers yes.
  virtual bool AskYesNo(StringView text, StringView title) = 0;
};

}  // namespace tolvane::platform
