#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tolvane::logtool {

/// Cycles of one identifier, counted without being kept: as many as there are of each length, where
/// lengths that differ by less than a two-thousandth share a row. So whole milliseconds up to two
/// seconds are told apart, and a log of hours takes no more memory than one of minutes.
class CycleStatistics {
 public:
  /// Not negative, in ms.
  void Add(double cycle) {
    if (count_ == 0 || cycle < least_) least_ = cycle;
    if (count_ == 0 || cycle > longest_) longest_ = cycle;
    ++count_;
    Row& row = RowOf(KeyOf(cycle));
    row.sum += cycle;
    if (row.count++ == 0 && ++filled_ * 2 > rows_.size()) Grow();
  }

  [[nodiscard]] std::uint64_t Count() const { return count_; }
  [[nodiscard]] double Least() const { return least_; }
  [[nodiscard]] double Longest() const { return longest_; }
  /// The one in the middle, of an even number the shorter one. 0 without any.
  [[nodiscard]] double Median() const { return MedianAbove(-1.0); }
  /// Of those longer than `limit`.
  [[nodiscard]] double MedianAbove(double limit) const;
  [[nodiscard]] std::uint64_t CountAbove(double limit) const;
  /// How many lie between, both ends included.
  [[nodiscard]] std::uint64_t Between(double low, double high) const;

 private:
  /// Empty with a count of 0.
  struct Row {
    std::uint32_t key = 0;
    std::uint64_t count = 0;
    double sum = 0.0;

    [[nodiscard]] double Mean() const { return sum / static_cast<double>(count); }
  };

  /// The exponent and the first 11 binary places, which grow with what is not negative.
  [[nodiscard]] static std::uint32_t KeyOf(double cycle) {
    return static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(cycle) >> (52 - 11));
  }
  [[nodiscard]] Row& RowOf(std::uint32_t key) {
    const std::size_t mask = rows_.size() - 1;
    std::size_t at = (key * std::uint32_t{2654435769}) >> 8 & mask;
    while (rows_[at].count > 0 && rows_[at].key != key) at = (at + 1) & mask;
    rows_[at].key = key;
    return rows_[at];
  }
  void Grow();

  std::uint64_t count_ = 0;
  double least_ = 0.0;
  double longest_ = 0.0;
  std::size_t filled_ = 0;
  std::vector<Row> rows_{8};  // a power of two, at most half filled
};

/// The frames of one every `cycle` that a silence of `length` had no room for.
[[nodiscard]] double FramesLostIn(double length, double cycle);

}  // namespace tolvane::logtool
