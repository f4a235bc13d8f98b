// tolvane_soak: what tests/soak/run needs around the real program. OUT is the folder of a
// measurement: the program and its logs lie in OUT/program, the bench file and the report of its
// libraries are bench.ini and bench-report.txt.
//
// clang-format off
//   settings FOLDER BITS        config.dat: csv log beside the program, 1 Mbit/s, identifiers of BITS (11, 29)
//   take OUT MINUTES COUNT      makes files of the first COUNT names of each hour that a run of so long may meet, and
//                               lists them in OUT/taken.txt
//   watch PROCESS OUT           looks at the program's process each millisecond until it ends, and writes to
//                               OUT/moments.txt when it had no processor, waited or took memory; to OUT/memory.txt how
//                               much it used in each second, until there is a file OUT/ended; keeps its logs from
//                               being overwritten where an hour has a thousand
//   check OUT BITS              compares the logs and OUT/page.txt, the window's page at the end, with the bench file,
//                               and prints what the watch and the bench tell; ends with 3 when nothing but the
//                               adapter's overruns is missing, with 1 when anything else is or the memory has grown
// clang-format on
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "config/filesavesystem.h"
#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/file_system.h"
#include "tests/soak/memory_use.h"
#include "tests/soak/numbered_logs.h"
#include "tests/soak/process_watch.h"
#include "tests/soak/soak_report.h"
#include "tests/soak/taken_names.h"

namespace tolvane::soak {
namespace {

constexpr int kFailed = 1;
constexpr int kUsage = 2;
constexpr int kLostAndTold = 3;

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

int Take(const std::filesystem::path& out, std::int64_t minutes, std::int64_t count) {
  constexpr std::int64_t kBesideTheLoadMinutes = 10;
  const std::time_t now = std::time(nullptr);
  const auto names =
      TakeNames(out / "program", now, now + (minutes + kBesideTheLoadMinutes) * 60, count);
  std::ofstream list(out / "taken.txt", std::ios::binary);
  for (const std::string& name : names) list << name << '\n';
  list.close();
  return list.fail() ? Complain("the names cannot be listed") : 0;
}

int Watch(std::int64_t process, const std::filesystem::path& out) {
  constexpr int kLooksPerRenaming = 100;
  constexpr std::int64_t kSecondUs = 1'000'000;
  constexpr std::int64_t kNotableUs = 50;
  constexpr std::int64_t kNotableKb = 16;
  ProcessWatch watch(process);
  LastNumbers last_numbers(out / "program");
  std::ofstream moments(out / "moments.txt", std::ios::binary);
  std::ofstream memory(out / "memory.txt", std::ios::binary);
  std::int64_t second_us = 0;  // when the last second of the memory ended
  std::int64_t most_kb = 0;
  for (int look = 1; const auto moment = watch.Look(); ++look) {
    if (moment->waited_us >= kNotableUs || moment->grown_kb >= kNotableKb ||
        moment->asleep_us >= kNotableUs) {
      moments << MomentLine(*moment);
    }
    most_kb = std::max(most_kb, watch.ResidentKb());
    if (moment->at_us - second_us >= kSecondUs) {
      // What closing needs is not the run's.
      if (!std::filesystem::exists(out / "ended")) memory << MemoryLine(moment->at_us, most_kb);
      second_us = moment->at_us;
      most_kb = 0;
    }
    if (look % kLooksPerRenaming == 0) last_numbers.Rename(HourOf(std::time(nullptr)));
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  moments.close();
  memory.close();
  return moments.fail() || memory.fail() ? Complain("what was seen cannot be written") : 0;
}

std::vector<std::string> LinesOf(const std::filesystem::path& path) {
  std::vector<std::string> lines;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

int StatusOf(SoakOutcome outcome) {
  switch (outcome) {
    case SoakOutcome::kPassed:
      return 0;
    case SoakOutcome::kLostAndTold:
      return kLostAndTold;
    case SoakOutcome::kFailed:
      return kFailed;
  }
  return kFailed;
}

int Check(const std::filesystem::path& out, bool ids29) {
  const std::vector<std::string> taken = LinesOf(out / "taken.txt");
  SoakEvidence evidence{.config = simulator::ReadBenchConfig(ReadFile(out / "bench.ini")),
                        .counts = {},
                        .logs = {},
                        .first_logs = {},
                        .taken = std::ssize(taken),
                        .changed_names = ChangedNames(out / "program", taken),
                        .page = {},
                        .moments = ReadMoments(ReadFile(out / "moments.txt")),
                        .memory = ReadMemory(ReadFile(out / "memory.txt"))};
  if (evidence.config.canusb.empty() || evidence.config.bus.load.frames == 0) {
    return Complain("the bench file has no CANUSB adapter on a bus that ends");
  }
  const auto counts = LastRun(ReadFile(out / "bench-report.txt"));
  if (!counts) return Complain("the bench's report tells of no run");
  evidence.counts = *counts;
  LogComparison comparison(evidence.config, ids29, counts->dropped);
  const auto logs = LogsInOrder(out / "program");
  for (const auto& log : logs) comparison.Add(ReadFile(log));
  evidence.logs = comparison.Result();
  evidence.first_logs = FirstOfHours(logs);
  evidence.page = comparison.Page().Compare(ReadFile(out / "page.txt"));
  const SoakVerdict verdict = Judge(evidence);
  for (const std::string& line : verdict.lines) std::printf("%s\n", line.c_str());
  std::printf("files by hour:              %s\n", FilesByHour(logs).c_str());
  std::printf("row: %s | %s |\n", verdict.row.c_str(), FilesByHour(logs).c_str());
  return StatusOf(verdict.outcome);
}

int Run(const std::vector<std::string>& words) {
  if (words.size() == 3 && words[0] == "settings") return WriteSettings(words[1], words[2] == "29");
  if (words.size() == 4 && words[0] == "take") {
    return Take(words[1], std::atoll(words[2].c_str()), std::atoll(words[3].c_str()));
  }
  if (words.size() == 3 && words[0] == "watch")
    return Watch(std::atoll(words[1].c_str()), words[2]);
  if (words.size() == 3 && words[0] == "check") return Check(words[1], words[2] == "29");
  std::fprintf(
      stderr,
      "usage: tolvane_soak settings FOLDER BITS | take OUT MINUTES COUNT | watch PROCESS OUT | "
      "check OUT BITS\n");
  return kUsage;
}

}  // namespace
}  // namespace tolvane::soak

int main(int count, char** words) {
  return tolvane::soak::Run({words + 1, words + std::max(count, 1)});
}
