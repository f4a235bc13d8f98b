#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane::office {

/// What one server process is told to do beside its work.
struct Script {
  std::string record;         // path of the record in UTF-8, "" for none
  std::int32_t delay_ms = 0;  // waited before each operation, 0 to 60,000
  std::int32_t fail_at = 0;   // the operation that fails, counted from 1; 0 none
  std::uint32_t fail_with = 0x800A03EC;
  bool fail_creation = false;  // no object is made at all

  std::vector<std::string> problems;  // one text for each entry that was not understood
};

/// Reads the section [office] of an INI text in UTF-8; what is not understood keeps its default.
Script ParseScript(std::string_view ini);

}  // namespace tolvane::office
