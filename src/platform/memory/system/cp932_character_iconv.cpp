#include <iconv.h>

#include <array>
#include <cstddef>

#include "platform/memory/system/cp932_character.h"

namespace tolvane::platform::memory {

struct Cp932Character::Library {
  iconv_t encoder = iconv_open("CP932", "UTF-16LE");
  iconv_t decoder = iconv_open("UTF-16LE", "CP932");
};

namespace {

/// The bytes that `converter` makes of `from`; none when it cannot convert all of them.
std::string Converted(iconv_t converter, std::string from) {
  std::array<char, 8> to;
  char* input = from.data();
  std::size_t input_left = from.size();
  char* output = to.data();
  std::size_t output_left = to.size();
  iconv(converter, nullptr, nullptr, nullptr, nullptr);
  const auto failed = static_cast<std::size_t>(-1);
  if (iconv(converter, &input, &input_left, &output, &output_left) == failed) return {};
  return std::string(to.data(), to.size() - output_left);
}

}  // namespace

Cp932Character::Cp932Character() : library_(std::make_unique<Library>()) {}

Cp932Character::~Cp932Character() {
  iconv_close(library_->encoder);
  iconv_close(library_->decoder);
}

std::string Cp932Character::Bytes(char16_t character) {
  const std::string units = {static_cast<char>(character & 0xFF),
                             static_cast<char>(character >> 8)};
  return Converted(library_->encoder, units);
}

std::optional<char16_t> Cp932Character::Character(std::string_view bytes) {
  const std::string units = Converted(library_->decoder, std::string(bytes));
  if (units.size() != 2) return {};
  return static_cast<char16_t>(static_cast<unsigned char>(units[0]) |
                               static_cast<unsigned char>(units[1]) << 8);
}

}  // namespace tolvane::platform::memory
