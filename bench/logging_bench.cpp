// The csv path of the log: text of records into the builder, and a full channel to a local file.
//   build/native/bench/logging_bench
#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "logging/excel_outputdb.h"
#include "platform/memory/code_page_932.h"
#include "platform/memory/event_loop.h"
#include "platform/memory/file_system.h"
#include "platform/memory/special_folders.h"
#include "platform/memory/wall_clock.h"

namespace tolvane {
namespace {

constexpr std::array<std::uint8_t, 8> kData = {0x00, 0x1A, 0xFF, 0x03, 0x44, 0x55, 0x66, 0x77};
constexpr std::int32_t kRecords = 20001;

/// A text file on the real disk, in code page 932, written through in large pieces.
class LocalTextStream final : public platform::TextStream {
 public:
  LocalTextStream(const std::string& path, platform::CodePage& code_page)
      : file_(std::fopen(path.c_str(), "wb")), code_page_(code_page) {}
  ~LocalTextStream() override { (void)Close(); }
  LocalTextStream(const LocalTextStream&) = delete;
  LocalTextStream& operator=(const LocalTextStream&) = delete;

  bool Write(StringView text) override {
    bytes_.clear();
    code_page_.Encode(text, bytes_);
    return std::fwrite(bytes_.data(), 1, bytes_.size(), file_) == bytes_.size();
  }
  bool Close() override {
    std::FILE* const file = std::exchange(file_, nullptr);
    return file == nullptr || std::fclose(file) == 0;
  }

 private:
  std::FILE* file_;
  platform::CodePage& code_page_;
  std::string bytes_;
};

/// Finds and numbers names in memory, and puts every log into one local file.
class LocalFiles final : public platform::FileServices {
 public:
  LocalFiles(platform::FileServices& names, platform::CodePage& code_page)
      : names_(names),
        code_page_(code_page),
        path_((std::filesystem::temp_directory_path() / "tolvane_logging_bench.csv").string()) {}
  ~LocalFiles() override { std::filesystem::remove(path_); }
  LocalFiles(const LocalFiles&) = delete;
  LocalFiles& operator=(const LocalFiles&) = delete;

  bool FolderExists(StringView path) override { return names_.FolderExists(path); }
  bool FileExists(StringView path) override { return names_.FileExists(path); }
  bool CreateFolder(StringView path) override { return names_.CreateFolder(path); }
  std::unique_ptr<platform::TextStream> CreateTextFile(StringView, bool, bool) override {
    return std::make_unique<LocalTextStream>(path_, code_page_);
  }
  bool DeleteFile(StringView path, bool force) override { return names_.DeleteFile(path, force); }
  std::optional<platform::BinaryRead> ReadBinary(StringView path, std::size_t size) override {
    return names_.ReadBinary(path, size);
  }
  bool WriteBinary(StringView path, std::span<const std::byte> bytes) override {
    return names_.WriteBinary(path, bytes);
  }
  std::optional<std::int32_t> Attributes(StringView path) override {
    return names_.Attributes(path);
  }

 private:
  platform::FileServices& names_;
  platform::CodePage& code_page_;
  std::string path_;
};

struct Bench {
  Bench() {
    names.AddFolder(u"C:\\Tolvane");
    device.Param_ALL_Clear();
    device.t_LogSaveFormat = kLogFormatCsv;
    db.Param_ALL_Clear();
    db.csv_DB_Initialize(0, device);
  }

  platform::memory::CodePage932 code_page;
  platform::memory::FileSystem names{code_page};
  LocalFiles files{names, code_page};
  platform::memory::SpecialFolders folders{u"D:\\Desktop", u"C:\\Windows"};
  platform::memory::WallClock wall_clock{{2026, 11, 20, 5, 9, 5, 7}};
  platform::memory::EventLoop events;
  ELM327_Info device{u"C:\\Tolvane"};
  Excel_OutputDB db{{events, files, folders, wall_clock}};
  String FileName_Date;
  String FileName_No;
};

/// One frame every 125 us, as the clock of an adapter tells it: in steps of `step` ms.
double NowTime(std::int64_t frame, double step) { return static_cast<double>(frame) * step; }

template <typename Record>
void RunRecords(benchmark::State& state, double step, Record record) {
  Bench bench;
  std::int64_t frame = 0;
  for (auto _ : state) {
    record(bench.db, NowTime(frame, step), static_cast<std::int32_t>(frame & 0x7FF));
    ++frame;
    if (bench.db.Excel_DB_ArayyCounter < kRecords) continue;
    bench.db.Excel_DB_ArayyCounter = 0;
    bench.db.csv_DB_Initialize(1, bench.device);
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

/// A full channel encoded and written, headers included. Reception stands meanwhile.
void FlushChannel(benchmark::State& state) {
  Bench bench;
  for (auto _ : state) {
    state.PauseTiming();
    for (std::int32_t i = 0; i < kRecords; ++i) Csv29(bench.db, NowTime(i, 0.125), i);
    state.ResumeTiming();
    bench.db.Excel_DataOutput(1, bench.device, nullptr, bench.FileName_Date, bench.FileName_No, {});
  }
}
BENCHMARK(FlushChannel)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tolvane

BENCHMARK_MAIN();
