// tolvane_log_job RECORDING FOLDER: writes the log of a run. Reads a candump recording of 11-bit
// frames and writes its csv files to FOLDER with the code that a run uses after the adapter: a
// record to the current channel, a new file when it is full, the rest at the end.
#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
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

  [[nodiscard]] bool HasFrames() const { return first_us_ >= 0; }

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

/// The lines of a file, which is read in pieces into the same memory.
class Lines {
 public:
  explicit Lines(const char* path) : file_(path, std::ios::binary) {}

  /// The next line without its end; false behind the last one. Valid until the next call.
  bool Next(std::string_view& line) {
    std::size_t end = rest_.find('\n');
    while (end == std::string_view::npos && ReadOn()) end = rest_.find('\n');
    if (rest_.empty()) return false;
    line = rest_.substr(0, end);
    rest_.remove_prefix(std::min(line.size() + 1, rest_.size()));
    return true;
  }

 private:
  /// Moves what is left to the front and fills the room behind it. False at the end of the file.
  bool ReadOn() {
    std::ranges::copy(rest_, piece_.begin());
    const auto room = static_cast<std::streamsize>(piece_.size() - rest_.size());
    file_.read(piece_.data() + rest_.size(), room);
    rest_ = {piece_.data(), rest_.size() + static_cast<std::size_t>(file_.gcount())};
    return file_.gcount() > 0;
  }

  std::ifstream file_;
  std::array<char, 1 << 16> piece_;  // longer than any line of a recording
  std::string_view rest_;
};

int Run(const char* recording, const char* folder) {
  Lines lines(recording);
  LogJob job(folder);
  simulator::BusFrame frame;
  std::string_view line;
  while (lines.Next(line)) {
    if (!simulator::ParseCandumpLine(line, frame)) return 1;
    job.Add(frame);
  }
  if (!job.HasFrames()) return 1;
  job.Flush();
  return 0;
}

}  // namespace
}  // namespace tolvane

int main(int count, char** words) {
  if (count == 3) return tolvane::Run(words[1], words[2]);
  std::fprintf(stderr, "usage: tolvane_log_job RECORDING FOLDER\n");
  return 2;
}
