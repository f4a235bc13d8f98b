#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane::logtool {

/// Where the name of a log puts it among the others of its folder.
struct LogPlace {
  std::uint32_t date_hour;
  std::uint32_t number;

  auto operator<=>(const LogPlace&) const = default;
};

/// Of a name without a folder, in capital or small letters; empty for one that is no log's.
[[nodiscard]] std::optional<LogPlace> PlaceOf(std::string_view name);

/// The paths in the order in which their files were written, which is that of the names: the hour,
/// then the number. As they come if one of them is no name of a log. Folders keep their order.
[[nodiscard]] std::vector<std::string> InOrderOfWriting(std::vector<std::string> paths);

/// How many numbers the program has given between these two logs of one run; 0 where the names do
/// not tell.
[[nodiscard]] std::uint32_t NumbersBetween(const std::string& before, const std::string& path);

}  // namespace tolvane::logtool
