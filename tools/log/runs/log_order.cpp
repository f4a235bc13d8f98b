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

constexpr std::size_t kFileNumberDigits_MAX = 9;

struct LogName {
  std::string_view folder;
  LogPlace place;
};

/// Takes `part` off the front of `text`; false if it is not there.
bool Takes(std::string_view& text, std::string_view part) {
  if (!std::ranges::equal(text.substr(0, part.size()), part, {}, SmallLetter, SmallLetter)) {
    return false;
  }
  text.remove_prefix(part.size());
  return true;
}

/// Takes all digits off the front of `text`. Empty, with `text` as it was, when there are fewer
/// than `least` or more than `most` of them, which are nine at the most.
std::optional<std::uint32_t> TakeNumber(std::string_view& text, std::size_t least,
                                        std::size_t most) {
  const std::size_t length = std::min(text.find_first_not_of("0123456789"), text.size());
  std::uint32_t number = 0;
  if (length < least || length > most) return {};
  std::from_chars(text.data(), text.data() + length, number);
  text.remove_prefix(length);
  return number;
}

std::optional<LogName> NameOf(std::string_view path) {
  const std::size_t start = path.find_last_of("/\\") + 1;  // 0 without any
  const auto place = PlaceOf(path.substr(start));
  if (!place) return {};
  return LogName{path.substr(0, start), *place};
}

/// A path with its place: the folder's number among the folders, then what the name tells.
struct Placed {
  std::size_t folder;
  LogName name;
  std::string path;

  [[nodiscard]] auto Order() const { return std::tie(folder, name.place); }
};

}  // namespace

std::optional<LogPlace> PlaceOf(std::string_view name) {
  if (!Takes(name, kBytesOf<kLogPrefix>)) return {};
  const auto date_hour = TakeNumber(name, kDateHourDigits, kDateHourDigits);
  if (!date_hour || !Takes(name, kBytesOf<kLogNumberGap>)) return {};
  const auto number = TakeNumber(name, kFileNumberDigits, kFileNumberDigits_MAX);
  if (!number || !Takes(name, kBytesOf<kCsvExtension>) || !name.empty()) return {};
  return LogPlace{*date_hour, *number};
}

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
  const LogPlace& before_it = first->place;
  const LogPlace& place = second->place;
  const std::uint32_t last = before_it.date_hour == place.date_hour ? before_it.number : 0;
  return place.number > last ? place.number - last - 1 : 0;
}

}  // namespace tolvane::logtool
