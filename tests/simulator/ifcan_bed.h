#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

#include "simulator/ifcan_bench.h"
#include "tests/simulator/bench_on_text.h"

namespace tolvane::simulator {

constexpr std::int32_t Status(std::uint32_t code) { return static_cast<std::int32_t>(code); }
inline constexpr std::int32_t kInvalidParameter = Status(0xC0000003);
inline constexpr std::int32_t kEmpty = Status(0xC0000008);
inline constexpr std::int32_t kInvalidHandle = Status(0xC000000A);
inline constexpr std::int32_t kUsbioFailed = Status(0xC000000E);

/// A test with IFCan.dll over a bench.
class IfcanBed : public testing::Test {
 protected:
  void Plug(const std::string& ini, const std::string& log = "") {
    library_ = std::make_unique<IfcanBench>(bench_.Make("IFCan", ini, log));
  }

  /// Writes the port's own configuration back, then activates; the latter's status.
  std::int32_t Activate(std::int32_t handle) {
    platform::IfcanConfig config{};
    EXPECT_EQ(library_->CanGetConfig(handle, config), 0);
    EXPECT_EQ(library_->CanSetConfig(handle, config), 0);
    return library_->CanActivate(handle);
  }

  std::int32_t Receive(std::int32_t handle) {
    count_ = 1;
    return library_->CanReceiveMessage(handle, message_, count_);
  }

  BenchOnText bench_;
  std::unique_ptr<IfcanBench> library_;
  platform::IfcanMessage message_{};
  std::int32_t count_ = 0;
};

}  // namespace tolvane::simulator
