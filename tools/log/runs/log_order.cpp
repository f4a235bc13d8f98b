#include "tools/log/runs/log_order.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>

#include "logging/log_naming.h"
#include "tools/log/reading/ascii.h"

namespace tolvane::logtool {

namespace {

constexpr std::size_t kDateHourDigits = StringView(u"yymmddhh").size();

struct LogName {
  std::size_t folder;  // its number among the folders
  std::uint32_t date_hour;
  std::uint32_t number;
  std::string path;

  [[nodiscard]] auto Order() const { return std::tie(folder, date_hour, number); }
};

/// All of `text`, which has `least` digits or more.
std::optional<std::uint32_t> Number(std::string_view text, std::size_t least) {
  std::uint32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (text.size() < least || result.ec != std::errc() || result.ptr != end) return {};
  return number;
}

class Folders {
 public:
  std::size_t NumberOf(std::string_view folder) {
    const auto found = std::ranges::find(folders_, folder);
    const auto number = static_cast<std::size_t>(found - folders_.begin());
    if (found == folders_.end()) folders_.emplace_back(folder);
    return number;
  }

 private:
  std::vector<std::string> folders_;
};

std::optional<LogName> NameOf(const std::string& path, Folders& folders) {
  constexpr std::string_view kPrefix = kBytesOf<kLogPrefix>;
  constexpr std::string_view kExtension = kBytesOf<kCsvExtension>;
  const std::size_t start = path.find_last_of("/\\") + 1;  // 0 without any
  std::string_view name = std::string_view(path).substr(start);
  if (!name.starts_with(kPrefix) || !name.ends_with(kExtension)) return {};
  name = name.substr(kPrefix.size(), name.size() - kPrefix.size() - kExtension.size());
  if (name.size() <= kDateHourDigits || name[kDateHourDigits] != '-') return {};
  const auto date_hour = Number(name.substr(0, kDateHourDigits), kDateHourDigits);
  const auto number = Number(name.substr(kDateHourDigits + 1), kFileNumberDigits);
  if (!date_hour || !number) return {};
  const std::string_view folder = std::string_view(path).substr(0, start);
  return LogName{folders.NumberOf(folder), *date_hour, *number, path};
}

}  // namespace

std::vector<std::string> InOrderOfWriting(std::vector<std::string> paths) {
  Folders folders;
  std::vector<LogName> names;
  for (const std::string& path : paths) {
    auto name = NameOf(path, folders);
    if (!name) return paths;
    names.push_back(*std::move(name));
  }
  std::ranges::stable_sort(names, {}, &LogName::Order);
  std::ranges::transform(names, paths.begin(), [](LogName& name) { return std::move(name.path); });
  return paths;
}

}  // namespace tolvane::logtool
