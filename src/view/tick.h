#pragma once

#include <cstdint>

#include "run/elm327_info.h"
#include "run/worker_kind.h"
#include "view/back_page.h"
#include "view/tables/stringbuilder.h"
#include "view/tick_parts.h"

namespace tolvane {

inline constexpr std::int32_t kViewInterval = 30;  // ms between two ticks of TimerBackView

/// One worker's view of its frame table: composes the page, colours it and swaps it into
/// RTB_MainView at each tick of the timer. Two pages and one text buffer are reused, so in the
/// steady state a tick allocates nothing.
template <typename Table>
class Tick {
 public:
  using ViewTable = typename ViewTableOf<Table>::Type;

  Tick(WorkerKind worker, const TickParts& parts, Table& frames, ViewTable& highlights);

  /// Takes the memory of a page's text, ahead of a run.
  void TakeMemory() { text_.TakeMemory(); }

  /// One tick, by the settings of the run. Yields five times in an 11-bit scan, in an extended one
  /// once for every 400 keys begun; the timer is off meanwhile, so that no second tick nests, and
  /// stays off when the run has ended.
  void TimerBackView_Timer(const ELM327_Info& device);

 private:
  WorkerKind worker_;
  TickParts parts_;
  Table& frames_;
  ViewTable& highlights_;
  StringBuilder text_;
  BackPage RTB_MainView_Back_;
};

extern template class Tick<CAN_ReadDB>;
extern template class Tick<CAN_ReadDB29>;

}  // namespace tolvane
