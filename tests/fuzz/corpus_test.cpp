#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/fuzz/fuzz_entry.h"

namespace {

TEST(Corpus, EveryFileKeepsThePromisesOfItsTarget) {
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(TOLVANE_CORPUS)) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    ASSERT_FALSE(bytes.empty()) << entry.path();
    const std::basic_string<std::uint8_t> data(bytes.begin(), bytes.end());
    EXPECT_EQ(LLVMFuzzerTestOneInput(data.data(), data.size()), 0) << entry.path();
    ++files;
  }
  EXPECT_GE(files, 3U) << "no corpus in " TOLVANE_CORPUS;
}

}  // namespace
