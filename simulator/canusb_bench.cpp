#include "simulator/canusb_bench.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "simulator/delivered.h"

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

/// Kilobits per second, or a pair of timing registers such as "0x00:0x1C".
bool IsRate(std::string_view rate) {
  constexpr auto kRates = std::to_array<std::string_view>(
      {"10", "20", "50", "100", "125", "250", "500", "800", "1000"});
  return std::ranges::find(kRates, rate) != kRates.end() ||
         (rate.starts_with("0x") && rate.find(':') != std::string_view::npos);
}

/// Fills the buffer with NUL behind the text; a text of its whole size stands without NUL.
template <std::size_t size>
void WriteText(std::string_view text, std::array<char, size>& buffer) {
  buffer.fill('\0');
  std::copy_n(text.begin(), std::min(text.size(), size), buffer.begin());
}

}  // namespace

CanusbBench::CanusbBench(std::unique_ptr<Bench> bench)
    : bench_(std::move(bench)), script_(bench_->Config().canusb_results) {
  for (const CanusbPlan& plan : bench_->Config().canusb) {
    adapters_.push_back(
        {.plan = &plan, .script = CallScript(plan.adapter.results), .handle = 0, .tap = nullptr});
  }
}

CanusbBench::~CanusbBench() {
  for (const Adapter& adapter : adapters_) {
    if (adapter.tap != nullptr) bench_->Record().Run(adapter.plan->serial, adapter.tap->Counts());
  }
}

std::int16_t CanusbBench::canusb_getFirstAdapter(std::array<char, kSerialSize>& serial) {
  next_found_ = 0;
  return Search("canusb_getFirstAdapter", serial);
}

std::int16_t CanusbBench::canusb_getNextAdapter(std::array<char, kSerialSize>& serial) {
  return Search("canusb_getNextAdapter", serial);
}

std::int16_t CanusbBench::Search(std::string_view call, std::array<char, kSerialSize>& serial) {
  const auto scripted = script_.Next(call);
  const bool found = !scripted && next_found_ < adapters_.size();
  std::string_view text;
  if (found) text = adapters_[next_found_++].plan->serial;
  WriteText(text, serial);
  const auto result = static_cast<std::int16_t>(scripted.value_or(found ? 1 : 0));
  bench_->Record().Line(CallLine(call).Gives(result, text.substr(0, kSerialSize)));
  return result;
}

std::int32_t CanusbBench::canusb_Open(const std::string& serial, std::string& rate,
                                      std::int32_t acceptance_code, std::int32_t acceptance_mask,
                                      std::int32_t flags) {
  const std::int32_t result = Open(serial, rate);
  bench_->Record().Line(CallLine("canusb_Open")
                            .Text(serial)
                            .Text(rate)
                            .Number(acceptance_code)
                            .Number(acceptance_mask)
                            .Number(flags)
                            .Gives(result));
  return result;
}

std::int32_t CanusbBench::Open(const std::string& serial, const std::string& rate) {
  const auto adapter = std::ranges::find_if(adapters_, [&](const Adapter& candidate) {
    const std::string_view own = std::string_view(candidate.plan->serial).substr(0, kSerialSize);
    return candidate.tap == nullptr && (serial.empty() || own == serial);
  });
  if (adapter == adapters_.end()) return kOpenSubsystem;
  if (const auto scripted = adapter->script.Next("canusb_Open")) return *scripted;
  if (!IsRate(rate)) return kInvalidParam;
  adapter->tap = bench_->Listen(adapter->plan->adapter);
  adapter->handle = ++last_handle_;
  return adapter->handle;
}

std::int32_t CanusbBench::Close(std::int32_t handle) {
  Adapter* const adapter = FindOpen(handle);
  std::int32_t result = kNotOpen;
  TapCounts counts;
  if (adapter != nullptr) {
    counts = adapter->tap->Counts();
    adapter->tap.reset();
    result = adapter->script.Next("canusb_Close").value_or(kOk);
  }
  bench_->Record().Line(CallLine("canusb_Close").Number(handle).Gives(result));
  if (adapter != nullptr) bench_->Record().Run(adapter->plan->serial, counts);
  return result;
}

std::int32_t CanusbBench::canusb_Read(std::int32_t handle, platform::CanusbMessage& message) {
  Adapter* const adapter = FindOpen(handle);
  if (adapter == nullptr) return kNotOpen;
  if (const auto scripted = adapter->script.Next("canusb_Read")) return *scripted;
  BusFrame frame;
  if (const auto failure = ReadFailure(*adapter->tap, frame, kNoMessage, kCommandSubsystem)) {
    return *failure;
  }
  const AdapterPlan& plan = adapter->plan->adapter;
  message.id = DeliveredId(plan, frame);
  message.timestamp = Stamp(kCanusbStamps, plan.clock, frame.time_us);
  message.flags = static_cast<std::uint8_t>((frame.extended ? kExtendedFlag : 0) |
                                            (frame.kind == FrameKind::kRemote ? kRemoteFlag : 0));
  message.len = DeliveredDlc(plan, frame);
  message.data = frame.data;
  return kOk;
}

std::int32_t CanusbBench::canusb_VersionInfo(std::int32_t handle,
                                             std::array<char, kVersionSize>& version) {
  const std::int32_t result = Version(handle, version);
  const std::string_view text(version.data(), version.size());
  bench_->Record().Line(
      CallLine("canusb_VersionInfo").Number(handle).Gives(result, text.substr(0, text.find('\0'))));
  return result;
}

std::int32_t CanusbBench::Version(std::int32_t handle, std::array<char, kVersionSize>& version) {
  version.fill('\0');
  Adapter* const adapter = FindOpen(handle);
  if (adapter == nullptr) return kNotOpen;
  if (const auto scripted = adapter->script.Next("canusb_VersionInfo")) return *scripted;
  WriteText(adapter->plan->version, version);
  return kOk;
}

CanusbBench::Adapter* CanusbBench::FindOpen(std::int32_t handle) {
  for (Adapter& adapter : adapters_) {
    if (adapter.tap != nullptr && adapter.handle == handle) return &adapter;
  }
  return nullptr;
}

}  // namespace tolvane::simulator
