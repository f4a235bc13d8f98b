#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace tolvane::platform {

/// canlib32.dll, reached by its exported names. Statuses are negative on failure. A library that
/// cannot be used has no channels and opens none. Nothing here pumps messages or blocks.
class CanlibLibrary {
 public:
  virtual ~CanlibLibrary() = default;

  virtual void canInitializeLibrary() = 0;
  virtual std::int32_t canGetNumberOfChannels(std::int32_t& count) = 0;
  /// `buffer` takes the item's bytes; its size is passed along.
  virtual std::int32_t canGetChannelData(std::int32_t channel, std::int32_t item,
                                         std::span<std::byte> buffer) = 0;
  /// A handle of 0 or more, negative on failure.
  virtual std::int32_t canOpenChannel(std::int32_t channel, std::int32_t flags) = 0;
  virtual std::int32_t canClose(std::int32_t handle) = 0;
  virtual std::int32_t canSetBusParams(std::int32_t handle, std::int32_t rate, std::uint32_t tseg1,
                                       std::uint32_t tseg2, std::uint32_t sjw,
                                       std::uint32_t no_samp, std::uint32_t syncmode) = 0;
  virtual std::int32_t canSetBusOutputControl(std::int32_t handle, std::uint32_t driver_type) = 0;
  virtual std::int32_t canBusOn(std::int32_t handle) = 0;
  virtual std::int32_t canBusOff(std::int32_t handle) = 0;
  /// 0 or more when a frame was delivered, negative when none; never blocks. `time` is in the
  /// library's default resolution, milliseconds.
  virtual std::int32_t canRead(std::int32_t handle, std::int32_t& id,
                               std::array<std::uint8_t, 8>& msg, std::int32_t& dlc,
                               std::int32_t& flag, std::int32_t& time) = 0;
};

}  // namespace tolvane::platform
