#pragma once

#include <cstdint>

namespace tolvane {

/// The published constants of Kvaser's library, canlib32.dll. Used are the rates, the two driver
/// types, canMSG_STD and canMSG_EXT, canOPEN_REQUIRE_INIT_ACCESS, canOK, and the four items of
/// canGetChannelData named in the search of adapters. The canMODE_ family and single members of
/// other families are left out; nothing uses them.
class KvaserCAN {
 public:
  /// Writes every value again. Called once, at start-up.
  void Param_ALL_Clear() { *this = KvaserCAN(); }

  std::int32_t canBITRATE_1M = -1;
  std::int32_t canBITRATE_500K = -2;
  std::int32_t canBITRATE_250K = -3;
  std::int32_t canBITRATE_125K = -4;
  std::int32_t canBITRATE_100K = -5;
  std::int32_t canBITRATE_50K = -7;
  std::int32_t canBITRATE_10K = -9;

  std::int32_t canDRIVER_NORMAL = 4;
  std::int32_t canDRIVER_SILENT = 1;
  std::int32_t canDRIVER_SELFRECEPTION = 8;
  std::int32_t canDRIVER_OFF = 0;

  std::int32_t canMSG_RTR = 1;
  std::int32_t canMSG_STD = 2;
  std::int32_t canMSG_EXT = 4;
  std::int32_t canMSG_WAKEUP = 8;
  std::int32_t canMSG_NERR = 0x10;
  std::int32_t canMSG_ERROR_FRAME = 0x20;
  std::int32_t canMSG_TXACK = 0x40;
  std::int32_t canMSG_TXRQ = 0x80;

  std::int32_t canFDMSG_EDL = 0x10000;
  std::int32_t canFDMSG_BRS = 0x20000;
  std::int32_t canFDMSG_ESI = 0x40000;

  std::int32_t canOPEN_EXCLUSIVE = 8;
  std::int32_t canOPEN_REQUIRE_EXTENDED = 0x10;
  std::int32_t canOPEN_ACCEPT_VIRTUAL = 0x20;
  std::int32_t canOPEN_OVERRIDE_EXCLUSIVE = 0x40;
  std::int32_t canOPEN_REQUIRE_INIT_ACCESS = 0x80;
  std::int32_t canOPEN_NO_INIT_ACCESS = 0x100;
  std::int32_t canOPEN_ACCEPT_LARGE_DLC = 0x200;
  std::int32_t canOPEN_CAN_FD = 0x400;
  std::int32_t canOPEN_CAN_FD_NONISO = 0x800;

  std::int32_t canSTAT_ERROR_PASSIVE = 1;
  std::int32_t canSTAT_BUS_OFF = 2;
  std::int32_t canSTAT_ERROR_WARNING = 4;
  std::int32_t canSTAT_ERROR_ACTIVE = 8;
  std::int32_t canSTAT_TX_PENDING = 0x10;
  std::int32_t canSTAT_RX_PENDING = 0x20;
  std::int32_t canSTAT_TXERR = 0x80;
  std::int32_t canSTAT_RXERR = 0x100;
  std::int32_t canSTAT_HW_OVERRUN = 0x200;
  std::int32_t canSTAT_SW_OVERRUN = 0x400;

  std::int32_t canNOTIFY_RX = 1;
  std::int32_t canNOTIFY_TX = 2;
  std::int32_t canNOTIFY_ERROR = 4;
  std::int32_t canNOTIFY_STATUS = 8;
  std::int32_t canNOTIFY_ENVVAR = 0x10;

  std::int32_t canEVENT_RX = 32000;
  std::int32_t canEVENT_TX = 32001;
  std::int32_t canEVENT_ERROR = 32002;
  std::int32_t canEVENT_STATUS = 32003;
  std::int32_t canEVENT_ENVVAR = 32004;

  std::int32_t canMSGERR_HW_OVERRUN = 0x200;
  std::int32_t canMSGERR_SW_OVERRUN = 0x400;
  std::int32_t canMSGERR_STUFF = 0x800;
  std::int32_t canMSGERR_FORM = 0x1000;
  std::int32_t canMSGERR_CRC = 0x2000;
  std::int32_t canMSGERR_BIT0 = 0x4000;
  std::int32_t canMSGERR_BIT1 = 0x8000;
  std::int32_t canMSGERR_OVERRUN = 0x600;
  std::int32_t canMSGERR_BIT = 0xC000;
  std::int32_t canMSGERR_BUSERR = 0xF800;

