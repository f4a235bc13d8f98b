#include "tools/log/info/silences.h"

#include <algorithm>
#include <tuple>

namespace tolvane::logtool {

namespace {

bool StaysLonger(const Silence& one, const Silence& other) {
  return std::tuple(one.length, -one.begin) > std::tuple(other.length, -other.begin);
}

}  // namespace

void LongestSilences::Add(const Silence& silence) {
  ++count_;
  if (kept_.size() == most_) {
    if (silence.length <= kept_.front().length) return;
    std::ranges::pop_heap(kept_, StaysLonger);
    kept_.pop_back();
  }
  kept_.push_back(silence);
  std::ranges::push_heap(kept_, StaysLonger);
}

}  // namespace tolvane::logtool
