#include "tools/log/runs/clock_jump.h"

#include <algorithm>
#include <cmath>

namespace tolvane::logtool {

namespace {

// A bus that is silent for a moment is no jump. A jump is far longer than all steps ahead of it,
// and ends right behind the wrap.
constexpr std::uint64_t kFrames_MIN = 2;
constexpr double kTimesTheLongest = 2.0;

/// How long the bus may have been silent at a jump, at the most, ms, by the longest step ahead.
constexpr double RightBehind(double longest_step) { return 10.0 * longest_step + 100.0; }

bool BeginsWith(std::string_view bytes, StringView ascii) {
  return bytes.size() >= ascii.size() &&
         std::equal(ascii.begin(), ascii.end(), bytes.begin(), [](char16_t character, char byte) {
           return character == static_cast<char16_t>(byte);
         });
}

}  // namespace

void ClockJump::Look(double time) {
  const double step = frames_ > 0 ? time - last_ : 0.0;
  is_passed_ = time >= wrap_;
  const double behind_wrap = time - wrap_;
  if (is_passed_ && frames_ >= kFrames_MIN && step > kTimesTheLongest * longest_step_ &&
      behind_wrap <= RightBehind(longest_step_)) {
    const double doubt = std::max(0.0, std::min(behind_wrap, last_step_)) / 2.0;
    found_ = {
        .at = last_, .jump = step - behind_wrap + std::floor(doubt), .doubt = std::ceil(doubt)};
  }
  last_step_ = step;
  longest_step_ = std::max(longest_step_, step);
  last_ = time;
  ++frames_;
}

const AdapterTraits* AdapterOf(const LogHead& head) {
  const auto* const found = std::ranges::find_if(adapter_traits, [&](const AdapterTraits& adapter) {
    return !adapter.name.empty() && BeginsWith(head.adapter, adapter.name);
  });
  return found == adapter_traits.end() ? nullptr : found;
}

double ClockWrapOf(const LogHead& head) {
  const AdapterTraits* const adapter = AdapterOf(head);
  return adapter == nullptr ? 0.0 : adapter->timer_wrap;
}

}  // namespace tolvane::logtool
