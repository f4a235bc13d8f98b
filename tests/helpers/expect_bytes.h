#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace tolvane {

inline std::string HexAround(std::string_view bytes, std::size_t offset) {
  constexpr std::size_t kBefore = 8;
  constexpr std::size_t kShown = 24;
  const std::size_t start = offset - std::min(offset, kBefore);
  std::string text;
  for (std::size_t i = start; i < std::min(bytes.size(), start + kShown); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    text += i == offset ? " >" : " ";
    text += "0123456789abcdef"[byte >> 4];
    text += "0123456789abcdef"[byte & 0xF];
  }
  return text;
}

/// Compares byte by byte; a failure names the first offset that differs, with the bytes around it.
inline ::testing::AssertionResult SameBytes(std::string_view actual, std::string_view expected) {
  if (actual == expected) return ::testing::AssertionSuccess();
  const auto differing =
      std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
  const auto offset = static_cast<std::size_t>(differing.first - actual.begin());
  return ::testing::AssertionFailure()
         << "first difference at byte " << offset << " of " << actual.size() << ", expected "
         << expected.size() << "\n  actual:  " << HexAround(actual, offset)
         << "\n  expected:" << HexAround(expected, offset);
}

}  // namespace tolvane
