#pragma once

#include <cstdint>
#include <string>

namespace tolvane::office {

/// Appends the low `bytes` bytes (1 to 4) of `value`, lowest first.
inline void AppendLittleEndian(std::string& out, std::uint32_t value, int bytes) {
  for (int index = 0; index < bytes; ++index) {
    out.push_back(static_cast<char>((value >> (8 * index)) & 0xFFU));
  }
}

inline void Append8(std::string& out, std::uint32_t value) { AppendLittleEndian(out, value, 1); }
inline void Append16(std::string& out, std::uint32_t value) { AppendLittleEndian(out, value, 2); }
inline void Append32(std::string& out, std::uint32_t value) { AppendLittleEndian(out, value, 4); }

}  // namespace tolvane::office
