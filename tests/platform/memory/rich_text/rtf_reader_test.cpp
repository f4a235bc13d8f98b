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

const String kHead =
    u"{\\rtf1\\ansi\\ansicpg932\\deff0\\deflang1033\\deflangfe1041{\\fonttbl{"
    u"\\f0\\fnil\\fcharset128 "
    u"\\'82\\'6c\\'82\\'72 \\'83\\'53\\'83\\'56\\'83\\'62\\'83\\'4e;}}\r\n{\\colortbl ;";
const String kStart = u"}\r\n\\viewkind4\\uc1\\pard\\lang1041\\f0\\fs18 ";
const String kEnd = u"\\par\r\n}\r\n";

std::optional<RichTextPage> ReadBody(StringView body) {
  return ReadRtf(kHead + u"\\red1\\green2\\blue3;\\red255\\green0\\blue0;" + kStart + String(body) +
                 kEnd);
}

TEST(RtfReader, Texts) {
  struct Row {
    const char* label;
    StringView body, text;
  };
  const Row rows[] = {{"nothing", u"", u""},
                      {"plain", u" a~ b ", u" a~ b "},
                      {"line ends", u"\\par\r\na\\par\r\n", u"\r\na\r\n"},
                      {"escaped", u"\\\\\\{\\}\\tab x", u"\\{}\tx"},
                      {"other control characters", u"\\'00\\'1f\\'0b", StringView(u"\0\x1F\v", 3)},
                      {"above ASCII", u"\\u-27036?\\u22806?\\u127?", u"除外\x7F"}};
  for (const Row& row : rows) {
    const auto page = ReadBody(row.body);
    ASSERT_TRUE(page) << row.label;
    EXPECT_EQ(page->text, row.text) << row.label;
  }
}

TEST(RtfReader, ColoursComeFromTheTable) {
  const auto page = ReadBody(u"a\\cf1 b\\cf2\\highlight1 c\\highlight0 d\\cf0 e\\highlight2 f");
  ASSERT_TRUE(page);
  EXPECT_EQ(page->text, u"abcdef");
  EXPECT_EQ(page->colours.Runs(), (Runs{{1, 2, 0x030201}, {2, 4, 0x0000FF}}));
  EXPECT_EQ(page->backgrounds.Runs(), (Runs{{2, 3, 0x030201}, {5, 6, 0x0000FF}}));
}

TEST(RtfReader, ADocumentMadeBlackHasAColourAheadOfItsStart) {
  const auto page =
      ReadRtf(kHead + u"\\red0\\green0\\blue0;}\\cf1 " + kStart.substr(1) + u"a" + kEnd);
  ASSERT_TRUE(page);
  EXPECT_EQ(page->text, u"a");
  EXPECT_EQ(page->colours.Runs(), (Runs{{0, 1, 0}}));
}

TEST(RtfReader, WhatTheWriterDoesNotWriteIsNoPage) {
  for (const StringView rtf : {u"", u"plain text", u"{\\rtf1 a}", u"{\\rtf1\\ansi\\par\r\n}\r\n"}) {
    EXPECT_FALSE(ReadRtf(rtf)) << String(rtf).size();
  }
  EXPECT_FALSE(ReadRtf(kHead + u"\\red1;" + kStart + kEnd)) << "two components missing";
  EXPECT_FALSE(ReadRtf(kHead + u"\\red256\\green0\\blue0;" + kStart + kEnd));
  EXPECT_FALSE(ReadRtf(kHead + u"\\red\\green0\\blue0;" + kStart + kEnd));
  EXPECT_FALSE(ReadRtf(kHead + u"\\red1\\green0\\blue0" + kStart + kEnd)) << "no semicolon";
  EXPECT_FALSE(ReadRtf(kHead + kStart + u"a}\r\n")) << "the last line without its end";
  EXPECT_FALSE(ReadRtf(kHead + kStart + u"a" + kEnd + u"\r\n")) << "more behind it";

  const StringView bodies[] = {
      u"{a}",       u"a}",     u"\\b a",    u"\\par a",    u"\\tab",     u"a\r\nb",
      u"\\line",    u"\\'41",  u"\\'1F",    u"\\'0d",      u"\\'1",      u"\\'",
      u"\\u233 a",  u"\\u65?", u"\\u?",     u"\\u-40000?", u"\\u40000?", u"\\u233",
      u"\\cf3 a",   u"\\cf a", u"\\cf-1 a", u"\\cf1a",     u"\\cf1",     u"\\highlight1\\cf1 a",
      u"\\plain a", u"\\~",    u"\\",       u"\t",         u"é",         u"\\highlight3 a"};
  for (const StringView body : bodies) {
    EXPECT_FALSE(ReadBody(body)) << std::string(body.begin(), body.end());
  }
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
  for (std::uint32_t unit = 0x0E; unit <= 0xFFFF; ++unit) text += static_cast<char16_t>(unit);
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
