#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/string.h"

namespace tolvane {

/// The spreadsheet records of one channel as texts, rows 0 to kRow_MAX, columns 0 to kColumn_MAX,
/// empty at first. The storage is allocated on first use, since most runs do not log to a
/// spreadsheet. Indices are not checked.
class LogTable {
 public:
  static constexpr std::int32_t kRow_MAX = 20000;
  static constexpr std::int32_t kColumn_MAX = 11;
  static constexpr std::size_t kColumns = kColumn_MAX + 1;

  [[nodiscard]] String& operator()(std::int32_t row, std::int32_t column) {
    Make();
    return cells_[static_cast<std::size_t>(row) * kColumns + static_cast<std::size_t>(column)];
  }

  /// All cells, row by row.
  [[nodiscard]] std::span<const String> Cells() {
    Make();
    return cells_;
  }

  /// Empties rows 0 to `Arayy1_MAX`, columns 0 to `Arayy2_MAX`, and keeps the texts' storage.
  void Clear(std::int32_t Arayy1_MAX, std::int32_t Arayy2_MAX) {
    if (cells_.empty()) return;
    for (std::int32_t row = 0; row <= Arayy1_MAX; ++row) {
      for (std::int32_t column = 0; column <= Arayy2_MAX; ++column) (*this)(row, column).clear();
    }
  }

 private:
  void Make() {
    if (cells_.empty()) cells_.resize((kRow_MAX + 1) * kColumns);
  }

  std::vector<String> cells_;
};

}  // namespace tolvane
