#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/string.h"

namespace tolvane {

/// One column of a table: a fixed array with a getter and a setter. The index is not checked; the
/// caller guarantees 0 to N - 1.
template <typename T, std::size_t N>
class Column {
 public:
  [[nodiscard]] const T& operator()(std::int16_t i) const {
    return elements_[static_cast<std::size_t>(i)];
  }
  void operator()(std::int16_t i, T value) {
    elements_[static_cast<std::size_t>(i)] = static_cast<T&&>(value);
  }

  /// Sets elements 0 to `Arayy_MAX`, the upper bound included; a negative bound sets none.
  void Fill(std::int32_t Arayy_MAX, const T& value) {
    for (std::int32_t i = 0; i <= Arayy_MAX; ++i) elements_[static_cast<std::size_t>(i)] = value;
  }

 private:
  std::array<T, N> elements_{};
};

/// A column that tables of several classes have, each under a name of its own: called with a table
/// it gives that table's column.
template <typename Table, typename ItsColumn>
class ColumnOf {
 public:
  constexpr ColumnOf(ItsColumn Table::*column) : column_(column) {}

  [[nodiscard]] constexpr ItsColumn& operator()(Table& table) const { return table.*column_; }
  [[nodiscard]] constexpr const ItsColumn& operator()(const Table& table) const {
    return table.*column_;
  }

 private:
  ItsColumn Table::*column_;
};

/// 64-bit fixed-point number with four decimals: a count of ten-thousandths.
struct Currency {
  std::int64_t ten_thousandths = 0;
  friend auto operator<=>(const Currency&, const Currency&) = default;
};

/// The clearing operations that every table has. `Arayy_MAX` is the highest index cleared, not a
/// count.
class ArayyClear {
 public:
  /// Every table has the clearing operations of all types. No table has a Currency column
  /// today.
  template <std::size_t N>
  static void Arayy_ALL_Clear_zero_Currency(std::int32_t Arayy_MAX, Column<Currency, N>& Arayy) {
    Arayy.Fill(Arayy_MAX, {});
  }
  template <std::size_t N>
  static void Arayy_ALL_Clear_zero_long(std::int32_t Arayy_MAX, Column<std::int32_t, N>& Arayy) {
    Arayy.Fill(Arayy_MAX, 0);
  }
  template <std::size_t N>
  static void Arayy_ALL_Clear_zero_byte(std::int32_t Arayy_MAX, Column<std::uint8_t, N>& Arayy) {
    Arayy.Fill(Arayy_MAX, 0);
  }
  template <std::size_t N>
  static void Arayy_ALL_Clear_zero_string(std::int32_t Arayy_MAX, Column<String, N>& Arayy) {
    Arayy.Fill(Arayy_MAX, {});
  }
  template <std::size_t N>
  static void Arayy_ALL_Clear_zero_double(std::int32_t Arayy_MAX, Column<double, N>& Arayy) {
    Arayy.Fill(Arayy_MAX, 0.0);
  }
};

}  // namespace tolvane
