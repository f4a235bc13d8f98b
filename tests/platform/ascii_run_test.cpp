#include "platform/ascii_run.h"

#include <gtest/gtest.h>

namespace tolvane {
namespace {

TEST(AsciiRun, EndsAtTheFirstOtherCharacterWhereverItStands) {
  for (const std::size_t length : {0u, 1u, 63u, 64u, 65u, 127u, 128u, 200u, 5000u}) {
    for (const char16_t other : {u'\x80', u'\u00FF', u'\u0141', u'\uFF41'}) {
      String text(length, u'\x7F');
      text += other;
      text.append(100, u'b');
      std::string bytes = "x";
      EXPECT_EQ(AppendAsciiRun(text, bytes), length);
      EXPECT_EQ(bytes, "x" + std::string(length, '\x7F'));
    }
  }
}

TEST(AsciiRun, TakesAWholeTextWithEachCharacterAsItsOwnByte) {
  String text;
  std::string expected;
  for (int i = 0; i < 3 * 128; ++i) {
    text += static_cast<char16_t>(i % 128);
    expected += static_cast<char>(i % 128);
  }
  std::string bytes;
  EXPECT_EQ(AppendAsciiRun(text, bytes), text.size());
  EXPECT_EQ(bytes, expected);
  EXPECT_EQ(AppendAsciiRun(u"", bytes), 0U);
}

}  // namespace
}  // namespace tolvane
