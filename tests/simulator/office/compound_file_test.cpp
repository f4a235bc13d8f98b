#include "simulator/office/compound_file.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace tolvane::office {
namespace {

std::uint32_t Read32(std::string_view bytes, std::size_t offset) {
  std::uint32_t value = 0;
  for (std::size_t index = 4; index-- > 0;) {
    value = (value << 8) | static_cast<unsigned char>(bytes[offset + index]);
  }
  return value;
}

/// Follows the stream through the allocation table, as a reader does.
std::string ReadStream(std::string_view file) {
  const std::size_t directory = 512 + 512 * std::size_t{Read32(file, 48)};
  std::string stream;
  std::uint32_t sector = Read32(file, directory + 128 + 116);
  while (sector < 0xFFFFFFF0) {
    stream += file.substr(512 + 512 * std::size_t{sector}, 512);
    const std::size_t table = 512 + 512 * std::size_t{Read32(file, 76 + 4 * (sector / 128))};
    sector = Read32(file, table + 4 * (sector % 128));
  }
  EXPECT_EQ(stream.size(), Read32(file, directory + 128 + 120));
  return stream;
}

TEST(OfficeCompoundFile, AReaderFindsTheStreamAgain) {
  for (const std::size_t size : {0UL, 1UL, 4096UL, 4097UL, 63'900UL, 64'600UL, 3'000'000UL}) {
    std::string content(size, '\0');
    for (std::size_t index = 0; index < size; ++index) {
      content[index] = static_cast<char>(index * 31 / 7);
    }
    const std::optional<std::string> file = WriteCompoundFile("Workbook", content);
    ASSERT_TRUE(file) << size;
    EXPECT_EQ(file->size() % 512, 0U) << size;
    const std::string stream = ReadStream(*file);
    EXPECT_GE(stream.size(), 4096U) << size;
    EXPECT_EQ(stream.substr(0, size), content) << size;
    EXPECT_EQ(stream.find_first_not_of('\0', size), std::string::npos) << size;
  }
}

TEST(OfficeCompoundFile, IsEmptyWhenTheHeaderCannotListTheTable) {
  EXPECT_TRUE(WriteCompoundFile("Workbook", std::string(7'000'000, 'x')));
  EXPECT_FALSE(WriteCompoundFile("Workbook", std::string(7'200'000, 'x')));
}

}  // namespace
}  // namespace tolvane::office
