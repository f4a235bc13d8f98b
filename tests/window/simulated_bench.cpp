#include "tests/window/simulated_bench.h"

#include <windows.h>

#include <array>
#include <fstream>
#include <iterator>

#include "tools/drive/driven_program.h"

namespace tolvane::window {
namespace {

constexpr std::array kLibraries{L"canusbdrv.dll", L"IFCan.dll", L"canlib32.dll"};

void RemoveLibraries() {
  std::error_code ignored;
  for (const wchar_t* library : kLibraries) {
    std::filesystem::remove(SystemFolder() / library, ignored);
  }
}

}  // namespace

SimulatedBench::SimulatedBench(const std::filesystem::path& folder, std::string_view ini,
                               const std::vector<const wchar_t*>& libraries)
    : report_(folder / L"bench-report.txt") {
  RemoveLibraries();
  std::error_code ignored;
  const std::filesystem::path source = OwnFolder() / L"..\\..\\simulator";
  for (const wchar_t* library : libraries) {
    std::filesystem::copy_file(source / library, SystemFolder() / library, ignored);
  }
  std::filesystem::remove(report_, ignored);
  const std::filesystem::path file = folder / L"bench.ini";
  std::ofstream(file, std::ios::binary) << "[bench]\nreport = bench-report.txt\n" << ini;
  SetEnvironmentVariableW(L"TOLVANE_BENCH", file.c_str());
}

SimulatedBench::~SimulatedBench() {
  SetEnvironmentVariableW(L"TOLVANE_BENCH", nullptr);
  RemoveLibraries();
}

std::string SimulatedBench::Report() const {
  std::ifstream file(report_, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tolvane::window
