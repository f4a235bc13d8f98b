#include "receive/tables/can_readdb.h"

namespace tolvane {

void CAN_ReadDB::Param_ALL_Clear() {
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Received);
  Arayy_ALL_Clear_zero_double(kArayy_MAX, CAN11_ReceivedTime);
  Arayy_ALL_Clear_zero_double(kArayy_MAX, CAN11_ReceivedTime_old);
  Arayy_ALL_Clear_zero_double(kArayy_MAX, CAN11_ReceivedTime_Delta);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_ReceivedTime_writting);
  Arayy_ALL_Clear_zero_double(kArayy_MAX, CAN11_ReadTime);
  Arayy_ALL_Clear_zero_double(kArayy_MAX, CAN11_ReadTime_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_BlackoutON);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_DLC);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data1);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data2);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data3);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data4);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data5);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data6);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data7);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data8);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data1_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data2_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data3_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data4_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data5_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data6_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data7_old);
  Arayy_ALL_Clear_zero_byte(kArayy_MAX, CAN11_Data8_old);
}

}  // namespace tolvane
