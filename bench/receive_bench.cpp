// The receive path: read from an adapter in memory, accept, time base, table; and the same with the
// csv log, its files thrown away. One frame is one item; the argument is the number of identifiers
// on the bus.

#include <benchmark/benchmark.h>

#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "tests/receive/run_bench.h"

namespace tolvane {
namespace {

constexpr std::int64_t kFramesPerRun = 4'000'000;
constexpr std::int32_t kIdStep29 = 131'071;  // spreads the keys over the whole 29 bits

void PlayRuns(benchmark::State& state, RunBench& bench, AdapterKind binding, WorkerKind worker) {
  const auto ids = static_cast<std::int32_t>(state.range(0));
  const bool is29 = Is29Bit(worker);
  std::vector<BusFrame> frames;
  for (std::int32_t i = 0; i < ids; ++i) {
    // Neighbours on the bus are no neighbours in the table.
    const std::int32_t place = static_cast<std::int32_t>(std::int64_t{i} * 1213 % ids);
    frames.push_back({.id = is29 ? place * kIdStep29 : place, .extended = is29, .time = i});
  }
  const std::int64_t times = kFramesPerRun / ids;
  for (auto _ : state) {
    state.PauseTiming();
    bench.Play(binding, frames, times);
    state.ResumeTiming();
    bench.Run(binding, worker);
  }
  state.SetItemsProcessed(state.iterations() * times * ids);
}

void Receive(benchmark::State& state, AdapterKind binding, WorkerKind worker,
             std::int32_t t_Timer_Mode) {
  RunBench bench;
  bench.device.t_Timer_Mode = t_Timer_Mode;
  bench.device.t_Save_ID_DisableMode = 1;  // the exclusion workers test eight ranges a frame
  for (std::int16_t i = 0; i < 8; ++i) {
    bench.device.t_DisableID_ON(i, 1);
    bench.device.t_DisableID_Start(i, INT32_MAX);
  }
  PlayRuns(state, bench, binding, worker);
}

/// Takes every log and keeps nothing of it.
class NoFiles final : public platform::FileServices {
 public:
  bool FolderExists(StringView) override { return true; }
  bool FileExists(StringView) override { return false; }
  std::vector<String> FileNames(StringView) override { return {}; }
  bool CreateFolder(StringView) override { return true; }
  std::unique_ptr<platform::TextStream> CreateTextFile(StringView, bool, bool) override {
    return std::make_unique<Stream>();
  }
  bool DeleteFile(StringView, bool) override { return true; }
  std::optional<platform::BinaryRead> ReadBinary(StringView, std::size_t) override { return {}; }
  bool WriteBinary(StringView, std::span<const std::byte>) override { return true; }
  std::optional<std::int32_t> Attributes(StringView) override { return {}; }

 private:
  class Stream final : public platform::TextStream {
   public:
    bool Write(StringView) override { return true; }
    bool WriteAscii(std::string_view) override { return true; }
    bool Close() override { return true; }
  };
};

void ReceiveAndLog(benchmark::State& state, AdapterKind binding, WorkerKind worker) {
  NoFiles files;
  RunBench bench(&files);
  bench.LogToCsv();
  PlayRuns(state, bench, binding, worker);
}

BENCHMARK_CAPTURE(Receive, canusb_11bit, AdapterKind::kCanusb, WorkerKind::FormBG, 0)
    ->Arg(1)
    ->Arg(60)
    ->Arg(2047);
BENCHMARK_CAPTURE(Receive, canusb_11bit_exclusion, AdapterKind::kCanusb, WorkerKind::FormBG2, 0)
    ->Arg(2047);
BENCHMARK_CAPTURE(Receive, canusb_11bit_pc_clock, AdapterKind::kCanusb, WorkerKind::FormBG, 1)
    ->Arg(2047);
BENCHMARK_CAPTURE(Receive, canusb_29bit, AdapterKind::kCanusb, WorkerKind::FormBG_29, 0)
    ->Arg(1)
    ->Arg(60)
    ->Arg(2047)
    ->Arg(4001);
BENCHMARK_CAPTURE(Receive, interface_11bit, AdapterKind::kInterface, WorkerKind::FormBG, 0)
    ->Arg(2047);
BENCHMARK_CAPTURE(Receive, interface_29bit, AdapterKind::kInterface, WorkerKind::FormBG_29, 0)
    ->Arg(4001);
BENCHMARK_CAPTURE(Receive, kvaser_11bit, AdapterKind::kKvaser, WorkerKind::FormBG, 0)->Arg(2047);
BENCHMARK_CAPTURE(Receive, kvaser_29bit, AdapterKind::kKvaser, WorkerKind::FormBG_29, 0)->Arg(4001);

BENCHMARK_CAPTURE(ReceiveAndLog, canusb_11bit, AdapterKind::kCanusb, WorkerKind::FormBG)
    ->Arg(60)
    ->Arg(2047);
BENCHMARK_CAPTURE(ReceiveAndLog, canusb_29bit, AdapterKind::kCanusb, WorkerKind::FormBG_29)
    ->Arg(60)
    ->Arg(4001);

}  // namespace
}  // namespace tolvane

BENCHMARK_MAIN();
