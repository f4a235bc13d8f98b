#include "tests/soak/numbered_logs.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <map>
#include <optional>
#include <system_error>
#include <tuple>

namespace tolvane::soak {
namespace {

constexpr int kLastNumber = 1000;

/// "KL26112217-007.csv", or "KL26112217-1000.00012.csv" of one that was renamed.
struct LogName {
  std::string hour;
  int number = 0;
  int renamed = INT_MAX;  // the one that keeps its name is the last
};

std::optional<LogName> NameOf(const std::filesystem::path& path) {
  constexpr std::size_t kHourDigits = 8;
  const std::string stem = path.stem().string();
  if (path.extension() != ".csv" || !stem.starts_with("KL")) return std::nullopt;
  if (stem.size() < kHourDigits + 4 || stem[kHourDigits + 2] != '-') return std::nullopt;
  LogName name{.hour = stem.substr(2, kHourDigits)};
  char* end = nullptr;
  name.number = static_cast<int>(std::strtol(stem.c_str() + kHourDigits + 3, &end, 10));
  if (*end == '.') name.renamed = std::atoi(end + 1);
  return name;
}

}  // namespace

std::vector<std::filesystem::path> LogsInOrder(const std::filesystem::path& folder) {
  std::map<std::tuple<std::string, int, int>, std::filesystem::path> logs;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (const auto name = NameOf(entry.path())) {
      logs[{name->hour, name->number, name->renamed}] = entry.path();
    }
  }
  std::vector<std::filesystem::path> paths;
  for (const auto& [name, path] : logs) paths.push_back(path);
  return paths;
}

std::string FilesByHour(const std::vector<std::filesystem::path>& logs) {
  struct Count {
    int all = 0;
    int last_numbers = 0;
  };
  std::map<std::string, Count> hours;
  for (const auto& path : logs) {
    const auto name = NameOf(path);
    if (!name) continue;
    ++hours[name->hour].all;
    hours[name->hour].last_numbers += name->number == kLastNumber;
  }
  std::string text;
  for (const auto& [hour, count] : hours) {
    text += (text.empty() ? "" : ", ") + hour + ": " + std::to_string(count.all);
    if (count.last_numbers > 0) {
      text += " (" + std::to_string(count.last_numbers) + " as number 1000)";
    }
  }
  return text;
}

void LastNumbers::Rename() {
  std::vector<std::filesystem::path> found;
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    const auto name = NameOf(entry.path());
    if (name && name->number == kLastNumber && name->renamed == INT_MAX) {
      found.push_back(entry.path());
    }
  }
  for (const auto& path : found) {
    const std::string digits = std::to_string(++renamed_);
    const std::string place =
        std::string(5 - std::min<std::size_t>(digits.size(), 5), '0') + digits;
    std::error_code failed;  // the comparison of the logs will tell
    std::filesystem::rename(path, folder_ / (path.stem().string() + '.' + place + ".csv"), failed);
  }
}

}  // namespace tolvane::soak
