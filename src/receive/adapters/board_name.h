#pragma once

#include <cstdint>

#include "platform/string.h"

namespace tolvane {

/// Model name of a board of the company Interface, by two fields of its port record; empty for an
/// unknown pair.
[[nodiscard]] StringView Get_Board_Name(std::int32_t ulDeviceID, std::int32_t ulSubsystemID);

}  // namespace tolvane
