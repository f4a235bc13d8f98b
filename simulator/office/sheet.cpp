#include "simulator/office/sheet.h"

#include <algorithm>
#include <utility>

namespace tolvane::office {

bool Sheet::SetTexts(const Area& area, Table&& table) {
  if (!IsWorkable(area) || table.rows != static_cast<std::size_t>(area.Rows()) ||
      table.columns != static_cast<std::size_t>(area.Columns())) {
    return false;
  }
  auto text = table.texts.begin();
  for (int row = area.first_row; row <= area.last_row; ++row) {
    for (int column = area.first_column; column <= area.last_column; ++column) {
      At(row, column).text = std::move(*text++);
    }
  }
  return true;
}

void Sheet::SetColumnWidth(const Area& columns, int width) {
  for (int column = columns.first_column; column <= columns.last_column; ++column) {
    widths_[column] = width;
  }
}

Area Sheet::Used(const Area& area) const {
  std::size_t columns = static_cast<std::size_t>(area.last_column);
  for (const std::vector<Cell>& row : rows_) columns = std::max(columns, row.size());
  return {1, 1, std::max(area.last_row, static_cast<int>(rows_.size())), static_cast<int>(columns)};
}

bool Sheet::IsWorkable(const Area& area) {
  constexpr int kCells_MAX = 1'000'000;
  return area.Rows() <= kCells_MAX / area.Columns();
}

Cell& Sheet::At(int row, int column) {
  const auto row_index = static_cast<std::size_t>(row - 1);
  const auto column_index = static_cast<std::size_t>(column - 1);
  if (rows_.size() <= row_index) rows_.resize(row_index + 1);
  std::vector<Cell>& cells = rows_[row_index];
  if (cells.size() <= column_index) cells.resize(column_index + 1);
  return cells[column_index];
}

std::uint16_t Sheet::StyleIndex(const CellStyle& style) {
  const auto found = std::find(styles_.begin(), styles_.end(), style);
  const auto index = static_cast<std::uint16_t>(found - styles_.begin());
  if (found == styles_.end()) styles_.push_back(style);
  return index;
}

}  // namespace tolvane::office
