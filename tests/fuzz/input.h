#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/string.h"

namespace tolvane::fuzz {

/// Ends the process when a promise is broken, which is how a fuzzer learns of it.
inline void Require(bool promise) {
  if (!promise) std::abort();
}

/// The bytes of one input, taken apart from the front. Behind the end everything is 0 or empty.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }

  std::uint8_t Byte() {
    if (rest_.empty()) return 0;
    const std::uint8_t byte = rest_.front();
    rest_.remove_prefix(1);
    return byte;
  }

  /// Two bytes, the low one first.
  std::int32_t Short() {
    const std::int32_t low = Byte();
    return low | Byte() << 8;
  }

  /// Four bytes, the lowest first.
  std::int32_t Number() {
    std::uint32_t number = 0;
    for (int shift = 0; shift < 32; shift += 8) number |= std::uint32_t{Byte()} << shift;
    return static_cast<std::int32_t>(number);
  }

  /// As many as there are.
  std::string Bytes(std::size_t count) {
    const auto taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return {taken.begin(), taken.end()};
  }

  /// A count, then the characters: ASCII in a byte, everything from U+8000 on in two, the higher
  /// one first, and what lies between behind a 7F.
  String Text() {
    String text;
    for (int left = Byte(); left > 0 && !AtEnd(); --left) {
      const std::uint8_t first = Byte();
      if (first < 0x7F) {
        text += static_cast<char16_t>(first);
      } else {
        const std::uint8_t high = first == 0x7F ? Byte() : first;
        text += static_cast<char16_t>(high << 8 | Byte());
      }
    }
    return text;
  }

 private:
  std::basic_string_view<std::uint8_t> rest_;
};

}  // namespace tolvane::fuzz
