#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tolvane::logtool {

/// The paths in the order in which their files were written, which is that of the names: the hour,
/// then the number. As they come if one of them is no name of a log. Folders keep their order.
[[nodiscard]] std::vector<std::string> InOrderOfWriting(std::vector<std::string> paths);

/// How many numbers the program has given between these two logs of one run; 0 where the names do
/// not tell.
[[nodiscard]] std::uint32_t NumbersBetween(const std::string& before, const std::string& path);

}  // namespace tolvane::logtool
