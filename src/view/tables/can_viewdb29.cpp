#include "view/tables/can_viewdb29.h"

namespace tolvane {

void CAN_ViewDB29::Param_ALL_Clear() {
  DisableID_Status_Buffer.clear();
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d1_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d2_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d3_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d4_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d5_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d6_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d7_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d8_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d1_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d2_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d3_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d4_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d5_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d6_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d7_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d8_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d1_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d2_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d3_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d4_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d5_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d6_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d7_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_d8_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_dt_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_dt_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, VColorlength_dt_timerCounter);
  Arayy_ALL_Clear_zero_long(kMarker_MAX, VColorMsgMarker_start);
  Arayy_ALL_Clear_zero_long(kMarker_MAX, VColorMsgMarker_end);
  Arayy_ALL_Clear_zero_long(kMarker_MAX, VColorMsgMarker_color);
}

}  // namespace tolvane
