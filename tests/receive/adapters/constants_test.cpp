// The values that the program uses are held by the tests of what it does with them; here stand
// those that are only declared.
#include <gtest/gtest.h>

#include <cstdint>

#include "receive/adapters/can_db.h"
#include "receive/adapters/can_db_interface.h"
#include "receive/adapters/can_db_kvaser.h"
#include "receive/adapters/canusb.h"
#include "receive/adapters/interfacecan.h"

namespace tolvane {
namespace {

TEST(CanusbConstants, HoldTheDriversValuesAfterAClear) {
  CANUSB CAN_u;
  CAN_u.CAN_BAUD_500K = u"changed";
  CAN_u.CANUSB_FLAG_TIMESTAMP = 99;
  CAN_u.Param_ALL_Clear();
  EXPECT_EQ(CAN_u.CAN_MAX_STANDARD_ID, 2047);
  EXPECT_EQ(CAN_u.CAN_MAX_EXTENDED_ID, 536870911);
  EXPECT_EQ(CAN_u.CAN_BAUD_BTR_1M, u"0x00:0x14");
  EXPECT_EQ(CAN_u.CAN_BAUD_BTR_500K, u"0x00:1C");
  EXPECT_EQ(CAN_u.CAN_BAUD_BTR_250K, u"0x01:0x1C");
  EXPECT_EQ(CAN_u.CAN_BAUD_BTR_125K, u"0x3:0x1C");
  EXPECT_EQ(CAN_u.CAN_BAUD_BTR_100K, u"0x43:0x2F");
  EXPECT_EQ(CAN_u.CAN_BAUD_BTR_50K, u"0x47:0x2F");
  EXPECT_EQ(CAN_u.CAN_BAUD_BTR_20K, u"0x53:0x2F");
  EXPECT_EQ(CAN_u.CAN_BAUD_BTR_10K, u"0x67:0x2F");
  EXPECT_EQ(CAN_u.CAN_BAUD_BTR_5K, u"0x7F:0x7F");
  EXPECT_EQ(CAN_u.CAN_BAUD_500K, u"500") << "cleared";
  EXPECT_EQ(CAN_u.CANSTATUS_RECEIVE_FIFO_FULL, 1);
  EXPECT_EQ(CAN_u.CANSTATUS_TRANSMIT_FIFO_FULL, 2);
  EXPECT_EQ(CAN_u.CANSTATUS_ERROR_WARNING, 4);
  EXPECT_EQ(CAN_u.CANSTATUS_DATA_OVERRUN, 8);
  EXPECT_EQ(CAN_u.CANSTATUS_ERROR_PASSIVE, 32);
  EXPECT_EQ(CAN_u.CANSTATUS_ARBITRATION_LOST, 64);
  EXPECT_EQ(CAN_u.CANSTATUS_BUS_ERROR, 128);
  EXPECT_EQ(CAN_u.ERROR_CANUSB_OK, 1);
  EXPECT_EQ(CAN_u.ERROR_CANUSB_OPEN_SUBSYSTEM, -2);
  EXPECT_EQ(CAN_u.ERROR_CANUSB_COMMAND_SUBSYSTEM, -3);
  EXPECT_EQ(CAN_u.ERROR_CANUSB_NOT_OPEN, -4);
  EXPECT_EQ(CAN_u.ERROR_CANUSB_TX_FIFO_FULL, -5);
  EXPECT_EQ(CAN_u.ERROR_CANUSB_INVALID_PARAM, -6);
  EXPECT_EQ(CAN_u.ERROR_CANUSB_NO_MESSAGE, -7);
  EXPECT_EQ(CAN_u.CANMSG_EXTENDED, 128);
  EXPECT_EQ(CAN_u.canMSG_RTR, 64);
  EXPECT_EQ(CAN_u.CANUSB_FLAG_TIMESTAMP, 1) << "cleared";
  EXPECT_EQ(CAN_u.CANUSB_FLAG_QUEUE_REPLACE, 2);
  EXPECT_EQ(CAN_u.FLUSH_WAIT, 0);
  EXPECT_EQ(CAN_u.FLUSH_DONTWAIT, 1);
}

TEST(InterfaceConstants, HoldTheLibrarysValuesAfterAClear) {
  InterfaceCAN IfCan_u;
  IfCan_u.CAN_BAUDRATE_500k = 99;
  IfCan_u.Param_ALL_Clear();
  EXPECT_EQ(IfCan_u.CAN_BAUDRATE_500k, 295) << "cleared";
  EXPECT_EQ(IfCan_u.CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO12, INT32_MIN);
  EXPECT_EQ(IfCan_u.CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO11, 1073741824);
  EXPECT_EQ(IfCan_u.CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO10, 536870912);
  EXPECT_EQ(IfCan_u.CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO9, 268435456);
  EXPECT_EQ(IfCan_u.CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO8, 134217728);
  EXPECT_EQ(IfCan_u.CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO7, 67108864);
  EXPECT_EQ(IfCan_u.CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO6, 33554432);
  EXPECT_EQ(IfCan_u.CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO5, 16777216);
  EXPECT_EQ(IfCan_u.CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO4, 8388608);
  EXPECT_EQ(IfCan_u.CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO3, 4194304);
  EXPECT_EQ(IfCan_u.CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO2, 2097152);
  EXPECT_EQ(IfCan_u.CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO1, 1048576);
  EXPECT_EQ(IfCan_u.CAN_EVENT_TIMER_COUNTER, 524288);
  EXPECT_EQ(IfCan_u.CAN_EVENT_TRANSCEIVER_ERROR, 4096);
  EXPECT_EQ(IfCan_u.CAN_EVENT_ERR_FIFO_OVER, 512);
  EXPECT_EQ(IfCan_u.CAN_EVENT_DETECT_OVERRUN, 256);
  EXPECT_EQ(IfCan_u.CAN_EVENT_CYCLIC_SEND_STOP, 128);
  EXPECT_EQ(IfCan_u.CAN_EVENT_BUS_STATUS, 64);
  EXPECT_EQ(IfCan_u.CAN_EVENT_RECV, 32);
  EXPECT_EQ(IfCan_u.CAN_EVENT_ERROR, 16);
  EXPECT_EQ(IfCan_u.CAN_EVENT_TXB_IS_EMPTY, 8);
  EXPECT_EQ(IfCan_u.CAN_EVENT_ERROR_LIMIT, 4);
  EXPECT_EQ(IfCan_u.CAN_EVENT_RXB_FULL, 2);
  EXPECT_EQ(IfCan_u.CAN_EVENT_ERB_FULL, 1);
  EXPECT_EQ(IfCan_u.CAN_CLEAR_TXB, 32);
  EXPECT_EQ(IfCan_u.CAN_CLEAR_RXB, 16);
  EXPECT_EQ(IfCan_u.CAN_CLEAR_TXERR, 8);
  EXPECT_EQ(IfCan_u.CAN_CLEAR_RXERR, 4);
  EXPECT_EQ(IfCan_u.CAN_CLEAR_ERB, 2);
  EXPECT_EQ(IfCan_u.CAN_CLEAR_TIMERCOUNTER, 1);
  EXPECT_EQ(IfCan_u.CAN_FIFO_SEND_MODE, INT32_MIN);
  EXPECT_EQ(IfCan_u.CAN_DUAL_FILTER, 0);
  EXPECT_EQ(IfCan_u.CAN_SINGLE_FILTER, 1);
  EXPECT_EQ(IfCan_u.CAN_BAUDRATE_33_3k, 10020);
  EXPECT_EQ(IfCan_u.CAN_BAUDRATE_83_3k, 3876);
  EXPECT_EQ(IfCan_u.CAN_BAUDRATE_95_2k, 3364);
  EXPECT_EQ(IfCan_u.CAN_BAUDRATE_BTR, INT32_MIN);
  EXPECT_EQ(IfCan_u.CAN_BUS_OFF, 4);
  EXPECT_EQ(IfCan_u.CAN_BUS_PASSIVE, 2);
  EXPECT_EQ(IfCan_u.CAN_BUS_ACTIVE, 1);
  EXPECT_EQ(IfCan_u.CAN_MSG_RTR, 1);
  EXPECT_EQ(IfCan_u.CAN_DETECT_BUS_ERROR, 128);
  EXPECT_EQ(IfCan_u.CAN_DETECT_ARBITRATION_LOST, 64);
  EXPECT_EQ(IfCan_u.CAN_IS_ERROR_PASSIVE, 32);
  EXPECT_EQ(IfCan_u.CAN_DETECT_OVERRUN, 8);
  EXPECT_EQ(IfCan_u.CAN_IS_ERROR_WARNING, 4);
  EXPECT_EQ(IfCan_u.CAN_RECEIVE_FIFO, 0);
  EXPECT_EQ(IfCan_u.CAN_ERROR_FIFO, 1);
  EXPECT_EQ(IfCan_u.CAN_SEND_FIFO, 2);
  EXPECT_EQ(IfCan_u.CAN_TRIGGER_1, 0);
  EXPECT_EQ(IfCan_u.CAN_TRIGGER_16, 1);
  EXPECT_EQ(IfCan_u.CAN_TRIGGER_32, 2);
  EXPECT_EQ(IfCan_u.CAN_TRIGGER_48, 3);
  EXPECT_EQ(IfCan_u.CAN_PHYSICALLAYER_LOWSPEED, 0);
  EXPECT_EQ(IfCan_u.CAN_PHYSICALLAYER_HIGHSPEED, 1);
  EXPECT_EQ(IfCan_u.CAN_ROUTE_1_3, 1);
  EXPECT_EQ(IfCan_u.CAN_ROUTE_4_6, 2);
  EXPECT_EQ(IfCan_u.CAN_ROUTE_7_9, 3);
  EXPECT_EQ(IfCan_u.CAN_ROUTE_10_12, 4);
  EXPECT_EQ(IfCan_u.CAN_TIMER_START, 1);
  EXPECT_EQ(IfCan_u.CAN_TIMER_STOP, 2);
  EXPECT_EQ(IfCan_u.CAN_TIMER_CLEAR, 4);
  EXPECT_EQ(IfCan_u.CAN_SYNC_NUM_1, 1);
  EXPECT_EQ(IfCan_u.CAN_SYNC_DISABLE, 0);
  EXPECT_EQ(IfCan_u.CAN_SYNC_RECV, 1);
  EXPECT_EQ(IfCan_u.CAN_PORT_INFORMATION_LENGTH, 36);
}

TEST(CanusbRecord, StartsWithNothingFound) {
  CAN_DB CAN_d;
  CAN_d.CAN_USB_FindCount = 2;
  CAN_d.CAN_USB_FindCount_MAX = 2;
  CAN_d.CAN_USB_SelectNo = 2;
  CAN_d.CAN_USB_SelectSerial = u"serial";
  CAN_d.CAN_USB_Handle = 2;
  CAN_d.CAN_USB_Version = u"version";
  CAN_d.CAN_USB_FindSerialNo(0, u"first");
  CAN_d.CAN_USB_FindSerialNo(30, u"last");
  CAN_d.Param_ALL_Clear();
  EXPECT_EQ(CAN_d.CAN_USB_FindCount, 0);
  EXPECT_EQ(CAN_d.CAN_USB_FindCount_MAX, 30);
  EXPECT_EQ(CAN_d.CAN_USB_SelectNo, 0);
  EXPECT_EQ(CAN_d.CAN_USB_SelectSerial, u"");
  EXPECT_EQ(CAN_d.CAN_USB_Handle, 0);
  EXPECT_EQ(CAN_d.CAN_USB_Version, u"");
  EXPECT_EQ(CAN_d.CAN_USB_FindSerialNo(0), u"");
  EXPECT_EQ(CAN_d.CAN_USB_FindSerialNo(30), u"");
}

TEST(InterfaceRecord, StartsWithNothingFoundAndHandleTextZero) {
  CAN_DB_Interface IfCan_d;
  IfCan_d.Interface_CAN_FindCount = 2;
  IfCan_d.Interface_CAN_FindCount_MAX = 2;
  IfCan_d.Interface_CAN_SelectNo = 2;
  IfCan_d.Interface_CAN_Handle = u"-1";
  IfCan_d.Interface_CAN_FindNo(255, 3);
  IfCan_d.IfCAN_info_ulPhysicalLayer(255, 1);
  IfCan_d.Param_ALL_Clear();
  EXPECT_EQ(IfCan_d.Interface_CAN_FindCount, 0);
  EXPECT_EQ(IfCan_d.Interface_CAN_FindCount_MAX, 255);
  EXPECT_EQ(IfCan_d.Interface_CAN_SelectNo, 0);
  EXPECT_EQ(IfCan_d.Interface_CAN_Handle, u"0");
  EXPECT_EQ(IfCan_d.Interface_CAN_FindNo(255), 0);
  EXPECT_EQ(IfCan_d.IfCAN_info_ulPhysicalLayer(255), 0);
}

TEST(KvaserRecord, StartsWithNothingFoundAndHandleTextZero) {
  CAN_DB_Kvaser kvCan_d;
  kvCan_d.Kvaser_FindCount = 2;
  kvCan_d.Kvaser_FindCount_MAX = 2;
  kvCan_d.KvCAN_SelectNo = 2;
  kvCan_d.KvCAN_Handle = u"5";
  kvCan_d.Kvaser_DevHandle(30, 3);
  kvCan_d.Kvaser_DevChannel(30, 3);
  kvCan_d.Kvaser_DevdName(0, u"name");
  kvCan_d.Param_ALL_Clear();
  EXPECT_EQ(kvCan_d.Kvaser_FindCount, 0);
  EXPECT_EQ(kvCan_d.Kvaser_FindCount_MAX, 30);
  EXPECT_EQ(kvCan_d.KvCAN_SelectNo, 0);
  EXPECT_EQ(kvCan_d.KvCAN_Handle, u"0");
  EXPECT_EQ(kvCan_d.Kvaser_DevHandle(30), 0);
  EXPECT_EQ(kvCan_d.Kvaser_DevChannel(30), 0);
  EXPECT_EQ(kvCan_d.Kvaser_DevdName(0), u"");
}

}  // namespace
}  // namespace tolvane
