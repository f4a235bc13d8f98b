#include "view/rtf_in_black.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/memory/rich_text/rtf_reader.h"
#include "view/page_rtf.h"

namespace tolvane {
namespace {

TEST(RtfInBlack, TextWithoutAColourIsBlackFromTheStart) {
  EXPECT_EQ(RtfInBlack("{\\rtf1{\\colortbl ;\\red255\\green0\\blue0;}5 \\cf1 b\\cf0 c}"),
            "{\\rtf1{\\colortbl ;\\red255\\green0\\blue0;\\red0\\green0\\blue0;}"
            "\\cf2 5 \\cf1 b\\cf2 c}");
}

TEST(RtfInBlack, ADocumentWithoutATableGetsOne) {
  EXPECT_EQ(RtfInBlack("{\\rtf1 a\\cf3 b}"),
            "{\\rtf1 {\\colortbl ;\\red0\\green0\\blue0;}\\cf1 a\\cf1 b}");
  EXPECT_EQ(RtfInBlack("{\\rtf\\ansi a}"),
            "{\\rtf{\\colortbl ;\\red0\\green0\\blue0;}\\cf1 \\ansi a}");
}

TEST(RtfInBlack, WhatTheTableLeavesOpenIsBlack) {
  const std::string table = "{\\rtf1{\\colortbl\\red9;;\\blue1;";
  const std::string start = table + "\\red0\\green0\\blue0;}\\cf3 ";
  const struct {
    const char* label;
    const char* body;
    const char* expected;
  } rows[] = {{"0 is defined here", "\\cf0 a", "\\cf0 a"},
              {"an empty entry", "\\cf1 a", "\\cf3 a"},
              {"no number is 0", "\\cf a", "\\cf a"},
              {"beyond the table", "\\cf7a", "\\cf3a"},
              {"far beyond it", "\\cf99999999999{a", "\\cf99999999999{a"},
              {"below it", "\\cf-1 a", "\\cf3 a"},
              {"plain", "\\plain\\b a\\plain b", "\\plain\\cf3\\b a\\plain\\cf3 b"},
              {"backgrounds", "\\highlight0\\cb1 a", "\\highlight0\\cb1 a"},
              {"longer words", "\\cfx\\cf2\\plainx a", "\\cfx\\cf2\\plainx a"},
              {"no control words", "\\\\cf1 \\'cf1 \\{cf1", "\\\\cf1 \\'cf1 \\{cf1"},
              {"behind a symbol", "\\{\\cf1 a\\\\\\plain b", "\\{\\cf3 a\\\\\\plain\\cf3 b"},
              {"the first and last letters", "\\plaina\\plainz\\plainA\\plainZ a",
               "\\plaina\\plainz\\plainA\\plainZ a"},
              {"data", "\\bin5 \\cf1 \\cf1 a", "\\bin5 \\cf1 \\cf3 a"},
              {"no data", "\\bin0 \\cf1 a", "\\bin0 \\cf3 a"}};
  for (const auto& row : rows) {
    EXPECT_EQ(RtfInBlack(table + "}" + row.body + "}"), start + row.expected + "}") << row.label;
  }
}

TEST(RtfInBlack, AnEntryWithAnyPartOfAColourIsDefined) {
  for (const std::string part : {"\\red5", "\\green5", "\\blue5"}) {
    EXPECT_EQ(RtfInBlack("{\\rtf1{\\colortbl;" + part + ";}\\cf1 a}"),
              "{\\rtf1{\\colortbl;" + part + ";\\red0\\green0\\blue0;}\\cf2 \\cf1 a}");
  }
}

TEST(RtfInBlack, BrokenDocumentsComeThrough) {
  for (const std::string rtf :
       {"", "\\", "{\\rtf1", "{\\rtf1{\\colortbl", "{\\rtf1{\\colortbl ;\\red1}\\cf1 a",
        "x\\bin9 a", "\\bin-1 a", "{\\rtf1\\cf"}) {
    EXPECT_NE(RtfInBlack(rtf).find(rtf.substr(0, 1)), std::string::npos) << rtf;
  }
}

TEST(RtfInBlack, APageKeepsItsTextAndItsColours) {
  platform::RichTextPage page{u"ID\r\n1A0 除外", {}, {}};
  page.colours.Paint(4, 7, 0x0000FF);
  page.backgrounds.Paint(0, 5, 0xFFB3F3);
  std::string rtf;
  WritePageRtf(page, rtf);
  const std::string black = RtfInBlack(rtf);
  const auto read = platform::memory::ReadRtf(String(black.begin(), black.end()));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->text, page.text);
  EXPECT_EQ(read->backgrounds, page.backgrounds);
  EXPECT_EQ(read->colours.Runs(), (std::vector<platform::ColourRun>{
                                      {0, 4, 0x000000}, {4, 7, 0x0000FF}, {7, 10, 0x000000}}));
}

}  // namespace
}  // namespace tolvane
