#pragma once

#include <string>
#include <vector>

#include "tools/log/command/outside.h"

namespace tolvane::logtool {

/// The whole program: the words behind its name, and the status with which it ends.
[[nodiscard]] int RunCommand(const std::vector<std::string>& words, const Outside& outside);

}  // namespace tolvane::logtool
