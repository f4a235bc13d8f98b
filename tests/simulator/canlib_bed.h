#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "simulator/canlib_bench.h"
#include "tests/simulator/bench_on_text.h"

namespace tolvane::simulator {

inline constexpr std::int32_t kInitAccess = 128;

/// A test with canlib32.dll over a bench.
class CanlibBed : public testing::Test {
 protected:
  void Plug(const std::string& ini, const std::string& log = "") {
    library_ = std::make_unique<CanlibBench>(bench_.Make("canlib32", ini, log));
    library_->canInitializeLibrary();
  }

  std::int32_t Open(std::int32_t channel) { return library_->canOpenChannel(channel, kInitAccess); }

  /// Bus parameters of 500 kbit/s, then bus on; the latter's status.
  std::int32_t GoOnBus(std::int32_t handle) {
    EXPECT_EQ(library_->canSetBusParams(handle, -2, 5, 2, 1, 1, 0), 0);
    return library_->canBusOn(handle);
  }

  std::int32_t Read(std::int32_t handle) {
    return library_->canRead(handle, id_, data_, dlc_, flag_, time_);
  }

  template <typename Buffer>
  std::int32_t Data(std::int32_t channel, std::int32_t item, Buffer& buffer) {
    return library_->canGetChannelData(channel, item, std::as_writable_bytes(std::span(buffer)));
  }

  BenchOnText bench_;
  std::unique_ptr<CanlibBench> library_;
  std::int32_t id_ = 0;
  std::array<std::uint8_t, 8> data_{};
  std::int32_t dlc_ = 0;
  std::int32_t flag_ = 0;
  std::int32_t time_ = 0;
};

}  // namespace tolvane::simulator
