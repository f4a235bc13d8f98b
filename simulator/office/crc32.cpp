#include "simulator/office/crc32.h"

#include <array>

namespace tolvane::office {
namespace {

constexpr std::array<std::uint32_t, 256> MakeTable() {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t value = byte;
    for (int bit = 0; bit < 8; ++bit) {
      value = (value >> 1) ^ ((value & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    table[byte] = value;
  }
  return table;
}

constexpr std::array<std::uint32_t, 256> kTable = MakeTable();

}  // namespace

std::uint32_t Crc32(std::string_view bytes, std::uint32_t before) {
  std::uint32_t value = ~before;
  for (const char character : bytes) {
    value = (value >> 8) ^ kTable[(value ^ static_cast<unsigned char>(character)) & 0xFFU];
  }
  return ~value;
}

}  // namespace tolvane::office
