// tolvane-log without a disk: lines of a log in memory to each format, and to the info of a run.
// One line is one item.
//   build/native/bench/log_tool_bench
#include <benchmark/benchmark.h>

#include <array>
#include <optional>
#include <string>

#include "logging/csv_head.h"
#include "logging/csv_line.h"
#include "logging/log_record.h"
#include "platform/memory/system/code_page_932.h"
#include "tests/tools/log/memory_files.h"
#include "tools/log/command/command.h"

namespace tolvane::logtool {
namespace {

constexpr std::int64_t kFiles = 25;
constexpr std::int64_t kLines = 20'001;  // of a file

/// Takes everything and keeps nothing.
class NoSink final : public ByteSink {
 public:
  bool Write(std::string_view bytes) override {
    benchmark::DoNotOptimize(bytes.data());
    return true;
  }
};

std::string HeadText(bool is29) {
  platform::memory::CodePage932 code_page;
  String head = u"Tolvane\r\n\r\n2026/11/20 9:05:07";
  head.append(kCsvBitRate).append(u"500k bps\r\nCANUSB\r\n\r\n\r\n\r\n");
  head.append(is29 ? kCsvColumns29 : kCsvColumns11).append(u"\r\n");
  std::string bytes;
  code_page.Encode(head, bytes);
  return bytes;
}

/// A full bus of 1 Mbit/s; eight changing bytes, 2,047 identifiers.
MemoryFiles Log(bool is29) {
  MemoryFiles files;
  std::array<char, kCsvLine_MAX> line;
  std::array<std::uint8_t, 8> data;
  for (std::int64_t i = 0; i < kFiles * kLines; ++i) {
    const std::string path = "KL26112009-" + std::to_string(100 + i / kLines) + ".csv";
    std::string& text = files.texts[path];
    if (text.empty()) text = HeadText(is29);
    const auto id = static_cast<std::int32_t>(i % 2047 + 1);
    for (std::size_t n = 0; n < data.size(); ++n) data[n] = static_cast<std::uint8_t>(i >> n);
    const double time = static_cast<double>(i * 114 / 1000);
    const ShortBytes name = is29 ? LogID29Text<char>(id << 16 | id) : HexID11Text<char>(id);
    const std::size_t length =
        WriteCsvLine({time, 8, data}, is29 ? kCsvMarkExtended : "", name, line.data());
    text.append(line.data(), length);
  }
  return files;
}

void RunTool(benchmark::State& state, bool is29, std::vector<std::string> words) {
  MemoryFiles files = Log(is29);
  for (const auto& [path, text] : files.texts) words.push_back(path);
  NoSink output;
  NoSink messages;
  platform::memory::CodePage932 code_page;
  for (auto _ : state) {
    const int status = RunCommand(words, {.files = files,
                                          .output = output,
                                          .messages = messages,
                                          .code_page = code_page,
                                          .unix_seconds = [](const platform::LocalTime&) {
                                            return std::optional<std::int64_t>(1'795'133'107);
                                          }});
    if (status != 0) state.SkipWithError("the log is not read");
  }
  state.SetItemsProcessed(state.iterations() * kFiles * kLines);
}

using Words = std::vector<std::string>;

BENCHMARK_CAPTURE(RunTool, info11, false, Words{"info"});
BENCHMARK_CAPTURE(RunTool, info29, true, Words{"info"});
BENCHMARK_CAPTURE(RunTool, candump11, false, Words{"convert", "--to", "candump"});
BENCHMARK_CAPTURE(RunTool, candump29, true, Words{"convert", "--to", "candump"});
BENCHMARK_CAPTURE(RunTool, asc11, false, Words{"convert", "--to", "asc"});
BENCHMARK_CAPTURE(RunTool, asc29, true, Words{"convert", "--to", "asc"});
BENCHMARK_CAPTURE(RunTool, csv11, false, Words{"convert", "--to", "csv"});
BENCHMARK_CAPTURE(RunTool, csv29, true, Words{"convert", "--to", "csv"});

}  // namespace
}  // namespace tolvane::logtool

BENCHMARK_MAIN();
