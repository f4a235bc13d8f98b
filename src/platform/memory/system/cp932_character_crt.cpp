#include <locale.h>
#include <stdlib.h>
#include <wchar.h>

#include <array>
#include <cstddef>

#include "platform/memory/system/cp932_character.h"

namespace tolvane::platform::memory {

struct Cp932Character::Library {
  _locale_t japanese = _create_locale(LC_CTYPE, ".932");
};

Cp932Character::Cp932Character() : library_(std::make_unique<Library>()) {}

Cp932Character::~Cp932Character() { _free_locale(library_->japanese); }

std::string Cp932Character::Bytes(char16_t character) {
  std::array<char, 8> bytes;
  const int count = _wctomb_l(bytes.data(), static_cast<wchar_t>(character), library_->japanese);
  return count > 0 ? std::string(bytes.data(), static_cast<std::size_t>(count)) : std::string();
}

std::optional<char16_t> Cp932Character::Character(std::string_view bytes) {
  wchar_t character = 0;
  const int count = _mbtowc_l(&character, bytes.data(), bytes.size(), library_->japanese);
  if (count != static_cast<int>(bytes.size())) return {};
  return static_cast<char16_t>(character);
}

}  // namespace tolvane::platform::memory
