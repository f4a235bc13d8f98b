#pragma once

#include <cstdint>

#include "platform/string.h"

namespace tolvane {

/// The constants of the library of the company Interface's boards, IFCan.dll, all of them 32-bit
/// words; those with bit 31 set are negative numbers here.
class InterfaceCAN {
 public:
  /// Writes every value again. Called once, at start-up.
  void Param_ALL_Clear() { *this = InterfaceCAN(); }

  /// English text of a status of the library, empty for success and for an unknown one.
  [[nodiscard]] StringView Get_Status_Message(std::int32_t status) const;

  std::int32_t CAN_NORMAL_MODE = 0;       // with acknowledge
  std::int32_t CAN_LISTEN_ONLY_MODE = 1;  // silent
  std::int32_t CAN_BAUDRATE_1M = 39;
  std::int32_t CAN_BAUDRATE_500k = 295;
  std::int32_t CAN_BAUDRATE_250k = 570;
  std::int32_t CAN_BAUDRATE_125k = 1338;
  std::int32_t CAN_BAUDRATE_100k = 2358;
  std::int32_t CAN_BAUDRATE_50k = 7459;
  std::int32_t CAN_EXT_FRAME = kBit31;   // of the ID word: an extended frame
  std::int32_t IFCAN_ERROR_SUCCESS = 0;  // of every call

  // Declared for completeness, not used.
  std::int32_t CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO12 = kBit31;
  std::int32_t CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO11 = 1 << 30;
  std::int32_t CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO10 = 1 << 29;
  std::int32_t CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO9 = 1 << 28;
  std::int32_t CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO8 = 1 << 27;
  std::int32_t CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO7 = 1 << 26;
  std::int32_t CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO6 = 1 << 25;
  std::int32_t CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO5 = 1 << 24;
  std::int32_t CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO4 = 1 << 23;
  std::int32_t CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO3 = 1 << 22;
  std::int32_t CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO2 = 1 << 21;
  std::int32_t CAN_EVENT_MULTI_CYCLIC_SEND_STOP_NO1 = 1 << 20;
  std::int32_t CAN_EVENT_TIMER_COUNTER = 524288;
  std::int32_t CAN_EVENT_TRANSCEIVER_ERROR = 4096;
  std::int32_t CAN_EVENT_ERR_FIFO_OVER = 512;
  std::int32_t CAN_EVENT_DETECT_OVERRUN = 256;
  std::int32_t CAN_EVENT_CYCLIC_SEND_STOP = 128;
  std::int32_t CAN_EVENT_BUS_STATUS = 64;
  std::int32_t CAN_EVENT_RECV = 32;
  std::int32_t CAN_EVENT_ERROR = 16;
  std::int32_t CAN_EVENT_TXB_IS_EMPTY = 8;
  std::int32_t CAN_EVENT_ERROR_LIMIT = 4;
  std::int32_t CAN_EVENT_RXB_FULL = 2;
  std::int32_t CAN_EVENT_ERB_FULL = 1;

  std::int32_t CAN_CLEAR_TXB = 32;
  std::int32_t CAN_CLEAR_RXB = 16;
  std::int32_t CAN_CLEAR_TXERR = 8;
  std::int32_t CAN_CLEAR_RXERR = 4;
  std::int32_t CAN_CLEAR_ERB = 2;
  std::int32_t CAN_CLEAR_TIMERCOUNTER = 1;

  std::int32_t CAN_FIFO_SEND_MODE = kBit31;

  std::int32_t CAN_DUAL_FILTER = 0;
  std::int32_t CAN_SINGLE_FILTER = 1;

  std::int32_t CAN_BAUDRATE_33_3k = 10020;
  std::int32_t CAN_BAUDRATE_83_3k = 3876;
  std::int32_t CAN_BAUDRATE_95_2k = 3364;
  std::int32_t CAN_BAUDRATE_BTR = kBit31;

  std::int32_t CAN_BUS_OFF = 4;
  std::int32_t CAN_BUS_PASSIVE = 2;
  std::int32_t CAN_BUS_ACTIVE = 1;

  std::int32_t CAN_MSG_RTR = 1;

  std::int32_t CAN_DETECT_BUS_ERROR = 128;
  std::int32_t CAN_DETECT_ARBITRATION_LOST = 64;
  std::int32_t CAN_IS_ERROR_PASSIVE = 32;
  std::int32_t CAN_DETECT_OVERRUN = 8;
  std::int32_t CAN_IS_ERROR_WARNING = 4;

  std::int32_t CAN_RECEIVE_FIFO = 0;
  std::int32_t CAN_ERROR_FIFO = 1;
  std::int32_t CAN_SEND_FIFO = 2;

  std::int32_t CAN_TRIGGER_1 = 0;
  std::int32_t CAN_TRIGGER_16 = 1;
  std::int32_t CAN_TRIGGER_32 = 2;
  std::int32_t CAN_TRIGGER_48 = 3;

  std::int32_t CAN_PHYSICALLAYER_LOWSPEED = 0;
  std::int32_t CAN_PHYSICALLAYER_HIGHSPEED = 1;

  std::int32_t CAN_ROUTE_1_3 = 1;
  std::int32_t CAN_ROUTE_4_6 = 2;
  std::int32_t CAN_ROUTE_7_9 = 3;
  std::int32_t CAN_ROUTE_10_12 = 4;

  std::int32_t CAN_TIMER_START = 1;
  std::int32_t CAN_TIMER_STOP = 2;
  std::int32_t CAN_TIMER_CLEAR = 4;

  std::int32_t CAN_SYNC_NUM_1 = 1;
  std::int32_t CAN_SYNC_DISABLE = 0;
  std::int32_t CAN_SYNC_RECV = 1;

  std::int32_t CAN_PORT_INFORMATION_LENGTH = 36;

  // Failures, with the texts of Get_Status_Message.
  std::int32_t IFCAN_ERROR_NOT_READY = kFailure + 1;
  std::int32_t IFCAN_ERROR_ACCESS_DENIED = kFailure + 2;
  std::int32_t IFCAN_ERROR_INVALID_PARAMETER = kFailure + 3;
  std::int32_t IFCAN_ERROR_INSUFFICIENT_BUFFER = kFailure + 4;
  std::int32_t IFCAN_ERROR_NOT_OPEN = kFailure + 5;
  std::int32_t IFCAN_ERROR_MEMORY_NOTALLOCATED = kFailure + 6;
  std::int32_t IFCAN_ERROR_BUFFER_IS_FULL = kFailure + 7;
  std::int32_t IFCAN_ERROR_BUFFER_IS_EMPTY = kFailure + 8;
  std::int32_t IFCAN_ERROR_CANNOT_ACCESS = kFailure + 9;
  std::int32_t IFCAN_ERROR_INVALID_HANDLE = kFailure + 10;
  std::int32_t IFCAN_ERROR_NOT_SUPPORTED = kFailure + 11;
  std::int32_t IFCAN_ERROR_NOW_SENDING = kFailure + 12;
  std::int32_t IFCAN_ERROR_USB_TIMEOUT = kFailure + 13;
  std::int32_t IFCAN_ERROR_USBIO_FAILED = kFailure + 14;

 private:
  static constexpr std::int32_t kBit31 = INT32_MIN;
  static constexpr std::int32_t kFailure = INT32_MIN + 0x40000000;  // 0xC0000000
};

static_assert(sizeof(InterfaceCAN) == 90 * sizeof(std::int32_t));

}  // namespace tolvane
