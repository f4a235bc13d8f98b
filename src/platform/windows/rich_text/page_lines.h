#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/string.h"

namespace tolvane::platform::windows {

/// The positions of the lines of a page in its text. CR LF, CR and LF are each one line end; after
/// the last one there is one more line, which may be empty. The storage is reused for each page.
class PageLines {
 public:
  /// Page positions, zero-based, `end` exclusive and without the line end.
  struct Line {
    std::int32_t start;
    std::int32_t end;
  };

  /// Goes through `text` once. Before the first call there are no lines.
  void Find(StringView text);

  [[nodiscard]] std::size_t Count() const { return lines_.size(); }
  [[nodiscard]] Line At(std::size_t index) const { return lines_[index]; }
  /// Length of the longest line in half-width cells; never too small.
  [[nodiscard]] std::int32_t WidestInCells() const { return widest_; }

 private:
  std::vector<Line> lines_;
  std::int32_t widest_ = 0;
};

}  // namespace tolvane::platform::windows
