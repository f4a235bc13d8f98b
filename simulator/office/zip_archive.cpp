#include "simulator/office/zip_archive.h"

#include <array>
#include <utility>

#include "simulator/office/little_endian.h"

namespace tolvane::office {
namespace {

// archive   = { local header, name, content } { central record, name } end record
// The local header and the central record share the thirteen bytes of fields that
// AppendCommonFields writes and the three sizes behind them.
constexpr std::uint32_t kLocalHeader = 0x04034B50;
constexpr std::uint32_t kCentralRecord = 0x02014B50;
constexpr std::uint32_t kEndRecord = 0x06054B50;
constexpr std::uint32_t kVersion = 20;
constexpr std::uint32_t kStored = 0;
constexpr std::uint32_t kDate = 0x0021;  // 1 January 1980

/// By the low byte of the remainder so far; reflected polynomial EDB88320.
constexpr std::array<std::uint32_t, 256> kCrcTable = [] {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t value = byte;
    for (int bit = 0; bit < 8; ++bit) {
      value = (value >> 1) ^ ((value & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    table[byte] = value;
  }
  return table;
}();

std::uint32_t Crc32(std::string_view bytes) {
  std::uint32_t value = 0xFFFFFFFF;
  for (const char character : bytes) {
    value = (value >> 8) ^ kCrcTable[(value ^ static_cast<unsigned char>(character)) & 0xFFU];
  }
  return ~value;
}

struct Entry {
  std::string_view name;
  std::uint32_t crc;
  std::uint32_t size;
};

void AppendCommonFields(std::string& out, const Entry& entry) {
  Append16(out, kVersion);
  Append16(out, 0);  // flags
  Append16(out, kStored);
  Append16(out, 0);  // time
  Append16(out, kDate);
  Append32(out, entry.crc);
  Append32(out, entry.size);  // as stored
  Append32(out, entry.size);  // as it was
  Append16(out, static_cast<std::uint32_t>(entry.name.size()));
  Append16(out, 0);  // extra field
}

}  // namespace

void ZipArchive::Add(std::string_view name, std::string_view content) {
  const Entry entry{name, Crc32(content), static_cast<std::uint32_t>(content.size())};
  const auto offset = static_cast<std::uint32_t>(local_.size());

  Append32(local_, kLocalHeader);
  AppendCommonFields(local_, entry);
  local_ += name;
  local_ += content;

  Append32(central_, kCentralRecord);
  Append16(central_, kVersion);  // made by
  AppendCommonFields(central_, entry);
  Append16(central_, 0);  // comment
  Append16(central_, 0);  // disk
  Append16(central_, 0);  // internal attributes
  Append32(central_, 0);  // external attributes
  Append32(central_, offset);
  central_ += name;
  ++entries_;
}

std::string ZipArchive::Finish() {
  const auto directory_offset = static_cast<std::uint32_t>(local_.size());
  std::string out = std::move(local_);
  out += central_;
  Append32(out, kEndRecord);
  Append16(out, 0);  // this disk
  Append16(out, 0);  // disk of the directory
  Append16(out, entries_);
  Append16(out, entries_);
  Append32(out, static_cast<std::uint32_t>(central_.size()));
  Append32(out, directory_offset);
  Append16(out, 0);  // comment
  return out;
}

}  // namespace tolvane::office
