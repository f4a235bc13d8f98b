// start_compare PROGRAM-FOLDER ROUNDS: starts Tolvane and the empty window program in turn, each
// ROUNDS times, and measures the time from the start of the process to its window, and the memory
// that it then has. Prints lines of a name, a tab and a number; medians, in microseconds and
// kilobytes.
#include <windows.h>
// Behind windows.h, which it needs.
#include <psapi.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <vector>

#include "bench/windows/rounds.h"
#include "tools/drive/driven_program.h"

namespace tolvane::bench {
namespace {

using window::DrivenProgram;
using window::ProgramFolder;

constexpr DWORD kSettling = 500;  // ms in which a program that has shown its window comes to rest

struct Start {
  double us;
  double resident_kb;
};

double ResidentKb(DWORD process) {
  const HANDLE handle = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, process);
  PROCESS_MEMORY_COUNTERS counters{};
  const bool told = GetProcessMemoryInfo(handle, &counters, sizeof(counters)) != FALSE;
  CloseHandle(handle);
  return told ? static_cast<double>(counters.WorkingSetSize) / 1024 : 0;
}

/// Empty when the program does not start or end.
std::optional<Start> StartOnce(const std::filesystem::path& executable) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point began = Clock::now();
  const DrivenProgram program(executable);
  HWND shown = nullptr;
  while (program.Started() && program.Running() && shown == nullptr) {
    Sleep(1);
    shown = window::FindTopWindow(window::kMainWindowClass, program.Id());
  }
  const std::chrono::duration<double, std::micro> time = Clock::now() - began;
  if (shown == nullptr) return std::nullopt;
  Sleep(kSettling);
  const double resident_kb = ResidentKb(program.Id());
  PostMessageW(shown, WM_CLOSE, 0, 0);
  if (!program.WaitForEnd() || resident_kb == 0) return std::nullopt;
  return Start{.us = time.count(), .resident_kb = resident_kb};
}

class Starts {
 public:
  Starts(const char* name, std::filesystem::path executable)
      : name_(name), executable_(std::move(executable)) {}

  bool Again() {
    const auto start = StartOnce(executable_);
    if (!start) return false;
    us_.push_back(start->us);
    resident_kb_.push_back(start->resident_kb);
    return true;
  }
  void Print() {
    std::printf("%s_start\t%.0f\n", name_, Median(us_));
    std::printf("%s_resident\t%.0f\n", name_, Median(resident_kb_));
  }

 private:
  const char* name_;
  std::filesystem::path executable_;
  std::vector<double> us_;
  std::vector<double> resident_kb_;
};

int Compare(const std::filesystem::path& folder, int rounds) {
  const ProgramFolder copy(folder, window::OwnFolder() / L"start_compare");
  Starts tolvane("tolvane", copy.Executable());
  Starts empty("empty", window::OwnFolder() / L"empty_window.exe");
  // The first starts bring the files into memory.
  if (!StartOnce(copy.Executable()) || !StartOnce(window::OwnFolder() / L"empty_window.exe")) {
    return EXIT_FAILURE;
  }
  for (int round = 0; round < rounds; ++round) {
    if (!tolvane.Again() || !empty.Again()) return EXIT_FAILURE;
  }
  tolvane.Print();
  empty.Print();
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace tolvane::bench

int wmain(int count, wchar_t** arguments) {
  using namespace tolvane::bench;
  return MeasureInRounds(count, arguments, "start_compare", "PROGRAM-FOLDER", Compare);
}
