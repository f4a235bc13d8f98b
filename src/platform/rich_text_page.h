#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
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

  /// The same, with storage for `runs` that is already in memory. Throws std::bad_alloc.
  void TakeMemory(std::size_t runs);

  [[nodiscard]] const std::vector<ColourRun>& Runs() const { return runs_; }

  friend bool operator==(const ColourRuns&, const ColourRuns&) = default;

 private:
  std::vector<ColourRun> runs_;
};

/// One list of runs, walked along rising positions. The list must not change meanwhile.
class ColourWalk {
 public:
  /// From `start` on, which no position may be below.
  explicit ColourWalk(const ColourRuns& runs, std::int32_t start = 0);

  /// Moves on to `position`, which is not below the last one. The run there, null where none is.
  const ColourRun* At(std::int32_t position) {
    while (next_ != last_ && next_->end <= position) ++next_;
    inside_ = next_ != last_ && next_->start <= position;
    return inside_ ? &*next_ : nullptr;
  }

  /// Where what the last At found ends; the largest position when it never does.
  [[nodiscard]] std::int32_t NextChange() const {
    if (inside_) return next_->end;
    return next_ == last_ ? std::numeric_limits<std::int32_t>::max() : next_->start;
  }

 private:
  std::vector<ColourRun>::const_iterator next_, last_;
  bool inside_ = false;
};

/// A finished page: what crosses from the page under construction to the visible view in one step.
/// Positions count UTF-16 units of `text`, in which a line end is the two characters CR LF.
struct RichTextPage {
  // What a page of a run holds at most: the 4,001 rows of an extended table with header and foot,
  // some 50 characters each; a run for each of their bytes and cycles; and the markers.
  static constexpr std::size_t kLines_MAX = 4'020;
  static constexpr std::size_t kCharacters_MAX = 64 * kLines_MAX;
  static constexpr std::size_t kColours_MAX = 9 * kLines_MAX;
  static constexpr std::size_t kBackgrounds_MAX = 16;

  /// Empties the page and takes the memory of the largest one, so that the first page of a run
  /// neither finds it new to the process nor moves while it grows. Where memory has run out, that
  /// page tries again.
  void TakeMemory();

  String text;
  ColourRuns colours;      // of the characters; black where nothing is painted
  ColourRuns backgrounds;  // behind them; the view's white where nothing is painted
};

}  // namespace tolvane::platform
