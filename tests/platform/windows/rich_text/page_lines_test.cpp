#include "platform/windows/rich_text/page_lines.h"

#include <gtest/gtest.h>

#include <string>

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

}  // namespace
}  // namespace tolvane::platform::windows
