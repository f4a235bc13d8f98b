#pragma once

#include <cstdint>
#include <string>

#include "simulator/adapter_clock.h"
#include "simulator/load_generator.h"

namespace tolvane::soak {

/// How an adapter tells the time: what its stamps count, and what the program makes of them.
struct AdapterTime {
  simulator::StampUnit stamps;
  simulator::ClockFaults faults;
  std::int64_t ticks_per_ms;  // of the stamps
};

/// The csv files that a run must leave, computed from the plan of the generated load alone, with
/// code that is independent of the program's.
class ExpectedLog {
 public:
  static constexpr std::int64_t kRecordsPerFile = 20'001;
  static constexpr int kHeaderLines = 8;

  /// `plan.frames` is finite. `ids29`: the run is one in 29-bit mode.
  ExpectedLog(const simulator::LoadPlan& plan, const AdapterTime& time, bool ids29);

  /// The last file holds what is left, and may be empty.
  [[nodiscard]] std::int64_t Files() const { return frames_ / kRecordsPerFile + 1; }
  [[nodiscard]] std::int64_t Frames() const { return frames_; }

  /// The records of the next file: all bytes after its header.
  [[nodiscard]] std::string NextFile();

 private:
  std::int64_t TimeOf(const simulator::BusFrame& frame);
  void AppendRecord(const simulator::BusFrame& frame, bool first_channel, std::string& records);

  simulator::LoadGenerator bus_;
  AdapterTime time_;
  std::int64_t frames_;
  bool ids29_;
  std::int64_t files_ = 0;
  std::string stray_zeros_;  // of the second channel, for the next file of the first one

  // The run's time line, ms.
  bool started_ = false;
  std::int64_t origin_ = 0;
  std::int64_t elapsed_ = 0;
  std::int64_t line_ = 0;
};

/// Where `file`, a complete log, differs from a header of eight lines and `records`; empty when it
/// does not. Says the record, from 1, and both texts.
[[nodiscard]] std::string FirstDifference(const std::string& file, const std::string& records);

}  // namespace tolvane::soak
