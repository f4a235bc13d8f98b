#include "simulator/bus_tap.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

#include "simulator/burst_source.h"
#include "simulator/load_generator.h"
#include "tests/simulator/frames.h"

namespace tolvane::simulator {
namespace {

class HandClock : public BenchClock {
 public:
  std::int64_t NowUs() override {
    ++looks;
    return now_us;
  }
  std::int64_t now_us = 1'000'000;
  int looks = 0;
};

std::unique_ptr<BusSource> At(const std::vector<std::int64_t>& times) {
  std::vector<BusFrame> frames;
  for (const std::int64_t time : times) {
    frames.push_back({.time_us = time, .id = static_cast<std::uint32_t>(frames.size() + 1)});
  }
  return std::make_unique<ListSource>(std::move(frames));
}

/// The ids that come out until the queue is empty.
std::vector<std::uint32_t> ReadAll(BusTap& tap) {
  std::vector<std::uint32_t> ids;
  BusFrame frame;
  while (tap.Read(frame) == BusTap::Result::kDelivered) ids.push_back(frame.id);
  return ids;
}

using Ids = std::vector<std::uint32_t>;

TEST(BusTap, GivesNoFrameBeforeItsTime) {
  HandClock clock;
  BusTap tap(clock, At({100, 200}), {});
  clock.now_us += 99;
  EXPECT_EQ(ReadAll(tap), Ids{});
  clock.now_us += 1;
  EXPECT_EQ(ReadAll(tap), Ids{1});
  clock.now_us += 1'000;
  EXPECT_EQ(ReadAll(tap), Ids{2});
  EXPECT_EQ(ReadAll(tap), Ids{});
}

TEST(BusTap, BusTimeRunsAtTheToldSpeed) {
  HandClock clock;
  BusTap tap(clock, At({1'000, 1'001}), {.speed = 10});
  clock.now_us += 100;
  EXPECT_EQ(ReadAll(tap), Ids{1});
}

TEST(BusTap, FramesThatFindTheQueueFullAreLostAndCounted) {
  HandClock clock;
  BusTap tap(clock, At({1, 2, 3, 4, 5, 10}), {.queue = 3});
  clock.now_us += 5;
  EXPECT_EQ(ReadAll(tap), (Ids{1, 2, 3})) << "the oldest stay, the newest are dropped";
  clock.now_us += 5;
  EXPECT_EQ(ReadAll(tap), Ids{6});
  const TapCounts counts = tap.Counts();
  EXPECT_EQ(counts.delivered, 4);
  EXPECT_EQ(counts.dropped, 2);
  EXPECT_EQ(counts.high_water, 3);
  EXPECT_EQ(counts.reads, 6);
}

TEST(BusTap, TellsOnceThatAllHasBeenGivenOut) {
  HandClock clock;
  std::vector<std::int64_t> told;
  BusTap tap(clock, At({1, 2, 9}), {.queue = 1},
             [&](std::int64_t delivered) { told.push_back(delivered); });
  BusFrame frame;
  tap.Read(frame);
  clock.now_us += 2;
  EXPECT_EQ(ReadAll(tap), Ids{1});
  EXPECT_EQ(told, (std::vector<std::int64_t>{})) << "a frame is still to come";
  clock.now_us += 7;
  EXPECT_EQ(tap.Read(frame), BusTap::Result::kDelivered);
  EXPECT_EQ(told, (std::vector<std::int64_t>{})) << "not before a read finds nothing";
  for (int read = 0; read < 3; ++read) tap.Read(frame);
  EXPECT_EQ(told, (std::vector<std::int64_t>{2}));
}

TEST(BusTap, TheLongestGapIsBetweenTwoReads) {
  HandClock clock;
  BusTap tap(clock, At({}), {});
  BusFrame frame;
  clock.now_us += 5'000;  // before the first read: no gap
  tap.Read(frame);
  clock.now_us += 700;
  tap.Read(frame);
  clock.now_us += 300;
  tap.Read(frame);
  EXPECT_EQ(tap.Counts().longest_gap_us, 700);
}

using Gaps = std::vector<std::pair<std::int64_t, std::int64_t>>;

Gaps Pairs(const std::vector<ReadGap>& gaps) {
  Gaps pairs;
  for (const ReadGap& gap : gaps) pairs.emplace_back(gap.us, gap.delivered);
  return pairs;
}

TEST(BusTap, KeepsTheLongestGapsBehindAFrameApartFromThoseBehindAnEmptyRead) {
  HandClock clock;
  BusTap tap(clock, At({1, 1, 1}), {.gaps = 2});
  BusFrame frame;
  tap.Read(frame);  // empty
  for (const std::int64_t gap_us : {50, 10, 30, 20, 60, 40}) {
    clock.now_us += gap_us;
    tap.Read(frame);  // three frames, then empty
  }
  const TapCounts counts = tap.Counts();
  EXPECT_EQ(Pairs(counts.gaps_behind_frame), (Gaps{{30, 2}, {20, 3}}));
  EXPECT_EQ(Pairs(counts.gaps_behind_empty_read), (Gaps{{60, 3}, {50, 0}}));
}

TEST(BusTap, KeepsNoGapsUnlessTold) {
  HandClock clock;
  BusTap tap(clock, At({}), {});
  ReadAll(tap);
  clock.now_us += 9;
  ReadAll(tap);
  EXPECT_EQ(Pairs(tap.Counts().gaps_behind_empty_read), Gaps{});
}

TEST(BusTap, LooksAtTheClockOncePerRead) {
  HandClock clock;
  BusTap tap(clock, At({1, 2, 3}), {});
  clock.looks = 0;
  BusFrame frame;
  tap.Read(frame);
  tap.Read(frame);
  EXPECT_EQ(clock.looks, 2);
}

TEST(BusTap, APulledAdapterGivesNothingMore) {
  HandClock clock;
  BusTap tap(clock, At({10, 20}), {.pulled_at_us = 30});
  clock.now_us += 29;
  BusFrame frame;
  EXPECT_EQ(tap.Read(frame), BusTap::Result::kDelivered);
  clock.now_us += 1;
  EXPECT_EQ(tap.Read(frame), BusTap::Result::kPulled);
}

TEST(BusTap, ErrorAndOwnFramesAreHeardOnlyWhereTheyAreWanted) {
  const std::vector<BusFrame> frames{{.id = 1, .kind = FrameKind::kError},
                                     {.id = 2, .kind = FrameKind::kTransmitted},
                                     {.id = 3, .kind = FrameKind::kRemote},
                                     {.id = 4}};
  HandClock clock;
  BusTap plain(clock, std::make_unique<ListSource>(frames), {});
  EXPECT_EQ(ReadAll(plain), (Ids{3, 4}));
  BusTap curious(clock, std::make_unique<ListSource>(frames), {.hears_errors_and_own = true});
  EXPECT_EQ(ReadAll(curious), (Ids{1, 2, 3, 4}));
}

TEST(BusTap, SilenceTakesFramesAway) {
  HandClock clock;
  BusTap tap(clock, At({9, 10, 19, 20}), {.silence_from_us = 10, .silence_to_us = 20});
  clock.now_us += 100;
  EXPECT_EQ(ReadAll(tap), (Ids{1, 4}));
  EXPECT_EQ(tap.Counts().dropped, 0) << "what was not there is not lost";
}

TEST(BusTap, SilenceForEverOnABusWithoutEndBlocksNoRead) {
  HandClock clock;
  BusTap tap(clock, std::make_unique<LoadGenerator>(LoadPlan{.rate = 1'000}),
             {.silence_to_us = TapPlan::kNever});
  clock.now_us += 10'000'000;
  EXPECT_EQ(ReadAll(tap), Ids{});
}

TEST(BusTap, WithAClockOfReadsNothingDependsOnRealTime) {
  CountedClock clock(50);
  BusTap tap(clock, At({50, 100, 150, 10'000}), {});
  BusFrame frame;
  int empty = 0;
  Ids ids;
  while (ids.size() < 4) {
    if (tap.Read(frame) == BusTap::Result::kDelivered) {
      ids.push_back(frame.id);
    } else {
      ++empty;
    }
  }
  EXPECT_EQ(ids, (Ids{1, 2, 3, 4}));
  EXPECT_EQ(empty, 10'000 / 50 - 4);
}

TEST(BusTap, AFullBusReadInTimeLosesNothing) {
  constexpr std::int64_t kFrames = 1'000'000;  // 48 s of the shortest frames at 1 Mbit/s
  const LoadPlan load{.bit_rate = 1'000'000, .frames = kFrames, .ids = 2'047, .payload = 0};
  CountedClock clock(20);
  BusTap tap(clock, std::make_unique<LoadGenerator>(load), {.queue = 4});
  LoadGenerator expected(load);
  BusFrame frame;
  BusFrame wanted;
  while (expected.Next(wanted)) {
    while (tap.Read(frame) == BusTap::Result::kEmpty) {
    }
    ASSERT_EQ(frame, wanted);
  }
  EXPECT_EQ(tap.Read(frame), BusTap::Result::kEmpty);
  EXPECT_EQ(tap.Counts().delivered, kFrames);
  EXPECT_EQ(tap.Counts().dropped, 0);
  EXPECT_EQ(tap.Counts().high_water, 1);
}

TEST(FrameQueue, KeepsOrderRoundTheRing) {
  FrameQueue queue(3);
  BusFrame frame;
  std::uint32_t next_in = 0;
  std::uint32_t next_out = 0;
  for (int round = 0; round < 10; ++round) {
    while (queue.Push({.id = next_in})) ++next_in;
    for (int taken = 0; taken < 2; ++taken) {
      ASSERT_TRUE(queue.Pop(frame));
      ASSERT_EQ(frame.id, next_out++);
    }
  }
  EXPECT_EQ(queue.Count(), 1u);
}

TEST(BurstSource, ABurstComesAtItsMoment) {
  BurstSource source(At({5, 10, 15}), {.at_us = 10, .frames = 300});
  const auto frames = Take(source, 1'000);
  ASSERT_EQ(frames.size(), 303u);
  EXPECT_EQ(frames[0].id, 1u);
  EXPECT_EQ(frames[1], (BusFrame{.time_us = 10, .id = kBurstId, .dlc = 8}));
  EXPECT_EQ(frames[300].data, (std::array<std::uint8_t, 8>{0x2B, 0x01}));
  EXPECT_EQ(frames[301].id, 2u);
}

TEST(BurstSource, ABurstBehindTheLastFrameStillComes) {
  BurstSource source(At({5}), {.at_us = 10, .frames = 2});
  EXPECT_EQ(Take(source, 10).size(), 3u);
}

}  // namespace
}  // namespace tolvane::simulator
