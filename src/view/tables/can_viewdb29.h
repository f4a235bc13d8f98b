#pragma once

#include <cstdint>

#include "platform/string.h"
#include "run/column.h"

namespace tolvane {

/// The positions of the coloured regions of the page and how long each stays coloured, indexed by
/// table row, not by place on the page, so that a highlight stays with its message. Positions count
/// characters of the page from 0; the fields named _end hold lengths. A counter is the remaining
/// time in nominal milliseconds; a region whose counter is 0 or below is not painted and its
/// position is stale.
class CAN_ViewDB29 : public ArayyClear {
 public:
  static constexpr std::int32_t kArayy_MAX = 4000;
  static constexpr std::int32_t kMarker_MAX = 7;
  using Rows = Column<std::int32_t, kArayy_MAX + 1>;
  using Markers = Column<std::int32_t, kMarker_MAX + 1>;

  void Param_ALL_Clear();

  String DisableID_Status_Buffer;  // foot of the page
  Rows VColorlength_d1_start, VColorlength_d2_start, VColorlength_d3_start, VColorlength_d4_start,
      VColorlength_d5_start, VColorlength_d6_start, VColorlength_d7_start, VColorlength_d8_start;
  Rows VColorlength_d1_end, VColorlength_d2_end, VColorlength_d3_end, VColorlength_d4_end,
      VColorlength_d5_end, VColorlength_d6_end, VColorlength_d7_end, VColorlength_d8_end;
  Rows VColorlength_d1_timerCounter, VColorlength_d2_timerCounter, VColorlength_d3_timerCounter,
      VColorlength_d4_timerCounter, VColorlength_d5_timerCounter, VColorlength_d6_timerCounter,
      VColorlength_d7_timerCounter, VColorlength_d8_timerCounter;
  Rows VColorlength_dt_start;
  Rows VColorlength_dt_end;
  Rows VColorlength_dt_timerCounter;  // goes below 0 on a stopped message
  Markers VColorMsgMarker_start;
  Markers VColorMsgMarker_end;
  Markers VColorMsgMarker_color;  // cleared, otherwise unused: colours come from the settings
};

}  // namespace tolvane
