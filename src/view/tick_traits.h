#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "receive/tables/can_readdb.h"
#include "run/worker_kind.h"
#include "view/measured_cycle.h"

namespace tolvane {

/// Which rows of the frame table get a line, by their state. Excluded identifiers get none either
/// way.
enum class RowTest : std::uint8_t {
  kReceived,        // one frame or more
  kReceivedMany,    // two frames or more
  kEveryUsedPlace,  // whatever the state
};

/// How the ticks of the workers differ, apart from their kind of tables.
struct TickTraits {
  RowTest text_pass_rows;
  CycleType cycle;
  bool refresh;  // repaints the view right after the swap
};

/// By WorkerKind. FormBG2 shows fewer rows than it colours: the row test of the colour pass is
/// kReceived in all four.
inline constexpr std::array<TickTraits, 4> tick_traits = {{
    /* FormBG     */ {RowTest::kReceived, CycleType::kWhole, true},
    /* FormBG2    */ {RowTest::kReceivedMany, CycleType::kWhole, false},
    /* FormBG_29  */ {RowTest::kEveryUsedPlace, CycleType::kFourDecimals, false},
    /* FormBG2_29 */ {RowTest::kReceived, CycleType::kWhole, false},
}};

[[nodiscard]] constexpr const TickTraits& TickTraitsOf(WorkerKind worker) {
  return tick_traits[static_cast<std::size_t>(worker)];
}

[[nodiscard]] constexpr bool Passes(RowTest test, std::uint8_t state) {
  switch (test) {
    case RowTest::kReceived:
      return state == row_state::kMany || state == row_state::kFirst;
    case RowTest::kReceivedMany:
      return state == row_state::kMany;
    case RowTest::kEveryUsedPlace:
      break;
  }
  return true;
}

}  // namespace tolvane
