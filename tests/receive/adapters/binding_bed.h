#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "platform/memory/system/journal.h"
#include "receive/adapters/binding.h"
#include "run/elm327_info.h"

namespace tolvane {

/// Calls of an adapter's library, as its journal notes them.
using Calls = std::vector<std::string>;

constexpr std::array<std::uint8_t, 8> kFrameBytes = {1, 2, 3, 4, 5, 6, 7, 8};

/// That `binding` takes the bit rates given and no other number.
inline void ExpectRates(Binding& binding, const std::set<std::int32_t>& rates) {
  std::vector<std::int32_t> tried = {INT32_MIN, INT32_MAX};
  for (std::int32_t t_bitRate = -300; t_bitRate <= 300; ++t_bitRate) tried.push_back(t_bitRate);
  for (const std::int32_t t_bitRate : tried) {
    EXPECT_EQ(binding.TakeRate(t_bitRate), rates.contains(t_bitRate)) << t_bitRate;
  }
}

/// What the tests of all bindings need.
class BindingTest : public testing::Test {
 protected:
  platform::memory::Journal journal_;
  ELM327_Info device_{u"C:\\Tolvane"};
};

}  // namespace tolvane
