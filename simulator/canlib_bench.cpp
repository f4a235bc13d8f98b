#include "simulator/canlib_bench.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "simulator/delivered.h"

namespace tolvane::simulator {
namespace {

constexpr std::int32_t kOk = 0;
constexpr std::int32_t kParam = -1;
constexpr std::int32_t kNoMessage = -2;
constexpr std::int32_t kNotFound = -3;
constexpr std::int32_t kNoChannels = -5;
constexpr std::int32_t kNotInitialized = -8;
constexpr std::int32_t kInvalidHandle = -10;
constexpr std::int32_t kHardware = -15;

constexpr std::int32_t kCardSerialNo = 7;
constexpr std::int32_t kCardFirmwareRev = 9;
constexpr std::int32_t kCardUpcNo = 11;
constexpr std::int32_t kChannelName = 13;

constexpr std::int32_t kRemoteFlag = 1;
constexpr std::int32_t kStandardFlag = 2;
constexpr std::int32_t kExtendedFlag = 4;
constexpr std::int32_t kErrorFrameFlag = 0x20;
constexpr std::int32_t kTransmittedFlag = 0x40;

std::int32_t Flags(const BusFrame& frame) {
  if (frame.kind == FrameKind::kError) return kErrorFrameFlag;
  const std::int32_t format = frame.extended ? kExtendedFlag : kStandardFlag;
  if (frame.kind == FrameKind::kRemote) return format | kRemoteFlag;
  return frame.kind == FrameKind::kTransmitted ? format | kTransmittedFlag : format;
}

/// Eight bytes, the low one first.
std::int32_t WriteNumber(std::uint64_t number, std::span<std::byte> buffer) {
  if (buffer.size() < sizeof(number)) return kParam;
  for (std::size_t i = 0; i < sizeof(number); ++i, number >>= 8) {
    buffer[i] = static_cast<std::byte>(number);
  }
  return kOk;
}

/// The text and a NUL, cut to the buffer.
std::int32_t WriteText(std::string_view text, std::span<std::byte> buffer) {
  if (buffer.empty()) return kParam;
  text = text.substr(0, buffer.size() - 1);
  std::ranges::transform(text, buffer.begin(), [](char c) { return static_cast<std::byte>(c); });
  buffer[text.size()] = std::byte{0};
  return kOk;
}

}  // namespace

CanlibBench::CanlibBench(std::unique_ptr<Bench> bench)
    : bench_(std::move(bench)), script_(bench_->Config().canlib_results) {
  for (const CanlibPlan& plan : bench_->Config().canlib) {
    channels_.push_back({.plan = &plan,
                         .script = CallScript(plan.adapter.results),
                         .handle = kClosed,
                         .tap = nullptr});
  }
}

CanlibBench::~CanlibBench() {
  for (Channel& channel : channels_) LeaveBus(channel);
}

void CanlibBench::canInitializeLibrary() {
  initialized_ = true;
  bench_->Record().Line("canInitializeLibrary()");
}

std::int32_t CanlibBench::canGetNumberOfChannels(std::int32_t& count) {
  count = 0;
  std::int32_t status = kNotInitialized;
  if (initialized_) {
    status = script_.Next("canGetNumberOfChannels").value_or(kOk);
    if (status == kOk) count = bench_->Config().channels;
  }
  bench_->Record().Line(CallLine("canGetNumberOfChannels").Gives(status, std::to_string(count)));
  return status;
}

std::int32_t CanlibBench::canGetChannelData(std::int32_t channel, std::int32_t item,
                                            std::span<std::byte> buffer) {
  const std::int32_t status = ChannelData(channel, item, buffer);
  bench_->Record().Line(CallLine("canGetChannelData")
                            .Number(channel)
                            .Number(item)
                            .Number(static_cast<std::int64_t>(buffer.size()))
                            .Gives(status));
  return status;
}

std::int32_t CanlibBench::ChannelData(std::int32_t number, std::int32_t item,
                                      std::span<std::byte> buffer) {
  if (!initialized_) return kNotInitialized;
  Channel* const channel = FindChannel(number);
  if (channel == nullptr) return kNotFound;
  constexpr std::string_view kCall = "canGetChannelData";
  const std::string item_call = std::string(kCall) + '.' + std::to_string(item);
  if (const auto scripted = channel->script.Next(item_call)) return *scripted;
  if (const auto scripted = channel->script.Next(kCall)) return *scripted;
  const CanlibPlan& plan = *channel->plan;
  switch (item) {
    case kCardSerialNo:
      return WriteNumber(plan.serial, buffer);
    case kCardFirmwareRev:
      return WriteNumber(plan.firmware, buffer);
    case kCardUpcNo:
      return WriteNumber(plan.upc, buffer);
    case kChannelName:
      return WriteText(plan.name, buffer);
    default:
      return kParam;
  }
}

std::int32_t CanlibBench::canOpenChannel(std::int32_t channel, std::int32_t flags) {
  const std::int32_t handle = Open(channel);
  bench_->Record().Line(CallLine("canOpenChannel").Number(channel).Number(flags).Gives(handle));
  return handle;
}

std::int32_t CanlibBench::Open(std::int32_t number) {
  if (!initialized_) return kNotInitialized;
  Channel* const channel = FindChannel(number);
  if (channel == nullptr) return kNotFound;
  if (channel->handle != kClosed) return kNoChannels;
  if (const auto scripted = channel->script.Next("canOpenChannel")) return *scripted;
  std::int32_t handle = 0;
  while (FindOpen(handle) != nullptr) ++handle;
  channel->handle = handle;
  return handle;
}

/// What the script says for a call on an open channel, else what `action` does.
template <typename Action>
std::int32_t CanlibBench::OnChannel(std::string_view call, std::int32_t handle, Action action) {
  Channel* const channel = FindOpen(handle);
  if (channel == nullptr) return kInvalidHandle;
  if (const auto scripted = channel->script.Next(call)) return *scripted;
  return action(*channel);
}

std::int32_t CanlibBench::canClose(std::int32_t handle) {
  const std::int32_t status = OnChannel("canClose", handle, [](const Channel&) { return kOk; });
  bench_->Record().Line(CallLine("canClose").Number(handle).Gives(status));
  if (Channel* const channel = FindOpen(handle)) {
    LeaveBus(*channel);
    channel->handle = kClosed;
  }
  return status;
}

std::int32_t CanlibBench::canSetBusParams(std::int32_t handle, std::int32_t rate,
                                          std::uint32_t tseg1, std::uint32_t tseg2,
                                          std::uint32_t sjw, std::uint32_t no_samp,
                                          std::uint32_t syncmode) {
  // 0 and above would be bits per second; the predefined rates run from -1 down to -9.
  constexpr std::int32_t kLastPredefined = -9;
  const std::int32_t status = OnChannel("canSetBusParams", handle, [rate](const Channel&) {
    return rate == 0 || rate < kLastPredefined ? kParam : kOk;
  });
  bench_->Record().Line(CallLine("canSetBusParams")
                            .Number(handle)
                            .Number(rate)
                            .Number(tseg1)
                            .Number(tseg2)
                            .Number(sjw)
                            .Number(no_samp)
                            .Number(syncmode)
                            .Gives(status));
  return status;
}

std::int32_t CanlibBench::canSetBusOutputControl(std::int32_t handle, std::uint32_t driver_type) {
  const std::int32_t status =
      OnChannel("canSetBusOutputControl", handle, [](const Channel&) { return kOk; });
  bench_->Record().Line(
      CallLine("canSetBusOutputControl").Number(handle).Number(driver_type).Gives(status));
  return status;
}

std::int32_t CanlibBench::canBusOn(std::int32_t handle) {
  const std::int32_t status = OnChannel("canBusOn", handle, [&](Channel& channel) {
    if (channel.tap == nullptr) channel.tap = bench_->Listen(channel.plan->adapter);
    return kOk;
  });
  bench_->Record().Line(CallLine("canBusOn").Number(handle).Gives(status));
  return status;
}

std::int32_t CanlibBench::canBusOff(std::int32_t handle) {
  const std::int32_t status = OnChannel("canBusOff", handle, [](const Channel&) { return kOk; });
  bench_->Record().Line(CallLine("canBusOff").Number(handle).Gives(status));
  if (Channel* const channel = FindOpen(handle)) LeaveBus(*channel);
  return status;
}

std::int32_t CanlibBench::canRead(std::int32_t handle, std::int32_t& id,
                                  std::array<std::uint8_t, 8>& msg, std::int32_t& dlc,
                                  std::int32_t& flag, std::int32_t& time) {
  return OnChannel("canRead", handle, [&](Channel& channel) {
    if (channel.tap == nullptr) return kNoMessage;
    BusFrame frame;
    if (const auto failure = ReadFailure(*channel.tap, frame, kNoMessage, kHardware)) {
      return *failure;
    }
    const AdapterPlan& plan = channel.plan->adapter;
    id = DeliveredId(plan, frame);
    msg = frame.data;
    dlc = DeliveredDlc(plan, frame);
    flag = Flags(frame);
    time = Stamp(kCanlibStamps, plan.clock, frame.time_us);
    return kOk;
  });
}

CanlibBench::Channel* CanlibBench::FindOpen(std::int32_t handle) {
  const auto channel = std::ranges::find(channels_, handle, &Channel::handle);
  return handle == kClosed || channel == channels_.end() ? nullptr : &*channel;
}

CanlibBench::Channel* CanlibBench::FindChannel(std::int32_t number) {
  const auto find_number = [](const Channel& channel) { return channel.plan->channel; };
  const auto channel = std::ranges::find(channels_, number, find_number);
  return channel == channels_.end() ? nullptr : &*channel;
}

void CanlibBench::LeaveBus(Channel& channel) {
  if (channel.tap == nullptr) return;
  bench_->Record().Run("channel" + std::to_string(channel.plan->channel), channel.tap->Counts());
  channel.tap.reset();
}

}  // namespace tolvane::simulator
