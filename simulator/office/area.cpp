#include "simulator/office/area.h"

#include <algorithm>

namespace tolvane::office {
namespace {

/// Takes the letters at the start of `text`; 0 when there are none or the column is too high.
int TakeColumn(StringView& text) {
  int column = 0;
  while (!text.empty()) {
    const char16_t upper = text[0] >= u'a' && text[0] <= u'z' ? text[0] - u'a' + u'A' : text[0];
    if (upper < u'A' || upper > u'Z') break;
    column = column * 26 + (upper - u'A' + 1);
    if (column > kLastColumn) return 0;
    text.remove_prefix(1);
  }
  return column;
}

/// Takes the digits at the start of `text`; 0 when there are none or the row is too high.
int TakeRow(StringView& text) {
  int row = 0;
  while (!text.empty() && text[0] >= u'0' && text[0] <= u'9') {
    row = row * 10 + (text[0] - u'0');
    if (row > kLastRow) return 0;
    text.remove_prefix(1);
  }
  return row;
}

std::optional<Area> TakeCell(StringView& text) {
  const int column = TakeColumn(text);
  const int row = TakeRow(text);
  if (column == 0 || row == 0) return std::nullopt;
  return Area{row, column, row, column};
}

std::optional<Area> TakeColumnArea(StringView& text) {
  const int column = TakeColumn(text);
  if (column == 0) return std::nullopt;
  return Area{1, column, kLastRow, column};
}

/// One part, or two with a colon between.
template <typename TakePart>
std::optional<Area> ParseParts(StringView text, TakePart take_part) {
  const std::optional<Area> first = take_part(text);
  if (!first || text.empty()) return first;
  if (text[0] != u':') return std::nullopt;
  text.remove_prefix(1);
  const std::optional<Area> second = take_part(text);
  if (!second || !text.empty()) return std::nullopt;
  return Around(*first, *second);
}

}  // namespace

Area Around(const Area& one, const Area& other) {
  return {std::min(one.first_row, other.first_row), std::min(one.first_column, other.first_column),
          std::max(one.last_row, other.last_row), std::max(one.last_column, other.last_column)};
}

std::optional<Area> ParseArea(StringView text) { return ParseParts(text, TakeCell); }

std::optional<Area> ParseColumns(StringView text) { return ParseParts(text, TakeColumnArea); }

std::string ColumnName(int column) {
  std::string name;
  for (; column > 0; column = (column - 1) / 26) {
    name.insert(name.begin(), static_cast<char>('A' + (column - 1) % 26));
  }
  return name;
}

std::string AreaText(const Area& area) {
  const std::string first = ColumnName(area.first_column) + std::to_string(area.first_row);
  if (area.Rows() == 1 && area.Columns() == 1) return first;
  return first + ":" + ColumnName(area.last_column) + std::to_string(area.last_row);
}

}  // namespace tolvane::office
