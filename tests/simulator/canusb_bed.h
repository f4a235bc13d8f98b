#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "simulator/canusb_bench.h"
#include "tests/simulator/bench_on_text.h"

namespace tolvane::simulator {

/// A test with canusbdrv.dll over a bench.
class CanusbBed : public testing::Test {
 protected:
  void Plug(const std::string& ini, const std::string& log = "") {
    library_ = std::make_unique<CanusbBench>(bench_.Make("canusbdrv", ini, log));
  }

  std::int32_t Open(const std::string& serial, std::string rate = "500") {
    return library_->canusb_Open(serial, rate, 0, -1, 1);
  }

  std::string Search(bool first) {
    std::array<char, 32> serial;
    serial.fill('?');
    result_ =
        first ? library_->canusb_getFirstAdapter(serial) : library_->canusb_getNextAdapter(serial);
    return {serial.data(), serial.size()};
  }

  BenchOnText bench_;
  std::unique_ptr<CanusbBench> library_;
  std::int16_t result_ = 0;
};

}  // namespace tolvane::simulator
