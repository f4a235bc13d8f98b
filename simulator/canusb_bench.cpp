#include "simulator/canusb_bench.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "simulator/delivered.h"
#include "simulator/values.h"

namespace tolvane::simulator {
namespace {

constexpr std::int32_t kOk = 1;
constexpr std::int32_t kOpenSubsystem = -2;
constexpr std::int32_t kCommandSubsystem = -3;
constexpr std::int32_t kNotOpen = -4;
constexpr std::int32_t kInvalidParam = -6;
constexpr std::int32_t kNoMessage = -7;
constexpr std::uint8_t kExtendedFlag = 128;
constexpr std::uint8_t kRemoteFlag = 64;

constexpr std::int32_t kStampFlag = 1;

/// Bits per second of a rate text in kilobits; 0 for one that the adapter does not know.
std::int32_t BitRate(std::string_view rate) {
  constexpr auto kRates =
      std::to_array<std::pair<std::string_view, std::int32_t>>({{"10", 10'000},
                                                                {"20", 20'000},
                                                                {"50", 50'000},
                                                                {"100", 100'000},
                                                                {"125", 125'000},
                                                                {"250", 250'000},
                                                                {"500", 500'000},
                                                                {"800", 800'000},
                                                                {"1000", 1'000'000}});
  for (const auto& [text, bit_rate] : kRates) {
    if (text == rate) return bit_rate;
  }
  return 0;
}

/// Writes the text and, if there is room, a NUL; the rest of the buffer is unchanged.
template <std::size_t size>
void WriteText(std::string_view text, std::array<char, size>& buffer) {
  text = text.substr(0, size);
  std::ranges::copy(text, buffer.begin());
  if (text.size() < size) buffer[text.size()] = '\0';
}

}  // namespace

CanusbBench::CanusbBench(std::unique_ptr<Bench> bench)
    : bench_(std::move(bench)), script_(bench_->Config().canusb_results) {
  for (const CanusbPlan& plan : bench_->Config().canusb) {
    adapters_.push_back({.plan = &plan,
                         .script = CallScript(plan.adapter.results),
                         .handle = 0,
                         .stamps = false,
                         .bit_rate = 0,
                         .tap = nullptr});
  }
}

CanusbBench::~CanusbBench() {
  for (const Adapter& adapter : adapters_) {
    if (adapter.tap == nullptr) continue;
    bench_->Record().Fault(EscapeText(adapter.plan->serial) + " is left open");
    TellRun(adapter, adapter.tap->Counts());
  }
}

std::int32_t CanusbBench::RefuseHandle(std::string_view call, std::int32_t handle) {
  return bench_->Refuse(call, "no open adapter has the handle " + std::to_string(handle), kNotOpen);
}

void CanusbBench::TellRun(const Adapter& adapter, const TapCounts& counts) {
  bench_->Record().Run(adapter.plan->serial, counts);
  if (counts.kept_back > 0) {
    bench_->Record().Fault("canusb_Open: the filter keeps frames back");
  }
}

std::int16_t CanusbBench::canusb_getFirstAdapter(std::array<char, kSerialSize>& serial) {
  next_found_ = 0;
  return Search("canusb_getFirstAdapter", serial);
}

std::int16_t CanusbBench::canusb_getNextAdapter(std::array<char, kSerialSize>& serial) {
  constexpr std::string_view kCall = "canusb_getNextAdapter";
  if (!next_found_)
    return static_cast<std::int16_t>(bench_->Refuse(kCall, "ahead of the first", 0));
  return Search(kCall, serial);
}

std::int16_t CanusbBench::Search(std::string_view call, std::array<char, kSerialSize>& serial) {
  const auto scripted = script_.Next(call);
  const bool found = !scripted && *next_found_ < adapters_.size();
  std::string_view text;
  if (found) {
    text = adapters_[(*next_found_)++].plan->serial;
    WriteText(text, serial);
  }
  const auto result = static_cast<std::int16_t>(scripted.value_or(found ? 1 : 0));
  bench_->Record().Line(CallLine(call).Gives(result, text.substr(0, kSerialSize)));
  return result;
}

std::int32_t CanusbBench::canusb_Open(const std::string& serial, std::string& rate,
                                      std::int32_t acceptance_code, std::int32_t acceptance_mask,
                                      std::int32_t flags) {
  const AcceptanceFilter filter{.code = static_cast<std::uint32_t>(acceptance_code),
                                .mask = static_cast<std::uint32_t>(acceptance_mask)};
  const std::int32_t result = Open(serial, rate, filter, flags);
  bench_->Record().Line(CallLine("canusb_Open")
                            .Text(serial)
                            .Text(rate)
                            .Number(acceptance_code)
                            .Number(acceptance_mask)
                            .Number(flags)
                            .Gives(result));
  if (result > 0) rate += " kbit/s";
  return result;
}

std::int32_t CanusbBench::Open(const std::string& serial, const std::string& rate,
                               const AcceptanceFilter& filter, std::int32_t flags) {
  constexpr std::string_view kCall = "canusb_Open";
  const auto adapter = std::ranges::find_if(adapters_, [&](const Adapter& candidate) {
    return std::string_view(candidate.plan->serial).substr(0, kSerialSize) == serial;
  });
  if (adapter == adapters_.end()) return bench_->Refuse(kCall, "no such adapter", kOpenSubsystem);
  if (adapter->tap != nullptr) return bench_->Refuse(kCall, "already open", kOpenSubsystem);
  if (const auto scripted = adapter->script.Next(kCall)) return *scripted;
  adapter->bit_rate = BitRate(rate);
  if (adapter->bit_rate == 0) return bench_->Refuse(kCall, "no such rate", kInvalidParam);
  if ((flags & ~kStampFlag) != 0)
    return bench_->Refuse(kCall, "flags without meaning", kInvalidParam);
  adapter->stamps = (flags & kStampFlag) != 0;
  if (!adapter->stamps) bench_->Record().Fault("canusb_Open: frames without stamps");
  adapter->tap =
      bench_->Listen(adapter->plan->serial, adapter->plan->adapter,
                     {.bit_rate = adapter->bit_rate, .driver = kNormalDriver, .filter = filter});
  adapter->handle = ++last_handle_;
  return adapter->handle;
}

std::int32_t CanusbBench::Close(std::int32_t handle) {
  constexpr std::string_view kCall = "canusb_Close";
  Adapter* const adapter = FindOpen(handle);
  const std::int32_t result =
      adapter == nullptr ? RefuseHandle(kCall, handle) : adapter->script.Next(kCall).value_or(kOk);
  bench_->Record().Line(CallLine(kCall).Number(handle).Gives(result));
  if (adapter != nullptr) {
    const std::unique_ptr<BusTap> tap = std::move(adapter->tap);
    TellRun(*adapter, tap->Counts());
  }
  return result;
}

std::int32_t CanusbBench::canusb_Read(std::int32_t handle, platform::CanusbMessage& message) {
  Adapter* const adapter = FindOpen(handle);
  if (adapter == nullptr) return RefuseHandle("canusb_Read", handle);
  bench_->JudgeRate(adapter->plan->serial, adapter->bit_rate);
  if (const auto scripted = adapter->script.Next("canusb_Read")) return *scripted;
  BusFrame frame;
  if (const auto failure = ReadFailure(*adapter->tap, frame, kNoMessage, kCommandSubsystem)) {
    return *failure;
  }
  const AdapterPlan& plan = adapter->plan->adapter;
  message.id = DeliveredId(plan, frame);
  message.timestamp = adapter->stamps ? Stamp(kCanusbStamps, plan.clock, frame.time_us) : 0;
  message.flags = static_cast<std::uint8_t>((frame.extended ? kExtendedFlag : 0) |
                                            (frame.kind == FrameKind::kRemote ? kRemoteFlag : 0));
  message.len = DeliveredDlc(plan, frame);
  DeliverData(plan, frame, message.data);
  return kOk;
}

std::int32_t CanusbBench::canusb_VersionInfo(std::int32_t handle,
                                             std::array<char, kVersionSize>& version) {
  constexpr std::string_view kCall = "canusb_VersionInfo";
  Adapter* const adapter = FindOpen(handle);
  const std::int32_t result =
      adapter == nullptr ? RefuseHandle(kCall, handle) : adapter->script.Next(kCall).value_or(kOk);
  std::string_view text;
  if (result == kOk) {
    text = adapter->plan->version;
    WriteText(text, version);
  }
  bench_->Record().Line(CallLine(kCall).Number(handle).Gives(result, text));
  return result;
}

CanusbBench::Adapter* CanusbBench::FindOpen(std::int32_t handle) {
  for (Adapter& adapter : adapters_) {
    if (adapter.tap != nullptr && adapter.handle == handle) return &adapter;
  }
  return nullptr;
}

}  // namespace tolvane::simulator
