#pragma once

#include <optional>
#include <string>

#include "platform/string.h"

namespace tolvane::office {

/// Highest row and column of a sheet, those of an .xls workbook.
inline constexpr int kLastRow = 65536;
inline constexpr int kLastColumn = 256;

/// A rectangle of cells; rows and columns count from 1, the last ones belong to it.
struct Area {
  int first_row = 1;
  int first_column = 1;
  int last_row = 1;
  int last_column = 1;

  [[nodiscard]] int Rows() const { return last_row - first_row + 1; }
  [[nodiscard]] int Columns() const { return last_column - first_column + 1; }
  bool operator==(const Area&) const = default;
};

inline constexpr Area kWholeSheet{1, 1, kLastRow, kLastColumn};

/// From the one to the other; empty when the last one begins above or to the left of the first.
std::optional<Area> Spanning(const Area& first, const Area& last);

/// "H1:K2" or "A1"; empty for anything else.
std::optional<Area> ParseArea(StringView text);

/// "E:L" or "E", as an area over all rows; empty for anything else.
std::optional<Area> ParseColumns(StringView text);

/// 1 is "A", 27 is "AA".
std::string ColumnName(int column);

/// "H1:K2", or "A1" for a single cell.
std::string AreaText(const Area& area);

}  // namespace tolvane::office
