#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "simulator/load_generator.h"
#include "tests/soak/log_text.h"

namespace tolvane::soak {

/// The csv files that a run must leave, computed from the plan of the generated load alone.
class ExpectedLog {
 public:
  static constexpr std::int64_t kRecordsPerFile = 20'001;
  static constexpr int kHeaderLines = 8;

  /// `plan.frames` is finite. `ids29`: the run is one in 29-bit mode.
  ExpectedLog(const simulator::LoadPlan& plan, const AdapterTime& time, bool ids29);
  ExpectedLog(const ExpectedLog&) = delete;
  ExpectedLog& operator=(const ExpectedLog&) = delete;

  /// The last file holds what is left, and may be empty.
  [[nodiscard]] std::int64_t Files() const { return frames_ / kRecordsPerFile + 1; }

  /// The records of the next file: all bytes after its header.
  [[nodiscard]] std::string NextFile();

 private:
  simulator::LoadGenerator bus_;
  AdapterTime time_;
  LogText text_;
  std::int64_t frames_;
};

/// Where the records of `file`, a complete log, begin.
[[nodiscard]] std::size_t HeaderSize(std::string_view file);

/// Where `file` differs from a header of eight lines and `records`; empty when it does not. Says
/// the record, from 1, and both texts.
[[nodiscard]] std::string FirstDifference(const std::string& file, const std::string& records);

/// How a difference is told: without line ends, and of a long line the end.
[[nodiscard]] std::string Difference(std::int64_t record, std::string_view found,
                                     std::string_view expected);

}  // namespace tolvane::soak
