#include "receive/tables/can_readdb29.h"

namespace tolvane {

void CAN_ReadDB29::Param_ALL_Clear() {
  CAN29_Received_ID_Counter = 0;
  CAN29_Received_ID_Counter_MAX = kArayy_MAX;
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Received);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, CAN29_Received_ID);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_ExtendFlag);
  Arayy_ALL_Clear_zero_long(kArayy_MAX, CAN29_ArrayNo);
  Arayy_ALL_Clear_zero_double(kArayy_MAX, CAN29_ReceivedTime);
  Arayy_ALL_Clear_zero_double(kArayy_MAX, CAN29_ReceivedTime_old);
  Arayy_ALL_Clear_zero_double(kArayy_MAX, CAN29_ReceivedTime_Delta);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_ReceivedTime_writting);
  Arayy_ALL_Clear_zero_double(kArayy_MAX, CAN29_ReadTime_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_BlackoutON);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_DLC);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data1);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data2);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data3);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data4);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data5);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data6);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data7);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data8);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data1_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data2_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data3_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data4_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data5_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data6_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data7_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN29_Data8_old);
}

}  // namespace tolvane
