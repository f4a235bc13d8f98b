#include "platform/memory/rich_text/rtf_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "view/page_rtf.h"

namespace tolvane::platform::memory {
namespace {

using Runs = std::vector<ColourRun>;

String TextOf(StringView rtf) {
  const auto page = ReadRtf(rtf);
  return page ? page->text : u"no document";
}

TEST(RtfReader, WhatDoesNotBeginAsADocumentIsNone) {
  EXPECT_FALSE(ReadRtf(u"").has_value());
  EXPECT_FALSE(ReadRtf(u"plain text").has_value());
  EXPECT_FALSE(ReadRtf(u" {\\rtf1 a}").has_value());
  EXPECT_TRUE(ReadRtf(u"{\\rtf").has_value());
}

TEST(RtfReader, Texts) {
  struct Row {
    const char* label;
    StringView rtf, text;
  };
  const Row rows[] = {
      {"nothing", u"{\\rtf1}", u""},
      {"plain", u"{\\rtf1 abc}", u"abc"},
      {"line ends of the file do not count", u"{\\rtf1 a\r\nb\nc}", u"abc"},
      {"paragraphs", u"{\\rtf1 a\\par b\\par}", u"a\r\nb"},
      {"only the last line end is dropped", u"{\\rtf1 a\\par\\par}", u"a\r\n"},
      {"a line break is kept", u"{\\rtf1 a\\line}", u"a\r\n"},
      {"escaped line end", u"{\\rtf1 a\\\r\nb}", u"a\r\nb"},
      {"one blank belongs to the word", u"{\\rtf1\\b  a\\b0 b}", u" ab"},
      {"special characters", u"{\\rtf1 \\\\\\{\\}\\tab\\~}", u"\\{}\t\u00A0"},
      {"hexadecimal", u"{\\rtf1 \\'41\\'e9\\'5c}", u"A\u00E9\\"},
      {"broken hexadecimal", u"{\\rtf1 \\'4g\\'", u"\u0004g"},
      {"numbers with their fallback", u"{\\rtf1\\uc1 \\u-27036?\\u22806?.}", u"除外."},
      {"a longer fallback", u"{\\rtf1\\uc2\\u-27036\\'8f\\'9cx}", u"除x"},
      {"a word as fallback", u"{\\rtf1\\u233\\tab x}", u"éx"},
      {"a fallback ends with its group", u"{\\rtf1{\\uc9\\u233 ab}c}", u"éc"},
      {"no fallback", u"{\\rtf1\\uc0\\u233 ?}", u"é?"},
      {"hostile fallback count", u"{\\rtf1\\uc-5\\u233 a}", u"éa"},
      {"large numbers stop", u"{\\rtf1\\u99999999999999999999?b\\fs-99999999999999999999 c}",
       u"\uE0FFbc"},
      {"fonts, styles and pictures are passed over",
       u"{\\rtf1{\\fonttbl{\\f0 Name;}}{\\stylesheet s;}{\\pict 0102}{\\info{\\author x}}a}", u"a"},
      {"marked destinations are passed over", u"{\\rtf1{\\*\\generator x;}a{\\*\\b{c}d}e}", u"ae"},
      {"nothing inside them counts", u"{\\rtf1{\\*\\x{\\colortbl ;;}\\par b}a}", u"a"},
      {"binary data", u"{\\rtf1 a\\bin3 }}}b}", u"ab"},
      {"more binary data than there is", u"{\\rtf1 a\\bin999 b}", u"a"},
      {"negative binary data", u"{\\rtf1 a\\bin-3 b}", u"ab"},
      {"unknown words and symbols", u"{\\rtf1\\nosuchword5 a\\-\\:b}", u"ab"},
      {"broken off", u"{\\rtf1{{{a\\", u"a"},
      {"what follows the last group", u"{\\rtf1 a}b}c}", u"a"},
  };
  for (const Row& row : rows) EXPECT_EQ(TextOf(row.rtf), row.text) << row.label;
}

TEST(RtfReader, ColoursComeFromTheTable) {
  const auto page = ReadRtf(
      u"{\\rtf1{\\colortbl ;\\red255\\green1\\blue2;\\blue300\\red-7;}"
      u"a\\cf1 b{\\cf2\\highlight1 c}d\\cf0 e\\cb2 f\\plain g\\cf1 h}");
  ASSERT_TRUE(page.has_value());
  EXPECT_EQ(page->text, u"abcdefgh");
  EXPECT_EQ(page->colours.Runs(),
            (Runs{{1, 2, 0x0201FF}, {2, 3, 0xFF0000}, {3, 4, 0x0201FF}, {7, 8, 0x0201FF}}));
  EXPECT_EQ(page->backgrounds.Runs(), (Runs{{2, 3, 0x0201FF}, {5, 6, 0xFF0000}}));
}

TEST(RtfReader, ColoursOutsideTheTableAreTheDefault) {
  const auto page = ReadRtf(u"{\\rtf1{\\colortbl ;\\red1;}\\cf7 a\\cf-1 b\\cf0 c\\highlight 2 d}");
  ASSERT_TRUE(page.has_value());
  EXPECT_EQ(page->colours.Runs(), Runs{});
  EXPECT_EQ(page->backgrounds.Runs(), Runs{});
}

TEST(RtfReader, TheDroppedLineEndTakesItsColourAlong) {
  const auto page = ReadRtf(u"{\\rtf1{\\colortbl ;\\red1;}a\\cf1\\highlight1 b\\par}");
  ASSERT_TRUE(page.has_value());
  EXPECT_EQ(page->text, u"ab");
  EXPECT_EQ(page->colours.Runs(), (Runs{{1, 2, 1}}));
  EXPECT_EQ(page->backgrounds.Runs(), (Runs{{1, 2, 1}}));
}

RichTextPage Again(const RichTextPage& page) {
  std::string rtf;
  WritePageRtf(page, rtf);
  return ReadRtf(String(rtf.begin(), rtf.end())).value_or(RichTextPage{});
}

std::vector<std::int32_t> ColourByCharacter(const ColourRuns& runs, std::size_t length) {
  std::vector<std::int32_t> colours(length, -1);
  for (const ColourRun& run : runs.Runs()) {
    for (std::int32_t i = run.start; i < run.end; ++i) {
      colours[static_cast<std::size_t>(i)] = run.colour;
    }
  }
  return colours;
}

TEST(RtfRoundTrip, JapaneseTextAndAllOfUtf16Return) {
  String text =
      u"\r\nメッセージ除外範囲 3： 100 ～ "
      u"1FF\r\n除外設定をログ出力にも適用\r\nＣＡＮ受信ログ\\{}\t";
  for (std::uint32_t unit = 0x20; unit <= 0xFFFF; ++unit) text += static_cast<char16_t>(unit);
  EXPECT_EQ(Again({text, {}, {}}).text, text);
}

TEST(RtfRoundTrip, AnyPageReturnsWithItsColours) {
  std::mt19937 random(7);
  const StringView alphabet = u"a0 \\{}\u9664\u00E9\t\xD83D";
  const auto pick = [&](std::int32_t below) {
    return std::uniform_int_distribution<std::int32_t>(0, below - 1)(random);
  };
  for (int round = 0; round < 300; ++round) {
    RichTextPage page;
    for (std::int32_t i = pick(40); i > 0; --i) {
      if (pick(6) == 0) {
        page.text += u"\r\n";
      } else {
        page.text += alphabet[static_cast<std::size_t>(pick(10))];
      }
    }
    const auto length = static_cast<std::int32_t>(page.text.size());
    for (std::int32_t i = pick(8); i > 0; --i) {
      const std::int32_t start = pick(length + 1);
      ColourRuns& runs = pick(2) == 0 ? page.colours : page.backgrounds;
      runs.Paint(start, std::min(start + pick(9), length), pick(4) * 0x123456);
    }
    const RichTextPage again = Again(page);
    ASSERT_EQ(again.text, page.text);
    // Of the two characters of a line end the first one's colour counts.
    auto colours = ColourByCharacter(page.colours, page.text.size());
    auto backgrounds = ColourByCharacter(page.backgrounds, page.text.size());
    for (std::size_t i = 1; i < page.text.size(); ++i) {
      if (page.text[i] != u'\n') continue;
      colours[i] = colours[i - 1];
      backgrounds[i] = backgrounds[i - 1];
    }
    ASSERT_EQ(ColourByCharacter(again.colours, page.text.size()), colours);
    ASSERT_EQ(ColourByCharacter(again.backgrounds, page.text.size()), backgrounds);
  }
}

}  // namespace
}  // namespace tolvane::platform::memory
