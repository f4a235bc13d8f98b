#include "simulator/office/argument.h"

#include <cmath>

namespace tolvane::office {

bool HasCount(const Arguments& arguments, std::size_t count) {
  return arguments.positional.size() == count && !arguments.file_name && !arguments.file_format;
}

std::optional<bool> ToBool(const Value& value) {
  if (const bool* const flag = std::get_if<bool>(&value)) return *flag;
  if (const auto* const number = std::get_if<std::int32_t>(&value)) return *number != 0;
  return std::nullopt;
}

std::optional<std::int32_t> ToInteger(const Value& value) {
  if (const auto* const whole = std::get_if<std::int32_t>(&value)) return *whole;
  const double* const number = std::get_if<double>(&value);
  if (number == nullptr || std::abs(*number) > 1e9 || std::trunc(*number) != *number) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(*number);
}

std::optional<double> ToDouble(const Value& value) {
  if (const auto* const whole = std::get_if<std::int32_t>(&value)) return *whole;
  if (const double* const number = std::get_if<double>(&value)) return *number;
  return std::nullopt;
}

}  // namespace tolvane::office
