#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace tolvane::simulator {

/// The build tree's simulator folder, found from this program's own place in it.
inline std::filesystem::path SimulatorFolder() {
  std::array<wchar_t, 1'024> path{};
  GetModuleFileNameW(nullptr, path.data(), path.size());
  return std::filesystem::path(path.data()).parent_path() / ".." / ".." / "simulator";
}

/// A bench of its own for each test, in a folder that is gone afterwards.
class SimulatedLibrary : public testing::Test {
 protected:
  void SetUp() override {
    folder_ =
        std::filesystem::temp_directory_path() /
        (std::string("tolvane-") + testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }

  void TearDown() override {
    SetEnvironmentVariableW(L"TOLVANE_BENCH", nullptr);
    std::filesystem::remove_all(folder_);
  }

  void WriteFile(const char* name, std::string_view text) {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }

  void UseBench(std::string_view ini) {
    WriteFile("bench.ini", ini);
    SetEnvironmentVariableW(L"TOLVANE_BENCH", (folder_ / "bench.ini").c_str());
  }

  std::string Report() {
    std::ifstream file(folder_ / "report.txt", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::filesystem::path folder_;
};

/// Time advances by a millisecond with each read; the frames come from a recording next to the
/// bench file.
inline constexpr std::string_view kBus =
    "[bench]\nclock=reads\nclock_step_us=1000\nreport=report.txt\n[bus]\nsource=log\nlog=bus.log\n";

}  // namespace tolvane::simulator
