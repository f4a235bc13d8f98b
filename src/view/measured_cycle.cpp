#include "view/measured_cycle.h"

#include "run/adapter_kind.h"

namespace tolvane {

namespace {

constexpr std::int64_t kOne = 10000;                            // ten-thousandths
constexpr std::int64_t kLargestWhole = 922'337'203'685'477;     // ms
constexpr std::int64_t kFifteenDigits = 1'000'000'000'000'000;  // ten-thousandths

std::int64_t WholeNumber(double value) {
  const double rounded = RoundHalfToEven(value);
  if (!(rounded > -static_cast<double>(kLargestWhole))) return -kLargestWhole;
  if (rounded >= static_cast<double>(kLargestWhole)) return kLargestWhole;
  return static_cast<std::int64_t>(rounded);
}

}  // namespace

Currency MeasuredCycle(double difference, CycleType type) {
  if (type == CycleType::kFourDecimals) return ToCurrency(difference);
  return {WholeNumber(difference) * kOne};
}

Currency WrapRepaired(Currency cycle, std::int32_t Device_Timer_Kind) {
  if (cycle.ten_thousandths >= 0) return cycle;
  return {cycle.ten_thousandths + TimerWrap(Device_Timer_Kind) * kOne};
}

ShortText StoredCycleText(double stored) {
  // Up to fifteen digits both forms give the same text, and the fixed-point one is faster.
  const Currency cycle = ToCurrency(stored);
  if (cycle.ten_thousandths > -kFifteenDigits && cycle.ten_thousandths < kFifteenDigits) {
    return DecimalText(cycle);
  }
  return DecimalText(stored);
}

}  // namespace tolvane
