#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

#include "tests/counting/allocations.h"
#include "tests/receive/run_bench.h"

namespace tolvane {
namespace {

/// What the frames of a run allocate, from the first to the empty queue behind the last.
std::int64_t AllocationsInLoop(AdapterKind binding, WorkerKind worker, std::int64_t times,
                               bool logging) {
  RunBench bench;
  if (logging) bench.LogToCsv();
  std::vector<BusFrame> frames;
  for (std::int32_t id = 0; id < 1000; ++id) frames.push_back({.id = id, .time = id});
  bench.Play(binding, frames, times);
  std::int64_t before = -1;
  std::int64_t after = 0;
  bench.qxt100.OnRead([&] {
    if (before < 0) before = counting::Allocations();
  });
  bench.events = {[&] {
    after = counting::Allocations();
    bench.RxFlag = 0;
  }};
  bench.Run(binding, worker);
  return after - before;
}

TEST(Allocations, AFrameMakesNone) {
  for (const AdapterKind binding : kAllBindings) {
    for (const WorkerKind worker : kAllWorkers) {
      EXPECT_EQ(AllocationsInLoop(binding, worker, 100, false), 0) << WayName(binding, worker);
    }
  }
}

TEST(Allocations, AFrameMakesNoneWithACsvLogEither) {
  for (const AdapterKind binding : kAllBindings) {
    for (const WorkerKind worker : kAllWorkers) {
      EXPECT_EQ(AllocationsInLoop(binding, worker, 20, true), 0) << WayName(binding, worker);
    }
  }
}

// The first use of so much takes milliseconds, so it is taken ahead of the run.
TEST(Allocations, TheFirstTickOfARunFindsTheMemoryOfItsPage) {
  constexpr std::size_t kLessThanAPage = 20'000;  // bytes
  RunBench bench;
  std::vector<BusFrame> frames;
  for (std::int32_t id = 0; id < 1000; ++id) frames.push_back({.id = id, .time = id});
  bench.events = {[&] {
    counting::RefuseAbove(kLessThanAPage);
    bench.timers[static_cast<std::size_t>(WorkerKind::FormBG)].Tick();
    counting::RefuseAbove(std::numeric_limits<std::size_t>::max());
    bench.RxFlag = 0;
  }};
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG, frames);
  EXPECT_GT(bench.RTB_MainView.Text().size(), 30'000U);
}

TEST(Allocations, TheCounterSeesThem) {
  const std::int64_t before = counting::Allocations();
  const auto number = std::make_unique<std::int64_t>(before);
  EXPECT_EQ(counting::Allocations(), *number + 1);
}

}  // namespace
}  // namespace tolvane
