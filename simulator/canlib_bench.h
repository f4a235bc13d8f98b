#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "platform/canlib_library.h"
#include "simulator/bench.h"

namespace tolvane::simulator {

/// canlib32.dll on the bench. A channel is on the bus between bus on and bus off, and can be opened
/// only once at a time. It must be set up before bus on, and only when it was opened with init
/// access. A handle is the lowest free number, so when a lower channel is missing, the handle is
/// not the channel number; canGetChannelData takes the channel number.
class CanlibBench : public platform::CanlibLibrary {
 public:
  explicit CanlibBench(std::unique_ptr<Bench> bench);
  ~CanlibBench() override;

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
  static constexpr std::int32_t kClosed = -1;

  struct Channel {
    const CanlibPlan* plan;
    CallScript script;
    std::int32_t handle = kClosed;
    bool init_access = false;
    bool params_asked = false;  // bus parameters have come, taken or not
    std::int32_t bit_rate = 0;  // 0 until they are taken
    std::uint32_t driver_type = 0;
    bool bus_asked = false;       // a bus on has come, taken or not, and no bus off since
    std::unique_ptr<BusTap> tap;  // null while it is not on the bus
  };

  Channel* FindOpen(std::int32_t handle);
  Channel* FindChannel(std::int32_t number);
  std::int32_t Open(std::int32_t channel, std::int32_t flags);
  /// Nothing for a channel that can be set up now.
  std::optional<std::int32_t> RefuseSetUp(std::string_view call, const Channel& channel);
  std::int32_t GoOnBus(Channel& channel);
  std::int32_t ChannelData(std::int32_t channel, std::int32_t item, std::span<std::byte> buffer);
  template <typename Action>
  std::int32_t OnChannel(std::string_view call, std::int32_t handle, Action action);
  void LeaveBus(Channel& channel);

  std::unique_ptr<Bench> bench_;
  CallScript script_;
  std::vector<Channel> channels_;
  bool initialized_ = false;
};

}  // namespace tolvane::simulator
