#include "platform/windows/rich_text/page_lines.h"

#include <algorithm>

namespace tolvane::platform::windows {
namespace {

constexpr bool IsHalfWidth(char16_t unit) {
  return unit <= 0x7E || (unit >= 0xFF61 && unit <= 0xFF9F);
}

}  // namespace

void PageLines::Find(StringView text) {
  lines_.clear();
  widest_ = 0;
  std::int32_t start = 0;
  std::int32_t cells = 0;
  const auto length = static_cast<std::int32_t>(text.size());
  const auto end_line = [&](std::int32_t end, std::int32_t next) {
    lines_.push_back({start, end});
    widest_ = std::max(widest_, cells);
    start = next;
    cells = 0;
  };
  for (std::int32_t i = 0; i < length; ++i) {
    const char16_t unit = text[static_cast<std::size_t>(i)];
    if (unit == u'\r') {
      const std::int32_t end = i;
      if (i + 1 < length && text[static_cast<std::size_t>(i) + 1] == u'\n') ++i;
      end_line(end, i + 1);
    } else if (unit == u'\n') {
      end_line(i, i + 1);
    } else {
      cells += IsHalfWidth(unit) ? 1 : 2;
    }
  }
  end_line(length, length);
}

}  // namespace tolvane::platform::windows
