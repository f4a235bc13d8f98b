#include "tests/soak/numbered_logs.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

namespace tolvane::soak {
namespace {

using FileNames = std::vector<std::string>;

class NumberedLogs : public testing::Test {
 protected:
  NumberedLogs() { std::filesystem::create_directories(folder_); }
  ~NumberedLogs() override { std::filesystem::remove_all(folder_); }

  void Write(const std::string& name) const { std::ofstream(folder_ / name) << name; }
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

TEST_F(NumberedLogs, TheLastNumberOfAnHourGetsANameOfItsOwnEachTime) {
  LastNumbers last(folder_);
  Write("KL26112923-999.csv");
  Write("KL26112923-1000.csv");
  last.Rename();
  last.Rename();
  Write("KL26112923-1000.csv");
  last.Rename();
  EXPECT_EQ(Names(), (FileNames{"KL26112923-999.csv", "KL26112923-1000.00001.csv",
                                "KL26112923-1000.00002.csv"}));
}

}  // namespace
}  // namespace tolvane::soak
