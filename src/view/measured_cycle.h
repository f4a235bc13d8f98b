#pragma once

#include <cstdint>

#include "run/column.h"
#include "run/number_text.h"

namespace tolvane {

/// How the difference of two message times becomes a cycle.
enum class CycleType : std::uint8_t { kWhole, kFourDecimals };

/// `difference`, in ms, rounded with halves to even. A value out of range becomes the nearest
/// bound, which for a whole-number cycle is a whole number too. NaN becomes the lowest bound.
[[nodiscard]] Currency MeasuredCycle(double difference, CycleType type);

/// A negative cycle means that the adapter's counter has wrapped: adds the wrap length for
/// Device_Timer_Kind.
[[nodiscard]] Currency WrapRepaired(Currency cycle, std::int32_t Device_Timer_Kind);

/// The cycle in ms, as the frame table stores it.
[[nodiscard]] constexpr double StoredCycle(Currency cycle) {
  return static_cast<double>(cycle.ten_thousandths) / 10000.0;
}

/// Text of a stored cycle, which has at most four decimals.
[[nodiscard]] ShortText StoredCycleText(double stored);

}  // namespace tolvane
