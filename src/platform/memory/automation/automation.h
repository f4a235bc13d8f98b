#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/automation.h"
#include "platform/memory/system/journal.h"

namespace tolvane::platform::memory {

/// Automation servers that only write to `journal` what they were asked to do:
/// `get Excel.Application.ActiveSheet`, `put Excel.Application.Visible = False`,
/// `call Excel.Application.Workbooks.Add()`. A get gives an object, but for Version of a server.
class AutomationServers final : public platform::AutomationServers {
 public:
  /// Empty: asking for it fails.
  using Version = std::variant<std::monostate, std::int32_t, double, String>;
  struct Table {
    std::vector<String> cells;
    std::size_t columns;
  };

  explicit AutomationServers(Journal& journal);

  void Register(StringView name, Version version = {});
  [[nodiscard]] std::unique_ptr<platform::AutomationObject> CreateObject(StringView name) override;

  /// The n-th get, put or call from now on, counted from 1, is refused; 0 for none.
  void FailAt(std::int32_t n) { session_->fail_in = n; }
  /// Runs inside every get, put and call, as a server does that lets messages through.
  void WhileCalled(std::function<void()> handler) { session_->while_called = std::move(handler); }

  [[nodiscard]] std::int32_t Operations() const { return session_->operations; }
  /// How many operations there had been at each beginning of a sequence.
  [[nodiscard]] const std::vector<std::int32_t>& Sequences() const { return session_->sequences; }
  /// Objects of all servers that the program has not released.
  [[nodiscard]] std::int32_t LiveObjects() const { return session_->live_objects; }
  /// Every table that was put, in order.
  [[nodiscard]] const std::vector<Table>& Tables() const { return session_->tables; }

 private:
  class Object;
  struct Session {
    Journal& journal;
    std::function<void()> while_called = {};
    std::int32_t fail_in = 0;
    std::int32_t operations = 0;
    std::int32_t live_objects = 0;
    std::vector<std::int32_t> sequences = {};
    std::vector<Table> tables = {};
  };

  std::shared_ptr<Session> session_;
  std::map<String, Version> servers_;
};

}  // namespace tolvane::platform::memory
