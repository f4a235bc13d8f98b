#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/memory/memory_platform.h"

namespace tolvane {

/// Lines of the journal.
using Lines = std::vector<std::string>;

inline std::int64_t CountOf(const Lines& lines, const std::string& line) {
  return std::count(lines.begin(), lines.end(), line);
}

/// What a search meets: the libraries of a machine in memory, every call and yield in its journal.
class Search : public testing::Test {
 protected:
  Search() {
    memory_.events.OnYield([this] { memory_.journal.Note("yield"); });
  }
  platform::memory::MemoryPlatform memory_;
};

}  // namespace tolvane
