#include "simulator/ifcan_bench.h"

#include <algorithm>
#include <array>
#include <string>
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
constexpr std::int32_t kCannotAccess = Status(0xC0000009);
constexpr std::int32_t kInvalidHandle = Status(0xC000000A);
constexpr std::int32_t kUsbioFailed = Status(0xC000000E);
constexpr std::uint32_t kExtendedMark = 0x80000000;
constexpr std::int32_t kListenOnly = 1;  // of the mode word
constexpr std::int32_t kRemoteMark = 1;  // in the record's second word

/// Bits per second of a code of the board's own table; 0 for any other word.
std::int32_t BitRate(std::int32_t code) {
  constexpr auto kRates = std::to_array<std::pair<std::int32_t, std::int32_t>>({{39, 1'000'000},
                                                                                {295, 500'000},
                                                                                {570, 250'000},
                                                                                {1338, 125'000},
                                                                                {2358, 100'000},
                                                                                {3364, 95'200},
                                                                                {3876, 83'300},
                                                                                {7459, 50'000},
                                                                                {10020, 33'300}});
  for (const auto& [known, bit_rate] : kRates) {
    if (known == code) return bit_rate;
  }
  return 0;
}

/// Normal or listen-only. Bit 31 concerns sending and is ignored.
bool IsMode(std::int32_t mode) { return (mode & INT32_MAX) <= kListenOnly; }

bool MayLackPort(std::string_view call) {
  return call == "CanGetConfig" || call == "CanDeactivate" || call == "CanClosePort";
}

std::string NameOf(const IfcanPlan& plan) { return "IFCAN" + std::to_string(plan.port); }

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
                      .config_asked = false,
                      .configured = false,
                      .bus_asked = false,
                      .tap = nullptr});
  }
}

IfcanBench::~IfcanBench() {
  for (Port& port : ports_) {
    if (port.handle != kClosed) bench_->Record().Fault(NameOf(*port.plan) + " is left open");
    LeaveBus(port);
  }
}

std::int32_t IfcanBench::CanOpenPort(const std::string& name) {
  const std::int32_t handle = Open(name);
  bench_->Record().Line(CallLine("CanOpenPort").Text(name).Gives(handle));
  return handle;
}

std::int32_t IfcanBench::Open(const std::string& name) {
  const auto port = std::ranges::find(
      ports_, name, [](const Port& candidate) { return NameOf(*candidate.plan); });
  if (port == ports_.end()) return kClosed;
  if (port->handle != kClosed) return bench_->Refuse("CanOpenPort", "already open", kClosed);
  if (const auto scripted = port->script.Next("CanOpenPort")) return *scripted;
  port->config = port->plan->config;
  port->config_asked = port->configured = port->bus_asked = false;
  std::int32_t handle = 0;
  while (FindOpen(handle) != nullptr) ++handle;
  return port->handle = handle;
}

/// The result of a call on an open port: the scripted one, otherwise that of `action`.
template <typename Action>
std::int32_t IfcanBench::OnPort(std::string_view call, std::int32_t handle, Action action) {
  Port* const port = FindOpen(handle);
  if (port == nullptr && handle == kClosed && MayLackPort(call)) return kInvalidHandle;
  if (port == nullptr) {
    return bench_->Refuse(call, "no open port has the handle " + std::to_string(handle),
                          kInvalidHandle);
  }
  if (const auto scripted = port->script.Next(call)) return *scripted;
  return action(*port);
}

/// Closes even when the script gives an error, as an unplugged board does.
std::int32_t IfcanBench::CanClosePort(std::int32_t handle) {
  const std::int32_t status = OnPort("CanClosePort", handle, [](const Port&) { return kSuccess; });
  bench_->Record().Line(CallLine("CanClosePort").Number(handle).Gives(status));
  if (Port* const port = FindOpen(handle)) {
    if (port->tap != nullptr) bench_->Record().Fault("CanClosePort: the port is active");
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
  if (Port* const port = FindOpen(handle)) port->config_asked = true;
  const std::int32_t status = OnPort("CanSetConfig", handle, [&](Port& port) {
    if (port.tap != nullptr)
      return bench_->Refuse("CanSetConfig", "the port is active", kCannotAccess);
    port.config = config;
    port.configured = true;
    return kSuccess;
  });
  bench_->Record().Line(ConfigLine("CanSetConfig", handle, config).Gives(status));
  return status;
}

std::int32_t IfcanBench::CanActivate(std::int32_t handle) {
  if (Port* const port = FindOpen(handle)) port->bus_asked = true;
  const std::int32_t status =
      OnPort("CanActivate", handle, [this](Port& port) { return Activate(port); });
  bench_->Record().Line(CallLine("CanActivate").Number(handle).Gives(status));
  return status;
}

std::int32_t IfcanBench::Activate(Port& port) {
  constexpr std::string_view kCall = "CanActivate";
  if (port.tap != nullptr) return bench_->Refuse(kCall, "the port is active", kCannotAccess);
  // Not a fault of the program when the script has refused its configuration.
  if (!port.configured && port.config_asked) return kInvalidParameter;
  if (!port.configured) return bench_->Refuse(kCall, "never configured", kInvalidParameter);
  if (!IsMode(port.config.mode)) return bench_->Refuse(kCall, "no such mode", kInvalidParameter);
  if (port.config.passed_through != port.plan->config.passed_through) {
    return bench_->Refuse(kCall, "the board's own words are changed", kInvalidParameter);
  }
  const std::int32_t bit_rate = BitRate(port.config.baud_rate);
  if (bit_rate == 0) return bench_->Refuse(kCall, "no such rate", kInvalidParameter);
  const bool silent = (port.config.mode & kListenOnly) != 0;
  bench_->JudgeRate(NameOf(*port.plan), bit_rate);
  port.tap =
      bench_->Listen(NameOf(*port.plan), port.plan->adapter,
                     {.bit_rate = bit_rate, .driver = silent ? kSilentDriver : kNormalDriver});
  return kSuccess;
}

std::int32_t IfcanBench::CanDeactivate(std::int32_t handle) {
  const std::int32_t status = OnPort("CanDeactivate", handle, [this](const Port& port) {
    return port.bus_asked ? kSuccess
                          : bench_->Refuse("CanDeactivate", "the port is not active", kSuccess);
  });
  bench_->Record().Line(CallLine("CanDeactivate").Number(handle).Gives(status));
  if (Port* const port = FindOpen(handle)) {
    LeaveBus(*port);
    port->bus_asked = false;
  }
  return status;
}

std::int32_t IfcanBench::CanReceiveMessage(std::int32_t handle, platform::IfcanMessage& message,
                                           std::int32_t& count) {
  return OnPort("CanReceiveMessage", handle,
                [&](Port& port) { return Receive(port, message, count); });
}

/// `count` is set to the number of frames read, so a program that does not set it back to 1 reads
/// nothing the next time.
std::int32_t IfcanBench::Receive(Port& port, platform::IfcanMessage& message, std::int32_t& count) {
  constexpr std::string_view kCall = "CanReceiveMessage";
  if (count != 1) return bench_->Refuse(kCall, "the room is not one record", kInvalidParameter);
  count = 0;
  if (!port.bus_asked) return bench_->Refuse(kCall, "the port is not active", kBufferIsEmpty);
  if (port.tap == nullptr) return kBufferIsEmpty;
  BusFrame frame;
  if (const auto failure = ReadFailure(*port.tap, frame, kBufferIsEmpty, kUsbioFailed)) {
    return *failure;
  }
  const AdapterPlan& plan = port.plan->adapter;
  message.dlc = DeliveredDlc(plan, frame);
  message.word2 = frame.kind == FrameKind::kRemote ? kRemoteMark : 0;
  message.id = DeliveredId(plan, frame, frame.extended ? kExtendedMark : 0);
  DeliverData(plan, frame, message.data);
  message.timestamp = Stamp(kIfcanStamps, plan.clock, frame.time_us);
  count = 1;
  return kSuccess;
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
  bench_->Record().Run(NameOf(*port.plan), port.tap->Counts());
  port.tap.reset();
}

}  // namespace tolvane::simulator
