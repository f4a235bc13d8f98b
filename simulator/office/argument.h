#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "simulator/office/value.h"

namespace tolvane::office {

/// True when there are so many positional arguments and none by name.
bool HasCount(const Arguments& arguments, std::size_t count);

/// A number by value stands for False when it is 0, else for True.
std::optional<bool> ToBool(const Value& value);

/// A whole number, also when it comes as a floating point one.
std::optional<std::int32_t> ToInteger(const Value& value);

std::optional<double> ToDouble(const Value& value);

}  // namespace tolvane::office
