// A run that was logged, played from its logs and logged again: the same records. The logs are read
// by the script that readies recordings for the bench.
#include <stdio.h>  // popen

#include <filesystem>
#include <fstream>

#include "tests/bench_run/bench_run.h"

namespace tolvane::bench_run {
namespace {

struct Traffic {
  const char* label;
  const char* ini;
  std::int64_t length_ms;
  std::size_t files;  // at least
};

constexpr Traffic kTraffic[] = {
    {"FramesOfAnyLength", "[bench]\nspeed=0.25\n[bus]\nsource=vehicle\n", 12'000, 1},
    // Of 29 bits there are three, and what the second one's identifiers lose comes in the third.
    {"ManyFiles",
     "[bus]\nsource=generator\nrate=500\nids=60\nfirst_id=0\nformat=both\ncontent=random\n", 82'000,
     2},
    {"AFullFile", "[bus]\nsource=generator\nrate=500\nids=60\nframes=20001\n", 41'000, 2},
    // CANUSB's and Interface's times jump behind it.
    {"ClocksThatStartOver",
     "[bus]\nsource=generator\nrate=2\nids=60\n[canusb 1]\nclock_start=40000\n"
     "[interface 1]\nclock_start=429451000\nclock_wrap=429491000\n",
     70'000, 1},
    {"SilencesOfMinutes",
     "[bus]\nsource=generator\nrate=1\nids=60\n[faults]\nsilence_from=10\nsilence_to=130\n",
     150'000, 1},
};

class PlayedAgain : public BenchRun,
                    public testing::WithParamInterface<std::tuple<Kind, std::int32_t, Traffic>> {
 protected:
  void SetUp() override {
    std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
    std::replace(name.begin(), name.end(), '/', '-');
    folder_ = std::filesystem::temp_directory_path() / ("tolvane-played-again-" + name);
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  void TearDown() override {
    BenchRun::TearDown();
    std::filesystem::remove_all(folder_);
  }

  /// The records of each log of a run.
  std::vector<Lines> RecordsOfRun(const std::string& ini, Kind kind, std::int32_t ids,
                                  std::int64_t length_ms) {
    Start(ini, kind);
    if (HasFatalFailure()) return {};
    program_->Device().t_msgID_type = ids;
    (void)Run(length_ms);
    std::vector<Lines> records;
    for (const std::string& log : program_->Logs()) records.push_back(Records(log));
    return records;
  }

  [[nodiscard]] std::filesystem::path LogPath(std::size_t number) const {
    return folder_ / ("KL26010509-00" + std::to_string(number) + ".csv");
  }

  /// What the script says of the first log, with its followers made ready to be played.
  [[nodiscard]] std::string Ready() const {
    const std::string command = "python3 -B '" TOLVANE_ROOT "/scripts/lib/ready_recording.py' '" +
                                LogPath(1).string() + "' '" + Converted() + "' 2>&1";
    std::string said;
    FILE* const pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return said;
    for (int character = 0; (character = fgetc(pipe)) != EOF;) said += static_cast<char>(character);
    EXPECT_EQ(pclose(pipe), 0) << said;
    return said;
  }
  [[nodiscard]] std::string Converted() const { return (folder_ / "bus.log").string(); }

 private:
  std::filesystem::path folder_;
};

constexpr const char* kAdapterWords[]{"canusb", "interface", "kvaser"};

Kind KindTold(const std::string& said) {
  for (const Kind kind : kKinds) {
    if (said.find(std::string("\nadapter ") + kAdapterWords[kind] + "\n") != std::string::npos)
      return kind;
  }
  ADD_FAILURE() << said;
  return kCanusb;
}

/// The time of the last record, ms.
std::int64_t EndOf(const std::vector<Lines>& records) {
  const auto last = std::find_if(records.rbegin(), records.rend(),
                                 [](const Lines& lines) { return !lines.empty(); });
  return last == records.rend() ? 0 : std::stoll(last->back());
}

TEST_P(PlayedAgain, FromItsLogsHasTheSameRecords) {
  const auto& [kind, ids, traffic] = GetParam();
  const std::vector<Lines> first = RecordsOfRun(traffic.ini, kind, ids, traffic.length_ms);
  ASSERT_GE(first.size(), traffic.files);
  for (std::size_t n = 0; n < first.size(); ++n) {
    std::ofstream(LogPath(n + 1), std::ios::binary) << program_->Logs()[n];
  }
  // Of another run, whose first file has the next number.
  std::ofstream(LogPath(first.size() + 1), std::ios::binary) << program_->Logs()[0];

  const std::string said = Ready();
  EXPECT_NE(said.find("\nrate 500\n"), std::string::npos) << said;
  EXPECT_EQ(said.find("\nids 11\n") != std::string::npos, ids == 0) << said;
  const Kind told = KindTold(said);
  EXPECT_TRUE(told == kind ||
              (told == kKvaser && traffic.label == std::string("SilencesOfMinutes")));

  // The program reads a frame in a millisecond, and the vehicle is faster.
  const std::string bus = "[bench]\nspeed=0.5\n[bus]\nsource=log\nlog=" + Converted() + "\n";
  EXPECT_EQ(RecordsOfRun(bus, told, ids, 2 * EndOf(first) + 1'000), first);
}

INSTANTIATE_TEST_SUITE_P(, PlayedAgain,
                         testing::Combine(testing::ValuesIn(kKinds),
                                          testing::Values(0, std::int32_t{kMsgIdType29Bit}),
                                          testing::ValuesIn(kTraffic)),
                         [](const auto& row) {
                           return std::string(kKindNames[std::get<0>(row.param)]) +
                                  (std::get<1>(row.param) == 0 ? "11" : "29") +
                                  std::get<2>(row.param).label;
                         });

}  // namespace
}  // namespace tolvane::bench_run
