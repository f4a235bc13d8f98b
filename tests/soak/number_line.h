#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tolvane::soak {

// The files that a watch leaves have whole numbers with a blank between them in each line.

[[nodiscard]] inline std::string NumberLine(std::initializer_list<std::int64_t> numbers) {
  std::string line;
  for (const std::int64_t number : numbers) {
    line += (line.empty() ? "" : " ") + std::to_string(number);
  }
  return line + '\n';
}

/// The numbers of a line; false when it does not have just as many.
template <std::size_t N>
[[nodiscard]] bool ReadNumbers(std::string_view line, std::array<std::int64_t, N>& numbers) {
  const char* at = line.data();
  const char* const end = at + line.size();
  for (std::int64_t& number : numbers) {
    if (&number != numbers.data() && (at == end || *at++ != ' ')) return false;
    const auto [stop, error] = std::from_chars(at, end, number);
    if (error != std::errc{}) return false;
    at = stop;
  }
  return at == end;
}

/// Hands out each line that has N numbers. A last line that is not whole is left out.
template <std::size_t N, typename Take>
void EachNumberLine(std::string_view text, Take take) {
  for (std::size_t end; (end = text.find('\n')) != std::string_view::npos;) {
    std::array<std::int64_t, N> numbers{};
    if (ReadNumbers(text.substr(0, end), numbers)) take(numbers);
    text.remove_prefix(end + 1);
  }
}

}  // namespace tolvane::soak
