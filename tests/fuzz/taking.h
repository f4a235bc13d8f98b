#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <system_error>

#include "tests/fuzz/input.h"

namespace tolvane::fuzz {

/// Takes what a number begins with, and its end must be there.
template <typename Number>
Number TakeNumber(std::string_view& text, int base) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  Require(error == std::errc{});
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

inline void TakeText(std::string_view& text, std::string_view expected) {
  Require(text.starts_with(expected));
  text.remove_prefix(expected.size());
}

/// A byte, which is written as two hexadecimal digits.
inline std::uint8_t TakeByte(std::string_view& text) {
  Require(text.size() >= 2);
  std::string_view digits = text.substr(0, 2);
  const auto byte = TakeNumber<std::uint8_t>(digits, 16);
  Require(digits.empty());
  text.remove_prefix(2);
  return byte;
}

}  // namespace tolvane::fuzz
