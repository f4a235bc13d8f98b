#include "view/tables/can_viewdb.h"

namespace tolvane {

void CAN_ViewDB::Param_ALL_Clear() {
  DisableID_Status_Buffer.clear();
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d1_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d2_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d3_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d4_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d5_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d6_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d7_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d8_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d1_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d2_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d3_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d4_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d5_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d6_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d7_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d8_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d1_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d2_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d3_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d4_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d5_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d6_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d7_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_d8_timerCounter);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_dt_start);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_dt_end);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, ViewColorlength_dt_timerCounter);
  Arayy_ALL_Clear_zero_long(kMarker_MAX, ViewColorMsgMarker_start);
  Arayy_ALL_Clear_zero_long(kMarker_MAX, ViewColorMsgMarker_end);
  Arayy_ALL_Clear_zero_long(kMarker_MAX, ViewColorMsgMarker_color);
}

}  // namespace tolvane
