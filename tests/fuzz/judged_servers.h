#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "platform/automation.h"

namespace tolvane::fuzz {

/// Spreadsheet programs under every name, which carry out whatever they are asked and count the
/// records that come.
class JudgedServers final : public platform::AutomationServers {
 public:
  /// None can be made without a version.
  explicit JudgedServers(std::optional<std::int32_t> version) : version_(version) {}

  std::unique_ptr<platform::AutomationObject> CreateObject(StringView name) override;

  /// The n-th operation from now on, counted from 1, is refused; 0 for none.
  void FailAt(std::int32_t n) { fail_in_ = n; }
  /// Runs inside each operation.
  void WhileCalled(std::function<void()> handler) { while_called_ = std::move(handler); }

  [[nodiscard]] std::size_t Rows() const { return rows_; }
  [[nodiscard]] std::size_t Failures() const { return failures_; }
  void Forget() { rows_ = failures_ = 0; }

 private:
  class Object;
  [[nodiscard]] bool Operate();
  void Count(const platform::AutomationTable& table);

  std::optional<std::int32_t> version_;
  std::function<void()> while_called_;
  std::int32_t fail_in_ = 0;
  std::size_t rows_ = 0;
  std::size_t failures_ = 0;
};

}  // namespace tolvane::fuzz
