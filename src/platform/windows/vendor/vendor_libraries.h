#pragma once

#include "platform/canlib_library.h"
#include "platform/canusb_library.h"
#include "platform/ifcan_library.h"
#include "platform/windows/abi/canlib_abi.h"
#include "platform/windows/abi/canusbdrv_abi.h"
#include "platform/windows/abi/ifcan_abi.h"
#include "platform/windows/system/library_loader.h"

namespace tolvane::platform::windows {

// Each library is loaded when it is first called and stays until the process ends. It is given by
// its full path, so that no file of the same name elsewhere is taken.

class WindowsCanusb final : public CanusbLibrary {
 public:
  explicit WindowsCanusb(String path) : path_(std::move(path)) {}

  std::int16_t canusb_getFirstAdapter(std::array<char, kSerialSize>& serial) override;
  std::int16_t canusb_getNextAdapter(std::array<char, kSerialSize>& serial) override;
  std::int32_t canusb_Open(const std::string& serial, std::string& rate,
                           std::int32_t acceptance_code, std::int32_t acceptance_mask,
                           std::int32_t flags) override;
  void canusb_Close(std::int32_t handle) override;
  std::int32_t canusb_Read(std::int32_t handle, CanusbMessage& message) override;
  std::int32_t canusb_VersionInfo(std::int32_t handle,
                                  std::array<char, kVersionSize>& version) override;

 private:
  String path_;
  LoadedLibrary<abi::Canusbdrv> library_;
};

class WindowsIfcan final : public IfcanLibrary {
 public:
  explicit WindowsIfcan(String path) : path_(std::move(path)) {}

  std::int32_t CanOpenPort(const std::string& name) override;
  std::int32_t CanClosePort(std::int32_t handle) override;
  std::int32_t CanGetConfig(std::int32_t handle, IfcanConfig& config) override;
  std::int32_t CanSetConfig(std::int32_t handle, const IfcanConfig& config) override;
  std::int32_t CanActivate(std::int32_t handle) override;
  std::int32_t CanDeactivate(std::int32_t handle) override;
  std::int32_t CanReceiveMessage(std::int32_t handle, IfcanMessage& message,
                                 std::int32_t& count) override;
  std::int32_t CanGetPortInformation(std::int32_t handle,
                                     IfcanPortInformation& information) override;

 private:
  String path_;
  LoadedLibrary<abi::Ifcan> library_;
};

class WindowsCanlib final : public CanlibLibrary {
 public:
  explicit WindowsCanlib(String path) : path_(std::move(path)) {}

  void canInitializeLibrary() override;
  std::int32_t canGetNumberOfChannels(std::int32_t& count) override;
  std::int32_t canGetChannelData(std::int32_t channel, std::int32_t item,
                                 std::span<std::byte> buffer) override;
  std::int32_t canOpenChannel(std::int32_t channel, std::int32_t flags) override;
  std::int32_t canClose(std::int32_t handle) override;
  std::int32_t canSetBusParams(std::int32_t handle, std::int32_t rate, std::uint32_t tseg1,
                               std::uint32_t tseg2, std::uint32_t sjw, std::uint32_t no_samp,
                               std::uint32_t syncmode) override;
  std::int32_t canSetBusOutputControl(std::int32_t handle, std::uint32_t driver_type) override;
  std::int32_t canBusOn(std::int32_t handle) override;
  std::int32_t canBusOff(std::int32_t handle) override;
  std::int32_t canRead(std::int32_t handle, std::int32_t& id, std::array<std::uint8_t, 8>& msg,
                       std::int32_t& dlc, std::int32_t& flag, std::int32_t& time) override;

 private:
  String path_;
  LoadedLibrary<abi::Canlib> library_;
};

}  // namespace tolvane::platform::windows
