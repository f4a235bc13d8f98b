#include "tools/log/info/silences.h"

#include <algorithm>

namespace tolvane::logtool {

void LongestSilences::Keep(const Silence& silence) {
  if (kept_.size() < most_) {
    kept_.push_back(silence);
  } else {
    *std::ranges::min_element(kept_, {}, &Silence::length) = silence;
  }
  if (kept_.size() == most_) shortest_ = std::ranges::min(kept_, {}, &Silence::length).length;
}

}  // namespace tolvane::logtool
