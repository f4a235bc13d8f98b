#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "platform/byte_text.h"
#include "receive/adapters/handle_text.h"

namespace tolvane {
namespace {

TEST(HandleText, GoesThereAndBack) {
  const struct {
    std::int32_t handle;
    StringView text;
  } kHandles[] = {
      {0, u"0"}, {-1, u"-1"}, {42, u"42"}, {INT32_MAX, u"2147483647"}, {INT32_MIN, u"-2147483648"}};
  for (const auto& row : kHandles) {
    EXPECT_EQ(HandleText(row.handle), row.text);
    EXPECT_EQ(HandleNumber(row.text), row.handle);
  }
}

TEST(NarrowText, GoesThereAndBackByteForByte) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes.push_back(static_cast<char>(byte));
  EXPECT_EQ(NarrowText(WideText(bytes)), bytes);
  EXPECT_EQ(WideText("\x83\x41"), u"\x83\x41");
}

}  // namespace
}  // namespace tolvane
