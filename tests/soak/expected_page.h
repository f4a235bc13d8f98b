#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "simulator/bus_frame.h"

namespace tolvane::soak {

/// What a page shows against what it must show.
struct ComparedPage {
  std::size_t rows = 0;         // that it must have
  std::size_t differing = 0;    // of them; those that it lacks or has besides too
  std::string difference = {};  // the first one; empty without any
};

/// The page that a run must leave: of each identifier its last frame, and the time between its last
/// two. Of loads without an identifier 0, whose frames of one identifier come milliseconds apart.
class ExpectedPage {
 public:
  /// `ids29`: the run is one in 29-bit mode.
  explicit ExpectedPage(bool ids29) : ids29_(ids29) {}

  /// The next frame that the program received; `at_ms` is its time on the run's time line.
  void Receive(const simulator::BusFrame& frame, std::int64_t at_ms);

  /// The page, with LF line ends, its header ahead.
  [[nodiscard]] std::string Text() const;

  /// `page`: the text of a window, with LF line ends.
  [[nodiscard]] ComparedPage Compare(std::string_view page) const;

 private:
  struct Row {
    simulator::BusFrame last{};
    std::int64_t at_ms = 0;
    std::int64_t cycle_ms = 0;
    bool once = true;  // no cycle yet
  };

  [[nodiscard]] std::string Text(const Row& row) const;

  bool ids29_;
  std::map<std::pair<std::uint32_t, bool>, Row> rows_;  // by identifier, the extended one behind
};

}  // namespace tolvane::soak
