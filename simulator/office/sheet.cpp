#include "simulator/office/sheet.h"

#include <algorithm>
#include <utility>

namespace tolvane::office {
namespace {

bool IsFormula(StringView text) { return ParseTyped(text).is_formula; }

}  // namespace

bool Sheet::SetValue(const Area& area, const Typed& typed) {
  if (!IsWorkable(area) || typed.is_formula) return false;
  for (int row = area.first_row; row <= area.last_row; ++row) {
    for (int column = area.first_column; column <= area.last_column; ++column) {
      Set(row, column, typed);
    }
  }
  return true;
}

bool Sheet::SetTexts(const Area& area, Table&& table) {
  if (!IsWorkable(area) || table.rows != static_cast<std::size_t>(area.Rows()) ||
      table.columns != static_cast<std::size_t>(area.Columns())) {
    return false;
  }
  if (table.as_typed && std::ranges::any_of(table.texts, IsFormula)) return false;
  auto text = table.texts.begin();
  for (int row = area.first_row; row <= area.last_row; ++row) {
    for (int column = area.first_column; column <= area.last_column; ++column) {
      if (table.as_typed) {
        Set(row, column, ParseTyped(*text++));
      } else {
        At(row, column).value = std::move(*text++);
      }
    }
  }
  return true;
}

void Sheet::Set(int row, int column, const Typed& typed) {
  Cell& cell = At(row, column);
  cell.value = typed.value;
  if (typed.number_format == 0) return;
  CellStyle style = styles_[cell.style];
  style.number_format = typed.number_format;
  cell.style = StyleIndex(style);
}

void Sheet::SetColumnWidth(const Area& columns, double width) {
  for (int column = columns.first_column; column <= columns.last_column; ++column) {
    widths_[column] = width;
  }
}

void Sheet::SetFilter(int row, int column) {
  filter_ = Around({row, column, row, column}, Used());
  filter_->first_row = row;
  filter_->first_column = column;
}

Area Sheet::Used() const {
  std::size_t columns = 1;
  for (const std::vector<Cell>& row : rows_) columns = std::max(columns, row.size());
  return {1, 1, std::max(1, static_cast<int>(rows_.size())), static_cast<int>(columns)};
}

bool Sheet::IsWorkable(const Area& area) {
  constexpr int kMostCells = 1'000'000;
  return area.Rows() <= kMostCells / area.Columns();
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
