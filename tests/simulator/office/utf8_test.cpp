#include "simulator/office/utf8.h"

#include <gtest/gtest.h>

#include "simulator/office/xml_text.h"

namespace tolvane::office {
namespace {

TEST(OfficeUtf8, WritesOneToFourBytes) {
  EXPECT_EQ(ToUtf8(u"A\u00E9\u9664\U0001F600"), "A\xC3\xA9\xE9\x99\xA4\xF0\x9F\x98\x80");
}

TEST(OfficeUtf8, AHalfOfAPairBecomesTheReplacementCharacter) {
  EXPECT_EQ(ToUtf8(String{u'a', 0xD83D, u'b', 0xDE00}),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD");
}

TEST(OfficeUtf8, ReadsBackAndReplacesWhatIsNoText) {
  EXPECT_EQ(FromUtf8("A\xC3\xA9\xE9\x99\xA4\xF0\x9F\x98\x80"), u"A\u00E9\u9664\U0001F600");
  EXPECT_EQ(FromUtf8("\xFF"), u"\uFFFD");
  EXPECT_EQ(FromUtf8("\xC0\x80"), u"\uFFFD\uFFFD") << "overlong";
  EXPECT_EQ(FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD") << "surrogate";
  EXPECT_EQ(FromUtf8("\xE9\x99"), u"\uFFFD\uFFFD") << "cut off";
}

TEST(OfficeXmlText, EscapesMarkupAndControlCharacters) {
  std::string out;
  AppendXmlText(out,
                u"a<b>&\"c\t\x07\x1F"
                u"除");
  EXPECT_EQ(out, "a&lt;b&gt;&amp;\"c\t_x0007__x001F_\xE9\x99\xA4");
}

}  // namespace
}  // namespace tolvane::office
