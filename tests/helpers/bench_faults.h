#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// What the simulated libraries say of a program's calls.
using Faults = std::vector<std::string>;

/// The fault lines of their report, from after the word "fault" on.
[[nodiscard]] inline Faults FaultsOf(const std::string& report) {
  constexpr std::string_view kMark = " fault: ";
  Faults faults;
  for (std::size_t at = 0; (at = report.find(kMark, at)) != std::string::npos;) {
    at += kMark.size();
    const std::size_t end = report.find_first_of("\r\n", at);
    faults.push_back(report.substr(at, end - at));
  }
  return faults;
}

}  // namespace tolvane
