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

struct LogName {
  std::string_view folder;
  std::uint32_t date_hour;
  std::uint32_t number;
};

/// All of `text`, which has `least` digits or more.
std::optional<std::uint32_t> Number(std::string_view text, std::size_t least) {
  std::uint32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (text.size() < least || result.ec != std::errc() || result.ptr != end) return {};
  return number;
}

std::optional<LogName> NameOf(std::string_view path) {
  constexpr std::string_view kPrefix = kBytesOf<kLogPrefix>;
  constexpr std::string_view kGap = kBytesOf<kLogNumberGap>;
  constexpr std::string_view kExtension = kBytesOf<kCsvExtension>;
  const std::size_t start = path.find_last_of("/\\") + 1;  // 0 without any
  std::string_view name = path.substr(start);
  if (!name.starts_with(kPrefix) || !name.ends_with(kExtension)) return {};
  name = name.substr(kPrefix.size(), name.size() - kPrefix.size() - kExtension.size());
  if (name.size() <= kDateHourDigits || !name.substr(kDateHourDigits).starts_with(kGap)) return {};
  const auto date_hour = Number(name.substr(0, kDateHourDigits), kDateHourDigits);
  const auto number = Number(name.substr(kDateHourDigits + kGap.size()), kFileNumberDigits);
  if (!date_hour || !number) return {};
  return LogName{path.substr(0, start), *date_hour, *number};
}

/// A path with its place: the folder's number among the folders, then what the name tells.
struct Placed {
  std::size_t folder;
  LogName name;
  std::string path;

  [[nodiscard]] auto Order() const { return std::tie(folder, name.date_hour, name.number); }
};

}  // namespace

std::vector<std::string> InOrderOfWriting(std::vector<std::string> paths) {
  std::vector<std::string_view> folders;
  std::vector<Placed> placed;
  for (const std::string& path : paths) {
    const auto name = NameOf(path);
    if (!name) return paths;
    const auto found = std::ranges::find(folders, name->folder);
    placed.push_back({static_cast<std::size_t>(found - folders.begin()), *name, path});
    if (found == folders.end()) folders.push_back(name->folder);
  }
  std::ranges::stable_sort(placed, {}, &Placed::Order);
  std::vector<std::string> ordered;
  for (Placed& one : placed) ordered.push_back(std::move(one.path));
  return ordered;
}

std::uint32_t NumbersBetween(const std::string& before, const std::string& path) {
  const auto first = NameOf(before);
  const auto second = NameOf(path);
  if (!first || !second || first->folder != second->folder) return 0;
  // Numbers begin at 1 in each hour.
  const std::uint32_t last = first->date_hour == second->date_hour ? first->number : 0;
  return second->number > last ? second->number - last - 1 : 0;
}

}  // namespace tolvane::logtool
