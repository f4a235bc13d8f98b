#include "simulator/ifcan_bench.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "simulator/delivered.h"

namespace tolvane::simulator {
namespace {

using platform::IfcanConfig;

constexpr std::int32_t Status(std::uint32_t code) { return static_cast<std::int32_t>(code); }
constexpr std::int32_t kSuccess = 0;
constexpr std::int32_t kInvalidParameter = Status(0xC0000003);
constexpr std::int32_t kBufferIsEmpty = Status(0xC0000008);
constexpr std::int32_t kInvalidHandle = Status(0xC000000A);
constexpr std::int32_t kUsbioFailed = Status(0xC000000E);
constexpr std::uint32_t kExtendedMark = 0x80000000;
constexpr std::int32_t kRemoteMark = 1;  // in the record's second word

/// A code of the board's own table, or timing registers, which bit 31 marks.
bool IsRate(std::int32_t code) {
  constexpr auto kRates =
      std::to_array<std::int32_t>({39, 295, 570, 1338, 2358, 3364, 3876, 7459, 10020});
  return code < 0 || std::ranges::find(kRates, code) != kRates.end();
}

CallLine ConfigLine(std::string_view call, std::int32_t handle, const IfcanConfig& config) {
  CallLine line(call);
  line.Number(handle).Number(config.mode);
  for (const std::int32_t word : config.passed_through) line.Number(word);
  line.Number(config.baud_rate);
  return line;
}

}  // namespace

IfcanBench::IfcanBench(std::unique_ptr<Bench> bench) : bench_(std::move(bench)) {
  for (const IfcanPlan& plan : bench_->Config().ifcan) {
    ports_.push_back({.plan = &plan,
                      .script = CallScript(plan.adapter.results),
                      .handle = kClosed,
                      .config = {},
                      .tap = nullptr});
  }
}

IfcanBench::~IfcanBench() {
  for (Port& port : ports_) LeaveBus(port);
}

std::int32_t IfcanBench::CanOpenPort(const std::string& name) {
  const std::int32_t handle = Open(name);
  bench_->Record().Line(CallLine("CanOpenPort").Text(name).Gives(handle));
  return handle;
}

std::int32_t IfcanBench::Open(const std::string& name) {
  const auto port = std::ranges::find_if(ports_, [&](const Port& candidate) {
    return candidate.handle == kClosed && name == "IFCAN" + std::to_string(candidate.plan->port);
  });
  if (port == ports_.end()) return kClosed;
  if (const auto scripted = port->script.Next("CanOpenPort")) return *scripted;
  port->config = port->plan->config;
  port->handle = ++last_handle_;
  return port->handle;
}

/// What the script says for a call on an open port, else what `action` does.
template <typename Action>
std::int32_t IfcanBench::OnPort(std::string_view call, std::int32_t handle, Action action) {
  Port* const port = FindOpen(handle);
  if (port == nullptr) return kInvalidHandle;
  if (const auto scripted = port->script.Next(call)) return *scripted;
  return action(*port);
}

/// Closes even when the script gives an error, as an unplugged board does.
std::int32_t IfcanBench::CanClosePort(std::int32_t handle) {
  const std::int32_t status = OnPort("CanClosePort", handle, [](const Port&) { return kSuccess; });
  bench_->Record().Line(CallLine("CanClosePort").Number(handle).Gives(status));
  if (Port* const port = FindOpen(handle)) {
    LeaveBus(*port);
    port->handle = kClosed;
  }
  return status;
}

std::int32_t IfcanBench::CanGetConfig(std::int32_t handle, IfcanConfig& config) {
  const std::int32_t status = OnPort("CanGetConfig", handle, [&](const Port& port) {
    config = port.config;
    return kSuccess;
  });
  bench_->Record().Line(CallLine("CanGetConfig").Number(handle).Gives(status));
  return status;
}

std::int32_t IfcanBench::CanSetConfig(std::int32_t handle, const IfcanConfig& config) {
  const std::int32_t status = OnPort("CanSetConfig", handle, [&](Port& port) {
    if (!IsRate(config.baud_rate)) return kInvalidParameter;
    port.config = config;
    return kSuccess;
  });
  bench_->Record().Line(ConfigLine("CanSetConfig", handle, config).Gives(status));
  return status;
}

std::int32_t IfcanBench::CanActivate(std::int32_t handle) {
  const std::int32_t status = OnPort("CanActivate", handle, [&](Port& port) {
    if (port.tap == nullptr) port.tap = bench_->Listen(port.plan->adapter);
    return kSuccess;
  });
  bench_->Record().Line(CallLine("CanActivate").Number(handle).Gives(status));
  return status;
}

std::int32_t IfcanBench::CanDeactivate(std::int32_t handle) {
  const std::int32_t status = OnPort("CanDeactivate", handle, [](const Port&) { return kSuccess; });
  bench_->Record().Line(CallLine("CanDeactivate").Number(handle).Gives(status));
  if (Port* const port = FindOpen(handle)) LeaveBus(*port);
  return status;
}

std::int32_t IfcanBench::CanReceiveMessage(std::int32_t handle, platform::IfcanMessage& message,
                                           std::int32_t& count) {
  if (count < 1) return kInvalidParameter;
  count = 0;
  return OnPort("CanReceiveMessage", handle, [&](Port& port) {
    if (port.tap == nullptr) return kBufferIsEmpty;
    BusFrame frame;
    if (const auto failure = ReadFailure(*port.tap, frame, kBufferIsEmpty, kUsbioFailed)) {
      return *failure;
    }
    const AdapterPlan& plan = port.plan->adapter;
    message.dlc = DeliveredDlc(plan, frame);
    message.word2 = frame.kind == FrameKind::kRemote ? kRemoteMark : 0;
    message.id = DeliveredId(plan, frame, frame.extended ? kExtendedMark : 0);
    message.data = frame.data;
    message.timestamp = Stamp(kIfcanStamps, plan.clock, frame.time_us);
    count = 1;
    return kSuccess;
  });
}

std::int32_t IfcanBench::CanGetPortInformation(std::int32_t handle,
                                               platform::IfcanPortInformation& information) {
  const std::int32_t status = OnPort("CanGetPortInformation", handle, [&](const Port& port) {
    information = port.plan->information;
    return kSuccess;
  });
  bench_->Record().Line(CallLine("CanGetPortInformation").Number(handle).Gives(status));
  return status;
}

IfcanBench::Port* IfcanBench::FindOpen(std::int32_t handle) {
  const auto port = std::ranges::find(ports_, handle, &Port::handle);
  return handle == kClosed || port == ports_.end() ? nullptr : &*port;
}

void IfcanBench::LeaveBus(Port& port) {
  if (port.tap == nullptr) return;
  bench_->Record().Run("IFCAN" + std::to_string(port.plan->port), port.tap->Counts());
  port.tap.reset();
}

}  // namespace tolvane::simulator
