#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "tools/log/reading/bytes.h"

namespace tolvane::logtool {

/// Writes lines in large blocks.
class BlockWriter {
 public:
  static constexpr std::size_t kLine_MAX = 256;

  explicit BlockWriter(ByteSink& sink) : sink_(sink), room_(std::size_t{1} << 16) {}

  /// Room for a line. Take then adds what was written there.
  [[nodiscard]] char* Line() {
    if (room_.size() - used_ < kLine_MAX) Flush();
    return room_.data() + used_;
  }
  void Take(const char* end) { used_ = static_cast<std::size_t>(end - room_.data()); }

  /// False when not everything could be written.
  [[nodiscard]] bool Conclude() {
    Flush();
    return is_good_;
  }
  [[nodiscard]] bool IsGood() const { return is_good_; }

 private:
  void Flush() {
    is_good_ = is_good_ && sink_.Write({room_.data(), used_});
    used_ = 0;
  }

  ByteSink& sink_;
  std::vector<char> room_;
  std::size_t used_ = 0;
  bool is_good_ = true;
};

}  // namespace tolvane::logtool
