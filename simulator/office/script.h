#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane::office {

/// How a busy program turns a call away.
enum class BusyAs {
  kRejected,   // RPC_E_CALL_REJECTED, by the machinery ahead of the object
  kLater,      // RPC_E_SERVERCALL_RETRYLATER
  kSuspended,  // 0x800AC472 as the result of the call
  kException,  // 0x800AC472 inside an exception
};

/// What one server process is told to do beside its work.
struct Script {
  std::int32_t delay_ms = 0;       // waited before each operation, 0 to 60,000
  std::int32_t fail_at = 0;        // the operation that fails, counted from 1; 0 none
  std::int32_t fail_creation = 0;  // 1: no object is made at all
  // From operation `busy_at` on, 0 being the creation, `busy_calls` calls are turned away, or all
  // for `busy_ms` from the first one on. They count as no operations.
  std::int32_t busy_at = 0;
  std::int32_t busy_calls = 0;
  std::int32_t busy_ms = 0;
  BusyAs busy_as = BusyAs::kRejected;

  std::vector<std::string> problems;  // one text for each entry that was not understood
};

/// Reads the section [office] of an INI text; what is not understood keeps its default.
Script ParseScript(std::string_view ini);

}  // namespace tolvane::office
