#include "platform/windows/code_page.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/windows/win32.h"

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
  String text((1 << 20) - 1, u'a');
  text += u"\U0001F697z";
  const std::string bytes = Encoded(text);
  ASSERT_EQ(bytes.size(), static_cast<std::size_t>(1 << 20) + 1);
  EXPECT_EQ(bytes.substr(bytes.size() - 3), "a?z");
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
