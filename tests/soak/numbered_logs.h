#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace tolvane::soak {

/// The csv logs of a folder in the order in which they were written, across the hours of their
/// names.
[[nodiscard]] std::vector<std::filesystem::path> LogsInOrder(const std::filesystem::path& folder);

/// How many logs each hour has, such as "26112217: 412, 26112218: 1938 (939 as number 1000)".
[[nodiscard]] std::string FilesByHour(const std::vector<std::filesystem::path>& logs);

/// Gives each log that has an hour's last number, 1000, a name of its own, before the program
/// writes the next one over it, which it does after a second on a full bus. A program that is just
/// writing the file goes on writing to it, whatever its name.
class LastNumbers {
 public:
  explicit LastNumbers(std::filesystem::path folder) : folder_(std::move(folder)) {}

  void Rename();

 private:
  std::filesystem::path folder_;
  int renamed_ = 0;
};

}  // namespace tolvane::soak
