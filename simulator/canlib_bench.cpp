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
constexpr std::int32_t kNotSupported = -19;

constexpr std::int32_t kInitAccess = 128;  // of the open's flags
constexpr std::uint32_t kNormalType = 4;   // the driver type of an open

constexpr std::int32_t kCardSerialNo = 7;
constexpr std::int32_t kCardFirmwareRev = 9;
constexpr std::int32_t kCardUpcNo = 11;
constexpr std::int32_t kChannelName = 13;

constexpr std::int32_t kRemoteFlag = 1;
constexpr std::int32_t kStandardFlag = 2;
constexpr std::int32_t kExtendedFlag = 4;
constexpr std::int32_t kErrorFrameFlag = 0x20;
constexpr std::int32_t kTransmittedFlag = 0x40;

constexpr std::string_view kTooEarly = "the library is not initialized";

/// Bits per second of the predefined rates from -1 down; 0 for any other number.
std::int32_t BitRate(std::int32_t rate) {
  constexpr auto kPredefined = std::to_array<std::int32_t>(
      {1'000'000, 500'000, 250'000, 125'000, 100'000, 62'500, 50'000, 83'333, 10'000});
  if (rate >= 0 || rate < -static_cast<std::int32_t>(kPredefined.size())) return 0;
  return kPredefined[static_cast<std::size_t>(-1 - rate)];
}

/// What a driver type is called; nothing for a number that is none.
std::string_view DriverName(std::uint32_t type) {
  switch (type) {
    case 0:
      return "off";
    case 1:
      return kSilentDriver;
    case kNormalType:
      return kNormalDriver;
    case 8:
      return "selfreception";
    default:
      return {};
  }
}

std::string NameOf(const CanlibPlan& plan) { return "channel" + std::to_string(plan.channel); }

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

std::int32_t WriteItem(const CanlibPlan& plan, std::int32_t item, std::span<std::byte> buffer) {
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

}  // namespace

CanlibBench::CanlibBench(std::unique_ptr<Bench> bench)
    : bench_(std::move(bench)), script_(bench_->Config().canlib_results) {
  for (const CanlibPlan& plan : bench_->Config().canlib) {
    channels_.push_back({.plan = &plan,
                         .script = CallScript(plan.adapter.results),
                         .handle = kClosed,
                         .init_access = false,
                         .params_asked = false,
                         .bit_rate = 0,
                         .driver_type = kNormalType,
                         .bus_asked = false,
                         .tap = nullptr});
  }
}

CanlibBench::~CanlibBench() {
  for (Channel& channel : channels_) {
    if (channel.handle != kClosed) bench_->Record().Fault(NameOf(*channel.plan) + " is left open");
    LeaveBus(channel);
  }
}

void CanlibBench::canInitializeLibrary() {
  initialized_ = true;
  bench_->Record().Line("canInitializeLibrary()");
}

std::int32_t CanlibBench::canGetNumberOfChannels(std::int32_t& count) {
  constexpr std::string_view kCall = "canGetNumberOfChannels";
  const std::int32_t status = initialized_ ? script_.Next(kCall).value_or(kOk)
                                           : bench_->Refuse(kCall, kTooEarly, kNotInitialized);
  if (status == kOk) count = bench_->Config().channels;
  bench_->Record().Line(CallLine(kCall).Gives(status, std::to_string(count)));
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
  constexpr std::string_view kCall = "canGetChannelData";
  if (!initialized_) return bench_->Refuse(kCall, kTooEarly, kNotInitialized);
  // Not a fault: programs pass a handle, which differs from the channel number when channels are
  // missing.
  Channel* const channel = FindChannel(number);
  if (channel == nullptr) return kNotFound;
  const std::string item_call = std::string(kCall) + '.' + std::to_string(item);
  if (const auto scripted = channel->script.Next(item_call)) return *scripted;
  if (const auto scripted = channel->script.Next(kCall)) return *scripted;
  const std::int32_t status = WriteItem(*channel->plan, item, buffer);
  return status == kOk ? kOk : bench_->Refuse(kCall, "no such item, or too small a buffer", status);
}

std::int32_t CanlibBench::canOpenChannel(std::int32_t channel, std::int32_t flags) {
  const std::int32_t handle = Open(channel, flags);
  bench_->Record().Line(CallLine("canOpenChannel").Number(channel).Number(flags).Gives(handle));
  return handle;
}

std::int32_t CanlibBench::Open(std::int32_t number, std::int32_t flags) {
  constexpr std::string_view kCall = "canOpenChannel";
  if (!initialized_) return bench_->Refuse(kCall, kTooEarly, kNotInitialized);
  if ((flags & ~kInitAccess) != 0) return bench_->Refuse(kCall, "flags without meaning", kParam);
  Channel* const channel = FindChannel(number);
  if (channel == nullptr) return kNotFound;
  if (channel->handle != kClosed) return bench_->Refuse(kCall, "already open", kNoChannels);
  if (const auto scripted = channel->script.Next(kCall)) return *scripted;
  channel->init_access = (flags & kInitAccess) != 0;
  channel->params_asked = channel->bus_asked = false;
  channel->bit_rate = 0;
  channel->driver_type = kNormalType;
  std::int32_t handle = 0;
  while (FindOpen(handle) != nullptr) ++handle;
  channel->handle = handle;
  return handle;
}

