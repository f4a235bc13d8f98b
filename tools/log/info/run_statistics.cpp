#include "tools/log/info/run_statistics.h"

#include <algorithm>
#include <tuple>

namespace tolvane::logtool {

void IdentifierStatistics::Add(const LogFrame& frame, const Moment& moment) {
  if (frames++ == 0) {
    first = moment;
  } else if (const double cycle = last.To(moment); cycle >= 0.0) {
    cycles.Add(cycle);
  }
  last = moment;
  const bool has_code = frame.length >= 0 && frame.length <= 15;
  lengths |= has_code ? 1U << frame.length : kOtherLengths;
}

void RunStatistics::Add(const LogFrame& frame, double ahead) {
  const Moment moment{frame.time, ahead};
  if (frames_++ == 0) {
    first_ = moment;
  } else if (last_.To(moment) < 0.0) {
    ++steps_back_;
  }
  last_ = moment;
  Of(frame).Add(frame, moment);
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
  const auto [place, is_new] =
      places_.try_emplace(KeyOf(frame.extended, frame.id), identifiers_.size());
  if (is_new) {
    IdentifierStatistics& identifier = identifiers_.emplace_back();
    identifier.id = frame.id;
    identifier.extended = frame.extended;
  }
  return identifiers_[place->second];
}

}  // namespace tolvane::logtool
