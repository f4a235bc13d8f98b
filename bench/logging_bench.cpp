// The csv path of the log: text of records into the builder, and a full channel to a local file.
//   build/native/bench/logging_bench
#include <benchmark/benchmark.h>

#include <array>
#include <filesystem>

#include "bench/local_files.h"
#include "logging/excel_outputdb.h"
#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/event_loop.h"
#include "platform/memory/system/special_folders.h"
#include "platform/memory/system/wall_clock.h"

namespace tolvane {
namespace {

constexpr std::array<std::uint8_t, 8> kData = {0x00, 0x1A, 0xFF, 0x03, 0x44, 0x55, 0x66, 0x77};
constexpr std::int32_t kRecords = Excel_OutputDB::kRow_MAX + 1;  // of a channel

/// A temporary folder, removed at the end.
class ScratchFolder {
 public:
  ScratchFolder() { Empty(); }
  ~ScratchFolder() { std::filesystem::remove_all(path_); }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  void Empty() {
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }

 private:
  std::filesystem::path path_ = std::filesystem::temp_directory_path() / "tolvane_logging_bench";
};

struct Bench {
  Bench() {
    device.Param_ALL_Clear();
    device.t_LogSaveFormat = kLogFormatCsv;
    db.Param_ALL_Clear();
    db.csv_DB_Initialize(0, device);
  }

  void RollOver() { db.RollOver(device, nullptr, FileName_Date, FileName_No, {}); }

  platform::memory::CodePage932 code_page;
  ScratchFolder scratch;
  LocalFiles files{scratch.Path(), code_page};
  platform::memory::SpecialFolders folders{u"D:\\Desktop", u"C:\\Windows"};
  platform::memory::WallClock wall_clock{{2026, 11, 20, 5, 9, 5, 7}};
  platform::EventGate gate;
  platform::memory::EventLoop events{gate};
  ELM327_Info device{u"C:\\Tolvane"};
  Excel_OutputDB db{{events, files, folders, wall_clock}};
  String FileName_Date;
  String FileName_No;
};

/// One frame every 125 us, with times as an adapter's clock gives them: in steps of `step` ms.
double NowTime(std::int64_t frame, double step) { return static_cast<double>(frame) * step; }

template <typename Record>
void RunRecords(benchmark::State& state, double step, Record record) {
  Bench bench;
  std::int64_t frame = 0;
  for (auto _ : state) {
    record(bench.db, NowTime(frame, step), static_cast<std::int32_t>(frame & 0x7FF));
    ++frame;
    if (frame % kRecords != 0) continue;
    state.PauseTiming();
    bench.RollOver();
    bench.scratch.Empty();
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations());
}

void Csv11(Excel_OutputDB& db, double now_time, std::int32_t id) {
  db.csv_DataInput(now_time, id, 8, kData);
}
void Csv29(Excel_OutputDB& db, double now_time, std::int32_t id) {
  db.csv_DataInput29(now_time, id << 16 | id, 8, kData, 1);
}

BENCHMARK_CAPTURE(RunRecords, csv11_whole_ms, 1.0, Csv11);
BENCHMARK_CAPTURE(RunRecords, csv11_microseconds, 0.125, Csv11);
BENCHMARK_CAPTURE(RunRecords, csv11_scaled_by_1_0001, 0.125 * 1.0001, Csv11);
BENCHMARK_CAPTURE(RunRecords, csv29_microseconds, 0.125, Csv29);

/// A full channel encoded and written, headers included. Reception stops for that time.
void FlushChannel(benchmark::State& state) {
  Bench bench;
  for (auto _ : state) {
    state.PauseTiming();
    bench.scratch.Empty();
    for (std::int32_t i = 0; i < kRecords; ++i) Csv29(bench.db, NowTime(i, 0.125), i);
    state.ResumeTiming();
    bench.RollOver();
  }
}
BENCHMARK(FlushChannel)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tolvane

BENCHMARK_MAIN();
