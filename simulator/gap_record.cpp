#include "simulator/gap_record.h"

#include <algorithm>

namespace tolvane::simulator {
namespace {

constexpr auto kLonger = [](const ReadGap& a, const ReadGap& b) { return a.us > b.us; };

}  // namespace

GapRecord::GapRecord(std::size_t kept) : kept_(kept) { gaps_.reserve(kept); }

void GapRecord::Note(const ReadGap& gap) {
  if (gaps_.size() == kept_) {
    if (kept_ == 0 || gap.us <= gaps_.front().us) return;
    std::ranges::pop_heap(gaps_, kLonger);
    gaps_.pop_back();
  }
  gaps_.push_back(gap);
  std::ranges::push_heap(gaps_, kLonger);
}

std::vector<ReadGap> GapRecord::Longest() const {
  std::vector<ReadGap> gaps = gaps_;
  std::ranges::sort(gaps, kLonger);
  return gaps;
}

}  // namespace tolvane::simulator
