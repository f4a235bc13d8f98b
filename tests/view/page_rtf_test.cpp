#include "view/page_rtf.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tolvane {
namespace {

constexpr std::string_view kFonts =
    "{\\rtf1\\ansi\\ansicpg932\\deff0\\deflang1033\\deflangfe1041{\\fonttbl{"
    "\\f0\\fnil\\fcharset128 "
    "\\'82\\'6c\\'82\\'72 \\'83\\'53\\'83\\'56\\'83\\'62\\'83\\'4e;}}\r\n";
constexpr std::string_view kBody = "\\viewkind4\\uc1\\pard\\lang1041\\f0\\fs18 ";

std::string Document(std::string_view colours, std::string_view body) {
  return std::string(kFonts) + "{\\colortbl ;" + std::string(colours) + "}\r\n" +
         std::string(kBody) + std::string(body) + "\\par\r\n}\r\n";
}

std::string Rtf(const platform::RichTextPage& page) {
  std::string rtf = "what was there before";
  WritePageRtf(page, rtf);
  return rtf;
}

TEST(PageRtf, AnEmptyPageIsOneEmptyParagraph) { EXPECT_EQ(Rtf({}), Document("", "")); }

TEST(PageRtf, LineEndsOfEachKindEndAParagraph) {
  EXPECT_EQ(Rtf({u"a\r\nb\rc\nd\r\n", {}, {}}),
            Document("", "a\\par\r\nb\\par\r\nc\\par\r\nd\\par\r\n"));
  EXPECT_EQ(Rtf({u"\n\r\n\n", {}, {}}), Document("", "\\par\r\n\\par\r\n\\par\r\n"));
}

TEST(PageRtf, TheThreeSpecialCharactersAndControlCharactersAreEscaped) {
  EXPECT_EQ(Rtf({u"\\ { } \t", {}, {}}), Document("", "\\\\ \\{ \\} \\tab "));
  EXPECT_EQ(Rtf({String(u"\0\x1F~\x7F", 4), {}, {}}), Document("", "\\'00\\'1f~\\u127?"));
}

TEST(PageRtf, EachOfThe32ControlCharactersHasItsOwnEscape) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  for (char16_t character = 0; character < u' '; ++character) {
    std::string escape = {'\\', '\'', kDigits[character / 16], kDigits[character % 16]};
    if (character == u'\t') escape = "\\tab ";
    if (character == u'\r' || character == u'\n') escape = "\\par\r\n";
    EXPECT_EQ(Rtf({String{u'a', character, u'b'}, {}, {}}), Document("", "a" + escape + "b"))
        << int{character};
  }
}

TEST(PageRtf, WhatIsNotAsciiBecomesANumberWithAFallback) {
  EXPECT_EQ(Rtf({u"除外 ～９", {}, {}}), Document("", "\\u-27036?\\u22806? \\u-162?\\u-231?"));
  EXPECT_EQ(Rtf({u"é\U0001F697", {}, {}}), Document("", "\\u233?\\u-10179?\\u-8553?"));
}

TEST(PageRtf, ColoursSwitchOnAndOffAroundTheirCharacters) {
  platform::RichTextPage page{u" 01 02 03\r\n", {}, {}};
  page.colours.Paint(1, 3, 0x0000FF);
  page.colours.Paint(7, 9, 0x030201);
  page.backgrounds.Paint(4, 9, 0xFFB3F3);
  EXPECT_EQ(Rtf(page),
            Document("\\red255\\green0\\blue0;\\red1\\green2\\blue3;\\red243\\green179\\blue255;",
                     " \\cf1 01\\cf0  \\highlight3 02 \\cf2 03\\cf0\\highlight0 \\par\r\n"));
}

TEST(PageRtf, NeighboursOfOneColourNeedNoSwitchAndEachColourStandsOnce) {
  platform::RichTextPage page{u"abcdef", {}, {}};
  page.colours.Paint(0, 2, 5);
  page.colours.Paint(2, 4, 5);
  page.colours.Paint(4, 5, 6);
  page.backgrounds.Paint(5, 6, 5);
  EXPECT_EQ(Rtf(page), Document("\\red5\\green0\\blue0;\\red6\\green0\\blue0;",
                                "\\cf1 abcd\\cf2 e\\cf0\\highlight1 f"));
}

TEST(PageRtf, AColourChangeInsideALineEndDoesNotDoubleIt) {
  platform::RichTextPage page{u"a\r\nb", {}, {}};
  page.colours.Paint(0, 2, 5);
  EXPECT_EQ(Rtf(page), Document("\\red5\\green0\\blue0;", "\\cf1 a\\par\r\n\\cf0 b"));
}

TEST(PageRtf, RunsBeyondTheTextEndWithIt) {
  platform::RichTextPage page{u"ab", {}, {}};
  page.colours.Paint(1, 1000, 5);
  page.backgrounds.Paint(500, 1000, 6);
  EXPECT_EQ(Rtf(page), Document("\\red5\\green0\\blue0;\\red6\\green0\\blue0;", "a\\cf1 b"));
}

TEST(PageRtf, OfAColourOnlyTheThreeChannelsCount) {
  platform::RichTextPage page{u"ab", {}, {}};
  page.colours.Paint(0, 1, -1);
  page.colours.Paint(1, 2, 0x00FFFFFF);
  EXPECT_EQ(Rtf(page), Document("\\red255\\green255\\blue255;", "\\cf1 ab"));
}

TEST(PageRtf, ATextColourOfBlackIsAColourOfItsOwn) {
  platform::RichTextPage page{u"a", {}, {}};
  page.colours.Paint(0, 1, 0);
  EXPECT_EQ(Rtf(page), Document("\\red0\\green0\\blue0;", "\\cf1 a"));
}

}  // namespace
}  // namespace tolvane
