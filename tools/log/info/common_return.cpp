#include "tools/log/info/common_return.h"

#include <algorithm>

namespace tolvane::logtool {

void CommonReturn::Await(std::uint64_t key, double cycle) {
  awaited_.emplace(key, cycle);
  longest_ = std::max(longest_, cycle);
  ++all_;
}

void CommonReturn::Add(std::uint64_t key, const Moment& moment) {
  passed_ = since_.To(moment);
  const auto awaited = awaited_.find(key);
  if (awaited == awaited_.end()) return;
  if (passed_ <= awaited->second) ++back_;
  awaited_.erase(awaited);
}

bool CommonReturn::IsDecided() const {
  return AreMostBack() || awaited_.empty() || passed_ > longest_;
}

}  // namespace tolvane::logtool
