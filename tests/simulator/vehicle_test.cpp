#include "simulator/vehicle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>

#include "simulator/frame_bits.h"
#include "tests/simulator/frames.h"

namespace tolvane::simulator {
namespace {

constexpr std::int64_t kTwentySeconds = 20'000'000;

class VehicleTraffic : public testing::Test {
 protected:
  VehicleTraffic() {
    Vehicle vehicle(1, IdFormat::kStandard);
    frames_ = Take(vehicle, 1'000'000, kTwentySeconds);
    for (const BusFrame& frame : frames_) by_id_[frame.id].push_back(frame);
  }

  /// The distances between the frames of one message.
  std::vector<std::int64_t> Cycles(std::uint32_t id) {
    std::vector<std::int64_t> cycles;
    const auto& frames = by_id_[id];
    for (std::size_t i = 1; i < frames.size(); ++i) {
      cycles.push_back(frames[i].time_us - frames[i - 1].time_us);
    }
    return cycles;
  }

  std::vector<BusFrame> frames_;
  std::map<std::uint32_t, std::vector<BusFrame>> by_id_;
};

TEST_F(VehicleTraffic, EveryMessageOfTheTableIsOnTheBusWithItsLength) {
  const auto messages = Vehicle::Messages();
  EXPECT_EQ(messages.size(), 60u);
  EXPECT_EQ(by_id_.size(), messages.size());
  std::set<std::uint8_t> lengths;
  for (const Vehicle::Message& message : messages) {
    ASSERT_TRUE(by_id_.contains(message.id)) << std::hex << message.id;
    for (const BusFrame& frame : by_id_[message.id]) {
      ASSERT_EQ(frame.dlc, message.bytes.size());
      for (std::size_t i = frame.dlc; i < 8; ++i) ASSERT_EQ(frame.data[i], 0);
    }
    lengths.insert(static_cast<std::uint8_t>(message.bytes.size()));
  }
  EXPECT_EQ(lengths, (std::set<std::uint8_t>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(VehicleTraffic, FramesKeepToTheBus) {
  for (std::size_t i = 1; i < frames_.size(); ++i) {
    const std::int64_t distance = frames_[i].time_us - frames_[i - 1].time_us;
    ASSERT_GE(distance, 2 * FrameBits(false, frames_[i].dlc)) << "two frames at once, " << i;
  }
}

TEST_F(VehicleTraffic, SteadyMessagesStayNearTheirCycle) {
  for (const Vehicle::Message& message : Vehicle::Messages()) {
    if (message.habit != Vehicle::Habit::kSteady) continue;
    const std::int64_t period_us = std::int64_t{message.period_ms} * 1000;
    const auto expected = kTwentySeconds / period_us;
    const auto count = static_cast<std::int64_t>(by_id_[message.id].size());
    EXPECT_LE(std::abs(count - expected), 1) << std::hex << message.id;
    for (const std::int64_t cycle : Cycles(message.id)) {
      // Two percent of jitter, and what a busy bus makes a frame wait.
      ASSERT_LE(std::abs(cycle - period_us), period_us * 2 / 100 + 2'500) << std::hex << message.id;
    }
  }
}

TEST_F(VehicleTraffic, OneMessageStopsForSecondsAndReturns) {
  const auto messages = Vehicle::Messages();
  const auto stops = std::ranges::find(messages, Vehicle::Habit::kStops, &Vehicle::Message::habit);
  ASSERT_NE(stops, messages.end());
  const auto cycles = Cycles(stops->id);
  EXPECT_EQ(std::ranges::count_if(cycles, [](std::int64_t us) { return us > 2'500'000; }), 2);
}

TEST_F(VehicleTraffic, OneCycleWaversByMoreThanThirtyPercentBothWays) {
  const auto messages = Vehicle::Messages();
  const auto wavers =
      std::ranges::find(messages, Vehicle::Habit::kWavers, &Vehicle::Message::habit);
  ASSERT_NE(wavers, messages.end());
  const auto cycles = Cycles(wavers->id);
  int longer = 0;
  int shorter = 0;
  for (std::size_t i = 1; i < cycles.size(); ++i) {
    if (cycles[i - 1] * 100 <= cycles[i] * 70) ++longer;
    if (cycles[i - 1] * 100 >= cycles[i] * 130) ++shorter;
  }
  EXPECT_GT(longer, 20);
  EXPECT_GT(shorter, 20);
}

TEST_F(VehicleTraffic, SomeBytesChangeAlwaysSomeNowAndThenAndSomeNever) {
  std::map<char, std::int64_t> changes;
  std::map<char, std::int64_t> chances;
  for (const Vehicle::Message& message : Vehicle::Messages()) {
    const auto& frames = by_id_[message.id];
    for (std::size_t i = 1; i < frames.size(); ++i) {
      for (std::size_t byte = 0; byte < message.bytes.size(); ++byte) {
        ++chances[message.bytes[byte]];
        changes[message.bytes[byte]] += frames[i].data[byte] != frames[i - 1].data[byte] ? 1 : 0;
      }
    }
  }
  EXPECT_EQ(changes['C'], chances['C']) << "a counter moves with every frame";
  EXPECT_GT(changes['L'] * 10, chances['L'] * 8) << "a low byte nearly always";
  for (const char rare : {'H', 'T', 'B'}) {
    EXPECT_GT(changes[rare], 10) << rare;
    EXPECT_LT(changes[rare] * 10, chances[rare]) << rare;
  }
  for (const char never : {'K', 'Z', 'F'}) EXPECT_EQ(changes[never], 0) << never;
}

TEST_F(VehicleTraffic, ChecksumsAddUp) {
  for (const Vehicle::Message& message : Vehicle::Messages()) {
    if (message.bytes.back() != 'X') continue;
    for (const BusFrame& frame : by_id_[message.id]) {
      auto sum = static_cast<std::uint8_t>(message.id + frame.dlc);
      for (std::size_t i = 0; i + 1 < frame.dlc; ++i) {
        sum = static_cast<std::uint8_t>(sum + frame.data[i]);
      }
      ASSERT_EQ(frame.data[frame.dlc - 1u], sum) << std::hex << message.id;
    }
  }
}

TEST(Vehicle, TheSameSeedGivesTheSameTraffic) {
  Vehicle first(7, IdFormat::kStandard);
  Vehicle second(7, IdFormat::kStandard);
  Vehicle other(8, IdFormat::kStandard);
  const auto frames = Take(first, 5'000);
  EXPECT_EQ(frames, Take(second, 5'000));
  EXPECT_NE(frames, Take(other, 5'000));
}

TEST(Vehicle, ExtendedIdentifiersCarryTheStandardOne) {
  Vehicle vehicle(1, IdFormat::kExtended);
  std::set<std::uint32_t> ids;
  for (const BusFrame& frame : Take(vehicle, 5'000)) {
    ASSERT_TRUE(frame.extended);
    ids.insert(frame.id);
  }
  EXPECT_EQ(ids.size(), 60u);
  EXPECT_TRUE(ids.contains(0x18025021));
}

TEST(Vehicle, WithBothFormatsEveryThirdNumberIsOnTheBusInBoth) {
  Vehicle vehicle(1, IdFormat::kBoth);
  std::set<std::uint32_t> standard;
  std::set<std::uint32_t> extended;
  for (const BusFrame& frame : Take(vehicle, 5'000)) {
    (frame.extended ? extended : standard).insert(frame.id);
  }
  EXPECT_EQ(standard.size(), 60u);
  EXPECT_EQ(extended.size(), 20u);
  EXPECT_TRUE(std::ranges::includes(standard, extended));
}

TEST(Vehicle, TheTwinsOfBothFormatsKeepToTheBusAndToTheirCycle) {
  Vehicle vehicle(1, IdFormat::kBoth);
  const auto frames = Take(vehicle, 1'000'000, kTwentySeconds);
  std::int64_t twins = 0;
  for (std::size_t i = 1; i < frames.size(); ++i) {
    const std::int64_t distance = frames[i].time_us - frames[i - 1].time_us;
    ASSERT_GE(distance, 2 * FrameBits(frames[i].extended, frames[i].dlc)) << "two at once, " << i;
    twins += frames[i].extended && frames[i].id == 0x0B0 ? 1 : 0;
  }
  EXPECT_NEAR(static_cast<double>(twins), 2'000, 1) << "every 10 ms";
}

}  // namespace
}  // namespace tolvane::simulator
