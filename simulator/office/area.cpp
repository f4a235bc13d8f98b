#include "simulator/office/area.h"

namespace tolvane::office {
namespace {

/// Takes a cell, or with `whole_columns` a column, from the start of `text`.
std::optional<Area> TakePart(StringView& text, bool whole_columns) {
  int column = 0;
  for (; !text.empty() && text[0] >= u'A' && text[0] <= u'Z'; text.remove_prefix(1)) {
    column = column * 26 + (text[0] - u'A' + 1);
    if (column > kLastColumn) return {};
  }
  int row = 0;
  for (; !whole_columns && !text.empty() && text[0] >= u'0' && text[0] <= u'9';
       text.remove_prefix(1)) {
    row = row * 10 + (text[0] - u'0');
    if (row > kLastRow) return {};
  }
  if (column == 0 || (row == 0 && !whole_columns)) return {};
  return whole_columns ? Area{1, column, kLastRow, column} : Area{row, column, row, column};
}

/// One part, or two with a colon between.
std::optional<Area> Parse(StringView text, bool whole_columns) {
  const std::optional<Area> first = TakePart(text, whole_columns);
  if (!first || text.empty()) return first;
  if (text[0] != u':') return {};
  text.remove_prefix(1);
  const std::optional<Area> last = TakePart(text, whole_columns);
  if (!last || !text.empty()) return {};
  return Spanning(*first, *last);
}

}  // namespace

std::optional<Area> Spanning(const Area& first, const Area& last) {
  if (last.first_row < first.first_row || last.first_column < first.first_column) return {};
  return Area{first.first_row, first.first_column, last.last_row, last.last_column};
}

std::optional<Area> ParseArea(StringView text) { return Parse(text, false); }

std::optional<Area> ParseColumns(StringView text) { return Parse(text, true); }

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
