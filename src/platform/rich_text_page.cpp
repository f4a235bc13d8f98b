#include "platform/rich_text_page.h"

#include <algorithm>
#include <new>

namespace tolvane::platform {

void ColourRuns::Paint(std::int32_t start, std::int32_t end, std::int32_t colour) {
  if (end <= start) return;
  if (runs_.empty() || runs_.back().end <= start) {
    runs_.push_back({start, end, colour});
    return;
  }
  // Runs that end after `start` and begin before `end` are covered, completely or in part.
  const auto first = std::partition_point(runs_.begin(), runs_.end(),
                                          [=](const ColourRun& run) { return run.end <= start; });
  const auto last = std::partition_point(first, runs_.end(),
                                         [=](const ColourRun& run) { return run.start < end; });
  ColourRun pieces[3];
  std::size_t count = 0;
  if (first != last && first->start < start) pieces[count++] = {first->start, start, first->colour};
  pieces[count++] = {start, end, colour};
  if (first != last && std::prev(last)->end > end) {
    pieces[count++] = {end, std::prev(last)->end, std::prev(last)->colour};
  }
  const auto covered = static_cast<std::size_t>(last - first);
  const auto overlap = std::min(covered, count);
  const auto next = std::copy_n(pieces, overlap, first);
  if (count > overlap) {
    runs_.insert(next, pieces + overlap, pieces + count);
  } else {
    runs_.erase(next, last);
  }
}

void ColourRuns::TakeMemory(std::size_t runs) {
  runs_.assign(runs, {});
  runs_.clear();
}

ColourWalk::ColourWalk(const ColourRuns& runs, std::int32_t start)
    : next_(std::partition_point(runs.Runs().begin(), runs.Runs().end(),
                                 [=](const ColourRun& run) { return run.end <= start; })),
      last_(runs.Runs().end()) {}

void RichTextPage::TakeMemory() {
  colours.Clear();
  backgrounds.Clear();
  try {
    text.assign(kCharacters_MAX, u'\0');
    colours.TakeMemory(kColours_MAX);
    backgrounds.TakeMemory(kBackgrounds_MAX);
  } catch (const std::bad_alloc&) {
    // The first page tries again.
  }
  text.clear();
}

}  // namespace tolvane::platform
