#pragma once

#include <cstdint>
#include <vector>

#include "platform/string.h"

namespace tolvane::platform {

/// A stretch of characters in one colour. Zero-based, `end` exclusive.
struct ColourRun {
  std::int32_t start;
  std::int32_t end;
  std::int32_t colour;  // 0x00BBGGRR
  friend bool operator==(const ColourRun&, const ColourRun&) = default;
};

/// Colours over a text: disjoint runs in rising order. What no run covers has the default colour.
class ColourRuns {
 public:
  /// Paints from `start` to `end`, over whatever was painted there before. In rising order, as a
  /// page is painted, this appends; anything else costs a walk over the later runs.
  /// An `end` at or below `start` paints nothing.
  void Paint(std::int32_t start, std::int32_t end, std::int32_t colour);

  /// Forgets all runs and keeps their storage.
  void Clear() { runs_.clear(); }

  [[nodiscard]] const std::vector<ColourRun>& Runs() const { return runs_; }

  friend bool operator==(const ColourRuns&, const ColourRuns&) = default;

 private:
  std::vector<ColourRun> runs_;
};

/// A finished page: what crosses from the page under construction to the visible view in one step.
/// Positions count UTF-16 units of `text`, in which a line end is the two characters CR LF.
struct RichTextPage {
  String text;
  ColourRuns colours;      // of the characters; black where nothing is painted
  ColourRuns backgrounds;  // behind them; the view's white where nothing is painted
};

}  // namespace tolvane::platform
