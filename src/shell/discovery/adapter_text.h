#pragma once

#include <algorithm>
#include <array>
#include <string>

namespace tolvane {

/// The text of a buffer that a library filled, all NUL removed wherever they stand; the buffer need
/// not hold any.
template <std::size_t N>
[[nodiscard]] std::string WithoutNul(const std::array<char, N>& buffer) {
  std::string text;
  std::copy_if(buffer.begin(), buffer.end(), std::back_inserter(text),
               [](char byte) { return byte != '\0'; });
  return text;
}

}  // namespace tolvane
