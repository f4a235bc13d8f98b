#include "platform/windows/system/code_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>

#include "platform/windows/system/win32.h"

namespace tolvane::platform::windows {
namespace {

class CodePage932 : public testing::Test {
 protected:
  void SetUp() override {
    if (GetACP() != 932) GTEST_SKIP() << "the system code page is " << GetACP();
  }

  std::string Encoded(StringView text) {
    std::string bytes;
    page_.Encode(text, bytes);
    return bytes;
  }

  WindowsCodePage page_;
};

TEST_F(CodePage932, WritesJapaneseAsShiftJis) {
  EXPECT_EQ(Encoded(u"経過時間 [ms],ＣＡＮ\r\n"),
            "\x8c\x6f\x89\xdf\x8e\x9e\x8a\xd4 [ms],\x82\x62\x82\x60\x82\x6d\r\n");
}

TEST_F(CodePage932, NeverTakesABestFit) {
  EXPECT_EQ(Encoded(u"\u00A5\u00A9\u00E9"), "???") << "yen, copyright, e acute";
}

TEST_F(CodePage932, ACodePointOfTwoUnitsBecomesOneQuestionMark) {
  EXPECT_EQ(Encoded(u"a\U0001F697b"), "a?b");
}

TEST_F(CodePage932, ALoneSurrogateBecomesOneQuestionMark) {
  const char16_t high[] = {u'a', 0xD83D, u'b', 0};
  const char16_t low[] = {u'a', 0xDE97, 0};
  EXPECT_EQ(Encoded(high), "a?b");
  EXPECT_EQ(Encoded(low), "a?");
}

TEST_F(CodePage932, AppendsBehindWhatIsThere) {
  std::string bytes = "x";
  page_.Encode(u"y", bytes);
  page_.Encode(u"", bytes);
  EXPECT_EQ(bytes, "xy");
}

TEST_F(CodePage932, SurvivesAPairOnTheEdgeOfAPiece) {
  String text((1 << 20) - 1, u'ｱ');
  text += u"\U0001F697z";
  const std::string bytes = Encoded(text);
  ASSERT_EQ(bytes.size(), static_cast<std::size_t>(1 << 20) + 1);
  EXPECT_EQ(bytes.substr(bytes.size() - 3), "\xb1?z");
}

/// The shortest of several runs, so that a busy machine does not count.
template <typename Work>
std::chrono::steady_clock::duration Shortest(Work work) {
  auto shortest = std::chrono::steady_clock::duration::max();
  for (int run = 0; run < 30; ++run) {
    const auto start = std::chrono::steady_clock::now();
    work();
    shortest = std::min(shortest, std::chrono::steady_clock::now() - start);
  }
  return shortest;
}

// Reception stops while a channel of 20,001 lines is written: the encoding has some 1.2 million
// characters and a few milliseconds.
TEST_F(CodePage932, TheTextOfALogTakesHardlyLongerThanACopyOfItsCharacters) {
  String text(1'200'000, u'0');
  std::string bytes;
  const auto encoding = Shortest([&] {
    bytes.clear();
    page_.Encode(text, bytes);
  });
  EXPECT_EQ(bytes, std::string(text.size(), '0'));
  String copy;
  const auto copying = Shortest([&] {
    copy.clear();
    for (const char16_t unit : text) copy.push_back(unit);
  });
  EXPECT_EQ(copy, text);
  EXPECT_LT(encoding * 2, copying * 3);
}

TEST_F(CodePage932, ReadsItsOwnBytesBack) {
  const String text = u"コメント ｱｲｳ abc\r\n";
  EXPECT_EQ(page_.Decode(Encoded(text)), text);
  EXPECT_EQ(page_.Decode(""), u"");
}

TEST_F(CodePage932, BrokenBytesAreNoFailure) {
  const String text = page_.Decode("ab\x81");
  EXPECT_EQ(text.substr(0, 2), u"ab");
}

}  // namespace
}  // namespace tolvane::platform::windows
