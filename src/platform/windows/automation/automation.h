#pragma once

#include "platform/automation.h"

namespace tolvane::platform::windows {

/// Automation by IDispatch. The thread must have been entered into a single-threaded apartment.
class WindowsAutomationServers final : public AutomationServers {
 public:
  [[nodiscard]] std::unique_ptr<AutomationObject> CreateObject(StringView name) override;
};

}  // namespace tolvane::platform::windows
