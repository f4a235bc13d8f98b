#include "tests/faults/faulty_adapters.h"

namespace tolvane::faults {
namespace {

// What the libraries give for a failure.
constexpr std::int32_t kCanusbFailed = -3;
constexpr auto kIfcanFailed = static_cast<std::int32_t>(0xC000000E);
constexpr auto kIfcanEmpty = static_cast<std::int32_t>(0xC0000008);
constexpr std::int32_t kCanlibFailed = -15;
constexpr std::int32_t kCanlibEmpty = -2;

}  // namespace

std::int16_t FaultyCanusb::canusb_getFirstAdapter(std::array<char, kSerialSize>& serial) {
  return Fails("canusb_getFirstAdapter") ? std::int16_t{-1}
                                         : library_.canusb_getFirstAdapter(serial);
}

std::int16_t FaultyCanusb::canusb_getNextAdapter(std::array<char, kSerialSize>& serial) {
  return Fails("canusb_getNextAdapter") ? std::int16_t{-1} : library_.canusb_getNextAdapter(serial);
}

std::int32_t FaultyCanusb::canusb_Open(const std::string& serial, std::string& rate,
                                       std::int32_t acceptance_code, std::int32_t acceptance_mask,
                                       std::int32_t flags) {
  if (Fails("canusb_Open")) return kCanusbFailed;
  return library_.canusb_Open(serial, rate, acceptance_code, acceptance_mask, flags);
}

std::int32_t FaultyCanusb::canusb_Read(std::int32_t handle, platform::CanusbMessage& message) {
  if (Fails("canusb_Read")) return kCanusbFailed;
  const std::int32_t result = library_.canusb_Read(handle, message);
  if (result > 0) {
    tap_.Delivered(message.data);
  } else {
    tap_.FoundEmpty();
  }
  return result;
}

std::int32_t FaultyCanusb::canusb_VersionInfo(std::int32_t handle,
                                              std::array<char, kVersionSize>& version) {
  return Fails("canusb_VersionInfo") ? kCanusbFailed : library_.canusb_VersionInfo(handle, version);
}

std::int32_t FaultyIfcan::CanOpenPort(const std::string& name) {
  const std::int32_t handle = library_.CanOpenPort(name);
  off_the_bus_ = false;
  if (handle == kNoPort || !Fails("CanOpenPort")) return handle;
  library_.CanClosePort(handle);
  return kNoPort;
}

std::int32_t FaultyIfcan::CanClosePort(std::int32_t handle) {
  const std::int32_t status = library_.CanClosePort(handle);
  return handle != kNoPort && Fails("CanClosePort") ? kIfcanFailed : status;
}

std::int32_t FaultyIfcan::CanGetConfig(std::int32_t handle, platform::IfcanConfig& config) {
  return Fails("CanGetConfig") ? kIfcanFailed : library_.CanGetConfig(handle, config);
}

std::int32_t FaultyIfcan::CanSetConfig(std::int32_t handle, const platform::IfcanConfig& config) {
  if (!Fails("CanSetConfig")) return library_.CanSetConfig(handle, config);
  off_the_bus_ = true;
  return kIfcanFailed;
}

std::int32_t FaultyIfcan::CanActivate(std::int32_t handle) {
  if (Fails("CanActivate")) off_the_bus_ = true;
  return off_the_bus_ ? kIfcanFailed : library_.CanActivate(handle);
}

std::int32_t FaultyIfcan::CanDeactivate(std::int32_t handle) {
  if (off_the_bus_) return kIfcanFailed;
  const std::int32_t status = library_.CanDeactivate(handle);
  return handle != kNoPort && Fails("CanDeactivate") ? kIfcanFailed : status;
}

std::int32_t FaultyIfcan::CanReceiveMessage(std::int32_t handle, platform::IfcanMessage& message,
                                            std::int32_t& count) {
  if (Fails("CanReceiveMessage")) return kIfcanFailed;
  const std::int32_t status =
      off_the_bus_ ? kIfcanEmpty : library_.CanReceiveMessage(handle, message, count);
  if (status == 0) {
    tap_.Delivered(message.data);
  } else {
    tap_.FoundEmpty();
  }
  return status;
}

std::int32_t FaultyIfcan::CanGetPortInformation(std::int32_t handle,
                                                platform::IfcanPortInformation& information) {
  return Fails("CanGetPortInformation") ? kIfcanFailed
                                        : library_.CanGetPortInformation(handle, information);
}

void FaultyCanlib::canInitializeLibrary() {
  initialized_ = true;
  if (Fails("canInitializeLibrary")) {
    initialized_ = false;
  } else {
    library_.canInitializeLibrary();
  }
}

std::int32_t FaultyCanlib::canGetNumberOfChannels(std::int32_t& count) {
  return Fails("canGetNumberOfChannels") ? kCanlibFailed : library_.canGetNumberOfChannels(count);
}

std::int32_t FaultyCanlib::canGetChannelData(std::int32_t channel, std::int32_t item,
                                             std::span<std::byte> buffer) {
  return Fails("canGetChannelData") ? kCanlibFailed
                                    : library_.canGetChannelData(channel, item, buffer);
}

std::int32_t FaultyCanlib::canOpenChannel(std::int32_t channel, std::int32_t flags) {
  off_the_bus_ = false;
  return Fails("canOpenChannel") ? kCanlibFailed : library_.canOpenChannel(channel, flags);
}

std::int32_t FaultyCanlib::canClose(std::int32_t handle) {
  const std::int32_t status = library_.canClose(handle);
  return Fails("canClose") ? kCanlibFailed : status;
}

std::int32_t FaultyCanlib::canSetBusParams(std::int32_t handle, std::int32_t rate,
                                           std::uint32_t tseg1, std::uint32_t tseg2,
                                           std::uint32_t sjw, std::uint32_t no_samp,
                                           std::uint32_t syncmode) {
  if (!Fails("canSetBusParams")) {
    return library_.canSetBusParams(handle, rate, tseg1, tseg2, sjw, no_samp, syncmode);
  }
  off_the_bus_ = true;
  return kCanlibFailed;
}

std::int32_t FaultyCanlib::canSetBusOutputControl(std::int32_t handle, std::uint32_t driver_type) {
  return Fails("canSetBusOutputControl") ? kCanlibFailed
                                         : library_.canSetBusOutputControl(handle, driver_type);
}

std::int32_t FaultyCanlib::canBusOn(std::int32_t handle) {
  if (Fails("canBusOn")) off_the_bus_ = true;
  return off_the_bus_ ? kCanlibFailed : library_.canBusOn(handle);
}

std::int32_t FaultyCanlib::canBusOff(std::int32_t handle) {
  const std::int32_t status = library_.canBusOff(handle);
  return Fails("canBusOff") ? kCanlibFailed : status;
}

std::int32_t FaultyCanlib::canRead(std::int32_t handle, std::int32_t& id,
                                   std::array<std::uint8_t, 8>& msg, std::int32_t& dlc,
                                   std::int32_t& flag, std::int32_t& time) {
  if (Fails("canRead")) return kCanlibFailed;
  const std::int32_t status =
      off_the_bus_ ? kCanlibEmpty : library_.canRead(handle, id, msg, dlc, flag, time);
  if (status >= 0) {
    tap_.Delivered(msg);
  } else {
    tap_.FoundEmpty();
  }
  return status;
}

}  // namespace tolvane::faults
