#pragma once

#include "platform/code_page.h"

namespace tolvane::platform::windows {

class WindowsCodePage final : public CodePage {
 public:
  void Encode(StringView text, std::string& bytes) override;
  [[nodiscard]] String Decode(std::string_view bytes) override;
};

}  // namespace tolvane::platform::windows
