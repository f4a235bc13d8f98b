#include "tests/soak/numbered_logs.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>
#include <system_error>
#include <tuple>

#include "tests/soak/taken_names.h"

namespace tolvane::soak {
namespace {

constexpr int kLastNumber = 1000;
constexpr const char* kOfLastNumber = "last-numbers";  // the folder of those that were renamed

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
  for (const auto& place : {folder, folder / kOfLastNumber}) {
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(place, none)) {
      const auto name = NameOf(entry.path());
      if (name && !OnlyTakesAName(entry.path())) {
        logs[{name->hour, name->number, name->renamed}] = entry.path();
      }
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

std::vector<std::int64_t> FirstOfHours(const std::vector<std::filesystem::path>& logs) {
  std::vector<std::int64_t> first;
  std::string last_hour;
  for (std::size_t i = 0; i < logs.size(); ++i) {
    const auto name = NameOf(logs[i]);
    if (!name || name->hour == last_hour) continue;
    first.push_back(static_cast<std::int64_t>(i) + 1);
    last_hour = name->hour;
  }
  return first;
}

std::string HourOf(std::time_t time) {
  char text[16];
  std::strftime(text, sizeof text, "%y%m%d%H", std::localtime(&time));
  return text;
}

void LastNumbers::Rename(const std::string& hour) {
  const std::string stem = "KL" + hour + "-" + std::to_string(kLastNumber);
  const std::filesystem::path log = folder_ / (stem + ".csv");
  std::error_code failed;  // the comparison of the logs will tell
  if (!std::filesystem::exists(log, failed)) return;
  const std::filesystem::path place = folder_ / kOfLastNumber;
  std::filesystem::create_directory(place, failed);
  char number[24];
  std::snprintf(number, sizeof number, ".%05d.csv", ++renamed_);
  std::filesystem::rename(log, place / (stem + number), failed);
}

}  // namespace tolvane::soak
