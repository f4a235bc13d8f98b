#pragma once

#include <algorithm>
#include <array>
#include <string>

namespace tolvane {

/// The text in a buffer that a library filled, without any NUL, wherever it is. The buffer may hold
/// no NUL at all.
template <std::size_t N>
[[nodiscard]] std::string WithoutNul(const std::array<char, N>& buffer) {
  std::string text;
  std::copy_if(buffer.begin(), buffer.end(), std::back_inserter(text),
               [](char byte) { return byte != '\0'; });
  return text;
}

}  // namespace tolvane
