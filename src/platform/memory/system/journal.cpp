#include "platform/memory/system/journal.h"

#include <cstdint>
#include <utility>

#include "run/number_text.h"

namespace tolvane::platform::memory {

namespace {

void AppendUtf8(std::uint32_t code_point, std::string& bytes) {
  const auto put = [&bytes](std::uint32_t byte) { bytes.push_back(static_cast<char>(byte)); };
  if (code_point < 0x80) {
    put(code_point);
    return;
  }
  if (code_point < 0x800) {
    put(0xC0 | code_point >> 6);
  } else {
    if (code_point < 0x10000) {
      put(0xE0 | code_point >> 12);
    } else {
      put(0xF0 | code_point >> 18);
      put(0x80 | (code_point >> 12 & 0x3F));
    }
    put(0x80 | (code_point >> 6 & 0x3F));
  }
  put(0x80 | (code_point & 0x3F));
}

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

std::string Narrow(StringView text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (IsHighSurrogate(unit) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      const std::uint32_t high = unit - 0xD800u;
      const std::uint32_t low = text[++i] - 0xDC00u;
      AppendUtf8(0x10000u + (high << 10 | low), bytes);
    } else {
      AppendUtf8(IsHighSurrogate(unit) || IsLowSurrogate(unit) ? 0xFFFDu : unit, bytes);
    }
  }
  return bytes;
}

void Journal::Note(std::string line) { lines_.push_back(std::move(line)); }

void Journal::Assign(const std::string& control, const char* property, bool value) {
  Note(control + "." + property + " = " + (value ? "true" : "false"));
}

void Journal::Assign(const std::string& control, const char* property, StringView value) {
  Note(control + "." + property + " = \"" + Narrow(value) + "\"");
}

void Journal::Assign(const std::string& control, const char* property, double value) {
  Note(control + "." + property + " = " + Narrow(DecimalText(value)));
}

}  // namespace tolvane::platform::memory
