#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/memory/journal.h"
#include "run/elm327_info.h"

namespace tolvane {

/// Calls of an adapter's library, as its journal notes them.
using Calls = std::vector<std::string>;

constexpr std::array<std::uint8_t, 8> kFrameBytes = {1, 2, 3, 4, 5, 6, 7, 8};

/// What the tests of all bindings need.
class BindingTest : public testing::Test {
 protected:
  platform::memory::Journal journal_;
  ELM327_Info device_{u"C:\\Tolvane"};
};

}  // namespace tolvane
