#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tools/log/reading/bytes.h"

namespace tolvane::logtool {

/// What is wrong with the files, told as it is found: "tolvane-log: FILE:LINE: what it is".
class Complaints {
 public:
  static constexpr std::uint64_t kTold_MAX = 10;  // the rest is counted

  /// With `keep`, reading goes on behind a fault.
  Complaints(ByteSink& out, bool keep) : out_(out), keep_(keep) {}

  /// `line` is 0 for a file as a whole.
  void Tell(std::string_view path, std::uint64_t line, std::string_view what);
  /// Tells how many were not told.
  void Conclude();

  [[nodiscard]] std::uint64_t Count() const { return count_; }
  /// True when nothing more is to be read.
  [[nodiscard]] bool EndReading() const { return count_ > 0 && !keep_; }

 private:
  ByteSink& out_;
  bool keep_;
  std::uint64_t count_ = 0;
};

}  // namespace tolvane::logtool
