#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace tolvane::soak {

/// The csv logs of a folder in the order in which they were written, across the hours of their
/// names, with those that LastNumbers has moved, without those that only take a name.
[[nodiscard]] std::vector<std::filesystem::path> LogsInOrder(const std::filesystem::path& folder);

/// How many logs each hour has, such as "26112217: 412, 26112218: 1938 (939 as number 1000)".
[[nodiscard]] std::string FilesByHour(const std::vector<std::filesystem::path>& logs);

/// Which of the logs begin an hour, counted from 1.
[[nodiscard]] std::vector<std::int64_t> FirstOfHours(
    const std::vector<std::filesystem::path>& logs);

/// The hour as names of logs have it, such as "26112217".
[[nodiscard]] std::string HourOf(std::time_t time);

/// Gives each log that has an hour's last number, 1000, a name of its own in a folder beside the
/// others, before the program writes the next one over it, which it does after a second on a full
/// bus. A program that is just writing the file goes on writing to it, whatever its name. In the
/// program's own folder thousands of such files would make each of its questions for a name slower.
class LastNumbers {
 public:
  explicit LastNumbers(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// Looks at one name. The last such log of an hour may be found when the next hour has begun, and
  /// stays where it is: nothing is written over it any more.
  void Rename(const std::string& hour);

 private:
  std::filesystem::path folder_;
  int renamed_ = 0;
};

}  // namespace tolvane::soak
