// A vendor's library, a driver or a spreadsheet program's interface may leave the x87 unit
// computing otherwise than it found it, in any call.
#include <gtest/gtest.h>

#include <cstdint>

#include "tests/receive/run_bench.h"

namespace tolvane {
namespace {

std::uint16_t ControlWord() {
  std::uint16_t control = 0;
  asm volatile("fnstcw %0" : "=m"(control));
  return control;
}

void ControlWord(std::uint16_t control) { asm volatile("fldcw %0" : : "m"(control)); }

// Control words, every exception masked.
constexpr std::uint16_t kMantissaOf53Bits = 0x027F;
constexpr std::uint16_t kMantissaOf24Bits = 0x007F;
constexpr std::uint16_t kTowardZero = 0x0F7F;

class AdapterPrecision : public testing::TestWithParam<std::uint16_t> {
 protected:
  ~AdapterPrecision() override { ControlWord(before_); }

 private:
  const std::uint16_t before_ = ControlWord();
};

TEST_P(AdapterPrecision, ChangedInEachReadItChangesNoSum) {
  for (const AdapterKind binding : kAllBindings) {
    RunBench bench;
    const auto spoil = [] { ControlWord(GetParam()); };
    bench.canusbdrv.frames.OnTake(spoil);
    bench.IFCan.frames.OnTake(spoil);
    bench.canlib32.frames.OnTake(spoil);
    bench.device.t_dividend_ratio = 0.7;
    bench.Run(binding, WorkerKind::FormBG,
              {{.id = 1}, {.id = 2, .time = 1}, {.id = 3, .time = 13}});
    EXPECT_EQ(bench.workers.FormBG_tables.frames->CAN11_ReceivedTime(3), 9.1)
        << WayName(binding, WorkerKind::FormBG);
  }
}

TEST(RunPrecision, ASupportLibraryThatChangesItChangesNoSumOfTheComputersClock) {
  const std::uint16_t before = ControlWord();
  RunBench bench;
  double now = 0.0;
  bench.qxt100.OnRead([&] {
    ControlWord(kMantissaOf24Bits);
    bench.qxt100.Now(now);
    now += 33'554'433.0;  // more than 24 bits hold
  });
  bench.device.t_Timer_Mode = 1;
  bench.Run(AdapterKind::kCanusb, WorkerKind::FormBG, {{.id = 1}, {.id = 2}});
  ControlWord(before);
  // The clock is read twice for each frame.
  EXPECT_EQ(bench.workers.FormBG_tables.frames->CAN11_ReceivedTime(2), 2 * 33'554'433.0);
}

INSTANTIATE_TEST_SUITE_P(Foreign, AdapterPrecision,
                         testing::Values(kMantissaOf53Bits, kMantissaOf24Bits, kTowardZero));

}  // namespace
}  // namespace tolvane
