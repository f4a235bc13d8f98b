#include "platform/windows/rich_text/line_ends.h"

#include <algorithm>

namespace tolvane::platform::windows {

std::size_t ControlPosition(StringView text, std::size_t page_position) {
  std::size_t position = 0;
  std::size_t page = 0;
  while (position < text.size()) {
    page += text[position] == u'\r' ? 2 : 1;
    if (page > page_position) break;
    ++position;
  }
  return position;
}

std::size_t PagePosition(StringView text, std::size_t control_position) {
  const StringView before = text.substr(0, control_position);
  return before.size() + static_cast<std::size_t>(std::ranges::count(before, u'\r'));
}

String WithPageLineEnds(StringView text) {
  String page;
  page.reserve(PagePosition(text, text.size()));
  for (const char16_t unit : text) {
    page += unit;
    if (unit == u'\r') page += u'\n';
  }
  return page;
}

}  // namespace tolvane::platform::windows
