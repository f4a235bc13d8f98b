#include "simulator/load_generator.h"

#include <algorithm>

#include "simulator/frame_bits.h"
#include "simulator/random.h"

namespace tolvane::simulator {
namespace {

constexpr std::int64_t kSecondUs = 1'000'000;
constexpr std::int64_t kFastest = 10'000'000;  // frames or bits per second

/// a * b / c, exact and without overflow of a * b, even for a count that grows for years.
constexpr std::int64_t Scale(std::int64_t a, std::int64_t b, std::int64_t c) {
  return a / c * b + a % c * b / c;
}

}  // namespace

LoadGenerator::LoadGenerator(const LoadPlan& plan) : plan_(plan) {
  plan_.rate = std::clamp<std::int64_t>(plan_.rate, 0, kFastest);
  plan_.bit_rate = std::clamp<std::int64_t>(plan_.bit_rate, 1'000, kFastest);
  plan_.ids = std::clamp<std::int64_t>(plan_.ids, 1, kMaxExtendedId);
  plan_.first_id = std::clamp<std::int64_t>(plan_.first_id, 0, kMaxExtendedId);
  plan_.payload = std::clamp<std::int64_t>(plan_.payload, 0, 8);
  plan_.burst = std::clamp<std::int64_t>(plan_.burst, 1, 1'000'000);
}

bool LoadGenerator::Next(BusFrame& frame) {
  if (plan_.frames > 0 && sent_ == plan_.frames) return false;
  const std::int64_t key = sent_ % plan_.ids;
  frame = BusFrame{};
  frame.extended =
      plan_.format == IdFormat::kExtended || (plan_.format == IdFormat::kBoth && key % 2 == 1);
  frame.id = static_cast<std::uint32_t>(plan_.first_id + key) &
             (frame.extended ? kMaxExtendedId : kMaxStandardId);
  frame.dlc = static_cast<std::uint8_t>(plan_.payload);
  const auto number = static_cast<std::uint64_t>(sent_);
  std::uint64_t content = plan_.content == LoadPlan::Content::kCounter
                              ? number
                              : Scramble(plan_.seed ^ Scramble(number));
  for (std::size_t i = 0; i < frame.dlc; ++i, content >>= 8) {
    frame.data[i] = static_cast<std::uint8_t>(content);
  }
  frame.time_us = NextTime(FrameBits(frame.extended, frame.dlc));
  ++sent_;
  return true;
}

/// A frame's time is the end of its last bit on a saturated bus and in a burst.
std::int64_t LoadGenerator::NextTime(int bits) {
  std::int64_t began_us = 0;
  if (plan_.rate > 0) {
    const std::int64_t place = sent_ % plan_.burst;
    if (place == 0) bits_sent_ = 0;
    began_us = Scale(sent_ - place, kSecondUs, plan_.rate);
    bits = place == 0 ? 0 : bits;
  }
  bits_sent_ += bits;
  last_us_ = std::max(last_us_, began_us + Scale(bits_sent_, kSecondUs, plan_.bit_rate));
  return last_us_;
}

}  // namespace tolvane::simulator
