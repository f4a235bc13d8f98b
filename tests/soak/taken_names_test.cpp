#include "tests/soak/taken_names.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <ctime>
#include <fstream>

#include "tests/soak/numbered_logs.h"

namespace tolvane::soak {
namespace {

using FileNames = std::vector<std::string>;

class TakenNames : public testing::Test {
 protected:
  TakenNames() { std::filesystem::create_directories(folder_); }
  ~TakenNames() override { std::filesystem::remove_all(folder_); }

  void Write(const std::string& name, std::string_view text) const {
    std::ofstream(folder_ / name) << text;
  }

  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("tolvane_taken_names." + std::to_string(getpid()));
  const std::time_t now_ = std::time(nullptr);
};

TEST_F(TakenNames, AreTheFirstOfEachHourThatARunMayMeet) {
  const FileNames names = TakeNames(folder_, now_, now_ + 3600, 3);
  const std::string hour = "KL" + HourOf(now_), next = "KL" + HourOf(now_ + 3600);
  EXPECT_EQ(names, (FileNames{hour + "-001.csv", hour + "-002.csv", hour + "-003.csv",
                              next + "-001.csv", next + "-002.csv", next + "-003.csv"}));
  EXPECT_EQ(ChangedNames(folder_, names), FileNames{});
  EXPECT_TRUE(LogsInOrder(folder_).empty());
}

TEST_F(TakenNames, OneThatWasWrittenOverIsFound) {
  const FileNames names = TakeNames(folder_, now_, now_, 5);
  Write(names[0], std::string(kTakenText) + "1\r\n");
  Write(names[1], "");
  Write(names[3], "another text of a log");
  std::filesystem::remove(folder_ / names[4]);
  EXPECT_EQ(ChangedNames(folder_, names), (FileNames{names[0], names[1], names[3], names[4]}));
  EXPECT_EQ(LogsInOrder(folder_).size(), 3u) << "what is there counts as a log";
}

TEST_F(TakenNames, NoneMayBeTaken) {
  EXPECT_EQ(TakeNames(folder_, now_, now_, 0), FileNames{});
  EXPECT_TRUE(std::filesystem::is_empty(folder_));
}

}  // namespace
}  // namespace tolvane::soak
