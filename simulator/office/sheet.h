#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "platform/string.h"
#include "simulator/office/area.h"

namespace tolvane::office {

/// A rectangle of texts, row by row, as one call carries it: texts.size() is rows x columns.
/// A list that came with one dimension is one row.
struct Table {
  std::size_t rows = 0;
  std::size_t columns = 0;
  std::vector<String> texts;
};

/// How a cell looks. Filled means colour index 36 of the default palette, light yellow.
struct CellStyle {
  int font_size = 11;  // points
  bool filled = false;
  bool bordered = false;
  bool right_aligned = false;
  bool operator==(const CellStyle&) const = default;
};

struct Cell {
  String text;              // empty for an empty cell
  std::uint16_t style = 0;  // index in Sheet::Styles()

  [[nodiscard]] bool IsLeftOut() const { return text.empty() && style == 0; }
};

/// One worksheet: texts, looks, merged ranges, column widths and a filter. Operations on an area
/// answer false, and change nothing, when it has more than a million cells and is not the whole
/// sheet.
class Sheet {
 public:
  /// False also when the table has another size than the area.
  [[nodiscard]] bool SetTexts(const Area& area, Table&& table);

  /// Sets one field of the style of all cells of the area, those still empty included.
  template <typename Value>
  [[nodiscard]] bool SetStyle(const Area& area, Value CellStyle::*field, Value value) {
    if (area == kWholeSheet) {
      for (CellStyle& style : styles_) style.*field = value;
      return true;
    }
    if (!IsWorkable(area)) return false;
    for (int row = area.first_row; row <= area.last_row; ++row) {
      for (int column = area.first_column; column <= area.last_column; ++column) {
        Cell& cell = At(row, column);
        CellStyle style = styles_[cell.style];
        style.*field = value;
        cell.style = StyleIndex(style);
      }
    }
    return true;
  }

  void Merge(const Area& area) { merged_.push_back(area); }

  /// `width` is in characters of the default font.
  void SetColumnWidth(const Area& columns, int width);

  /// The filter reaches from this cell to the last row and column in use.
  void SetFilter(const Area& cell) {
    filter_ = Used(cell);
    filter_->first_row = cell.first_row;
    filter_->first_column = cell.first_column;
  }

  /// Style 0 is the one of all cells that nothing else was said about.
  [[nodiscard]] const std::vector<CellStyle>& Styles() const { return styles_; }
  /// Row r of the sheet is element r - 1; rows differ in length, rows behind the last are empty.
  [[nodiscard]] const std::vector<std::vector<Cell>>& Rows() const { return rows_; }
  [[nodiscard]] const std::vector<Area>& Merged() const { return merged_; }
  [[nodiscard]] const std::map<int, int>& ColumnWidths() const { return widths_; }
  [[nodiscard]] const std::optional<Area>& Filter() const { return filter_; }
  /// Everything that was ever assigned to, and this area too, from A1 on.
  [[nodiscard]] Area Used(const Area& area = {}) const;

 private:
  static bool IsWorkable(const Area& area);
  Cell& At(int row, int column);
  std::uint16_t StyleIndex(const CellStyle& style);

  std::vector<CellStyle> styles_{CellStyle{}};
  std::vector<std::vector<Cell>> rows_;
  std::vector<Area> merged_;
  std::map<int, int> widths_;
  std::optional<Area> filter_;
};

}  // namespace tolvane::office
