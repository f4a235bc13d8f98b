#include "platform/windows/rich_text/page_lines.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace tolvane::platform::windows {
namespace {

/// Characters that are tested together, without a branch for each.
constexpr std::size_t kStep = 4;
static_assert(kStep * sizeof(char16_t) == sizeof(std::uint64_t));

/// `unit` for each character of a step.
constexpr std::uint64_t Each(std::uint64_t unit) { return unit * 0x0001'0001'0001'0001; }

/// Whether each character is one from ' ' to '~': neither a difference nor a sum then leaves the
/// lowest seven bits, nor carries into the next character. Of others, the first always shows, as
/// nothing is carried into it.
bool AllPlain(StringView step) {
  std::uint64_t units = 0;
  std::memcpy(&units, step.data(), sizeof units);
  return (((units - Each(u' ')) | (units + Each(0x7F - u'~'))) & Each(0xFF80)) == 0;
}

/// The number of characters at the front of `text` that are neither full width nor line ends; never
/// too large.
std::size_t PlainLength(StringView text) {
  std::size_t length = 0;
  while (text.size() - length >= kStep && AllPlain(text.substr(length, kStep))) length += kStep;
  return length;
}

constexpr bool IsHalfWidth(char16_t unit) {
  return unit <= u'~' || (unit >= 0xFF61 && unit <= 0xFF9F);
}

}  // namespace

void PageLines::Find(StringView text) {
  lines_.clear();
  widest_ = 0;
  std::size_t start = 0;
  std::size_t cells = 0;
  const auto end_line = [&](std::size_t end, std::size_t next) {
    lines_.push_back({static_cast<std::int32_t>(start), static_cast<std::int32_t>(end)});
    widest_ = std::max(widest_, static_cast<std::int32_t>(cells));
    start = next;
    cells = 0;
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (i == start) {
      cells = PlainLength(text.substr(start));
      i += cells;
      if (i == text.size()) break;
    }
    const char16_t unit = text[i];
    if (unit == u'\r') {
      const std::size_t end = i;
      if (i + 1 < text.size() && text[i + 1] == u'\n') ++i;
      end_line(end, i + 1);
    } else if (unit == u'\n') {
      end_line(i, i + 1);
    } else {
      cells += IsHalfWidth(unit) ? 1 : 2;
    }
  }
  end_line(text.size(), text.size());
}

}  // namespace tolvane::platform::windows
