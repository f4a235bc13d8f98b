#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "simulator/office/area.h"
#include "simulator/office/cell_value.h"
#include "simulator/office/table.h"
#include "simulator/office/typed_text.h"

namespace tolvane::office {

/// How a cell looks. Filled means colour index 36 of the default palette, light yellow.
struct CellStyle {
  int font_size = 11;  // points
  bool filled = false;
  bool bordered = false;
  bool right_aligned = false;
  int number_format = 0;  // of the built-in ones
  bool operator==(const CellStyle&) const = default;
};

struct Cell {
  CellValue value;
  std::uint16_t style = 0;  // index in Sheet::Styles()

  [[nodiscard]] bool IsEmpty() const { return value == CellValue(); }
};

/// One worksheet: values, looks, merged ranges, column widths and a filter. Operations on an area
/// answer false, and change nothing, when it has more than a million cells and is not the whole
/// sheet.
class Sheet {
 public:
  /// The same value in all cells; false also for a formula.
  [[nodiscard]] bool SetValue(const Area& area, const Typed& typed);

  /// Texts stay what they are, unless the table is to be taken as typed. False also when the table
  /// has another size than the area, or holds what would then be a formula.
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
  void SetColumnWidth(const Area& columns, double width);

  /// The filter reaches from this cell to the last row and column in use.
  void SetFilter(int row, int column);

  /// Style 0 is the one of all cells that nothing else was said about.
  [[nodiscard]] const std::vector<CellStyle>& Styles() const { return styles_; }
  /// Row r of the sheet is element r - 1; rows differ in length, rows behind the last are empty.
  [[nodiscard]] const std::vector<std::vector<Cell>>& Rows() const { return rows_; }
  [[nodiscard]] const std::vector<Area>& Merged() const { return merged_; }
  [[nodiscard]] const std::map<int, double>& ColumnWidths() const { return widths_; }
  [[nodiscard]] const std::optional<Area>& Filter() const { return filter_; }
  /// Everything that was ever assigned to, A1 at the least.
  [[nodiscard]] Area Used() const;

 private:
  static bool IsWorkable(const Area& area);
  Cell& At(int row, int column);
  void Set(int row, int column, const Typed& typed);
  std::uint16_t StyleIndex(const CellStyle& style);

  std::vector<CellStyle> styles_{CellStyle{}};
  std::vector<std::vector<Cell>> rows_;
  std::vector<Area> merged_;
  std::map<int, double> widths_;
  std::optional<Area> filter_;
};

}  // namespace tolvane::office
