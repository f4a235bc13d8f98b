#pragma once

#include <cstdint>

#include "platform/string.h"

namespace tolvane {

/// The constants of the CANUSB adapter's driver, canusbdrv.dll. The rate texts go to
/// canusb_Open; everything that no comment speaks of is declared for completeness and not used.
class CANUSB {
 public:
  /// Writes every value again. Called once, at start-up.
  void Param_ALL_Clear() { *this = CANUSB(); }

  // The bounds of identifiers, of the other adapter kinds too: see id_limits.h.
  std::int32_t CAN_MAX_STANDARD_ID = 2047;
  std::int32_t CAN_MAX_EXTENDED_ID = 536870911;

  // Timing register pairs of the adapter, an alternative to the rate texts.
  StringView CAN_BAUD_BTR_1M = u"0x00:0x14";
  StringView CAN_BAUD_BTR_500K = u"0x00:1C";
  StringView CAN_BAUD_BTR_250K = u"0x01:0x1C";
  StringView CAN_BAUD_BTR_125K = u"0x3:0x1C";
  StringView CAN_BAUD_BTR_100K = u"0x43:0x2F";
  StringView CAN_BAUD_BTR_50K = u"0x47:0x2F";
  StringView CAN_BAUD_BTR_20K = u"0x53:0x2F";
  StringView CAN_BAUD_BTR_10K = u"0x67:0x2F";
  StringView CAN_BAUD_BTR_5K = u"0x7F:0x7F";

  // Rate texts, kbit/s.
  StringView CAN_BAUD_1M = u"1000";
  StringView CAN_BAUD_800K = u"800";
  StringView CAN_BAUD_500K = u"500";  // also the rate of the version query
  StringView CAN_BAUD_250K = u"250";
  StringView CAN_BAUD_125K = u"125";
  StringView CAN_BAUD_100K = u"100";
  StringView CAN_BAUD_50K = u"50";
  StringView CAN_BAUD_20K = u"20";
  StringView CAN_BAUD_10K = u"10";

  std::int32_t CANSTATUS_RECEIVE_FIFO_FULL = 1;
  std::int32_t CANSTATUS_TRANSMIT_FIFO_FULL = 2;
  std::int32_t CANSTATUS_ERROR_WARNING = 4;
  std::int32_t CANSTATUS_DATA_OVERRUN = 8;
  std::int32_t CANSTATUS_ERROR_PASSIVE = 32;
  std::int32_t CANSTATUS_ARBITRATION_LOST = 64;
  std::int32_t CANSTATUS_BUS_ERROR = 128;

  std::int32_t ERROR_CANUSB_OK = 1;  // a read succeeds with anything above 0
  std::int32_t ERROR_CANUSB_OPEN_SUBSYSTEM = -2;
  std::int32_t ERROR_CANUSB_COMMAND_SUBSYSTEM = -3;
  std::int32_t ERROR_CANUSB_NOT_OPEN = -4;
  std::int32_t ERROR_CANUSB_TX_FIFO_FULL = -5;
  std::int32_t ERROR_CANUSB_INVALID_PARAM = -6;
  std::int32_t ERROR_CANUSB_NO_MESSAGE = -7;

  std::uint8_t CANMSG_EXTENDED = 128;  // of the record's flags
  std::uint8_t canMSG_RTR = 64;

  // Of canusb_Open.
  std::int32_t CANUSB_FLAG_TIMESTAMP = 1;
  std::int32_t CANUSB_FLAG_QUEUE_REPLACE = 2;
  std::int32_t CANUSB_ACCEPTANCE_CODE_ALL = 0;
  std::int32_t CANUSB_ACCEPTANCE_MASK_ALL = -1;

  std::uint8_t FLUSH_WAIT = 0;
  std::uint8_t FLUSH_DONTWAIT = 1;
};

}  // namespace tolvane
