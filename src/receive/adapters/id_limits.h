#pragma once

#include <cstdint>

#include "receive/adapters/canusb.h"

namespace tolvane {

// The highest identifiers of the two frame formats, whatever the adapter.
constexpr std::int32_t kMaxStandardID = CANUSB{}.CAN_MAX_STANDARD_ID;
constexpr std::int32_t kMaxExtendedID = CANUSB{}.CAN_MAX_EXTENDED_ID;

}  // namespace tolvane
