#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>
#include <string>

#include "run/settings_list.h"

namespace tolvane {

/// Every field that config.dat keeps, one a line, in the order of the file.
inline std::string SettingsText(const ELM327_Info& device) {
  std::ostringstream lines;
  int number = 0;
  const auto visit = [&](const auto& field, const auto&... /*rest*/) {
    lines << ++number << ':';
    if constexpr (requires { field(std::int16_t{0}); }) {
      for (std::int16_t i = 0; i < 8; ++i) lines << ' ' << field(i);
    } else {
      lines << ' ' << testing::PrintToString(field);
    }
    lines << '\n';
  };
  VisitSettings(device, visit);
  return lines.str();
}

}  // namespace tolvane