  std::int32_t canTRANSCEIVER_TYPE_UNKNOWN = 0;
  std::int32_t canTRANSCEIVER_TYPE_251 = 1;
  std::int32_t canTRANSCEIVER_TYPE_252 = 2;
  std::int32_t canTRANSCEIVER_TYPE_DNOPTO = 3;
  std::int32_t canTRANSCEIVER_TYPE_W210 = 4;
  std::int32_t canTRANSCEIVER_TYPE_SWC_PROTO = 5;
  std::int32_t canTRANSCEIVER_TYPE_SWC = 6;
  std::int32_t canTRANSCEIVER_TYPE_EVA = 7;
  std::int32_t canTRANSCEIVER_TYPE_FIBER = 8;
  std::int32_t canTRANSCEIVER_TYPE_K251 = 9;
  std::int32_t canTRANSCEIVER_TYPE_K = 10;
  std::int32_t canTRANSCEIVER_TYPE_1054_OPTO = 11;
  std::int32_t canTRANSCEIVER_TYPE_SWC_OPTO = 12;
  std::int32_t canTRANSCEIVER_TYPE_TT = 13;
  std::int32_t canTRANSCEIVER_TYPE_1050 = 14;
  std::int32_t canTRANSCEIVER_TYPE_1050_OPTO = 15;
  std::int32_t canTRANSCEIVER_TYPE_1041 = 16;
  std::int32_t canTRANSCEIVER_TYPE_1041_OPTO = 17;
  std::int32_t canTRANSCEIVER_TYPE_RS485 = 18;
  std::int32_t canTRANSCEIVER_TYPE_LIN = 19;
  std::int32_t canTRANSCEIVER_TYPE_KONE = 20;
  std::int32_t canTRANSCEIVER_LINEMODE_NA = 0;
  std::int32_t canTRANSCEIVER_LINEMODE_SWC_SLEEP = 4;
  std::int32_t canTRANSCEIVER_LINEMODE_SWC_NORMAL = 5;
  std::int32_t canTRANSCEIVER_LINEMODE_SWC_FAST = 6;
  std::int32_t canTRANSCEIVER_LINEMODE_SWC_WAKEUP = 7;
  std::int32_t canTRANSCEIVER_LINEMODE_SLEEP = 8;
  std::int32_t canTRANSCEIVER_LINEMODE_NORMAL = 9;
  std::int32_t canTRANSCEIVER_LINEMODE_STDBY = 10;
  std::int32_t canTRANSCEIVER_LINEMODE_TT_CAN_H = 11;
  std::int32_t canTRANSCEIVER_LINEMODE_TT_CAN_L = 12;
  std::int32_t canTRANSCEIVER_LINEMODE_OEM1 = 13;
  std::int32_t canTRANSCEIVER_LINEMODE_OEM2 = 14;
  std::int32_t canTRANSCEIVER_LINEMODE_OEM3 = 15;
  std::int32_t canTRANSCEIVER_LINEMODE_OEM4 = 16;
  std::int32_t canTRANSCEIVER_RESNET_NA = 0;
  std::int32_t canTRANSCEIVER_RESNET_MASTER = 1;
  std::int32_t canTRANSCEIVER_RESNET_MASTER_STBY = 2;
  std::int32_t canTRANSCEIVER_RESNET_SLAVE = 3;

  std::int32_t canOK = 0;
  std::int32_t canERR_PARAM = -1;
  std::int32_t canERR_NOMSG = -2;
  std::int32_t canERR_NOTFOUND = -3;
  std::int32_t canERR_NOMEM = -4;
  std::int32_t canERR_NOCHANNELS = -5;
  std::int32_t canERR_INTERRUPTED = -6;
  std::int32_t canERR_TIMEOUT = -7;
  std::int32_t canERR_NOTINITIALIZED = -8;
  std::int32_t canERR_NOHANDLES = -9;
  std::int32_t canERR_INVHANDLE = -10;
  std::int32_t canERR_INIFILE = -11;
  std::int32_t canERR_DRIVER = -12;
  std::int32_t canERR_TXBUFOFL = -13;
  std::int32_t canERR_HARDWARE = -15;
  std::int32_t canERR_DYNALOAD = -16;
  std::int32_t canERR_DYNALIB = -17;
  std::int32_t canERR_DYNAINIT = -18;
  std::int32_t canERR_NOT_SUPPORTED = -19;

  std::int32_t canCHANNELDATA_CHANNEL_CAP = 1;
  std::int32_t canCHANNELDATA_TRANS_CAP = 2;
  std::int32_t canCHANNELDATA_CHANNEL_FLAGS = 3;
  std::int32_t canCHANNELDATA_CARD_TYPE = 4;
  std::int32_t canCHANNELDATA_CARD_NUMBER = 5;
  std::int32_t canCHANNELDATA_CHAN_NO_ON_CARD = 6;
  std::int32_t canCHANNELDATA_CARD_SERIAL_NO = 7;
  std::int32_t canCHANNELDATA_TRANS_SERIAL_NO = 8;
  std::int32_t canCHANNELDATA_CARD_FIRMWARE_REV = 9;
  std::int32_t canCHANNELDATA_CARD_HARDWARE_REV = 10;
  std::int32_t canCHANNELDATA_CARD_UPC_NO = 11;
  std::int32_t canCHANNELDATA_TRANS_UPC_NO = 12;
  std::int32_t canCHANNELDATA_CHANNEL_NAME = 13;
  std::int32_t canCHANNELDATA_DLL_FILE_VERSION = 14;
  std::int32_t canCHANNELDATA_DLL_PRODUCT_VERSION = 15;
  std::int32_t canCHANNELDATA_DLL_FILETYPE = 16;
  std::int32_t canCHANNELDATA_TRANS_TYPE = 17;
  std::int32_t canCHANNELDATA_DEVICE_PHYSICAL_POSITION = 18;
  std::int32_t canCHANNELDATA_UI_NUMBER = 19;
  std::int32_t canCHANNELDATA_TIMESYNC_ENABLED = 20;
  std::int32_t canCHANNELDATA_DRIVER_FILE_VERSION = 21;
  std::int32_t canCHANNELDATA_DRIVER_PRODUCT_VERSION = 22;
  std::int32_t canCHANNELDATA_MFGNAME_UNICODE = 23;
  std::int32_t canCHANNELDATA_MFGNAME_ASCII = 24;
  std::int32_t canCHANNELDATA_DEVDESCR_UNICODE = 25;
  std::int32_t canCHANNELDATA_DEVDESCR_ASCII = 26;
  std::int32_t canCHANNELDATA_DRIVER_NAME = 27;

  std::int32_t canIOCTL_GET_DEVNAME_ASCII = 37;
};

}  // namespace tolvane
