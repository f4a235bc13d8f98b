#include "simulator/load_generator.h"

#include <gtest/gtest.h>

#include <set>

#include "simulator/frame_bits.h"
#include "tests/simulator/frames.h"

namespace tolvane::simulator {
namespace {

TEST(FrameBits, CountsFixedPartDataStuffingAndInterframeSpace) {
  EXPECT_EQ(FrameBits(false, 0), 47 + 1);
  EXPECT_EQ(FrameBits(false, 8), 111 + 3);
  EXPECT_EQ(FrameBits(true, 0), 67 + 1);
  EXPECT_EQ(FrameBits(true, 8), 131 + 3);
}

std::size_t FramesInTenSeconds(const LoadPlan& plan) {
  LoadGenerator generator(plan);
  return Take(generator, 1'000'000, 10'000'000).size();
}

TEST(LoadGenerator, SaturatesTheBus) {
  EXPECT_EQ(FramesInTenSeconds({.bit_rate = 1'000'000, .payload = 0}), 208'333u);
  EXPECT_EQ(FramesInTenSeconds({.bit_rate = 1'000'000, .payload = 8}), 87'719u);
  EXPECT_EQ(FramesInTenSeconds({.bit_rate = 250'000, .payload = 8, .format = IdFormat::kExtended}),
            18'656u);
}

TEST(LoadGenerator, KeepsTheRate) {
  LoadGenerator generator({.rate = 3'000});
  const auto frames = Take(generator, 30'001);
  EXPECT_EQ(frames[0].time_us, 0);
  EXPECT_EQ(frames[1].time_us, 333);
  EXPECT_EQ(frames[2].time_us, 666);
  EXPECT_EQ(frames[30'000].time_us, 10'000'000);
}

TEST(LoadGenerator, ABurstComesBackToBackAtTheSameMeanRate) {
  LoadGenerator generator({.rate = 1'000, .bit_rate = 1'000'000, .payload = 8, .burst = 10});
  const auto frames = Take(generator, 1'001);
  EXPECT_EQ(frames[0].time_us, 0);
  EXPECT_EQ(frames[1].time_us, 114);
  EXPECT_EQ(frames[9].time_us, 9 * 114);
  EXPECT_EQ(frames[10].time_us, 10'000);
  EXPECT_EQ(frames[1'000].time_us, 1'000'000);
}

TEST(LoadGenerator, ABurstLongerThanItsTurnNeverStepsBack) {
  LoadGenerator generator({.rate = 10'000'000, .bit_rate = 1'000, .burst = 100});
  const auto frames = Take(generator, 1'000);
  for (std::size_t i = 1; i < frames.size(); ++i) {
    ASSERT_GE(frames[i].time_us, frames[i - 1].time_us) << i;
  }
}

TEST(LoadGenerator, WalksThroughTheIdentifiers) {
  LoadGenerator generator({.ids = 3, .first_id = 0x7FE});
  const auto frames = Take(generator, 4);
  EXPECT_EQ(frames[0].id, 0x7FEu);
  EXPECT_EQ(frames[1].id, 0x7FFu);
  EXPECT_EQ(frames[2].id, 0u) << "11 bits hold no more";
  EXPECT_EQ(frames[3].id, 0x7FEu);
}

TEST(LoadGenerator, EverySecondIdentifierIsExtendedWithBoth) {
  LoadGenerator generator({.ids = 4, .first_id = 0x10, .format = IdFormat::kBoth});
  const auto frames = Take(generator, 8);
  for (std::size_t i = 0; i < frames.size(); ++i) EXPECT_EQ(frames[i].extended, i % 2 == 1) << i;
}

TEST(LoadGenerator, TheCounterIsTheFramesNumberLowByteFirst) {
  LoadGenerator generator({.payload = 3});
  const auto frames = Take(generator, 0x10203 + 1);
  const std::array<std::uint8_t, 8> expected{0x03, 0x02, 0x01, 0, 0, 0, 0, 0};
  EXPECT_EQ(frames[0x10203].data, expected);
}

TEST(LoadGenerator, RandomContentTellsEveryFrameApartAndFollowsFromTheSeed) {
  const LoadPlan plan{.seed = 5, .content = LoadPlan::Content::kRandom};
  LoadGenerator first(plan);
  LoadGenerator second(plan);
  LoadGenerator other({.seed = 6, .content = LoadPlan::Content::kRandom});
  const auto frames = Take(first, 20'000);
  EXPECT_EQ(frames, Take(second, 20'000));
  EXPECT_NE(frames, Take(other, 20'000));
  std::set<std::array<std::uint8_t, 8>> contents;
  for (const BusFrame& frame : frames) contents.insert(frame.data);
  EXPECT_EQ(contents.size(), frames.size());
}

TEST(LoadGenerator, BytesBeyondTheLengthAreZero) {
  LoadGenerator generator({.payload = 5, .content = LoadPlan::Content::kRandom});
  for (const BusFrame& frame : Take(generator, 100)) {
    EXPECT_EQ(frame.dlc, 5);
    EXPECT_EQ(frame.data[5] | frame.data[6] | frame.data[7], 0);
  }
}

TEST(LoadGenerator, EndsAfterTheToldFrames) {
  LoadGenerator generator({.frames = 7});
  EXPECT_EQ(Take(generator, 100).size(), 7u);
}

TEST(LoadGenerator, ValuesOutOfRangeAreCut) {
  LoadGenerator generator(
      {.rate = -5, .bit_rate = 0, .ids = 0, .first_id = -1, .payload = 99, .burst = 0});
  const auto frames = Take(generator, 3);
  ASSERT_EQ(frames.size(), 3u);
  EXPECT_EQ(frames[2].dlc, 8);
  EXPECT_EQ(frames[2].id, 0u);
}

}  // namespace
}  // namespace tolvane::simulator
