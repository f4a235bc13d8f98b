#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane::soak {

// Files that stand where logs would, so that the program has to pass over their names.

/// What stands in such a file, and in no log.
inline constexpr std::string_view kTakenText = "This name is taken.\n";

/// Makes files of the first `count` names of each hour from `from` to `to`. Returns their names;
/// one that cannot be written will be told as changed.
std::vector<std::string> TakeNames(const std::filesystem::path& folder, std::time_t from,
                                   std::time_t to, std::int64_t count);

/// Whether it is one of these files, and as it was.
[[nodiscard]] bool OnlyTakesAName(const std::filesystem::path& file);

/// Those of the names whose files are gone or hold something else.
[[nodiscard]] std::vector<std::string> ChangedNames(const std::filesystem::path& folder,
                                                    const std::vector<std::string>& names);

}  // namespace tolvane::soak
