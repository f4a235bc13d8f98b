#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "tests/run/control/form1_bench.h"

namespace tolvane {

/// A machine on which the program waits for its first run, logging off.
class RunControl : public testing::Test {
 protected:
  RunControl() {
    bench_.Start();
    form_.device.t_LogSave_Enable = 0;
  }

  /// A complete run: one of `steps` happens at each yield of the receive loop, not nested, then the
  /// user disconnects.
  void Connect(std::vector<std::function<void()>> steps = {}) {
    std::size_t next = 0;
    bool inside = false;
    memory_.events.OnYield([this, &steps, &next, &inside] {
      if (std::exchange(inside, true)) return;
      if (next < steps.size()) {
        steps[next++]();
      } else {
        bench_.Click(&Form1::Bt_Disconnect_Click);
      }
      inside = false;
    });
    bench_.Click(&Form1::Bt_Connect_Click);
    memory_.events.OnYield({});
  }

  /// Makes the adapter of `vender` the selected one, with everything that a run on it needs.
  void Choose(std::int32_t vender) {
    form_.device.t_select_Vender = vender;
    memory_.IFCan.ports = {{.number = 1}};
    form_.IfCan_d.Interface_CAN_SelectNo = 1;
    memory_.canlib32.channels = {0};
    form_.kvCan_d.KvCAN_SelectNo = 1;
  }

  Form1Bench bench_;
  platform::memory::MemoryPlatform& memory_ = bench_.memory;
  platform::memory::MainWindow& window_ = bench_.memory.window;
  Form1& form_ = bench_.form;
};

}  // namespace tolvane
