#include "shell/discovery/adapter_discovery.h"

#include <array>
#include <optional>
#include <string>

#include "platform/byte_text.h"
#include "receive/adapters/board_name.h"
#include "run/adapter_kind.h"
#include "run/number_text.h"
#include "shell/discovery/adapter_text.h"

namespace tolvane {

namespace {

constexpr std::size_t kShortestSerial = 7;  // bytes; anything shorter ends the search
constexpr std::int32_t kLastInterfacePort = 255;
constexpr std::size_t kChannelNameSize = 64;  // bytes

using Serial = std::array<char, platform::CanusbLibrary::kSerialSize>;

std::optional<String> AcceptedSerial(std::int16_t result, const Serial& serial) {
  const std::string text = WithoutNul(serial);
  if (result <= 0 || text.size() < kShortestSerial) return std::nullopt;
  return WideText(text);
}

void StorePortInformation(const platform::IfcanPortInformation& information, std::int16_t i,
                          CAN_DB_Interface& IfCan_d) {
  IfCan_d.IfCAN_info_ulStructLength(i, information.ulStructLength);
  IfCan_d.IfCAN_info_ulVendorID(i, information.ulVendorID);
  IfCan_d.IfCAN_info_ulDeviceID(i, information.ulDeviceID);
  IfCan_d.IfCAN_info_ulSubsystemID(i, information.ulSubsystemID);
  IfCan_d.IfCAN_info_ulRevisionID(i, information.ulRevisionID);
  IfCan_d.IfCAN_info_ulBoardID(i, information.ulBoardID);
  IfCan_d.IfCAN_info_ulModelNumber(i, information.ulModelNumber);
  IfCan_d.IfCAN_info_ulChannelNumber(i, information.ulChannelNumber);
  IfCan_d.IfCAN_info_ulPhysicalLayer(i, information.ulPhysicalLayer);
}

/// Empty when the library does not report one.
String ChannelName(const platform::Platform& platform, const KvaserCAN& kvCan_u,
                   std::int32_t handle) {
  std::array<char, kChannelNameSize> name{};
  const std::int32_t status = platform.canlib32.canGetChannelData(
      handle, kvCan_u.canCHANNELDATA_CHANNEL_NAME, std::as_writable_bytes(std::span(name)));
  return status < kvCan_u.canOK ? String() : platform.code_page.Decode(WithoutNul(name));
}

}  // namespace

void Find_CANUSB_Adapters(const platform::Platform& platform, CAN_DB& CAN_d) {
  Serial buffer{};
  std::int16_t result = platform.canusbdrv.canusb_getFirstAdapter(buffer);
  while (const auto serial = AcceptedSerial(result, buffer)) {
    ++CAN_d.CAN_USB_FindCount;
    CAN_d.CAN_USB_FindSerialNo(static_cast<std::int16_t>(CAN_d.CAN_USB_FindCount), *serial);
    if (CAN_d.CAN_USB_FindCount >= CAN_d.CAN_USB_FindCount_MAX) return;
    platform.events.YieldToEvents();
    buffer.fill('\0');
    result = platform.canusbdrv.canusb_getNextAdapter(buffer);
  }
}

void Find_Interface_Ports(const platform::Platform& platform, const InterfaceCAN& IfCan_u,
                          CAN_DB_Interface& IfCan_d) {
  for (std::int32_t n = 1; n <= kLastInterfacePort; ++n) {
    const std::int32_t handle = platform.IFCan.CanOpenPort(PortName(n));
    if (handle != platform::IfcanLibrary::kNoPort) {
      const auto count = static_cast<std::int16_t>(++IfCan_d.Interface_CAN_FindCount);
      IfCan_d.Interface_CAN_FindNo(count, n);
      platform::IfcanPortInformation information{};
      if (platform.IFCan.CanGetPortInformation(handle, information) ==
          IfCan_u.IFCAN_ERROR_SUCCESS) {
        StorePortInformation(information, count, IfCan_d);
      }
    }
    platform.IFCan.CanClosePort(handle);
  }
}

void Find_Kvaser_Channels(const platform::Platform& platform, const KvaserCAN& kvCan_u,
                          CAN_DB_Kvaser& kvCan_d) {
  platform::CanlibLibrary& library = platform.canlib32;
  library.canInitializeLibrary();
  platform.events.YieldToEvents();
  std::int32_t count = 0;
  library.canGetNumberOfChannels(count);
  for (std::int32_t i = 0; i < kvCan_d.Kvaser_FindCount_MAX && i < count; ++i) {
    const std::int32_t handle = library.canOpenChannel(i, kvCan_u.canOPEN_REQUIRE_INIT_ACCESS);
    if (handle < 0) continue;
    const auto f = static_cast<std::int16_t>(kvCan_d.Kvaser_FindCount);
    kvCan_d.Kvaser_DevHandle(f, handle);
    kvCan_d.Kvaser_DevChannel(f, i);
    kvCan_d.Kvaser_DevdName(f, ChannelName(platform, kvCan_u, handle));
    platform.events.YieldToEvents();
    ++kvCan_d.Kvaser_FindCount;
  }
  for (std::int16_t i = 0; i < kvCan_d.Kvaser_FindCount; ++i) {
    library.canBusOff(kvCan_d.Kvaser_DevHandle(i));
    library.canClose(kvCan_d.Kvaser_DevHandle(i));
  }
}

String CANUSB_Line(const platform::Platform& platform, const CAN_DB& CAN_d, std::int32_t i) {
  const String& serial = CAN_d.CAN_USB_FindSerialNo(static_cast<std::int16_t>(i));
  return String(AdapterTraitsOf(AdapterKind::kCanusb).name) +
         platform.code_page.Decode(NarrowText(serial));
}

String Interface_Line(const CAN_DB_Interface& IfCan_d, std::int32_t i) {
  const auto port = static_cast<std::int16_t>(i);
  String line(AdapterTraitsOf(AdapterKind::kInterface).name);
  line +=
      Get_Board_Name(IfCan_d.IfCAN_info_ulDeviceID(port), IfCan_d.IfCAN_info_ulSubsystemID(port));
  line += u" port:";
  line += DecimalText(std::int64_t{IfCan_d.Interface_CAN_FindNo(port)});
  return line;
}

String Kvaser_Line(const CAN_DB_Kvaser& kvCan_d, std::int32_t i) {
  return kvCan_d.Kvaser_DevdName(static_cast<std::int16_t>(i - 1));
}

}  // namespace tolvane
