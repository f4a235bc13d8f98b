#pragma once

#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "platform/memory/memory_platform.h"
#include "run/control/form1.h"
#include "simulator/canlib_bench.h"
#include "simulator/canusb_bench.h"
#include "simulator/ifcan_bench.h"

namespace tolvane::bench_run {

/// How long the program keeps the adapter waiting, in bench time.
struct Pauses {
  std::int64_t read_us;   // each read
  std::int64_t tick_us;   // each tick of the page
  std::int64_t flush_us;  // each log file
};

/// The program on a machine in memory with simulated adapters. The bench's clock advances with what
/// the program does, so a run has the same result on every machine.
class BenchProgram {
 public:
  /// `ini` describes bus and adapter. What the libraries report goes to `report`, the last of it
  /// when the program is destroyed.
  BenchProgram(const std::string& ini, const Pauses& pauses, std::stringbuf& report);
  BenchProgram(const BenchProgram&) = delete;
  BenchProgram& operator=(const BenchProgram&) = delete;

  /// The start of the process, up to the window that waits.
  void Start() { form_.Form_Load(); }
  /// Picks a line of the device list, from 0.
  void Select(std::int32_t line) { memory_.window.Cmb_Serect_Device.ListIndex(line); }
  /// A run of `length_us` of bench time, with ticks in its yields, to the click on Bt_Disconnect.
  void Run(std::int64_t length_us);

  /// The settings, which the start fills.
  [[nodiscard]] ELM327_Info& Device() { return form_.device; }

  /// The bytes of all logs, in the order in which they were written.
  [[nodiscard]] std::vector<std::string> Logs() const;

  /// What the libraries have reported so far.
  [[nodiscard]] std::string Report() const { return report_.str(); }

  [[nodiscard]] const std::vector<String>& DeviceLines() const {
    return memory_.window.Cmb_Serect_Device.Lines();
  }
  [[nodiscard]] String Page() const { return memory_.RTB_MainView.Text(); }
  [[nodiscard]] std::int32_t Pages() const { return memory_.RTB_MainView.Swaps(); }

 private:
  /// Asked once by each flush of a log, which takes its time then.
  class FlushClock final : public platform::WallClock {
   public:
    FlushClock(platform::WallClock& clock, std::int64_t& now_us, std::int64_t flush_us)
        : clock_(clock), now_us_(now_us), flush_us_(flush_us) {}
    [[nodiscard]] platform::LocalTime Now() override {
      now_us_ += flush_us_;
      return clock_.Now();
    }
    [[nodiscard]] String GeneralDate(const platform::LocalTime& time) override {
      return clock_.GeneralDate(time);
    }
    [[nodiscard]] String ShortWeekday(const platform::LocalTime& time) override {
      return clock_.ShortWeekday(time);
    }

   private:
    platform::WallClock& clock_;
    std::int64_t& now_us_;
    std::int64_t flush_us_;
  };

  [[nodiscard]] std::unique_ptr<simulator::Bench> NewBench(const char* library,
                                                           const std::string& ini);
  [[nodiscard]] platform::Platform Platform();
  void Yield();

  Pauses pauses_;
  std::int64_t now_us_ = 0;
  std::int64_t last_tick_us_ = 0;
  std::int64_t last_yield_us_ = 0;
  std::int64_t end_us_ = 0;
  std::stringbuf& report_;
  platform::memory::MemoryPlatform memory_;
  FlushClock wall_clock_{memory_.wall_clock, now_us_, pauses_.flush_us};
  simulator::CanusbBench canusbdrv_;
  simulator::IfcanBench IFCan_;
  simulator::CanlibBench canlib32_;
  Form1 form_;
};

}  // namespace tolvane::bench_run
