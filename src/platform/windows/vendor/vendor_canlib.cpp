#include "platform/windows/vendor/vendor_libraries.h"
#include "receive/adapters/kvasercan.h"

namespace tolvane::platform::windows {
namespace {

// Of a call to a library that is not there.
constexpr std::int32_t kFailed = KvaserCAN{}.canERR_PARAM;

}  // namespace

void WindowsCanlib::canInitializeLibrary() {
  if (library_.Load(path_)) library_->canInitializeLibrary();
}

std::int32_t WindowsCanlib::canGetNumberOfChannels(std::int32_t& count) {
  if (library_.Load(path_)) return library_->canGetNumberOfChannels(&count);
  count = 0;
  return kFailed;
}

std::int32_t WindowsCanlib::canGetChannelData(std::int32_t channel, std::int32_t item,
                                              std::span<std::byte> buffer) {
  return library_ ? library_->canGetChannelData(channel, item, buffer.data(), buffer.size())
                  : kFailed;
}

std::int32_t WindowsCanlib::canOpenChannel(std::int32_t channel, std::int32_t flags) {
  return library_.Load(path_) ? library_->canOpenChannel(channel, flags) : kFailed;
}

std::int32_t WindowsCanlib::canClose(std::int32_t handle) {
  return library_ ? library_->canClose(handle) : kFailed;
}

std::int32_t WindowsCanlib::canSetBusParams(std::int32_t handle, std::int32_t rate,
                                            std::uint32_t tseg1, std::uint32_t tseg2,
                                            std::uint32_t sjw, std::uint32_t no_samp,
                                            std::uint32_t syncmode) {
  return library_ ? library_->canSetBusParams(handle, rate, tseg1, tseg2, sjw, no_samp, syncmode)
                  : kFailed;
}

std::int32_t WindowsCanlib::canSetBusOutputControl(std::int32_t handle, std::uint32_t driver_type) {
  return library_ ? library_->canSetBusOutputControl(handle, driver_type) : kFailed;
}

std::int32_t WindowsCanlib::canBusOn(std::int32_t handle) {
  return library_ ? library_->canBusOn(handle) : kFailed;
}

std::int32_t WindowsCanlib::canBusOff(std::int32_t handle) {
  return library_ ? library_->canBusOff(handle) : kFailed;
}

std::int32_t WindowsCanlib::canRead(std::int32_t handle, std::int32_t& id,
                                    std::array<std::uint8_t, 8>& msg, std::int32_t& dlc,
                                    std::int32_t& flag, std::int32_t& time) {
  return library_ ? library_->canRead(handle, &id, msg.data(), &dlc, &flag, &time) : kFailed;
}

}  // namespace tolvane::platform::windows
