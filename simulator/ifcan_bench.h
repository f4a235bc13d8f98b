#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/ifcan_library.h"
#include "simulator/bench.h"

namespace tolvane::simulator {

/// IFCan.dll on the bench. A port is on the bus between activation and deactivation, and can be
/// opened only once at a time. Each open resets its configuration to that of the bench file. A
/// configuration that was written is checked by the activation; if none was written, activation
/// fails. A handle is the lowest free number, from 0. The handle -1, of a port that did not open,
/// is not a fault in CanGetConfig, CanDeactivate and CanClosePort: a program that checks only the
/// result of CanGetConfig calls these.
class IfcanBench : public platform::IfcanLibrary {
 public:
  explicit IfcanBench(std::unique_ptr<Bench> bench);
  ~IfcanBench() override;

  std::int32_t CanOpenPort(const std::string& name) override;
  std::int32_t CanClosePort(std::int32_t handle) override;
  std::int32_t CanGetConfig(std::int32_t handle, platform::IfcanConfig& config) override;
  std::int32_t CanSetConfig(std::int32_t handle, const platform::IfcanConfig& config) override;
  std::int32_t CanActivate(std::int32_t handle) override;
  std::int32_t CanDeactivate(std::int32_t handle) override;
  std::int32_t CanReceiveMessage(std::int32_t handle, platform::IfcanMessage& message,
                                 std::int32_t& count) override;
  std::int32_t CanGetPortInformation(std::int32_t handle,
                                     platform::IfcanPortInformation& information) override;

 private:
  static constexpr std::int32_t kClosed = -1;

  struct Port {
    const IfcanPlan* plan;
    CallScript script;
    std::int32_t handle = kClosed;
    platform::IfcanConfig config{};
    bool config_asked = false;  // a configuration has come, taken or not
    bool configured = false;
    bool bus_asked = false;       // an activation has come, taken or not, and no deactivation since
    std::unique_ptr<BusTap> tap;  // null while it is not on the bus
  };

  Port* FindOpen(std::int32_t handle);
  std::int32_t Open(const std::string& name);
  template <typename Action>
  std::int32_t OnPort(std::string_view call, std::int32_t handle, Action action);
  std::int32_t Activate(Port& port);
  std::int32_t Receive(Port& port, platform::IfcanMessage& message, std::int32_t& count);
  void LeaveBus(Port& port);

  std::unique_ptr<Bench> bench_;
  std::vector<Port> ports_;
};

}  // namespace tolvane::simulator
