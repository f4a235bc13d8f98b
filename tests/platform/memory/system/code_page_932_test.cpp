#include "platform/memory/system/code_page_932.h"

#include <gtest/gtest.h>

namespace tolvane::platform::memory {
namespace {

class CodePage932Test : public ::testing::Test {
 protected:
  std::string Encoded(StringView text) {
    std::string bytes;
    code_page.Encode(text, bytes);
    return bytes;
  }

  CodePage932 code_page;
};

TEST_F(CodePage932Test, EncodesAndDecodesItsCharacters) {
  struct Row {
    const char* label;
    StringView text;
    std::string_view bytes;
  };
  const Row rows[] = {{"empty", u"", ""},
                      {"ASCII", u"A~\\\r\n\x7F", "A~\\\r\n\x7F"},
                      {"full width", u"時間：表", "\x8e\x9e\x8a\xd4\x81\x46\x95\x5c"},
                      {"half-width katakana", u"ｱﾟ", "\xb1\xdf"},
                      {"among ASCII", u"a表b表",
                       "a\x95\x5c"
                       "b\x95\x5c"},
                      {"row 13", u"①", "\x87\x40"},
                      {"wide tilde, not wave dash", u"\uFF5E", "\x81\x60"}};
  for (const Row& row : rows) {
    EXPECT_EQ(Encoded(row.text), row.bytes) << row.label;
    EXPECT_EQ(code_page.Decode(row.bytes), row.text) << row.label;
  }
}

TEST_F(CodePage932Test, AppendsToWhatIsThere) {
  std::string bytes = "x";
  code_page.Encode(u"表", bytes);
  EXPECT_EQ(bytes, "x\x95\x5c");
}

TEST_F(CodePage932Test, WhatThePageLacksIsOneQuestionMarkAndNoBestFit) {
  EXPECT_EQ(Encoded(u"\u20AC"), "?");
  EXPECT_EQ(Encoded(u"\u00A5"), "?") << "no backslash for a yen sign";
  EXPECT_EQ(Encoded(u"\u203E"), "?") << "no tilde for an overline";
  EXPECT_EQ(Encoded(u"\u301C"), "?") << "no wide tilde for a wave dash";
  EXPECT_EQ(Encoded(u"\u00E9"), "?") << "no e for its accented form";
  EXPECT_EQ(Encoded(u"a\U0001F600b"), "a?b") << "a pair is one character";
  const char16_t lone[] = {u'a', 0xD83D, u'b', 0xDE00};
  EXPECT_EQ(Encoded(StringView(lone, 4)), "a?b?");
}

TEST_F(CodePage932Test, AnyBytesDecodeAndBrokenOnesShow) {
  EXPECT_EQ(code_page.Decode("\x81"), u"\u30FB");
  EXPECT_EQ(code_page.Decode("a\x81\r\n"), u"a\u30FB\r\n") << "a line end is not swallowed";
  EXPECT_EQ(code_page.Decode("\x81\xad"
                             "b"),
            u"\u30FB"
            u"b");
  for (int first = 0; first < 256; ++first) {
    for (int second = 0; second < 256; ++second) {
      const std::string bytes = {static_cast<char>(first), static_cast<char>(second)};
      const String text = code_page.Decode(bytes);
      ASSERT_TRUE(text.size() == 1 || text.size() == 2) << first << ' ' << second;
    }
  }
}

}  // namespace
}  // namespace tolvane::platform::memory
