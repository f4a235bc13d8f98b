// tolvane_log_job RECORDING FOLDER: writes the log of a run. Reads a candump recording of 11-bit
// frames and writes its csv files to FOLDER with the code that a run uses after the adapter: a
// record to the current channel, a new file when it is full, the rest at the end.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "bench/local_files.h"
#include "logging/excel_outputdb.h"
#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/event_loop.h"
#include "platform/memory/system/special_folders.h"
#include "platform/memory/system/wall_clock.h"
#include "simulator/candump_log.h"

namespace tolvane {
namespace {

class LogJob {
 public:
  explicit LogJob(const std::filesystem::path& folder) : files_(folder, code_page_) {
    device_.Param_ALL_Clear();
    device_.t_LogSaveFormat = kLogFormatCsv;
    log_.Param_ALL_Clear();
    log_.csv_DB_Initialize(0, device_);
  }

  void Add(const simulator::BusFrame& frame) {
    if (first_us_ < 0) first_us_ = frame.time_us;
    log_.csv_DataInput(static_cast<double>(frame.time_us - first_us_) / 1000.0,
                       static_cast<std::int32_t>(frame.id), frame.dlc, frame.data);
    log_.RollOver(device_, nullptr, FileName_Date_, FileName_No_, {});
  }

  void Flush() {
    log_.Excel_DataOutput(log_.Excel_DB_ArayyCh, device_, nullptr, FileName_Date_, FileName_No_,
                          {});
  }

 private:
  platform::memory::CodePage932 code_page_;
  LocalFiles files_;
  platform::memory::SpecialFolders folders_{u"C:\\Desktop", u"C:\\Windows"};
  platform::memory::WallClock wall_clock_{{2026, 11, 20, 5, 9, 5, 7}};
  platform::EventGate gate_;
  platform::memory::EventLoop events_{gate_};
  ELM327_Info device_{u"C:\\Tolvane"};
  Excel_OutputDB log_{{events_, files_, folders_, wall_clock_}};
  String FileName_Date_;
  String FileName_No_;
  std::int64_t first_us_ = -1;
};

std::string ReadFile(const char* path) {
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  std::string text(file ? static_cast<std::size_t>(file.tellg()) : 0, '\0');
  file.seekg(0);
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  return text;
}

int Run(const char* recording, const char* folder) {
  const std::string text = ReadFile(recording);
  LogJob job(folder);
  simulator::BusFrame frame;
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t end = rest.find('\n');
    if (!simulator::ParseCandumpLine(rest.substr(0, end), frame)) return 1;
    job.Add(frame);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  }
  job.Flush();
  return text.empty() ? 1 : 0;
}

}  // namespace
}  // namespace tolvane

int main(int count, char** words) {
  if (count == 3) return tolvane::Run(words[1], words[2]);
  std::fprintf(stderr, "usage: tolvane_log_job RECORDING FOLDER\n");
  return 2;
}
