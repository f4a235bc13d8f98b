#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/canlib_library.h"
#include "platform/canusb_library.h"
#include "platform/ifcan_library.h"
#include "tests/faults/fault_plan.h"

namespace tolvane::faults {

/// What the program read of an adapter.
class ReadTap {
 public:
  virtual ~ReadTap() = default;
  /// The data bytes of a frame that the program was given.
  virtual void Delivered(std::span<const std::uint8_t, 8> data) = 0;
  /// Nothing is left in the adapter, or it is off the bus.
  virtual void FoundEmpty() = 0;
};

// The libraries, each of whose calls can fail. What fails is not carried out, so a frame stays in
// its adapter; but closing and leaving the bus are, as of an adapter that was pulled. An adapter
// whose set-up failed stays off the bus, and further calls do not reach the library, which would
// take them for faults of the program. A call without a result cannot fail.

class FaultyCanusb final : public platform::CanusbLibrary {
 public:
  FaultyCanusb(platform::CanusbLibrary& library, FaultPlan& plan, ReadTap& tap)
      : library_(library), plan_(plan), tap_(tap) {}

  std::int16_t canusb_getFirstAdapter(std::array<char, kSerialSize>& serial) override;
  std::int16_t canusb_getNextAdapter(std::array<char, kSerialSize>& serial) override;
  std::int32_t canusb_Open(const std::string& serial, std::string& rate,
                           std::int32_t acceptance_code, std::int32_t acceptance_mask,
                           std::int32_t flags) override;
  void canusb_Close(std::int32_t handle) override { library_.canusb_Close(handle); }
  std::int32_t canusb_Read(std::int32_t handle, platform::CanusbMessage& message) override;
  std::int32_t canusb_VersionInfo(std::int32_t handle,
                                  std::array<char, kVersionSize>& version) override;

 private:
  [[nodiscard]] bool Fails(std::string_view call) { return plan_.Fails(Subject::kAdapter, call); }

  platform::CanusbLibrary& library_;
  FaultPlan& plan_;
  ReadTap& tap_;
};

class FaultyIfcan final : public platform::IfcanLibrary {
 public:
  FaultyIfcan(platform::IfcanLibrary& library, FaultPlan& plan, ReadTap& tap)
      : library_(library), plan_(plan), tap_(tap) {}

  /// A port that does not exist gives no number: nothing is to fail there.
  std::int32_t CanOpenPort(const std::string& name) override;
  std::int32_t CanClosePort(std::int32_t handle) override;
  std::int32_t CanGetConfig(std::int32_t handle, platform::IfcanConfig& config) override;
  std::int32_t CanSetConfig(std::int32_t handle, const platform::IfcanConfig& config) override;
  std::int32_t CanActivate(std::int32_t handle) override;
  std::int32_t CanDeactivate(std::int32_t handle) override;
  std::int32_t CanReceiveMessage(std::int32_t handle, platform::IfcanMessage& message,
                                 std::int32_t& count) override;
  std::int32_t CanGetPortInformation(std::int32_t handle,
                                     platform::IfcanPortInformation& information) override;

 private:
  [[nodiscard]] bool Fails(std::string_view call) { return plan_.Fails(Subject::kAdapter, call); }

  platform::IfcanLibrary& library_;
  FaultPlan& plan_;
  ReadTap& tap_;
  bool off_the_bus_ = false;
};

class FaultyCanlib final : public platform::CanlibLibrary {
 public:
  FaultyCanlib(platform::CanlibLibrary& library, FaultPlan& plan, ReadTap& tap)
      : library_(library), plan_(plan), tap_(tap) {}

  /// Has no result, but a library that it failed in finds nothing.
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
  [[nodiscard]] bool Fails(std::string_view call) {
    return !initialized_ || plan_.Fails(Subject::kAdapter, call);
  }

  platform::CanlibLibrary& library_;
  FaultPlan& plan_;
  ReadTap& tap_;
  bool initialized_ = true;
  bool off_the_bus_ = false;
};

}  // namespace tolvane::faults
