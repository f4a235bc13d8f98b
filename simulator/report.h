#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/bus_tap.h"

namespace tolvane::simulator {

/// Builds the text of a library call: canusb_Open("TV100001", "500", 0, -1, 1) = 1001.
class CallLine {
 public:
  explicit CallLine(std::string_view call) : line_(call) { line_ += '('; }

  CallLine& Text(std::string_view text);  // quoted, with \xNN outside ASCII
  CallLine& Number(std::int64_t number);
  std::string Gives(std::int32_t result);
  std::string Gives(std::int32_t result, std::string_view output);  // what a buffer got

 private:
  void Add(std::string_view argument);
  std::string line_;
  bool first_ = true;
};

/// A log of what happened, line by line, each line starting with the library's name. The file can
/// be read while the program runs.
class Report {
 public:
  /// `out` null: nothing is kept.
  Report(std::unique_ptr<std::ostream> out, std::string_view library);
  ~Report();
  Report(const Report&) = delete;
  Report& operator=(const Report&) = delete;

  void Line(std::string_view line);

  /// Writes "fault: WHAT" for a call that a program must not make, or not now. The same fault
  /// several times in a row, as from reads, is written once.
  void Fault(std::string_view what);

  /// "end TV100001 delivered=N" once an adapter has given out all that its bus brings. A fault that
  /// goes on behind it is not told again.
  void End(std::string_view adapter, std::int64_t delivered);

  /// The summary of one stretch on the bus:
  /// "run TV100001 reads=N delivered=N dropped=N longest_gap_ms=N.NNN queue_high_water=N", then a
  /// line "gap TV100001 behind=frame ms=N.NNN delivered=N at_ms=N.NNN" for each gap that is kept.
  void Run(std::string_view adapter, const TapCounts& counts);

 private:
  void Write(std::string_view line);
  void Gaps(std::string_view adapter, std::string_view behind, const std::vector<ReadGap>& gaps);

  std::unique_ptr<std::ostream> out_;
  std::string library_;
  std::string last_fault_;  // empty when something else has been told since
};

}  // namespace tolvane::simulator
