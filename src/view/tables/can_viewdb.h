#pragma once

#include <cstdint>

#include "platform/string.h"
#include "run/column.h"

namespace tolvane {

/// The positions of the coloured regions of the page and how long each stays coloured, indexed by
/// CAN ID. Positions count characters of the page from 0; the fields named _end hold lengths. A
/// counter is the remaining time in nominal milliseconds; a region whose counter is 0 or below is
/// not painted and its position is stale.
class CAN_ViewDB : public ArayyClear {
 public:
  static constexpr std::int32_t kArayy_MAX = 2048;
  static constexpr std::int32_t kMarker_MAX = 7;
  using Rows = Column<std::int32_t, kArayy_MAX + 1>;
  using Markers = Column<std::int32_t, kMarker_MAX + 1>;

  void Param_ALL_Clear();

  String DisableID_Status_Buffer;  // foot of the page
  Rows ViewColorlength_d1_start, ViewColorlength_d2_start, ViewColorlength_d3_start,
      ViewColorlength_d4_start, ViewColorlength_d5_start, ViewColorlength_d6_start,
      ViewColorlength_d7_start, ViewColorlength_d8_start;
  Rows ViewColorlength_d1_end, ViewColorlength_d2_end, ViewColorlength_d3_end,
      ViewColorlength_d4_end, ViewColorlength_d5_end, ViewColorlength_d6_end,
      ViewColorlength_d7_end, ViewColorlength_d8_end;
  Rows ViewColorlength_d1_timerCounter, ViewColorlength_d2_timerCounter,
      ViewColorlength_d3_timerCounter, ViewColorlength_d4_timerCounter,
      ViewColorlength_d5_timerCounter, ViewColorlength_d6_timerCounter,
      ViewColorlength_d7_timerCounter, ViewColorlength_d8_timerCounter;
  Rows ViewColorlength_dt_start;
  Rows ViewColorlength_dt_end;
  Rows ViewColorlength_dt_timerCounter;  // goes below 0 on a stopped message
  Markers ViewColorMsgMarker_start;
  Markers ViewColorMsgMarker_end;
  Markers ViewColorMsgMarker_color;  // cleared, otherwise unused: colours come from the settings
};

}  // namespace tolvane
