#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "simulator/adapter_clock.h"
#include "simulator/bus_frame.h"

namespace tolvane::soak {

/// How an adapter tells the time: what its stamps count, and what the program makes of them.
struct AdapterTime {
  simulator::StampUnit stamps;
  simulator::ClockFaults faults;
  std::int64_t ticks_per_ms;  // of the stamps
};

/// The csv files of one run as the frames that the program receives make them, with code that is
/// independent of the program's. A copy is where it stood.
class LogText {
 public:
  /// `ids29`: the run is one in 29-bit mode.
  LogText(const AdapterTime& time, bool ids29) : time_(&time), ids29_(ids29) {}

  /// Begins a file; what stands in it ahead of its first record.
  [[nodiscard]] std::string BeginFile();
  /// The record of the next frame, with its line end.
  void Append(const simulator::BusFrame& frame, std::string& text);
  /// The time of the last frame on the run's time line.
  [[nodiscard]] std::int64_t LineMs() const { return line_; }

 private:
  std::int64_t TimeOf(const simulator::BusFrame& frame);

  const AdapterTime* time_;
  bool ids29_;
  bool first_channel_ = false;
  std::size_t stray_zeros_ = 0;  // of the second channel, for the next file of the first one

  // The run's time line, ms.
  bool started_ = false;
  std::int64_t origin_ = 0;
  std::int64_t elapsed_ = 0;
  std::int64_t line_ = 0;
};

}  // namespace tolvane::soak
