#pragma once

#include <cstdint>
#include <string_view>

namespace tolvane::office {

/// CRC-32 as ZIP archives use it (reflected polynomial EDB88320). `before` is the value of the
/// bytes ahead, so that a text can be summed piece by piece.
std::uint32_t Crc32(std::string_view bytes, std::uint32_t before = 0);

}  // namespace tolvane::office
