#include "platform/ascii_run.h"

#include <algorithm>
#include <array>

namespace tolvane {

namespace {

/// Characters that are tested or copied together, without a branch for each.
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

/// Only with a number of characters that is known beforehand do compilers narrow many at once.
void NarrowStep(StringView step, char* bytes) {
  std::array<char, kStep> narrow;
  for (std::size_t i = 0; i < kStep; ++i) narrow[i] = static_cast<char>(step[i]);
  std::ranges::copy(narrow, bytes);
}

}  // namespace

std::size_t AppendAsciiRun(StringView text, std::string& bytes) {
  const StringView run = text.substr(0, AsciiRunLength(text));
  const std::size_t start = bytes.size();
  bytes.resize(start + run.size());
  char* at = bytes.data() + start;
  StringView rest = run;
  for (; rest.size() >= kStep; rest.remove_prefix(kStep), at += kStep) {
    NarrowStep(rest.substr(0, kStep), at);
  }
  std::ranges::transform(rest, at, [](char16_t unit) { return static_cast<char>(unit); });
  return run.size();
}

}  // namespace tolvane
