#include "platform/ascii_run.h"

#include <algorithm>

namespace tolvane::platform {

namespace {

/// Characters that are tested together, without a branch for each.
constexpr std::size_t kStep = 64;

bool AllAscii(StringView step) {
  unsigned units = 0;
  for (const char16_t unit : step) units |= unit;
  return units < 0x80;
}

std::size_t AsciiRunLength(StringView text) {
  std::size_t length = 0;
  while (text.size() - length >= kStep && AllAscii(text.substr(length, kStep))) length += kStep;
  while (length < text.size() && IsAscii(text[length])) ++length;
  return length;
}

}  // namespace

std::size_t AppendAsciiRun(StringView text, std::string& bytes) {
  const StringView run = text.substr(0, AsciiRunLength(text));
  const std::size_t start = bytes.size();
  bytes.resize(start + run.size());
  std::ranges::transform(run, bytes.begin() + static_cast<std::ptrdiff_t>(start),
                         [](char16_t unit) { return static_cast<char>(unit); });
  return run.size();
}

}  // namespace tolvane::platform
