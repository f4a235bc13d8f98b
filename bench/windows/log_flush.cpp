// log_flush FOLDER ROUNDS: measures what reception stands for while a csv log is written, with the
// program's own file services and event loop: a full channel into a file whose name is free, and
// the search for a name behind 900 that are taken. Prints lines of a name, a tab and a number;
// times are medians and maxima in microseconds.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include "bench/windows/rounds.h"
#include "logging/excel_outputdb.h"
#include "logging/log_naming.h"
#include "platform/windows/system/code_page.h"
#include "platform/windows/system/event_loop.h"
#include "platform/windows/system/file_services.h"
#include "platform/windows/system/text.h"
#include "platform/windows/system/wall_clock.h"

namespace tolvane::bench {
namespace {

using namespace platform::windows;

constexpr std::array<std::uint8_t, 8> kData = {0x00, 0x1A, 0xFF, 0x03, 0x44, 0x55, 0x66, 0x77};
constexpr std::int32_t kTaken = 900;

void Print(const char* name, std::vector<double>& times) {
  std::printf("%s\t%.0f\n%s_longest\t%.0f\n", name, Median(times), name, std::ranges::max(times));
}

class Log {
 public:
  explicit Log(const String& folder) : device_(folder) {
    device_.Param_ALL_Clear();
    device_.t_LogSaveFormat = kLogFormatCsv;
    log_.Param_ALL_Clear();
    log_.csv_TakeMemory();
    log_.csv_DB_Initialize(0, device_);
  }

  /// The time of the flush behind a full channel of lines with eight bytes.
  double Flush() {
    for (std::int32_t i = 0; i <= Excel_OutputDB::kRow_MAX; ++i) {
      log_.csv_DataInput29(i * 0.125, i << 16 | i, 8, kData, 1);
    }
    return Microseconds(
        [this] { log_.RollOver(device_, nullptr, FileName_Date_, FileName_No_, {}); });
  }
  /// The time of a search from number 1 on.
  double Search(const String& stem) {
    return Microseconds([&] { static_cast<void>(FindFreePath(files_, stem, u".csv", 1, &loop_)); });
  }

 private:
  platform::EventGate gate_;
  WindowsEventLoop loop_{gate_};
  WindowsCodePage code_page_;
  WindowsFileServices files_{code_page_};
  WindowsSpecialFolders folders_;
  WindowsWallClock wall_clock_;
  ELM327_Info device_;
  Excel_OutputDB log_{{loop_, files_, folders_, wall_clock_}};
  String FileName_Date_;
  String FileName_No_;
};

int Measure(const std::filesystem::path& folder, int rounds) {
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  const std::wstring wide = folder.wstring();
  const String name(FromWide(wide.c_str(), wide.size()));
  const String stem = name + u"\\KL26112217-";
  for (std::int32_t number = 1; number <= kTaken; ++number) {
    std::array<wchar_t, 32> file;
    std::swprintf(file.data(), file.size(), L"KL26112217-%03d.csv", number);
    std::ofstream(folder / file.data()) << "taken";
  }
  Log log(name);
  std::vector<double> flushes;
  std::vector<double> searches;
  for (int round = 0; round < rounds; ++round) {
    flushes.push_back(log.Flush());
    searches.push_back(log.Search(stem));
  }
  Print("flush", flushes);
  Print("search", searches);
  std::filesystem::remove_all(folder);
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace tolvane::bench

int wmain(int count, wchar_t** arguments) {
  using namespace tolvane::bench;
  return MeasureInRounds(count, arguments, "log_flush", "FOLDER", Measure);
}
