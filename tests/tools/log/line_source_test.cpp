#include "tools/log/reading/line_source.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/log/memory_files.h"

namespace tolvane::logtool {
namespace {

using Outcome = LineSource::Outcome;

std::vector<std::string> LinesOf(ByteSource& bytes, Outcome& last) {
  LineSource source(bytes);
  std::vector<std::string> lines;
  std::string_view line;
  while ((last = source.Next(line)) == Outcome::kLine) lines.emplace_back(line);
  return lines;
}

TEST(LineSource, GivesTheSameLinesWhateverThePiecesAre) {
  const std::string text = "one\r\n\r\ntwo\nthree\r\nlast";
  const std::vector<std::string> expected = {"one", "", "two", "three", "last"};
  for (std::size_t piece = 1; piece <= text.size(); ++piece) {
    TextSource bytes(text, piece);
    Outcome last;
    EXPECT_EQ(LinesOf(bytes, last), expected) << piece;
    EXPECT_EQ(last, Outcome::kEnd);
  }
}

TEST(LineSource, ALineEndAtTheEndBeginsNoFurtherLine) {
  for (const char* const text : {"one\r\n", "one\n", "one"}) {
    TextSource bytes(text);
    Outcome last;
    EXPECT_EQ(LinesOf(bytes, last), std::vector<std::string>{"one"});
  }
  TextSource nothing("");
  Outcome last;
  EXPECT_TRUE(LinesOf(nothing, last).empty());
  EXPECT_EQ(last, Outcome::kEnd);
}

TEST(LineSource, ALineThatABlockCutsIsWhole) {
  std::string text;
  std::vector<std::string> expected;
  for (std::size_t i = 0; text.size() < 3 * LineSource::kLine_MAX; ++i) {
    expected.push_back(std::to_string(i) + std::string(i % 997, 'x'));
    text += expected.back() + "\r\n";
  }
  TextSource bytes(text, 2 * LineSource::kLine_MAX);
  Outcome last;
  EXPECT_EQ(LinesOf(bytes, last), expected);
}

TEST(LineSource, ALineThatIsTooLongIsToldOnceAndLeftOut) {
  for (const std::size_t length :
       {LineSource::kLine_MAX, LineSource::kLine_MAX + 1, 3 * LineSource::kLine_MAX}) {
    TextSource bytes("one\n" + std::string(length, 'x') + "\ntwo\n", 2 * LineSource::kLine_MAX);
    LineSource source(bytes);
    std::string_view line;
    ASSERT_EQ(source.Next(line), Outcome::kLine);
    ASSERT_EQ(source.Next(line), Outcome::kTooLong) << length;
    ASSERT_EQ(source.Next(line), Outcome::kLine) << length;
    EXPECT_EQ(line, "two");
    EXPECT_EQ(source.Next(line), Outcome::kEnd);
  }
}

TEST(LineSource, TheLongestLineIsGiven) {
  TextSource bytes(std::string(LineSource::kLine_MAX - 1, 'x') + "\ntwo\n");
  Outcome last;
  const auto lines = LinesOf(bytes, last);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].size(), LineSource::kLine_MAX - 1);
}

TEST(LineSource, AFailureComesBehindTheLinesThatWereRead) {
  TextSource bytes("one\ntwo\ncut", 5, true);
  Outcome last;
  EXPECT_EQ(LinesOf(bytes, last), (std::vector<std::string>{"one", "two"}));
  EXPECT_EQ(last, Outcome::kUnreadable);
}

}  // namespace
}  // namespace tolvane::logtool
