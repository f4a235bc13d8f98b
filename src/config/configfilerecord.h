#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "platform/code_page.h"
#include "run/elm327_info.h"

namespace tolvane {

// The one record that config.dat holds: the fields of run/settings_list.h, packed and
// little-endian, without padding, from byte 0:
//   number   4 bytes, two's complement
//   ratio    8 bytes, IEEE 754 double
//   text     2 bytes unsigned: count of the bytes that follow; then these bytes, in the system
//            code page, without terminator
//   table    8 numbers
// 382 bytes and the bytes of five texts in all.

constexpr std::size_t kConfigText_MAX = 65535;  // bytes
constexpr std::size_t kConfigFileRecord_MAX = 382 + 5 * kConfigText_MAX;

/// A text that takes more than kConfigText_MAX bytes is cut behind a whole character; elements of a
/// table above its highest index are 0.
[[nodiscard]] std::vector<std::byte> EncodeConfigFileRecord(const ELM327_Info& device,
                                                            platform::CodePage& code_page);

/// Fills the fields of `device`, also those that say whose file it is. What is of a later version
/// than the file stays as it is, and so do elements of a table above its highest index.
///
/// Never fails: from the first field on that is not there whole, numbers are 0 and texts empty.
/// What lies behind the record is not looked at.
void DecodeConfigFileRecord(std::span<const std::byte> bytes, platform::CodePage& code_page,
                            ELM327_Info& device);

}  // namespace tolvane
