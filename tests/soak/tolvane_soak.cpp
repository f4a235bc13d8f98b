// tolvane_soak: what tests/soak/run needs around the real program.
//
// clang-format off
//   settings FOLDER BITS        config.dat: csv log beside the program, 1 Mbit/s, identifiers of BITS (11, 29)
//   watch PROCESS MOMENTS FOLDER
//                               looks at the program's process each millisecond until it ends, and writes to MOMENTS
//                               when it had no processor, waited or took memory; keeps its logs in FOLDER from being
//                               overwritten where an hour has a thousand
//   check BENCH REPORT MOMENTS FOLDER BITS
//                               compares the logs of FOLDER with the bench file BENCH, and prints what the bench's
//                               REPORT tells; ends with 1 when a frame is missing
// clang-format on
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "config/filesavesystem.h"
#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/file_system.h"
#include "tests/soak/numbered_logs.h"
#include "tests/soak/process_watch.h"
#include "tests/soak/soak_report.h"

namespace tolvane::soak {
namespace {

constexpr int kFailed = 1;
constexpr int kUsage = 2;

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

int Complain(const std::string& what) {
  std::fprintf(stderr, "tolvane_soak: %s\n", what.c_str());
  return kFailed;
}

int WriteSettings(const std::filesystem::path& folder, bool ids29) {
  platform::memory::CodePage932 code_page;
  platform::memory::FileSystem files(code_page);
  const String program = u"C:\\Tolvane";
  files.AddFolder(program);
  ELM327_Info device(program);
  device.Param_ALL_Clear();
  device.t_bitRate = 0;
  device.t_msgID_type = ids29 ? kMsgIdType29Bit : 0;
  device.t_LogSave_Enable = 1;
  device.t_LogSaveFormat = kLogFormatCsv;
  FileSaveSystem::SaveConfigFile(device, files, code_page);
  std::ofstream file(folder / "config.dat", std::ios::binary);
  file << files.Bytes(program + u"\\config.dat").value_or("");
  file.close();
  return file.fail() ? Complain("config.dat cannot be written") : 0;
}

int Watch(std::int64_t process, const std::string& file, const std::string& folder) {
  constexpr int kLooksPerRenaming = 100;
  constexpr std::int64_t kNotableUs = 50;
  constexpr std::int64_t kNotableKb = 16;
  ProcessWatch watch(process);
  LastNumbers last_numbers(folder);
  std::ofstream out(file, std::ios::binary);
  for (int look = 1; const auto moment = watch.Look(); ++look) {
    if (moment->waited_us >= kNotableUs || moment->grown_kb >= kNotableKb ||
        moment->asleep_us >= kNotableUs) {
      out << MomentLine(*moment);
    }
    if (look % kLooksPerRenaming == 0) last_numbers.Rename();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  out.close();
  return out.fail() ? Complain(file + " cannot be written") : 0;
}

int Check(const std::vector<std::string>& words) {
  const std::string& bench = words[1];
  const std::string& report = words[2];
  const bool ids29 = words[5] == "29";
  SoakEvidence evidence{.config = simulator::ReadBenchConfig(ReadFile(bench)),
                        .counts = {},
                        .logs = {},
                        .moments = ReadMoments(ReadFile(words[3]))};
  if (evidence.config.canusb.empty() || evidence.config.bus.load.frames == 0) {
    return Complain(bench + " has no CANUSB adapter on a bus that ends");
  }
  const auto counts = LastRun(ReadFile(report));
  if (!counts) return Complain(report + " tells of no run");
  evidence.counts = *counts;
  LogComparison comparison(evidence.config, ids29);
  const auto logs = LogsInOrder(words[4]);
  for (const auto& log : logs) comparison.Add(ReadFile(log));
  evidence.logs = comparison.Result();
  const SoakVerdict verdict = Judge(evidence);
  for (const std::string& line : verdict.lines) std::printf("%s\n", line.c_str());
  std::printf("files by hour:              %s\n", FilesByHour(logs).c_str());
  std::printf("row: %s | %s |\n", verdict.row.c_str(), FilesByHour(logs).c_str());
  return verdict.passed ? 0 : kFailed;
}

int Run(const std::vector<std::string>& words) {
  if (words.size() == 3 && words[0] == "settings") return WriteSettings(words[1], words[2] == "29");
  if (words.size() == 4 && words[0] == "watch") {
    return Watch(std::atoll(words[1].c_str()), words[2], words[3]);
  }
  if (words.size() == 6 && words[0] == "check") return Check(words);
  std::fprintf(stderr,
               "usage: tolvane_soak settings FOLDER BITS | watch PROCESS MOMENTS FOLDER |\n"
               "       check BENCH REPORT MOMENTS FOLDER BITS\n");
  return kUsage;
}

}  // namespace
}  // namespace tolvane::soak

int main(int count, char** words) {
  return tolvane::soak::Run({words + 1, words + std::max(count, 1)});
}
