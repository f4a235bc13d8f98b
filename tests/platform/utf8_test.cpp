#include "platform/utf8.h"

#include <gtest/gtest.h>

namespace tolvane {
namespace {

TEST(Utf8, WritesOneToFourBytes) {
  EXPECT_EQ(ToUtf8(u"A\u00E9\u9664\U0001F600"), "A\xC3\xA9\xE9\x99\xA4\xF0\x9F\x98\x80");
}

TEST(Utf8, AHalfOfAPairBecomesTheReplacementCharacter) {
  EXPECT_EQ(ToUtf8(String{u'a', 0xD83D, u'b', 0xDE00}),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD");
}

}  // namespace
}  // namespace tolvane
