// tolvane_soak: what tests/soak/run needs around the real program.
//
// clang-format off
//   settings FOLDER BITS        config.dat: csv log beside the program, 1 Mbit/s, identifiers of BITS (11, 29)
//   check BENCH REPORT FOLDER BITS
//                               compares the logs of FOLDER with the bench file BENCH, and prints what the bench's
//                               REPORT tells; ends with 1 when a frame is missing or a pause was too long
// clang-format on
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "config/filesavesystem.h"
#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/file_system.h"
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

/// The names sort in the order of writing as long as no hour has a thousand files.
std::vector<std::string> ReadLogs(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".csv") paths.push_back(entry.path());
  }
  std::ranges::sort(paths);
  std::vector<std::string> logs;
  for (const auto& path : paths) logs.push_back(ReadFile(path));
  return logs;
}

int Check(const std::string& bench, const std::string& report, const std::string& folder,
          bool ids29) {
  SoakEvidence evidence{.config = simulator::ReadBenchConfig(ReadFile(bench)),
                        .counts = {},
                        .logs = {},
                        .ids29 = ids29};
  if (evidence.config.canusb.empty() || evidence.config.bus.load.frames == 0) {
    return Complain(bench + " has no CANUSB adapter on a bus that ends");
  }
  const auto counts = LastRun(ReadFile(report));
  if (!counts) return Complain(report + " tells of no run");
  evidence.counts = *counts;
  evidence.logs = ReadLogs(folder);
  const SoakVerdict verdict = Judge(evidence);
  for (const std::string& line : verdict.lines) std::printf("%s\n", line.c_str());
  return verdict.passed ? 0 : kFailed;
}

int Run(const std::vector<std::string>& words) {
  if (words.size() == 3 && words[0] == "settings") return WriteSettings(words[1], words[2] == "29");
  if (words.size() == 5 && words[0] == "check") {
    return Check(words[1], words[2], words[3], words[4] == "29");
  }
  std::fprintf(stderr,
               "usage: tolvane_soak settings FOLDER BITS | check BENCH REPORT FOLDER BITS\n");
  return kUsage;
}

}  // namespace
}  // namespace tolvane::soak

int main(int count, char** words) {
  return tolvane::soak::Run({words + 1, words + std::max(count, 1)});
}
