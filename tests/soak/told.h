#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

namespace tolvane::soak {

// How the report tells figures.

[[nodiscard]] inline std::string Counted(std::int64_t count, const char* what) {
  return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

/// With one decimal.
[[nodiscard]] inline std::string Told(double value, const char* unit) {
  char text[48];
  std::snprintf(text, sizeof text, "%.1f %s", value, unit);
  return text;
}

[[nodiscard]] inline std::string Milliseconds(std::int64_t us) {
  return Told(static_cast<double>(us) / 1000, "ms");
}

[[nodiscard]] inline std::string Megabytes(std::int64_t kb) {
  return Told(static_cast<double>(kb) / 1024, "MB");
}

}  // namespace tolvane::soak
