#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>

namespace tolvane::platform::memory {

/// "name(a, b)" for a journal.
inline std::string CallText(const std::string& name, std::initializer_list<std::string> arguments) {
  std::string text = name + "(";
  for (const std::string& argument : arguments) {
    if (text.back() != '(') text += ", ";
    text += argument;
  }
  return text + ")";
}

inline std::string CallText(const std::string& name, std::initializer_list<std::int64_t> numbers) {
  std::string text = name + "(";
  for (const std::int64_t number : numbers) {
    if (text.back() != '(') text += ", ";
    text += std::to_string(number);
  }
  return text + ")";
}

inline std::string Quoted(const std::string& text) { return '"' + text + '"'; }

/// Copies `text` and one NUL, cut to the buffer. The rest of the buffer is unchanged, as libraries
/// do.
template <std::size_t N>
void CopyText(const std::string& text, std::array<char, N>& buffer) {
  const auto end = std::copy_n(text.begin(), std::min(text.size(), N), buffer.begin());
  if (end != buffer.end()) *end = '\0';
}

}  // namespace tolvane::platform::memory
