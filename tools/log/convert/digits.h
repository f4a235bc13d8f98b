#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tolvane::logtool {

// Text written in place, from `at` on; each returns the place behind it. The program's own texts of
// numbers, run/number_text.h, are made one by one, each an object of its own; here whole lines are
// written in place, some millions in a second.

inline constexpr auto kHexPairs = [] {
  std::array<std::array<char, 2>, 256> pairs{};
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  for (std::size_t i = 0; i < pairs.size(); ++i) pairs[i] = {kDigits[i >> 4], kDigits[i & 0xF]};
  return pairs;
}();

inline constexpr auto kDecimalPairs = [] {
  std::array<std::array<char, 2>, 100> pairs{};
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    pairs[i] = {static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10)};
  }
  return pairs;
}();

template <std::size_t kSize>
[[nodiscard]] inline char* Put(char* at, const char (&text)[kSize]) {
  std::memcpy(at, text, kSize - 1);
  return at + kSize - 1;
}

[[nodiscard]] inline char* PutHexByte(char* at, std::uint8_t byte) {
  std::memcpy(at, kHexPairs[byte].data(), 2);
  return at + 2;
}

/// The lowest `digits` hexadecimal digits.
[[nodiscard]] inline char* PutHex(char* at, std::uint32_t number, std::size_t digits) {
  for (std::size_t place = digits; place-- > 0; number >>= 4)
    at[place] = kHexPairs[number & 0xF][1];
  return at + digits;
}

/// Without zeros in front.
[[nodiscard]] inline char* PutHexNumber(char* at, std::uint32_t number) {
  std::array<char, 8> digits;
  static_cast<void>(PutHex(digits.data(), number, digits.size()));
  std::size_t first = 0;
  while (first < digits.size() - 1 && digits[first] == '0') ++first;
  std::memcpy(at, digits.data() + first, digits.size() - first);
  return at + (digits.size() - first);
}

/// Exactly `digits` digits, an even number, with zeros in front.
template <std::size_t digits>
[[nodiscard]] inline char* PutPadded(char* at, std::uint32_t number) {
  static_assert(digits % 2 == 0);
  for (std::size_t place = digits; place > 0; place -= 2, number /= 100) {
    std::memcpy(at + place - 2, kDecimalPairs[number % 100].data(), 2);
  }
  return at + digits;
}

[[nodiscard]] inline char* PutDecimal(char* at, std::uint64_t number) {
  std::array<char, 20> digits;
  std::size_t first = digits.size();
  do {
    digits[--first] = static_cast<char>('0' + number % 10);
    number /= 10;
  } while (number != 0);
  std::memcpy(at, digits.data() + first, digits.size() - first);
  return at + (digits.size() - first);
}

}  // namespace tolvane::logtool
