#include "platform/memory/vendor/canlib_library.h"

#include <algorithm>

#include "platform/memory/vendor/call_text.h"

namespace tolvane::platform::memory {
namespace {

constexpr KvaserCAN kvCan_u{};

}  // namespace

std::int32_t CanlibLibrary::ResultOf(const std::string& call) const {
  const auto result = call_results.find(call);
  return result == call_results.end() ? call_result : result->second;
}

void CanlibLibrary::canInitializeLibrary() { journal_.Note("canInitializeLibrary()"); }

std::int32_t CanlibLibrary::canGetNumberOfChannels(std::int32_t& count) {
  journal_.Note("canGetNumberOfChannels()");
  const std::int32_t status = ResultOf("canGetNumberOfChannels");
  if (Writes(status)) {
    count = channel_count.value_or(static_cast<std::int32_t>(channels.size()));
  }
  return status;
}

std::int32_t CanlibLibrary::canGetChannelData(std::int32_t channel, std::int32_t item,
                                              std::span<std::byte> buffer) {
  journal_.Note(
      CallText("canGetChannelData", {channel, item, static_cast<std::int64_t>(buffer.size())}));
  const auto data = channel_data.find({channel, item});
  if (data == channel_data.end()) return kvCan_u.canERR_PARAM;
  const std::size_t size = std::min(data->second.size(), buffer.size());
  if (Writes(data_result)) std::copy_n(data->second.begin(), size, buffer.begin());
  return data_result;
}

std::int32_t CanlibLibrary::canOpenChannel(std::int32_t channel, std::int32_t flags) {
  journal_.Note(CallText("canOpenChannel", {channel, flags}));
  if (channel < 0 || static_cast<std::size_t>(channel) >= channels.size()) {
    return kvCan_u.canERR_NOTFOUND;
  }
  return channels[static_cast<std::size_t>(channel)];
}

std::int32_t CanlibLibrary::canClose(std::int32_t handle) {
  journal_.Note(CallText("canClose", {handle}));
  return ResultOf("canClose");
}

std::int32_t CanlibLibrary::canSetBusParams(std::int32_t handle, std::int32_t rate,
                                            std::uint32_t tseg1, std::uint32_t tseg2,
                                            std::uint32_t sjw, std::uint32_t no_samp,
                                            std::uint32_t syncmode) {
  journal_.Note(CallText("canSetBusParams", {handle, rate, tseg1, tseg2, sjw, no_samp, syncmode}));
  return ResultOf("canSetBusParams");
}

std::int32_t CanlibLibrary::canSetBusOutputControl(std::int32_t handle, std::uint32_t driver_type) {
  journal_.Note(CallText("canSetBusOutputControl", {handle, driver_type}));
  return ResultOf("canSetBusOutputControl");
}

std::int32_t CanlibLibrary::canBusOn(std::int32_t handle) {
  journal_.Note(CallText("canBusOn", {handle}));
  return ResultOf("canBusOn");
}

std::int32_t CanlibLibrary::canBusOff(std::int32_t handle) {
  journal_.Note(CallText("canBusOff", {handle}));
  return ResultOf("canBusOff");
}

std::int32_t CanlibLibrary::canRead(std::int32_t handle, std::int32_t& id,
                                    std::array<std::uint8_t, 8>& msg, std::int32_t& dlc,
                                    std::int32_t& flag, std::int32_t& time) {
  if (note_reads) journal_.Note(CallText("canRead", {handle}));
  const CanlibFrame* frame = frames.Take();
  if (frame == nullptr) return empty_read_result;
  if (read_result < 0) return read_result;
  id = frame->id;
  WriteBytes(frame->msg, only_bytes_of_length ? frame->dlc : kAllBytes, msg);
  dlc = frame->dlc;
  flag = frame->flag;
  time = frame->time;
  return read_result;
}

}  // namespace tolvane::platform::memory
