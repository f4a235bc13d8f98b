#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

#include "tests/receive/run_bench.h"

namespace {

std::atomic<std::int64_t> allocations = 0;

}  // namespace

// Every allocation of this program is counted.
void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace tolvane {
namespace {

/// What a run of so many frames allocates beyond its start and end.
std::int64_t AllocationsInLoop(BindingKind binding, WorkerKind worker, std::int64_t times) {
  RunBench bench;
  std::vector<BusFrame> frames;
  for (std::int32_t id = 0; id < 1000; ++id) frames.push_back({.id = id, .time = id});
  bench.events = {[&] { bench.Play(binding, frames, times); }, [&] { bench.RxFlag = 0; }};
  std::int64_t before = -1;
  bench.qxt100.OnRead([&] {
    if (before < 0) before = allocations;
  });
  std::int64_t after = 0;
  bench.events[1] = [&] {
    after = allocations;
    bench.RxFlag = 0;
  };
  bench.Run(binding, worker);
  return after - before;
}

TEST(Allocations, AFrameMakesNone) {
  for (const BindingKind binding : kAllBindings) {
    for (const WorkerKind worker : kAllWorkers) {
      EXPECT_EQ(AllocationsInLoop(binding, worker, 100), 0) << WayName(binding, worker);
    }
  }
}

TEST(Allocations, TheCounterSeesThem) {
  const std::int64_t before = allocations;
  const auto number = std::make_unique<std::int64_t>(before);
  EXPECT_EQ(allocations, *number + 1);
}

}  // namespace
}  // namespace tolvane
