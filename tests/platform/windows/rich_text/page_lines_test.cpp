#include "platform/windows/rich_text/page_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace tolvane::platform::windows {
namespace {

std::vector<String> LinesOf(StringView text) {
  PageLines lines;
  lines.Find(text);
  std::vector<String> found;
  for (std::size_t i = 0; i < lines.Count(); ++i) {
    const PageLines::Line line = lines.At(i);
    found.emplace_back(text.substr(static_cast<std::size_t>(line.start),
                                   static_cast<std::size_t>(line.end - line.start)));
  }
  return found;
}

TEST(PageLines, EveryLineEndEndsOneLineAndOneMoreStandsBehindTheLast) {
  const struct {
    const char* label;
    StringView text;
    std::vector<String> lines;
  } rows[] = {
      {"nothing", u"", {u""}},
      {"no line end", u"ab", {u"ab"}},
      {"page", u"ab\r\nc\r\n", {u"ab", u"c", u""}},
      {"empty lines", u"\r\n\r\n", {u"", u"", u""}},
      {"lone CR and LF", u"a\rb\nc", {u"a", u"b", u"c"}},
      {"CR before CR LF", u"a\r\r\nb", {u"a", u"", u"b"}},
      {"CR at the end", u"a\r", {u"a", u""}},
  };
  for (const auto& row : rows) EXPECT_EQ(LinesOf(row.text), row.lines) << row.label;
}

TEST(PageLines, TheWidestLineCountsTwoCellsForFullWidthCharacters) {
  PageLines lines;
  lines.Find(u"abcde\r\n受信除外\r\nｱｲｳ\r\n");
  EXPECT_EQ(lines.WidestInCells(), 8);
  lines.Find(u"abc");
  EXPECT_EQ(lines.WidestInCells(), 3);
  EXPECT_EQ(lines.Count(), 1U);
}

/// Character by character.
struct Found {
  std::vector<String> lines{u""};
  std::int32_t widest = 0;
};
Found FoundSingly(StringView text) {
  Found found;
  std::int32_t cells = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'\r' || text[i] == u'\n') {
      if (text.substr(i, 2) == u"\r\n") ++i;
      found.lines.emplace_back();
      cells = 0;
      continue;
    }
    found.lines.back() += text[i];
    cells += text[i] < 0x7F || (text[i] >= 0xFF61 && text[i] <= 0xFF9F) ? 1 : 2;
    found.widest = std::max(found.widest, cells);
  }
  return found;
}

TEST(PageLines, AnyTextHasTheLinesOfItsSingleCharacters) {
  // Mostly characters of rows, so that lines of many lengths come, and those at their bounds.
  const String characters = String(200, u'0') +
                            u" ~aZ\r\n\r\n\x1F\x7F\x80\t\uFF60\uFF61\uFF9F\uFFA0\uFFFF\u0130"
                            u"\u3042" +
                            String(1, u'\0');
  std::mt19937 random(20261122);
  std::uniform_int_distribution<std::size_t> any(0, characters.size() - 1);
  for (std::size_t length = 0; length < 400; ++length) {
    String text;
    for (std::size_t i = 0; i < length; ++i) text += characters[any(random)];
    const Found singly = FoundSingly(text);
    ASSERT_EQ(LinesOf(text), singly.lines) << "length " << length;
    PageLines lines;
    lines.Find(text);
    ASSERT_EQ(lines.WidestInCells(), singly.widest) << "length " << length;
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
