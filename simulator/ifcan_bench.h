#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/ifcan_library.h"
#include "simulator/bench.h"

namespace tolvane::simulator {

/// IFCan.dll over the bench. A port is on the bus between activation and deactivation, and can be
/// opened once at a time. Its configuration is the bench file's again with every open.
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
    std::unique_ptr<BusTap> tap;  // null while it is not on the bus
  };

  Port* FindOpen(std::int32_t handle);
  std::int32_t Open(const std::string& name);
  template <typename Action>
  std::int32_t OnPort(std::string_view call, std::int32_t handle, Action action);
  void LeaveBus(Port& port);

  std::unique_ptr<Bench> bench_;
  std::vector<Port> ports_;
  std::int32_t last_handle_ = 0;
};

}  // namespace tolvane::simulator
