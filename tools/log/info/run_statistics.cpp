#include "tools/log/info/run_statistics.h"

#include <algorithm>
#include <tuple>

namespace tolvane::logtool {

void IdentifierStatistics::Add(const LogFrame& frame) {
  if (frames++ == 0) {
    first = frame.time;
  } else if (const double cycle = frame.time - last; cycle >= 0.0) {
    cycles.Add(cycle);
    silences.Add(last, cycle);
  }
  last = frame.time;
  const bool has_code = frame.length >= 0 && frame.length <= 15;
  lengths |= has_code ? 1U << frame.length : kOtherLengths;
}

void RunStatistics::Add(const LogFrame& frame) {
  if (frames_++ == 0) {
    first_ = frame.time;
  } else if (const double silence = frame.time - last_; silence >= 0.0) {
    silences_.Add(last_, silence);
  } else {
    ++steps_back_;
  }
  last_ = frame.time;
  Of(frame).Add(frame);
}

std::vector<const IdentifierStatistics*> RunStatistics::Identifiers() const {
  std::vector<const IdentifierStatistics*> sorted;
  for (const IdentifierStatistics& identifier : identifiers_) sorted.push_back(&identifier);
  std::ranges::sort(sorted, {}, [](const IdentifierStatistics* identifier) {
    return std::tuple(identifier->extended, identifier->id);
  });
  return sorted;
}

IdentifierStatistics& RunStatistics::Of(const LogFrame& frame) {
  const std::uint64_t key = std::uint64_t{frame.extended} << 32 | frame.id;
  const auto [place, is_new] = places_.try_emplace(key, identifiers_.size());
  if (is_new) {
    IdentifierStatistics& identifier = identifiers_.emplace_back();
    identifier.id = frame.id;
    identifier.extended = frame.extended;
  }
  return identifiers_[place->second];
}

}  // namespace tolvane::logtool
