#pragma once

#include <string>
#include <string_view>

#include "platform/string.h"

namespace tolvane::platform {

/// The system code page: 932 on Japanese systems and on systems without one.
class CodePage {
 public:
  virtual ~CodePage() = default;
  /// Appends the bytes of `text` to `bytes`. Never a best fit: what the page cannot hold becomes
  /// one "?" for each code point.
  virtual void Encode(StringView text, std::string& bytes) = 0;
  /// Broken sequences become U+30FB or U+FFFD as the system has it; never fails.
  [[nodiscard]] virtual String Decode(std::string_view bytes) = 0;
};

}  // namespace tolvane::platform
