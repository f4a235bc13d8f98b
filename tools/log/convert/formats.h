#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/local_time.h"
#include "tools/log/reading/log_frame.h"

namespace tolvane::logtool {

/// When the time line of a run began, to a whole ms.
struct TimeAnchor {
  std::int64_t unix_ms;      // since 1970 in UTC
  std::int64_t calendar_ms;  // CalendarMs of the clock on the wall
};

// The formats that a log is converted to. Each writes a head, and then a line for each frame in
// place, from `at` on, of less than BlockWriter::kLine_MAX characters; returns the place behind it.
// Without an anchor the time line begins at 1970.

/// As candump -L writes it.
class CandumpFormat {
 public:
  explicit CandumpFormat(const std::optional<TimeAnchor>& anchor);
  [[nodiscard]] std::string Head() const { return {}; }
  [[nodiscard]] char* Line(const LogFrame& frame, char* at) const;

 private:
  std::int64_t begin_us_;
};

/// As log2asc writes it, and a date to the ms.
class AscFormat {
 public:
  explicit AscFormat(const std::optional<TimeAnchor>& anchor);
  [[nodiscard]] std::string Head() const;
  [[nodiscard]] char* Line(const LogFrame& frame, char* at) const;

 private:
  std::int64_t calendar_ms_;
};

/// A table with a name over each column and the same columns in each line, for spreadsheets and
/// scripts. Without an anchor the first column is empty.
class CsvFormat {
 public:
  explicit CsvFormat(const std::optional<TimeAnchor>& anchor) : anchor_(anchor) {}
  [[nodiscard]] std::string Head() const;
  [[nodiscard]] char* Line(const LogFrame& frame, char* at);

 private:
  [[nodiscard]] char* PutMoment(std::int64_t us, char* at);

  std::optional<TimeAnchor> anchor_;
  std::int64_t second_ = -1;  // the one in second_text_
  std::string second_text_;
};

/// A time of the log in whole µs. Before the line's begin, where only a clock that went back leads,
/// it is 0: no format has negative times.
[[nodiscard]] std::int64_t MicrosecondsOf(double time);

}  // namespace tolvane::logtool
