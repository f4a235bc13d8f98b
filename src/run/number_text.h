#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/string.h"
#include "run/column.h"

namespace tolvane {

/// Short text made on the stack, for the paths of a frame and of a tick, where nothing is
/// allocated. Converts to a view that lives as long as the object.
template <typename Character>
class BasicShortText {
 public:
  using TextView = std::basic_string_view<Character>;
  static constexpr std::size_t kCapacity = 32;  // characters; a double takes at most 22

  void Append(Character character) { characters_[length_++] = character; }
  void Append(TextView text) {
    std::copy(text.begin(), text.end(), characters_.data() + length_);
    length_ += text.size();
  }
  [[nodiscard]] std::size_t Length() const { return length_; }
  [[nodiscard]] TextView View() const { return {characters_.data(), length_}; }
  operator TextView() const { return View(); }

 private:
  std::array<Character, kCapacity> characters_;
  std::size_t length_ = 0;
};

using ShortText = BasicShortText<char16_t>;
/// The bytes of an ASCII text, which all of the texts below are.
using ShortBytes = BasicShortText<char>;

/// Decimal text, no padding, no sign for what is not negative. Like the other templates here, it
/// exists for char16_t and char.
template <typename Character = char16_t>
[[nodiscard]] BasicShortText<Character> DecimalText(std::int64_t value);

/// The general number form: at most 15 significant digits, no trailing zeros, "." always. Below
/// 0.0001 and from 1E+15 on with an exponent of at least two digits, as 1.4E-14. What is not
/// finite gives "0".
template <typename Character = char16_t>
[[nodiscard]] BasicShortText<Character> DecimalText(double value);

/// Up to four decimals, no trailing zeros: "100", "100.25".
[[nodiscard]] ShortText DecimalText(Currency value);

/// Upper-case hexadecimal of the 32-bit two's complement, no padding.
template <typename Character = char16_t>
[[nodiscard]] BasicShortText<Character> HexText(std::int32_t value);

/// The same with zeros in front up to `digits` digits, at most 8.
[[nodiscard]] ShortText HexText(std::int32_t value, std::size_t digits);

/// Decimal, with zeros in front up to `digits` digits; `value` is not negative.
[[nodiscard]] ShortText PaddedText(std::int32_t value, std::size_t digits);

/// The upper-case digit of the lowest four bits.
[[nodiscard]] constexpr char16_t HexCharacter(std::uint32_t value) {
  return u"0123456789ABCDEF"[value & 0xF];
}

/// Two upper-case digits.
[[nodiscard]] ShortText HexByteText(std::uint8_t value);

/// An 11-bit identifier: three digits, more above 7FF. A negative one gets two zeros in front of
/// its eight digits.
template <typename Character = char16_t>
[[nodiscard]] BasicShortText<Character> HexID11Text(std::int32_t id);

/// A 29-bit identifier: eight digits. A negative one gets seven zeros in front of its eight digits.
template <typename Character = char16_t>
[[nodiscard]] BasicShortText<Character> HexID29Text(std::int32_t id);

/// Text of an ID in a settings box and in the foot of the page: as HexID11Text, but 0 is "0".
[[nodiscard]] ShortText HexSettingText(std::int32_t id);

/// Round half to even, in double precision; for any finite value.
[[nodiscard]] double RoundHalfToEven(double value);

/// Rounded to four decimals, halves to even. What does not fit 64 bits becomes the nearest bound.
[[nodiscard]] Currency ToCurrency(double value);

}  // namespace tolvane
