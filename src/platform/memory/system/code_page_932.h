#pragma once

#include "platform/code_page.h"
#include "platform/memory/system/cp932_character.h"

namespace tolvane::platform::memory {

/// Code page 932, the one of Japanese systems. Broken sequences decode to U+30FB.
class CodePage932 final : public platform::CodePage {
 public:
  void Encode(StringView text, std::string& bytes) override;
  [[nodiscard]] String Decode(std::string_view bytes) override;

 private:
  /// A character that is not ASCII, appended as its bytes or "?".
  void EncodeCharacter(char16_t character, std::string& bytes);

  Cp932Character characters_;
};

}  // namespace tolvane::platform::memory