/// The result of a call on an open channel: the scripted one, otherwise that of `action`.
template <typename Action>
std::int32_t CanlibBench::OnChannel(std::string_view call, std::int32_t handle, Action action) {
  Channel* const channel = FindOpen(handle);
  if (channel == nullptr) {
    return bench_->Refuse(call, "no open channel has the handle " + std::to_string(handle),
                          kInvalidHandle);
  }
  if (const auto scripted = channel->script.Next(call)) return *scripted;
  return action(*channel);
}

std::int32_t CanlibBench::canClose(std::int32_t handle) {
  const std::int32_t status = OnChannel("canClose", handle, [](const Channel&) { return kOk; });
  bench_->Record().Line(CallLine("canClose").Number(handle).Gives(status));
  if (Channel* const channel = FindOpen(handle)) {
    if (channel->tap != nullptr) bench_->Record().Fault("canClose: the channel is on the bus");
    LeaveBus(*channel);
    channel->handle = kClosed;
  }
  return status;
}

std::optional<std::int32_t> CanlibBench::RefuseSetUp(std::string_view call,
                                                     const Channel& channel) {
  if (!channel.init_access) return bench_->Refuse(call, "without initial access", kNotSupported);
  if (channel.tap != nullptr)
    return bench_->Refuse(call, "the channel is on the bus", kNotSupported);
  return std::nullopt;
}

std::int32_t CanlibBench::canSetBusParams(std::int32_t handle, std::int32_t rate,
                                          std::uint32_t tseg1, std::uint32_t tseg2,
                                          std::uint32_t sjw, std::uint32_t no_samp,
                                          std::uint32_t syncmode) {
  constexpr std::string_view kCall = "canSetBusParams";
  if (Channel* const channel = FindOpen(handle)) channel->params_asked = true;
  const std::int32_t status = OnChannel(kCall, handle, [&](Channel& channel) {
    if (const auto refused = RefuseSetUp(kCall, channel)) return *refused;
    // With a predefined rate the other numbers are ignored.
    const std::int32_t bit_rate = BitRate(rate);
    if (bit_rate == 0) return bench_->Refuse(kCall, "no predefined rate", kParam);
    channel.bit_rate = bit_rate;
    return kOk;
  });
  bench_->Record().Line(CallLine(kCall)
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
  constexpr std::string_view kCall = "canSetBusOutputControl";
  const std::int32_t status = OnChannel(kCall, handle, [&](Channel& channel) {
    if (const auto refused = RefuseSetUp(kCall, channel)) return *refused;
    if (DriverName(driver_type).empty())
      return bench_->Refuse(kCall, "no such driver type", kParam);
    channel.driver_type = driver_type;
    return kOk;
  });
  bench_->Record().Line(CallLine(kCall).Number(handle).Number(driver_type).Gives(status));
  return status;
}

std::int32_t CanlibBench::canBusOn(std::int32_t handle) {
  if (Channel* const channel = FindOpen(handle)) channel->bus_asked = true;
  const std::int32_t status =
      OnChannel("canBusOn", handle, [this](Channel& channel) { return GoOnBus(channel); });
  bench_->Record().Line(CallLine("canBusOn").Number(handle).Gives(status));
  return status;
}

std::int32_t CanlibBench::GoOnBus(Channel& channel) {
  constexpr std::string_view kCall = "canBusOn";
  if (channel.tap != nullptr) return bench_->Refuse(kCall, "the channel is on the bus", kOk);
  // Not a fault of the program when the script has refused its parameters.
  if (channel.bit_rate == 0 && channel.params_asked) return kHardware;
  if (channel.bit_rate == 0) return bench_->Refuse(kCall, "no bus parameters", kHardware);
  bench_->JudgeRate(NameOf(*channel.plan), channel.bit_rate);
  channel.tap =
      bench_->Listen(NameOf(*channel.plan), channel.plan->adapter,
                     {.bit_rate = channel.bit_rate, .driver = DriverName(channel.driver_type)});
  return kOk;
}

std::int32_t CanlibBench::canBusOff(std::int32_t handle) {
  const std::int32_t status = OnChannel("canBusOff", handle, [](const Channel&) { return kOk; });
  bench_->Record().Line(CallLine("canBusOff").Number(handle).Gives(status));
  if (Channel* const channel = FindOpen(handle)) {
    LeaveBus(*channel);
    channel->bus_asked = false;
  }
  return status;
}

std::int32_t CanlibBench::canRead(std::int32_t handle, std::int32_t& id,
                                  std::array<std::uint8_t, 8>& msg, std::int32_t& dlc,
                                  std::int32_t& flag, std::int32_t& time) {
  return OnChannel("canRead", handle, [&](Channel& channel) {
    if (!channel.bus_asked)
      return bench_->Refuse("canRead", "the channel is not on the bus", kNoMessage);
    if (channel.tap == nullptr) return kNoMessage;
    BusFrame frame;
    if (const auto failure = ReadFailure(*channel.tap, frame, kNoMessage, kHardware)) {
      return *failure;
    }
    const AdapterPlan& plan = channel.plan->adapter;
    id = DeliveredId(plan, frame);
    DeliverData(plan, frame, msg);
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
  bench_->Record().Run(NameOf(*channel.plan), channel.tap->Counts());
  channel.tap.reset();
}

}  // namespace tolvane::simulator
