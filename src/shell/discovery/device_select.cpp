#include "shell/discovery/device_select.h"

#include <array>
#include <span>

#include "platform/byte_text.h"
#include "receive/adapters/board_name.h"
#include "run/adapter_kind.h"
#include "run/number_text.h"
#include "shell/discovery/adapter_text.h"

namespace tolvane {

namespace {

/// The answer to a query: two 32-bit words, zero where the library wrote nothing.
using CardData = std::array<std::uint32_t, 2>;

/// The adapters of the three kinds are listed one after the other; lines are counted from 1 over
/// all of them. Line 0, no selection, means a CANUSB adapter with an empty serial text if any
/// CANUSB adapter was found.
void ResolveLine(ELM327_Info& device, CAN_DB& CAN_d, CAN_DB_Interface& IfCan_d,
                 CAN_DB_Kvaser& kvCan_d) {
  const std::int32_t line = device.t_CmbBOX_device_SelectNo;
  const std::int32_t last_canusb = CAN_d.CAN_USB_FindCount;
  const std::int32_t last_interface = last_canusb + IfCan_d.Interface_CAN_FindCount;
  const std::int32_t last_kvaser = last_interface + kvCan_d.Kvaser_FindCount;
  device.t_select_Vender = kVenderNone;
  if (line < 0) return;
  if (last_canusb > 0 && line <= last_canusb) {
    device.t_select_Vender = kVenderCanusb;
    CAN_d.CAN_USB_SelectNo = line;
  } else if (line > last_canusb && line <= last_interface) {
    device.t_select_Vender = kVenderInterface;
    IfCan_d.Interface_CAN_SelectNo = line - last_canusb;
  } else if (line > last_interface && line <= last_kvaser) {
    device.t_select_Vender = kVenderKvaser;
    kvCan_d.KvCAN_SelectNo = line - last_interface;
  }
}

std::int32_t ShowCanusb(const platform::Platform& platform, platform::TextBox& TB_ODB_Hard_Version,
                        const CANUSB& CAN_u, CAN_DB& CAN_d) {
  CAN_d.CAN_USB_SelectSerial =
      CAN_d.CAN_USB_FindSerialNo(static_cast<std::int16_t>(CAN_d.CAN_USB_SelectNo));
  std::string rate = NarrowText(CAN_u.CAN_BAUD_500K);
  CAN_d.CAN_USB_Handle = platform.canusbdrv.canusb_Open(
      NarrowText(CAN_d.CAN_USB_SelectSerial), rate, CAN_u.CANUSB_ACCEPTANCE_CODE_ALL,
      CAN_u.CANUSB_ACCEPTANCE_MASK_ALL, CAN_u.CANUSB_FLAG_TIMESTAMP);
  if (CAN_d.CAN_USB_Handle <= 0) return 0;

  std::array<char, platform::CanusbLibrary::kVersionSize> version{};
  const std::int32_t result = platform.canusbdrv.canusb_VersionInfo(CAN_d.CAN_USB_Handle, version);
  CAN_d.CAN_USB_Version = platform.code_page.Decode(WithoutNul(version));
  TB_ODB_Hard_Version.Text(result > 0 ? StringView(CAN_d.CAN_USB_Version) : u"???");
  platform.canusbdrv.canusb_Close(CAN_d.CAN_USB_Handle);
  return result;
}

String InterfaceText(const CAN_DB_Interface& IfCan_d) {
  const auto port = static_cast<std::int16_t>(IfCan_d.Interface_CAN_SelectNo);
  String text(AdapterTraitsOf(AdapterKind::kInterface).name);
  text +=
      Get_Board_Name(IfCan_d.IfCAN_info_ulDeviceID(port), IfCan_d.IfCAN_info_ulSubsystemID(port));
  text += u" RevID:";
  text += DecimalText(std::int64_t{IfCan_d.IfCAN_info_ulRevisionID(port)});
  text += u" ch:";
  text += DecimalText(std::int64_t{IfCan_d.IfCAN_info_ulChannelNumber(port)});
  if (IfCan_d.IfCAN_info_ulPhysicalLayer(port) == 1) text += u" 高速CAN対応";
  return text;
}

CardData QueryCard(platform::CanlibLibrary& library, std::int32_t handle, std::int32_t item) {
  std::array<std::byte, sizeof(CardData)> bytes{};
  library.canGetChannelData(handle, item, bytes);
  CardData words{};
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    words[i / 4] |= std::to_integer<std::uint32_t>(bytes[i]) << 8 * (i % 4);
  }
  return words;
}

/// A 64-bit number whose high half is the second word.
std::uint64_t Number64(const CardData& words) { return std::uint64_t{words[1]} << 32 | words[0]; }

/// Hexadecimal digits `first` to `last` of the 16 digits of `number`, counted from 1, as a number;
/// at most seven of them.
std::int32_t Digits(std::uint64_t number, int first, int last) {
  const std::uint64_t shifted = number >> 4 * (16 - last);
  return static_cast<std::int32_t>(shifted & ((std::uint64_t{1} << 4 * (last - first + 1)) - 1));
}

String KvaserText(platform::CanlibLibrary& library, const KvaserCAN& kvCan_u,
                  const CAN_DB_Kvaser& kvCan_d) {
  // The list is indexed from 0 and KvCAN_SelectNo counts from 1, so this is the handle of the next
  // channel found, and 0 for the last one. The wrong card is described; this is kept on purpose.
  const std::int32_t handle =
      kvCan_d.Kvaser_DevHandle(static_cast<std::int16_t>(kvCan_d.KvCAN_SelectNo));
  const auto serial = static_cast<std::int32_t>(
      QueryCard(library, handle, kvCan_u.canCHANNELDATA_CARD_SERIAL_NO)[0]);
  const std::uint64_t firmware =
      Number64(QueryCard(library, handle, kvCan_u.canCHANNELDATA_CARD_FIRMWARE_REV));
  const std::uint64_t product =
      Number64(QueryCard(library, handle, kvCan_u.canCHANNELDATA_CARD_UPC_NO));

  String text = u"P/N：";
  text += HexText(Digits(product, 1, 5));
  text += u'-';
  text += HexText(Digits(product, 6, 10), 5);
  text += u'-';
  text += HexText(Digits(product, 11, 15), 5);
  text += u'-';
  text += HexText(Digits(product, 16, 16));
  text += u"  S/N：";
  text += DecimalText(std::int64_t{serial});
  text += u"  FW：";
  text += DecimalText(std::int64_t{Digits(firmware, 1, 4)});
  text += u'.';
  text += DecimalText(std::int64_t{Digits(firmware, 5, 8)});
  text += u'.';
  text += DecimalText(std::int64_t{Digits(firmware, 9, 12)});
  return text;
}

}  // namespace

std::int32_t Apply_Device_Select(const platform::Platform& platform,
                                 platform::TextBox& TB_ODB_Hard_Version, ELM327_Info& device,
                                 const CANUSB& CAN_u, CAN_DB& CAN_d, CAN_DB_Interface& IfCan_d,
                                 const KvaserCAN& kvCan_u, CAN_DB_Kvaser& kvCan_d) {
  ResolveLine(device, CAN_d, IfCan_d, kvCan_d);
  switch (device.t_select_Vender) {
    case kVenderCanusb:
      return ShowCanusb(platform, TB_ODB_Hard_Version, CAN_u, CAN_d);
    case kVenderInterface:
      TB_ODB_Hard_Version.Text(InterfaceText(IfCan_d));
      return 1;
    case kVenderKvaser:
      TB_ODB_Hard_Version.Text(KvaserText(platform.canlib32, kvCan_u, kvCan_d));
      return 1;
    default:
      return 0;
  }
}

}  // namespace tolvane
