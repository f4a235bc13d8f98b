#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "simulator/bus_frame.h"
#include "simulator/live_text.h"

namespace tolvane::simulator {

struct LiveCounts {
  std::int64_t frames = 0;
  std::int64_t refused_lines = 0;  // neither a frame nor blank
};

/// A bus whose frames come as lines of text, each as candump_log.h tells, and are due when they
/// have come.
///
/// A frame's time is that of its line, moved so that the line which took the shortest way came at
/// once. So cycles are those of the lines, whatever delays these had, and no frame is ahead of the
/// bus. When the lines' clock is set back, the times begin anew.
class LiveSource : public BusSource {
 public:
  /// A longer line is refused, and at most so many bytes are taken at once.
  static constexpr std::size_t kBytes_MAX = 65'536;

  using AtEnd = std::function<void(const LiveCounts& counts)>;

  /// `within_line`: the text's first line is the end of one and no frame.
  explicit LiveSource(std::unique_ptr<GrowingText> text, bool within_line = false,
                      AtEnd at_end = nullptr);
  ~LiveSource() override;
  LiveSource(const LiveSource&) = delete;
  LiveSource& operator=(const LiveSource&) = delete;

  void Reach(std::int64_t bus_us) override;
  /// False when no whole line is left of what Reach has taken.
  bool Next(BusFrame& frame) override;

 private:
  bool TakeLine(std::string_view& line);
  std::int64_t Stamp(std::int64_t line_us);

  std::unique_ptr<GrowingText> text_;
  AtEnd at_end_;
  std::vector<char> bytes_;
  std::size_t first_ = 0;  // of the bytes that are taken and not yet used
  std::size_t end_ = 0;
  bool skips_line_;  // up to its end
  std::int64_t now_us_ = 0;
  std::int64_t last_line_us_ = INT64_MAX;  // the first line sets the clock
  std::int64_t shift_us_ = 0;              // from a line's time to bus time
  std::int64_t last_us_ = 0;
  LiveCounts counts_;
};

}  // namespace tolvane::simulator
