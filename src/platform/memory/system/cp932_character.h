#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tolvane::platform::memory {

/// Code page 932 one character at a time, as the C library of this system knows it: iconv, or the
/// locale functions of the Windows C library. Which of the two sources is compiled, the build
/// decides.
class Cp932Character {
 public:
  Cp932Character();
  ~Cp932Character();
  Cp932Character(const Cp932Character&) = delete;
  Cp932Character& operator=(const Cp932Character&) = delete;

  /// One or two bytes, none when the library has none. It may offer a similar character's.
  [[nodiscard]] std::string Bytes(char16_t character);
  /// The character of one or two bytes; empty when they are none.
  [[nodiscard]] std::optional<char16_t> Character(std::string_view bytes);

 private:
  struct Library;
  std::unique_ptr<Library> library_;
};

}  // namespace tolvane::platform::memory
