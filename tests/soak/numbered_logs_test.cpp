#include "tests/soak/numbered_logs.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <ctime>
#include <fstream>
#include <string_view>

#include "tests/soak/taken_names.h"

namespace tolvane::soak {
namespace {

using FileNames = std::vector<std::string>;

class NumberedLogs : public testing::Test {
 protected:
  NumberedLogs() { std::filesystem::create_directories(folder_); }
  ~NumberedLogs() override { std::filesystem::remove_all(folder_); }

  void Write(const std::string& name, std::string_view text = "a log") const {
    std::ofstream(folder_ / name) << text;
  }
  [[nodiscard]] FileNames Names() const {
    FileNames names;
    for (const auto& path : LogsInOrder(folder_)) names.push_back(path.filename().string());
    return names;
  }

  std::filesystem::path folder_ = std::filesystem::temp_directory_path() /
                                  ("tolvane_numbered_logs." + std::to_string(getpid()));
};

TEST_F(NumberedLogs, StandInTheOrderOfTheirHoursAndNumbers) {
  for (const char* name : {"KL26113100-001.csv", "KL26112923-1000.csv", "KL26112923-999.csv",
                           "KL26112923-1000.00001.csv", "KL26112923-100.csv", "config.dat"}) {
    Write(name);
  }
  EXPECT_EQ(Names(),
            (FileNames{"KL26112923-100.csv", "KL26112923-999.csv", "KL26112923-1000.00001.csv",
                       "KL26112923-1000.csv", "KL26113100-001.csv"}));
  EXPECT_EQ(FilesByHour(LogsInOrder(folder_)), "26112923: 4 (2 as number 1000), 26113100: 1");
}

TEST_F(NumberedLogs, NamesThatWereTakenAheadAreNoLogs) {
  Write("KL26112923-001.csv", kTakenText);
  Write("KL26112923-002.csv");
  EXPECT_EQ(Names(), FileNames{"KL26112923-002.csv"});
}

TEST_F(NumberedLogs, TheLastNumberOfAnHourGetsANameOfItsOwnEachTime) {
  LastNumbers last(folder_);
  Write("KL26112923-999.csv");
  Write("KL26112923-1000.csv");
  last.Rename("26112923");
  last.Rename("26112923");
  Write("KL26112923-1000.csv");
  last.Rename("26112923");
  EXPECT_EQ(Names(), (FileNames{"KL26112923-999.csv", "KL26112923-1000.00001.csv",
                                "KL26112923-1000.00002.csv"}));
  EXPECT_EQ(FilesByHour(LogsInOrder(folder_)), "26112923: 3 (2 as number 1000)");
}

TEST_F(NumberedLogs, TheProgramsOwnFolderStaysAsSmallAsAnHourHasNumbers) {
  LastNumbers last(folder_);
  Write("KL26112923-1000.csv");
  last.Rename("26113000");
  EXPECT_TRUE(std::filesystem::exists(folder_ / "KL26112923-1000.csv")) << "of another hour";
  last.Rename("26112923");
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    EXPECT_TRUE(entry.is_directory()) << entry.path();
  }
}

TEST_F(NumberedLogs, TellWhichOfThemBeginAnHour) {
  for (const char* name : {"KL26112922-998.csv", "KL26112922-1000.00001.csv", "KL26112922-1000.csv",
                           "KL26112923-001.csv", "KL26112923-002.csv", "KL26113000-001.csv"}) {
    Write(name);
  }
  EXPECT_EQ(FirstOfHours(LogsInOrder(folder_)), (std::vector<std::int64_t>{1, 4, 6}));
  EXPECT_EQ(FirstOfHours({}), std::vector<std::int64_t>{});
}

TEST(Hours, AreAsNamesOfLogsHaveThem) {
  const std::string hour = HourOf(std::time(nullptr));
  EXPECT_EQ(hour.size(), 8u);
  EXPECT_EQ(hour.find_first_not_of("0123456789"), std::string::npos);
}

}  // namespace
}  // namespace tolvane::soak
