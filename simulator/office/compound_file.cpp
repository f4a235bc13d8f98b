#include "simulator/office/compound_file.h"

#include <algorithm>
#include <cstdint>

#include "simulator/office/little_endian.h"

namespace tolvane::office {
namespace {

// file = header, stream sectors, directory sector, allocation table sectors
constexpr std::size_t kSector = 512;
constexpr std::size_t kEntriesPerSector = kSector / 4;
constexpr std::size_t kTableSectorsInHeader = 109;
constexpr std::size_t kSmallestStream = 4096;  // shorter ones would live in a stream of their own

constexpr std::uint32_t kFree = 0xFFFFFFFF;
constexpr std::uint32_t kEndOfChain = 0xFFFFFFFE;
constexpr std::uint32_t kTableSector = 0xFFFFFFFD;

struct Layout {
  std::uint32_t stream_sectors;
  std::uint32_t table_sectors;
  [[nodiscard]] std::uint32_t Directory() const { return stream_sectors; }
  [[nodiscard]] std::uint32_t FirstTable() const { return stream_sectors + 1; }
};

Layout LayOut(std::size_t stream_size) {
  const std::size_t stream = stream_size / kSector;
  std::size_t table = 1;
  while (stream + 1 + table > table * kEntriesPerSector) ++table;
  return {static_cast<std::uint32_t>(stream), static_cast<std::uint32_t>(table)};
}

void AppendHeader(std::string& out, const Layout& layout) {
  out += "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
  out.append(16, '\0');     // class id
  Append16(out, 0x003E);    // minor version
  Append16(out, 3);         // major version: sectors of 512 bytes
  Append16(out, 0xFFFE);    // byte order
  Append16(out, 9);         // sector size as a power of two
  Append16(out, 6);         // small sector size
  out.append(6 + 4, '\0');  // reserved, count of directory sectors (0 in version 3)
  Append32(out, layout.table_sectors);
  Append32(out, layout.Directory());
  Append32(out, 0);  // transaction
  Append32(out, kSmallestStream);
  Append32(out, kEndOfChain);  // no table of small sectors
  Append32(out, 0);
  Append32(out, kEndOfChain);  // no further list of table sectors
  Append32(out, 0);
  for (std::uint32_t index = 0; index < kTableSectorsInHeader; ++index) {
    Append32(out, index < layout.table_sectors ? layout.FirstTable() + index : kFree);
  }
}

struct DirectoryEntry {
  std::string_view name;
  std::uint32_t type;  // 5 root, 2 stream, 0 unused
  std::uint32_t child;
  std::uint32_t first_sector;
  std::uint32_t size;
};

void AppendDirectoryEntry(std::string& out, const DirectoryEntry& entry) {
  for (const char character : entry.name) {
    Append16(out, static_cast<unsigned char>(character));
  }
  out.append(64 - 2 * entry.name.size(), '\0');
  Append16(out, entry.name.empty() ? 0 : static_cast<std::uint32_t>(2 * entry.name.size() + 2));
  Append8(out, entry.type);
  Append8(out, 1);  // black node of the tree
  Append32(out, kFree);
  Append32(out, kFree);
  Append32(out, entry.child);
  out.append(16 + 4 + 8 + 8, '\0');  // class id, state, times
  Append32(out, entry.first_sector);
  Append32(out, entry.size);
  Append32(out, 0);
}

void AppendTable(std::string& out, const Layout& layout) {
  for (std::uint32_t sector = 0; sector < layout.stream_sectors; ++sector) {
    Append32(out, sector + 1 < layout.stream_sectors ? sector + 1 : kEndOfChain);
  }
  Append32(out, kEndOfChain);  // the directory
  for (std::uint32_t sector = 0; sector < layout.table_sectors; ++sector) {
    Append32(out, kTableSector);
  }
  while (out.size() % kSector != 0) Append32(out, kFree);
}

}  // namespace

std::optional<std::string> WriteCompoundFile(std::string_view name, std::string_view content) {
  const std::size_t size =
      std::max(kSmallestStream, (content.size() + kSector - 1) / kSector * kSector);
  const Layout layout = LayOut(size);
  if (layout.table_sectors > kTableSectorsInHeader) return std::nullopt;
  std::string out;
  out.reserve(size + (layout.table_sectors + 2) * kSector);
  AppendHeader(out, layout);
  out += content;
  out.append(size - content.size(), '\0');
  AppendDirectoryEntry(out, {"Root Entry", 5, 1, kEndOfChain, 0});
  AppendDirectoryEntry(out, {name, 2, kFree, 0, static_cast<std::uint32_t>(size)});
  AppendDirectoryEntry(out, {"", 0, kFree, 0, 0});
  AppendDirectoryEntry(out, {"", 0, kFree, 0, 0});
  AppendTable(out, layout);
  return out;
}

}  // namespace tolvane::office
