// Long runs of the real program on a bench whose clock moves on by a step at each read: the load is
// the same on a fast machine and on a slow one, and nothing here looks at the time that it took.
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/window/text.h"
#include "tests/window/window_fixture.h"
// Last: its symbols are also names of controls elsewhere.
#include "src/platform/windows/resources/resource.h"

namespace tolvane::window {
namespace {

constexpr std::uint32_t kFrames = 100'000;
constexpr std::size_t kRecordsPerFile = 20'001;
constexpr int kHeaderLines = 8;
constexpr std::uint32_t kIdentifiers = 100;

// A bus at full load; each frame carries its number.
constexpr std::string_view kLoadedBus =
    "clock = reads\nclock_step_us = 100\n[canusb 1]\n"
    "[bus]\nsource = generator\nframes = 100000\nids = 100\ncontent = counter\n";

struct Record {
  std::uint32_t identifier;
  std::uint32_t number;  // bytes 1 to 4, the low one first
};

std::uint32_t HexNumber(std::string_view digits) {
  std::uint32_t value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  return value;
}

/// A line such as "     123.4 , 001 , 8 ,  00,01,02,03,04,05,06,07".
Record ParseRecord(std::string_view line) {
  const std::size_t identifier = line.find(" , ") + 3;
  const std::size_t bytes = line.find(" ,  ") + 4;
  Record record{HexNumber(line.substr(identifier, 3)), 0};
  for (std::size_t i = 0; i < 4; ++i) {
    record.number |= HexNumber(line.substr(bytes + 3 * i, 2)) << (8 * i);
  }
  return record;
}

std::vector<Record> ReadLog(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string line;
  for (int i = 0; i < kHeaderLines; ++i) std::getline(stream, line);
  std::vector<Record> records;
  while (std::getline(stream, line)) records.push_back(ParseRecord(line));
  return records;
}

/// In the order of their numbers, which is the order in which they were written within an hour. A
/// run across the full hour sorts rightly too, as the hour stands before the number.
std::vector<std::filesystem::path> LogFiles(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == L".csv") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

using LoadedBus = RealProgram;

TEST_F(LoadedBus, EveryFrameIsLoggedOnceAndInOrder) {
  PlugIn(kLoadedBus, {L"canusbdrv.dll"});
  const DrivenWindow window = StartProgram();
  ASSERT_TRUE(window.Exists());
  ASSERT_TRUE(WaitUntil([&] { return window.Enabled(Bt_Connect); }));
  ASSERT_NO_FATAL_FAILURE(Connect(window));
  // The bytes of the last frame, 99,999, on the page.
  EXPECT_TRUE(WaitUntil(
      [&] {
        return window.Text(RTB_MainView).find(L" 9F 86 01 00 00 00 00 00 ") != std::wstring::npos;
      },
      std::chrono::minutes(8)));
  ASSERT_NO_FATAL_FAILURE(Disconnect(window));

  EXPECT_NE(bench_->Report().find(" delivered=100000 dropped=0 "), std::string::npos)
      << bench_->Report();
  std::uint32_t number = 0;
  const std::vector<std::filesystem::path> files = LogFiles(folder_.Path());
  EXPECT_EQ(files.size(), kFrames / kRecordsPerFile + 1);
  for (const std::filesystem::path& file : files) {
    const std::vector<Record> records = ReadLog(file);
    EXPECT_EQ(records.size(), std::min(kRecordsPerFile, std::size_t{kFrames - number})) << file;
    for (const Record& record : records) {
      ASSERT_EQ(record.number, number) << file;
      ASSERT_EQ(record.identifier, 1 + number % kIdentifiers) << file;
      ++number;
    }
  }
  EXPECT_EQ(number, kFrames);
}

}  // namespace
}  // namespace tolvane::window
